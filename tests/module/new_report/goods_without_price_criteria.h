// What the list of goods without a price is asked for, and how that is sent and told.
#pragma once

#include <string>

#include "module/framework/criteria_text.h"

namespace goods {

struct GoodsWithoutPriceCriteria {
  int titleItem = 0;  // 0 good code, 1 good name
  std::string title;  // empty: no search
  bool withStock = false;
  CriteriaRange codes;
};

CriteriaText TextOf(const GoodsWithoutPriceCriteria& criteria);

}  // namespace goods
