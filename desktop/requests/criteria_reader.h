// What the components of a report's window ask for at the moment, as the options that would ask for it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "desktop/requests/report_request.h"
#include "host/components/form.h"

namespace goods {

struct AskedCriteria {
  std::map<std::string, std::vector<std::string>> criteria;
  std::set<std::string> exclude;
  // What is asked for and no option can say, by the captions of the components.
  std::vector<std::string> unsaid;

  bool Same(const ReportCriterion& criterion, const ReportRequest& request) const;
};

// Adds the criteria of the report that stand at that place of form. What is hidden, empty or not ticked asks
// for nothing; a choice always does.
void ReadCriteria(TForm& form, const ReportSpec& report, CriterionPlace place, AskedCriteria& into);

// Empties what the form asks for there and the request does not name. Choices stay, and so does the good of a
// stock card, which is what the report is about.
void ClearCriteria(TForm& form, const ReportSpec& report, const ReportRequest& request, CriterionPlace place,
                   const AskedCriteria& there);

// Whether the report is about one good that its own window names.
bool IsSubject(const ReportSpec& report, const ReportCriterion& criterion);

}  // namespace goods
