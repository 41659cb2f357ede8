// The custom parameter of a window: a text of values separated by ";".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace goods {

// As the host hands it over: nothing, a number, or the text.
using Variant = std::variant<std::monostate, std::int64_t, std::string>;

// Reads by position from 0. A position that is not there reads as 0 or the empty text, and so
// does a number that is none or does not fit; positions beyond those that a window reads are ignored. No
// parameter, and an empty text, have no positions.
class CustomParameter {
 public:
  CustomParameter() = default;
  explicit CustomParameter(const Variant& parameter);

  std::size_t Count() const { return values_.size(); }
  std::int64_t Integer(std::size_t position) const;
  std::string Text(std::size_t position) const;

 private:
  std::vector<std::string> values_;
};

}  // namespace goods
