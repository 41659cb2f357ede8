// A report's window as a saved view, and a saved view put into a report's window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/requests/saved_view.h"
#include "host/base/base_dock.h"

namespace goods {

// Clicks what opens a window and hands that window to steps instead of showing it; where the steps leave it
// open it is closed as given up. What the steps throw comes out.
using DriveUnseen =
    std::function<void(const std::function<void()>& click, const std::function<void(TForm& form)>& steps)>;

// The report that the window shows, as far as views of it can be kept: those that a menu opens. Null else.
const ReportSpec* ViewableReport(const TBaseDock_FRM& window);

// The criteria in force and the table, as they stand; the view has no name yet. What is asked for and cannot
// be kept is told in left. The criteria dialog is opened unseen where its criteria are in force.
SavedView TakeView(TBaseDock_FRM& window, const ReportSpec& report, const DriveUnseen& drive,
                   std::vector<std::string>& left);

// Sets what a user would set: columns, sort, criteria, then runs the report where a button runs it, then the
// conditions on columns. What the window asked for beside is emptied. today is Jalali text. What cannot be
// set, such as a store that is not there, is told in problems.
void ApplyView(TBaseDock_FRM& window, const ReportSpec& report, const SavedView& view,
               const std::string& today, const DriveUnseen& drive, std::vector<std::string>& problems);

}  // namespace goods
