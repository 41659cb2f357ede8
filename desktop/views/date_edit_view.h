// View of a date edit: an edit with a Jalali calendar to drop down (its button, Alt+Down, F4).
//
// A date that does not exist is not left behind: Tab, Enter, a click elsewhere in the window and the keys of
// its buttons keep the focus there, mark the date and say why. Esc gives back the last good date; the window
// can still be closed.
#pragma once

#include "desktop/views/edit_view.h"

class QAction;

namespace goods {

class DateEditView : public EditView {
 public:
  DateEditView(FormView& form, TDateEdit& edit, QWidget* parent);
  // Shows the calendar below the edit; choosing a day sets the edit's text.
  void DropDown();

  bool HoldsFocus() override;
  bool HoldsKey(const TKey& key) override;

 protected:
  int ExtraWidth() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  TDateEdit& Date() const;
  bool HoldsImpossibleDate() const;
  bool LeavesByMouse(QObject* watched, const QEvent& event) const;
  void SayWhy();

  QAction* open_;
};

}  // namespace goods
