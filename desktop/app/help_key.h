// HelpKey: F1 in any window of the program.
#pragma once

#include <QObject>

namespace goods {

// While it lives, F1 opens the page of the report that the key was pressed in, or of the report that the
// window was opened from; elsewhere in the program, and in the help itself, the index.
class HelpKey : public QObject {
 public:
  enum class Reach { WholeProgram, ReportsOnly };
  explicit HelpKey(Reach reach = Reach::WholeProgram);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Reach reach_;
};

}  // namespace goods
