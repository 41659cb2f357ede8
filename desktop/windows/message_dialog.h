// MessageDialog: a message with an icon, Persian buttons, and details that can be folded out.
#pragma once

#include <QDialog>

#include "desktop/windows/desktop_messages.h"

namespace goods {

class MessageDialog : public QDialog {
 public:
  MessageDialog(const ShownMessage& message, QWidget* parent);
};

}  // namespace goods
