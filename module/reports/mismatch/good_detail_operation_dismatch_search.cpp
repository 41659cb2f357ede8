#include "module/reports/mismatch/good_detail_operation_dismatch_search.h"

#include <string>

#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::string_view kNotGiven = "0";

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
void AddRange(CriteriaText& criteria, const RangeTexts& texts, const std::string& from,
              const std::string& to) {
  criteria.Add(texts.from, ReplaceAll(from, ",", ""));
  criteria.Add(texts.to, ReplaceAll(to, ",", ""));
  criteria.Say(std::string(texts.caption) + from + " تا : " + to);
}

void AddCodes(CriteriaText& criteria, const RangeTexts& texts, const TRange_Digit_Search_Frame& frame) {
  const std::string& from = frame.RangeDigit_From_EDT.Text();
  const std::string& to = frame.RangeDigit_To_EDT.Text();
  if (frame.RangeDigit_CHK.Checked() && from != kNotGiven && to != kNotGiven) {
    AddRange(criteria, texts, from, to);
  }
}

}  // namespace

TGoodDetailOperationDismatchSearch_FRM::TGoodDetailOperationDismatchSearch_FRM(THost& host)
    : TBaseSearch_FRM(host, "GoodDetailOperationDismatchSearch_FRM") {
  DeclareForm();
}

TGoodDetailOperationDismatchSearch_FRM::~TGoodDetailOperationDismatchSearch_FRM() = default;

void TGoodDetailOperationDismatchSearch_FRM::AddCriteria(CriteriaText& criteria) const {
  if (Date_Frame.RangeDate_CHK.Checked()) {
    const std::string& from = Date_Frame.FromDate();
    const std::string& to = Date_Frame.ToDate();
    criteria.Add("@FromDate", QuotedStr(from));
    criteria.Add("@ToDate", QuotedStr(to));
    criteria.Say("تاریخ از: " + from + " تا : " + to);
  }
  AddCodes(criteria, kCodes, OperationCode_FRAME);
  AddCodes(criteria, kRows, OperationRow_FRAME);
  const std::string& to = OperationAmount_FRAME.RangeDigit_To_EDT.Text();
  if (OperationAmount_FRAME.RangeDigit_CHK.Checked() && to != kNotGiven) {
    const bool ofDetails = OperationAmount_FRAME.RangeDigit_CMB.ItemIndex() == 1;
    AddRange(criteria, ofDetails ? kDetailAmounts : kOperationAmounts,
             OperationAmount_FRAME.RangeDigit_From_EDT.Text(), to);
  }
}

void TGoodDetailOperationDismatchSearch_FRM::FormShow() {
  TBaseSearch_FRM::FormShow();
  Date_Frame.RangeDate_From_EDT.SetFocus();
}

void TGoodDetailOperationDismatchSearch_FRM::Del_BTNClick() {
  TBaseSearch_FRM::Del_BTNClick();
  for (TControl* control : Controls()) {
    if (auto* frame = dynamic_cast<TSearchFrame*>(control)) frame->Clear();
  }
}

}  // namespace goods
