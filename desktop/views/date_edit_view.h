// View of a date edit: an edit with a Jalali calendar to drop down (its button, Alt+Down, F4).
#pragma once

#include "desktop/views/edit_view.h"

class QAction;

namespace goods {

class DateEditView : public EditView {
 public:
  DateEditView(FormView& form, TDateEdit& edit, QWidget* parent);
  // Shows the calendar below the edit; choosing a day sets the edit's text.
  void DropDown();

 protected:
  int ExtraWidth() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* open_;
};

}  // namespace goods
