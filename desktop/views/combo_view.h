// View of a combo box: a pick list, or a list behind an edit.
#pragma once

#include "desktop/views/control_view.h"
#include "host/components/standard.h"

class QComboBox;

namespace goods {

class ComboView : public ControlView {
 public:
  ComboView(FormView& form, TComboBox& combo, QWidget* parent);
  QWidget* FocusWidget() const override;
  void Refresh() override;

 private:
  void RefreshItems();
  void RefreshText(int caret);

  TComboBox& combo_;
  QComboBox* widget_;
  std::vector<int> offered_;  // the item behind each row of the list
};

}  // namespace goods
