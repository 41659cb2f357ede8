// The criteria of the stock card as values: what is sent, which rows are shown, and how they are told.
#pragma once

#include <string>

#include "host/components/search_criterion.h"
#include "module/framework/criteria_text.h"

namespace goods {

// A store or a person; its name for the caption.
struct StockCardEntity {
  SearchCriterion one{};
  std::string name{};
};

// The good goes out; the rest narrows its rows.
struct StockCardCriteria {
  CriteriaCode good{};
  StockCardEntity store{};
  StockCardEntity person{};
  SearchCriterion dates{};
};

// The good's code as the only parameter; the caption tells what narrows the rows.
CriteriaText TextOf(const StockCardCriteria& criteria);
// Which rows of the card are shown; empty: all.
std::string RowConditionOf(const StockCardCriteria& criteria);

}  // namespace goods
