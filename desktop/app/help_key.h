// HelpKey: F1 in any window of the program.
#pragma once

#include <QObject>

namespace goods {

// While it lives, F1 opens the page of the report that the key was pressed in, or of the report that the
// window was opened from; elsewhere, and in the help itself, the index.
class HelpKey : public QObject {
 public:
  HelpKey();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace goods
