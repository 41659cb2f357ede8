// A decimal by its text.
#pragma once

#include <string_view>

#include "host/data/decimal.h"

namespace goods::test {

inline Decimal Of(std::string_view text) { return Decimal::Parse(text).value(); }

}  // namespace goods::test
