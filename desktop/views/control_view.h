// ControlView: what shows one component. It keeps no state of the component's own.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "host/components/control.h"
#include "host/core/signal.h"

namespace goods {

class FormView;

// Watches the component's Changed; any number of changes is followed by one Refresh, from the message loop.
// The widget belongs to its parent widget, the view to the form's view.
class ControlView : public QObject {
 public:
  ControlView(FormView& form, TControl& control);
  ~ControlView() override;

  TControl& Control() const { return control_; }
  FormView& Form() const { return form_; }
  QWidget* Widget() const { return widget_; }
  // The widget that gets the keyboard; null where none does.
  virtual QWidget* FocusWidget() const { return nullptr; }
  // Whether the widget is to be seen, as far as its container is.
  virtual bool IsShown() const { return control_.Visible(); }
  // Brings the widget up to date with the component. Cheap when nothing has changed.
  virtual void Refresh();
  // The least width that lines it up with its neighbours; 0 for none.
  void SetAlignedWidth(int width);
  int AlignedWidth() const { return alignedWidth_; }
  // What stands in the control has to be put right before it is left. The user is told, and the focus stays.
  virtual bool HoldsFocus() { return false; }
  // The key must not go on to the window for that reason.
  virtual bool HoldsKey(const TKey& /*key*/) { return false; }
  // Another view took the place of one that this view points to.
  virtual void Connected() {}

 protected:
  // To be called once, by the constructor of the derived view.
  void SetWidget(QWidget* widget);
  // Runs what a user's action causes, then brings this view up to date at once.
  template <typename Action>
  void Act(Action&& action);
  void Queue();

 private:
  FormView& form_;
  TControl& control_;
  QPointer<QWidget> widget_;
  int alignedWidth_ = 0;
  Subscription changed_;
};

// The component's name behind those of the frames that it stands in, such as "Store_SESF.SelectEntity_CHK":
// what FindComponent of the window takes.
QString ComponentPath(const TControl& control);
// Whether it is that container or somewhere inside it; null is nowhere.
bool StandsIn(const TControl* control, const TControl& container);

}  // namespace goods
