#include "desktop/requests/report_request.h"

#include <algorithm>
#include <array>

#include "desktop/requests/file_names.h"
#include "host/core/jalali.h"
#include "host/core/text.h"
#include "host/data/decimal.h"

namespace goods {
namespace {

constexpr std::int64_t kDaysOfWeek = 7;
constexpr int kMonthsOfSeason = 3;
constexpr int kMonths = 12;
constexpr std::size_t kMostDetails = 5;

[[noreturn]] void Fail(const std::string& message) { throw UsageError(message); }

[[noreturn]] void FailValue(const ReportCriterion& criterion, const std::string& value) {
  Fail("--" + std::string(criterion.option) + ": این مقدار پذیرفته نیست: " + value + " (" +
       ValueName(criterion) + ")");
}

void CheckDay(const std::string& day) {
  if (!day.empty() && !IsValidJalali(day)) Fail("این تاریخ وجود ندارد: " + day);
}

bool IsCode(const std::string& text) {
  const auto code = ParseInteger(text);
  return code && *code >= 0 && text.size() <= 18;
}

bool IsNumber(const std::string& text) {
  return text.empty() || Decimal::Parse(ReplaceAll(text, ",", "")).has_value();
}

bool IsPriceBasis(const ReportCriterion& criterion, const std::string& value) {
  const std::vector<std::string> words = ChoicesOf(criterion);
  if (std::find(words.begin(), words.end(), value) != words.end()) return true;
  const auto colon = value.find(':');
  if (colon == std::string::npos) return false;
  const std::string side = value.substr(0, colon);
  return (side == "buy" || side == "sell") && ParseInteger(value.substr(colon + 1)).has_value();
}

void CheckValue(const ReportCriterion& criterion, const std::string& value) {
  bool right = true;
  switch (criterion.kind) {
    case CriterionKind::Code:
    case CriterionKind::Group:
    case CriterionKind::Object:
      right = IsCode(value);
      break;
    case CriterionKind::Range: {
      const DayRange ends = RangeEnds(value);
      right = IsNumber(ends.from) && IsNumber(ends.to) && !(ends.from.empty() && ends.to.empty());
      break;
    }
    case CriterionKind::Dates: {
      const DayRange ends = RangeEnds(value);
      CheckDay(ends.from);
      CheckDay(ends.to);
      right = !(ends.from.empty() && ends.to.empty());
      break;
    }
    case CriterionKind::Period:
      CheckDay(value);
      break;
    case CriterionKind::Codes:
      for (const std::string& code : Split(value, ',')) right = right && IsCode(code);
      break;
    case CriterionKind::Choice: {
      const std::vector<std::string> words = ChoicesOf(criterion);
      if (std::find(words.begin(), words.end(), value) == words.end()) {
        std::string known;
        for (const std::string& word : words) known += " " + word;
        Fail("--" + std::string(criterion.option) + ": این مقدار پذیرفته نیست: " + value +
             " (یکی از:" + known + ")");
      }
      break;
    }
    case CriterionKind::PriceBasis:
      right = IsPriceBasis(criterion, value);
      break;
    case CriterionKind::Detail:
      right = value.find('=') != std::string::npos && value.find('=') > 0;
      break;
    case CriterionKind::Text:
    case CriterionKind::Flag:
      break;
  }
  if (!right) FailValue(criterion, value);
}

// Two criteria of one frame are two of its fields, of which it asks for one.
void CheckSharing(const ReportSpec& report, const ReportRequest& request) {
  std::vector<const ReportCriterion*> used;
  for (const auto& [option, values] : request.criteria) {
    const ReportCriterion* criterion = FindCriterion(report, option);
    if (criterion == nullptr || criterion->item < 0) continue;
    for (const ReportCriterion* other : used) {
      if (other->path == criterion->path && other->place == criterion->place &&
          other->item != criterion->item) {
        Fail("--" + std::string(other->option) + " و --" + option + " با هم پذیرفته نیستند.");
      }
    }
    used.push_back(criterion);
  }
}

void CheckGiven(const ReportSpec& report, const ReportRequest& request) {
  for (const auto& [option, values] : request.criteria) {
    const ReportCriterion* criterion = FindCriterion(report, option == "to" ? "from" : option);
    if (criterion == nullptr) {
      Fail("گزارش " + std::string(report.Name()) + " این شرط را ندارد: --" + option);
    }
    for (const std::string& value : values) CheckValue(*criterion, value);
    if (values.size() > (criterion->kind == CriterionKind::Detail ? kMostDetails : 1)) {
      Fail("--" + option + " بیش از اندازه داده شده است.");
    }
  }
  for (const std::string& option : request.exclude) {
    const ReportCriterion* criterion = FindCriterion(report, option == "period" ? "from" : option);
    if (criterion == nullptr || !criterion->exclude) {
      Fail("--exclude: این شرط در گزارش " + std::string(report.Name()) +
           " برگردانده نمی‌شود: " + option);
    }
    if (!request.criteria.contains(std::string(criterion->option))) {
      Fail("--exclude: این شرط داده نشده است: " + option);
    }
  }
}

void CheckRequired(const ReportSpec& report, const ReportRequest& request) {
  for (const ReportCriterion& criterion : report.criteria) {
    const std::string option(criterion.option);
    if (criterion.required && !request.criteria.contains(option) && request.each != option) {
      Fail("گزارش " + std::string(report.Name()) + " این شرط را لازم دارد: --" + option);
    }
  }
}

void CheckEach(const ReportSpec& report, const ReportRequest& request) {
  if (request.each.empty()) {
    if (!request.among.empty()) Fail("--among بدون --each معنی ندارد.");
    return;
  }
  if (request.each != "good" && request.each != "store" && request.each != "group") {
    Fail("--each: یکی از good، store، group");
  }
  if (FindCriterion(report, request.each) == nullptr) {
    Fail("گزارش " + std::string(report.Name()) + " این شرط را ندارد: --each " + request.each);
  }
  if (request.criteria.contains(request.each)) {
    Fail("--each " + request.each + " و --" + request.each + " با هم پذیرفته نیستند.");
  }
  for (const OutputFile& output : request.outputs) {
    if (output.path.find("{code}") == std::string::npos) {
      Fail("--each: نام هر پرونده باید {code} داشته باشد: " + output.path);
    }
  }
}

// One list can go there.
void CheckStandardOutput(const ReportRequest& request) {
  const auto& outputs = request.outputs;
  const auto count = std::count_if(outputs.begin(), outputs.end(),
                                   [](const OutputFile& output) { return output.ToStandardOutput(); });
  if (count > 1)
    Fail("تنها یک قالب به خروجی استاندارد نوشته می‌شود: -");
}

DayRange MonthsOf(int year, int month, int count) {
  const int last = month + count - 1;
  return {FormatJalali({year, month, 1}), FormatJalali({year, last, JalaliMonthLength(year, last)})};
}

}  // namespace

UsageError::~UsageError() = default;
RefusedByRights::~RefusedByRights() = default;

DayRange RangeEnds(const std::string& text) {
  const auto dots = text.find("..");
  if (dots == std::string::npos) return {text, text};
  return {text.substr(0, dots), text.substr(dots + 2)};
}

DayRange RelativePeriod(const std::string& name, const std::string& today) {
  const auto parsed = ParseJalali(today);
  if (!parsed) Fail("این تاریخ وجود ندارد: " + today);
  const JalaliDate date = *parsed;
  const std::int64_t days = DaysFromJalali(date);
  const auto day = [](std::int64_t each) { return FormatJalali(JalaliFromDays(each)); };
  const std::int64_t saturday = days - JalaliWeekday(date);
  const int season = (date.month - 1) / kMonthsOfSeason * kMonthsOfSeason + 1;
  if (name == "today") return {today, today};
  if (name == "yesterday") return {day(days - 1), day(days - 1)};
  if (name == "this-week") return {day(saturday), day(saturday + kDaysOfWeek - 1)};
  if (name == "last-week") return {day(saturday - kDaysOfWeek), day(saturday - 1)};
  if (name == "this-month") return MonthsOf(date.year, date.month, 1);
  if (name == "last-month") {
    return date.month > 1 ? MonthsOf(date.year, date.month - 1, 1) : MonthsOf(date.year - 1, kMonths, 1);
  }
  if (name == "this-season") return MonthsOf(date.year, season, kMonthsOfSeason);
  if (name == "last-season") {
    return season > 1 ? MonthsOf(date.year, season - kMonthsOfSeason, kMonthsOfSeason)
                      : MonthsOf(date.year - 1, kMonths - kMonthsOfSeason + 1, kMonthsOfSeason);
  }
  if (name == "this-year") return MonthsOf(date.year, 1, kMonths);
  if (name == "last-year") return MonthsOf(date.year - 1, 1, kMonths);
  Fail("--period: این بازه شناخته نیست: " + name);
}

void CheckAsked(const ReportSpec& report, const ReportRequest& request) {
  CheckGiven(report, request);
  CheckSharing(report, request);
}

void CheckRequest(ReportRequest& request, const std::string& today) {
  const ReportSpec* report = FindSpec(request.name);
  if (report == nullptr) Fail("گزارشی با این نام نیست: " + request.name);
  if (!request.period.empty()) {
    if (request.criteria.contains("from") || request.criteria.contains("to")) {
      Fail("--period و --from یا --to با هم پذیرفته نیستند.");
    }
    const DayRange range = RelativePeriod(request.period, today);
    request.criteria["from"] = {range.from};
    request.criteria["to"] = {range.to};
  }
  if (request.outputs.empty() && !request.failIfRows) {
    Fail("بگویید گزارش در کدام پرونده نوشته شود: --pdf، --xlsx، --csv، --json یا --text");
  }
  CheckAsked(*report, request);
  CheckRequired(*report, request);
  CheckEach(*report, request);
  CheckStandardOutput(request);
  for (const OutputFile& output : request.outputs) CheckPlaceholders(output.path);
  const auto given = [&](const char* option) {
    const auto found = request.criteria.find(option);
    return found == request.criteria.end() || found->second.empty() ? std::string() : found->second.front();
  };
  if (!given("from").empty() && !given("to").empty() && given("from") > given("to")) {
    Fail("تاریخ پایان پیش از تاریخ آغاز است.");
  }
}

}  // namespace goods
