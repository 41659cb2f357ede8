#include "company/demo/demo_goods.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "company/demo/demo_names.h"

namespace goods {

namespace {

constexpr std::int64_t kTags = 6;
constexpr std::int64_t kTradeCategories = 8;

// Adding a row of plain values to a table; kept short because there are many.
class Inserter {
 public:
  Inserter(CompanyWriter& writer, const char* sql) : statement_(writer.Tables().Prepare(sql)) {}
  template <typename... Values>
  void Add(const Values&... values) {
    int index = 0;
    (statement_.Bind(++index, values), ...);
    statement_.Run();
  }

 private:
  Statement statement_;
};

// Two tags joined as the tag frames keep them: ",1,4,".
std::string DemoTags(std::int64_t place) {
  if (place % 5 != 0 && place % 7 != 0) return "";
  std::string tags = "," + std::to_string(place % kTags + 1) + ",";
  if (place % 35 == 0 || place % 10 == 0) tags += std::to_string((place + 2) % kTags + 1) + ",";
  return tags;
}

std::string DemoCategory(std::int64_t trade, std::int64_t line) {
  return "," + std::to_string(trade + 1) + "," + std::to_string(100 * (trade + 1) + line + 1) + ",";
}

// Serial numbers, sizes and the like of one combination. details: which of the six a good keeps.
std::array<std::string, 5> DetailTexts(std::int64_t place, std::int64_t value, int details) {
  constexpr const char* kColors[] = {"سفید", "مشکی", "آبی", "قرمز"};
  constexpr const char* kSizes[] = {"S", "M", "L", "XL"};
  const auto pick = static_cast<std::size_t>(value % 4);
  const std::array<std::string, 6> all = {
      kColors[pick],
      kSizes[(pick + static_cast<std::size_t>(value / 4)) % 4],
      std::to_string(10 + value * 5),
      std::to_string(1 + value) + ".5",
      "140" + std::to_string(5 + value % 3) + "/0" + std::to_string(1 + value % 9) + "/15",
      "SN" + std::to_string(100'000 + place * 100 + value)};
  std::array<std::string, 5> texts;
  for (int i = 0; i < details; ++i)
    texts[static_cast<std::size_t>(i)] = all[static_cast<std::size_t>((place / 6 + i) % 6)];
  return texts;
}

// A sixth of the goods keep details, but not the busy one.
bool KeepsDetails(std::int64_t place) { return place % 6 == 3 && place + 1 != kBusyGood; }

void WriteDetails(CompanyWriter& writer, std::int64_t place, DemoGood& good, std::int64_t& nextValue) {
  Inserter positions(writer, "INSERT INTO GoodDetails(Kala, Position, DetailID) VALUES(?1, ?2, ?3)");
  Inserter values(writer,
                  "INSERT INTO DetailValues(ID, Kala, D1Value, D2Value, D3Value, D4Value, D5Value)"
                  " VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7)");
  const int details = static_cast<int>(place / 6 % 5) + 1;
  for (std::int64_t i = 0; i < details; ++i) positions.Add(place + 1, i + 1, (place / 6 + i) % 6 + 1);
  good.firstDetailValue = nextValue;
  good.detailValues = 4 + place % 5;
  for (std::int64_t value = 0; value < good.detailValues; ++value) {
    const std::array<std::string, 5> texts = DetailTexts(place, value, details);
    values.Add(nextValue++, place + 1, std::string_view(texts[0]), std::string_view(texts[1]),
               std::string_view(texts[2]), std::string_view(texts[3]), std::string_view(texts[4]));
  }
}

void WriteDetailTypes(CompanyWriter& writer) {
  Inserter types(writer, "INSERT INTO DetailTypes(ID, Title, DetailType, DateType) VALUES(?1, ?2, ?3, ?4)");
  constexpr const char* kTitles[] = {"رنگ", "سایز", "ضخامت", "وزن بسته", "تاریخ انقضا", "شماره سریال"};
  for (std::int64_t id = 1; id <= 6; ++id) {
    types.Add(id, std::string_view(kTitles[id - 1]), id, std::int64_t{id == 5 ? 1 : 0});
  }
  Inserter items(writer, "INSERT INTO DetailTypesItems(DetailID, Row, Value) VALUES(?1, ?2, ?3)");
  std::int64_t row = 0;
  for (const char* color : {"سفید", "مشکی", "آبی", "قرمز"})
    items.Add(std::int64_t{1}, ++row, std::string_view(color));
  row = 0;
  for (const char* size : {"S", "M", "L", "XL"}) items.Add(std::int64_t{2}, ++row, std::string_view(size));
}

void WriteTagsAndCategories(CompanyWriter& writer) {
  struct Color {
    const char* title;
    const char* text;
    const char* picture;
  };
  constexpr Color kColors[] = {{"قرمز", "$000000FF", "#FF0000"}, {"سبز", "$00008000", "#008000"},
                               {"آبی", "$00FF0000", "#0000FF"},  {"نارنجی", "$0000A5FF", "#FFA500"},
                               {"بنفش", "$00800080", "#800080"}, {"خاکستری", "$00808080", "#808080"}};
  constexpr const char* kTagNames[] = {"پرفروش", "فصلی", "شکستنی", "وارداتی", "یخچالی", "حراجی"};
  Inserter colors(writer, "INSERT INTO colors(code, Title, ColorText, \"H-img\") VALUES(?1, ?2, ?3, ?4)");
  Inserter tags(writer, "INSERT INTO TagS(Code, Name, color_code) VALUES(?1, ?2, ?3)");
  for (std::int64_t i = 0; i < kTags; ++i) {
    colors.Add(i + 1, std::string_view(kColors[i].title), std::string_view(kColors[i].text),
               std::string_view(kColors[i].picture));
    tags.Add(i + 1, std::string_view(kTagNames[i]), i + 1);
  }
  Inserter categories(writer, "INSERT INTO Categories(Code, Name, ParentCode) VALUES(?1, ?2, ?3)");
  for (std::int64_t trade = 0; trade < kTradeCategories; ++trade) {
    const DemoTrade& texts = DemoTrades()[static_cast<std::size_t>(trade)];
    categories.Add(trade + 1, std::string_view(texts.name), std::int64_t{0});
    for (std::size_t line = 0; line < texts.lines.size(); ++line) {
      categories.Add(100 * (trade + 1) + static_cast<std::int64_t>(line) + 1,
                     std::string_view(texts.lines[line].noun), trade + 1);
    }
  }
}

void WritePriceLevels(CompanyWriter& writer) {
  Inserter levels(writer, "INSERT INTO costlevel(Code, Name, CostType) VALUES(?1, ?2, ?3)");
  levels.Add(std::int64_t{-2}, std::string_view("سطح داخلی"), std::int64_t{1});
  levels.Add(std::int64_t{-1}, std::string_view("سطح پایه"), std::int64_t{1});
  constexpr const char* kNames[] = {"عمده", "همکار", "خرده فروشی"};
  for (std::int64_t i = 0; i < 3; ++i) levels.Add(i + 1, std::string_view(kNames[i]), std::int64_t{1});
  levels.Add(std::int64_t{4}, std::string_view("نرخ خدمات"), std::int64_t{2});
  writer.Tables().Run(
      "INSERT INTO CostLevelPrices(LevelCode, Kala, BuyPrice, SellPrice)"
      " SELECT c.Code, g.Code, dec_mul(g.ConsumerPrice, 700000000 + 20000000 * c.Code),"
      " dec_mul(g.ConsumerPrice, 850000000 + 50000000 * c.Code)"
      " FROM costlevel c JOIN GoodInf g WHERE c.CostType = 1 AND c.Code > 0");
}

void WriteSelectedLists(CompanyWriter& writer) {
  writer.Tables().Run(
      "INSERT INTO SelectedLists(Code, Title, Enable, DisplayType, Type) VALUES"
      " (1, 'کالاهای ویترین', 0, 0, 0), (2, 'کالاهای کم گردش', 0, 1, 0), (3, 'کالاهای شمارش ماهانه', 0, 0, "
      "0),"
      " (4, 'اشخاص منتخب', 0, 0, 1);"
      "INSERT INTO SelectedListGoods(ListCode, Kala)"
      " SELECT l.Code, g.Code FROM SelectedLists l JOIN GoodInf g WHERE l.Type = 0 AND g.Code % (l.Code * 5) "
      "= 1");
}

}  // namespace

std::vector<DemoGood> WriteDemoGoods(CompanyWriter& writer, const DemoOptions& options, Random& random) {
  Inserter groups(writer, "INSERT INTO GoodGrps(Code, Name) VALUES(?1, ?2)");
  groups.Add(std::int64_t{0}, std::string_view("کلیه گروه ها"));
  const std::span<const DemoTrade> trades = DemoTrades();
  for (std::size_t i = 0; i < trades.size(); ++i)
    groups.Add(static_cast<std::int64_t>(i) + 1, std::string_view(trades[i].name));
  Inserter units(writer, "INSERT INTO Units(Code, Name) VALUES(?1, ?2)");
  std::int64_t unit = 0;
  for (const char* name : DemoUnitNames()) units.Add(unit++, std::string_view(name));

  Inserter insert(
      writer,
      "INSERT INTO GoodInf(GrpCode, Code, Name, AbbName, Pos, Unit, Status, Unit2, Meghdar2, kala_type,"
      " kala_index, kala_name, Meghdar_Formool, Store, SMSCode, Position, MinAva, ConsumerPrice, UnitKind,"
      " Tags, category_code) VALUES(?1, ?2, ?3, ?4, ?5, ?6, 1, ?7, nullif(?8, 0), 'کالا', ?9, ?3,"
      " nullif(?8, 0), ?10, ?11, ?5, ?12, ?13, ?14, ?15, ?16)");
  std::vector<DemoGood> goods;
  std::int64_t nextValue = 1;
  for (std::int64_t place = 0; place < options.goods; ++place) {
    const auto trade = static_cast<std::size_t>(place) % trades.size();
    const std::span<const DemoLine> lines = trades[trade].lines;
    const auto number = static_cast<std::size_t>(place) / trades.size();
    const std::size_t lineNumber = number % lines.size();
    const DemoLine& line = lines[lineNumber];
    const std::size_t variant = number / lines.size();
    std::string name = std::string(line.noun) + " " + line.variants[variant % line.variants.size()];
    if (variant >= line.variants.size()) name += " مدل " + std::to_string(variant / line.variants.size() + 1);

    DemoGood good;
    good.price = std::max<std::int64_t>(100, line.price * random.Between(80, 130) / 100 / 100 * 100);
    good.ratio = line.ratio;
    good.fractional = line.unit == kUnitKilogram || line.unit == kUnitMetre || line.unit == kUnitLitre;
    good.mayGoNegative = (place + 1) % 60 == 5;
    good.unitKind = KeepsDetails(place) ? static_cast<int>(place / 6 % 5) + 1 : 2;
    const std::string shelf = "قفسه " + std::to_string(place % 40 + 1);
    const std::string barcode = "626" + std::to_string(1'000'000'000 + place * 7919 % 1'000'000'000);
    const std::string index = std::to_string(trade + 1) + "-" + std::to_string(place + 1);
    insert.Add(static_cast<std::int64_t>(trade) + 1, place + 1, std::string_view(name),
               std::string_view(barcode), std::string_view(shelf), std::int64_t{line.unit},
               std::int64_t{line.unit2}, Decimal(line.ratio), std::string_view(index),
               place % options.stores + 1, std::string_view(std::to_string(2000 + place)),
               Decimal(place % 4 == 0 ? 50 : 10), Decimal(good.price * 2), std::int64_t{good.unitKind},
               std::string_view(DemoTags(place)),
               std::string_view(
                   DemoCategory(static_cast<std::int64_t>(trade), static_cast<std::int64_t>(lineNumber))));
    if (KeepsDetails(place)) WriteDetails(writer, place, good, nextValue);
    goods.push_back(good);
  }
  return goods;
}

DemoPeople WriteDemoPeople(CompanyWriter& writer, const DemoOptions& options) {
  DemoPeople people;
  people.suppliers = std::clamp<std::int64_t>(options.goods / 10, 5, 500);
  people.persons = people.suppliers + std::clamp<std::int64_t>(options.goods / 2, 20, 5'000);
  Inserter insert(writer, "INSERT INTO Persons(Code, Name, Phone, City) VALUES(?1, ?2, ?3, ?4)");
  const std::span<const char* const> cities = DemoCities();
  for (std::int64_t i = 0; i < people.persons; ++i) {
    const std::string phone = "0900" + std::to_string(1'000'000 + i * 7'919 % 9'000'000);
    insert.Add(i + 1, std::string_view(DemoPersonName(i, people.suppliers)), std::string_view(phone),
               std::string_view(cities[static_cast<std::size_t>(i) % cities.size()]));
  }
  return people;
}

void WriteDemoStores(CompanyWriter& writer, const DemoOptions& options) {
  Inserter insert(writer, "INSERT INTO Stores(Code, Name, Address) VALUES(?1, ?2, ?3)");
  const std::span<const char* const> names = DemoStoreNames();
  const std::span<const char* const> cities = DemoCities();
  for (std::int64_t i = 0; i < options.stores; ++i) {
    const auto place = static_cast<std::size_t>(i);
    std::string name = names[place % names.size()];
    if (place >= names.size()) name += " " + std::to_string(place / names.size() + 1);
    insert.Add(i + 1, std::string_view(name), std::string_view(cities[place % cities.size()]));
  }
}

void WriteDemoTables(CompanyWriter& writer) {
  WriteDetailTypes(writer);
  WriteTagsAndCategories(writer);
  WritePriceLevels(writer);
  WriteSelectedLists(writer);
}

}  // namespace goods
