#include "host/data/value.h"

#include <algorithm>
#include <limits>

#include "host/core/text.h"

namespace goods {
namespace {

std::int64_t WholePart(Decimal number) {
  const Int128 whole = number.Units() / Decimal::kOne;
  constexpr Int128 kLeast = std::numeric_limits<std::int64_t>::min();
  constexpr Int128 kMost = std::numeric_limits<std::int64_t>::max();
  return static_cast<std::int64_t>(std::clamp(whole, kLeast, kMost));
}

}  // namespace

Value::Value(const Value& other) = default;
Value::Value(Value&& other) noexcept = default;
Value& Value::operator=(const Value& other) = default;
Value& Value::operator=(Value&& other) noexcept = default;
Value::~Value() = default;

std::int64_t Value::AsInteger() const {
  if (const auto* number = std::get_if<std::int64_t>(&data_)) return *number;
  return WholePart(AsDecimal());
}

Decimal Value::AsDecimal() const {
  if (const auto* number = std::get_if<std::int64_t>(&data_)) return Decimal(*number);
  if (const auto* number = std::get_if<Decimal>(&data_)) return *number;
  if (const auto* text = std::get_if<std::string>(&data_))
    return Decimal::Parse(Trim(*text)).value_or(Decimal());
  return Decimal();
}

std::string Value::AsText() const {
  if (const auto* number = std::get_if<std::int64_t>(&data_)) return std::to_string(*number);
  if (const auto* number = std::get_if<Decimal>(&data_)) return number->ToString();
  if (const auto* text = std::get_if<std::string>(&data_)) return *text;
  return {};
}

bool operator==(const Value& a, const Value& b) {
  if (a.data_.index() == b.data_.index()) return a.data_ == b.data_;
  return a.IsNumber() && b.IsNumber() && a.AsDecimal() == b.AsDecimal();
}

}  // namespace goods
