#include "desktop/views/control_view.h"

#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/form.h"

namespace goods {

ControlView::ControlView(FormView& form, TControl& control) : form_(form), control_(control) {
  changed_ = control_.Changed.Connect([this] { Queue(); });
}

ControlView::~ControlView() { form_.Forget(*this); }

void ControlView::Queue() { form_.Queue(*this); }

void ControlView::SetWidget(QWidget* widget) {
  widget_ = widget;
  widget->setObjectName(ComponentPath(control_));
}

void ControlView::SetAlignedWidth(int width) {
  if (width == alignedWidth_) return;
  alignedWidth_ = width;
  Refresh();
}

void ControlView::Refresh() {
  if (widget_ == nullptr) return;
  if (&control_ != &form_.Form()) {
    if (const bool shown = IsShown(); widget_->isHidden() == shown) widget_->setVisible(shown);
    // A window's own enabling is the windowing system's affair.
    if (widget_->isEnabledTo(widget_->parentWidget()) != control_.Enabled())
      widget_->setEnabled(control_.Enabled());
  }
  if (const QString hint = ShownText(control_.Hint()); widget_->toolTip() != hint) widget_->setToolTip(hint);
  const QString name = ToQt(control_.AccessibleName());
  if (widget_->accessibleName() != name) widget_->setAccessibleName(name);
  if (QWidget* focus = FocusWidget(); focus != nullptr && focus != widget_) focus->setAccessibleName(name);
}

QString ComponentPath(const TControl& control) {
  QString path = ToQt(control.Name());
  for (const TComponent* owner = control.Owner(); owner != nullptr && owner->Owner() != nullptr;
       owner = owner->Owner()) {
    path = ToQt(owner->Name()) + '.' + path;
  }
  return path;
}

bool StandsIn(const TControl* control, const TControl& container) {
  while (control != nullptr && control != &container) control = control->Parent();
  return control != nullptr;
}

}  // namespace goods
