// ViewsDialog: the saved views of a user: renamed, removed, put on the start page, taken to files and from
// them.
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "desktop/app/view_store.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace goods {

class ViewsDialog : public QDialog {
 public:
  // takeIn reads a view from a file into the store. store must outlive the dialog.
  ViewsDialog(ViewStore& store, std::string today, std::function<void(QWidget* parent)> takeIn,
              QWidget* parent);

 private:
  void LayOut();
  void Fill();
  // The view of the current line; null where there is none.
  const SavedView* Current() const;
  void Ticked();
  void Rename();
  void Remove();
  void HandOut();
  void TakeIn();
  void ShowState();
  // Shows what went wrong; an empty text takes it away.
  void Tell(const QString& problem);

  ViewStore& store_;
  std::string today_;
  std::function<void(QWidget* parent)> takeIn_;
  struct Line {
    std::string report;
    std::string name;
  };
  std::vector<Line> lines_;
  QListWidget* list_;
  QLabel* problem_;
  std::vector<QPushButton*> ofCurrent_;
  bool filling_ = false;
};

// A view's file to read, as the user chooses it; empty for none.
QString AskForViewFile(QWidget* parent);

}  // namespace goods
