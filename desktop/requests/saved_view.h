// SavedView: a report as a user wants it again, under a name: its criteria and how its table is arranged.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/requests/report_request.h"

namespace goods {

// A text that is no saved view. The message is Persian.
class ViewError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~ViewError() override;
};

struct SavedView {
  static constexpr std::size_t kLongestName = 60;  // characters

  std::string name;    // as its user calls it
  std::string report;  // ReportDescription::name
  // As in a request. The dates of a relative period are those of the day on which the view is used.
  std::map<std::string, std::vector<std::string>> criteria;
  std::set<std::string> exclude;
  std::string period;  // one of RelativePeriod's words, instead of from and to; empty for none
  TableView table;
  bool onStartPage = false;

  friend bool operator==(const SavedView&, const SavedView&) = default;
};

// Any name becomes one that can be kept: a single line without marks of direction, blanks at the ends or more
// than kLongestName characters; empty where nothing is left.
std::string ViewName(std::string_view typed);

// JSON, in UTF-8; what goods-report and other users' desktops read.
std::string ViewText(const SavedView& view);
// Several, as a user's are kept.
std::string ViewsText(const std::vector<SavedView>& views);

// Reads a stranger's text: everything is bounded and of the kind that the report's criterion takes. What this
// version does not know is passed over and named in ignored, in words for the user. Throws ViewError where
// the text is no view, or one that cannot be right.
SavedView ParseView(std::string_view text, std::vector<std::string>& ignored);
// What cannot be read is left out.
std::vector<SavedView> ParseViews(std::string_view text);

// The file at path; throws ViewError, also where the file cannot be read or is larger than a view can be.
SavedView ReadViewFile(const std::string& path, std::vector<std::string>& ignored);
// Whole or not at all; throws ViewError.
void WriteViewFile(const std::string& path, const SavedView& view);

// The relative periods, in the order in which they are offered: a word of RelativePeriod and its name.
struct NamedPeriod {
  const char* word;
  const char* name;
};
std::span<const NamedPeriod> NamedPeriods();
// Whether the view's dates are those of the period on that day (Jalali text), and the view with the period
// instead of its dates.
bool DatesAre(const SavedView& view, const std::string& period, const std::string& today);
void MakeRelative(SavedView& view, const std::string& period);

// What the view asks for, on that day (Jalali text).
ReportRequest RequestOf(const SavedView& view, const std::string& today);
// Puts the view under what the request itself says: criteria that both name are the request's.
void PutUnder(ReportRequest& request, const SavedView& view);

}  // namespace goods
