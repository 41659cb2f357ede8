// The exports that open the row search, ordinary and negative.
#include <string>

#include "include/goods_transaction_qrt.h"
#include "module/entry/attached_host.h"
#include "module/reports/stockcard/kardex_search.h"

namespace goods {
namespace {

void OpenKardexSearch(THost& host) {
  if (MayOpenReport(host, kPartStockCardSearch)) TKardexSearch_FRM(host, kFormMode, "").ShowModal();
}

void OpenKardexNegativ(THost& host, const std::string& parameter) {
  if (MayOpenReport(host, kPartStockCardSearch))
    TKardexSearch_FRM(host, kFormMode, Variant(parameter), "").ShowModal();
}

}  // namespace
}  // namespace goods

extern "C" {

void Open_KardexSearch() {
  goods::RunExport([](goods::THost& host) { goods::OpenKardexSearch(host); });
}

void Open_KardexNegativ(const goods_char16* mode, const goods_char16* first, const goods_char16* second) {
  using goods::ArgumentText;
  goods::RunExport([&](goods::THost& host) {
    goods::OpenKardexNegativ(host,
                             ArgumentText(mode) + ";" + ArgumentText(first) + ";" + ArgumentText(second));
  });
}

}  // extern "C"
