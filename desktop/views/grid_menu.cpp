#include "desktop/views/grid_menu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <functional>
#include <utility>

#include "desktop/views/column_chooser.h"
#include "desktop/views/form_view.h"
#include "desktop/views/grid_geometry.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/keyboard_marks.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"

namespace goods {
namespace {

QString PlainTitle(const ReportColumn& column) {
  return ToQt(PlainCaption(column.caption)).replace('|', QString::fromUtf8(" / "));
}

// A tab or line break inside a cell would shift the cells after it.
QString OneCell(QString text) { return text.replace('\t', ' ').replace('\n', ' ').replace('\r', ""); }

}  // namespace

QString CopiedText(const TSmartDBGrid_QRT& grid) {
  const TADOQuery* query = grid.DataSet();
  std::set<std::size_t> rows = grid.Selection();
  if (rows.empty() && query != nullptr && query->RecNo()) rows.insert(*query->RecNo());
  if (rows.empty()) return {};
  const std::unique_ptr<IReportTable> table = grid.RowsTable();
  QStringList lines;
  QStringList cells;
  for (const ReportColumn& column : table->Columns()) cells << OneCell(PlainTitle(column));
  lines << cells.join('\t');
  for (const std::size_t row : rows) {
    cells.clear();
    for (std::size_t c = 0; c < table->Columns().size(); ++c) cells << OneCell(ToQt(table->CellText(row, c)));
    lines << cells.join('\t');
  }
  return lines.join('\n') + '\n';
}

void CopyRows(const TSmartDBGrid_QRT& grid) {
  const QString text = CopiedText(grid);
  if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

namespace {

constexpr int kValueWidth = 180;

// "برابر «پیچ»" and its like, for what the cell holds.
void AddConditions(QMenu& menu, GridWidget& table, FormView& form, const GridCell& cell) {
  TSmartDBGrid_QRT& grid = table.Grid();
  TGridColumn& column = *cell.column;
  const Value value = CellValue(grid, cell.row, column);
  const std::string text = grid.CellText(cell.row, column);
  const QString cut = menu.fontMetrics().elidedText(ShownCell(text, column.IsNumber()), Qt::ElideRight,
                                                    Scaled(kValueWidth, menu));
  const QString shown = text.empty() ? QString("(خالی)") : "«" + AsPlain(cut) + "»";
  QMenu* filter = menu.addMenu("&فیلتر " + AsPlain(TitleOf(column)));
  filter->setObjectName("GridFilterMenu");
  filter->setLayoutDirection(Qt::RightToLeft);
  const auto add = [&](const QString& caption, ConditionKind kind) {
    filter->addAction(caption + shown, &form, [&form, &grid, &column, kind, value] {
      form.Run([&] { AddCondition(grid, ConditionOn(column, kind, {value})); });
    });
  };
  add("&برابر ", ConditionKind::Equal);
  add("به &جز ", ConditionKind::NotEqual);
  if (!text.empty()) {
    add("&از ", ConditionKind::From);
    add("&تا ", ConditionKind::To);
  }
  filter->addSeparator();
  filter->addAction("&شامل…", &form, [&table, &column, text] { table.FilterColumn(&column, text); });
  filter->addAction("از میان &مقدارها…\tAlt+Down", &form, [&table, &column] { table.FilterColumn(&column); });
}

// By a column, or by a further one within the groups that there are.
void AddGroupings(QMenu& menu, GridWidget& table, const TGridColumn& column) {
  const GridGroups& groups = table.Grid().Groups();
  const QString title = AsPlain(TitleOf(column));
  const bool date = column.Kind() == CellKind::Date;
  const TGridColumn* by = &column;
  if (date) menu.addAction("بر پایه &ماهِ " + title, &table, [&table, by] { table.GroupBy(by, true); });
  menu.addAction("&بر پایه " + title, &table, [&table, by] { table.GroupBy(by); });
  if (groups.Active() && groups.LevelOf(column) == nullptr) {
    const bool room = groups.Levels().size() < GridGroups::kMostLevels;
    if (date)
      menu.addAction("درون گروه‌ها، بر &پایه ماهِ " + title, &table,
                     [&table, by] { table.GroupWithin(*by, true); })
          ->setEnabled(room);
    menu.addAction("درون &گروه‌ها، بر پایه " + title + "\tCtrl+Shift+G", &table,
                   [&table, by] { table.GroupWithin(*by); })
        ->setEnabled(room);
  } else if (groups.Levels().size() > 1 && groups.LevelOf(column) != nullptr) {
    menu.addAction("&نه بر پایه " + title, &table, [&table, by] { table.NoLongerGroupBy(*by); });
  }
  menu.addSeparator();
}

void AddGroups(QMenu& menu, GridWidget& table, const TGridColumn* column) {
  const GridGroups& groups = table.Grid().Groups();
  QMenu* submenu = menu.addMenu("&گروه‌بندی");
  submenu->setObjectName("GridGroupMenu");
  submenu->setLayoutDirection(Qt::RightToLeft);
  if (column != nullptr && !column->Withheld() && column->Kind() != CellKind::Swatch)
    AddGroupings(*submenu, table, *column);
  const auto add = [&](const QString& caption, bool enabled, std::function<void()> action) {
    submenu->addAction(caption, &table, std::move(action))->setEnabled(enabled);
  };
  const std::size_t levels = groups.Columns().size();
  add("باز &کردن همه گروه‌ها\tCtrl++", levels > 0, [&table] { table.FoldGroups(false); });
  add("ب&ستن همه گروه‌ها\tCtrl+-", levels > 0, [&table] { table.FoldGroups(true); });
  if (levels > 1) {
    add("باز کردن &یک لایه\tAlt++", groups.LevelsOpen() < levels, [&table] { table.OpenOneLevel(true); });
    add("بستن یک &لایه\tAlt+-", groups.LevelsOpen() > 0, [&table] { table.OpenOneLevel(false); });
  }
  add("بر&داشتن گروه‌بندی", levels > 0, [&table] { table.GroupBy(nullptr); });
}

}  // namespace

void GridMenu(GridWidget& table, FormView& form, const std::optional<GridCell>& cell, TGridColumn* column,
              const QPoint& at) {
  TSmartDBGrid_QRT& grid = table.Grid();
  QMenu menu(&form);
  menu.setObjectName("GridMenu");
  menu.setAccessibleName("فهرست جدول");
  menu.setLayoutDirection(Qt::RightToLeft);
  if (cell && !cell->column->Withheld() && cell->column->Kind() != CellKind::Swatch)
    AddConditions(menu, table, form, *cell);
  const TADOQuery* query = grid.DataSet();
  menu.addAction("بر&داشتن فیلترها\tF8", &form, [&] { form.Run([&] { RemoveConditions(grid); }); })
      ->setEnabled(query != nullptr && !query->Narrowing().empty());
  menu.addAction("&یافتن…\tCtrl+F", &form, [&] { table.Find(); })->setEnabled(grid.RowCount() > 0);
  if (grid.RowCount() > 0) AddGroups(menu, table, column);
  menu.addSeparator();
  menu.addAction("انتخاب &ستون‌ها…", &form, [&] { ShowColumnChooser(form, grid); });
  QAction* copy = menu.addAction("&رونوشت", &form, [&] { CopyRows(grid); });
  copy->setShortcut(QKeySequence::Copy);
  const bool anyRow = grid.RowCount() > 0;
  copy->setEnabled(anyRow);
  if (!form.GridCommands().empty()) menu.addSeparator();
  for (const GridCommand& command : form.GridCommands()) {
    if (!command.OfferedOn(grid)) continue;
    menu.addAction(ToQt(command.caption), &form, [&] { form.Run([&] { command.run(grid, &form); }); })
        ->setEnabled(anyRow);
  }
  MarkEntries(menu);
  menu.exec(at);
}

}  // namespace goods
