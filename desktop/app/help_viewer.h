// HelpViewer: the window of the help pages.
#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QListWidget;

namespace goods {

class HelpText;

// Stands beside its parent, which can be worked with meanwhile, and goes with it. Esc closes; Ctrl+F searches
// the page, F3 and Shift+F3 go on; Alt+Right goes back to the page before.
class HelpViewer : public QDialog {
 public:
  explicit HelpViewer(QWidget* parent);

  // file: of HelpPages().
  void ShowPage(const QString& file);
  const QString& Page() const { return page_; }

 private:
  void MakeKeys();
  void PageChanged(const QString& file);
  void Search(bool backwards, bool stay);

  QListWidget* pages_;
  HelpText* text_;
  QLineEdit* search_;
  QLabel* notFound_;
  QString page_;
};

// Shows the page over that window, in the viewer that it has already, if any.
void OpenHelp(QWidget& over, const QString& file);

}  // namespace goods
