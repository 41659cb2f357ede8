// Criteria over one field, as frames keep them, in the second way of putting a report's text together.
#pragma once

#include <optional>
#include <string>

#include "host/components/search_criterion.h"
#include "tests/module/criteria/criteria_check.h"

namespace goods {

// A criterion of that field as a user may leave it: ticked or not, turned round or not, with values that are
// given, half typed or missing.
SearchCriterion RandomCriterion(Dice& dice, SearchOperator how, DataKind kind, const std::string& field);

// What stands for the value in a statement; none where it says nothing.
std::optional<std::string> ExpectedLiteral(DataKind kind, const std::string& typed);
// The pieces and the phrase of a criterion that is sent; false where it says nothing.
bool ExpectCriterion(ExpectedText& text, const SearchCriterion& criterion, bool told = true);

}  // namespace goods
