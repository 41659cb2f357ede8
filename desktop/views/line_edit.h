// LineEdit: a line of text with a Persian menu, whose copies carry plain digits.
#pragma once

#include <QLineEdit>

namespace goods {

class LineEdit : public QLineEdit {
 public:
  explicit LineEdit(QWidget* parent);
  // Whether digits are put as 0 to 9 on the clipboard.
  bool PlainDigits = false;
  void CopySelection() const;
  void CutSelection();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
};

}  // namespace goods
