#include "module/reports/turnover/goods_list_criteria.h"

#include <string_view>

#include "host/core/text.h"
#include "host/services/public_methods.h"

namespace goods {
namespace {

constexpr std::string_view kInverted = "کالاهای  لیست نمایش داده نشوند";

// The saved list goes out with every run, also where none is chosen.
std::string ListParameters(const GoodsListDialogCriteria& dialog) {
  return std::string(dialog.listInverted ? "@invertList=1" : "@invertList=0") +
         ", @Inlist=1, @SelectedCode=" + (dialog.list == 0 ? "NULL" : std::to_string(dialog.list));
}

bool HasPeriod(const PeriodCriteria& period) { return period.inUse && period.from && period.to; }

// Stock before the period counts where the first date is empty.
std::string PeriodParameters(const PeriodCriteria& period) {
  if (!HasPeriod(period)) return {};
  return ", @EffectiveDate1 = " + QuotedStr(period.countsBefore ? "" : *period.from) +
         ", @EffectiveDate2 = " + QuotedStr(*period.to);
}

void SayNames(CriteriaText& text, const std::string& title, const std::string& names) {
  if (!names.empty()) text.Say(title + ": " + names);
}

void SayDialog(CriteriaText& text, const GoodsListDialogCriteria& dialog) {
  for (const SearchCriterion& range : dialog.ranges) text.Say(range.FarsiText());
  SayNames(text, "دسته", dialog.categoryNames);
  SayNames(text, dialog.tags.Exclude ? "برچسب به جز" : "برچسب", dialog.tagNames);
  if (dialog.list != 0) {
    text.Say("لیست انتخابی: " + dialog.listName +
             (dialog.listInverted ? " - " + std::string(kInverted) : ""));
  }
  if (!HasPeriod(dialog.period)) return;
  const std::string to = "تا تاریخ " + *dialog.period.to;
  text.Say(dialog.period.countsBefore ? to : "از تاریخ " + *dialog.period.from + " " + to);
}

}  // namespace

std::string ParametersOf(const GoodsListDialogCriteria& dialog) {
  std::string text;
  for (const SearchCriterion& range : dialog.ranges) text = ADDParam(range.ProcParams(), text);
  text = ADDParam(dialog.categories.ProcParams(), text);
  text = ADDParam(dialog.tags.ProcParams(), text);
  return ADDParam(ListAndPeriodOf(dialog), text);
}

std::string ListAndPeriodOf(const GoodsListDialogCriteria& dialog) {
  return ListParameters(dialog) + PeriodParameters(dialog.period);
}

CriteriaText TextOf(const GoodsListCriteria& criteria) {
  CriteriaText text;
  if (criteria.group != 0) {
    text.Add("@GrpCode", std::to_string(criteria.group));
    text.Say("گروه کالا : " + criteria.groupName);
  }
  if (criteria.tab < kAllGoodsTab) {
    text.Add("@GoodExistType", std::to_string(criteria.tab + 1));
    text.Say(Trim(criteria.tabName));
  }
  text.AddPiece(criteria.search.ProcParams());
  text.Say(criteria.search.FarsiText());
  if (!criteria.dialog) return text;
  text.AddPiece(ParametersOf(*criteria.dialog));
  SayDialog(text, *criteria.dialog);
  return text;
}

}  // namespace goods
