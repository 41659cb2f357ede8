#include "company/demo/demo_movements.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "company/company.h"
#include "company/demo/demo_names.h"
#include "host/core/jalali.h"

namespace goods {

namespace {

constexpr std::int64_t kMilli = 1'000;
constexpr std::int64_t kPlanted = 24;
constexpr int kFirstYear = 1400;
constexpr int kLastYear = 1404;

Decimal Quantity(std::int64_t thousandths) {
  return Decimal::FromUnits(static_cast<Int128>(thousandths) * (Decimal::kOne / kMilli));
}

std::int64_t BusyPlace(std::int64_t goods) { return goods >= kBusyGood ? kBusyGood - 1 : 0; }

}  // namespace

DemoMovements::DemoMovements(CompanyWriter& writer, const DemoOptions& options,
                             std::span<const DemoGood> goods, DemoPeople people, Random& random,
                             std::function<void(std::int64_t)> progress)
    : writer_(writer),
      options_(options),
      goods_(goods),
      people_(people),
      random_(random),
      progress_(std::move(progress)),
      planted_(writer.Tables().Prepare(
          "INSERT INTO PlantedMismatches VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)")),
      stock_(static_cast<std::size_t>(options.goods * options.stores), 0) {
  std::int64_t values = 0;
  for (const DemoGood& good : goods_) values += good.detailValues;
  detailStock_.assign(static_cast<std::size_t>(values * options.stores), 0);
}

void DemoMovements::Run() {
  const std::int64_t first = DaysFromJalali({kFirstYear, 1, 1});
  const std::int64_t days = DaysFromJalali({kLastYear + 1, 1, 1}) - first;
  for (day_ = 0; day_ < days; ++day_) {
    date_ = FormatJalali(JalaliFromDays(first + day_));
    if (day_ == 0) Opening();
    const std::int64_t due = options_.movements * (day_ + 1) / days;
    while (made_ < due) OneDocument();
    if (progress_) progress_(made_);
  }
}

void DemoMovements::Opening() {
  const std::int64_t most = options_.movements / 4;
  const std::int64_t moving = options_.goods - (options_.goods > 1 ? 1 : 0);
  for (std::int64_t good = 0; good < moving && made_ < most; ++good) {
    if (good % 10 == 9) continue;
    Document document;
    document.code = good + 1;
    for (std::int64_t store = 1; store <= std::min<std::int64_t>(2, options_.stores) && made_ < most;
         ++store) {
      Write(document, {good, store, 3, BuyQuantity(good), Price(good)});
    }
  }
}

void DemoMovements::OneDocument() {
  const std::int64_t before = made_;
  const std::int64_t draw = random_.Below(1000);
  if (draw < 400) {
    Outgoing(1, false);
  } else if (draw < 590) {
    Incoming(2, true);
  } else if (draw < 620) {
    Incoming(4, false);
  } else if (draw < 640) {
    Outgoing(5, true);
  } else if (draw < 720) {
    Transfer();
  } else if (draw < 750) {
    Production(8, 9, -1);
  } else if (draw < 780) {
    Production(0, 10, -1);
  } else if (draw < 805) {
    Production(18, 19, 20);
  } else if (draw < 840) {
    Outgoing(11, false);
  } else if (draw < 890) {
    Outgoing(21, false);
  } else if (draw < 945) {
    Incoming(22, true);
  } else if (draw < 955) {
    Incoming(23, false);
  } else if (draw < 980) {
    Voucher();
  } else {
    Split();
  }
  // A company without stock buys.
  if (made_ == before) Incoming(2, true);
}

DemoMovements::Document DemoMovements::Begin(int kind, std::int64_t person) {
  Document document;
  document.code = ++numbers_[static_cast<std::size_t>(kind)];
  document.store = random_.Below(options_.stores) + 1;
  document.person = person;
  return document;
}

void DemoMovements::Incoming(int type, bool fromSupplier) {
  const int kind = static_cast<int>(*DocumentKindOfMovement(type));
  Document document = Begin(kind, fromSupplier ? Supplier() : Customer());
  const std::int64_t rows = std::min(random_.Between(1, 5), Left());
  for (std::int64_t i = 0; i < rows; ++i) {
    const std::int64_t good = AnyGood();
    std::int64_t quantity = BuyQuantity(good);
    if (type == 4) quantity = std::max(kMilli, quantity / 20 / kMilli * kMilli);
    const std::int64_t price = type == 4 ? Price(good) * 118 / 100 : Price(good);
    Write(document, {good, document.store, type, quantity, price});
  }
}

void DemoMovements::Outgoing(int type, bool toSupplier) {
  const int kind = static_cast<int>(*DocumentKindOfMovement(type));
  Document document = Begin(kind, toSupplier ? Supplier() : Customer());
  const std::int64_t rows = std::min(random_.Between(1, 6), Left());
  for (std::int64_t i = 0; i < rows; ++i) {
    const std::int64_t good = GoodInStore(document.store);
    const std::int64_t quantity = good < 0 ? 0 : TakeQuantity(good, document.store);
    if (quantity == 0) continue;
    int rowType = type;
    std::int64_t price = type == 1 || type == 5 ? Price(good) * 118 / 100 : -1;
    if (type == 1 && i > 0 && random_.Percent(8)) {
      rowType = random_.Percent(50) ? 12 : 13;
      if (rowType == 13) price = 0;
    }
    Write(document, {good, document.store, rowType, -quantity, price});
  }
  if (document.rows == 0) --numbers_[static_cast<std::size_t>(kind)];
}

void DemoMovements::Transfer() {
  if (options_.stores < 2) return;
  constexpr auto kKind = static_cast<int>(DocumentKind::Transfer);
  Document document = Begin(kKind, 0);
  const std::int64_t to = document.store % options_.stores + 1;
  const std::int64_t rows = std::min(random_.Between(1, 3), Left() / 2);
  for (std::int64_t i = 0; i < rows; ++i) {
    const std::int64_t good = GoodInStore(document.store);
    const std::int64_t quantity = good < 0 ? 0 : TakeQuantity(good, document.store);
    if (quantity == 0) continue;
    Write(document, {good, document.store, 6, -quantity, -1});
    Write(document, {good, to, 7, quantity, -1});
  }
  if (document.rows == 0) --numbers_[static_cast<std::size_t>(kKind)];
}

void DemoMovements::Production(int made, int used, int besides) {
  const int kind = static_cast<int>(*DocumentKindOfMovement(made));
  if (Left() < 2) return;
  Document document = Begin(kind, 0);
  const std::int64_t materials = std::min(random_.Between(1, 3), Left() - 1);
  for (std::int64_t i = 0; i < materials; ++i) {
    const std::int64_t good = GoodInStore(document.store);
    const std::int64_t quantity = good < 0 ? 0 : TakeQuantity(good, document.store);
    if (quantity > 0) Write(document, {good, document.store, used, -quantity, -1});
  }
  if (document.rows == 0) {
    --numbers_[static_cast<std::size_t>(kind)];
    return;
  }
  const std::int64_t product = AnyGood();
  Write(document,
        {product, document.store, made, BuyQuantity(product) / 4 / kMilli * kMilli + kMilli, Price(product)});
  if (besides >= 0 && Left() > 0 && random_.Percent(30)) {
    const std::int64_t good = AnyGood();
    Write(document, {good, document.store, besides, kMilli * random_.Between(1, 5), Price(good) / 2});
  }
}

void DemoMovements::Voucher() {
  constexpr auto kKind = static_cast<int>(DocumentKind::Voucher);
  Document document = Begin(kKind, Customer());
  const int pair = random_.Percent(50) ? 14 : 16;
  if (random_.Percent(50)) {
    const std::int64_t good = AnyGood();
    Write(document, {good, document.store, pair, kMilli * random_.Between(1, 9), Price(good)});
    return;
  }
  const std::int64_t good = GoodInStore(document.store);
  const std::int64_t quantity = good < 0 ? 0 : TakeQuantity(good, document.store);
  if (quantity > 0) Write(document, {good, document.store, pair + 1, -quantity, -1});
  if (document.rows == 0) --numbers_[static_cast<std::size_t>(kKind)];
}

void DemoMovements::Split() {
  if (Left() < 2) return;
  for (int attempt = 0; attempt < 12; ++attempt) {
    const std::int64_t good = AnyGood();
    const std::int64_t store = random_.Below(options_.stores) + 1;
    if (goods_[static_cast<std::size_t>(good)].detailValues == 0 || Stock(good, store) < kMilli) continue;
    Document document = Begin(static_cast<int>(DocumentKind::DetailSplit), 0);
    document.store = store;
    const std::int64_t quantity = TakeQuantity(good, store);
    Write(document, {good, store, 24, -quantity, -1});
    Write(document, {good, store, 25, quantity, -1});
    return;
  }
}

void DemoMovements::Write(Document& document, const Row& row) {
  const DemoGood& good = goods_[static_cast<std::size_t>(row.good)];
  Movement movement;
  movement.date = date_;
  movement.good = row.good + 1;
  movement.store = row.store;
  movement.person = document.person;
  movement.type = row.type;
  movement.quantity = Quantity(row.quantity);
  if (row.price >= 0) movement.price = Decimal(row.price);
  movement.document = document.code;
  movement.row = ++document.rows;
  movement.comment = DemoComment(row.type, document.code);
  const std::int64_t radif = writer_.Add(movement);
  Stock(row.good, row.store) += row.quantity;
  ++made_;
  if (row.good == BusyPlace(options_.goods)) ++busyMade_;
  if (good.detailValues > 0) WriteDetails(movement, row, radif);
}

// Every so often the details of a row are made to tell another quantity than the row: less, more, or nothing.
std::int64_t DemoMovements::PlantMismatch(const Movement& movement, const Row& row, std::int64_t radif) {
  const std::int64_t period = std::max<std::int64_t>(11, options_.movements / 400);
  if (++detailRows_ % period != 10 || plantedCount_ >= kPlanted) return row.quantity;
  const std::int64_t unit = row.quantity < 0 ? -kMilli : kMilli;
  const std::int64_t told = plantedCount_ % 3 == 0   ? row.quantity + unit
                            : plantedCount_ % 3 == 1 ? row.quantity + 2 * unit
                                                     : 0;
  ++plantedCount_;
  planted_.Bind(1, movement.good);
  planted_.Bind(2, movement.store);
  planted_.Bind(3, movement.date);
  planted_.Bind(4, radif);
  planted_.Bind(5, std::int64_t{movement.type});
  planted_.Bind(6, movement.document);
  planted_.Bind(7, movement.row);
  planted_.Bind(8, movement.quantity);
  planted_.Bind(9, Quantity(told));
  planted_.Run();
  return told;
}

void DemoMovements::WriteDetails(const Movement& movement, const Row& row, std::int64_t radif) {
  const DemoGood& good = goods_[static_cast<std::size_t>(row.good)];
  std::int64_t rest = PlantMismatch(movement, row, radif);
  const std::int64_t start = random_.Below(good.detailValues);
  for (std::int64_t i = 0; i < good.detailValues && rest != 0; ++i) {
    const std::int64_t value = good.firstDetailValue + (start + i) % good.detailValues;
    const bool last = i + 1 == good.detailValues;
    std::int64_t part = rest;
    if (rest < 0 && !last) {
      part = -std::min(-rest, std::max<std::int64_t>(0, DetailStock(value, row.store)));
    } else if (rest >= 2 * kMilli && i == 0) {
      part = rest / 2 / kMilli * kMilli;
    }
    if (part == 0) continue;
    rest -= part;
    DetailStock(value, row.store) += part;
    DetailMovement detail;
    detail.radif = radif;
    detail.valueId = value;
    detail.amount = Quantity(part);
    if (good.ratio > 0) detail.amount2 = Quantity(part) / Decimal(good.ratio);
    const Decimal size = Quantity(std::abs(part));
    if (good.unitKind == 1 || good.unitKind == 5) {
      detail.length = size;
      detail.width = Decimal(1);
      detail.count = Decimal(1);
    } else if (good.unitKind != 2) {
      detail.count = size;
    }
    writer_.AddDetail(movement, detail);
  }
}

std::int64_t DemoMovements::AnyGood() {
  const std::int64_t moving = options_.goods - (options_.goods > 1 ? 1 : 0);
  const std::int64_t busy = BusyPlace(options_.goods);
  if (busyMade_ * 3 <= made_) return busy;
  // Goods at the front move more often than those at the back.
  const std::int64_t good = std::min(random_.Below(moving), random_.Below(moving));
  return good == busy && moving > 1 ? (good + 1) % moving : good;
}

std::int64_t DemoMovements::GoodInStore(std::int64_t store) {
  for (int attempt = 0; attempt < 12; ++attempt) {
    const std::int64_t good = AnyGood();
    if (goods_[static_cast<std::size_t>(good)].mayGoNegative || Stock(good, store) >= kMilli) return good;
    // The busy good is asked for again and again; where it has run out, another one goes.
    if (good == BusyPlace(options_.goods)) {
      const std::int64_t other = random_.Below(options_.goods - (options_.goods > 1 ? 1 : 0));
      if (Stock(other, store) >= kMilli) return other;
    }
  }
  return -1;
}

std::int64_t DemoMovements::Supplier() { return random_.Below(people_.suppliers) + 1; }

std::int64_t DemoMovements::Customer() {
  return people_.suppliers + 1 + random_.Below(people_.persons - people_.suppliers);
}

// Prices rise by a quarter a year and differ a little from day to day.
std::int64_t DemoMovements::Price(std::int64_t good) {
  const std::int64_t base = goods_[static_cast<std::size_t>(good)].price;
  const std::int64_t risen = base * (1'460 + day_) / 1'460;
  return std::max<std::int64_t>(1, risen * random_.Between(95, 105) / 100 / 10 * 10);
}

std::int64_t DemoMovements::BuyQuantity(std::int64_t good) {
  const DemoGood& kind = goods_[static_cast<std::size_t>(good)];
  if (kind.price > 10'000'000) return kMilli * random_.Between(1, 12);
  if (kind.fractional) return random_.Between(20'000, 200'000) / 50 * 50;
  const std::int64_t lot = kind.ratio > 0 ? kind.ratio : 10;
  return kMilli * lot * random_.Between(1, 8);
}

std::int64_t DemoMovements::TakeQuantity(std::int64_t good, std::int64_t store) {
  const DemoGood& kind = goods_[static_cast<std::size_t>(good)];
  const std::int64_t have = Stock(good, store);
  const std::int64_t lot = std::max<std::int64_t>(1, kind.ratio / 4);
  std::int64_t wanted = kMilli * lot * random_.Between(1, 4);
  if (kind.price > 10'000'000) wanted = kMilli * random_.Between(1, 2);
  if (kind.fractional) wanted = random_.Between(1'000, 40'000) / 25 * 25;
  if (kind.mayGoNegative) return wanted;
  return std::max<std::int64_t>(0, std::min(wanted, have));
}

}  // namespace goods
