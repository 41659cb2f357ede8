// Random companies for the goods turnover list, and the list worked out from their tables apart from the
// procedure.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "asset_company.h"

namespace goods {

// 16 goods in three groups, four stores. Some goods have a second unit, tags (one that the company does not
// know) and categories; one never moved, one moved in a single store, one came and went. Saved lists 1 (goods
// 1, 3, 5 and the one that never moved) and 2 (empty). large: amounts leave 64 bits.
void WriteTurnoverCompany(const std::string& path, unsigned seed, bool large = false);
inline constexpr std::int64_t kTurnoverGoods = 16;
inline constexpr std::int64_t kNeverMoved = 16;
inline constexpr std::int64_t kCameAndWent = 15;

struct TurnoverFigures {
  std::optional<std::string> from;  // either: a period
  std::optional<std::string> to;
  std::int64_t store = 0;  // 0: all
  bool otherStores = false;
  // The arguments of RialiStock_SP.
  int basis = -1;
  int buyFlag = -1;
  int level = -1;

  std::string Parameters() const;
};

struct TurnoverRow {
  std::int64_t code = 0;
  std::int64_t group = 0;
  std::string name, abbName, unitName1, unitName2, operationDate, tags, categories;
  Decimal varede, sadere, stock, average, price, minimum;
  std::optional<Decimal> ratio;
  std::vector<std::string> colors;            // of the first three tags; "" for none
  std::map<std::string, std::string> stored;  // the columns that stand in the table

  Decimal Whole() const;
  Decimal Value() const { return stock * average; }
  bool HasTag(std::int64_t tag) const;
  bool HasCategory(std::int64_t category) const;
  // In the order of the list's columns; null is the empty text.
  std::vector<std::string> Cells() const;
};

class TurnoverTables {
 public:
  explicit TurnoverTables(IConnection& connection);
  // All goods by code.
  std::vector<TurnoverRow> Rows(const TurnoverFigures& figures) const;
  // A date on which something moved.
  const std::string& AnyDate(std::mt19937& random) const;

 private:
  void AddUp(TurnoverRow& row, const TurnoverFigures& figures) const;
  Decimal Price(std::int64_t good, const TurnoverFigures& figures) const;

  std::vector<TurnoverRow> goods_;
  std::vector<MovedRow> movements_;
  std::map<std::int64_t, Decimal> consumerPrices_;
  std::map<std::pair<std::int64_t, std::int64_t>, std::pair<Decimal, Decimal>> levels_;  // buying, selling
};

// One criterion: its parameters, and which rows meet it.
struct TurnoverCriterion {
  std::string parameters;
  std::function<bool(const TurnoverRow&)> holds;
};
inline constexpr int kTurnoverCriteria = 16;
// Of that kind (0 to kTurnoverCriteria - 1), its values drawn from the rows or at random.
TurnoverCriterion RandomTurnoverCriterion(int kind, const std::vector<TurnoverRow>& rows,
                                          std::mt19937& random, bool exclude);

}  // namespace goods
