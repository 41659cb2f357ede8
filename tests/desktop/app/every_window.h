// A walk through every window and dialog that a user meets, for tests of what all of them must have.
#pragma once

#include <functional>

#include "tests/desktop/app/kit.h"

namespace goods {

class EveryWindow : public DesktopTest {
 public:
  using Look = std::function<void(QWidget& window)>;

 protected:
  // Each report that a menu opens, and its criteria dialog where it has one; then the windows that are
  // reached from within reports alone.
  void EachReport(const Look& look);
  // The main window, its dialogs, and what hangs over a report: preview, paper, charts, filter, columns,
  // views, documents, the other period.
  void EachDialog(const Look& look);

 private:
  void Inside(const char* exportName, const Look& steps);
  void OverACard(const Look& look);
  void OfTheProgram(const Look& look);
};

// Whether a window is showing and a user may reach a part of it now.
bool IsSeen(const QWidget& part);

}  // namespace goods
