// One cell's value, as it is passed around by value.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "host/data/decimal.h"

namespace goods {

enum class ColumnType { Integer, Decimal, Text };

// A cell: null, an integer, a decimal or a text.
class Value {
 public:
  Value() = default;
  // Out of line: inlined into others, g++ 12 takes the text that is not there for one read before it is made.
  Value(const Value& other);
  Value(Value&& other) noexcept;
  Value& operator=(const Value& other);
  Value& operator=(Value&& other) noexcept;
  ~Value();
  Value(std::int64_t number) : data_(number) {}                    // NOLINT: a literal is a value
  Value(int number) : data_(static_cast<std::int64_t>(number)) {}  // NOLINT
  Value(Decimal number) : data_(number) {}                         // NOLINT
  Value(std::string text) : data_(std::move(text)) {}              // NOLINT
  Value(std::string_view text) : data_(std::string(text)) {}       // NOLINT
  Value(const char* text) : data_(std::string(text)) {}            // NOLINT

  bool IsNull() const { return std::holds_alternative<std::monostate>(data_); }
  bool IsText() const { return std::holds_alternative<std::string>(data_); }
  bool IsNumber() const { return !IsNull() && !IsText(); }
  // Conversions that reports rely on: null is 0 or the empty text; a text that is not a number is 0; a
  // decimal as an integer drops its decimals, and one beyond 64 bits gives the nearest integer that fits.
  // Blanks around a number in a text do not matter.
  std::int64_t AsInteger() const;
  Decimal AsDecimal() const;
  std::string AsText() const;
  // A text as it is held, empty for anything else; valid as long as the value.
  std::string_view Text() const {
    const auto* text = std::get_if<std::string>(&data_);
    return text == nullptr ? std::string_view() : *text;
  }
  bool AsBoolean() const { return AsInteger() != 0; }

  // Null equals null only; an integer and a decimal of equal amount are equal; texts compare exactly.
  friend bool operator==(const Value& a, const Value& b);

 private:
  std::variant<std::monostate, std::int64_t, Decimal, std::string> data_;
};

}  // namespace goods
