// What is worked out along one good's stock card: costs, averages, and the figures that are stored of it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "company/embedded/packed_movements.h"
#include "company/embedded/sqlite.h"
#include "host/data/decimal.h"

namespace goods {

struct StockCosts {
  Decimal cost;     // what one unit cost
  Decimal price;    // unit price on the document; the cost where the document has none
  Decimal average;  // after the row
};

// One good's running figures. Rows are given in the order of date and Radif.
class StockCard {
 public:
  struct StoreFigures {
    Decimal in;
    Decimal out;  // positive
    std::string lastDate;
  };

  void Begin(std::int64_t good, Decimal ratio);
  std::int64_t Good() const { return good_; }
  Decimal Ratio() const { return ratio_; }

  // Moves the card past a row and works out what it cost. priceIsCost: the type's price is what goods cost.
  StockCosts Advance(Decimal quantity, const std::optional<Decimal>& price, bool priceIsCost);
  // Moves the card past a row whose average is known.
  void Pass(Decimal quantity, Decimal average);
  // Goes on from another average than the one worked out.
  void SetAverage(Decimal average) { average_ = average; }
  // Adds the row to the figures that are stored; after Advance or Pass.
  void Count(std::string_view date, std::int64_t store, int type, Decimal quantity, Decimal second,
             Decimal cost);

 private:
  friend class FigureWriter;
  std::int64_t good_ = 0;
  Decimal ratio_;
  Decimal stock_;
  Decimal average_;
  Decimal in_;
  Decimal out_;
  Decimal opening_;
  Decimal openingCost_;
  Decimal openingSecond_;
  std::string lastDate_;
  std::map<std::int64_t, StoreFigures> stores_;
  MovementPacker packer_;
};

// Stores the figures of cards. They are those of UpdateMogodiKala and DefineRemainInStore, worked out on the
// way instead of by reading the movements again; and the cards' movements packed.
class FigureWriter {
 public:
  explicit FigureWriter(Database& db);
  // The card's packed movements are taken from it.
  void Write(StockCard& card);

 private:
  Statement stock_;
  Statement good_;
  Statement clearStores_;
  Statement store_;
  PackedWriter packed_;
};

}  // namespace goods
