#include "module/entry/attached_host.h"

#include <cstdint>
#include <cstdio>
#include <string>

#include "goods_transaction_qrt.h"
#include "host/services/host_version.h"

namespace goods {
namespace {

std::string& AttachProblem() {
  static std::string problem;
  return problem;
}

std::string Hexadecimal(std::int32_t version) {
  char text[9];
  std::snprintf(text, sizeof text, "%07x", static_cast<unsigned>(version));
  return text;
}

std::string OtherVersion(const std::string& whose, std::int32_t version) {
  return "کتابخانه گزارش‌ها و " + whose +
         " برای نسخه‌های متفاوتی از بسته‌های میزبان ساخته "
         "شده‌اند "
         "(" +
         Hexadecimal(kHostVersion) + " و " + Hexadecimal(version) + "). هر دو را از یک نسخه بسازید.";
}

// Empty when the host can be attached.
std::string WhyNotAttach(std::int32_t version, const goods_host* host) {
  if (version != kHostVersion) return OtherVersion("برنامه", version);
  if (HostLibraryVersion() != kHostVersion) {
    return OtherVersion("کتابخانه میزبان", HostLibraryVersion());
  }
  if (host == nullptr) return "میزبانی داده نشده است.";
  if (State().host != nullptr)
    return "میزبان دیگری به کتابخانه گزارش‌ها پیوسته است.";
  return "";
}

}  // namespace

ModuleState& State() {
  static ModuleState state;
  return state;
}

}  // namespace goods

extern "C" {

int32_t Goods_AttachHost(int32_t version, goods_host* host) {
  goods::AttachProblem() = goods::WhyNotAttach(version, host);
  if (!goods::AttachProblem().empty()) return 0;
  goods::State().host = reinterpret_cast<goods::THost*>(host);
  return 1;
}

const char* Goods_AttachProblem() { return goods::AttachProblem().c_str(); }

int32_t Goods_DetachHost() {
  goods::ModuleState& state = goods::State();
  if (state.host == nullptr || state.callsInside > 0) return 0;
  state = {};
  return 1;
}

}  // extern "C"
