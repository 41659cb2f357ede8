// The fetches of the good-detail reports.
#include <optional>
#include <utility>

#include "module/data/good_transactions_dm.h"
#include "module/framework/texts.h"

namespace goods {

std::int64_t TGoodTransactions_DM::GoodDetailChange_ComboBox(const TComboBox& detail,
                                                             const TDetailControls& controls) {
  const std::int64_t code = detail.ItemIndex() > 0 ? detail.ItemObject() : 0;
  const std::int64_t type = code == 0 ? 0 : GetDetailTypeWithDetailID(code).DetailType;
  const bool value = type == kPickedValue || type == kTypedValue;
  const bool range = type == kNumber || type == kOtherNumber;
  const bool date = type == kDate;
  std::vector<TComboItem> items;
  if (value) {
    for (std::string& item : GetDetailItems(code)) items.push_back({std::move(item), 0, ""});
  }
  controls.Value.SetStyle(type == kTypedValue ? ComboStyle::Typing : ComboStyle::PickList);
  controls.Value.SetItems(std::move(items));
  if (type == kTypedValue) controls.Value.SetText("");
  controls.Value.SetVisible(value);
  for (TEdit* edit : {&controls.From, &controls.To}) {
    edit->SetKind(range ? InputKind::Amount : InputKind::Text);
    edit->Clear();
  }
  controls.From.SetVisible(range || type == kOneValue);
  controls.To.SetVisible(range);
  for (TDateEdit* edit : {&controls.FromDate, &controls.ToDate}) {
    edit->Clear();
    edit->SetVisible(date);
  }
  controls.FromLabel.SetVisible(range || date);
  controls.ToLabel.SetVisible(range || date);
  return type;
}

void TGoodTransactions_DM::FetchDetails(TQueryWithSource& report, std::string_view head,
                                        std::string_view parameters, TForm* window, int mode, bool shown) {
  if (!shown) return;
  std::optional<WaitingScope> waiting;
  if (mode == 1) waiting.emplace(host_.Waiting(), window, kFetchingData);
  report.Query.SetSQL(std::string(head) + std::string(parameters));
  report.Query.Open();
}

void TGoodTransactions_DM::AllGoodDetailTransaction_GetAll(std::string_view parameters, TForm* window,
                                                           int mode, bool shown) {
  FetchDetails(AllGoodDetailTransaction, " EXEC AllGoodDetailTransaction ", parameters, window, mode, shown);
}

void TGoodTransactions_DM::OneGoodDetailTransaction_GetAll(std::string_view parameters, TForm* window,
                                                           int mode, bool shown) {
  FetchDetails(OneGoodDetailTransaction, " EXEC OneGoodDetailTransaction ", parameters, window, mode, shown);
}

void TGoodTransactions_DM::GoodDetailTransaction_GetAll(std::string_view parameters, TForm* window, int mode,
                                                        bool shown) {
  FetchDetails(GoodDetailTransaction, " EXEC GoodDetailTransaction ", parameters, window, mode, shown);
}

void TGoodTransactions_DM::GoodDetailKardexDismatch_GetAll(std::string_view parameters, TForm* window,
                                                           int mode, bool shown) {
  FetchDetails(GoodDetailKardexDismatch, " EXEC DetailKardexAsset_Dismatch ", parameters, window, mode,
               shown);
}

void TGoodTransactions_DM::GoodDetailOperationDismatch_GetAll(std::string_view parameters, TForm* window,
                                                              int mode, bool shown) {
  FetchDetails(GoodDetailOperationDismatch, " EXEC DetailOperation_Dismatch ", parameters, window, mode,
               shown);
}

}  // namespace goods
