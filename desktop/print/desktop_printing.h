// DesktopPrinting: preview, paper, PDF and exports of a table.
#pragma once

#include <vector>

#include "desktop/views/form_view.h"
#include "host/services/messages.h"
#include "host/services/printing.h"

namespace goods {

class IWindows;

class DesktopPrinting : public IPrinting {
 public:
  // windows tells the day that is printed on the pages.
  explicit DesktopPrinting(IWindows& windows) : windows_(windows) {}

  // Shows the preview over the active window; returns when it is closed.
  void Preview(const PrintJob& job) override;

  // The entries of every table's menu: export as CSV and as a spreadsheet, print. messages hears of files
  // that cannot be written. Both must outlive the commands.
  std::vector<GridCommand> GridCommands(IMessages& messages);

 private:
  IWindows& windows_;
};

}  // namespace goods
