#include "desktop/views/path_line.h"

namespace goods {

PathLine::PathLine(const QStringList& titles, QWidget* parent) : TextLabel(parent) {
  setObjectName("Path_LBL");
  setTextFormat(Qt::PlainText);
  setText(titles.join(" ← "));
  setAccessibleName("مسیر: " + titles.join("، "));
  setAccessibleDescription("Alt+Left: برگشت");
  setForegroundRole(QPalette::PlaceholderText);
  SetShrinkable(true);
}

}  // namespace goods
