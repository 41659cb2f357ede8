// The reports that goods-report writes, and the criteria of each: one table, which the command line, its help
// and the setting of the windows' components read.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "goods_reports.h"

namespace goods {

// What an option takes, and how the component that it sets is set.
enum class CriterionKind {
  Code,        // a number: an entity's code
  Text,        // a text that the field contains
  Range,       // "5..10", "5..", "..10", "5"
  Dates,       // the same of days
  Period,      // --from and --to
  Codes,       // "3,7"
  Choice,      // one of the words of ReportCriterion::choices
  Object,      // a number: the entry of a list that stands for it
  Flag,        // given or not
  Group,       // a number: a good group of the list beside the report
  PriceBasis,  // what stock is valued at
  Detail,      // "title=value" or "title=from..to", at most five
};

// Where the component stands.
enum class CriterionPlace {
  Window,
  Dialog,  // the criteria dialog of the window
  Outer,   // the window that the report is opened from
  OuterDialog,
  Call,  // an argument of the call that opens the report
};

struct ReportCriterion {
  std::string_view option;  // without the dashes
  CriterionKind kind = CriterionKind::Text;
  CriterionPlace place = CriterionPlace::Window;
  std::string_view path;  // the component's published name
  int item = -1;          // of the component's own list of fields, -1 where it has one only
  bool exclude = false;   // can be turned round
  bool required = false;
  std::string_view choices;  // of a Choice: words with blanks between, by the component's index
  std::string_view help;
};

// What the table of the reports (include/goods_reports.h) does not say of a report: how its window is reached
// and run without a user.
struct ReportSpec {
  const ReportDescription* description = nullptr;
  std::string_view alias;  // another name for it, empty for none
  // The report from whose row it is opened, and the button that does so; its own window's for none.
  ReportId outer{};
  std::string_view through;
  std::string_view run;     // the button that runs it, empty where criteria do
  std::string_view groups;  // the grid of the list of groups
  std::vector<ReportCriterion> criteria;

  std::string_view Name() const { return description->name; }
  std::string_view Window() const { return description->form; }
  bool IsNegativeCard() const { return description->id == ReportId::NegativeCard; }
};

// In the order of the table of the reports.
std::span<const ReportSpec> ReportSpecs();
// By name or alias; null for none.
const ReportSpec* FindSpec(std::string_view name);
const ReportCriterion* FindCriterion(const ReportSpec& report, std::string_view option);

// The words of a Choice.
std::vector<std::string> ChoicesOf(const ReportCriterion& criterion);
// What an option takes, as help and usage tell it: "CODE", "A..B".
std::string ValueName(const ReportCriterion& criterion);

// Every option name of any report, once, with the help of the first report that has it.
std::vector<ReportCriterion> EveryCriterion();

}  // namespace goods
