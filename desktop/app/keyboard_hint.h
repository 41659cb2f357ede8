// KeyboardHint: tells under a password what cannot be seen in it: Caps Lock and the keyboard's layout.
#pragma once

#include <QLabel>
#include <initializer_list>
#include <optional>

class QKeyEvent;
class QLineEdit;

namespace goods {

// The toolkit tells neither for certain: the layout is that of the system until a letter was typed, then that
// letter's; Caps Lock is known from the first letter, whose case and Shift disagree, and from its own key.
class KeyboardHint : public QLabel {
 public:
  // edits must outlive it.
  KeyboardHint(std::initializer_list<QLineEdit*> edits, QWidget* parent);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Look(const QKeyEvent& key);
  void Tell();

  std::optional<bool> capsLock_;
  bool persian_;
};

}  // namespace goods
