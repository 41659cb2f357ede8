// The criteria of the row search as values: what they send, and how they are told.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/components/search_criterion.h"
#include "module/framework/criteria_text.h"

namespace goods {

// The criteria dialog: those of its frames, in their order.
struct RowSearchDialogCriteria {
  std::vector<SearchCriterion> items{};
  bool told = false;  // the user wants them above the printed list
};

struct RowSearchCriteria {
  SearchCriterion comment{};
  std::optional<RowSearchDialogCriteria> dialog{};
};

// Empty where no criterion says anything.
std::string ParametersOf(const RowSearchDialogCriteria& dialog);
CriteriaText TextOf(const RowSearchCriteria& criteria);

}  // namespace goods
