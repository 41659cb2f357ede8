// The small windows of the help menu.
#pragma once

class QWidget;

namespace goods {

void ShowKeysWindow(QWidget* parent);
void ShowAboutWindow(QWidget* parent);

}  // namespace goods
