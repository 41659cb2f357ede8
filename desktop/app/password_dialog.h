// PasswordDialog: a user's new password, typed twice.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

class QFormLayout;
class QLabel;
class QLineEdit;

namespace goods {

// The two edits of a new password, with their rule; for dialogs that ask for one.
class NewPasswordEdits : public QWidget {
 public:
  explicit NewPasswordEdits(QWidget* parent);

  QLineEdit& First() const { return *first_; }
  QLineEdit& Second() const { return *second_; }
  // Puts another edit over them, in the same columns.
  void PutFirst(const QString& label, QLineEdit& edit);
  // Why the two are no password yet; empty when they are. The company checks the rest.
  QString Problem() const;
  std::string Password() const;
  void Clear();

 private:
  QLineEdit* first_;
  QLineEdit* second_;
  QFormLayout* form_;
};

// Stays until the password is taken or the user gives up.
class PasswordDialog : public QDialog {
 public:
  // Called with the old password (empty where none is asked for) and the new one; what it throws as
  // CompanyError is told in the window.
  using Take = std::function<void(const std::string& old, const std::string& password)>;

  // who is named in the title; askOld for a user who changes the own password.
  PasswordDialog(const QString& who, bool askOld, Take take, QWidget* parent);

 private:
  void LayOut(const QString& who, bool askOld);
  void TakeNow();

  Take take_;
  QLineEdit* old_;
  NewPasswordEdits* edits_;
  QLabel* problem_;
};

}  // namespace goods
