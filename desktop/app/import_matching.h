// ImportMatching: which file holds which table, and which of its columns stands for which of ours.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "company/interchange/import_preview.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QTableWidget;

namespace goods {

// A list of the tables; for the current one its file, our columns with theirs to choose from, and the file's
// first rows. Movement types that nobody knows stand behind the tables, each to be told what it is.
class ImportMatching : public QWidget {
 public:
  explicit ImportMatching(QWidget* parent);

  // Shows what was read, anew after a reading again; the current table stays. Both must outlive the page;
  // what the user matches goes into them.
  void Show(ImportPreview& preview, NameMap& names);
  // Why the import cannot begin yet, empty when it can; the table that it speaks of becomes current.
  QString GoToProblem();
  // What was read holds no more: another file was chosen, or another column of movement types or quantities.
  bool IsStale() const { return stale_; }
  bool UnsignedQuantities() const;

  // Another file was chosen, and the user rests.
  std::function<void()> OnReread;

 private:
  void LayOut();
  void FillList();
  void ShowCurrent();
  TablePreview* Current();
  void ShowTable(const TablePreview& table);
  void ShowTypes();
  void ShowRows(const TablePreview& table);
  void TitleRows(const TablePreview& table);
  // A row of the matching: what is matched, with a box of choices and an example behind it.
  QComboBox* AddRow(const QString& what, const QString& hint, bool required);
  void ChooseFile(int item);
  void ChooseColumn(std::size_t column, int item);
  void ShowExample(int row, const TablePreview& table, const ColumnPreview& column);

  ImportPreview* preview_ = nullptr;
  NameMap* names_ = nullptr;
  QListWidget* tables_;
  QLabel* fileCaption_;
  QComboBox* file_;
  QCheckBox* unsigned_;
  QTableWidget* matching_;
  QLabel* rowsCaption_;
  QTableWidget* rows_;
  bool showing_ = false;
  bool stale_ = false;
  QTimer resting_;
  bool signsTold_ = false;  // the user has ticked or unticked the box
};

}  // namespace goods
