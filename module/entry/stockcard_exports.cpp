// The exports that open the stock card.
#include <string>

#include "goods_transaction_qrt.h"
#include "module/entry/attached_host.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

std::string Parameter(int mode, std::int32_t good, std::int32_t store, const std::string& from,
                      const std::string& to) {
  return std::to_string(mode) + ";" + std::to_string(good) + ";" + std::to_string(store) + ";" + from + ";" +
         to + ";";
}

void OpenGoodKardex(THost& host) {
  if (!MayOpen(host, Describe(ReportId::StockCard))) return;
  auto& window = State().goodKardex;
  if (PrepareKeptWindow<ReportId::StockCard>(host, window, Parameter(1, 0, 0, "", ""))) window->ShowModal();
}

void OpenKardex(THost& host, std::int32_t good, std::int32_t store, const std::string& from,
                const std::string& to) {
  auto& window = State().kardex;
  {
    WaitingScope waiting(host.Waiting(), nullptr, kPreparingReport);
    if (!PrepareKeptWindow<ReportId::StockCard>(host, window, Parameter(0, good, store, from, to))) {
      // While the window is shown already the indicator stays up on purpose.
      waiting.Stay();
      return;
    }
  }
  window->ShowModal();
}

}  // namespace
}  // namespace goods

extern "C" {

void Open_GoodKardex() {
  goods::RunExport([](goods::THost& host) { goods::OpenGoodKardex(host); });
}

void Open_Kardex(int32_t good, int32_t store, const goods_char16* from, const goods_char16* to) {
  goods::RunExport([&](goods::THost& host) {
    goods::OpenKardex(host, good, store, goods::ArgumentText(from), goods::ArgumentText(to));
  });
}

void Open_StoreExistance() {}

}  // extern "C"
