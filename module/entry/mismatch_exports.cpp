// The export that opens the mismatch of good details and stock card.
#include <memory>

#include "include/goods_transaction_qrt.h"
#include "module/entry/attached_host.h"

namespace goods {
namespace {

void OpenDetailKardexAssetDismatch(THost& host) {
  if (!MayOpenReport(host, kPartGoodDetail)) return;
  ShowGuardedWindow(host, State().detailKardexDismatch,
                    "امکان نمایش مجدد گزارش مغایرت جزئیات کالا وجود ندارد",
                    [&host] { return std::make_unique<TGoodDetailKardexDismatch_FRM>(host, kFormMode, ""); });
}

}  // namespace
}  // namespace goods

extern "C" {

void Open_DetailKardexAsset_Dismatch() {
  goods::RunExport([](goods::THost& host) { goods::OpenDetailKardexAssetDismatch(host); });
}

}  // extern "C"
