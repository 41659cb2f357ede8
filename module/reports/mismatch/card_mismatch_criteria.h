// What the stock-card mismatch is asked for, and how that is sent and told.
#pragma once

#include <string>

#include "module/framework/criteria_text.h"

namespace goods {

struct KardexDismatchCriteria {
  CriteriaCode group;  // 0: every group
  bool storesTotalled = true;
  bool storesSeparated = false;
  int titleItem = 1;  // 0 good code, 1 good name, 2 store code, 3 store name
  std::string title;  // empty: no search
  CriteriaRange difference;
};

// An upper end of "0" switches the range of the difference off, whatever the lower one is.
CriteriaText TextOf(const KardexDismatchCriteria& criteria);

}  // namespace goods
