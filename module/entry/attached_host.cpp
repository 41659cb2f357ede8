#include "module/entry/attached_host.h"

#include "include/goods_transaction_qrt.h"

namespace goods {

static_assert(kHostVersion == GOODS_HOST_VERSION);

ModuleState& State() {
  static ModuleState state;
  return state;
}

}  // namespace goods

extern "C" {

int32_t Goods_AttachHost(int32_t version, goods_host* host) {
  goods::ModuleState& state = goods::State();
  if (version != goods::kHostVersion || host == nullptr || state.host != nullptr) return 0;
  state.host = reinterpret_cast<goods::THost*>(host);
  return 1;
}

int32_t Goods_DetachHost() {
  goods::ModuleState& state = goods::State();
  if (state.host == nullptr || state.callsInside > 0) return 0;
  state = {};
  return 1;
}

}  // extern "C"
