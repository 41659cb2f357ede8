// TabBar: a strip of tabs in reading direction, the chosen one underlined.
#pragma once

#include <QTabBar>

namespace goods {

class TabBar : public QTabBar {
 public:
  explicit TabBar(QWidget* parent);

 protected:
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void PaintTab(QPainter& painter, int index, bool hovered) const;
};

}  // namespace goods
