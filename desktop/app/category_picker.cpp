#include "desktop/app/category_picker.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/views/check_tree.h"
#include "desktop/views/shown_text.h"

namespace goods {

CategoryPicker::CategoryPicker(const std::vector<TCategory>& categories,
                               const std::vector<std::string>& chosen, QWidget* parent)
    : QDialog(parent), before_(chosen), tree_(new CheckTree(CheckTree::Branches::StandAlone, this)) {
  setObjectName("SelectCategories_FRM");
  setWindowTitle("انتخاب دسته");
  setAccessibleName("انتخاب دسته");
  setLayoutDirection(Qt::RightToLeft);
  resize(460, 540);
  tree_->Search().setPlaceholderText("جستجوی دسته…");
  tree_->Tree().setAccessibleName("دسته‌ها");
  AddAll(categories);

  auto* buttons = new QDialogButtonBox(this);
  auto* select = buttons->addButton("انتخاب  Enter", QDialogButtonBox::AcceptRole);
  select->setObjectName("Select_BTN");
  select->setDefault(true);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 12);
  layout->setSpacing(10);
  layout->addWidget(tree_, 1);
  layout->addWidget(buttons);
}

void CategoryPicker::AddAll(const std::vector<TCategory>& categories) {
  std::vector<const TCategory*> waiting;
  for (const TCategory& category : categories) waiting.push_back(&category);
  const auto add = [this](const TCategory& category, const QString& parent) {
    const bool ticked = std::find(before_.begin(), before_.end(), category.Code) != before_.end();
    tree_->Add(ToQt(category.Code), ToQt(category.Name), parent, ticked);
  };
  const auto known = [&](const std::string& code) {
    return std::any_of(categories.begin(), categories.end(),
                       [&](const TCategory& category) { return category.Code == code; });
  };
  // Parents before what stands under them, whatever the order of the codes.
  while (!waiting.empty()) {
    const std::size_t count = waiting.size();
    std::erase_if(waiting, [&](const TCategory* category) {
      const bool top = category->ParentCode.empty() || !known(category->ParentCode);
      if (!top && tree_->Item(ToQt(category->ParentCode)) == nullptr) return false;
      add(*category, top ? QString() : ToQt(category->ParentCode));
      return true;
    });
    if (waiting.size() < count) continue;
    add(*waiting.front(), {});  // a ring
    waiting.erase(waiting.begin());
  }
  tree_->Finish();
}

std::optional<std::vector<std::string>> CategoryPicker::Choose() {
  tree_->Search().setFocus();
  if (exec() != QDialog::Accepted) return std::nullopt;
  const QStringList ticked = tree_->Checked();
  std::vector<std::string> codes;
  for (const std::string& code : before_) {
    if (ticked.contains(ToQt(code))) codes.push_back(code);
  }
  for (const QString& code : ticked) {
    if (std::find(codes.begin(), codes.end(), FromQt(code)) == codes.end()) codes.push_back(FromQt(code));
  }
  return codes;
}

}  // namespace goods
