// The exports that open the good-detail reports.
#include <string>

#include "goods_transaction_qrt.h"
#include "module/entry/attached_host.h"
#include "module/framework/parameter_text.h"

namespace goods {
namespace {

constexpr int kByTheUser = 1;
constexpr int kFromAnotherReport = 2;

std::string Flag(std::uint8_t value) { return value != 0 ? "1" : "0"; }

// The caller was allowed its own report already, so no right is asked for.
void OpenGoodDetailTransactions(THost& host, const std::string& parameter) {
  TGoodDetailTransaction_FRM window(host, kFormMode, Variant(parameter), "");
  window.FormOptions_SFO.ComponentSoftwarePart = Describe(ReportId::StockByDetails).component;
  window.ShowModal();
}

}  // namespace
}  // namespace goods

extern "C" {

void Open_DetailTransactions() {
  goods::RunExport([](goods::THost& host) {
    goods::ShowGuardedWindow<goods::ReportId::StockByDetails>(
        host, goods::State().detailTransactions, goods::Variant(std::to_string(goods::kByTheUser)), "");
  });
}

void Open_SearchInDetailTransactions() {
  goods::RunExport([](goods::THost& host) {
    goods::ShowGuardedWindow<goods::ReportId::SearchInDetails>(host, goods::State().searchInDetail, "");
  });
}

void Open_GoodDetailTransactions(int32_t good, uint8_t storeGiven, int32_t store, uint8_t datesGiven,
                                 const goods_char16* from, const goods_char16* to, uint8_t tagsGiven,
                                 const goods_char16* tags, uint8_t categoryGiven,
                                 const goods_char16* category) {
  using goods::ArgumentText;
  using goods::AsPosition;
  using goods::Flag;
  goods::RunExport([&](goods::THost& host) {
    std::string parameter;
    for (const std::string& value :
         {std::to_string(goods::kFromAnotherReport), std::to_string(good), Flag(storeGiven),
          std::to_string(store), Flag(datesGiven), AsPosition(ArgumentText(from)),
          AsPosition(ArgumentText(to)), Flag(tagsGiven), AsPosition(ArgumentText(tags)), Flag(categoryGiven),
          AsPosition(ArgumentText(category))}) {
      parameter += value + ";";
    }
    goods::OpenGoodDetailTransactions(host, parameter);
  });
}

}  // extern "C"
