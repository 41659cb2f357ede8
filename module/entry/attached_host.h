// The module's only state: the attached host, and the windows that are kept.
#pragma once

#include <memory>
#include <string>

#include "host/core/text.h"
#include "host/services/host.h"
#include "module/reports/stockcard/kardex.h"

namespace goods {

struct ModuleState {
  THost* host = nullptr;
  int callsInside = 0;                      // exports that have not returned yet
  std::unique_ptr<TKardex_FRM> goodKardex;  // Open_GoodKardex
  std::unique_ptr<TKardex_FRM> kardex;      // Open_Kardex
};

ModuleState& State();

// Every window of this module is created with it.
inline constexpr int kFormMode = 1;

// A text argument; null is the empty text.
inline std::string ArgumentText(const char16_t* text) {
  return text == nullptr ? std::string() : FromUtf16(text);
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
