// TextLabel: a line of text that is cut with dots, and told in full by a tool tip, where it has too little
// room, or goes on in further lines.
#pragma once

#include <QLabel>
#include <functional>

namespace goods {

class TextLabel : public QLabel {
 public:
  explicit TextLabel(QWidget* parent);
  std::function<void()> OnClicked;
  // Whether it may become narrower than its text.
  void SetShrinkable(bool shrinkable);
  // Whether it goes on in further lines instead where it stands alone in its line.
  void SetWrapping(bool wrapping);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  bool Cut() const;
  int WrappedHeight() const;
  bool shrinkable_ = false;
  bool wrapping_ = false;
};

}  // namespace goods
