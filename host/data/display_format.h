// Display formats: the three-section texts that number columns carry, such as "#,0.##;#,0.##-;0".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/data/value.h"

namespace goods {

// A parsed format: sections for positive, negative and zero, separated by ";". "0" is a digit that always
// shows, "#" a digit that shows where it counts, "," anywhere before the point groups thousands, "." starts
// the decimals; any other character stands for itself, at its place before or after the digits. A value that
// rounds to zero at the section's decimals is shown by the zero section. Without a negative section the
// positive one is used behind "-"; without a zero section the positive one (an empty
// section counts as missing). A section without digits is its own text. Rounding is half away from zero.
// An empty format gives the shortest exact text.
class DisplayFormat {
 public:
  DisplayFormat() = default;
  explicit DisplayFormat(std::string_view text);
  std::string Format(Decimal value) const;
  // The decimals that it shows at most, 0 to 9; -1 where it shows all that there are.
  int Decimals() const { return positive_ ? positive_->maxDecimals : -1; }
  // A null is the empty text; a text stands as it is; a number is formatted.
  std::string Format(const Value& value) const;

 private:
  struct Section {
    std::string before;
    std::string after;
    int minWhole = 0;
    int minDecimals = 0;
    int maxDecimals = 0;
    bool grouped = false;
    bool digits = false;  // false: only literal text
  };
  static Section ParseSection(std::string_view text);
  static std::string FormatSection(const Section& section, Decimal value);

  std::optional<Section> positive_;
  std::optional<Section> negative_;
  std::optional<Section> zero_;
};

// The formats of quantities and of amounts, in cells and footers alike.
inline constexpr std::string_view kQuantityFormat = "#0.####;#0.####-;0";
inline constexpr std::string_view kAmountFormat = "#,0.##;#,0.##-;0";

}  // namespace goods
