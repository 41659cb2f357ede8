// DesktopPrinting: preview, paper, PDF and exports of a table.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "desktop/print/export.h"
#include "desktop/print/printed_document.h"
#include "desktop/views/form_view.h"
#include "host/services/messages.h"
#include "host/services/printing.h"
#include "host/services/settings.h"

namespace goods {

class IWindows;
class TBaseDock_FRM;

// Where the user's choices for a report's paper are kept; null settings keep none.
struct Paper {
  ISettings* settings = nullptr;
  std::string section = {};
};

class DesktopPrinting : public IPrinting {
 public:
  // windows tells the day that is printed on the pages.
  explicit DesktopPrinting(IWindows& windows) : windows_(windows) {}

  // No export or PDF is written over this file; told of the open company's.
  void Protect(std::string path) { forbidden_.push_back(std::move(path)); }

  // Shows the preview over the active window; returns when it is closed.
  void Preview(const PrintJob& job) override;
  // The same of several jobs, one behind the other; they must not be none.
  void PreviewAll(std::vector<PrintedJob> jobs, const Paper& paper);
  static Paper PaperOf(const TBaseDock_FRM& report);

  // The entries of every table's menu: export in each format but PDF, which the preview writes, and print.
  // messages hears of files that cannot be written. Both must outlive the commands.
  std::vector<GridCommand> GridCommands(IMessages& messages);

  // Title and lines of a grid as its window prints them; without the table.
  PrintJob JobOf(TSmartDBGrid_QRT& grid) const;
  // Asks for the right to print; who may not print a list may not carry it away as a file or picture either.
  static bool MayTakeAway(const TSmartDBGrid_QRT& grid);
  // What nothing is written over.
  const std::vector<std::string>& Protected() const { return forbidden_; }

 private:
  void Export(TSmartDBGrid_QRT& grid, QWidget* window, FileFormat format, const char* caption,
              IMessages& messages);

  IWindows& windows_;
  std::vector<std::string> forbidden_;
};

}  // namespace goods
