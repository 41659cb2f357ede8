// Colours, and the texts that name them in company data.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace goods {

// A colour as 0xRRGGBB.
using Color = std::uint32_t;

inline constexpr Color kWhite = 0xFFFFFF;

// The colour of a text: "$00BBGGRR" or "$BBGGRR" (hexadecimal, blue first), "#RRGGBB", the same number in
// decimal, or one of the sixteen basic names with "cl" before it ("clRed"), letter case apart. None for
// anything else.
std::optional<Color> ParseColor(std::string_view text);

}  // namespace goods
