#include "desktop/requests/window_view.h"

#include <algorithm>

#include "desktop/requests/criteria_driver.h"
#include "desktop/requests/criteria_reader.h"
#include "host/components/grid_filter.h"
#include "host/core/text.h"
#include "host/frames/adv_search_frame.h"

namespace goods {
namespace {

constexpr const char* kAdvancedFrame = "ADVSearch_Fram1";

TADVSearch_Fram* AdvancedOf(TBaseDock_FRM& window) {
  auto* frame = dynamic_cast<TADVSearch_Fram*>(window.FindComponent(kAdvancedFrame));
  return frame != nullptr && frame->Visible() ? frame : nullptr;
}

void InDialog(TBaseDock_FRM& window, const DriveUnseen& drive, const std::function<void(TForm&)>& steps) {
  TADVSearch_Fram* frame = AdvancedOf(window);
  if (frame == nullptr || !frame->ADVSearch_BTN.CanFocus()) return;
  drive([frame] { frame->ADVSearch_BTN.Click(); }, steps);
}

// Back to what the box alone says; a box that the user may not untick stays.
void LeaveDialog(TBaseDock_FRM& window, const ReportSpec& report, const DriveUnseen& drive,
                 const ReportRequest& request) {
  TADVSearch_Fram* frame = AdvancedOf(window);
  if (frame == nullptr || !frame->ADVSearch_CHK.Checked()) return;
  if (frame->ADVSearch_CHK.Enabled()) return frame->ADVSearch_CHK.SetChecked(false);
  InDialog(window, drive, [&](TForm& dialog) {
    AskedCriteria there;
    ReadCriteria(dialog, report, CriterionPlace::Dialog, there);
    ClearCriteria(dialog, report, request, CriterionPlace::Dialog, there);
    ClickButton(dialog, "Select_BTN");
  });
}

// True where the accepted dialog has run the report.
bool ApplyDialog(TBaseDock_FRM& window, const ReportSpec& report, const ReportRequest& request,
                 const DriveUnseen& drive, std::vector<std::string>& problems) {
  if (!AsksIn(report, request, CriterionPlace::Dialog)) {
    LeaveDialog(window, report, drive, request);
    return false;
  }
  InDialog(window, drive, [&](TForm& dialog) {
    AskedCriteria there;
    ReadCriteria(dialog, report, CriterionPlace::Dialog, there);
    ClearCriteria(dialog, report, request, CriterionPlace::Dialog, there);
    SetCriteria(dialog, report, request, CriterionPlace::Dialog, there, problems);
    ClickButton(dialog, "Select_BTN");
  });
  return report.description->id == ReportId::RowSearch;
}

}  // namespace

const ReportSpec* ViewableReport(const TBaseDock_FRM& window) {
  const ReportSpec* report = FindSpec(window.FormOptions_SFO.HelpKeyword);
  const bool viewable = report != nullptr && report->through.empty() && report->Window() == window.Name() &&
                        report->description->exportName != nullptr;
  return viewable ? report : nullptr;
}

SavedView TakeView(TBaseDock_FRM& window, const ReportSpec& report, const DriveUnseen& drive,
                   std::vector<std::string>& left) {
  AskedCriteria asked;
  ReadCriteria(window, report, CriterionPlace::Window, asked);
  const TADVSearch_Fram* frame = AdvancedOf(window);
  if (frame != nullptr && frame->ADVSearch_CHK.Checked()) {
    InDialog(window, drive,
             [&](TForm& dialog) { ReadCriteria(dialog, report, CriterionPlace::Dialog, asked); });
  }
  SavedView view;
  view.report = std::string(report.Name());
  view.criteria = std::move(asked.criteria);
  view.exclude = std::move(asked.exclude);
  if (const TSmartDBGrid_QRT* grid = window.PrintedGrid()) view.table = TableViewOf(*grid);
  left = std::move(asked.unsaid);
  return view;
}

void ApplyView(TBaseDock_FRM& window, const ReportSpec& report, const SavedView& view,
               const std::string& today, const DriveUnseen& drive, std::vector<std::string>& problems) {
  const ReportRequest request = RequestOf(view, today);
  // Some reports ask the database for what the shown columns need.
  TSmartDBGrid_QRT* before = window.PrintedGrid();
  if (before != nullptr) {
    RemoveConditions(*before);
    ApplyLayout(*before, view.table);
  }
  AskedCriteria there;
  ReadCriteria(window, report, CriterionPlace::Window, there);
  ClearCriteria(window, report, request, CriterionPlace::Window, there);
  SetCriteria(window, report, request, CriterionPlace::Window, there, problems);
  const bool ran = ApplyDialog(window, report, request, drive, problems);
  if (!report.run.empty() && !ran) ClickButton(window, report.run);
  TSmartDBGrid_QRT* grid = window.PrintedGrid();
  if (grid == nullptr) return;
  // Another tab is another grid, and a run may have made columns.
  if (TableViewOf(*grid).columns != view.table.columns || grid != before) ApplyLayout(*grid, view.table);
  ApplyConditions(*grid, view.table);
  std::string missing;
  for (const std::string& name : MissingColumns(*grid, view.table)) missing += " " + name;
  if (!missing.empty()) problems.push_back("این ستون‌ها در جدول نیست:" + missing);
}

}  // namespace goods
