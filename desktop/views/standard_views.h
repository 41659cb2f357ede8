// Views of labels, buttons, check boxes and radio buttons.
#pragma once

#include "desktop/views/control_view.h"
#include "host/components/standard.h"

class QCheckBox;
class QPushButton;
class QRadioButton;

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

class RadioButtonView : public ControlView {
 public:
  RadioButtonView(FormView& form, TRadioButton& radio, QWidget* parent);
  QWidget* FocusWidget() const override;
  void Refresh() override;

 private:
  TRadioButton& radio_;
  QRadioButton* widget_;
};

}  // namespace goods
