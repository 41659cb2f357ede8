#include "company/embedded/native_procedures.h"

#include <stdexcept>
#include <variant>

#include "host/core/text.h"

namespace goods {

namespace {

struct Native {
  const char* procedure;
  NativeBody body;
};

constexpr Native kNatives[] = {
    {"GoodsAsset_Store_SP", RunStoreAsset},
    {"GoodKardex_Overall_Money", RunOverallMoney},
    {"GoodKardex_Overall_Tedad", RunOverallQuantity},
};

}  // namespace

NativeBody NativeBodyOf(const Procedure& procedure) {
  for (const Native& native : kNatives) {
    if (procedure.name == native.procedure) return native.body;
  }
  throw std::logic_error("no native body: " + procedure.name);
}

std::string TextArgument(const ProcedureCall& call, std::string_view name) {
  const Literal& value = ArgumentOf(call, name);
  const auto* text = std::get_if<std::string>(&value);
  return text == nullptr ? std::string() : *text;
}

std::int64_t IntegerArgument(const ProcedureCall& call, std::string_view name) {
  const Literal& value = ArgumentOf(call, name);
  const auto* number = std::get_if<NumberValue>(&value);
  return number == nullptr ? 0 : ParseInteger(number->text).value_or(0);
}

}  // namespace goods
