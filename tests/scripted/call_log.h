// What a report asked of the host, in order.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

enum class CallKind {
  Statement,
  Message,
  Document,
  Right,
  Waiting,
  Lookup,
  Keyboard,
  Setting,
  Print,
  Window,
  Misuse
};

// One call. text is the call as it is written, such as Call_SaleInvoice(55, 1); plain is the statement text
// of a statement, else the same as text.
struct HostCall {
  CallKind kind = CallKind::Message;
  std::string text;
  std::string plain;
  bool looked = false;
};

// Calls stay until the log goes; looking at them marks them.
class CallLog {
 public:
  void Add(CallKind kind, std::string text);
  void AddStatement(std::string_view how, std::string_view statement);
  // A use that the host's contract forbids.
  void AddMisuse(std::string text) { Add(CallKind::Misuse, std::move(text)); }

  // Those that nobody has looked at, oldest first, marked as looked at from now on.
  std::vector<std::string> Take(CallKind kind);
  std::vector<std::string> TakeAll();
  std::vector<std::string> NotLooked(CallKind kind) const;

  const std::deque<HostCall>& Calls() const { return calls_; }

 private:
  std::deque<HostCall> calls_;
};

// The text in double quotes; quotes, backslashes, line ends and tabs are written as \" \\ \r \n \t.
std::string InQuotes(std::string_view text);

inline std::string ArgumentText(std::string_view text) { return InQuotes(text); }
inline std::string ArgumentText(const char* text) { return InQuotes(text); }
inline std::string ArgumentText(const std::string& text) { return InQuotes(text); }
inline std::string ArgumentText(bool value) { return value ? "true" : "false"; }
inline std::string ArgumentText(std::int64_t value) { return std::to_string(value); }
inline std::string ArgumentText(int value) { return std::to_string(value); }

// name(argument, argument): texts quoted, numbers and flags bare.
template <typename... Arguments>
std::string CallText(std::string_view name, const Arguments&... arguments) {
  std::string text(name);
  text += "(";
  std::string_view separator = "";
  ((text.append(separator).append(ArgumentText(arguments)), separator = ", "), ...);
  return text + ")";
}

}  // namespace goods
