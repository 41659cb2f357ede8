// The entry of a table's menu that shows its charts, and its key.
#pragma once

#include "desktop/print/desktop_printing.h"
#include "desktop/views/form_view.h"

namespace goods {

// F11. Offered on tables that have charts for this user. All must outlive the command.
GridCommand ChartCommand(const DesktopPrinting& printing, IWindows& windows, IMessages& messages);

}  // namespace goods
