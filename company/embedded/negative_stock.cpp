#include "company/embedded/negative_stock.h"

#include "company/embedded/computed_table.h"
#include "company/embedded/decimal_cell.h"
#include "company/embedded/derived_columns.h"
#include "company/embedded/sqlite.h"

namespace goods {

namespace {

constexpr char kStockCards[] =
    "SELECT Kala, Date, Radif, Anbar, Percode, Tedad, Gheymat, Comment FROM Kardex ORDER BY Kala, Date, "
    "Radif";
constexpr char kStockCard[] =
    "SELECT Kala, Date, Radif, Anbar, Percode, Tedad, Gheymat, Comment FROM Kardex WHERE Kala = ?1"
    " ORDER BY Date, Radif";
enum ColumnIndex : int { kKala = 0, kAnbar = 3, kTedad = 5 };

class NegativeRows : public ComputedRows {
 public:
  NegativeRows(sqlite3* db, std::optional<std::int64_t> good) : card_(db, good ? kStockCard : kStockCards) {
    if (good) card_.Bind(1, *good);
  }

  bool Next() override {
    while (card_.Step()) {
      const std::int64_t good = card_.Integer(kKala);
      if (good != good_) {
        good_ = good;
        inStore_ = KeyedSums();
      }
      const Int128 quantity = ColumnUnits(card_.Handle(), kTedad);
      const Decimal left = inStore_.Add(card_.Integer(kAnbar), Decimal::FromUnits(quantity));
      if (quantity < 0 && left < Decimal()) return true;
    }
    return false;
  }

  void Cell(sqlite3_context* context, int column) const override {
    sqlite3_result_value(context, sqlite3_column_value(card_.Handle(), column));
  }

 private:
  Statement card_;
  std::int64_t good_ = 0;
  KeyedSums inStore_;
};

}  // namespace

void RegisterNegativeStock(sqlite3* db) {
  static constexpr ComputedTable kTable = {
      "negative_stock", "CREATE TABLE x(Kala, Date, Radif, Anbar, Percode, Tedad, Gheymat, Comment)", 3,
      OpenComputed<NegativeRows>};
  RegisterComputedTable(db, kTable);
}

}  // namespace goods
