#include "company/writer/card_reworker.h"

#include <algorithm>
#include <optional>

#include "company/company.h"

namespace goods {

namespace {

// Columns of the rows that are stored already.
enum Stored : int { kDate, kRadif, kStore, kQuantity, kSecond, kCost, kPrice, kAverage, kType };

// Types whose rows have no price of their own on a document: transfers, what is used up or issued, vouchers
// that take out, splits.
constexpr int kUnpricedTypes[] = {6, 7, 9, 10, 11, 15, 17, 19, 21, 24, 25};

bool HasOwnPrice(int type) {
  return std::find(std::begin(kUnpricedTypes), std::end(kUnpricedTypes), type) == std::end(kUnpricedTypes);
}

}  // namespace

NewCardRow::NewCardRow(const WaitingMovement& source)
    : movement(source.movement),
      radif(source.radif),
      date(source.movement.date),
      comment(source.movement.comment) {}

WaitingMovement NewCardRow::View() const {
  WaitingMovement view;
  view.movement = movement;
  view.movement.date = date;
  view.movement.comment = comment;
  view.radif = radif;
  return view;
}

CardReworker::CardReworker(Database& db, const MovementKinds& kinds)
    : kinds_(kinds),
      stored_(db.Prepare("SELECT Date, Radif, Anbar, Tedad, Meghdar2, Gheymat, Fi, Miangin, Type FROM Kardex"
                         " WHERE Kala = ?1 ORDER BY Date, Radif")),
      ratio_(db.Prepare("SELECT ifnull(Meghdar_Formool, 0) FROM GoodInf WHERE Code = ?1")),
      update_(db.Prepare("UPDATE Kardex SET Meghdar2 = ?4, Gheymat = ?5, Fi = ?6, Miangin = ?7"
                         " WHERE Kala = ?1 AND Date = ?2 AND Radif = ?3")),
      insert_(db.Prepare("INSERT INTO Kardex(Kala, Date, Radif, Anbar, Percode, Tedad, Meghdar2, Gheymat, Fi,"
                         " Miangin, Type, OperationCode, OperationRow, Comment)"
                         " VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14)")),
      figures_(db) {}

Decimal CardReworker::Second(const StockCard& card, Decimal quantity) const {
  const std::optional<Decimal> second = SecondQuantity(quantity, card.Ratio());
  if (!second) throw CompanyError("مقدار کالا در واحد دوم از اندازه بزرگتر است.");
  return *second;
}

void CardReworker::TakeStored(StockCard& card, bool fresh, bool whole) {
  const Decimal quantity = stored_.Number(kQuantity);
  const int type = static_cast<int>(stored_.Integer(kType));
  Change change;
  change.second = stored_.Number(kSecond);
  change.costs = {stored_.Number(kCost), stored_.Number(kPrice), stored_.Number(kAverage)};
  if (fresh) {
    const Change before = change;
    std::optional<Decimal> price = before.costs.price;
    if (!HasOwnPrice(type) && before.costs.price == before.costs.cost) price.reset();
    change.costs = card.Advance(quantity, price, kinds_.priceIsCost[MovementKinds::Place(type)]);
    if (whole) change.second = Second(card, quantity);
    const bool same = change.second == before.second && change.costs.cost == before.costs.cost &&
                      change.costs.price == before.costs.price &&
                      change.costs.average == before.costs.average;
    if (!same) {
      change.date = stored_.Text(kDate);
      change.radif = stored_.Integer(kRadif);
      changes_.push_back(change);
    }
  } else {
    card.Pass(quantity, change.costs.average);
  }
  card.Count(stored_.Text(kDate), stored_.Integer(kStore), type, quantity, change.second, change.costs.cost);
}

void CardReworker::TakeNew(StockCard& card, const NewCardRow& row) {
  const Movement& movement = row.movement;
  Change made;
  made.costs = card.Advance(movement.quantity, movement.price,
                            kinds_.priceIsCost[MovementKinds::Place(movement.type)]);
  made.second = Second(card, movement.quantity);
  card.Count(row.date, movement.store, movement.type, movement.quantity, made.second, made.costs.cost);
  costsOfNew_.push_back(made);
}

void CardReworker::Rework(std::int64_t good, const std::vector<NewCardRow>& rows, bool whole) {
  changes_.clear();
  costsOfNew_.clear();
  StockCard card;
  ratio_.Bind(1, good);
  card.Begin(good, ratio_.Step() ? ratio_.Number(0) : Decimal());
  ratio_.Reset();
  // The rows that are there and the new ones, merged; the good's later rows are kept until the reading is
  // over.
  auto next = rows.begin();
  stored_.Bind(1, good);
  while (stored_.Step()) {
    for (; next != rows.end() && next->date < stored_.Text(kDate); ++next) TakeNew(card, *next);
    TakeStored(card, whole || next != rows.begin(), whole);
  }
  stored_.Reset();
  for (; next != rows.end(); ++next) TakeNew(card, *next);
  WriteChanges(good);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Movement& movement = rows[i].movement;
    const Change& made = costsOfNew_[i];
    insert_.Bind(1, good);
    insert_.Bind(2, std::string_view(rows[i].date));
    insert_.Bind(3, rows[i].radif);
    insert_.Bind(4, movement.store);
    insert_.Bind(5, movement.person);
    insert_.Bind(6, movement.quantity);
    insert_.Bind(7, made.second);
    insert_.Bind(8, made.costs.cost);
    insert_.Bind(9, made.costs.price);
    insert_.Bind(10, made.costs.average);
    insert_.Bind(11, std::int64_t{movement.type});
    insert_.Bind(12, movement.document);
    insert_.Bind(13, movement.row);
    insert_.Bind(14, std::string_view(rows[i].comment));
    insert_.Run();
  }
  figures_.Write(card);
}

void CardReworker::WriteChanges(std::int64_t good) {
  for (const Change& change : changes_) {
    update_.Bind(1, good);
    update_.Bind(2, std::string_view(change.date));
    update_.Bind(3, change.radif);
    update_.Bind(4, change.second);
    update_.Bind(5, change.costs.cost);
    update_.Bind(6, change.costs.price);
    update_.Bind(7, change.costs.average);
    update_.Run();
  }
}

}  // namespace goods
