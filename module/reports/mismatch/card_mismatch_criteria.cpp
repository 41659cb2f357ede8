#include "module/reports/mismatch/card_mismatch_criteria.h"

#include <array>
#include <string_view>

#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::string_view kNotGiven = "0";

struct TitleParameter {
  std::string_view name;
  bool quoted;
  std::string_view caption;
};

// By the item of the column search.
constexpr std::array kTitleParameters = std::to_array<TitleParameter>({
    {"@GoodCode", false, "کد کالا : "},
    {"@GoodName", true, "نام کالا : "},
    {"@Store", false, "کد انبار : "},
    {"@StoreName", true, "انبار : "},
});

}  // namespace

CriteriaText TextOf(const KardexDismatchCriteria& criteria) {
  CriteriaText text;
  text.AddOne("@GoodGroupCode", "گروه کالا : ", criteria.group);
  if (criteria.storesTotalled) {
    text.Add("@StoreSeparation", "0");
  } else if (criteria.storesSeparated) {
    text.Add("@StoreSeparation", "1");
  }
  if (!criteria.title.empty()) {
    const TitleParameter& parameter = kTitleParameters.at(static_cast<std::size_t>(criteria.titleItem));
    text.Add(parameter.name, parameter.quoted ? QuotedStr(criteria.title) : criteria.title);
    text.Say(std::string(parameter.caption) + criteria.title);
  }
  const CriteriaRange& difference = criteria.difference;
  if (!difference.AsksNothing() && difference.to != kNotGiven) {
    text.AddNumbers("@FromDiffAsset", "@ToDiffAsset", difference);
    text.Say("برآیند اختلاف موجودی از : " + difference.from + " تا: " + difference.to);
  }
  return text;
}

}  // namespace goods
