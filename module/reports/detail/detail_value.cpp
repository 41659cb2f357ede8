#include "module/reports/detail/detail_value.h"

#include <string_view>

#include "host/core/text.h"
#include "module/data/good_transactions_dm.h"

namespace goods {
namespace {

bool Given(std::string_view text) { return !Trim(text).empty(); }

}  // namespace

std::optional<DetailCondition> ConditionOf(const DetailValue& value) {
  if (value.detail == 0) return std::nullopt;
  const std::string title = "جزئیات " + value.title;
  const auto one = [&](const std::string& only) -> std::optional<DetailCondition> {
    return DetailCondition{only, only, title + " : " + only};
  };
  const auto range = [&](const std::string& from, const std::string& to) -> std::optional<DetailCondition> {
    return DetailCondition{from, to, title + " از: " + from + " تا: " + to};
  };
  switch (value.type) {
    case kPickedValue:
      return value.listItem > 0 ? one(value.value) : std::nullopt;
    case kTypedValue:
      // The list's first item stands for no value here too.
      return value.listItem != 0 && Given(value.value) ? one(value.value) : std::nullopt;
    case kNumber:
    case kOtherNumber:
      return Given(value.from) ? range(value.from, Given(value.to) ? value.to : value.from) : std::nullopt;
    case kDate:
      return range(value.fromDate, value.toDate);
    case kOneValue:
      return Given(value.from) ? one(value.from) : std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace goods
