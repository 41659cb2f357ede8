// FitArea: what stands in it is scrolled to where there is too little room for it.
#pragma once

#include <QScrollArea>

namespace goods {

// Takes the room that its contents ask for, and may be given less. No frame, no background of its own, no
// keys; what gets the keyboard comes into view.
class FitArea : public QScrollArea {
 public:
  explicit FitArea(QWidget* parent);

  // The area of that very window; null where it has none.
  static FitArea* Of(const QWidget& window);

  void SetContents(QWidget* contents);
  // The least size at which nothing has to be scrolled to.
  QSize NaturalMinimum() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace goods
