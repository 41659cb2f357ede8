#include "desktop/views/grid_menu.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

QString PlainTitle(const TGridColumn& column) {
  return ToQt(PlainCaption(column.Caption())).replace('|', QString::fromUtf8(" / "));
}

// A tab or line break inside a cell would shift the cells after it.
QString OneCell(QString text) { return text.replace('\t', ' ').replace('\n', ' ').replace('\r', ""); }

}  // namespace

QString CopiedText(const TSmartDBGrid_QRT& grid) {
  const TADOQuery* query = grid.DataSet();
  std::set<std::size_t> rows = grid.Selection();
  if (rows.empty() && query != nullptr && query->RecNo()) rows.insert(*query->RecNo());
  if (rows.empty()) return {};
  const std::vector<TGridColumn*> columns = grid.VisibleColumns();
  QStringList lines;
  QStringList cells;
  for (const TGridColumn* column : columns) cells << OneCell(PlainTitle(*column));
  lines << cells.join('\t');
  for (const std::size_t row : rows) {
    cells.clear();
    for (const TGridColumn* column : columns) cells << OneCell(ToQt(grid.CellText(row, *column)));
    lines << cells.join('\t');
  }
  return lines.join('\n') + '\n';
}

void CopyRows(const TSmartDBGrid_QRT& grid) {
  const QString text = CopiedText(grid);
  if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

QDialog* ShowColumnChooser(FormView& form, TSmartDBGrid_QRT& grid) {
  auto* dialog = new QDialog(&form);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setObjectName("ColumnChooser");
  dialog->setWindowTitle("انتخاب ستون‌ها");
  auto* layout = new QVBoxLayout(dialog);
  auto* lead = new QLabel("ستون‌هایی که در جدول دیده می‌شوند:", dialog);
  layout->addWidget(lead);
  auto* area = new QScrollArea(dialog);
  auto* list = new QWidget(area);
  auto* boxes = new QVBoxLayout(list);
  boxes->setSpacing(Scaled(4, *dialog));
  for (const auto& column : grid.Columns()) {
    if (!column->Customizable()) continue;
    auto* box = new QCheckBox(ShownText(column->Caption()).replace('|', QString::fromUtf8(" / ")), list);
    box->setObjectName(ToQt(column->FieldName()));
    box->setChecked(column->Visible());
    TGridColumn* shown = column.get();
    QObject::connect(box, &QCheckBox::clicked, dialog, [&form, &grid, shown, box](bool on) {
      if (!on && grid.VisibleColumns().size() <= 1) {
        box->setChecked(true);
        return;
      }
      form.Run([&] { shown->SetVisible(on); });
    });
    boxes->addWidget(box);
  }
  boxes->addStretch();
  area->setWidget(list);
  area->setWidgetResizable(true);
  layout->addWidget(area);
  auto* close = new QPushButton("بستن", dialog);
  QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::close);
  layout->addWidget(close, 0, Qt::AlignLeading);
  dialog->resize(Scaled(300, *dialog), Scaled(420, *dialog));
  dialog->open();
  return dialog;
}

void GridMenu(FormView& form, TSmartDBGrid_QRT& grid, const QPoint& at) {
  QMenu menu(&form);
  menu.setObjectName("GridMenu");
  menu.setLayoutDirection(Qt::RightToLeft);
  menu.addAction("انتخاب ستون‌ها…", &form, [&] { ShowColumnChooser(form, grid); });
  QAction* copy = menu.addAction("رونوشت", &form, [&] { CopyRows(grid); });
  copy->setShortcut(QKeySequence::Copy);
  const bool anyRow = grid.Table().RowCount() > 0;
  copy->setEnabled(anyRow);
  if (!form.GridCommands().empty()) menu.addSeparator();
  for (const GridCommand& command : form.GridCommands()) {
    menu.addAction(ToQt(command.caption), &form, [&] { form.Run([&] { command.run(grid, &form); }); })
        ->setEnabled(anyRow);
  }
  menu.exec(at);
}

}  // namespace goods
