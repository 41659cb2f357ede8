#include "desktop/app/password_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "company/company.h"
#include "desktop/app/app_look.h"
#include "desktop/app/keyboard_hint.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

QLineEdit* PasswordEdit(const char* name, const QString& accessible, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setObjectName(name);
  edit->setAccessibleName(accessible);
  edit->setEchoMode(QLineEdit::Password);
  edit->setLayoutDirection(Qt::LeftToRight);
  edit->setTextMargins(6, 0, 6, 0);
  return edit;
}

}  // namespace

NewPasswordEdits::NewPasswordEdits(QWidget* parent)
    : QWidget(parent),
      first_(PasswordEdit("NewPassword_EDT", "گذرواژه تازه", this)),
      second_(PasswordEdit("Again_EDT", "تکرار گذرواژه تازه", this)),
      form_(new QFormLayout(this)) {
  form_->setContentsMargins(0, 0, 0, 0);
  form_->setHorizontalSpacing(12);
  form_->setVerticalSpacing(10);
  form_->addRow("گذرواژه &تازه :", first_);
  form_->addRow("ت&کرار آن :", second_);
  auto* rule = MutedLabel(
      ShownText("دست کم " + std::to_string(kShortestPassword) + " نویسه؛ حروف بزرگ و کوچک فرق دارند."), this);
  form_->addRow(QString(), rule);
  setFocusProxy(first_);
}

void NewPasswordEdits::PutFirst(const QString& label, QLineEdit& edit) {
  form_->insertRow(0, label, &edit);
  setTabOrder(&edit, first_);
}

QString NewPasswordEdits::Problem() const {
  if (first_->text().isEmpty()) return "گذرواژه تازه را بنویسید.";
  if (first_->text() != second_->text()) return "دو گذرواژه یکی نیستند.";
  return {};
}

std::string NewPasswordEdits::Password() const { return FromQt(first_->text()); }

void NewPasswordEdits::Clear() {
  first_->clear();
  second_->clear();
}

PasswordDialog::PasswordDialog(const QString& who, bool askOld, Take take, QWidget* parent)
    : QDialog(parent),
      take_(std::move(take)),
      old_(PasswordEdit("OldPassword_EDT", "گذرواژه کنونی", this)),
      edits_(new NewPasswordEdits(this)),
      problem_(ProblemLabel(this)) {
  LayOut(who, askOld);
}

void PasswordDialog::LayOut(const QString& who, bool askOld) {
  setObjectName("Password_FRM");
  setWindowTitle("تغییر گذرواژه");
  setAccessibleName("تغییر گذرواژه");
  setLayoutDirection(Qt::RightToLeft);

  auto* buttons = new QDialogButtonBox(this);
  auto* accept = buttons->addButton("تایید  Enter", QDialogButtonBox::AcceptRole);
  accept->setObjectName("Select_BTN");
  accept->setDefault(true);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &PasswordDialog::TakeNow);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 16);
  layout->setSpacing(10);
  layout->addWidget(TitleLabel("گذرواژه " + ShownText(who), this));
  old_->setVisible(askOld);
  if (askOld) edits_->PutFirst("گذرواژه ک&نونی :", *old_);
  layout->addWidget(edits_);
  layout->addWidget(new KeyboardHint({old_, &edits_->First(), &edits_->Second()}, this));
  layout->addWidget(problem_);
  layout->addStretch(1);
  layout->addWidget(buttons);
  setMinimumWidth(440);
  (askOld ? old_ : &edits_->First())->setFocus();
}

void PasswordDialog::TakeNow() {
  QString problem = edits_->Problem();
  if (problem.isEmpty()) {
    try {
      take_(FromQt(old_->text()), edits_->Password());
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
