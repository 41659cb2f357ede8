#include "c_host.h"

#include <algorithm>
#include <string>

#include "tests/scripted/scripted_host.h"

namespace {

using goods::CallKind;
using goods::HostCall;
using goods::ScriptedHost;

struct Host {
  Host() {
    host.Lookups().Give(goods::EntityType::Good, 12, {{"Name", "پیچ"}, {"Unit", "عدد"}, {"Unit2", "بسته"}});
    host.Connection().Answer("Exec Kardex_Proc%", {{{"Date", goods::ColumnType::Text}}, {{"1401/01/01"}}});
    host.Windows().OnIdle = [this] {
      if (goods::TForm* form = host.Windows().ActiveWindow()) {
        ++windows;
        form->Close();
      }
      return true;
    };
  }
  int Count(CallKind kind) const {
    return static_cast<int>(std::count_if(host.Log.Calls().begin(), host.Log.Calls().end(),
                                          [kind](const HostCall& call) { return call.kind == kind; }));
  }
  ScriptedHost host;
  int windows = 0;
};

Host& TheHost() {
  static Host host;
  return host;
}

}  // namespace

extern "C" {

goods_host* c_host() { return reinterpret_cast<goods_host*>(static_cast<goods::THost*>(&TheHost().host)); }
int c_host_windows() { return TheHost().windows; }
int c_host_statements() { return TheHost().Count(CallKind::Statement); }
int c_host_errors() {
  return static_cast<int>(std::count_if(
      TheHost().host.Log.Calls().begin(), TheHost().host.Log.Calls().end(), [](const HostCall& call) {
        return call.kind == CallKind::Message && call.text.starts_with("ShowError");
      }));
}
void c_host_lose_connection() { TheHost().host.Connection().LoseAfter(0); }

const char* c_host_last_statement() {
  static std::string last;
  for (const HostCall& call : TheHost().host.Log.Calls()) {
    if (call.kind == CallKind::Statement) last = call.plain;
  }
  return last.c_str();
}

}  // extern "C"
