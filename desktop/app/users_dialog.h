// UsersDialog: the users of the company, for users with every right.
#pragma once

#include <QDialog>
#include <cstdint>
#include <vector>

#include "company/users.h"

class QLabel;
class QPushButton;
class QStandardItemModel;
class QTableView;

namespace goods {

// Ins adds, Enter changes, F8 sets a password, Del removes, Esc closes. Every change is kept at once.
class UsersDialog : public QDialog {
 public:
  // users must outlive it. self is the signed-in user, who cannot be removed here.
  UsersDialog(IUsers& users, std::int64_t self, QWidget* parent);

 private:
  void LayOut();
  // Reads the users; the one of that code becomes current, the first where there is none.
  void Fill(std::int64_t current);
  const CompanyUser* Current() const;
  void Add();
  void Change();
  void SetPassword();
  void Remove();
  // Does it and fills the list anew; an error is told under it.
  template <typename Action>
  void Try(Action&& action);
  void ShowProblem(const QString& text);

  IUsers& users_;
  std::int64_t self_;
  std::vector<CompanyUser> shown_;
  QStandardItemModel* model_;
  QTableView* table_;
  QLabel* problem_;
  std::vector<QPushButton*> ofCurrent_;  // those that need a current user
};

}  // namespace goods
