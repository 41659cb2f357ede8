#include "module/framework/report_window.h"

#include <algorithm>

#include "host/core/text.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr std::string_view kPrintWarning =
    " بدلیل تعدد ستون داده ها، این امکان وجود دارد که اطلاعات در هنگام چاپ، فضای کافی در اختیار نداشته "
    "باشند، لذا پیشنهاد می شود ستون هایی از داده را که به آن ها نیاز نمی باشد،  از حالت انتخاب خارج کنید.";

}  // namespace

void DescribeWindow(TBaseDock_FRM& window, const ReportDescription& report) {
  window.FormOptions_SFO.ComponentSoftwarePart = report.component;
  window.FormOptions_SFO.HelpKeyword = report.name;
  window.PrintOption.SoftwarePart = report.softwarePart;
}

void DescribeWindow(TBaseDock_FRM& window) {
  const auto report = std::find_if(kReports.begin(), kReports.end(),
                                   [&](const auto& each) { return each.form == window.Name(); });
  if (report != kReports.end()) DescribeWindow(window, *report);
}

void AcceptTyping(TForm& window) {
  if (auto* edit = dynamic_cast<TEdit*>(window.ActiveControl())) edit->Accept();
}

CriteriaCode CodeOf(const TSelectEntity_Search_Frame& frame) {
  if (!frame.SelectEntity_CHK.Checked() || frame.CodeAsInt() <= 0) return {};
  return {frame.CodeAsInt(), frame.TSelect_Entity_Frame1.EntityName()};
}

CriteriaRange RangeOf(const TRange_Digit_Search_Frame& frame) {
  return {frame.RangeDigit_CHK.Checked(), frame.RangeDigit_From_EDT.TextOfValue(),
          frame.RangeDigit_To_EDT.TextOfValue()};
}

CriteriaRange RangeOf(const TRange_Date_Search_Frame& frame) {
  return {frame.RangeDate_CHK.Checked(), frame.FromDate(), frame.ToDate()};
}

void Press(TKey& key, TButton& button) {
  key.Consume();
  button.Click();
}

void ShowPrintWarning(THost& host, const TControl& button, int width) {
  host.Messages().ShowTooltipMessage(button, kPrintWarning, width);
}

void AddFilterLine(std::vector<std::string>& lines, const std::string& filter) {
  if (!filter.empty()) lines.push_back(std::string(kAppliedFilters) + filter);
}

}  // namespace goods
