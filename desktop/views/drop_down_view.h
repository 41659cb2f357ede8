// View of a drop-down combo: a field like a combo box, its panel hanging open below it.
#pragma once

#include <QPointer>

#include "desktop/views/container_view.h"
#include "host/components/drop_down.h"

namespace goods {

class DropField;
class WindowOverlay;

// A press outside, and a focus that goes elsewhere in the window, close it.
class DropDownView : public ContainerView {
 public:
  DropDownView(FormView& form, TDropDownCombo& combo, QWidget* parent);
  ~DropDownView() override;
  QWidget* FocusWidget() const override;
  void Refresh() override;
  // What hangs open; hidden while it is closed.
  WindowOverlay& Overlay() const;

 protected:
  QWidget* ContentsParent() const override { return holder_; }
  void Arrange() override;

 private:
  void FocusMoved();

  TDropDownCombo& combo_;
  DropField* field_;
  QPointer<WindowOverlay> overlay_;
  QWidget* holder_;
  Subscription formChanged_;
};

}  // namespace goods
