// SpinBox: a whole number that is typed or counted up and down, in the digits that the user sees elsewhere.
#pragma once

#include <QSpinBox>

namespace goods {

// Takes digits of every script that a user may type, and the number with or without its suffix.
class SpinBox : public QSpinBox {
 public:
  explicit SpinBox(QWidget* parent);

 protected:
  QString textFromValue(int value) const override;
  int valueFromText(const QString& text) const override;
  QValidator::State validate(QString& text, int& place) const override;
  // The wheel counts where the keyboard is, and scrolls the page elsewhere.
  void wheelEvent(QWheelEvent* event) override;

 private:
  // The number that a text has, without its suffix; empty before a digit was typed.
  QString Typed(QString text) const;
};

}  // namespace goods
