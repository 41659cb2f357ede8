#include "desktop/app/user_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "company/company.h"
#include "company/right_names.h"
#include "desktop/app/app_look.h"
#include "desktop/app/keyboard_hint.h"
#include "desktop/app/password_dialog.h"
#include "desktop/views/check_tree.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

QString IdOf(const NamedRight& right) {
  return QString::fromUtf8(right.key.data(), static_cast<qsizetype>(right.key.size()));
}

}  // namespace

UserDialog::UserDialog(CompanyUser user, Take take, QWidget* parent)
    : QDialog(parent),
      user_(std::move(user)),
      take_(std::move(take)),
      login_(new QLineEdit(ToQt(user_.login), this)),
      name_(new QLineEdit(ToQt(user_.name), this)),
      password_(user_.code == 0 ? new NewPasswordEdits(this) : nullptr),
      everyRight_(new QCheckBox("همه م&جوزها، و مدیریت کاربران", this)),
      seesPrices_(new QCheckBox("&قیمت‌ها و مبلغ‌ها را می‌بیند", this)),
      rights_(new CheckTree(CheckTree::Branches::FollowLeaves, this)),
      problem_(ProblemLabel(this)) {
  MakeRights();
  LayOut();
}

void UserDialog::MakeRights() {
  for (const NamedRight& right : NamedRights()) {
    const QString group = ToQt(right.group);
    const QString groupId = "group " + group;
    if (rights_->Item(groupId) == nullptr) rights_->Add(groupId, group, {}, false);
    const bool held = std::find(user_.rights.begin(), user_.rights.end(), right.right) != user_.rights.end();
    rights_->Add(IdOf(right), ToQt(right.text), groupId, held);
  }
  rights_->Finish();
  rights_->Tree().setObjectName("Rights_TREE");
  rights_->Tree().setAccessibleName("مجوزها");
  rights_->Search().setPlaceholderText("جستجوی مجوز…");
}

void UserDialog::LayOut() {
  const bool made = user_.code == 0;
  const QString title = made ? QString("کاربر تازه") : "کاربر " + ShownText(user_.login);
  setObjectName("User_FRM");
  setWindowTitle(title);
  setAccessibleName(title);
  setLayoutDirection(Qt::RightToLeft);

  login_->setObjectName("Login_EDT");
  login_->setAccessibleName("نام کاربر");
  login_->setLayoutDirection(Qt::LeftToRight);
  login_->setTextMargins(6, 0, 6, 0);
  login_->setEnabled(made);
  name_->setObjectName("Name_EDT");
  name_->setAccessibleName("نام و نام خانوادگی");
  name_->setTextMargins(6, 0, 6, 0);
  everyRight_->setObjectName("EveryRight_CHK");
  everyRight_->setChecked(user_.everyRight);
  seesPrices_->setObjectName("SeesPrices_CHK");
  seesPrices_->setChecked(user_.seesPrices);
  connect(everyRight_, &QCheckBox::toggled, this, [this] { FollowEveryRight(); });

  auto* form = new QFormLayout;
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(10);
  form->addRow("نام کا&ربر :", login_);
  form->addRow("نا&م :", name_);

  auto* buttons = new QDialogButtonBox(this);
  auto* accept = buttons->addButton("تایید  F3", QDialogButtonBox::AcceptRole);
  accept->setObjectName("Select_BTN");
  connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, accept, &QPushButton::click);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &UserDialog::TakeNow);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* who = new QVBoxLayout;
  who->setSpacing(10);
  who->addLayout(form);
  if (password_ != nullptr) {
    who->addWidget(password_);
    who->addWidget(new KeyboardHint({&password_->First(), &password_->Second()}, this));
  }
  who->addSpacing(6);
  who->addWidget(everyRight_);
  who->addWidget(seesPrices_);
  who->addStretch(1);

  auto* both = new QHBoxLayout;
  both->setSpacing(24);
  both->addLayout(who, 1);
  both->addWidget(rights_, 1);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(10);
  layout->addWidget(TitleLabel(title, this));
  layout->addLayout(both, 1);
  layout->addWidget(problem_);
  layout->addWidget(buttons);
  resize(860, 540);
  FollowEveryRight();
  (made ? login_ : name_)->setFocus();
}

// With every right there is nothing to choose.
void UserDialog::FollowEveryRight() {
  const bool every = everyRight_->isChecked();
  rights_->setEnabled(!every);
  seesPrices_->setEnabled(!every);
}

CompanyUser UserDialog::Filled() const {
  CompanyUser user = user_;
  user.login = FromQt(login_->text().trimmed());
  user.name = FromQt(name_->text().trimmed());
  user.everyRight = everyRight_->isChecked();
  user.seesPrices = seesPrices_->isChecked();
  std::erase_if(user.rights, [](UserRight right) { return FindRight(right) != nullptr; });
  for (const NamedRight& right : NamedRights()) {
    if (rights_->IsChecked(IdOf(right))) user.rights.push_back(right.right);
  }
  std::sort(user.rights.begin(), user.rights.end());
  return user;
}

void UserDialog::TakeNow() {
  QString problem = password_ == nullptr ? QString() : password_->Problem();
  if (problem.isEmpty()) {
    try {
      take_(Filled(), password_ == nullptr ? std::string() : password_->Password());
      accept();
      return;
    } catch (const CompanyError& error) {
      problem = ToQt(error.what());
    }
  }
  problem_->setText(ShownText(problem));
  problem_->setVisible(true);
}

}  // namespace goods
