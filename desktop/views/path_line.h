// PathLine: the windows that led to this one, from the first to this one.
#pragma once

#include <QStringList>

#include "desktop/views/text_label.h"

namespace goods {

// Stands above the contents of a window that was opened from another; Alt+Left goes back.
class PathLine : public TextLabel {
 public:
  // titles as they are shown, at least two.
  PathLine(const QStringList& titles, QWidget* parent);
};

}  // namespace goods
