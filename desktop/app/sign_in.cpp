#include "desktop/app/sign_in.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/app/app_look.h"
#include "desktop/app/keyboard_hint.h"
#include "desktop/views/shown_text.h"

namespace goods {

SignInDialog::SignInDialog(ICompany& company, const QString& login, const QString& hint, QWidget* parent)
    : QDialog(parent),
      company_(company),
      login_(new QLineEdit(login, this)),
      password_(new QLineEdit(this)),
      problem_(ProblemLabel(this)),
      second_(new QTimer(this)) {
  LayOut(ToQt(company.Title()), hint);
  (login.isEmpty() ? login_ : password_)->setFocus();
}

void SignInDialog::LayOut(const QString& company, const QString& hint) {
  setObjectName("SignIn_FRM");
  setWindowTitle("ورود کاربر");
  setAccessibleName("ورود کاربر");
  setLayoutDirection(Qt::RightToLeft);

  login_->setObjectName("Login_EDT");
  login_->setAccessibleName("نام کاربر");
  // Names and passwords are typed from left to right, whatever the window's direction.
  login_->setLayoutDirection(Qt::LeftToRight);
  password_->setObjectName("Password_EDT");
  password_->setAccessibleName("گذرواژه");
  password_->setLayoutDirection(Qt::LeftToRight);
  password_->setEchoMode(QLineEdit::Password);
  for (QLineEdit* edit : {login_, password_}) edit->setTextMargins(6, 0, 6, 0);

  auto* form = new QFormLayout;
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(10);
  form->addRow("نام کا&ربر :", login_);
  form->addRow("گذر&واژه :", password_);

  auto* buttons = new QDialogButtonBox(this);
  enter_ = buttons->addButton("ورود  Enter", QDialogButtonBox::AcceptRole);
  enter_->setObjectName("SignIn_BTN");
  enter_->setDefault(true);
  second_->setInterval(1000);
  connect(second_, &QTimer::timeout, this, &SignInDialog::CountDown);
  connect(login_, &QLineEdit::textEdited, this, &SignInDialog::EndWait);
  buttons->addButton("انصراف  Esc", QDialogButtonBox::RejectRole)->setObjectName("Exit_BTN");
  connect(buttons, &QDialogButtonBox::accepted, this, &SignInDialog::TryNow);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(28, 24, 28, 20);
  layout->setSpacing(8);
  layout->addWidget(ProgramSign(48, this));
  layout->addWidget(TitleLabel(kProgramTitle, this));
  auto* companyLabel = MutedLabel(ShownText(company), this);
  companyLabel->setObjectName("Company_LBL");
  layout->addWidget(companyLabel);
  layout->addSpacing(12);
  layout->addLayout(form);
  layout->addWidget(new KeyboardHint({login_, password_}, this));
  layout->addWidget(problem_);
  if (!hint.isEmpty()) {
    auto* hintLabel = MutedLabel(hint, this);
    hintLabel->setObjectName("Hint_LBL");
    layout->addSpacing(4);
    layout->addWidget(hintLabel);
  }
  layout->addSpacing(10);
  layout->addStretch(1);
  layout->addWidget(buttons);
  setMinimumWidth(440);
}

void SignInDialog::TryNow() {
  const QString login = login_->text().trimmed();
  if (login.isEmpty()) {
    ShowProblem("نام کاربر را وارد کنید.");
    login_->setFocus();
    return;
  }
  try {
    user_ = company_.SignIn(FromQt(login), FromQt(password_->text()));
  } catch (const SignInDelayed& delayed) {
    BeginWait(delayed);
    return;
  } catch (const CompanyError& error) {
    ShowProblem(ToQt(error.what()));
    return;
  }
  if (user_) {
    accept();
    return;
  }
  ShowProblem("نام کاربر یا گذرواژه درست نیست.");
  password_->setFocus();
  password_->selectAll();
}

void SignInDialog::BeginWait(const SignInDelayed& delayed) {
  wait_ = delayed.Seconds();
  enter_->setEnabled(false);
  second_->start();
  ShowProblem(ShownText(delayed.what()));
}

void SignInDialog::EndWait() {
  if (!second_->isActive()) return;
  second_->stop();
  enter_->setEnabled(true);
  problem_->setVisible(false);
}

void SignInDialog::CountDown() {
  if (--wait_ <= 0) {
    EndWait();
  } else {
    ShowProblem(ShownText(SignInDelayed(wait_).what()));
  }
}

void SignInDialog::ShowProblem(const QString& text) {
  problem_->setText(text);
  problem_->setVisible(true);
}

std::optional<UserRecord> SignInDialog::Ask() {
  if (exec() != QDialog::Accepted) return std::nullopt;
  return user_;
}

}  // namespace goods
