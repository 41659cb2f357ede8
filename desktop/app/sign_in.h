// SignInDialog: who uses the company.
#pragma once

#include <QDialog>
#include <optional>

#include "company/company.h"

class QLabel;
class QLineEdit;

namespace goods {

// Stays until the name and the password are right, or the user gives up.
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

  ICompany& company_;
  QLineEdit* login_;
  QLineEdit* password_;
  QLabel* problem_;
  std::optional<UserRecord> user_;
};

}  // namespace goods
