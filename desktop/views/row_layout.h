// RowLayout: widgets beside each other, on further lines where the width is too small for one.
#pragma once

#include <QBoxLayout>
#include <vector>

namespace goods {

// With enough width it lays out as its base does. A caption stays on the line of what follows it. How high
// the lines are is known once the width is; the layout then asks its parent for that height.
class RowLayout : public QBoxLayout {
 public:
  explicit RowLayout(QWidget* parent);

  QSize minimumSize() const override;
  QSize sizeHint() const override;
  void setGeometry(const QRect& rect) override;
  bool Wrapped() const { return wrappedHeight_ > 0; }

 private:
  struct Part {
    QLayoutItem* item;
    int stretch;
    int least;    // the width below which it would be cut, or begin further lines itself
    int before;   // the gap before it, where it does not begin a line
    bool joined;  // stays on the line of the part before it
  };
  using Line = std::vector<Part>;

  std::vector<Part> Parts() const;
  std::vector<Line> LinesAt(int width) const;
  std::vector<int> Widths(const Line& line, int width) const;
  void SetWrappedHeight(int height);

  int wrappedHeight_ = 0;  // 0: one line
};

}  // namespace goods
