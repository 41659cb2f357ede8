// The exports that open the overall turnover and the stock per store.
#include <string>

#include "include/goods_transaction_qrt.h"
#include "module/entry/attached_host.h"
#include "module/reports/asset/goods_asset_store.h"
#include "module/reports/turnover/good_trans_overall.h"

namespace goods {
namespace {

// The window lives as long as it is shown.
template <typename Window>
void OpenOnce(THost& host, int softwarePart) {
  if (MayOpenReport(host, softwarePart)) Window(host, kFormMode, Variant(std::string("0")), "").ShowModal();
}

}  // namespace
}  // namespace goods

extern "C" {

void Open_GoodTrans_Overall() {
  goods::RunExport([](goods::THost& host) {
    goods::OpenOnce<goods::TGoodTrans_Overall_FRM>(host, goods::kPartOverallTurnover);
  });
}

void Open_GoodsAsset_Store() {
  goods::RunExport([](goods::THost& host) {
    goods::OpenOnce<goods::TGoodsAsset_Store_FRM>(host, goods::kPartStoreAsset);
  });
}

}  // extern "C"
