#include "desktop/print/page_painter.h"

#include <QPainter>

#include "desktop/views/shown_text.h"

namespace goods {
namespace {

const QColor kInk(0x1C2530);
const QColor kFaint(0x5C6878);
const QColor kRule(0xB8C2CE);
const QColor kHeaderFill(0xE9EEF4);
const QColor kBandFill(0xF6F8FB);
constexpr double kCellPadding = 3;
constexpr double kHairline = 0.4;
constexpr double kSwatchInset = 2.5;
// In front of a title, so that one of figures alone is read as Persian text, too.
constexpr QChar kRightToLeftMark(0x200F);
constexpr double kLevelIndent = 12;  // of a group within another

class Page {
 public:
  Page(QPainter& painter, const PageLayout& layout, std::size_t index)
      : painter_(painter),
        layout_(layout),
        index_(index),
        page_(layout.Pages()[index]),
        columns_(layout.Columns(page_.band)),
        top_(layout.Body().top()) {}

  void Paint() {
    if (page_.head) PaintHead();
    PaintHeader();
    for (std::size_t i = 0; i < page_.rows; ++i) PaintRow(page_.firstRow + i);
    if (page_.footer) PaintFooter();
    PaintPageFooter();
  }

 private:
  // Text in a box of points; fonts are kFontUnits times their size, so the box is, too.
  void Text(const QRectF& box, const QString& text, const QFont& font, TextAlign align) {
    painter_.save();
    painter_.scale(1.0 / kFontUnits, 1.0 / kFontUnits);
    painter_.setFont(font);
    DrawCell(painter_, QRectF(box.topLeft() * kFontUnits, box.size() * kFontUnits).toRect(), text, align,
             true);
    painter_.restore();
  }
  void Lines(const QRectF& box, const QStringList& lines, const QFont& font) {
    painter_.save();
    painter_.scale(1.0 / kFontUnits, 1.0 / kFontUnits);
    painter_.setFont(font);
    DrawLines(painter_, QRectF(box.topLeft() * kFontUnits, box.size() * kFontUnits), lines,
              layout_.TextHeight() * kFontUnits);
    painter_.restore();
  }

  QRectF Cell(const PrintedColumn& column, double height) const {
    return {column.left, top_, column.width, height};
  }

  void PaintHead() {
    const QRectF body = layout_.Body();
    painter_.setPen(kInk);
    Text({body.left(), top_, body.width(), layout_.TitleHeight()}, ShownText(layout_.Job().title),
         layout_.TitleFont(), TextAlign::Center);
    double y = top_ + layout_.TitleHeight();
    painter_.setPen(kFaint);
    for (const QString& line : layout_.Lines()) {
      Text({body.left(), y, body.width(), layout_.LineHeight()}, line, layout_.Font(), TextAlign::Center);
      y += layout_.LineHeight();
    }
    top_ += layout_.HeadHeight();
  }

  void PaintHeader() {
    const double height = layout_.HeaderHeight();
    const QRectF body = layout_.Body();
    painter_.fillRect(QRectF(body.left(), top_, body.width(), height), kHeaderFill);
    painter_.setPen(kInk);
    for (const PrintedColumn& column : columns_) {
      QRectF box = Cell(column, height);
      if (!column.group.isEmpty()) box.setTop(box.top() + layout_.GroupHeight());
      painter_.setPen(kInk);
      Lines(box.adjusted(2, 0, -2, 0), layout_.TitleLines(column), layout_.BoldFont());
      Frame(box);
    }
    PaintGroups();
    top_ += height;
  }

  void PaintGroups() {
    const auto& columns = columns_;
    for (std::size_t from = 0; from < columns.size();) {
      std::size_t to = from + 1;
      const QString& group = columns[from].group;
      while (to < columns.size() && !group.isEmpty() && columns[to].group == group) ++to;
      if (!group.isEmpty()) {
        const QRectF box(columns[to - 1].left, top_,
                         columns[from].left + columns[from].width - columns[to - 1].left,
                         layout_.GroupHeight());
        painter_.setPen(kInk);
        Text(box.adjusted(2, 0, -2, 0), group, layout_.BoldFont(), TextAlign::Center);
        Frame(box);
      }
      from = to;
    }
  }

  void PaintRow(std::size_t row) {
    const double height = layout_.RowHeight();
    const QRectF body = layout_.Body();
    const IReportTable& table = *layout_.Job().table;
    if (table.Role(row) != RowRole::Row) return PaintGroup(row);
    if (row % 2 == 1) painter_.fillRect(QRectF(body.left(), top_, body.width(), height), kBandFill);
    for (const PrintedColumn& column : columns_) {
      if (PaintSwatch(row, column)) continue;
      const QString text =
          column.index < 0
              ? ShownDigits(QString::number(table.RowNumber(row).value_or(0)))
              : ShownCell(layout_.Job().table->CellText(row, static_cast<std::size_t>(column.index)),
                          column.isNumber);
      painter_.setPen(column.index < 0 ? kFaint : kInk);
      Text(Cell(column, height).adjusted(kCellPadding, 0, -kCellPadding, 0), text, layout_.Font(),
           column.align);
      Frame(Cell(column, height));
    }
    top_ += height;
  }

  // The head of a group, or its rows' sums in one unit of measure.
  void PaintGroup(std::size_t row) {
    const IReportTable& table = *layout_.Job().table;
    const bool head = table.Role(row) == RowRole::GroupHead;
    const std::size_t level = LevelOf(table, row);
    TotalsLine line;
    line.title = table.CellText(row, table.TextColumn());
    line.indent = (head ? kCellPadding : 4 * kCellPadding) + static_cast<double>(level) * kLevelIndent;
    line.font = head ? layout_.BoldFont() : layout_.Font();
    line.fill = head && level == 0 ? kHeaderFill : kBandFill;
    line.ink = head ? kInk : kFaint;
    PaintTotals(line, [&](std::size_t column) {
      return column == table.TextColumn() ? std::string() : table.CellText(row, column);
    });
  }

  void PaintUnit(const UnitRow& row) {
    TotalsLine line;
    line.title = row.title;
    line.font = layout_.Font();
    PaintTotals(line, [&row](std::size_t column) { return row.texts[column]; });
  }

  struct TotalsLine {
    std::string title;
    double indent = kCellPadding;
    QFont font;
    QColor fill = kBandFill;
    QColor ink = kFaint;
  };
  // The title from the side where reading starts up to the first figure.
  template <typename FigureOf>
  void PaintTotals(const TotalsLine& line, const FigureOf& figureOf) {
    const double height = layout_.RowHeight();
    const QRectF body = layout_.Body();
    painter_.fillRect(QRectF(body.left(), top_, body.width(), height), line.fill);
    double left = body.left();
    for (const PrintedColumn& column : columns_) {
      const std::string figure =
          column.index < 0 ? std::string() : figureOf(static_cast<std::size_t>(column.index));
      if (figure.empty()) continue;
      painter_.setPen(kInk);
      left = std::max(left, column.left + column.width);
      Text(Cell(column, height).adjusted(kCellPadding, 0, -kCellPadding, 0), ShownCell(figure, true),
           line.font, column.align);
      Frame(Cell(column, height));
    }
    painter_.setPen(line.ink);
    Text(QRectF(left + kCellPadding, top_, body.right() - left - line.indent - kCellPadding, height),
         kRightToLeftMark + ShownText(line.title), line.font, TextAlign::Start);
    Frame(QRectF(body.left(), top_, body.width(), height));
    top_ += height;
  }

  // A cell that stands for a colour shows it and no text.
  bool PaintSwatch(std::size_t row, const PrintedColumn& column) {
    const IReportTable& table = *layout_.Job().table;
    if (column.index < 0) return false;
    const auto index = static_cast<std::size_t>(column.index);
    if (table.Columns()[index].kind != CellKind::Swatch) return false;
    const QRectF cell = Cell(column, layout_.RowHeight());
    if (const auto color = table.CellColor(row, index)) {
      painter_.fillRect(cell.adjusted(kSwatchInset, kSwatchInset, -kSwatchInset, -kSwatchInset),
                        QColor::fromRgb(*color));
    }
    Frame(cell);
    return true;
  }

  void PaintFooter() {
    const double height = layout_.RowHeight();
    const QRectF body = layout_.Body();
    painter_.fillRect(QRectF(body.left(), top_, body.width(), height), kHeaderFill);
    for (const PrintedColumn& column : columns_) {
      if (column.index >= 0) {
        painter_.setPen(kInk);
        const std::string text = layout_.Job().table->FooterText(static_cast<std::size_t>(column.index));
        Text(Cell(column, height).adjusted(kCellPadding, 0, -kCellPadding, 0), ShownCell(text, true),
             layout_.BoldFont(), column.align);
      }
      Frame(Cell(column, height));
    }
    top_ += height;
    for (const UnitRow& row : layout_.Units()) PaintUnit(row);
  }

  void PaintPageFooter() {
    const QRectF body = layout_.Body();
    const QRectF box(body.left(), body.bottom() - layout_.RowHeight(), body.width(), layout_.RowHeight());
    painter_.setPen(kFaint);
    std::string pages =
        "صفحه " + std::to_string(index_ + 1) + " از " + std::to_string(layout_.Pages().size());
    if (layout_.Bands() > 1) {
      pages += " - ستون ها: بخش " + std::to_string(page_.band + 1) + " از " + std::to_string(layout_.Bands());
    }
    Text(box, ShownText(pages), layout_.Font(), TextAlign::Center);
    Text(box, ShownText("تاریخ: " + layout_.Today()), layout_.Font(), TextAlign::Start);
    if (!page_.head) Text(box, ShownText(layout_.Job().title), layout_.Font(), TextAlign::End);
  }

  void Frame(const QRectF& box) {
    painter_.setPen(QPen(kRule, kHairline));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(box);
  }

  QPainter& painter_;
  const PageLayout& layout_;
  std::size_t index_;
  const PrintedPage& page_;
  const std::vector<PrintedColumn>& columns_;
  double top_;
};

}  // namespace

void PaintPage(QPainter& painter, const PageLayout& layout, std::size_t page) {
  Page(painter, layout, page).Paint();
}

}  // namespace goods
