#include "search_company.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "company/writer/company_writer.h"
#include "company_fixture.h"

namespace goods {

namespace {

struct Named {
  std::int64_t code;
  const char* name;
};

constexpr Named kGoods[] = {
    {1, "پیچ شش گوش"}, {2, "پيچ خودکار"}, {3, "كابل برق"}, {5, "کابل شبکه 50%"}, {9, "مهره 'ویژه'"}};
constexpr Named kStores[] = {{1, "انبار مرکزی"}, {2, "انبار مركزي دوم"}, {3, "انبار شمال"}};
constexpr Named kPersons[] = {{7, "علی رضایی"}, {8, "علي كريمي"}, {9, "شرکت می\u200cسازیم"}};
constexpr const char* kComments[] = {"خرید نقدی", "خريد نسيه", "فروش 10%", "می\u200cشود",
                                     "میشود",     "",          "it's"};

// What a reader takes for the same: both spellings of yeh and kaf; joiners do not count.
std::string Plain(std::string text) {
  const std::pair<const char*, const char*> same[] = {{"ي", "ی"}, {"ك", "ک"}, {"\u200c", ""}};
  for (const auto& [from, to] : same) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
      text.replace(at, std::string(from).size(), to);
    }
  }
  return text;
}

bool Contains(const std::string& text, const std::string& part) {
  return Plain(text).find(Plain(part)) != std::string::npos;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

template <typename List>
const auto& AnyOf(const List& list, std::mt19937& random) {
  return list[random() % std::size(list)];
}

std::string NameOf(const std::map<std::int64_t, std::string>& names, std::int64_t code) {
  const auto found = names.find(code);
  return found == names.end() ? "" : found->second;
}

std::map<std::int64_t, std::string> Names(IConnection& connection, const std::string& table,
                                          const std::string& field = "Name") {
  std::map<std::int64_t, std::string> names;
  const RowStore rows = AskRows(connection, "select Code, " + field + " from " + table);
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    names[rows.Cell(row, 0).AsInteger()] = rows.Cell(row, 1).AsText();
  }
  return names;
}

std::string RandomDate(std::mt19937& random) {
  return "1402/0" + std::to_string(1 + random() % 3) + "/1" + std::to_string(random() % 10);
}

SearchCriterion TextCriterion(int kind, std::mt19937& random) {
  static const std::string kParts[] = {"پیچ", "پيچ", "کابل", "كابل",    "مرکزی", "مركزي",      "میشود",
                                       "%",   "'",   "علی",  "خريد نق", "zz",    "می\u200cساز"};
  const std::string part = AnyOf(kParts, random);
  static constexpr const char* kFields[] = {"Comment", "KalaName", "PerName", "AnbarName"};
  return {std::string("@") + kFields[kind] + "=" + Quoted(part), [kind, part](const FoundRow& row) {
            switch (kind) {
              case 0:
                return Contains(row.comment, part);
              case 1:
                return Contains(row.goodName, part);
              case 2:
                return row.person.has_value() && Contains(*row.person, part);
              default:
                return Contains(row.storeName, part);
            }
          }};
}

// A range over values of one type; either end, or both, given.
template <typename Value>
SearchCriterion RangeCriterion(const std::string& field, Value from, Value to, std::mt19937& random,
                               std::string (*literal)(const Value&), Value FoundRow::*member) {
  const auto ends = random() % 3;
  std::string parameters;
  if (ends != 1) parameters = "@From" + field + "=" + literal(from);
  if (ends != 0) parameters += (parameters.empty() ? "@To" : ",@To") + field + "=" + literal(to);
  return {parameters, [=](const FoundRow& row) {
            return (ends == 1 || !(row.*member < from)) && (ends == 0 || !(to < row.*member));
          }};
}

SearchCriterion AmountCriterion(int kind, std::mt19937& random) {
  static constexpr std::pair<const char*, Decimal FoundRow::*> kFields[] = {
      {"Varede", &FoundRow::varede},
      {"Sadere", &FoundRow::sadere},
      {"Mab_Varede", &FoundRow::mabVarede},
      {"Mab_Sadere", &FoundRow::mabSadere},
      {"Gheymat_Varede", &FoundRow::gheymatVarede},
      {"Gheymat_Sadere", &FoundRow::gheymatSadere}};
  const auto& [field, member] = kFields[kind];
  const std::int64_t scale = kind < 2 ? 60 : kind < 4 ? 1500 : 60'000;
  const auto draw = [&] {
    return Decimal::FromUnits(static_cast<Int128>(random() % static_cast<unsigned>(scale * 100)) *
                              (Decimal::kOne / 100));
  };
  return RangeCriterion<Decimal>(
      field, draw(), draw(), random, [](const Decimal& value) { return value.ToString(); }, member);
}

}  // namespace

std::vector<std::string> FoundRow::Cells() const {
  return {date,
          std::to_string(good),
          abbName,
          person.value_or(""),
          goodName,
          storeName,
          comment,
          varede.ToString(),
          sadere.ToString(),
          mabVarede.ToString(),
          mabSadere.ToString(),
          gheymatVarede.ToString(),
          gheymatSadere.ToString(),
          std::to_string(type),
          std::to_string(document),
          unit};
}

void WriteSearchCompany(const std::string& path, unsigned seed, int movements) {
  std::mt19937 random(seed);
  CompanyWriter writer(path, false);
  writer.Tables().Run("INSERT INTO Units VALUES(0, ''), (1, 'عدد'); INSERT INTO GoodGrps VALUES(1, 'گروه')");
  const auto insert = [&](const char* sql, const Named& named) {
    Statement statement = writer.Tables().Prepare(sql);
    statement.Bind(1, named.code);
    statement.Bind(2, std::string_view(named.name));
    statement.Run();
  };
  for (const Named& good : kGoods) {
    insert("INSERT INTO GoodInf(GrpCode, Code, Name, AbbName, Unit) VALUES(1, ?1, ?2, 'B' || ?1, 1)", good);
  }
  for (const Named& store : kStores) insert("INSERT INTO Stores(Code, Name) VALUES(?1, ?2)", store);
  for (const Named& person : kPersons) insert("INSERT INTO Persons(Code, Name) VALUES(?1, ?2)", person);
  for (int i = 0; i < movements; ++i) {
    constexpr int kMovementTypes[] = {2, 1, 3, 4, 22, 5};
    const std::string date = RandomDate(random);
    Movement movement;
    movement.date = date;
    movement.good = AnyOf(kGoods, random).code;
    movement.store = AnyOf(kStores, random).code;
    movement.person = i % 10 == 0 ? 0 : AnyOf(kPersons, random).code;
    movement.type = AnyOf(kMovementTypes, random);
    const Int128 units = static_cast<Int128>(1 + random() % 5000) * (Decimal::kOne / 100);
    movement.quantity = Decimal::FromUnits(random() % 2 == 0 ? units : -units);
    movement.price = Decimal::FromUnits(static_cast<Int128>(random() % 150'000) * (Decimal::kOne / 100));
    movement.document = i + 1;
    movement.comment = AnyOf(kComments, random);
    writer.Add(movement);
  }
  writer.Finish();
}

std::vector<FoundRow> RowsOfTables(IConnection& connection) {
  const auto goods = Names(connection, "GoodInf");
  const auto abbreviations = Names(connection, "GoodInf", "AbbName");
  const auto stores = Names(connection, "Stores");
  const auto persons = Names(connection, "Persons");
  const RowStore cells = AskRows(
      connection,
      "select Date, Kala, Radif, Anbar, Percode, Comment, Tedad, Gheymat, Type, OperationCode from Kardex");
  std::vector<FoundRow> rows;
  for (std::size_t i = 0; i < cells.Count(); ++i) {
    FoundRow row;
    row.date = cells.Cell(i, 0).AsText();
    row.good = cells.Cell(i, 1).AsInteger();
    row.radif = cells.Cell(i, 2).AsInteger();
    row.store = cells.Cell(i, 3).AsInteger();
    row.abbName = NameOf(abbreviations, row.good);
    if (const auto person = persons.find(cells.Cell(i, 4).AsInteger()); person != persons.end()) {
      row.person = person->second;
    }
    row.goodName = NameOf(goods, row.good);
    row.storeName = NameOf(stores, row.store);
    row.comment = cells.Cell(i, 5).AsText();
    row.tedad = cells.Cell(i, 6).AsDecimal();
    const Decimal price = cells.Cell(i, 7).AsDecimal();
    row.type = cells.Cell(i, 8).AsInteger();
    row.document = cells.Cell(i, 9).AsInteger();
    const bool incoming = row.tedad > Decimal();
    (incoming ? row.varede : row.sadere) = row.tedad.Abs();
    (incoming ? row.mabVarede : row.mabSadere) = price;
    (incoming ? row.gheymatVarede : row.gheymatSadere) = row.tedad.Abs() * price;
    rows.push_back(std::move(row));
  }
  std::sort(rows.begin(), rows.end(), [](const FoundRow& a, const FoundRow& b) {
    return std::tie(a.good, a.date, a.radif) < std::tie(b.good, b.date, b.radif);
  });
  return rows;
}

SearchCriterion RandomCriterion(int kind, std::mt19937& random, bool exclude) {
  static constexpr const char* kNames[kCriteria] = {"Comment",    "KalaName",   "PerName",       "AnbarName",
                                                    "Code",       "Date",       "Varede",        "Sadere",
                                                    "Mab_Varede", "Mab_Sadere", "Gheymat_Varede"};
  SearchCriterion criterion;
  std::string name = kNames[kind];
  if (kind < 4) {
    criterion = TextCriterion(kind, random);
  } else if (kind == 4) {
    const auto code = [&] { return static_cast<std::int64_t>(random() % 11); };
    criterion = RangeCriterion<std::int64_t>(
        name, code(), code(), random, [](const std::int64_t& value) { return std::to_string(value); },
        &FoundRow::good);
  } else if (kind == 5) {
    criterion = RangeCriterion<std::string>(name, RandomDate(random), RandomDate(random), random, Quoted,
                                            &FoundRow::date);
  } else {
    // The last kind stands for both amounts.
    const int field = kind < kCriteria - 1 || random() % 2 == 0 ? kind - 6 : kind - 5;
    if (field == 5) name = "Gheymat_Sadere";
    criterion = AmountCriterion(field, random);
  }
  if (!exclude) return criterion;
  return {criterion.parameters + (kind < 4 ? ",@Not" : ",@NotRange") + name + "=1",
          [holds = criterion.holds](const FoundRow& row) { return !holds(row); }};
}

}  // namespace goods
