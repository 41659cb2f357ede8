// Movements as they are handed over to a company.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "host/data/decimal.h"

namespace goods {

// Largest quantity of a row and largest unit price that a company holds. With both, an amount always fits.
inline constexpr std::int64_t kLargestQuantity = 4'600'000'000;
inline constexpr std::int64_t kLargestPrice = 1'000'000'000'000'000;
inline constexpr std::int64_t kLargestCode = 2'147'483'647;
inline constexpr std::int64_t kLargestDocument = 999'999'999'999'999;
// An opening stock: it belongs to the good's own record and has no document.
inline constexpr int kOpeningType = 3;

// The quantity in second units: quantity / ratio, rounded to nine decimals; none when it is beyond
// kLargestQuantity. A ratio of 0 stands for no second unit and gives 0.
std::optional<Decimal> SecondQuantity(Decimal quantity, Decimal ratio);

struct Movement {
  std::string_view date;  // "yyyy/mm/dd", Jalali
  std::int64_t good = 0;
  std::int64_t store = 0;
  std::int64_t person = 0;  // 0: none
  int type = 0;
  Decimal quantity;  // positive incoming, negative outgoing, never 0
  // Unit price on the document. On an incoming row of a type whose price is the cost it moves the average.
  std::optional<Decimal> price;
  std::int64_t document = 0;
  std::int64_t row = 0;  // within the document, from 1; 0: numbered by the writer, in the order added
  std::string_view comment;
  // The place among the rows of one date, from 1, and the row's Radif in a new company; 0: as it is added.
  // Either every movement has one or none, and no two the same.
  std::int64_t order = 0;
};

struct DetailMovement {
  std::int64_t radif = 0;  // of the movement that it splits
  std::int64_t valueId = 0;
  Decimal amount;  // signed as the movement
  Decimal amount2;
  Decimal count;
  Decimal length;
  Decimal width;
};

// A detail row or a remark that found nothing to belong to; tag is what it was added with.
struct Unattached {
  enum class Kind { DetailWithoutMovement, RepeatedDetail, RemarkWithoutDocument };
  Kind kind;
  std::size_t tag;
};

}  // namespace goods
