#include "module/reports/mismatch/operation_mismatch_criteria.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "host/core/text.h"
#include "module/reports/mismatch/operation_kinds.h"

namespace goods {
namespace {

constexpr std::string_view kNoTitle = "0";

enum class ValueForm { Bare, Quoted, WithoutSeparators };

struct OperationParameter {
  std::string_view name;
  ValueForm form;
};

// By the item of the column search.
constexpr std::array kOperationParameters = std::to_array<OperationParameter>({
    {"@Store", ValueForm::Bare},
    {"@StoreName", ValueForm::Quoted},
    {"@OperationCode", ValueForm::Bare},
    {"@OperationRow", ValueForm::Bare},
    {"@OperationAmount", ValueForm::WithoutSeparators},
    {"@DetailAmount", ValueForm::WithoutSeparators},
});

std::string InForm(const std::string& text, ValueForm form) {
  if (form == ValueForm::Quoted) return QuotedStr(text);
  return form == ValueForm::WithoutSeparators ? ReplaceAll(text, ",", "") : text;
}

struct RangeTexts {
  std::string_view from;
  std::string_view to;
  std::string_view caption;
};

constexpr RangeTexts kCodes{"@FromOperationCode", "@ToOperationCode", "کد عملیات از: "};
constexpr RangeTexts kRows{"@FromOperationRow", "@ToOperationRow", "ردیف عملیات از: "};
constexpr RangeTexts kOperationAmounts{"@FromOperationAmount", "@ToOperationAmount", "مقدار عملیات از: "};
constexpr RangeTexts kDetailAmounts{"@FromDetailAmount", "@ToDetailAmount", "مقدار جزئیات از: "};

// What the user sees keeps its separators.
void AddRange(CriteriaText& text, const RangeTexts& texts, const CriteriaRange& range) {
  if (range.AsksNothing()) return;
  text.AddNumbers(texts.from, texts.to, range);
  text.Say(std::string(texts.caption) + range.from + " تا : " + range.to);
}

void AddCodes(CriteriaText& text, const RangeTexts& texts, const CriteriaRange& range) {
  if (range.from != kNoTitle && range.to != kNoTitle) AddRange(text, texts, range);
}

void AddDialog(CriteriaText& text, const OperationDismatchDialog& dialog) {
  if (!dialog.dates.AsksNothing()) {
    text.AddDates(dialog.dates);
    text.Say("تاریخ از: " + dialog.dates.from + " تا : " + dialog.dates.to);
  }
  AddCodes(text, kCodes, dialog.codes);
  AddCodes(text, kRows, dialog.rows);
  if (dialog.amounts.to != kNoTitle) {
    AddRange(text, dialog.amountsOfDetails ? kDetailAmounts : kOperationAmounts, dialog.amounts);
  }
}

}  // namespace

CriteriaText TextOf(const OperationDismatchCriteria& criteria) {
  CriteriaText text;
  text.Add("@GoodCode", std::to_string(criteria.goodCode));
  text.Say("کالا : " + criteria.goodName);
  if (!criteria.title.empty()) {
    const OperationParameter& parameter =
        kOperationParameters.at(static_cast<std::size_t>(criteria.titleItem));
    text.Add(parameter.name, InForm(criteria.title, parameter.form));
    text.Say(criteria.titleCaption + " : " + criteria.title);
  }
  const auto kind = std::find_if(kOperationKinds.begin(), kOperationKinds.end(),
                                 [&](const OperationKind& each) { return each.code == criteria.operation; });
  if (kind != kOperationKinds.end()) {
    text.Add("@OperationType", std::to_string(kind->code));
    text.Say(kind->caption);
  }
  if (criteria.dialog) AddDialog(text, *criteria.dialog);
  return text;
}

}  // namespace goods
