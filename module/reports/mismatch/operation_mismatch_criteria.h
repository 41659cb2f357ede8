// What the operation mismatch is asked for, and how that is sent and told.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "module/framework/criteria_text.h"

namespace goods {

// What stands in the dialog.
struct OperationDismatchDialog {
  CriteriaRange dates;
  CriteriaRange codes;
  CriteriaRange rows;
  CriteriaRange amounts;
  bool amountsOfDetails = false;  // else of the operation
};

struct OperationDismatchCriteria {
  std::int64_t goodCode = 0;
  std::string goodName;
  // 0 store code, 1 store name, 2 operation code, 3 operation row, 4 its quantity, 5 that of the details
  int titleItem = 1;
  std::string titleCaption;                       // the item as the list shows it
  std::string title;                              // empty: no search
  std::int64_t operation = 0;                     // the code of one of kOperationKinds; 0: every kind
  std::optional<OperationDismatchDialog> dialog;  // while the advanced search is on
};

// A range of codes or rows with "0" at one end is left out, a range of quantities with "0" as its upper end.
CriteriaText TextOf(const OperationDismatchCriteria& criteria);

}  // namespace goods
