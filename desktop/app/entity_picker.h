// EntityPicker: the list to choose a good, a store, a person or a group from.
#pragma once

#include <QDialog>
#include <QTimer>
#include <optional>
#include <vector>

#include "company/company.h"

class QLabel;
class QLineEdit;
class QStackedLayout;
class QTableView;

namespace goods {

class EntityRows;

// The list follows the search text 150 ms after the last key. From the edit, the arrow and page keys move in
// the list, Enter chooses, Esc gives up; a double click chooses.
class EntityPicker : public QDialog {
 public:
  // current is shown as chosen where it exists; text is searched for where it does not. Without a search text
  // those of recent that the company has stand first, once more than in their own place. Throws CompanyError.
  EntityPicker(ICompany& company, EntityKind kind, std::int64_t current, const QString& text, QWidget* parent,
               std::vector<std::int64_t> recent = {});

  // None when the user gave up.
  std::optional<std::int64_t> Choose();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LayOut(EntityKind kind);
  void SearchNow();
  void ShowCount();
  void MoveTo(int row);
  void Accept();

  EntityRows* rows_;
  QLineEdit* search_;
  QTableView* table_;
  QLabel* empty_;
  QLabel* count_;
  QStackedLayout* list_;
  QTimer typing_;
};

}  // namespace goods
