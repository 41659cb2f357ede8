#include "desktop/documents/plain_table.h"

#include <QHeaderView>
#include <QTableView>
#include <algorithm>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kRowPadding = 12;
constexpr int kCellPadding = 24;
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
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setAlternatingRowColors(true);
  table.setShowGrid(false);
  table.setTabKeyNavigation(false);
  table.setWordWrap(false);
  table.verticalHeader()->hide();
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kRowPadding);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
}

void FitColumns(QTableView& table) {
  QHeaderView& header = *table.horizontalHeader();
  int widest = -1;
  for (int column = 0; column < header.count(); ++column) {
    header.resizeSection(column, WidthOf(table, column));
    if (widest < 0 || header.sectionSize(column) > header.sectionSize(widest)) widest = column;
  }
  if (widest >= 0) header.setSectionResizeMode(widest, QHeaderView::Stretch);
}

}  // namespace goods
