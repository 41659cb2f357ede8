// Qt's keys as the components name them.
#pragma once

#include "host/components/keys.h"

class QKeyEvent;

namespace goods {

// Modifier keys alone give Key::None.
TKey KeyFromQt(const QKeyEvent& event);

}  // namespace goods
