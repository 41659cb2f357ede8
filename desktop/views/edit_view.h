// View of an edit.
#pragma once

#include "desktop/views/control_view.h"
#include "host/components/edit.h"

class QLineEdit;

namespace goods {

// Each key goes to TEdit::TypeText; what the edit refuses snaps back with the caret where it was. Numbers and
// dates are shown with Persian digits where that is switched on, and copied with plain ones.
class EditView : public ControlView {
 public:
  EditView(FormView& form, TEdit& edit, QWidget* parent);
  QWidget* FocusWidget() const override;
  void Refresh() override;

 protected:
  QLineEdit& Line() const { return *line_; }
  TEdit& Edit() const { return edit_; }
  // Room that the derived view takes inside the edit.
  virtual int ExtraWidth() const { return 0; }

 private:
  QString Shown() const;
  void Typed(const QString& text);
  // Of the edit of an entity's code: tells the host what stands there.
  void TellTyped();
  void CaretMoved(int position);
  void RefreshSize();

  TEdit& edit_;
  QLineEdit* line_;
};

}  // namespace goods
