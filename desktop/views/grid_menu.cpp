#include "desktop/views/grid_menu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "desktop/views/column_chooser.h"
#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"

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
  const std::unique_ptr<IReportTable> table = grid.Table();
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

void GridMenu(FormView& form, TSmartDBGrid_QRT& grid, const QPoint& at) {
  QMenu menu(&form);
  menu.setObjectName("GridMenu");
  menu.setLayoutDirection(Qt::RightToLeft);
  menu.addAction("انتخاب ستون‌ها…", &form, [&] { ShowColumnChooser(form, grid); });
  QAction* copy = menu.addAction("رونوشت", &form, [&] { CopyRows(grid); });
  copy->setShortcut(QKeySequence::Copy);
  const bool anyRow = grid.RowCount() > 0;
  copy->setEnabled(anyRow);
  if (!form.GridCommands().empty()) menu.addSeparator();
  for (const GridCommand& command : form.GridCommands()) {
    menu.addAction(ToQt(command.caption), &form, [&] { form.Run([&] { command.run(grid, &form); }); })
        ->setEnabled(anyRow);
  }
  menu.exec(at);
}

}  // namespace goods
