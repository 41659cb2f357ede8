// GoodKardex_Overall_Money and GoodKardex_Overall_Tedad against movements that are added up one by one.
#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <tuple>

#include "asset_company.h"
#include "company/embedded/sqlite.h"

namespace goods {
namespace {

constexpr const char* kIncoming[] = {"YearStart", "Buy",          "ReturnSell",  "MakeInput",
                                     "Resid",     "kala_Daramad", "sayer_varade"};
constexpr const char* kOutgoing[] = {"Sell",   "ReturnBuy",   "MakeOutPut",
                                     "Havale", "kala_Hazine", "sayer_sadere"};
constexpr const char* kSadereBits[] = {"Sell", "ReturnBuy", "MakeOutPut", "Havale", "kala_Hazine"};
constexpr const char* kVaredeBits[] = {"Buy",   "ReturnSell",   "MakeInput",
                                       "Resid", "kala_Daramad", "YearStart"};
// The types that have a column of their own; every other movement is among the others.
const std::map<std::string, std::set<std::int64_t>> kTypesByColumn = {{"YearStart", {3}},
                                                                      {"Buy", {2}},
                                                                      {"ReturnSell", {4}},
                                                                      {"Resid", {7, 22}},
                                                                      {"MakeInput", {0, 8, 18, 20}},
                                                                      {"kala_Daramad", {23}},
                                                                      {"Sell", {1, 12, 13}},
                                                                      {"ReturnBuy", {5}},
                                                                      {"Havale", {6, 21}},
                                                                      {"kala_Hazine", {11}},
                                                                      {"MakeOutPut", {9, 10, 19}}};

struct Call {
  bool money = false;
  std::string from = "0000/00/00";
  std::string to = "9999/99/99";
  bool calcBefore = false;
  std::int64_t store = 0;
  int sadere = 0;
  int varede = 0;
  DrawnSearch search{"", [](const AssetGood&) { return true; }};

  std::string Statement() const {
    return std::string("Exec ") + (money ? "GoodKardex_Overall_Money " : "GoodKardex_Overall_Tedad ") +
           search.parameters + (store == 0 ? "" : "@anbarcode=" + std::to_string(store) + ",") +
           "@FromDate='" + from + "',@ToDate='" + to + "',@CalcBeforeDatePeriod=" + (calcBefore ? "1" : "0") +
           ",@script_Sadere_sayer=" + std::to_string(sadere) +
           ",@script_Varede_sayer=" + std::to_string(varede);
  }
};

Call RandomCall(std::mt19937& random) {
  Call call;
  call.money = random() % 2 == 0;
  if (random() % 3 != 0) {
    call.from = RandomBound(random);
    call.to = RandomBound(random);
    if (call.to == "9") call.to = "9999/99/99";
  }
  call.calcBefore = random() % 2 == 0;
  if (random() % 3 == 0) call.store = StoreCode(static_cast<int>(random() % 5U));
  if (random() % 2 == 0) call.sadere = static_cast<int>(random() % 32);
  if (random() % 2 == 0) call.varede = static_cast<int>(random() % 64);
  call.search = RandomGoodSearch(random, {"@KalaCode", "@KalaName", "@AbbName", "@Reverst"});
  return call;
}

using Columns = std::map<std::string, Decimal>;

class OverallTurnover : public ::testing::Test {
 protected:
  void Make(const AssetCompanyShape& shape) {
    file_.emplace("overall-" + std::to_string(shape.seed) + ".company");
    WriteAssetCompany(file_->Path(), shape);
    Reopen();
  }
  void Reopen() {
    connection_ = OpenCompany(file_->Path())->OpenConnection();
    goods_ = GoodsOfTables(*connection_);
    movements_ = MovementsOfTables(*connection_);
  }

  static std::string ColumnOf(const MovedRow& row) {
    const bool incoming = row.quantity > Decimal();
    for (const auto& [column, types] : kTypesByColumn) {
      const bool comesIn =
          std::find(std::begin(kIncoming), std::end(kIncoming), column) != std::end(kIncoming);
      if (types.count(row.type) != 0 && comesIn == incoming) return column;
    }
    return incoming ? "sayer_varade" : "sayer_sadere";
  }

  // None where the good is not to be listed.
  std::optional<Columns> Expected(const AssetGood& good, const Call& call) const {
    Columns sums;
    bool moved = false;
    for (const MovedRow& row : movements_) {
      if (row.good != good.code || (call.store != 0 && row.store != call.store)) continue;
      const Decimal figure = call.money ? row.quantity * row.cost : row.quantity;
      if (row.date < call.from && call.calcBefore) sums["sarjame_GhableDore"] += figure;
      if (row.date < call.from || row.date > call.to) continue;
      sums[ColumnOf(row)] += figure.Abs();
      moved = true;
    }
    if (!moved && sums["sarjame_GhableDore"].IsZero()) return std::nullopt;
    const auto hide = [&](const char* column, const char* other) {
      sums[other] += sums[column];
      sums[column] = Decimal();
    };
    for (int i = 0; i < 5; ++i) {
      if ((call.sadere & (1 << i)) != 0) hide(kSadereBits[i], "sayer_sadere");
    }
    for (int i = 0; i < 6; ++i) {
      if ((call.varede & (1 << i)) != 0) hide(kVaredeBits[i], "sayer_varade");
    }
    return sums;
  }

  void Compare(const Call& call) {
    SCOPED_TRACE(call.Statement());
    rows_ = AskRows(*connection_, call.Statement());
    std::size_t row = 0;
    for (const AssetGood& good : goods_) {
      std::optional<Columns> expected = Expected(good, call);
      if (!call.search.holds(good) || !expected) continue;
      ASSERT_LT(row, rows_.Count());
      ASSERT_EQ(Number(row, "KalaCode"), Decimal(good.code));
      ASSERT_EQ(rows_.Cell(row, *rows_.FindColumn("AbbName1")).AsText(), good.abbName);
      ASSERT_EQ(rows_.Cell(row, *rows_.FindColumn("kalaname")).AsText(), good.name);
      ASSERT_EQ(Number(row, "Anbar"), Decimal(call.store));
      ASSERT_EQ(Number(row, "sarjame_GhableDore"), (*expected)["sarjame_GhableDore"]);
      for (const char* column : kIncoming) ASSERT_EQ(Number(row, column), (*expected)[column]) << column;
      for (const char* column : kOutgoing) ASSERT_EQ(Number(row, column), (*expected)[column]) << column;
      ASSERT_EQ(Number(row, "Remained"), Number(row, "sarjame_GhableDore") + Incoming(row) - Outgoing(row));
      ++row;
    }
    ASSERT_EQ(row, rows_.Count());
  }

  Decimal Number(std::size_t row, const std::string& column) const {
    return rows_.Cell(row, rows_.FindColumn(column).value()).AsDecimal();
  }
  Decimal Incoming(std::size_t row) const {
    Decimal sum;
    for (const char* column : kIncoming) sum += Number(row, column);
    return sum;
  }
  Decimal Outgoing(std::size_t row) const {
    Decimal sum;
    for (const char* column : kOutgoing) sum += Number(row, column);
    return sum;
  }

  std::optional<TestFile> file_;
  std::unique_ptr<IConnection> connection_;
  std::vector<AssetGood> goods_;
  std::vector<MovedRow> movements_;
  RowStore rows_;
};

TEST_F(OverallTurnover, BeforePlusIncomingLessOutgoingRemainsInRandomCompanies) {
  for (const unsigned seed : {21U, 22U, 23U, 24U, 25U}) {
    Make({seed, 4, 900, seed % 2 == 0});
    std::mt19937 random(seed);
    for (int i = 0; i < 60; ++i) {
      Compare(RandomCall(random));
      ASSERT_FALSE(HasFatalFailure()) << "seed " << seed;
    }
  }
}

TEST_F(OverallTurnover, HidingAnyColumnsChangesNeitherRemainderNorSums) {
  Make({26, 3, 900});
  for (const bool money : {false, true}) {
    Call call;
    call.money = money;
    call.from = "1402/02/15";
    call.to = "1402/05/10";
    call.calcBefore = true;
    Compare(call);
    std::vector<std::tuple<Decimal, Decimal, Decimal>> sums;
    for (std::size_t row = 0; row < rows_.Count(); ++row) {
      sums.emplace_back(Number(row, "Remained"), Incoming(row), Outgoing(row));
    }
    for (int mask = 0; mask < 64; ++mask) {
      call.varede = mask;
      call.sadere = mask * 7 % 32;
      Compare(call);
      ASSERT_EQ(rows_.Count(), sums.size());
      for (std::size_t row = 0; row < rows_.Count(); ++row) {
        ASSERT_EQ(std::tuple(Number(row, "Remained"), Incoming(row), Outgoing(row)), sums[row]) << mask;
      }
    }
    EXPECT_EQ(call.varede, 63);
    call.sadere = 31;
    Compare(call);
    EXPECT_EQ(Number(0, "sayer_sadere"), Outgoing(0));
    EXPECT_EQ(Number(0, "sayer_varade"), Incoming(0));
  }
}

TEST_F(OverallTurnover, EveryMovementTypeFallsIntoOneColumn) {
  Make({27, 1, 0});
  {
    Database file(file_->Path(), SQLITE_OPEN_READWRITE);
    Transaction transaction(file);
    Statement good = file.Prepare("INSERT INTO GoodInf(GrpCode, Code, Name, Unit) VALUES(1, ?1, 'x', 1)");
    Statement row = file.Prepare(
        "INSERT INTO Kardex(Kala, Date, Radif, Anbar, Tedad, Gheymat, Fi, Miangin, Type, OperationCode,"
        " OperationRow) VALUES(?1, '1402/01/01', ?1, 10, ?2, 3000000000, 0, 0, ?3, 1, 1)");
    std::int64_t code = 100;
    for (std::int64_t type = -1; type <= 27; ++type) {
      for (const std::int64_t units : {2'000'000'000, -2'000'000'000}) {
        good.Bind(1, code);
        good.Run();
        row.Bind(1, code++);
        row.Bind(2, units);
        row.Bind(3, type);
        row.Run();
      }
    }
    transaction.Commit();
  }
  Reopen();
  for (const bool money : {false, true}) {
    Call call;
    call.money = money;
    Compare(call);
    ASSERT_EQ(rows_.Count(), 58U);
    const Decimal figure(money ? 6 : 2);
    for (std::size_t row = 0; row < rows_.Count(); ++row) {
      const bool incoming = row % 2 == 0;
      EXPECT_EQ(Number(row, "Remained"), incoming ? figure : -figure) << row;
      const auto filled = [&](const char* column) { return Number(row, column) == figure; };
      EXPECT_EQ(std::count_if(std::begin(kIncoming), std::end(kIncoming), filled), incoming ? 1 : 0) << row;
      EXPECT_EQ(std::count_if(std::begin(kOutgoing), std::end(kOutgoing), filled), incoming ? 0 : 1) << row;
    }
  }
}

TEST_F(OverallTurnover, AGoodThatOnlyHasAStockBeforeIsListedWhereThatIsAskedFor) {
  Make({28, 1, 300});
  Call call;
  call.from = "1402/11/01";
  Compare(call);
  EXPECT_EQ(rows_.Count(), 0U);
  call.calcBefore = true;
  Compare(call);
  EXPECT_GT(rows_.Count(), 5U);
  EXPECT_EQ(Number(0, "Remained"), Number(0, "sarjame_GhableDore"));
  call.from = "0000/00/00";
  Compare(call);
  EXPECT_TRUE(Number(0, "sarjame_GhableDore").IsZero());
}

TEST_F(OverallTurnover, QuantitiesOverAllStoresAreTheStoredStock) {
  Make({29, 3, 900});
  Compare(Call{});
  for (std::size_t row = 0; row < rows_.Count(); ++row) {
    const RowStore stock = AskRows(
        *connection_, "select Mogodi from GoodInf_VW where Code = " + Number(row, "KalaCode").ToString());
    EXPECT_EQ(Number(row, "Remained"), stock.Cell(0, 0).AsDecimal());
  }
}

TEST_F(OverallTurnover, BoundsLeftOutEmptyOrOpenMeanTheSame) {
  Make({30, 2, 200});
  for (const char* procedure : {"Exec GoodKardex_Overall_Money ", "Exec GoodKardex_Overall_Tedad "}) {
    const auto all = Ask(*connection_, std::string(procedure) + "@Reverst=0");
    EXPECT_GT(all.size(), 5U);
    for (const char* dates : {"@FromDate='0000/00/00',@ToDate='9999/99/99'", "@FromDate='',@ToDate=''",
                              "@FromDate=null,@ToDate=null", "@FromDate='1400/01/01'"}) {
      EXPECT_EQ(Ask(*connection_, std::string(procedure) + dates), all) << dates;
    }
    EXPECT_TRUE(
        Ask(*connection_, std::string(procedure) + "@FromDate='1402/05/01',@ToDate='1402/04/01'").empty());
    EXPECT_TRUE(Ask(*connection_, std::string(procedure) + "@anbarcode=12345").empty());
    EXPECT_NE(Refusal(*connection_, std::string(procedure) + "@anbarcode=x"), "");
  }
}

TEST_F(OverallTurnover, ASearchTextWithQuotesAndPercentSignsIsTakenAsItStands) {
  Make({31, 1, 900});
  for (const char* search :
       {"@KalaName='%'", "@KalaName=''''", "@AbbName='%1'", "@KalaName='_'", "@KalaCode='3'"}) {
    const auto found = Ask(*connection_, std::string("Exec GoodKardex_Overall_Tedad @Reverst=0,") + search);
    const auto left = Ask(*connection_, std::string("Exec GoodKardex_Overall_Tedad @Reverst=1,") + search);
    EXPECT_EQ(found.size() + left.size(), goods_.size() - 1) << search;
  }
  EXPECT_TRUE(Ask(*connection_, "Exec GoodKardex_Overall_Tedad @KalaName='_'").empty());
  EXPECT_FALSE(Ask(*connection_, "Exec GoodKardex_Overall_Tedad @AbbName='%1'").empty());
}

}  // namespace
}  // namespace goods
