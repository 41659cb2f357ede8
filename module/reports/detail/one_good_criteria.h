// What one good's detail movements are asked for, and how that is sent and told.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "module/framework/criteria_text.h"

namespace goods {

// What stands in the dialog.
struct OneGoodDetailDialog {
  CriteriaCode person;
  CriteriaCode store;
  CriteriaRange dates;
};

struct OneGoodDetailCriteria {
  std::int64_t goodCode = 0;
  std::int64_t detailValue = 0;               // the combination
  std::int64_t titleId = 1;                   // what stands for the column that is searched
  std::string titleCaption;                   // the column as the list shows it
  std::string title;                          // empty: no search
  std::optional<OneGoodDetailDialog> dialog;  // while the advanced search is on
};

// Prices go out without thousands separators, every other text as it is typed.
CriteriaText TextOf(const OneGoodDetailCriteria& criteria);

}  // namespace goods
