// NumberedMenu: a menu that begins with numbered entries.
#pragma once

#include <QMenu>

namespace goods {

// A digit chooses the entry that it marks, in whatever script the keyboard writes and the menu shows it.
class NumberedMenu : public QMenu {
 public:
  using QMenu::QMenu;

  // The text of an entry behind its digit, 0 to 9, which marks it.
  static QString Numbered(int digit, const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace goods
