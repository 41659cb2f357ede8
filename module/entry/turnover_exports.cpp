// The exports that open the goods turnover list, in quantity and in money.
#include <string>

#include "include/goods_transaction_qrt.h"
#include "module/entry/attached_host.h"

namespace goods {
namespace {

void OpenList(THost& host, std::unique_ptr<TGoodTransaction_FRM>& window, int softwarePart,
              int componentSoftwarePart, std::string_view alreadyShown) {
  if (!PrepareKeptWindow(host, window, std::to_string(softwarePart), alreadyShown)) return;
  window->FormOptions_SFO.ComponentSoftwarePart = componentSoftwarePart;
  window->SetIsShowWaitting(false);
  window->SetAutomaticRefresh(true);
  window->ListDataSet().DisableControls();
  window->ShowModal();
}

void OpenGarKala(THost& host, std::int32_t softwarePart) {
  if (!MayOpenReport(host, softwarePart)) return;
  if (softwarePart == kPartAmountAsset) {
    OpenList(host, State().amountAsset, softwarePart, cspGoodAmountAsset,
             "امکان نمایش مجدد موجودی کالا وجود ندارد");
  } else if (softwarePart == kPartCashAsset) {
    OpenList(host, State().cashAsset, softwarePart, cspGoodCashAsset,
             "امکان نمایش مجدد موجودی ریالی وجود ندارد");
  }
}

// The right is asked for twice: here, and by Open_GarKala.
void OpenAsset(THost& host, std::int32_t softwarePart) {
  if (MayOpenReport(host, softwarePart)) OpenGarKala(host, softwarePart);
}

}  // namespace
}  // namespace goods

extern "C" {

void Open_GarKala(int32_t softwarePart) {
  goods::RunExport([softwarePart](goods::THost& host) { goods::OpenGarKala(host, softwarePart); });
}

void Open_GoodAmountAsset() {
  goods::RunExport([](goods::THost& host) { goods::OpenAsset(host, goods::kPartAmountAsset); });
}

void Open_GoodCashAsset() {
  goods::RunExport([](goods::THost& host) { goods::OpenAsset(host, goods::kPartCashAsset); });
}

}  // extern "C"
