// A good's stock card with new rows, worked out anew from the first of them on.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "company/embedded/sqlite.h"
#include "company/writer/movement_intake.h"
#include "company/writer/stock_card.h"

namespace goods {

// A new row that owns its texts.
struct NewCardRow {
  explicit NewCardRow(const WaitingMovement& source);
  WaitingMovement View() const;
  Movement movement;
  std::int64_t radif = 0;
  std::string date;
  std::string comment;
};

class CardReworker {
 public:
  CardReworker(Database& db, const MovementKinds& kinds);
  // rows by date and Radif, each Radif beyond those of the company. whole: from the good's first row on, with
  // its quantities in the second unit.
  void Rework(std::int64_t good, const std::vector<NewCardRow>& rows, bool whole);

 private:
  struct Change {
    std::string date;
    std::int64_t radif = 0;
    Decimal second;
    StockCosts costs;
  };

  void TakeStored(StockCard& card, bool fresh, bool whole);
  void TakeNew(StockCard& card, const NewCardRow& row);
  void WriteChanges(std::int64_t good);
  Decimal Second(const StockCard& card, Decimal quantity) const;

  const MovementKinds& kinds_;
  Statement stored_;
  Statement ratio_;
  Statement update_;
  Statement insert_;
  FigureWriter figures_;
  std::vector<Change> changes_;
  std::vector<Change> costsOfNew_;
};

}  // namespace goods
