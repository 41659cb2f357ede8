#include "module/framework/general_search.h"

#include "host/core/text.h"

namespace goods {

GeneralSearchCriteria GeneralSearchOf(const TGeneral_Search_Frame& search) {
  GeneralSearchCriteria criteria{.item = search.GeneralSearch_CMB.ItemIndex(),
                                 .reverse = search.GeneralSearch_Reverst_CHK.Checked(),
                                 .reverseEnabled = search.GeneralSearch_Reverst_CHK.Enabled()};
  if (!search.GeneralSearch_CHK.Checked()) return criteria;
  criteria.text = search.GeneralSearch_EDT.TextOfValue();
  if (!criteria.text.empty()) criteria.caption = search.Search.FarsiText();
  return criteria;
}

std::string GeneralSearchParam(const GeneralSearchCriteria& search, std::span<const std::string_view> names) {
  const bool named = search.item >= 0 && static_cast<std::size_t>(search.item) < names.size();
  if (search.text.empty() || !named) return {};
  return std::string(names[static_cast<std::size_t>(search.item)]) + "=" + QuotedStr(search.text);
}

std::string FarsiTextOf(const PeriodCriteria& period) {
  if (!period.inUse) return {};
  std::string text;
  if (period.from) text = "از تاریخ " + *period.from;
  if (period.to) text += (text.empty() ? "تا تاریخ " : " تا تاریخ ") + *period.to;
  return text;
}

}  // namespace goods
