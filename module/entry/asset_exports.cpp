// The exports that open the overall turnover and the stock per store.
#include <string>

#include "goods_transaction_qrt.h"
#include "module/entry/attached_host.h"
#include "module/reports/asset/goods_asset_store.h"
#include "module/reports/turnover/good_trans_overall.h"

using namespace goods;

extern "C" {

void Open_GoodTrans_Overall() {
  RunExport([](THost& host) {
    ShowOneShotWindow<TGoodTrans_Overall_FRM, ReportId::OverallTurnover>(host, Variant(std::string("0")), "");
  });
}

void Open_GoodsAsset_Store() {
  RunExport([](THost& host) {
    ShowOneShotWindow<TGoodsAsset_Store_FRM, ReportId::StockPerStore>(host, Variant(std::string("0")), "");
  });
}

}  // extern "C"
