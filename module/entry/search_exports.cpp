// The exports that open the row search, ordinary and negative.
#include <string>

#include "goods_transaction_qrt.h"
#include "module/entry/attached_host.h"
#include "module/reports/stockcard/kardex_search.h"

using namespace goods;

extern "C" {

void Open_KardexSearch() {
  RunExport([](THost& host) { ShowOneShotWindow<TKardexSearch_FRM, ReportId::RowSearch>(host, ""); });
}

void Open_KardexNegativ(const goods_char16* mode, const goods_char16* first, const goods_char16* second) {
  RunExport([&](THost& host) {
    ShowOneShotWindow<TKardexSearch_FRM, ReportId::NegativeCard>(
        host, Variant(ArgumentText(mode) + ";" + ArgumentText(first) + ";" + ArgumentText(second)), "");
  });
}

}  // extern "C"
