#include "company/embedded/conditional_lines.h"

#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <variant>

#include "host/core/text.h"

namespace goods {

namespace {

[[noreturn]] void Broken(const ProcedureCall& call, std::string_view condition) {
  throw std::logic_error("procedure " + call.procedure->name + ": " + std::string(condition));
}

bool AnyHolds(const ProcedureCall& call, std::string_view conditions);
std::optional<std::string_view> CutBehind(std::string_view& text, std::string_view mark);

bool NamedHolds(const ProcedureCall& call, std::string_view meaning) {
  const std::optional<std::string_view> unless = CutBehind(meaning, " unless ");
  return AnyHolds(call, meaning) && (!unless || !AnyHolds(call, *unless));
}

bool Holds(const ProcedureCall& call, std::string_view condition) {
  if (!condition.starts_with('@')) {
    for (const auto& [name, meaning] : call.procedure->conditions) {
      if (name == condition) return NamedHolds(call, meaning);
    }
    Broken(call, condition);
  }
  const std::size_t equals = condition.find('=');
  const Literal& value = ArgumentOf(call, Trim(condition.substr(0, equals)));
  if (equals == std::string_view::npos) return !std::holds_alternative<NullValue>(value);
  const std::optional<std::int64_t> wanted = ParseInteger(Trim(condition.substr(equals + 1)));
  if (!wanted) Broken(call, condition);
  const auto* number = std::get_if<NumberValue>(&value);
  return number != nullptr && ParseInteger(number->text) == wanted;
}

bool AnyHolds(const ProcedureCall& call, std::string_view conditions) {
  constexpr std::string_view kOr = " or ";
  for (;;) {
    const std::size_t end = conditions.find(kOr);
    if (Holds(call, Trim(conditions.substr(0, end)))) return true;
    if (end == std::string_view::npos) return false;
    conditions.remove_prefix(end + kOr.size());
  }
}

// What follows the mark, cut off the text; none when the mark is not there.
std::optional<std::string_view> CutBehind(std::string_view& text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view behind = text.substr(at + mark.size());
  text = text.substr(0, at);
  return behind;
}

bool Stands(const ProcedureCall& call, std::string_view line) {
  if (Trim(line).starts_with("--")) return true;
  std::optional<std::string_view> when = CutBehind(line, "-- when ");
  std::optional<std::string_view> unless =
      when ? CutBehind(*when, " unless ") : CutBehind(line, "-- unless ");
  return (!when || AnyHolds(call, *when)) && (!unless || !AnyHolds(call, *unless));
}

}  // namespace

bool IsDivided(const ProcedureCall& call) {
  const Procedure& procedure = *call.procedure;
  return !procedure.goodColumn.empty() &&
         (procedure.undividedCalls.empty() || !AnyHolds(call, procedure.undividedCalls));
}

std::string BodyOf(const ProcedureCall& call, OfGoods goods) {
  std::string body;
  for (std::string_view rest = call.procedure->body; !rest.empty();) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    const std::size_t place = line.find(kGoodsPlace);
    if (place != std::string_view::npos) {
      if (goods == OfGoods::Range) {
        body.append(line.substr(0, place)).append(call.procedure->goodColumn);
        body.append(" BETWEEN ").append(kFirstGood).append(" AND ").append(kLastGood).append("\n");
      }
    } else if (Stands(call, line)) {
      body.append(line).append("\n");
    }
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
  }
  return body;
}

}  // namespace goods
