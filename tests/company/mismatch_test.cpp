// DetailKardexAsset_Dismatch and DetailOperation_Dismatch: the mismatches that were planted, and over random
// companies what the tables tell when they are compared row by row.
#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <tuple>

#include "company/embedded/sqlite.h"
#include "company_fixture.h"
#include "detail_company.h"
#include "host/core/text.h"

namespace goods {
namespace {

std::string Text(std::int64_t value) { return std::to_string(value); }

// A row of a document with what its details add up to, positive in the row's direction.
struct Compared {
  std::int64_t good = 0;
  std::string date;
  std::int64_t radif = 0;
  std::int64_t store = 0;
  std::int64_t type = 0;
  std::int64_t code = 0;
  std::int64_t row = 0;
  Decimal operation;
  Decimal detail;
};

class MismatchTest : public ::testing::Test {
 protected:
  void Open(const std::string& path) {
    connection_ = OpenCompany(path)->OpenConnection();
    for (const auto& row : Run("select Code, Name, GrpCode from GoodInf")) {
      goods_[std::stoll(row[0])] = row[1];
      groups_[std::stoll(row[0])] = std::stoll(row[2]);
    }
    for (const auto& row : Run("select Code, Name from Stores")) stores_[std::stoll(row[0])] = row[1];
    for (const auto& row : Run("select Type, Name from MovementTypes")) types_[std::stoll(row[0])] = row[1];
  }
  void OpenRandom(unsigned seed) {
    file_.emplace("mismatch-" + std::to_string(seed) + ".company");
    WriteDetailCompany(file_->Path(), seed, 300);
    Open(file_->Path());
  }
  Rows Run(const std::string& statement) const { return Ask(*connection_, statement); }
  Rows Operations(const std::string& parameters) const {
    return Run(" EXEC DetailOperation_Dismatch " + parameters);
  }
  Rows Assets(const std::string& parameters) const {
    return Run(" EXEC DetailKardexAsset_Dismatch " + parameters);
  }

  // Every document row of goods that keep details, whether it agrees or not.
  std::vector<Compared> AllRows() const {
    std::set<std::string> kept;
    for (const auto& row : Run("select Kala from GoodDetails")) kept.insert(row[0]);
    std::map<std::int64_t, Decimal> told;
    for (const auto& row : Run("select Radif, Amount1 from DetailKardex")) {
      told[std::stoll(row[0])] += Decimal::Parse(row[1]).value();
    }
    std::vector<Compared> rows;
    for (const auto& row :
         Run("select Kala, Date, Radif, Anbar, Type, OperationCode, OperationRow, Tedad from Kardex")) {
      if (!kept.contains(row[0])) continue;
      Compared compared{std::stoll(row[0]),      row[1],
                        std::stoll(row[2]),      std::stoll(row[3]),
                        std::stoll(row[4]),      std::stoll(row[5]),
                        std::stoll(row[6]),      Decimal::Parse(row[7]).value(),
                        told[std::stoll(row[2])]};
      rows.push_back(compared);
    }
    std::sort(rows.begin(), rows.end(), [](const Compared& a, const Compared& b) {
      return std::tie(a.good, a.date, a.radif) < std::tie(b.good, b.date, b.radif);
    });
    return rows;
  }
  static Compared Unsigned(Compared row) {
    if (row.operation.IsNegative()) {
      row.operation = -row.operation;
      row.detail = -row.detail;
    }
    return row;
  }
  std::vector<std::string> Cells(const Compared& row) const {
    return {row.date,       Text(row.store), stores_.at(row.store),    types_.at(row.type),
            Text(row.code), Text(row.row),   row.operation.ToString(), row.detail.ToString(),
            Text(row.type), Text(row.good)};
  }

  std::optional<TestFile> file_;
  std::unique_ptr<IConnection> connection_;
  std::map<std::int64_t, std::string> goods_;
  std::map<std::int64_t, std::int64_t> groups_;
  std::map<std::int64_t, std::string> stores_;
  std::map<std::int64_t, std::string> types_;
};

class PlantedTest : public MismatchTest {
 protected:
  void SetUp() override {
    Open(SmallDemoPath());
    for (const auto& row : Run("select Kala, Date, Radif, Anbar, Type, OperationCode, OperationRow, "
                               "OperationAmount, DetailAmount"
                               " from PlantedMismatches")) {
      planted_.push_back({std::stoll(row[0]), row[1], std::stoll(row[2]), std::stoll(row[3]),
                          std::stoll(row[4]), std::stoll(row[5]), std::stoll(row[6]),
                          Decimal::Parse(row[7]).value(), Decimal::Parse(row[8]).value()});
    }
    std::sort(planted_.begin(), planted_.end(), [](const Compared& a, const Compared& b) {
      return std::tie(a.good, a.date, a.radif) < std::tie(b.good, b.date, b.radif);
    });
    ASSERT_EQ(planted_.size(), 24U);
  }
  std::vector<Compared> planted_;
};

TEST_F(PlantedTest, TheDemoCompanysPlantedRowsAreFoundAndNothingElse) {
  Rows expected;
  for (const Compared& row : planted_) expected.push_back(Cells(Unsigned(row)));
  EXPECT_EQ(Operations(""), expected);
}

TEST_F(PlantedTest, OneGoodShowsItsOwnPlantedRows) {
  std::set<std::int64_t> found;
  for (const auto& [good, name] : goods_) {
    Rows expected;
    for (const Compared& row : planted_) {
      if (row.good == good) expected.push_back(Cells(Unsigned(row)));
    }
    if (!expected.empty()) found.insert(good);
    EXPECT_EQ(Operations("@GoodCode = " + Text(good)), expected);
  }
  EXPECT_GT(found.size(), 3U);
}

TEST_F(PlantedTest, StocksDifferByWhatWasPlantedAndNowhereElse) {
  for (const bool separated : {true, false}) {
    std::map<std::pair<std::int64_t, std::int64_t>, Decimal> differences;
    for (const Compared& row : planted_) {
      differences[{row.good, separated ? row.store : 0}] += row.operation - row.detail;
    }
    std::map<std::pair<std::int64_t, std::int64_t>, Decimal> shown;
    for (const auto& row : Assets("@StoreSeparation = " + std::string(separated ? "1" : "0"))) {
      shown[{std::stoll(row[2]), std::stoll(row[0])}] = Decimal::Parse(row[4]).value();
      EXPECT_EQ(row[1], separated ? stores_.at(std::stoll(row[0])) : "");
      EXPECT_EQ(row[3], goods_.at(std::stoll(row[2])));
    }
    std::erase_if(differences, [](const auto& difference) { return difference.second.IsZero(); });
    EXPECT_EQ(shown, differences);
    EXPECT_GT(shown.size(), 5U);
  }
}

struct Condition {
  std::string parameters;
  std::function<bool(const Compared&)> holds;
};

// Every parameter of DetailOperation_Dismatch besides the good.
constexpr int kOperationConditions = 13;
Condition RandomCondition(int kind, const std::vector<Compared>& rows, std::mt19937& random) {
  const Compared a = rows[random() % rows.size()];
  const Compared b = rows[random() % rows.size()];
  const auto equal = [&](const std::string& name, auto value, auto member) {
    std::string text;
    if constexpr (std::is_same_v<decltype(value), Decimal>) {
      text = value.ToString();
    } else {
      text = Text(value);
    }
    return Condition{"@" + name + " = " + text, [=](const Compared& row) { return row.*member == value; }};
  };
  const auto range = [&](const std::string& name, auto from, auto to, auto member, auto literal) {
    if (to < from) std::swap(from, to);
    return Condition{"@From" + name + " = " + literal(from) + ",@To" + name + " = " + literal(to),
                     [=](const Compared& row) { return from <= row.*member && row.*member <= to; }};
  };
  const auto number = [](Decimal value) { return value.ToString(); };
  switch (kind) {
    case 0:
      return equal("Store", a.store, &Compared::store);
    case 1:
      return {"@StoreName = 'مرکزی'", [](const Compared& row) { return row.store == 1 || row.store == 2; }};
    case 2:
      return {"@StoreName = '''شم'", [](const Compared& row) { return row.store == 5; }};
    case 3:
      return equal("OperationCode", a.code, &Compared::code);
    case 4:
      return equal("OperationRow", a.row, &Compared::row);
    case 5:
      return equal("OperationAmount", a.operation, &Compared::operation);
    case 6:
      return equal("DetailAmount", a.detail, &Compared::detail);
    case 7:
      return equal("OperationType", a.type, &Compared::type);
    case 8:
      return range("Date", a.date, b.date, &Compared::date, QuotedStr);
    case 9:
      return range("OperationCode", a.code, b.code, &Compared::code, Text);
    case 10:
      return range("OperationRow", a.row, b.row, &Compared::row, Text);
    case 11:
      return range("OperationAmount", a.operation, b.operation, &Compared::operation, number);
    default:
      return range("DetailAmount", a.detail, b.detail, &Compared::detail, number);
  }
}

TEST_F(MismatchTest, RowsWhoseDetailsDoNotAddUpAreFoundUnderEveryTwoCriteria) {
  std::size_t found = 0;
  for (unsigned seed = 201; seed <= 203; ++seed) {
    OpenRandom(seed);
    std::mt19937 random(seed);
    std::vector<Compared> rows;
    for (const Compared& row : AllRows()) {
      if (row.operation != row.detail) rows.push_back(Unsigned(row));
    }
    ASSERT_GT(rows.size(), 5U);
    const auto expected = [&](const std::vector<Condition>& conditions) {
      Rows cells;
      for (const Compared& row : rows) {
        if (std::all_of(conditions.begin(), conditions.end(), [&](const auto& c) { return c.holds(row); })) {
          cells.push_back(Cells(row));
        }
      }
      return cells;
    };
    EXPECT_EQ(Operations(""), expected({}));
    for (int first = 0; first < kOperationConditions; ++first) {
      for (int second = first; second < kOperationConditions; ++second) {
        // A field stands once in a statement.
        if (first == 1 && second == 2) continue;
        std::vector<Condition> conditions{RandomCondition(first, rows, random)};
        if (second != first) conditions.push_back(RandomCondition(second, rows, random));
        std::string parameters = conditions[0].parameters;
        if (conditions.size() == 2) parameters += "," + conditions[1].parameters;
        found += expected(conditions).size();
        ASSERT_EQ(Operations(parameters), expected(conditions)) << parameters;
      }
    }
  }
  EXPECT_GT(found, 300U);
}

TEST_F(MismatchTest, AnAmountRangeFromZeroHoldsSmallAmountsOnly) {
  OpenRandom(211);
  const Rows few = Operations("@FromDetailAmount = 0,@ToDetailAmount = 2");
  for (const auto& row : few) EXPECT_LE(Decimal::Parse(row[7]).value(), Decimal(2));
  EXPECT_LT(few.size(), Operations("").size());
}

TEST_F(MismatchTest, StocksOfGoodsAreComparedUnderEveryTwoCriteria) {
  std::size_t found = 0;
  for (unsigned seed = 221; seed <= 224; ++seed) {
    OpenRandom(seed);
    std::mt19937 random(seed);
    const std::vector<Compared> rows = AllRows();
    const auto difference = [](const Compared& row) { return row.operation - row.detail; };
    for (int i = 0; i < 120; ++i) {
      const Compared& picked = rows[random() % rows.size()];
      const bool separated = random() % 2 == 0;
      std::string parameters = "@StoreSeparation = " + std::string(separated ? "1" : "0");
      std::vector<std::function<bool(const Compared&)>> conditions;
      const auto add = [&](const std::string& text, std::function<bool(const Compared&)> holds) {
        parameters += "," + text;
        conditions.push_back(std::move(holds));
      };
      const int asked = i % 6;
      const std::int64_t group = groups_.at(picked.good);
      const auto nameHolds = [&](std::int64_t good, const char* part) {
        return PlainText(goods_.at(good)).find(part) != std::string::npos;
      };
      if (random() % 3 == 0) {
        add("@GoodGroupCode = " + Text(group),
            [&, group](const Compared& r) { return groups_.at(r.good) == group; });
      }
      if (asked == 1)
        add("@GoodCode = " + Text(picked.good), [&](const Compared& r) { return r.good == picked.good; });
      if (asked == 2) add("@GoodName = 'كابل'", [&](const Compared& r) { return nameHolds(r.good, "کابل"); });
      if (asked == 3) add("@GoodName = '''و'", [&](const Compared& r) { return nameHolds(r.good, "'و"); });
      if (asked == 4)
        add("@Store = " + Text(picked.store), [&](const Compared& r) { return r.store == picked.store; });
      if (asked == 5) add("@StoreName = 'مرکزی'", [&](const Compared& r) { return r.store <= 2; });
      std::map<std::pair<std::int64_t, std::int64_t>, std::pair<Decimal, Decimal>> sums;
      for (const Compared& row : rows) {
        if (!std::all_of(conditions.begin(), conditions.end(), [&](const auto& holds) { return holds(row); }))
          continue;
        auto& sum = sums[{row.good, separated ? row.store : 0}];
        sum.first += row.operation;
        sum.second += row.detail;
      }
      std::optional<std::pair<Decimal, Decimal>> range;
      if (random() % 3 == 0) {
        const Decimal end = difference(picked);
        range = {std::min(end, Decimal(-1)), std::max(end, Decimal(1))};
        parameters +=
            ",@FromDiffAsset = " + range->first.ToString() + ",@ToDiffAsset = " + range->second.ToString();
      }
      Rows expected;
      for (const auto& [key, sum] : sums) {
        const Decimal differs = sum.first - sum.second;
        if (differs.IsZero() || (range && (differs < range->first || differs > range->second))) continue;
        expected.push_back({Text(key.second), separated ? stores_.at(key.second) : "", Text(key.first),
                            goods_.at(key.first), differs.ToString(), sum.first.ToString(),
                            sum.second.ToString()});
      }
      found += expected.size();
      ASSERT_EQ(Assets(parameters), expected) << parameters;
    }
  }
  EXPECT_GT(found, 200U);
}

TEST_F(MismatchTest, DetailsInAnotherStoreOrWithoutTheirRowAreRowsOfTheirOwn) {
  OpenRandom(231);
  const Rows before = Operations("");
  std::vector<Compared> agreeing;
  for (const Compared& row : AllRows()) {
    if (row.operation == row.detail && row.store != 5) agreeing.push_back(row);
  }
  ASSERT_GT(agreeing.size(), 10U);
  Compared moved = agreeing[2];
  Compared orphan = agreeing[7];
  Database(file_->Path(), SQLITE_OPEN_READWRITE)
      .Run("UPDATE DetailKardex SET Anbar = 5 WHERE Radif = " + Text(moved.radif) +
           ";DELETE FROM Kardex WHERE Radif = " + Text(orphan.radif));
  Rows after = Operations("");
  EXPECT_EQ(after.size(), before.size() + 3);
  const auto has = [&](Compared row) {
    const std::vector<std::string> cells = Cells(row);
    return std::count(after.begin(), after.end(), cells) == 1;
  };
  Compared missing = Unsigned(moved);
  missing.detail = Decimal();
  EXPECT_TRUE(has(missing));
  Compared elsewhere = moved;
  elsewhere.store = 5;
  elsewhere.operation = Decimal();
  elsewhere.detail = moved.operation.Abs();
  EXPECT_TRUE(has(elsewhere));
  orphan.operation = Decimal();
  orphan.detail = orphan.detail.Abs();
  EXPECT_TRUE(has(orphan));
}

TEST_F(MismatchTest, NoTextGetsOutOfItsQuotes) {
  OpenRandom(241);
  const Rows all = Operations("");
  EXPECT_TRUE(Operations("@StoreName = 'x''; DELETE FROM Kardex; --'").empty());
  EXPECT_TRUE(Assets("@GoodName = ''' OR ''1''=''1'").empty());
  EXPECT_NE(Refusal(*connection_, "EXEC DetailOperation_Dismatch @OperationAmount = 'x'"), "");
  EXPECT_NE(Refusal(*connection_, "EXEC DetailKardexAsset_Dismatch @Store = 1 OR 1=1"), "");
  EXPECT_EQ(Operations(""), all);
}

}  // namespace
}  // namespace goods
