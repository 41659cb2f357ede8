// UserDialog: one user of the company: names, password of a new one, prices, rights in words.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "company/users.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace goods {

class CheckTree;
class NewPasswordEdits;

class UserDialog : public QDialog {
 public:
  // Called with the user as it was filled in, and the password of a new one; what it throws as CompanyError
  // is told in the window.
  using Take = std::function<void(const CompanyUser& user, const std::string& password)>;

  // A user whose code is 0 is new: login and password are asked for too.
  UserDialog(CompanyUser user, Take take, QWidget* parent);

 private:
  void MakeRights();
  void LayOut();
  void FollowEveryRight();
  // The user as the window says; rights that have no name here stay as they were.
  CompanyUser Filled() const;
  void TakeNow();

  CompanyUser user_;
  Take take_;
  QLineEdit* login_;
  QLineEdit* name_;
  NewPasswordEdits* password_;  // null for a user who is there
  QCheckBox* everyRight_;
  QCheckBox* seesPrices_;
  CheckTree* rights_;
  QLabel* problem_;
};

}  // namespace goods
