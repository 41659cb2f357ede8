// The exports that open the goods turnover list, in quantity and in money.
#include <string>

#include "goods_transaction_qrt.h"
#include "module/entry/attached_host.h"

namespace goods {
namespace {

template <ReportId kReport>
void OpenList(THost& host, std::unique_ptr<TGoodTransaction_FRM>& window) {
  constexpr const ReportDescription& report = Describe(kReport);
  if (!PrepareKeptWindow<kReport>(host, window, std::to_string(report.softwarePart))) return;
  window->FormOptions_SFO.ComponentSoftwarePart = report.component;
  window->SetIsShowWaitting(false);
  window->SetAutomaticRefresh(true);
  window->ListDataSet().DisableControls();
  window->ShowModal();
}

void OpenGarKala(THost& host, std::int32_t softwarePart) {
  if (!IsAllowed(host.Rights(), softwarePart, kPermissionOpenReport)) return;
  if (softwarePart == kPartAmountAsset) {
    OpenList<ReportId::GoodsInQuantity>(host, State().amountAsset);
  } else if (softwarePart == kPartCashAsset) {
    OpenList<ReportId::GoodsInMoney>(host, State().cashAsset);
  }
}

// The right is asked for twice: here, and by Open_GarKala.
void OpenAsset(THost& host, ReportId report) {
  if (MayOpen(host, Describe(report))) OpenGarKala(host, Describe(report).softwarePart);
}

}  // namespace
}  // namespace goods

extern "C" {

void Open_GarKala(int32_t softwarePart) {
  goods::RunExport([softwarePart](goods::THost& host) { goods::OpenGarKala(host, softwarePart); });
}

void Open_GoodAmountAsset() {
  goods::RunExport([](goods::THost& host) { goods::OpenAsset(host, goods::ReportId::GoodsInQuantity); });
}

void Open_GoodCashAsset() {
  goods::RunExport([](goods::THost& host) { goods::OpenAsset(host, goods::ReportId::GoodsInMoney); });
}

}  // extern "C"
