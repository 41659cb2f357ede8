#include "host/core/color.h"

#include <charconv>

#include "host/core/text.h"

namespace goods {
namespace {

struct NamedColor {
  std::string_view name;
  Color color;
};

constexpr NamedColor kNames[] = {
    {"clBlack", 0x000000},  {"clMaroon", 0x800000},  {"clGreen", 0x008000}, {"clOlive", 0x808000},
    {"clNavy", 0x000080},   {"clPurple", 0x800080},  {"clTeal", 0x008080},  {"clGray", 0x808080},
    {"clSilver", 0xC0C0C0}, {"clRed", 0xFF0000},     {"clLime", 0x00FF00},  {"clYellow", 0xFFFF00},
    {"clBlue", 0x0000FF},   {"clFuchsia", 0xFF00FF}, {"clAqua", 0x00FFFF},  {"clWhite", kWhite},
};

std::optional<Color> Number(std::string_view digits, int base) {
  Color number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  if (digits.empty() || error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

// Numbers of company data keep blue in the high byte.
std::optional<Color> BlueFirst(std::optional<Color> number) {
  if (!number || *number > 0xFFFFFF) return std::nullopt;
  return (*number & 0xFF) << 16 | (*number & 0xFF00) | *number >> 16;
}

}  // namespace

std::optional<Color> ParseColor(std::string_view text) {
  text = Trim(text);
  if (text.starts_with('$')) {
    return text.size() == 7 || text.size() == 9 ? BlueFirst(Number(text.substr(1), 16)) : std::nullopt;
  }
  if (text.starts_with('#')) return text.size() == 7 ? Number(text.substr(1), 16) : std::nullopt;
  for (const NamedColor& each : kNames) {
    if (SameText(each.name, text)) return each.color;
  }
  return BlueFirst(Number(text, 10));
}

}  // namespace goods
