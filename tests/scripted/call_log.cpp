#include "tests/scripted/call_log.h"

#include <utility>

namespace goods {

void CallLog::Add(CallKind kind, std::string text) { calls_.push_back({kind, text, text, false}); }

void CallLog::AddStatement(std::string_view how, std::string_view statement) {
  calls_.push_back({CallKind::Statement, CallText(how, statement), std::string(statement), false});
}

std::vector<std::string> CallLog::Take(CallKind kind) {
  std::vector<std::string> taken = NotLooked(kind);
  for (HostCall& call : calls_) call.looked = call.looked || call.kind == kind;
  return taken;
}

std::vector<std::string> CallLog::TakeAll() {
  std::vector<std::string> taken;
  for (HostCall& call : calls_) {
    if (!call.looked) taken.push_back(call.text);
    call.looked = true;
  }
  return taken;
}

std::vector<std::string> CallLog::NotLooked(CallKind kind) const {
  std::vector<std::string> calls;
  for (const HostCall& call : calls_) {
    if (call.kind == kind && !call.looked) calls.push_back(call.plain);
  }
  return calls;
}

std::string InQuotes(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    switch (c) {
      case '"':
        quoted += "\\\"";
        break;
      case '\\':
        quoted += "\\\\";
        break;
      case '\r':
        quoted += "\\r";
        break;
      case '\n':
        quoted += "\\n";
        break;
      case '\t':
        quoted += "\\t";
        break;
      default:
        quoted += c;
    }
  }
  return quoted + "\"";
}

}  // namespace goods
