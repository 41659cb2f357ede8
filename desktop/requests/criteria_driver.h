// Sets the components of a report's windows by their published names, as a user does.
#pragma once

#include <string>
#include <vector>

#include "desktop/requests/criteria_reader.h"
#include "desktop/requests/report_request.h"
#include "host/components/form.h"
#include "host/components/grid.h"

namespace goods {

// Sets those of the request's criteria that stand in that place. The company's own answer to a value (a good
// that is not there, a saved list that is gone) is thrown as std::runtime_error with a Persian message.
// Throws RefusedByRights for what asks for prices, of a user who sees none: left out, the list would be
// another one.
void SetCriteria(TForm& form, const ReportSpec& report, const ReportRequest& request, CriterionPlace place);

// The same, for a window that is on the screen: what it asks for already is left alone, and what cannot be
// set is told in problems while the others are.
void SetCriteria(TForm& form, const ReportSpec& report, const ReportRequest& request, CriterionPlace place,
                 const AskedCriteria& there, std::vector<std::string>& problems);

// Whether a criterion of the request stands there.
bool AsksIn(const ReportSpec& report, const ReportRequest& request, CriterionPlace place);

// Shows these columns alone, in this order. Throws UsageError for a field that the grid does not offer, and
// RefusedByRights for one of money that the user may not see.
void ShowColumns(TSmartDBGrid_QRT& grid, const std::vector<std::string>& fields);
void SortBy(TSmartDBGrid_QRT& grid, const std::vector<std::string>& fields);
// The column's field is shown or may be.
bool IsOffered(const TGridColumn& column);

// Clicks a button by its name; throws where it is not there or disabled.
void ClickButton(TForm& form, std::string_view name);

}  // namespace goods
