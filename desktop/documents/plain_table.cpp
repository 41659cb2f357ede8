#include "desktop/documents/plain_table.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <algorithm>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kRowPadding = 12;
constexpr int kCellPadding = 24;
constexpr int kTextMargin = 10;
constexpr int kNarrowest = 64;
constexpr int kWidest = 340;
constexpr int kMeasuredRows = 200;

int WidthOf(const QTableView& table, int column) {
  const QAbstractItemModel& model = *table.model();
  QFont bold = table.font();
  bold.setWeight(QFont::DemiBold);
  int width = QFontMetrics(bold).horizontalAdvance(model.headerData(column, Qt::Horizontal).toString());
  const QFontMetrics metrics(table.font());
  for (int row = 0; row < std::min(model.rowCount(), kMeasuredRows); ++row) {
    width = std::max(width, metrics.horizontalAdvance(model.index(row, column).data().toString()));
  }
  return std::clamp(width + kCellPadding, kNarrowest, kWidest);
}

// Keeps a cell's text off its neighbours; the background still fills the cell.
class PaddedCells : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const override {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QStyle& style = *option.widget->style();
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    const QRect room = option.rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
    const QString text = option.fontMetrics.elidedText(option.text, Qt::ElideRight, room.width());
    painter->save();
    painter->setFont(option.font);
    painter->setLayoutDirection(option.direction);
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    const Qt::Alignment alignment = QStyle::visualAlignment(option.direction, option.displayAlignment);
    painter->drawText(room, static_cast<int>(alignment | Qt::AlignAbsolute) | Qt::TextSingleLine, text);
    painter->restore();
  }
};

}  // namespace

void GiveListLook(QAbstractItemView& list) {
  const Theme& theme = CurrentTheme();
  QPalette palette = list.palette();
  palette.setColor(QPalette::Highlight, theme.accentSoft);
  palette.setColor(QPalette::HighlightedText, theme.text);
  list.setPalette(palette);
  list.setStyleSheet(QString("QAbstractItemView { border: 1px solid %1; border-radius: 4px; outline: none; }"
                             "QHeaderView { border: none; background: %2; }"
                             "QHeaderView::section { background: %2; color: %3; border: none;"
                             " border-bottom: 1px solid %1; padding: 6px 8px; font-weight: 600; }")
                         .arg(theme.border.name(), theme.header.name(), theme.text.name()));
}

void GiveTableLook(QTableView& table) {
  GiveListLook(table);
  table.setItemDelegate(new PaddedCells(&table));
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setAlternatingRowColors(true);
  table.setShowGrid(false);
  table.setTabKeyNavigation(false);
  table.setWordWrap(false);
  table.verticalHeader()->hide();
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kRowPadding);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
}

int FitColumns(QTableView& table) {
  QHeaderView& header = *table.horizontalHeader();
  int widest = -1;
  int width = 0;
  for (int column = 0; column < header.count(); ++column) {
    header.resizeSection(column, WidthOf(table, column));
    width += header.sectionSize(column);
    if (widest < 0 || header.sectionSize(column) > header.sectionSize(widest)) widest = column;
  }
  if (widest >= 0) header.setSectionResizeMode(widest, QHeaderView::Stretch);
  return width;
}

}  // namespace goods
