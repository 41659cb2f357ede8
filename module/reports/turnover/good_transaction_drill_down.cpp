// What the turnover list opens: its criteria dialog, the tags of its rows, the stock card, the good's
// details.
#include "module/data/stock_card_opening.h"
#include "module/framework/endings.h"
#include "module/framework/program_change.h"
#include "module/framework/texts.h"
#include "module/reports/turnover/good_transaction.h"

namespace goods {
namespace {

constexpr std::string_view kPersianLayout = "00000429";
constexpr std::string_view kNoTags = ",,";

}  // namespace

// Created with the window's first reading, so that a preselected list counts from the start. The right counts
// also where the lists cannot be read.
void TGoodTransaction_FRM::PrepareDialog() {
  if (search_ != nullptr) return;
  OnFailure(
      [this] { search_ = std::make_unique<TGoodTransactionSearch_FRM>(Host(), dataModule_, reportKind_); },
      [this] { ApplyListRight(IsAllowed(Host().Rights(), reportKind_, kPermissionSelectedLists)); });
  ApplyListRight(search_->HaveSelectedListPermission());
  if (pnlReport_PNL.Named()) search_->NamePriceRange("في (" + pnlReport_PNL.Report_CMB.Text() + ")");
}

// Who may not choose a list has the lists in force, and no way out of them.
void TGoodTransaction_FRM::ApplyListRight(bool mayChoose) {
  boundToLists_ = !mayChoose;
  TCheckBox& box = ADVSearch_Fram1.ADVSearch_CHK;
  if (!mayChoose) {
    const ProgramChange change(box);
    box.SetChecked(true);
  }
  box.SetEnabled(mayChoose);
  ADVSearch_Fram1.ADVSearch_LBL.SetEnabled(mayChoose);
}

void TGoodTransaction_FRM::ADVSearch_Fram1ADVSearch_BTNClick() {
  PrepareDialog();
  const bool accepted = !formShowing_ && search_->ShowModal() == kModalOk;
  KeepCriteria();
  if (!accepted) return UpdateHint();
  TCheckBox& box = ADVSearch_Fram1.ADVSearch_CHK;
  {
    const ProgramChange change(box);
    box.SetChecked(search_->HaveAdvFilter() || !box.Enabled());
  }
  ADVSearch_Fram1ADVSearch_CHKClick();
}

void TGoodTransaction_FRM::ADVSearch_Fram1ADVSearch_CHKClick() {
  if (!ByProgram(ADVSearch_Fram1.ADVSearch_CHK)) Run(Waiting::Shown);
}

void TGoodTransaction_FRM::KeepCriteria() { kept_ = search_->Criteria(); }

void TGoodTransaction_FRM::Tags_btnClick() {
  const TADOQuery& list = ListDataSet();
  if (list.IsEmpty()) return;
  Tags_pnl.SetVisible(!Tags_pnl.Visible());
  if (!Tags_pnl.Visible()) return;
  TTags1.OpenTags(Host().Lookups());
  std::string codes;
  const auto code = list.FindField("Code");
  const std::set<std::size_t>& selection = ShownGrid().Selection();
  if (selection.size() > 1 && code) {
    TTags1.Tags_EDT.Clear();
    for (const std::size_t position : selection) {
      codes += (codes.empty() ? "" : ",") + list.Cell(position, *code).AsText();
    }
  } else {
    TTags1.Tags_EDT.SetCodes(TagCodesOf(list.FieldByName("Tags").AsText()));
  }
  ShowTags(TTags1.KeyField, codes.empty() ? "-1" : codes);
  TTags1.Tags_EDT.SetReadOnly(true);
}

void TGoodTransaction_FRM::ShowTags(const std::string& field, const std::string& codes) {
  TADOQuery& tags = TTags1.Tags_QRY;
  tags.SetSQL("select " + TTags1.KeyField + ",tags from " + TTags1.TableName + " where " + field + " in(" +
              codes + ")");
  tags.Open();
  TTags1.LoadTags();
  TTags1.Rearrange();
}

void TGoodTransaction_FRM::GoodTransactionRowChange() {
  if (formShowing_ || !Tags_pnl.Visible()) return;
  if (!ListDataSet().RecNo()) return TTags1.Tags_EDT.Clear();
  ShowTags("code", std::to_string(CurrentGood()));
}

void TGoodTransaction_FRM::Gar_BTNClick() {
  if (!ListDataSet().RecNo()) return;
  const AskedRight rights[] = {{reportKind_, kPermissionStockCardFromList}, {kPartStockCard}};
  const std::int64_t good = CurrentGood();
  if (!MayOpenStockCard(Host(), rights, &dataModule_, good)) return;
  Host().Rights().SetUserEvent(reportKind_, kPermissionStockCardFromList, good);
  ShowStockCard(good);
}

// The stock card starts with the store and the period that the list is limited to.
void TGoodTransaction_FRM::ShowStockCard(std::int64_t good) {
  const GoodsListDialogCriteria limits = AdvSearchOn() && kept_ ? *kept_ : GoodsListDialogCriteria();
  const PeriodCriteria period = limits.period.inUse ? limits.period : PeriodCriteria();
  const std::string parameter = "0;" + std::to_string(good) + ";" + std::to_string(limits.store) + ";" +
                                period.from.value_or("") + ";" + period.to.value_or("") + ";";
  {
    const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
    if (kardex_ == nullptr) kardex_ = std::make_unique<TKardex_FRM>(Host(), 1, Variant(parameter), "");
    kardex_->SetCustomParameter(Variant(parameter), "");
  }
  kardex_->ShowModal();
  Host().Windows().ActivateKeyboardLayout(kPersianLayout);
}

void TGoodTransaction_FRM::DetailList_BTNClick() {
  if (!ListDataSet().RecNo() || search_ == nullptr) return;
  if (!IsAllowed(Host().Rights(), kPartGoodDetail, kPermissionOpenReport)) return;
  const TPeriodPanel& period = search_->Period_PNL;
  const bool on = AdvSearchOn();
  const bool storeGiven = on && search_->Store_Frame.InUse() && search_->Store_Frame.CodeAsInt() > 0;
  const std::string tags = search_->TTags_search_FRM1.Tags();
  const std::vector<std::string> categories = search_->TCategorySearchFrame1.Values();
  const bool categoryGiven = on && !categories.empty();
  Host().Documents().Call_GoodDetailTransactions(
      CurrentGood(), storeGiven, storeGiven ? search_->Store_Frame.CodeAsInt() : 0, period.InUse(),
      period.FromDate().value_or(""), period.ToDate().value_or(""), on && tags != kNoTags, tags,
      categoryGiven, categoryGiven ? categories.back() : std::string());
}

}  // namespace goods
