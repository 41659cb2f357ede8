#include "desktop/views/column_chooser.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "desktop/views/check_tree.h"
#include "desktop/views/form_view.h"
#include "desktop/views/grid_geometry.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kWidth = 380;
constexpr int kHeight = 520;

// A column goes by its place in the grid, since a field may be shown twice.
QString IdOf(std::size_t column) { return QString::number(column); }

void AddColumns(CheckTree& tree, const TSmartDBGrid_QRT& grid) {
  for (std::size_t i = 0; i < grid.Columns().size(); ++i) {
    const TGridColumn& column = *grid.Columns()[i];
    if (!column.Customizable()) continue;
    const QString group = GroupOf(column);
    const QString groupId = group.isEmpty() ? QString() : "group " + group;
    if (!group.isEmpty() && tree.Item(groupId) == nullptr) tree.Add(groupId, group, {}, false);
    tree.Add(IdOf(i), TitleOf(column), groupId, column.Visible());
  }
  tree.Finish();
}

}  // namespace

QDialog* ShowColumnChooser(FormView& form, TSmartDBGrid_QRT& grid) {
  auto* dialog = new QDialog(&form);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setObjectName("ColumnChooser");
  dialog->setWindowTitle("انتخاب ستون‌ها");
  dialog->setLayoutDirection(Qt::RightToLeft);
  auto* tree = new CheckTree(CheckTree::Branches::FollowLeaves, dialog);
  tree->Search().setPlaceholderText("جستجوی ستون…");
  tree->Tree().setAccessibleName("ستون‌ها");
  AddColumns(*tree, grid);
  // The columns may be moved meanwhile, but only by this dialog's window, which waits.
  tree->OnCheck = [&form, &grid, tree](const QString& id, bool checked) {
    if (!checked && grid.VisibleColumns().size() <= 1) return tree->SetChecked(id, true);
    form.Run([&] { grid.Columns()[id.toULongLong()]->SetVisible(checked); });
  };
  auto* close = new QPushButton("بستن  Esc", dialog);
  close->setObjectName("Close_BTN");
  close->setAutoDefault(false);
  QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::close);
  auto* layout = new QVBoxLayout(dialog);
  const int margin = Scaled(14, *dialog);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(Scaled(10, *dialog));
  layout->addWidget(new QLabel("ستون‌هایی که در جدول دیده می‌شوند:", dialog));
  layout->addWidget(tree, 1);
  layout->addWidget(close, 0, Qt::AlignTrailing);
  dialog->resize(Scaled(kWidth, *dialog), Scaled(kHeight, *dialog));
  dialog->open();
  tree->Search().setFocus();
  return dialog;
}

}  // namespace goods
