// The colours and the font of a chart, on the screen and on paper.
#pragma once

#include <QColor>
#include <QFont>
#include <vector>

namespace goods {

struct ChartLook {
  QColor background;
  QColor text;
  QColor muted;
  QColor grid;
  QColor mark;
  QColor goal;
  std::vector<QColor> series;  // told apart from each other and from the background
  QFont font;
  // Lines of many points are one pixel of the device wide, which the toolkit draws a hundred times as fast.
  bool hairlines = false;
};

// Follows the theme, light or dark.
ChartLook ScreenLook();
// Dark on white, whatever the theme is.
ChartLook PaperLook();

}  // namespace goods
