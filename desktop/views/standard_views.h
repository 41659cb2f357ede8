// Views of labels, buttons and check boxes.
#pragma once

#include "desktop/views/control_view.h"
#include "host/components/standard.h"

class QCheckBox;
class QPushButton;

namespace goods {

class TextLabel;

class LabelView : public ControlView {
 public:
  LabelView(FormView& form, TLabel& label, QWidget* parent);
  void Refresh() override;
  void Connected() override;

 private:
  TLabel& label_;
  TextLabel* widget_;
};

class ButtonView : public ControlView {
 public:
  ButtonView(FormView& form, TButton& button, QWidget* parent);
  QWidget* FocusWidget() const override;
  void Refresh() override;

 private:
  TButton& button_;
  QPushButton* widget_;
};

class CheckBoxView : public ControlView {
 public:
  CheckBoxView(FormView& form, TCheckBox& box, QWidget* parent);
  QWidget* FocusWidget() const override;
  void Refresh() override;

 private:
  TCheckBox& box_;
  QCheckBox* widget_;
};

}  // namespace goods
