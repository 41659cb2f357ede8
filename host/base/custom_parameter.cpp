#include "host/base/custom_parameter.h"

#include "host/core/text.h"

namespace goods {

CustomParameter::CustomParameter(const Variant& parameter) {
  if (const auto* number = std::get_if<std::int64_t>(&parameter)) {
    values_ = {std::to_string(*number)};
  } else if (const auto* text = std::get_if<std::string>(&parameter); text != nullptr && !text->empty()) {
    values_ = Split(*text, ';');
    if (values_.back().empty()) values_.pop_back();  // what stands behind the closing ";"
  }
}

std::int64_t CustomParameter::Integer(std::size_t position) const {
  return ParseInteger(Trim(Text(position))).value_or(0);
}

std::string CustomParameter::Text(std::size_t position) const {
  return position < values_.size() ? values_[position] : std::string();
}

}  // namespace goods
