#include "company/embedded/negative_stock.h"

#include "company/embedded/computed_table.h"
#include "company/embedded/decimal_cell.h"
#include "company/embedded/keyed_entries.h"
#include "company/embedded/sqlite.h"

namespace goods {

namespace {

constexpr char kStockCards[] =
    "SELECT Kala, Date, Radif, Anbar, Percode, Tedad, Gheymat, Comment, Type, OperationCode FROM Kardex"
    " ORDER BY Kala, Date, Radif";
constexpr char kStockCard[] =
    "SELECT Kala, Date, Radif, Anbar, Percode, Tedad, Gheymat, Comment, Type, OperationCode FROM Kardex"
    " WHERE Kala = ?1 ORDER BY Date, Radif";
enum ColumnIndex : int { kKala = 0, kAnbar = 3, kTedad = 5 };

class NegativeRows : public ComputedRows {
 public:
  explicit NegativeRows(sqlite3* db) : db_(db) {}

  void Start(std::span<sqlite3_value* const> given) override {
    const std::optional<std::int64_t> good = GoodIn(given);
    card_ = Statement(db_, good ? kStockCard : kStockCards);
    if (good) card_.Bind(1, *good);
    inStore_.Clear();
  }

  bool Next() override {
    while (card_.Step()) {
      const std::int64_t good = card_.Integer(kKala);
      if (good != good_) {
        good_ = good;
        inStore_.Clear();
      }
      const Int128 quantity = ColumnUnits(card_.Handle(), kTedad);
      const Decimal left = inStore_.Of(card_.Integer(kAnbar)) += Decimal::FromUnits(quantity);
      if (quantity < 0 && left < Decimal()) return true;
    }
    return false;
  }

  void Cell(sqlite3_context* context, int column) const override {
    sqlite3_result_value(context, sqlite3_column_value(card_.Handle(), column));
  }

 private:
  sqlite3* db_;
  Statement card_;
  std::int64_t good_ = 0;
  KeyedSums inStore_;
};

}  // namespace

void RegisterNegativeStock(sqlite3* db) {
  static constexpr ComputedTable kTable = {
      "negative_stock",
      "CREATE TABLE x(Kala, Date, Radif, Anbar, Percode, Tedad, Gheymat, Comment, Type, OperationCode)", 0, 3,
      MakeComputed<NegativeRows>};
  RegisterComputedTable(db, kTable);
}

}  // namespace goods
