// The module's only state: the attached host, and the windows that are kept.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "goods_reports.h"
#include "host/core/text.h"
#include "host/services/host.h"
#include "module/reports/detail/all_good_detail_transaction.h"
#include "module/reports/detail/good_detail_transaction.h"
#include "module/reports/mismatch/good_detail_kardex_dismatch.h"
#include "module/reports/stockcard/kardex.h"
#include "module/reports/turnover/good_transaction.h"

namespace goods {

struct ModuleState {
  THost* host = nullptr;
  int callsInside = 0;                                // exports that have not returned yet
  std::unique_ptr<TKardex_FRM> goodKardex;            // Open_GoodKardex
  std::unique_ptr<TKardex_FRM> kardex;                // Open_Kardex
  std::unique_ptr<TGoodTransaction_FRM> amountAsset;  // Open_GarKala(501)
  std::unique_ptr<TGoodTransaction_FRM> cashAsset;    // Open_GarKala(502)
  // Empty whenever no call is inside their modal show.
  std::unique_ptr<TGoodDetailTransaction_FRM> detailTransactions;       // Open_DetailTransactions
  std::unique_ptr<TAllGoodDetailTransaction_FRM> searchInDetail;        // Open_SearchInDetailTransactions
  std::unique_ptr<TGoodDetailKardexDismatch_FRM> detailKardexDismatch;  // Open_DetailKardexAsset_Dismatch
};

ModuleState& State();

// Every window of this module is created with it.
inline constexpr int kFormMode = 1;

// A text argument; null is the empty text.
inline std::string ArgumentText(const char16_t* text) {
  return text == nullptr ? std::string() : FromUtf16(text);
}

inline bool MayOpen(THost& host, const ReportDescription& report) {
  return IsAllowed(host.Rights(), report.softwarePart, report.permission);
}

// Makes a kept window the first time and hands it the parameter; false, after telling the user, while it is
// being shown.
template <ReportId kReport, typename Window>
bool PrepareKeptWindow(THost& host, std::unique_ptr<Window>& window, const std::string& parameter) {
  constexpr const ReportDescription& report = Describe(kReport);
  static_assert(report.life == ReportLife::Kept);
  if (window == nullptr) {
    window = std::make_unique<Window>(host, kFormMode, Variant(parameter), "");
  } else if (window->Showing()) {
    host.Messages().ShowSmartMessage(report.alreadyShown, "", MessageIcon::Information);
    return false;
  }
  window->SetCustomParameter(Variant(parameter), "");
  return true;
}

// Makes a guarded window of the arguments behind its host and form mode, and shows it; it is freed, and the
// variable empty, when it has been closed or an error comes out of it. Tells the user, and does nothing else,
// without the right and while it is being shown.
template <ReportId kReport, typename Window, typename... Arguments>
void ShowGuardedWindow(THost& host, std::unique_ptr<Window>& window, Arguments&&... arguments) {
  constexpr const ReportDescription& report = Describe(kReport);
  static_assert(report.life == ReportLife::Guarded);
  if (!MayOpen(host, report)) return;
  if (window != nullptr && window->Showing()) {
    host.Messages().ShowSmartMessage(report.alreadyShown, "", MessageIcon::Information);
    return;
  }
  struct Freed {
    std::unique_ptr<Window>& window;
    ~Freed() { window.reset(); }
  } const scope{window};
  if (window == nullptr)
    window = std::make_unique<Window>(host, kFormMode, std::forward<Arguments>(arguments)...);
  window->FormOptions_SFO.ComponentSoftwarePart = report.component;
  window->ShowModal();
}

// A window that lives as long as it is shown, for a user who may open the report.
template <typename Window, ReportId kReport, typename... Arguments>
void ShowOneShotWindow(THost& host, Arguments&&... arguments) {
  constexpr const ReportDescription& report = Describe(kReport);
  static_assert(report.life == ReportLife::OneShot);
  if (MayOpen(host, report)) Window(host, kFormMode, std::forward<Arguments>(arguments)...).ShowModal();
}

// The boundary of every export: without a host nothing happens; what escapes goes to the host's messages.
template <typename Body>
void RunExport(Body&& body) noexcept {
  ModuleState& state = State();
  if (state.host == nullptr) return;
  ++state.callsInside;
  try {
    RunUserAction(*state.host, [&] { body(*state.host); });
  } catch (
      ...) {  // NOLINT(bugprone-empty-catch): the host failed even to show the error, and nobody else is left
  }
  --state.callsInside;
}

}  // namespace goods
