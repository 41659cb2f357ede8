// The dialog of a column's filter: its distinct values to tick, with a search.
#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>
#include <string>

#include "host/components/column_values.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace goods {

class FormView;

// The values are gathered between the events of the window. Enter shows the rows of the ticked values,
// "contains" all rows whose text holds what is searched. Where there are more values than are listed, the
// search looks among all. Other rows close it, since its values are no longer theirs.
class FilterDialog : public QDialog {
 public:
  FilterDialog(FormView& form, TSmartDBGrid_QRT& grid, TGridColumn& column, const std::string& search);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LayOut();
  void Gather();
  void GatherOn();
  void Fill();
  void Searched();
  void TickAll(bool on);
  void ShowState();
  void Apply();
  void ApplyContains();
  bool IsTicked(const ColumnValues::Entry& entry) const;

  FormView& form_;
  TSmartDBGrid_QRT& grid_;
  TGridColumn& column_;
  std::vector<RowCondition> before_;  // on this column
  std::unique_ptr<ColumnValues> values_;
  QLineEdit* search_;
  QCheckBox* all_;
  QListWidget* list_;
  QLabel* state_;
  QPushButton* apply_;
  QPushButton* contains_;
  QPushButton* lift_;
  QTimer work_;
  QTimer typing_;
  bool filling_ = false;
  bool applying_ = false;
  Subscription rows_;
};

// Opens it over the form; it deletes itself.
QDialog* ShowFilterDialog(FormView& form, TSmartDBGrid_QRT& grid, TGridColumn& column,
                          const std::string& search = "");

}  // namespace goods
