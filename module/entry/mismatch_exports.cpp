// The export that opens the mismatch of good details and stock card.
#include "goods_transaction_qrt.h"
#include "module/entry/attached_host.h"

using namespace goods;

extern "C" {

void Open_DetailKardexAsset_Dismatch() {
  RunExport([](THost& host) {
    ShowGuardedWindow<ReportId::DetailMismatch>(host, State().detailKardexDismatch, "");
  });
}

}  // extern "C"
