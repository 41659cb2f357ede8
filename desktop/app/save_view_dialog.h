// SaveViewDialog: a name for what a report's window asks for and shows.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "desktop/app/view_store.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace goods {

// Offers what there is to decide: the start page; dates that are those of a period at this day move on with
// the days; the good of a stock card belongs to the view only where the user says so. A name that is taken
// is replaced, and the button says so.
class SaveViewDialog : public QDialog {
 public:
  // left: what is asked for and cannot be kept. today is Jalali text. store and report must outlive it.
  SaveViewDialog(const ViewStore& store, const ReportSpec& report, SavedView view, const std::string& today,
                 const std::vector<std::string>& left, QWidget* parent);

  // As decided, once the dialog was accepted.
  SavedView View() const;

 private:
  void LayOut(const std::vector<std::string>& left);
  void NameTyped();

  const ViewStore& store_;
  const ReportSpec& report_;
  SavedView view_;
  std::string period_;  // that the dates are of; empty for none
  std::string good_;    // of a stock card
  QLineEdit* name_;
  QCheckBox* startPage_;
  QCheckBox* relative_;
  QCheckBox* withGood_;
  QLabel* note_;
  QPushButton* accept_;
};

}  // namespace goods
