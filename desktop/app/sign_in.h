// SignInDialog: who uses the company.
#pragma once

#include <QDialog>
#include <optional>

#include "company/company.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

namespace goods {

// Stays until the name and the password are right, or the user gives up. A login that has to wait after
// failed sign-ins is told how long; the button waits with it, until another name is typed.
class SignInDialog : public QDialog {
 public:
  // company must outlive it. hint is shown below the edits; empty for none.
  SignInDialog(ICompany& company, const QString& login, const QString& hint, QWidget* parent = nullptr);

  // None when the user gave up.
  std::optional<UserRecord> Ask();

 private:
  void LayOut(const QString& company, const QString& hint);
  void TryNow();
  void ShowProblem(const QString& text);
  void BeginWait(const SignInDelayed& delayed);
  void EndWait();
  void CountDown();

  ICompany& company_;
  QLineEdit* login_;
  QLineEdit* password_;
  QLabel* problem_;
  QPushButton* enter_ = nullptr;
  QTimer* second_;
  std::int64_t wait_ = 0;  // seconds
  std::optional<UserRecord> user_;
};

}  // namespace goods
