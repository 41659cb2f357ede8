#include "desktop/comparison/compared_period.h"

#include <algorithm>

#include "host/core/jalali.h"
#include "host/services/host.h"

namespace goods {
namespace {

constexpr int kDialogWidth = 620;
constexpr int kDialogHeight = 150;

std::string DayAYearBefore(const std::string& text) {
  const auto date = ParseJalali(text);
  if (!date) return {};
  const int day = std::min(date->day, JalaliMonthLength(date->year - 1, date->month));
  return FormatJalali({date->year - 1, date->month, day});
}

}  // namespace

ReportPeriod YearBefore(const ReportPeriod& period) {
  return {DayAYearBefore(period.from), DayAYearBefore(period.to)};
}

std::string PeriodText(const ReportPeriod& period) {
  if (period.from.empty() && period.to.empty()) return "همه تاریخ‌ها";
  if (period.from.empty()) return "تا " + period.to;
  if (period.to.empty()) return "از " + period.from;
  return period.from + " تا " + period.to;
}

TComparedPeriod_FRM::TComparedPeriod_FRM(THost& host, const ReportPeriod& own)
    : TBaseSearch_FRM(host, "ComparedPeriod_FRM") {
  SetCaption("مقایسه با دوره‌ای دیگر");
  PreferredWidth = kDialogWidth;
  PreferredHeight = kDialogHeight;
  Own_LBL.SetCaption("دوره گزارش: " + PeriodText(own));
  From_LBL.FocusControl = &Date1_EDT;
  To_LBL.FocusControl = &Date2_EDT;
  const ReportPeriod before = YearBefore(own);
  Date1_EDT.SetText(before.from);
  Date2_EDT.SetText(before.to);
  Period_PNL.Place(From_LBL);
  Period_PNL.Place(Date1_EDT, 1);
  Period_PNL.Place(To_LBL);
  Period_PNL.Place(Date2_EDT, 1);
  Select_BTN.SetCaption("مقایسه F3");
  Place(Own_LBL);
  Place(Period_PNL);
  Place(Buttons_PNL);
}

TComparedPeriod_FRM::~TComparedPeriod_FRM() = default;

void TComparedPeriod_FRM::FormShow() {
  TBaseSearch_FRM::FormShow();
  Date1_EDT.SetFocus();
}

bool TComparedPeriod_FRM::MayBeCompared() {
  const auto refuse = [this](const char* why, TDateEdit& edit) {
    Host().Messages().ShowSmartMessage(why, Caption(), MessageIcon::Warning);
    edit.SetFocus();
    return false;
  };
  const auto from = ParseJalali(Date1_EDT.Text());
  if (!from) return refuse("تاریخ آغاز دوره را بنویسید.", Date1_EDT);
  const auto to = ParseJalali(Date2_EDT.Text());
  if (!to) return refuse("تاریخ پایان دوره را بنویسید.", Date2_EDT);
  if (*to < *from) return refuse("پایان دوره پیش از آغاز آن است.", Date2_EDT);
  return true;
}

void TComparedPeriod_FRM::Select_BTNClick() {
  if (MayBeCompared()) TBaseSearch_FRM::Select_BTNClick();
}

void TComparedPeriod_FRM::Del_BTNClick() {
  TBaseSearch_FRM::Del_BTNClick();
  Date1_EDT.SetText("");
  Date2_EDT.SetText("");
  Date1_EDT.SetFocus();
}

}  // namespace goods
