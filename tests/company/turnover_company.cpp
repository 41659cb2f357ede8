#include "turnover_company.h"

#include <algorithm>

#include "company/writer/company_writer.h"
#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {

namespace {

constexpr const char* kNames[] = {"پیچ شش گوش", "پيچ خودکار", "كابل برق", "کابل 50%", "مهره 'ویژه'", "it''s"};
constexpr const char* kTags[] = {"", ",2,", ",3,1,", ",1,2,3,", ",4,9,2,1,", ",9,"};
constexpr const char* kCategories[] = {"", ",1,", ",1,101,", ",12,", ",2,12,101,"};
constexpr const char* kColumns[] = {"GrpCode",
                                    "Code",
                                    "Name",
                                    "OperationDate",
                                    "AbbName",
                                    "Pos",
                                    "Unit",
                                    "AvaBgPrd",
                                    "CostBgPrd",
                                    "CurAva",
                                    "Status",
                                    "varede",
                                    "sadere",
                                    "gheymat_miangin",
                                    "Unit2",
                                    "AvaBgPrd2",
                                    "Mogodi2",
                                    "Meghdar2",
                                    "kala_type",
                                    "kala_index",
                                    "kala_name",
                                    "Meghdar_Formool",
                                    "Store",
                                    "SMSCode",
                                    "UnitName1",
                                    "UnitName2",
                                    "Jam_Kol",
                                    "Position",
                                    "Joz",
                                    "MinAva",
                                    "Mogodi",
                                    "Mogodi_Ava_Diff",
                                    "SumStock",
                                    "Stock",
                                    "category_code",
                                    "Tags",
                                    "t1",
                                    "t2",
                                    "t3"};

void WriteTables(CompanyWriter& writer, bool large, std::mt19937& random) {
  writer.Tables().Run(
      "INSERT INTO Units VALUES(0, ''), (1, 'عدد'), (2, 'كيلوگرم'), (3, 'جعبه');"
      "INSERT INTO GoodGrps VALUES(1, 'یک'), (2, 'دو'), (3, 'سه');"
      "INSERT INTO Stores(Code, Name) VALUES(1, 'الف'), (2, 'ب'), (3, 'پ'), (4, 'ت');"
      "INSERT INTO colors VALUES(1, 'قرمز', '$000000FF', '#FF0000'), (2, 'آبی', '$00FF0000', '#0000FF');"
      "INSERT INTO TagS VALUES(1, 'الف', 2), (2, 'ب', 1), (3, 'پ', 1), (4, 'ت', 2);"
      "INSERT INTO Categories(Code, Name) VALUES(1, 'یک'), (2, 'دو'), (12, 'دوازده'), (101, 'صد و یک');"
      "INSERT INTO costlevel(Code, Name) VALUES(1, 'یک'), (2, 'دو');"
      "INSERT INTO SelectedLists(Code, Title) VALUES(1, 'چند کالا'), (2, 'خالی')");
  Statement good = writer.Tables().Prepare(
      "INSERT INTO GoodInf(GrpCode, Code, Name, AbbName, Pos, Unit, Status, Unit2, Meghdar2, kala_type, "
      "kala_index,"
      " kala_name, Meghdar_Formool, Store, SMSCode, Position, MinAva, ConsumerPrice, category_code, Tags)"
      " VALUES(?1, ?2, ?3, 'B' || ?2, 'P' || ?2, ?4, ?2 % 3, ?5, ?6, 'T', 'I' || ?2, 'K' || ?2, ?6, ?2 % 4, "
      "'S' || ?2,"
      " 'Q' || ?2, ?7, ?8, ?9, ?10)");
  Statement level = writer.Tables().Prepare("INSERT INTO CostLevelPrices VALUES(?1, ?2, ?3, ?4)");
  for (std::int64_t code = 1; code <= kTurnoverGoods; ++code) {
    good.Bind(1, 1 + static_cast<std::int64_t>(random() % 3));
    good.Bind(2, code);
    good.Bind(3, std::string_view(kNames[random() % std::size(kNames)]));
    good.Bind(4, std::int64_t{1 + code % 2});
    good.Bind(5, std::int64_t{code % 3 == 0 ? 0 : 3});
    good.BindNull(6);
    if (code % 3 != 0) {
      good.Bind(6, Decimal::FromUnits(Decimal::kOne / 8 *
                                      ((large ? 8 : 1) + static_cast<std::int64_t>(random() % 90))));
    }
    good.Bind(7, Decimal(static_cast<std::int64_t>(random() % 60)));
    good.Bind(8, Decimal::FromUnits(static_cast<std::int64_t>(random())));
    good.Bind(9, std::string_view(kCategories[random() % std::size(kCategories)]));
    good.Bind(10, std::string_view(kTags[random() % std::size(kTags)]));
    good.Run();
    if (code % 4 == 0) continue;
    level.Bind(1, 1 + code % 2);
    level.Bind(2, code);
    level.Bind(3, Decimal(static_cast<std::int64_t>(random() % 900)));
    level.Bind(4, Decimal::FromUnits(static_cast<std::int64_t>(random())));
    level.Run();
  }
  writer.Tables().Run("INSERT INTO SelectedListGoods VALUES(1, 1), (1, 3), (1, 5), (1, " +
                      std::to_string(kNeverMoved) + ")");
}

bool HoldsCode(const std::string& codes, std::int64_t code) {
  return codes.find("," + std::to_string(code) + ",") != std::string::npos;
}

std::vector<std::string> ColorsOf(const std::string& tags) {
  static const std::map<std::string, std::string> colors = {
      {"1", "$00FF0000"}, {"2", "$000000FF"}, {"3", "$000000FF"}, {"4", "$00FF0000"}};
  std::vector<std::string> found;
  for (const std::string& tag : Split(tags, ',')) {
    if (tag.empty()) continue;
    const auto color = colors.find(tag);
    found.push_back(color == colors.end() ? "" : color->second);
  }
  found.resize(3);
  return found;
}

using DecimalOf = Decimal (*)(const TurnoverRow&);
using TextOf = std::string (*)(const TurnoverRow&);

TurnoverCriterion Text(const std::string& field, TextOf cell, std::mt19937& random) {
  static const std::string kParts[] = {"پیچ", "كابل", "'", "%", "B1", "کيلو", "جعبه", "zz"};
  const std::string part = kParts[random() % std::size(kParts)];
  return {"@" + field + "=" + QuotedStr(part), [=](const TurnoverRow& row) {
            return FoldPersian(cell(row)).find(FoldPersian(part)) != std::string::npos;
          }};
}

TurnoverCriterion Equal(const std::string& field, DecimalOf cell, Decimal value) {
  return {"@" + field + "=" + value.ToString(), [=](const TurnoverRow& row) { return cell(row) == value; }};
}

TurnoverCriterion Range(const std::string& field, DecimalOf cell, Decimal from, Decimal to,
                        std::uint64_t ends) {
  std::string parameters = ends == 1 ? "" : "@From" + field + "=" + from.ToString();
  if (ends != 0) parameters += (ends == 1 ? "@To" : ",@To") + field + "=" + to.ToString();
  return {parameters, [=](const TurnoverRow& row) {
            return (ends == 1 || from <= cell(row)) && (ends == 0 || cell(row) <= to);
          }};
}

TurnoverCriterion Dates(const std::string& from, const std::string& to, std::uint64_t ends) {
  std::string parameters = ends == 1 ? "" : "@FromOperationDate='" + from + "'";
  if (ends != 0) parameters += (ends == 1 ? "@To" : ",@To") + ("OperationDate='" + to + "'");
  return {parameters, [=](const TurnoverRow& row) {
            return !row.operationDate.empty() && (ends == 1 || from.empty() || from <= row.operationDate) &&
                   (ends == 0 || to.empty() || row.operationDate <= to);
          }};
}

TurnoverCriterion Codes(const std::string& field, bool (TurnoverRow::*has)(std::int64_t) const,
                        std::mt19937& random) {
  static const std::pair<const char*, std::vector<std::int64_t>> kLists[] = {
      {"1", {1}}, {",2,12,", {2, 12}}, {"101,4", {101, 4}}, {",77,", {77}}, {" 3 , 1,", {3, 1}}};
  const auto& [text, codes] = kLists[random() % std::size(kLists)];
  return {"@" + field + "='" + text + "'", [codes = codes, has](const TurnoverRow& row) {
            return std::any_of(codes.begin(), codes.end(),
                               [&](std::int64_t code) { return (row.*has)(code); });
          }};
}

}  // namespace

void WriteTurnoverCompany(const std::string& path, unsigned seed, bool large) {
  std::mt19937 random(seed);
  CompanyWriter writer(path, false);
  WriteTables(writer, large, random);
  for (int i = 0; i < 300; ++i) {
    const std::string date =
        "1402/0" + std::to_string(1 + random() % 6) + "/" + std::to_string(10 + random() % 20);
    Movement movement;
    movement.date = date;
    movement.good = 1 + static_cast<std::int64_t>(random() % (kTurnoverGoods - 2));
    movement.store = movement.good == 2 ? 3 : 1 + static_cast<std::int64_t>(random() % 4);
    movement.type = static_cast<int>(random() % 26);
    Int128 units = (1 + static_cast<Int128>(random() % 9'000)) * (Decimal::kOne / 100);
    if (large) units *= 50'000'000;
    movement.quantity = Decimal::FromUnits(random() % 2 == 0 ? units : -units);
    if (random() % 4 != 0) {
      Int128 price = static_cast<Int128>(random() % 900'000) * (Decimal::kOne / 100);
      if (large) price *= 100'000'000'000;
      movement.price = Decimal::FromUnits(price);
    }
    movement.document = i + 1;
    writer.Add(movement);
  }
  for (const int way : {1, -1}) {
    Movement movement;
    movement.date = "1402/03/15";
    movement.good = kCameAndWent;
    movement.store = 1;
    movement.type = way == 1 ? 2 : 1;
    movement.quantity = Decimal(5 * way);
    movement.price = Decimal(70);
    movement.document = 1'000 + way;
    writer.Add(movement);
  }
  writer.Finish();
}

std::string TurnoverFigures::Parameters() const {
  std::string parameters;
  const auto add = [&](const std::string& parameter) {
    parameters += (parameters.empty() ? "" : ", ") + parameter;
  };
  if (from) add("@EffectiveDate1 = '" + *from + "'");
  if (to) add("@EffectiveDate2 = '" + *to + "'");
  if (store != 0) add("@StoreCode=" + std::to_string(store));
  if (otherStores) add("@NotStoreCode=1");
  return parameters;
}

Decimal TurnoverRow::Whole() const {
  if (!ratio) return Decimal();
  return Decimal(static_cast<std::int64_t>(stock.Units() / ratio->Units()));
}

bool TurnoverRow::HasTag(std::int64_t tag) const { return HoldsCode(tags, tag); }
bool TurnoverRow::HasCategory(std::int64_t category) const { return HoldsCode(categories, category); }

std::vector<std::string> TurnoverRow::Cells() const {
  std::map<std::string, std::string> cells = stored;
  cells["OperationDate"] = operationDate;
  cells["varede"] = varede.ToString();
  cells["sadere"] = sadere.ToString();
  cells["gheymat_miangin"] = average.ToString();
  cells["Mogodi2"] = Whole().ToString();
  cells["UnitName1"] = unitName1;
  cells["UnitName2"] = unitName2;
  cells["Jam_Kol"] = Value().ToString();
  cells["Joz"] = (ratio ? stock - Whole() * *ratio : stock).ToString();
  cells["Mogodi"] = stock.ToString();
  cells["Mogodi_Ava_Diff"] = (stock - minimum).ToString();
  cells["SumStock"] = (stock * price).ToString();
  cells["Stock"] = price.ToString();
  for (std::size_t i = 0; i < 3; ++i) cells["t" + std::to_string(i + 1)] = colors[i];
  std::vector<std::string> texts;
  for (const char* column : kColumns) texts.push_back(cells.at(column));
  return texts;
}

TurnoverTables::TurnoverTables(IConnection& connection) : movements_(MovementsOfTables(connection)) {
  const std::map<std::string, std::string> units = {{"0", ""}, {"1", "عدد"}, {"2", "كيلوگرم"}, {"3", "جعبه"}};
  const RowStore rows = AskRows(connection, "select * from GoodInf order by Code");
  for (std::size_t i = 0; i < rows.Count(); ++i) {
    TurnoverRow good;
    for (std::size_t column = 0; column < rows.Columns().size(); ++column) {
      good.stored[rows.Columns()[column].name] = rows.Cell(i, column).AsText();
    }
    const auto cell = [&](const char* name) { return rows.Cell(i, *rows.FindColumn(name)); };
    good.code = cell("Code").AsInteger();
    good.group = cell("GrpCode").AsInteger();
    good.name = cell("Name").AsText();
    good.abbName = cell("AbbName").AsText();
    good.unitName1 = units.at(good.stored["Unit"]);
    good.unitName2 = units.at(good.stored["Unit2"]);
    good.tags = cell("Tags").AsText();
    good.categories = cell("category_code").AsText();
    good.minimum = cell("MinAva").AsDecimal();
    if (!good.stored["Meghdar_Formool"].empty()) good.ratio = cell("Meghdar_Formool").AsDecimal();
    good.colors = ColorsOf(good.tags);
    consumerPrices_[good.code] = cell("ConsumerPrice").AsDecimal();
    goods_.push_back(std::move(good));
  }
  const RowStore prices =
      AskRows(connection, "select LevelCode, Kala, BuyPrice, SellPrice from CostLevelPrices");
  for (std::size_t i = 0; i < prices.Count(); ++i) {
    levels_[{prices.Cell(i, 0).AsInteger(), prices.Cell(i, 1).AsInteger()}] = {prices.Cell(i, 2).AsDecimal(),
                                                                               prices.Cell(i, 3).AsDecimal()};
  }
}

void TurnoverTables::AddUp(TurnoverRow& row, const TurnoverFigures& figures) const {
  for (const MovedRow& moved : movements_) {
    if (moved.good != row.code) continue;
    if (figures.to && !figures.to->empty() && moved.date > *figures.to) continue;
    row.average = moved.average;
    if (figures.from && moved.date < *figures.from) continue;
    if (figures.store != 0 && (moved.store == figures.store) == figures.otherStores) continue;
    (moved.quantity > Decimal() ? row.varede : row.sadere) += moved.quantity.Abs();
    row.operationDate = moved.date;
  }
  row.stock = row.varede - row.sadere;
}

Decimal TurnoverTables::Price(std::int64_t good, const TurnoverFigures& figures) const {
  if (figures.basis == 5) {
    if (figures.level == -100) return consumerPrices_.at(good);
    const auto found = levels_.find({figures.level, good});
    if (found == levels_.end()) return Decimal();
    return figures.buyFlag == 0 ? found->second.second : found->second.first;
  }
  std::optional<Decimal> price;
  for (const MovedRow& moved : movements_) {
    if (moved.good != good) continue;
    if (figures.basis == -1) {
      price = moved.average;
    } else if (moved.type == (figures.basis > 10 ? 1 : 2)) {
      const int rule = figures.basis % 10;
      if (!price || rule == 3 || (rule == 1 ? moved.price > *price : moved.price < *price))
        price = moved.price;
    }
  }
  return price.value_or(Decimal());
}

std::vector<TurnoverRow> TurnoverTables::Rows(const TurnoverFigures& figures) const {
  std::vector<TurnoverRow> rows = goods_;
  for (TurnoverRow& row : rows) {
    AddUp(row, figures);
    row.price = Price(row.code, figures);
  }
  return rows;
}

const std::string& TurnoverTables::AnyDate(std::mt19937& random) const {
  return movements_[random() % movements_.size()].date;
}

TurnoverCriterion RandomTurnoverCriterion(int kind, const std::vector<TurnoverRow>& rows,
                                          std::mt19937& random, bool exclude) {
  static constexpr const char* kFields[kTurnoverCriteria] = {
      "Name",    "AbbName",       "UnitName1", "UnitName2",    "Code",    "Varede",
      "Sadere",  "Mogodi",        "Code",      "Mogodi",       "Mogodi2", "gheymat_miangin",
      "Jam_Kol", "OperationDate", "tags",      "category_code"};
  static constexpr TextOf kTexts[] = {[](const TurnoverRow& row) { return row.name; },
                                      [](const TurnoverRow& row) { return row.abbName; },
                                      [](const TurnoverRow& row) { return row.unitName1; },
                                      [](const TurnoverRow& row) { return row.unitName2; }};
  static constexpr DecimalOf kNumbers[] = {[](const TurnoverRow& row) { return Decimal(row.code); },
                                           [](const TurnoverRow& row) { return row.varede; },
                                           [](const TurnoverRow& row) { return row.sadere; },
                                           [](const TurnoverRow& row) { return row.stock; },
                                           [](const TurnoverRow& row) { return Decimal(row.code); },
                                           [](const TurnoverRow& row) { return row.stock; },
                                           [](const TurnoverRow& row) { return row.Whole(); },
                                           [](const TurnoverRow& row) { return row.average; },
                                           [](const TurnoverRow& row) { return row.Value(); }};
  const std::string field = kFields[kind];
  const auto any = [&]() -> const TurnoverRow& { return rows[random() % rows.size()]; };
  const bool range = kind >= 8 && kind < 14;
  TurnoverCriterion criterion;
  if (kind < 4) {
    criterion = Text(field, kTexts[kind], random);
  } else if (kind < 8) {
    criterion = Equal(field, kNumbers[kind - 4], kNumbers[kind - 4](any()));
  } else if (kind < 13) {
    const Decimal from = kNumbers[kind - 4](any());
    criterion = Range(field, kNumbers[kind - 4], from, kNumbers[kind - 4](any()), random() % 3);
  } else if (kind == 13) {
    const std::string from = any().operationDate;
    const std::string to = any().operationDate;
    const std::uint64_t ends = random() % 3;
    criterion = Dates(from, to, ends);
    // An empty date is an open end, and a range that is open on both sides asks nothing, turned round or not.
    if ((ends == 1 || from.empty()) && (ends == 0 || to.empty())) {
      return {criterion.parameters + (exclude ? ",@NotRange" + field + "=1" : ""),
              [](const TurnoverRow&) { return true; }};
    }
  } else {
    criterion = Codes(field, kind == 14 ? &TurnoverRow::HasTag : &TurnoverRow::HasCategory, random);
  }
  if (!exclude) return criterion;
  return {criterion.parameters + (range ? ",@NotRange" : ",@Not") + field + "=1",
          [holds = criterion.holds](const TurnoverRow& row) { return !holds(row); }};
}

}  // namespace goods
