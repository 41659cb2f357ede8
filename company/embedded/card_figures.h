// CardFigures: what came in and went out of a good before a date, from its stock card.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "company/embedded/statement_parser.h"
#include "host/data/decimal.h"
#include "host/data/row_store.h"

namespace goods {

// "What came in and went out of this good before that date, in one store or in all".
struct FiguresQuestion {
  std::int64_t good = 0;
  std::string before;
  std::optional<std::int64_t> store;
};

// The question that a statement asks of the movements, if it is this one and nothing else.
std::optional<FiguresQuestion> AskedFigures(const QueryStatement& query);

// Sums for each day and store of the card that was read last, so that a card of a million rows need not be
// read again for what it came to before a date. Whoever keeps them forgets them when the data are others.
class CardFigures {
 public:
  static constexpr std::size_t kFewestRows = 1000;  // fewer are read again as fast
  static constexpr std::size_t kMostSums = 65536;   // days times stores; a card with more is not kept

  struct Sums {
    Decimal incoming;
    Decimal outgoing;  // negative
  };

  // rows: the answer of Kardex_Proc, by date.
  void Keep(std::int64_t good, const RowStore& rows);
  void Forget();
  // Whether that good's card is kept.
  bool Holds(std::int64_t good) const { return good_ == good; }
  // Of the good whose card is kept.
  Sums Before(const FiguresQuestion& question) const;

 private:
  struct StoreSums {
    std::int64_t store = 0;
    Sums sums;
  };
  struct Day {
    std::string date;
    std::size_t first = 0;  // of sums_
  };
  bool AddDay(std::string_view date);

  std::optional<std::int64_t> good_;
  std::vector<Day> days_;
  std::vector<StoreSums> sums_;
};

}  // namespace goods
