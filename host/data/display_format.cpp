#include "host/data/display_format.h"

#include <algorithm>
#include <vector>

#include "host/core/text.h"
#include "host/data/wide_integer.h"

namespace goods {
namespace {

// Thousands separated from the right.
std::string Grouped(std::string_view digits) {
  std::string out;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) out.push_back(',');
    out.push_back(digits[i]);
  }
  return out;
}

}  // namespace

DisplayFormat::DisplayFormat(std::string_view text) {
  const std::vector<std::string> parts = Split(text, ';');
  const auto section = [&parts](std::size_t index) -> std::optional<Section> {
    if (index >= parts.size() || parts[index].empty()) return std::nullopt;
    return ParseSection(parts[index]);
  };
  positive_ = section(0);
  negative_ = section(1);
  zero_ = section(2);
}

DisplayFormat::Section DisplayFormat::ParseSection(std::string_view text) {
  Section section;
  bool inDecimals = false;
  int decimals = 0;
  for (const char c : text) {
    if (c == '0' || c == '#') {
      section.digits = true;
      if (inDecimals) {
        ++decimals;
        if (c == '0') section.minDecimals = decimals;
      } else if (c == '0' || section.minWhole > 0) {
        ++section.minWhole;
      }
    } else if (c == '.' && !inDecimals) {
      inDecimals = true;
    } else if (c == ',' && !inDecimals) {
      section.grouped = true;
    } else {
      (section.digits ? section.after : section.before).push_back(c);
    }
  }
  section.maxDecimals = std::min(decimals, Decimal::kDecimals);
  if (!section.digits) section.before = text;
  return section;
}

std::string DisplayFormat::FormatSection(const Section& section, Decimal value) {
  if (!section.digits) return section.before;
  const auto one = static_cast<UInt128>(PowerOfTen(section.maxDecimals));
  const UInt128 rounded = RoundedQuotient(
      Magnitude(value.Units()), static_cast<UInt128>(PowerOfTen(Decimal::kDecimals - section.maxDecimals)));

  std::string whole = rounded / one == 0 ? std::string() : DigitsOf(rounded / one);
  const auto minWhole = static_cast<std::size_t>(section.minWhole);
  if (whole.size() < minWhole) whole.insert(0, minWhole - whole.size(), '0');

  std::string decimals = DigitsOf(one + rounded % one).substr(1);  // the leading one keeps the zeros
  decimals.erase(decimals.find_last_not_of('0') + 1);
  const auto minDecimals = static_cast<std::size_t>(section.minDecimals);
  if (decimals.size() < minDecimals) decimals.append(minDecimals - decimals.size(), '0');

  std::string text = section.before + (section.grouped ? Grouped(whole) : whole);
  if (!decimals.empty()) text.append(".").append(decimals);
  return text + section.after;
}

std::string DisplayFormat::Format(Decimal value) const {
  if (!positive_) return value.ToString();
  const Section& signedSection = value.IsNegative() && negative_ ? *negative_ : *positive_;
  const int shown = signedSection.digits ? signedSection.maxDecimals : Decimal::kDecimals;
  const auto step = static_cast<UInt128>(PowerOfTen(Decimal::kDecimals - shown));
  if (RoundedQuotient(Magnitude(value.Units()), step) == 0) {
    return FormatSection(zero_ ? *zero_ : *positive_, Decimal());
  }
  std::string text = FormatSection(signedSection, value);
  return value.IsNegative() && !negative_ ? "-" + text : text;
}

std::string DisplayFormat::Format(const Value& value) const {
  if (value.IsNull()) return {};
  return value.IsText() ? value.AsText() : Format(value.AsDecimal());
}

}  // namespace goods
