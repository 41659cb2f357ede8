// WindowOverlay: something that hangs open below a widget, inside the widget's own window.
#pragma once

#include <QWidget>
#include <functional>

class QScrollArea;

namespace goods {

// Not a window of its own, so that the keyboard stays with the window. It stands below its anchor, or above
// it where there is more room, never beyond the window's edges; what is larger than the window scrolls.
class WindowOverlay : public QWidget {
 public:
  // Both must outlive it; it belongs to the window.
  WindowOverlay(QWidget& anchor, QWidget& window);
  ~WindowOverlay() override;

  // Takes the widget over.
  void SetContents(QWidget* contents);
  void Open();
  void Close();
  bool IsOpen() const { return !isHidden(); }
  // Hangs under the whole anchor and is at least as wide.
  bool AtLeastAnchorWidth = true;

  // A press of the mouse in the window that meets neither it, nor what hangs from it, nor its anchor. The
  // press goes on its way afterwards.
  std::function<void()> OnPressOutside;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  // What nothing inside has a use for does not pass on to the window behind.
  void mousePressEvent(QMouseEvent* event) override;

 private:
  bool Holds(const QObject* object) const;
  void PlaceBesideAnchor();

  QWidget& anchor_;
  QScrollArea* area_;
};

}  // namespace goods
