// TokenField: the widget of a token editor: coloured chips in lines, and an edit after the last one.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "host/components/token_editor.h"

class QLineEdit;

namespace goods {

class TokenField : public QWidget {
 public:
  explicit TokenField(QWidget* parent);

  // The chips, and whether they can be taken away.
  void Show(const std::vector<TToken>& tokens, bool readOnly);
  QLineEdit& Line() const { return *line_; }
  // A chip was asked to go; the field itself (beside the chips) was pressed.
  std::function<void(const std::string& code)> OnRemove;
  std::function<void()> OnPressed;
  // Down, or Alt and Down, that the form had no use for.
  std::function<void()> OnDown;

  // The place of a chip, and of the cross on it; empty for a chip that has none.
  QRect ChipRect(std::size_t index) const { return chips_[index].place; }
  QRect CrossRect(std::size_t index) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Chip {
    TToken token;
    QRect place;
  };
  // Lays everything out in the width at hand; the height follows.
  void LayOut();
  std::optional<std::size_t> ChipAt(const QPoint& point) const;
  int ChipHeight() const;
  void PaintChip(QPainter& painter, std::size_t index) const;
  void PaintFrame(QPainter& painter);
  bool Cut(const Chip& chip) const;

  QLineEdit* line_;
  std::vector<Chip> chips_;
  std::optional<std::size_t> hovered_;  // whose cross the mouse is on
  bool readOnly_ = false;
};

}  // namespace goods
