// TextRecorder: what a widget paints, as texts. Sees what no property of a widget tells, such as a grid's
// cells.
#pragma once

#include <QString>

class QWidget;

namespace goods {

// The texts in the order in which they are painted, a line each.
QString PaintedText(QWidget& widget);

}  // namespace goods
