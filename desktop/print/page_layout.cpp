#include "desktop/print/page_layout.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr double kShortSide = 595;
constexpr double kLongSide = 842;
constexpr double kMargin = 34;
constexpr double kPointsPerPixel = 0.75;  // 72 / 96
constexpr std::size_t kUprightColumns = 8;
constexpr double kNumberColumn = 26;
constexpr double kLeastFont = 5.5;
constexpr double kLeastScale = 0.55;     // of the columns' width on the screen; smaller cuts most texts
constexpr double kLeastTextScale = 0.7;  // of the text then
constexpr double kRowPadding = 4;
constexpr double kLineFactor = 1.45;
constexpr int kTitleSize = 13;
constexpr int kMaxTitleLines = 3;

}  // namespace

PageLayout::PageLayout(const PrintJob& job, std::string today, PageOptions options,
                       std::vector<UnitRow> units)
    : job_(job), today_(std::move(today)), options_(std::move(options)), units_(std::move(units)) {
  PlaceColumns();
  Measure();
  BreakPages();
}

QSizeF PageLayout::PaperSize() const {
  return landscape_ ? QSizeF(kLongSide, kShortSide) : QSizeF(kShortSide, kLongSide);
}

QRectF PageLayout::Body() const {
  return QRectF(QPointF(0, 0), PaperSize()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

// One unit of the painter is a point, so sizes are pixels to the painter, whatever the device's resolution.
QFont PageLayout::Font() const {
  QFont font = InterfaceFont();
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(fontSize_ * kFontUnits))));
  return font;
}

QFont PageLayout::BoldFont() const {
  QFont font = Font();
  font.setBold(true);
  return font;
}

QFont PageLayout::TitleFont() const {
  QFont font = BoldFont();
  font.setPixelSize(kTitleSize * kFontUnits);
  return font;
}

std::vector<PrintedColumn> PageLayout::NaturalColumns() const {
  std::vector<PrintedColumn> columns;
  if (job_.table == nullptr) return columns;
  if (job_.table->HasRowNumbers()) {
    columns.push_back({-1, "", "#", TextAlign::Center, true, 0, kNumberColumn});
  }
  int index = 0;
  for (const ReportColumn& column : job_.table->Columns()) {
    const QString caption = ShownText(column.caption);
    const qsizetype bar = caption.indexOf('|');
    const auto chosen = options_.widths.find(column.name);
    const double share = chosen == options_.widths.end() ? 1 : chosen->second / 100.0;
    columns.push_back({index++, bar < 0 ? QString() : caption.left(bar), caption.mid(bar + 1), column.align,
                       column.isNumber, 0, column.width * kPointsPerPixel * share});
  }
  return columns;
}

// As many columns a band as the room takes, behind as many of the key columns as leave half of it.
void PageLayout::SplitIntoBands(const std::vector<PrintedColumn>& columns, double room) {
  std::size_t keys = 0;
  if (job_.table != nullptr) keys = job_.table->KeyColumns() + (job_.table->HasRowNumbers() ? 1 : 0);
  double keyWidth = 0;
  for (std::size_t c = 0; c < keys; ++c) keyWidth += columns[c].width;
  while (keys > 0 && keyWidth > room / 2) keyWidth -= columns[--keys].width;
  double width = 0;
  for (std::size_t c = 0; c < columns.size(); ++c) {
    if (bands_.empty() || (width + columns[c].width > room && bands_.back().size() > keys)) {
      const bool further = !bands_.empty();
      bands_.emplace_back();
      width = 0;
      for (std::size_t key = 0; further && key < keys; ++key) {
        bands_.back().push_back(columns[key]);
        width += columns[key].width;
      }
    }
    bands_.back().push_back(columns[c]);
    width += columns[c].width;
  }
}

void PageLayout::PlaceColumns() {
  const std::vector<PrintedColumn> columns = NaturalColumns();
  double natural = 0;
  for (const PrintedColumn& column : columns) natural += column.width;
  const std::size_t count = job_.table == nullptr ? 0 : job_.table->Columns().size();
  const bool wide = count > kUprightColumns || natural > (kShortSide - 2 * kMargin) * 1.15;
  landscape_ = options_.sheet == SheetDirection::ByColumns ? wide : options_.sheet == SheetDirection::Lying;
  // Text of a chosen size needs columns that grow with it.
  const double least =
      options_.textSize == 0 ? kLeastScale : kLeastScale / kLeastTextScale * options_.textSize / fontSize_;
  double scale = natural > 0 ? Body().width() / natural : 1;
  if (scale < least) {
    scale = least;
    SplitIntoBands(columns, Body().width() / least);
  } else {
    bands_.push_back(columns);
  }
  if (options_.textSize != 0) {
    fontSize_ = options_.textSize;
  } else if (scale < 1) {
    fontSize_ = std::max(kLeastFont, fontSize_ * std::max(scale, kLeastTextScale));
  }
  for (std::vector<PrintedColumn>& band : bands_) {
    double width = 0;
    for (const PrintedColumn& column : band) width += column.width;
    const double fitted = width > 0 ? Body().width() / width : 1;
    double right = Body().right();
    for (PrintedColumn& column : band) {
      column.width *= fitted;
      right -= column.width;
      column.left = right;
    }
  }
}

QStringList PageLayout::TitleLines(const PrintedColumn& column) const {
  const double room = std::max(1.0, (column.width - 4) * kFontUnits);
  return WrappedWords(column.title, QFontMetricsF(BoldFont()), room, kMaxTitleLines);
}

void PageLayout::Measure() {
  const double line = fontSize_ * kLineFactor;
  rowHeight_ = line + kRowPadding;
  bool groups = false;
  qsizetype lines = 1;
  for (const std::vector<PrintedColumn>& band : bands_) {
    for (const PrintedColumn& column : band) {
      groups = groups || !column.group.isEmpty();
      lines = std::max(lines, TitleLines(column).size());
    }
  }
  groupHeight_ = groups ? rowHeight_ : 0;
  headerHeight_ = groupHeight_ + line * static_cast<double>(lines) + kRowPadding + 2;
  textHeight_ = line;
  titleHeight_ = kTitleSize * kLineFactor + 8;
  lineHeight_ = rowHeight_;
  pageFooterHeight_ = rowHeight_ + 4;
  for (const std::string& text : job_.lines) {
    for (const QString& each : ShownText(text).split('\n')) {
      if (!each.trimmed().isEmpty()) lines_.push_back(each);
    }
  }
  headHeight_ = titleHeight_ + static_cast<double>(lines_.size()) * lineHeight_ + 6;
}

// The last line says how many there would be more.
void PageLayout::CutUnits(std::size_t lines) {
  const std::size_t more = units_.size() - lines + 1;
  units_.resize(lines);
  if (lines == 0) return;
  UnitRow& last = units_.back();
  last.title = "و " + std::to_string(more) + " واحد دیگر";
  last.sums.assign(last.sums.size(), Value());
  last.texts.assign(last.texts.size(), std::string());
}

void PageLayout::BreakPages() {
  const std::size_t count = job_.table == nullptr ? 0 : job_.table->RowCount();
  const bool footer = job_.table != nullptr && job_.table->HasFooter();
  const double room = Body().height() - pageFooterHeight_ - headerHeight_;
  // A row and the totals must fit on the first page, too.
  const double least = std::max(0.0, std::floor((room - headHeight_) / rowHeight_) - 2);
  if (static_cast<double>(units_.size()) > least) CutUnits(static_cast<std::size_t>(least));
  const std::size_t below = footer ? 1 + units_.size() : 0;
  std::size_t row = 0;
  do {
    PrintedPage page;
    page.head = pages_.empty();
    page.firstRow = row;
    const double left = page.head ? room - headHeight_ : room;
    const auto fits = static_cast<std::size_t>(std::max(1.0, std::floor(left / rowHeight_)));
    page.rows = std::min(fits, count - row);
    row += page.rows;
    // The totals never stand on a page without a row of their table.
    if (row == count && footer && page.rows + below > fits && page.rows > 1) {
      const std::size_t moved = std::min(page.rows - 1, page.rows + below - fits);
      page.rows -= moved;
      row -= moved;
    }
    page.footer = row == count && footer;
    for (page.band = 0; page.band < bands_.size(); ++page.band) pages_.push_back(page);
  } while (row < count);
}

}  // namespace goods
