// The price-history rules: stock valued at a price that the good was bought or sold for.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace goods {

struct PriceHistoryKind {
  int code;
  std::string_view name;  // as the list shows it
};

// In the order of the list: purchase prices 1 to 3, sale prices 11 to 13.
std::span<const PriceHistoryKind> PriceHistoryKinds();

// Where the rule of that code stands in the list; none for another code.
std::optional<std::size_t> PriceHistoryRow(std::int64_t code);

}  // namespace goods
