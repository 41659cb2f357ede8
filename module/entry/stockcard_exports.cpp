// The exports that open the stock card.
#include <string>

#include "include/goods_transaction_qrt.h"
#include "module/entry/attached_host.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr const char* kAlreadyShown = "امکان نمایش مجدد کاردکس وجود ندارد.";

std::string Parameter(int mode, std::int32_t good, std::int32_t store, const std::string& from,
                      const std::string& to) {
  return std::to_string(mode) + ";" + std::to_string(good) + ";" + std::to_string(store) + ";" + from + ";" +
         to + ";";
}

// Makes the window the first time and hands it the parameter; false, after telling the user, while it is
// being shown.
bool PrepareKeptWindow(THost& host, std::unique_ptr<TKardex_FRM>& window, const std::string& parameter) {
  if (window == nullptr) {
    window = std::make_unique<TKardex_FRM>(host, kFormMode, Variant(parameter), "");
  } else if (window->Showing()) {
    host.Messages().ShowSmartMessage(kAlreadyShown, "", MessageIcon::Information);
    return false;
  }
  window->SetCustomParameter(Variant(parameter), "");
  return true;
}

void OpenGoodKardex(THost& host) {
  IRights& rights = host.Rights();
  if (!rights.HavePermission(rights.UserInfo(), kPartStockCard, kPermissionOpenReport, true, true, ""))
    return;
  auto& window = State().goodKardex;
  if (PrepareKeptWindow(host, window, Parameter(1, 0, 0, "", ""))) window->ShowModal();
}

void OpenKardex(THost& host, std::int32_t good, std::int32_t store, const std::string& from,
                const std::string& to) {
  host.Waiting().ShowWaitting(nullptr, kPreparingReport);
  auto& window = State().kardex;
  try {
    // While the window is shown already the indicator stays up on purpose.
    if (!PrepareKeptWindow(host, window, Parameter(0, good, store, from, to))) return;
  } catch (...) {
    host.Waiting().HideWaitting(nullptr, 0);
    throw;
  }
  host.Waiting().HideWaitting(nullptr, 0);
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
