// What the good-detail lists are asked for, and how that is sent and told.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "module/framework/criteria_text.h"
#include "module/reports/detail/detail_value.h"

namespace goods {

// What stands in the dialog. Names are told, and looked up by whoever asks.
struct DetailDialogCriteria {
  std::string tags;  // ",3,7,"; ",," or empty: none
  std::string tagNames;
  std::string category;  // code; empty: none
  std::string categoryName;
  std::array<DetailValue, 4> details;  // rows 2 to 5
  std::int64_t list = 0;               // saved list of goods; 0: none
  std::string listName;
  bool listInverted = false;
  CriteriaCode good;
  bool goodIsGroup = false;
  CriteriaRange codes;
  int codesItem = 0;  // 0 goods, 1 stores, 2 groups
  CriteriaCode store;
  CriteriaRange dates;
};

enum class DetailList { Movements, Stock };

struct DetailListCriteria {
  DetailList report = DetailList::Movements;

  // The stock alone.
  CriteriaCode group;
  bool storesSeparated = false;
  bool everyKind = true;  // no movement kind is chosen

  // Both. The items are those of the report's own list.
  int titleItem = 1;
  std::string title;  // empty: no search

  // The movements alone.
  std::int64_t operation = 0;  // 0: every kind
  std::string operationText;

  // Both.
  DetailValue detail;                          // row 1
  std::optional<DetailDialogCriteria> dialog;  // while the advanced search is on
};

// Pieces read in the order in which the criteria stand above, but that the movements' store comes behind the
// range of codes; texts and dates are quoted, codes bare.
CriteriaText TextOf(const DetailListCriteria& criteria);

}  // namespace goods
