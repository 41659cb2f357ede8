// AllGoodDetailTransaction, GoodDetailTransaction and OneGoodDetailTransaction against rows and sums worked
// out from the tables, over random companies.
#include <algorithm>
#include <map>
#include <random>
#include <tuple>

#include "company_fixture.h"
#include "detail_company.h"
#include "detail_criteria.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr int kMovements = 260;

class DetailTransactionTest : public ::testing::Test {
 protected:
  void Open(unsigned seed) {
    file_.emplace("detail-" + std::to_string(seed) + ".company");
    WriteDetailCompany(file_->Path(), seed, kMovements);
    connection_ = OpenCompany(file_->Path())->OpenConnection();
    rows_ = DetailRowsOfTables(*connection_);
    ASSERT_GT(rows_.size(), static_cast<std::size_t>(kMovements));
  }
  Rows Run(const std::string& statement) const { return Ask(*connection_, statement); }
  std::vector<DetailRow> Meeting(const std::vector<DetailCriterion>& criteria) const {
    std::vector<DetailRow> met;
    std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(met),
                 [&](const DetailRow& row) { return MeetsAll(row, criteria); });
    return met;
  }
  DetailCriterion Criterion(int kind, int titles, std::mt19937& random) const {
    return RandomDetailCriterion(kind, rows_, titles, random);
  }

  std::optional<TestFile> file_;
  std::unique_ptr<IConnection> connection_;
  std::vector<DetailRow> rows_;
};

std::string Text(std::int64_t value) { return std::to_string(value); }

class AllGoodsTest : public DetailTransactionTest {
 protected:
  static Rows Cells(const std::vector<DetailRow>& rows) {
    Rows cells;
    for (const DetailRow& r : rows) {
      cells.push_back({r.date,
                       Text(r.store),
                       r.storeName,
                       Text(r.good),
                       r.goodName,
                       r.values[0],
                       r.values[1],
                       r.values[2],
                       r.values[3],
                       r.values[4],
                       r.text,
                       r.person,
                       r.comment,
                       r.Varede().ToString(),
                       r.Sadere().ToString(),
                       r.price.ToString(),
                       r.Total().ToString(),
                       r.unit,
                       Text(r.type),
                       Text(r.document),
                       Text(r.valueId),
                       Text(r.good)});
    }
    return cells;
  }
  Rows Expected(const std::vector<DetailCriterion>& criteria) const { return Cells(Meeting(criteria)); }
  Rows All(const std::string& parameters) const {
    return Run(" EXEC AllGoodDetailTransaction " + parameters);
  }
};

TEST_F(AllGoodsTest, WithoutCriteriaEveryMovementComesByGoodDateAndNumber) {
  for (unsigned seed = 1; seed <= 3; ++seed) {
    Open(seed);
    EXPECT_EQ(All(""), Expected({}));
  }
}

TEST_F(AllGoodsTest, EachCriterionAloneLeavesTheMovementsThatMeetIt) {
  for (unsigned seed = 11; seed <= 12; ++seed) {
    Open(seed);
    std::mt19937 random(seed);
    for (int kind = 0; kind < kDetailCriteria; ++kind) {
      std::size_t found = 0;
      const std::size_t runs = kind == kTitle ? 80 : 16;
      for (std::size_t i = 0; i < runs; ++i) {
        const DetailCriterion criterion = Criterion(kind, 10, random);
        const Rows expected = Expected({criterion});
        found += expected.size();
        ASSERT_EQ(All(criterion.parameters), expected) << criterion.parameters;
      }
      EXPECT_GT(found, 0U) << "criteria of kind " << kind << " meet nothing";
      EXPECT_LT(found, runs * rows_.size()) << "criteria of kind " << kind << " meet everything";
    }
  }
}

TEST_F(AllGoodsTest, EveryTwoCriteriaTogetherLeaveTheMovementsThatMeetBoth) {
  std::size_t found = 0;
  for (unsigned seed = 21; seed <= 22; ++seed) {
    Open(seed);
    std::mt19937 random(seed);
    for (int first = 0; first < kDetailCriteria; ++first) {
      for (int second = first + 1; second < kDetailCriteria; ++second) {
        const std::vector<DetailCriterion> criteria{Criterion(first, 10, random),
                                                    Criterion(second, 10, random)};
        const Rows expected = Expected(criteria);
        found += expected.size();
        ASSERT_EQ(All(JoinedParameters(criteria)), expected) << JoinedParameters(criteria);
      }
    }
  }
  EXPECT_GT(found, 500U);
}

TEST_F(AllGoodsTest, ManyCriteriaTogetherLeaveTheMovementsThatMeetThemAll) {
  Open(31);
  std::mt19937 random(31);
  std::size_t found = 0;
  for (int i = 0; i < 120; ++i) {
    std::vector<DetailCriterion> criteria;
    for (int kind = 0; kind < kDetailCriteria; ++kind) {
      if (random() % 5 == 0) criteria.push_back(Criterion(kind, 10, random));
    }
    const Rows expected = Expected(criteria);
    found += expected.size();
    ASSERT_EQ(All(JoinedParameters(criteria)), expected) << JoinedParameters(criteria);
  }
  EXPECT_GT(found, 100U);
}

TEST_F(AllGoodsTest, NullAndAnUntouchedDialogAskNothing) {
  Open(41);
  const Rows all = Expected({});
  EXPECT_EQ(All("@GoodTags = Null,@GoodSelectedListCode=Null,@GoodSelectedListNot=0"), all);
  EXPECT_EQ(All("@GoodTags = Null,@GoodSelectedListCode=Null,@GoodSelectedListNot=-1"), all);
  EXPECT_EQ(All("@GoodTags = ',,'"), all);
  EXPECT_EQ(
      All("@DetailID1 = Null,@Detail1Value1 = Null,@Detail1Value2 = Null,@TitleID = Null,@Title = Null"),
      all);
}

TEST_F(AllGoodsTest, AnEmptyDateIsAnOpenEnd) {
  Open(41);
  const std::string date = rows_[rows_.size() / 2].date;
  for (const std::string procedure :
       {"AllGoodDetailTransaction", "GoodDetailTransaction", "OneGoodDetailTransaction",
        "DetailOperation_Dismatch", "srKardex", "srKardex_Negative"}) {
    const auto ask = [&](const std::string& dates) { return Run("EXEC " + procedure + " " + dates); };
    const std::string positional = procedure == "srKardex_Negative" ? "'','','9'," : "";
    const std::string from = positional + "@FromDate = '" + date + "'";
    const std::string to = "@ToDate = '" + date + "'";
    EXPECT_EQ(ask(from + ",@ToDate = ''"), ask(from)) << procedure;
    EXPECT_EQ(ask(positional + "@FromDate = ''," + to), ask(positional + to)) << procedure;
    EXPECT_EQ(ask(positional + "@FromDate = '',@ToDate = ''"), ask(positional + "@FromDate = Null"))
        << procedure;
  }
  EXPECT_FALSE(All("@FromDate = '" + date + "',@ToDate = ''").empty());
}

TEST_F(AllGoodsTest, AnyNumberBesidesZeroTurnsTheSelectedListRound) {
  Open(42);
  const Rows others = All("@GoodSelectedListCode=1,@GoodSelectedListNot=-1");
  EXPECT_FALSE(others.empty());
  EXPECT_EQ(All("@GoodSelectedListCode=1,@GoodSelectedListNot=1"), others);
  EXPECT_EQ(others.size() + All("@GoodSelectedListCode=1,@GoodSelectedListNot=0").size(), rows_.size());
}

TEST_F(AllGoodsTest, ParametersAreNamedWithoutRegardToCase) {
  Open(43);
  const Rows found = All("@TitleID = 2,@Title = 'پیچ',@FromDate = '1402/02/01',@ToDate = '1402/02/31'");
  EXPECT_FALSE(found.empty());
  EXPECT_EQ(All("@TITLEID = 2,@title = 'پیچ',@fromdate = '1402/02/01',@TODATE = '1402/02/31'"), found);
}

TEST_F(AllGoodsTest, NumericDetailsCompareAsNumbersAndDatesAsDates) {
  Open(44);
  std::set<std::string> numbers;
  std::set<std::string> dates;
  for (const DetailRow& row : rows_) {
    for (std::size_t i = 0; i < 5; ++i) {
      if (row.details[i] == 3 || row.details[i] == 4 || row.details[i] == 7) numbers.insert(row.values[i]);
      if (row.details[i] == 5) dates.insert(row.values[i]);
    }
  }
  const auto shown = [&](const std::string& parameters, std::int64_t detail) {
    std::set<std::string> values;
    for (const std::vector<std::string>& row : All(parameters)) {
      for (std::size_t i = 0; i < 5; ++i) {
        for (const DetailRow& known : rows_) {
          if (Text(known.valueId) == row[20] && known.details[i] == detail) values.insert(known.values[i]);
        }
      }
    }
    return values;
  };
  for (const std::int64_t detail : {3, 4, 7}) {
    for (const std::string& value : shown(DetailIs(1, detail, "9", "12").parameters, detail)) {
      EXPECT_TRUE(value == "9" || value == "10" || value == "10.0" || value == "۱۲") << value;
    }
    EXPECT_TRUE(shown(DetailIs(2, detail, "abc", "abc").parameters, detail).empty());
    EXPECT_FALSE(shown(DetailIs(3, detail, "-5", "1000").parameters, detail).contains("abc"));
  }
  EXPECT_TRUE(numbers.contains("abc")) << "no good has a number that is none";
  const std::set<std::string> inJanuary = shown(DetailIs(5, 5, "1402/01/05", "1402/01/05").parameters, 5);
  EXPECT_EQ(inJanuary.contains("1402/1/5"), dates.contains("1402/1/5"));
  for (const std::string& value : inJanuary)
    EXPECT_TRUE(value == "1402/1/5" || value == "1402/01/05") << value;
  EXPECT_EQ(All(DetailIs(5, 5, "0000/00/00", "9999/99/99").parameters),
            All(DetailIs(5, 5, "    /  /  ", "").parameters));
}

TEST_F(AllGoodsTest, ATextThatIsNoNumberEqualsNoCodeQuantityOrAmount) {
  Open(45);
  for (const int title : {1, 7, 8, 9, 10}) {
    for (const char* text : {"abc", "", "1 OR 1=1"}) {
      EXPECT_TRUE(All("@TitleID = " + Text(title) + ",@Title = " + QuotedStr(text)).empty()) << title << text;
    }
  }
  EXPECT_EQ(All("@TitleID = 1,@Title = '۱۲'"), All("@TitleID = 1,@Title = '12'"));
  EXPECT_FALSE(All("@TitleID = 1,@Title = '۱۲'").empty());
}

TEST_F(AllGoodsTest, NoTextGetsOutOfItsQuotes) {
  Open(46);
  const Rows all = All("");
  for (const char* text : {"x''; DELETE FROM DetailKardex; --", "'' OR ''1''=''1", "%'' OR 1=1 --"}) {
    for (const char* name :
         {"@TitleID = 2,@Title = ", "@TitleID = 4,@Title = ", "@TitleID = 6,@Title = ",
          "@DetailID1 = 1,@Detail1Value2 = '',@Detail1Value1 = ", "@FromDate = '9999',@ToDate = "}) {
      EXPECT_TRUE(All(std::string(name) + "'" + text + "'").empty()) << name << text;
    }
  }
  EXPECT_FALSE(All("@TitleID = 6,@Title = 'it''s'").empty());
  for (const char* parameters : {"@GoodCode = 1 OR 1=1", "@GoodCode = 'x'", "@Nobody = 1", "@Title = Name",
                                 "@GoodCode = 1,@goodcode = 2", "@TitleID = 2,@Title = 'a' 'b'"}) {
    EXPECT_NE(Refusal(*connection_, "EXEC AllGoodDetailTransaction " + std::string(parameters)), "")
        << parameters;
  }
  EXPECT_EQ(All(""), all);
}

class StockByDetailTest : public DetailTransactionTest {
 protected:
  struct Options {
    bool stores = false;
    bool kinds = false;
    std::optional<Decimal> sum;
    std::string Parameters() const {
      return std::string("@StoreSeparation = ") + (stores ? "1" : "0") +
             ",@HaveAmount = " + (kinds ? "0" : "1") +
             (sum ? ",@TitleID = 5,@Title = " + QuotedStr(sum->ToString()) : "");
    }
  };
  Rows Expected(const std::vector<DetailCriterion>& criteria, const Options& options) const {
    using Key = std::tuple<std::int64_t, std::int64_t, std::int64_t, std::int64_t>;
    std::map<Key, std::pair<Decimal, const DetailRow*>> groups;
    for (const DetailRow& row : rows_) {
      if (!MeetsAll(row, criteria)) continue;
      auto& group =
          groups[{row.good, row.valueId, options.stores ? row.store : 0, options.kinds ? row.type : 0}];
      group.first += row.amount1;
      group.second = &row;
    }
    Rows cells;
    for (const auto& [key, group] : groups) {
      if (options.sum && group.first != *options.sum) continue;
      const DetailRow& row = *group.second;
      cells.push_back({options.stores ? Text(row.store) : "0", options.stores ? row.storeName : "",
                       Text(row.good), row.goodName, row.text, row.values[0], row.values[1], row.values[2],
                       row.values[3], row.values[4], group.first.ToString(), row.unit, Text(row.valueId),
                       options.kinds ? Text(row.type) : "", Text(row.good)});
    }
    return cells;
  }
  Rows Stock(const std::vector<DetailCriterion>& criteria, const Options& options) const {
    const std::string parameters = JoinedParameters(criteria);
    return Run(" EXEC GoodDetailTransaction " + options.Parameters() + (parameters.empty() ? "" : ",") +
               parameters);
  }
  void ExpectSame(const std::vector<DetailCriterion>& criteria, const Options& options) const {
    ASSERT_EQ(Stock(criteria, options), Expected(criteria, options))
        << options.Parameters() << JoinedParameters(criteria);
  }
};

TEST_F(StockByDetailTest, CombinationsAreAddedUpByStoreAndByMovementKindAsAsked) {
  for (unsigned seed = 51; seed <= 53; ++seed) {
    Open(seed);
    for (const bool stores : {false, true}) {
      for (const bool kinds : {false, true}) ExpectSame({}, {stores, kinds, {}});
    }
    EXPECT_EQ(Run(" EXEC GoodDetailTransaction "), Expected({}, {}));
  }
}

TEST_F(StockByDetailTest, EveryTwoCriteriaTogetherLeaveTheSumsOfWhatMeetsBoth) {
  std::size_t found = 0;
  for (unsigned seed = 61; seed <= 62; ++seed) {
    Open(seed);
    std::mt19937 random(seed);
    for (int first = 0; first < kSharedDetailCriteria; ++first) {
      for (int second = first; second < kSharedDetailCriteria; ++second) {
        std::vector<DetailCriterion> criteria{Criterion(first, 4, random)};
        if (second != first) criteria.push_back(Criterion(second, 4, random));
        const Options options{random() % 2 == 0, random() % 2 == 0, {}};
        found += Expected(criteria, options).size();
        ASSERT_NO_FATAL_FAILURE(ExpectSame(criteria, options));
      }
    }
  }
  EXPECT_GT(found, 300U);
}

TEST_F(StockByDetailTest, TheFifthSearchColumnIsTheSumThatIsShown) {
  Open(71);
  std::mt19937 random(71);
  std::size_t found = 0;
  for (int i = 0; i < 40; ++i) {
    Options options{random() % 2 == 0, random() % 2 == 0, {}};
    const std::vector<DetailCriterion> criteria{Criterion(kDateRange, 4, random)};
    const Rows all = Expected(criteria, options);
    if (all.empty()) continue;
    options.sum = Decimal::Parse(all[random() % all.size()][10]);
    found += Expected(criteria, options).size();
    ASSERT_NO_FATAL_FAILURE(ExpectSame(criteria, options));
  }
  EXPECT_GT(found, 20U);
  EXPECT_TRUE(Run("EXEC GoodDetailTransaction @TitleID = 5,@Title = 'abc'").empty());
}

class OneGoodTest : public DetailTransactionTest {
 protected:
  static Rows Cells(const std::vector<DetailRow>& rows) {
    Rows cells;
    for (const DetailRow& r : rows) {
      cells.push_back({r.date, Text(r.store), r.storeName, r.person, r.comment, r.length.ToString(),
                       r.width.ToString(), r.amount3.ToString(), r.amount1.ToString(), r.amount2.ToString(),
                       r.price.ToString(), (r.amount1 * r.price).ToString(), Text(r.type), Text(r.document)});
    }
    return cells;
  }
};

TEST_F(OneGoodTest, ACombinationsMovementsComeByDateWithTheirMeasures) {
  Open(81);
  std::set<std::int64_t> values;
  for (const DetailRow& row : rows_) values.insert(row.valueId);
  for (const std::int64_t value : values) {
    const std::vector<DetailRow> movements =
        Meeting({{"", [=](const DetailRow& row) { return row.valueId == value; }}});
    const std::string good = Text(movements[0].good);
    EXPECT_EQ(Run(" EXEC OneGoodDetailTransaction @GoodCode = " + good + ",@DetailValueID = " + Text(value)),
              Cells(movements));
    EXPECT_TRUE(Run("EXEC OneGoodDetailTransaction @GoodCode = 999,@DetailValueID = " + Text(value)).empty());
  }
}

TEST_F(OneGoodTest, SearchPersonStoreAndDatesNarrowTheMovements) {
  std::map<int, std::size_t> found;
  for (unsigned seed = 91; seed <= 92; ++seed) {
    Open(seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 270; ++i) {
      const DetailRow row = rows_[random() % rows_.size()];
      const int title = i % 9 + 1;
      const Decimal numbers[] = {
          row.amount1, row.amount2, row.length, row.width, row.amount3, row.price, row.amount1 * row.price};
      const std::string text = title == 1   ? row.person
                               : title == 2 ? row.comment
                                            : numbers[title - 3].Abs().ToString();
      std::vector<DetailCriterion> criteria;
      criteria.push_back({"@GoodCode = " + Text(row.good) + ",@DetailValueID = " + Text(row.valueId),
                          [&](const DetailRow& r) { return r.valueId == row.valueId; }});
      if (text.empty()) continue;
      criteria.push_back(
          {"@TitleID = " + Text(title) + ",@Title = " + QuotedStr(text), [&](const DetailRow& r) {
             const Decimal cells[] = {r.amount1, r.amount2, r.length,           r.width,
                                      r.amount3, r.price,   r.amount1 * r.price};
             if (title == 1) return PlainText(r.person).find(PlainText(text)) != std::string::npos;
             if (title == 2) return PlainText(r.comment).find(PlainText(text)) != std::string::npos;
             return cells[title - 3].Abs().ToString() == text;
           }});
      if (random() % 3 == 0) {
        criteria.push_back({"@PerCode = " + Text(row.personCode),
                            [&](const DetailRow& r) { return r.personCode == row.personCode; }});
      }
      if (random() % 3 == 0) criteria.push_back(Criterion(kStore, 9, random));
      if (random() % 3 == 0) criteria.push_back(Criterion(kDateRange, 9, random));
      const std::vector<DetailRow> expected = Meeting(criteria);
      found[title] += expected.size();
      ASSERT_EQ(Run("EXEC OneGoodDetailTransaction " + JoinedParameters(criteria)), Cells(expected))
          << JoinedParameters(criteria);
    }
  }
  EXPECT_EQ(found.size(), 9U);
  for (const auto& [title, count] : found) EXPECT_GT(count, 10U) << title;
}

}  // namespace
}  // namespace goods
