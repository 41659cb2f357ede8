#include "company/writer/stock_card.h"

#include <stdexcept>

#include "company/writer/movement.h"
#include "company/writer/moving_average.h"

namespace goods {

std::optional<Decimal> SecondQuantity(Decimal quantity, Decimal ratio) {
  if (ratio.IsZero()) return Decimal();
  try {
    const Decimal second = quantity / ratio;
    if (second.Abs() > Decimal(kLargestQuantity)) return std::nullopt;
    return second;
  } catch (const std::overflow_error&) {
    return std::nullopt;
  }
}

void StockCard::Begin(std::int64_t good, Decimal ratio) {
  *this = StockCard();
  good_ = good;
  ratio_ = ratio;
}

StockCosts StockCard::Advance(Decimal quantity, const std::optional<Decimal>& price, bool priceIsCost) {
  StockCosts costs;
  if (quantity > Decimal() && priceIsCost && price) {
    costs.cost = *price;
    average_ = MovingAverage(stock_, average_, quantity, *price);
  } else {
    costs.cost = average_;
  }
  costs.price = price.value_or(costs.cost);
  costs.average = average_;
  stock_ += quantity;
  return costs;
}

void StockCard::Pass(Decimal quantity, Decimal average) {
  stock_ += quantity;
  average_ = average;
}

void StockCard::Count(std::string_view date, std::int64_t store, int type, Decimal quantity, Decimal second,
                      Decimal cost) {
  packer_.Add(date, store, type, quantity, cost, average_);
  StoreFigures& figures = stores_[store];
  if (quantity.IsNegative()) {
    out_ -= quantity;
    figures.out -= quantity;
  } else {
    in_ += quantity;
    figures.in += quantity;
  }
  if (date > lastDate_) lastDate_ = date;
  if (date > figures.lastDate) figures.lastDate = date;
  if (type != kOpeningType) return;
  opening_ += quantity;
  openingCost_ += quantity * cost;
  openingSecond_ += second;
}

FigureWriter::FigureWriter(Database& db)
    : stock_(db.Prepare(
          "INSERT OR REPLACE INTO GoodStock(Kala, varede, sadere, Mogodi, Mogodi2, gheymat_miangin, Jam_Kol,"
          " OperationDate) VALUES(?1, ?2, ?3, dec_sub(?2, ?3),"
          " ifnull(dec_whole(dec_sub(?2, ?3), nullif(?4, 0)), 0), ?5, dec_mul(dec_sub(?2, ?3), ?5), ?6)")),
      good_(db.Prepare(
          "UPDATE GoodInf SET AvaBgPrd = ?2, CostBgPrd = ?3, AvaBgPrd2 = ?4, CurAva ="
          " CASE typeof(dec_trunc(?5)) WHEN 'integer' THEN dec_trunc(?5) / 1000000000 ELSE CurAva END"
          " WHERE Code = ?1")),
      clearStores_(db.Prepare("DELETE FROM GoodStoreStock WHERE Kala = ?1")),
      store_(db.Prepare("INSERT INTO GoodStoreStock(Kala, Anbar, Mogodi, varede, sadere, OperationDate)"
                        " VALUES(?1, ?2, ?3, ?4, ?5, ?6)")),
      packed_(db) {}

void FigureWriter::Write(StockCard& card) {
  stock_.Bind(1, card.good_);
  stock_.Bind(2, card.in_);
  stock_.Bind(3, card.out_);
  stock_.Bind(4, card.ratio_);
  stock_.Bind(5, card.average_);
  stock_.Bind(6, std::string_view(card.lastDate_));
  stock_.Run();
  good_.Bind(1, card.good_);
  good_.Bind(2, card.opening_);
  good_.Bind(3, card.openingCost_);
  good_.Bind(4, card.openingSecond_);
  good_.Bind(5, card.in_ - card.out_);
  good_.Run();
  clearStores_.Bind(1, card.good_);
  clearStores_.Run();
  for (const auto& [store, figures] : card.stores_) {
    store_.Bind(1, card.good_);
    store_.Bind(2, store);
    store_.Bind(3, figures.in - figures.out);
    store_.Bind(4, figures.in);
    store_.Bind(5, figures.out);
    store_.Bind(6, std::string_view(figures.lastDate));
    store_.Run();
  }
  packed_.Write(card.good_, card.packer_);
}

}  // namespace goods
