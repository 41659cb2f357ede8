#include "detail_company.h"

#include <algorithm>
#include <random>
#include <tuple>

#include "company/writer/company_writer.h"
#include "company_fixture.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::array<std::int64_t, 9> kGoods = {1, 2, 3, 5, 9, 12, 15, 20, 31};
constexpr const char* kGoodNames[] = {"پیچ شش گوش", "پيچ خودکار", "كابل برق", "کابل 'ویژه'", "مهره 50%"};
constexpr const char* kTags[] = {"", ",1,", ",2,3,", ",11,", ",1,3,", ",21,"};
// 111 below 11 below 1; 2 apart. Some goods hold the whole path, some its end alone.
constexpr const char* kCategories[] = {"", ",1,11,111,", ",111,", ",1,12,", ",2,", ",11,"};
constexpr const char* kComments[] = {"خرید نقدی", "خريد نسيه", "it's 10%", "می\u200cشود", ""};
const std::vector<std::string> kPick = {"سفید", "مشکی", "آبي", "قرمز 'تیره'", ""};
const std::vector<std::string> kTyped = {"XL", "xl", "متوسط", "كوچك", "کوچک"};
const std::vector<std::string> kNumbers = {"9", "10", "10.0", "۱۲", "100", "-3", "2.5", "abc", "", " 7 "};
const std::vector<std::string> kDates = {"1402/01/05", "1402/1/5",   "1402/02/30", "1402/12/01",
                                         "۱۴۰۳/۰۱/۰۱", "1399/12/29", "-",          ""};
const std::vector<std::string> kSerials = {"SN1", "sn1", "SN'2", "SN10", "", "سریال ۱"};

const std::vector<std::string>& ValuesOf(int detail) {
  switch (kDetailTypeOf[static_cast<std::size_t>(detail - 1)]) {
    case 1:
      return kPick;
    case 2:
      return kTyped;
    case 5:
      return kDates;
    case 6:
      return kSerials;
    default:
      return kNumbers;
  }
}

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  std::int64_t Below(std::int64_t count) {
    return static_cast<std::int64_t>(engine_() % static_cast<std::uint64_t>(count));
  }
  template <typename List>
  const auto& AnyOf(const List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<std::int64_t>(std::size(list))))];
  }
  Decimal Hundredths(std::int64_t count) {
    return Decimal::FromUnits(static_cast<Int128>(Below(count)) * (Decimal::kOne / 100));
  }
  template <typename List>
  void Shuffle(List& list) {
    std::shuffle(list.begin(), list.end(), engine_);
  }

 private:
  std::mt19937 engine_;
};

constexpr char kFixed[] =
    "INSERT INTO Units VALUES(0, ''), (1, 'عدد'), (2, 'متر');"
    "INSERT INTO GoodGrps VALUES(1, 'یک'), (2, 'دو'), (4, 'چهار');"
    "INSERT INTO Stores(Code, Name) VALUES(1, 'انبار مرکزی'), (2, 'انبار مركزي دوم'), (5, 'انبار ''شمال''');"
    "INSERT INTO Persons(Code, Name) VALUES(7, 'علی رضایی'), (8, 'علي كريمي'), (9, 'مینا');"
    "INSERT INTO colors VALUES(1, 'قرمز', '', '');"
    "INSERT INTO TagS SELECT value, 'برچسب', 1 FROM json_each('[1,2,3,11,21]');"
    "INSERT INTO Categories VALUES(1, 'الف', 0), (11, 'ب', 1), (12, 'پ', 1), (111, 'ت', 11), (2, 'ث', 0);"
    "INSERT INTO SelectedLists(Code, Title) VALUES(1, 'لیست'), (2, 'خالی'), (3, 'همه');";

// The combinations of a good; the last good keeps no details.
std::vector<std::int64_t> WriteGood(CompanyWriter& writer, std::int64_t good, Random& random,
                                    std::int64_t& nextValue) {
  Statement insert = writer.Tables().Prepare(
      "INSERT INTO GoodInf(GrpCode, Code, Name, Unit, Tags, category_code, UnitKind)"
      " VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7)");
  insert.Bind(1, std::array<std::int64_t, 3>{1, 2, 4}[static_cast<std::size_t>(random.Below(3))]);
  insert.Bind(2, good);
  insert.Bind(3, std::string_view(random.AnyOf(kGoodNames)));
  insert.Bind(4, random.Below(2) + 1);
  insert.Bind(5, std::string_view(random.AnyOf(kTags)));
  insert.Bind(6, std::string_view(random.AnyOf(kCategories)));
  insert.Bind(7, random.Below(5) + 1);
  insert.Run();
  std::vector<std::int64_t> combinations;
  if (good == kGoods.back()) return combinations;
  std::array<int, kDetails> details{};
  for (int i = 0; i < kDetails; ++i) details[static_cast<std::size_t>(i)] = i + 1;
  random.Shuffle(details);
  // Positions may have gaps.
  const std::int64_t kept = random.Below(5) + 1;
  Statement position = writer.Tables().Prepare("INSERT INTO GoodDetails VALUES(?1, ?2, ?3)");
  Statement value = writer.Tables().Prepare("INSERT INTO DetailValues VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7)");
  std::array<int, 5> at{};
  for (std::int64_t i = 0; i < kept; ++i) {
    const bool gap = i + 1 < kept && random.Below(6) == 0;
    if (gap) continue;
    at[static_cast<std::size_t>(i)] = details[static_cast<std::size_t>(i)];
    position.Bind(1, good);
    position.Bind(2, i + 1);
    position.Bind(3, std::int64_t{details[static_cast<std::size_t>(i)]});
    position.Run();
  }
  for (std::int64_t i = random.Below(5) + 3; i > 0; --i) {
    value.Bind(1, nextValue);
    value.Bind(2, good);
    for (int p = 0; p < 5; ++p) {
      const int detail = at[static_cast<std::size_t>(p)];
      value.Bind(p + 3, detail == 0 ? std::string_view() : std::string_view(random.AnyOf(ValuesOf(detail))));
    }
    value.Run();
    combinations.push_back(nextValue++);
  }
  return combinations;
}

void WriteMovement(CompanyWriter& writer, int number, const std::vector<std::int64_t>& combinations,
                   Random& random, std::int64_t good) {
  constexpr int kTypes[] = {2, 1, 3, 4, 22, 5, 6, 7};
  constexpr std::int64_t kStores[] = {1, 2, 5};
  constexpr std::int64_t kPersons[] = {7, 8, 9, 0};
  const std::string date =
      "1402/0" + std::to_string(1 + random.Below(3)) + "/1" + std::to_string(random.Below(10));
  Movement movement;
  movement.date = date;
  movement.good = good;
  movement.store = random.AnyOf(kStores);
  movement.person = random.AnyOf(kPersons);
  movement.type = random.AnyOf(kTypes);
  const Decimal quantity = random.Hundredths(400) + Decimal(1);
  const bool incoming = random.Below(2) == 0;
  movement.quantity = incoming ? quantity : -quantity;
  movement.price = random.Below(8) == 0 ? Decimal(random.Below(20)) : random.Hundredths(15'000);
  movement.document = number / 2 + 1;
  movement.row = number % 2 + 1;
  movement.comment = random.AnyOf(kComments);
  const std::int64_t radif = writer.Add(movement);
  Decimal rest = movement.quantity;
  if (random.Below(8) == 0) rest += Decimal(random.Below(3) - 1);
  const auto parts =
      std::min<std::int64_t>(random.Below(3) + 1, static_cast<std::int64_t>(combinations.size()));
  std::vector<std::int64_t> order = combinations;
  random.Shuffle(order);
  for (std::int64_t i = 0; i < parts && !rest.IsZero(); ++i) {
    DetailMovement detail;
    detail.radif = radif;
    detail.valueId = order[static_cast<std::size_t>(i)];
    detail.amount = i + 1 == parts ? rest : (rest / Decimal(2)).Rounded(2);
    rest -= detail.amount;
    detail.amount2 = detail.amount / Decimal(4);
    detail.count = Decimal(random.Below(4));
    detail.length = random.Hundredths(300);
    detail.width = Decimal(random.Below(3));
    writer.AddDetail(movement, detail);
  }
}

std::map<std::int64_t, std::vector<std::string>> ByCode(IConnection& connection, const std::string& columns,
                                                        const std::string& table) {
  std::map<std::int64_t, std::vector<std::string>> rows;
  for (std::vector<std::string>& row : Ask(connection, "select " + columns + " from " + table)) {
    const std::int64_t code = std::stoll(row[0]);
    row.erase(row.begin());
    rows[code] = std::move(row);
  }
  return rows;
}

std::set<std::int64_t> Codes(const std::string& text) {
  std::set<std::int64_t> codes;
  for (const std::string& part : Split(text, ',')) {
    if (!part.empty()) codes.insert(std::stoll(part));
  }
  return codes;
}

std::string NameOf(const std::map<std::int64_t, std::vector<std::string>>& names, const std::string& code) {
  const auto found = names.find(std::stoll(code));
  return found == names.end() ? "" : found->second[0];
}

}  // namespace

void WriteDetailCompany(const std::string& path, unsigned seed, int movements) {
  Random random(seed);
  CompanyWriter writer(path, false);
  writer.Tables().Run(kFixed);
  Statement detail = writer.Tables().Prepare("INSERT INTO DetailTypes VALUES(?1, ?2, ?3, ?4)");
  for (int id = 1; id <= kDetails; ++id) {
    const int type = kDetailTypeOf[static_cast<std::size_t>(id - 1)];
    detail.Bind(1, std::int64_t{id});
    detail.Bind(2, std::string_view("ویژگی " + std::to_string(id)));
    detail.Bind(3, std::int64_t{type});
    detail.Bind(4, std::int64_t{type == 5 ? 1 : 0});
    detail.Run();
  }
  std::int64_t nextValue = 100;
  std::map<std::int64_t, std::vector<std::int64_t>> combinations;
  for (const std::int64_t good : kGoods) combinations[good] = WriteGood(writer, good, random, nextValue);
  writer.Tables().Run(
      "INSERT INTO SelectedListGoods SELECT 1, Code FROM GoodInf WHERE Code % 3 = 0;"
      "INSERT INTO SelectedListGoods SELECT 3, Code FROM GoodInf");
  for (int i = 0; i < movements; ++i) {
    const std::int64_t good = random.AnyOf(kGoods);
    WriteMovement(writer, i, combinations[good], random, good);
  }
  detail = Statement();
  writer.Finish();
}

std::vector<DetailRow> DetailRowsOfTables(IConnection& connection) {
  const auto goods = ByCode(connection, "Code, Name, GrpCode, Tags, category_code, Unit", "GoodInf");
  const auto stores = ByCode(connection, "Code, Name", "Stores");
  const auto persons = ByCode(connection, "Code, Name", "Persons");
  const auto units = ByCode(connection, "Code, Name", "Units");
  const auto titles = ByCode(connection, "ID, Title", "DetailTypes");
  const auto parents = ByCode(connection, "Code, ParentCode", "Categories");
  const auto prices = ByCode(connection, "Radif, Fi", "Kardex");
  const auto values = ByCode(connection, "ID, D1Value, D2Value, D3Value, D4Value, D5Value", "DetailValues");
  std::map<std::int64_t, std::array<std::int64_t, 5>> kept;
  for (const auto& row : Ask(connection, "select Kala, Position, DetailID from GoodDetails")) {
    kept[std::stoll(row[0])][static_cast<std::size_t>(std::stoll(row[1]) - 1)] = std::stoll(row[2]);
  }
  std::map<std::int64_t, std::set<std::int64_t>> lists;
  for (const auto& row : Ask(connection, "select Kala, ListCode from SelectedListGoods")) {
    lists[std::stoll(row[0])].insert(std::stoll(row[1]));
  }
  std::vector<DetailRow> rows;
  for (const auto& cell :
       Ask(connection,
           "select Date, Radif, Anbar, Percode, Comment, Kala, DetailValueID, Type, OperationCode, Amount1,"
           " Amount2, Amount3, Length, Width from DetailKardex")) {
    DetailRow row;
    const auto number = [&](std::size_t column) { return Decimal::Parse(cell[column]).value(); };
    row.date = cell[0];
    row.radif = std::stoll(cell[1]);
    row.store = std::stoll(cell[2]);
    row.storeName = NameOf(stores, cell[2]);
    row.personCode = std::stoll(cell[3]);
    row.person = NameOf(persons, cell[3]);
    row.comment = cell[4];
    row.good = std::stoll(cell[5]);
    const std::vector<std::string>& good = goods.at(row.good);
    row.goodName = good[0];
    row.group = std::stoll(good[1]);
    row.tags = Codes(good[2]);
    for (std::int64_t code : Codes(good[3])) {
      for (; code != 0; code = std::stoll(parents.at(code)[0])) row.categories.insert(code);
    }
    row.unit = NameOf(units, good[4]);
    row.lists = lists[row.good];
    row.valueId = std::stoll(cell[6]);
    row.details = kept[row.good];
    for (std::size_t i = 0; i < 5; ++i) {
      row.values[i] = values.at(row.valueId)[i];
      if (row.values[i].empty()) continue;
      row.text += (row.text.empty() ? "" : " - ") + titles.at(row.details[i])[0] + ": " + row.values[i];
    }
    row.type = std::stoll(cell[7]);
    row.document = std::stoll(cell[8]);
    row.amount1 = number(9);
    row.amount2 = number(10);
    row.amount3 = number(11);
    row.length = number(12);
    row.width = number(13);
    row.price = Decimal::Parse(prices.at(row.radif)[0]).value();
    rows.push_back(std::move(row));
  }
  std::sort(rows.begin(), rows.end(), [](const DetailRow& a, const DetailRow& b) {
    return std::tie(a.good, a.date, a.radif, a.valueId) < std::tie(b.good, b.date, b.radif, b.valueId);
  });
  return rows;
}

std::string PlainText(std::string text) {
  constexpr std::pair<const char*, const char*> kSame[] = {
      {"ي", "ی"}, {"ك", "ک"}, {"\u200c", ""}, {"۰", "0"}, {"۱", "1"}, {"۲", "2"}, {"۳", "3"}, {"۴", "4"}};
  for (const auto& [from, to] : kSame) text = ReplaceAll(text, from, to);
  return std::string(Trim(LowerAscii(text)));
}

std::optional<Decimal> NumberInText(const std::string& text) { return Decimal::Parse(PlainText(text)); }

std::optional<Decimal> DateInText(const std::string& text) {
  const std::vector<std::string> parts = Split(PlainText(text), '/');
  if (parts.size() != 3) return std::nullopt;
  return Decimal(std::stoll(parts[0]) * 10'000 + std::stoll(parts[1]) * 100 + std::stoll(parts[2]));
}

}  // namespace goods
