// The general search and the period as criteria: values, and what they send and say.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/frames/general_search_frame.h"

namespace goods {

struct GeneralSearchCriteria {
  int item = 0;                 // the chosen item's place
  std::string text{};           // empty: no search
  bool reverse = false;         // the box is ticked
  bool reverseEnabled = false;  // and can be
  std::string caption{};        // in Persian; empty without a search
};

// What the frame holds: no text while its box is unticked, or while it is not yet a value of the item's kind.
GeneralSearchCriteria GeneralSearchOf(const TGeneral_Search_Frame& search);

// "@Name='text'" by the item: names has one for each. Empty without a search.
std::string GeneralSearchParam(const GeneralSearchCriteria& search, std::span<const std::string_view> names);

struct PeriodCriteria {
  bool inUse = false;
  // The dates that are given and exist.
  std::optional<std::string> from{};
  std::optional<std::string> to{};
  bool countsBefore = false;
};

// The given dates in Persian, as they stand above a printed list; empty while the period is not in use.
std::string FarsiTextOf(const PeriodCriteria& period);

}  // namespace goods
