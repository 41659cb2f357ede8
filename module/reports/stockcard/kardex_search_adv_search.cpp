#include "module/reports/stockcard/kardex_search_adv_search.h"

#include <utility>

#include "module/framework/texts.h"

namespace goods {

TKardexSearch_AdvSearch_FRM::TKardexSearch_AdvSearch_FRM(THost& host)
    : TBaseSearch_FRM(host, "KardexSearch_AdvSearch_FRM") {
  DeclareForm();
}

TKardexSearch_AdvSearch_FRM::~TKardexSearch_AdvSearch_FRM() = default;

void TKardexSearch_AdvSearch_FRM::SetUp(std::string script, TDataSource* source, std::string generalFilter) {
  QeratSearchManager1.Script = std::move(script);
  QeratSearchManager1.SetDataSource(source);
  QeratSearchManager1.SetEXtraAdvFilter(std::move(generalFilter));
}

RowSearchDialogCriteria TKardexSearch_AdvSearch_FRM::Criteria() const {
  RowSearchDialogCriteria criteria{.told = FarsiFilter_CHK.Checked()};
  for (const TQeratSearch* item : QeratSearchManager1.Items()) criteria.items.push_back(*item);
  return criteria;
}

void TKardexSearch_AdvSearch_FRM::FormShow() {
  TBaseSearch_FRM::FormShow();
  SearchGood_FRAME.GeneralSearch_EDT.SetFocus();
}

// The dialog closes only once the procedure has run: a statement that fails leaves the criteria on the
// screen.
void TKardexSearch_AdvSearch_FRM::Select_BTNClick() {
  {
    const WaitingScope waiting(Host().Waiting(), this, kPreparingReport);
    QeratSearchManager1.ExecuteFilter_PROC();
  }
  TBaseSearch_FRM::Select_BTNClick();
}

void TKardexSearch_AdvSearch_FRM::Del_BTNClick() {
  TBaseSearch_FRM::Del_BTNClick();
  for (TControl* control : Controls()) {
    if (auto* frame = dynamic_cast<TSearchFrame*>(control)) frame->Clear();
  }
}

}  // namespace goods
