#include "asset_company.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "company/writer/company_writer.h"
#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

namespace {

constexpr const char* kNames[] = {"پیچ شش گوش",  "پيچ خودکار", "كابل برق", "کابل شبکه 50%",
                                  "مهره 'ویژه'", "مهره",       "واشر 12",  "پیچ 'م6' 5%"};
constexpr int kGoods = 12;  // the last one does not move

void WriteTables(CompanyWriter& writer, const AssetCompanyShape& shape, std::mt19937& random) {
  writer.Tables().Run(
      "INSERT INTO Units VALUES(0, ''), (1, 'عدد'), (2, 'جعبه'); INSERT INTO GoodGrps VALUES(1, 'گروه');"
      "INSERT INTO costlevel(Code, Name) VALUES(1, 'یک'), (2, 'دو')");
  Statement store = writer.Tables().Prepare("INSERT INTO Stores(Code, Name) VALUES(?1, 'انبار ' || ?1)");
  for (int i = shape.stores; i-- > 0;) {
    store.Bind(1, StoreCode(i));
    store.Run();
  }
  Statement good = writer.Tables().Prepare(
      "INSERT INTO GoodInf(GrpCode, Code, Name, AbbName, Unit, Unit2, Meghdar_Formool, ConsumerPrice)"
      " VALUES(1, ?1, ?2, ?3, 1, ?4, ?5, ?6)");
  Statement level = writer.Tables().Prepare("INSERT INTO CostLevelPrices VALUES(?1, ?2, ?3, ?4)");
  for (int i = 1; i <= kGoods; ++i) {
    const bool secondUnit = i % 3 != 0;
    good.Bind(1, std::int64_t{i});
    good.Bind(2, std::string_view(kNames[random() % std::size(kNames)]));
    good.Bind(3, std::string_view((i % 2 == 0 ? "ABC%" : "كد'") + std::to_string(i)));
    good.Bind(4, std::int64_t{secondUnit ? 2 : 0});
    if (secondUnit) {
      good.Bind(5, Decimal::FromUnits(Decimal::kOne / 8 *
                                      ((shape.large ? 8 : 1) + static_cast<std::int64_t>(random() % 200))));
    } else {
      good.BindNull(5);
    }
    good.Bind(6, Decimal::FromUnits(static_cast<std::int64_t>(random())));
    good.Run();
    if (i % 4 == 0) continue;
    level.Bind(1, std::int64_t{1 + i % 2});
    level.Bind(2, std::int64_t{i});
    level.Bind(3, Decimal(static_cast<std::int64_t>(random() % 900)));
    level.Bind(4, Decimal::FromUnits(static_cast<std::int64_t>(random())));
    level.Run();
  }
}

Movement RandomMovement(const AssetCompanyShape& shape, std::mt19937& random) {
  Movement movement;
  movement.good = 1 + static_cast<std::int64_t>(random() % (kGoods - 1));
  movement.store =
      random() % 20 == 0 ? 9'000 : StoreCode(static_cast<int>(random() % 70) % (shape.stores + 1));
  movement.type = static_cast<int>(random() % 26);
  Int128 units = 1 + static_cast<Int128>(random() % 4'000'000'000U) * 20;
  if (shape.large) units *= 40'000'000;
  movement.quantity = Decimal::FromUnits(random() % 2 == 0 ? units : -units);
  if (random() % 4 != 0) {
    Int128 price = static_cast<Int128>(random() % 4'000'000'000U) * 1'000;
    if (shape.large) price *= 100'000'000;
    movement.price = Decimal::FromUnits(price);
  }
  return movement;
}

std::string Date(std::mt19937& random) {
  return "1402/0" + std::to_string(1 + random() % 6) + "/" + std::to_string(10 + random() % 20);
}

}  // namespace

std::int64_t StoreCode(int position) { return 10 + 3 * std::int64_t{position}; }

void WriteAssetCompany(const std::string& path, const AssetCompanyShape& shape) {
  std::mt19937 random(shape.seed);
  CompanyWriter writer(path, false);
  WriteTables(writer, shape, random);
  for (int i = 0; i < shape.movements; ++i) {
    const std::string date = Date(random);
    Movement movement = RandomMovement(shape, random);
    movement.date = date;
    movement.document = i + 1;
    writer.Add(movement);
  }
  writer.Finish();
}

std::vector<AssetGood> GoodsOfTables(IConnection& connection) {
  const RowStore rows =
      AskRows(connection, "select Code, Name, AbbName, Meghdar_Formool from GoodInf order by Code");
  std::vector<AssetGood> goods;
  for (std::size_t i = 0; i < rows.Count(); ++i) {
    goods.push_back({rows.Cell(i, 0).AsInteger(), rows.Cell(i, 1).AsText(), rows.Cell(i, 2).AsText(),
                     rows.Cell(i, 3).AsDecimal()});
  }
  return goods;
}

std::vector<MovedRow> MovementsOfTables(IConnection& connection) {
  const RowStore cells =
      AskRows(connection, "select Kala, Date, Radif, Anbar, Type, Tedad, Gheymat, Fi, Miangin from Kardex");
  std::vector<MovedRow> rows;
  for (std::size_t i = 0; i < cells.Count(); ++i) {
    rows.push_back({cells.Cell(i, 0).AsInteger(), cells.Cell(i, 1).AsText(), cells.Cell(i, 2).AsInteger(),
                    cells.Cell(i, 3).AsInteger(), cells.Cell(i, 4).AsInteger(), cells.Cell(i, 5).AsDecimal(),
                    cells.Cell(i, 6).AsDecimal(), cells.Cell(i, 7).AsDecimal(),
                    cells.Cell(i, 8).AsDecimal()});
  }
  std::sort(rows.begin(), rows.end(), [](const MovedRow& a, const MovedRow& b) {
    return std::tie(a.good, a.date, a.radif) < std::tie(b.good, b.date, b.radif);
  });
  return rows;
}

DrawnSearch RandomGoodSearch(std::mt19937& random, const SearchNames& names) {
  static const std::string kCodes[] = {"3", " 7 ", "۵", "12", "99", "x", "3.5", "1' or 1=1"};
  static const std::string kParts[] = {"پيچ", "پیچ", "کابل", "%", "'", "5%", "۱۲", "_", "'ویژه'", "zz"};
  static const std::string kAbbreviations[] = {"abc", "%1", "کد'", "'", "2", "zz"};
  const bool reverse = random() % 2 == 0;
  std::string parameters = names.reverse + "=" + (reverse ? "1" : "0") + ",";
  const auto turned = [&](const std::string& parameter, const std::string& text, auto holds) {
    return DrawnSearch{parameters + parameter + "=" + QuotedStr(text) + ",",
                       [holds, reverse](const AssetGood& good) { return holds(good) != reverse; }};
  };
  const auto contains = [](const std::string& text, const std::string& part) {
    return FoldPersian(text).find(FoldPersian(part)) != std::string::npos;
  };
  switch (random() % (names.abbName.empty() ? 3U : 4U)) {
    case 0:
      return {parameters, [](const AssetGood&) { return true; }};
    case 1: {
      const std::string& text = kCodes[random() % std::size(kCodes)];
      const std::int64_t code = text == "3"     ? 3
                                : text == " 7 " ? 7
                                : text == "۵"   ? 5
                                : text == "12"  ? 12
                                                : -1;
      return turned(names.code, text, [code](const AssetGood& good) { return good.code == code; });
    }
    case 2: {
      const std::string& part = kParts[random() % std::size(kParts)];
      return turned(names.name, part,
                    [part, contains](const AssetGood& good) { return contains(good.name, part); });
    }
    default: {
      const std::string& part = kAbbreviations[random() % std::size(kAbbreviations)];
      return turned(names.abbName, part,
                    [part, contains](const AssetGood& good) { return contains(good.abbName, part); });
    }
  }
}

std::string RandomBound(std::mt19937& random) {
  static const std::string kOdd[] = {"1402/02/31", "1402", "1402/03", "x", "0", "9", "1402/13/45", "%"};
  if (random() % 5 == 0) return kOdd[random() % std::size(kOdd)];
  return Date(random);
}

}  // namespace goods
