// A balloon beside a widget: told without asking for anything.
#pragma once

#include <QString>

class QWidget;

namespace goods {

// Goes after a few seconds, with the next key or click, or with the widget. width in pixels at 96 dpi, 0 for
// one that suits the text.
void ShowBalloon(QWidget& beside, const QString& text, int width);

}  // namespace goods
