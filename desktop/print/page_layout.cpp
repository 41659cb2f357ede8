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
constexpr double kRowPadding = 4;
constexpr double kLineFactor = 1.45;
constexpr int kTitleSize = 13;
constexpr int kMaxTitleLines = 3;

}  // namespace

PageLayout::PageLayout(const PrintJob& job, std::string today) : job_(job), today_(std::move(today)) {
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

void PageLayout::PlaceColumns() {
  const std::vector<ReportColumn> columns =
      job_.table == nullptr ? std::vector<ReportColumn>() : job_.table->Columns();
  if (job_.table != nullptr && job_.table->HasRowNumbers()) {
    columns_.push_back({-1, "", "#", TextAlign::Center, true, 0, kNumberColumn});
  }
  int index = 0;
  for (const ReportColumn& column : columns) {
    const QString caption = ShownText(column.caption);
    const qsizetype bar = caption.indexOf('|');
    columns_.push_back({index++, bar < 0 ? QString() : caption.left(bar), caption.mid(bar + 1), column.align,
                        column.isNumber, 0, column.width * kPointsPerPixel});
  }
  double natural = 0;
  for (const PrintedColumn& column : columns_) natural += column.width;
  landscape_ = columns.size() > kUprightColumns || natural > (kShortSide - 2 * kMargin) * 1.15;
  const double scale = natural > 0 ? Body().width() / natural : 1;
  if (scale < 1) fontSize_ = std::max(kLeastFont, fontSize_ * std::max(scale, 0.7));
  double right = Body().right();
  for (PrintedColumn& column : columns_) {
    column.width *= scale;
    right -= column.width;
    column.left = right;
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
  for (const PrintedColumn& column : columns_) {
    groups = groups || !column.group.isEmpty();
    lines = std::max(lines, TitleLines(column).size());
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

void PageLayout::BreakPages() {
  const std::size_t count = job_.table == nullptr ? 0 : job_.table->RowCount();
  const bool footer = job_.table != nullptr && job_.table->HasFooter();
  const double room = Body().height() - pageFooterHeight_ - headerHeight_;
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
    if (row == count && footer && page.rows == fits && page.rows > 1) {
      --page.rows;
      --row;
    }
    page.footer = row == count && footer;
    pages_.push_back(page);
  } while (row < count);
}

}  // namespace goods
