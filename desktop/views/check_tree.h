// CheckTree: a list or tree of things to tick, with a search above it.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QStandardItem;
class QStandardItemModel;
class QTreeView;

namespace goods {

class CheckTreeFilter;

// From the edit, the arrow keys move in the tree; typing in the tree goes on in the edit; Space ticks.
class CheckTree : public QWidget {
 public:
  // Boxes of branches follow those of their leaves, and tick them all; without, each stands for itself.
  enum class Branches { FollowLeaves, StandAlone };
  CheckTree(Branches branches, QWidget* parent);

  // parent is the id of one that was added before, empty at the top. An id is unique and not empty.
  void Add(const QString& id, const QString& text, const QString& parent, bool checked);
  // Opens the branches with something ticked inside, all of them where there are few rows; to be called when
  // everything is added.
  void Finish();

  bool IsChecked(const QString& id) const;
  // Without OnCheck; for a box that may not change.
  void SetChecked(const QString& id, bool checked);
  // In the order of the rows.
  QStringList Checked() const;
  // A leaf (with StandAlone any row) was ticked or unticked by the user.
  std::function<void(const QString& id, bool checked)> OnCheck;

  // Ticks or unticks all that the search shows.
  void CheckShown(bool checked);

  QLineEdit& Search() const { return *search_; }
  QTreeView& Tree() const { return *tree_; }
  QStandardItem* Item(const QString& id) const { return items_.value(id, nullptr); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class QuietScope;
  void LayOut();
  void SearchNow();
  void ItemChanged(QStandardItem* item);
  void ShowCount();
  void MoveToFirst();
  bool IsLeaf(const QStandardItem& item) const;
  // One that counts: a leaf, or any row where branches stand alone.
  bool Counts(const QStandardItem& item) const;
  template <typename Visit>
  void ForEach(Visit&& visit) const;

  Branches branches_;
  QStandardItemModel* model_;
  CheckTreeFilter* filter_;
  QLineEdit* search_;
  QTreeView* tree_;
  QLabel* count_;
  QHash<QString, QStandardItem*> items_;
  bool quiet_ = false;
};

}  // namespace goods
