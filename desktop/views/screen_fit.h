// Windows are never larger than the screen that they are on.
#pragma once

#include <QSize>

class QApplication;
class QWidget;

namespace goods {

// From now on every window and dialog of the application that is shown, or grows while it is shown, stays
// within what its screen has to offer: it is made smaller and moved. A dialog whose contents need more room
// than that scrolls them, and its last row of buttons stays in view. To be called once or more.
void KeepWindowsOnScreen(QApplication& application);

// The size that a window's contents may have on its screen, without its frame; the frame is estimated until
// the window is shown.
QSize RoomFor(const QWidget& window);

}  // namespace goods
