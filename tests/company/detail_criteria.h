// Criteria of the good-detail reports, drawn at random: what a statement says, and which movements meet it.
#pragma once

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "detail_company.h"

namespace goods {

struct DetailCriterion {
  std::string parameters;
  std::function<bool(const DetailRow&)> holds;
};

// Every criterion that the windows can send; kDetail1 to kDetail5 are the five rows of details.
enum DetailCriterionKind : int {
  kDetail1 = 0,
  kDetail5 = 4,
  kTags,
  kCategory,
  kList,
  kGood,
  kGroup,
  kGoodRange,
  kStoreRange,
  kStore,
  kDateRange,
  kTitle,
  // Of AllGoodDetailTransaction alone.
  kGroupRange,
  kOperation,
  kDetailCriteria
};
inline constexpr int kSharedDetailCriteria = kGroupRange;

// Values are mostly such as rows have. titles: how many columns the search knows, 10 or 4.
DetailCriterion RandomDetailCriterion(int kind, const std::vector<DetailRow>& rows, int titles,
                                      std::mt19937& random);

// @DetailID<n> with its two values, as texts.
DetailCriterion DetailIs(int slot, std::int64_t detail, const std::string& from, const std::string& to);

std::string JoinedParameters(const std::vector<DetailCriterion>& criteria);
bool MeetsAll(const DetailRow& row, const std::vector<DetailCriterion>& criteria);

}  // namespace goods
