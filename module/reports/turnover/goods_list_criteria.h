// The criteria of the goods turnover list as values: what they send, and how they are told.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/components/search_criterion.h"
#include "module/framework/criteria_text.h"
#include "module/framework/general_search.h"

namespace goods {

// Goods by their state; the last tab asks for none.
inline constexpr int kAllGoodsTab = 5;

// The criteria dialog. Of the period both dates count, or none.
struct GoodsListDialogCriteria {
  std::vector<SearchCriterion>
      ranges{};                  // codes, prices where they are asked for, dates, store: in this order
  SearchCriterion categories{};  // the codes between commas
  std::string categoryNames{};
  SearchCriterion tags{};
  std::string tagNames{};
  std::int64_t list = 0;  // a saved list of goods; 0: none
  std::string listName{};
  bool listInverted = false;
  PeriodCriteria period{};
  std::int64_t store = 0;  // that a stock card is opened with; 0: none
};

struct GoodsListCriteria {
  std::int64_t group = 0;  // 0: every group
  std::string groupName{};
  int tab = kAllGoodsTab;
  std::string tabName{};
  SearchCriterion search{};
  std::optional<GoodsListDialogCriteria> dialog{};
};

// The dialog's part of the parameters; that of the saved list and the period alone.
std::string ParametersOf(const GoodsListDialogCriteria& dialog);
std::string ListAndPeriodOf(const GoodsListDialogCriteria& dialog);
CriteriaText TextOf(const GoodsListCriteria& criteria);

}  // namespace goods
