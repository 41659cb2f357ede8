// Texts that windows hand to each other.
#pragma once

#include <string>
#include <string_view>

#include "host/core/text.h"

namespace goods {

// A text as one position of a custom parameter: a ";" inside would shift the positions behind it.
inline std::string AsPosition(std::string_view text) { return ReplaceAll(text, ";", " "); }

}  // namespace goods
