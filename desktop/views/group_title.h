// The title of a group: a line of text, and for a foldable group an arrow and a click that folds it.
#pragma once

#include <QAbstractButton>

namespace goods {

class GroupTitle : public QAbstractButton {
 public:
  explicit GroupTitle(QWidget* parent);
  // The arrow points down where the group is open, and in reading direction where it is folded.
  void Show(const QString& text, bool foldable, bool folded);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool foldable_ = false;
  bool folded_ = false;
};

}  // namespace goods
