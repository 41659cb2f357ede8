// GoodsAsset_Store_SP against stocks that are added up movement by movement.
#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "asset_company.h"
#include "company/embedded/sqlite.h"

namespace goods {
namespace {

constexpr int kMostStores = 50;
constexpr char kWholeStatement[] =
    "exec GoodsAsset_Store_SP @CalcBefore =0,@Reverse =0,@StoreCodes ='-1,0,10,10,10,13,13,13,16,',"
    "@ToDate='9',@FromDate=''";

// One call, and what it asks.
struct Call {
  std::string from;
  std::string to = "9";
  bool calcBefore = false;
  std::string storeCodes = "-1,0,";
  std::set<std::int64_t> listed;
  DrawnSearch search{"", [](const AssetGood&) { return true; }};

  std::string Statement() const {
    return "exec GoodsAsset_Store_SP @CalcBefore =" + std::string(calcBefore ? "1," : "0,") +
           search.parameters + "@StoreCodes ='" + storeCodes + "',@ToDate='" + to + "',@FromDate='" + from +
           "'";
  }
};

void List(Call& call, std::int64_t store, int times) {
  call.listed.insert(store);
  for (int i = 0; i < times; ++i) call.storeCodes += std::to_string(store) + ",";
}

Call RandomCall(std::mt19937& random, int stores) {
  Call call;
  for (int i = 0; i < stores; ++i) {
    if (random() % 3 != 0) List(call, StoreCode(i), 1 + static_cast<int>(random() % 3));
  }
  if (random() % 3 != 0) {
    call.from = RandomBound(random);
    call.to = RandomBound(random);
  }
  call.calcBefore = random() % 2 == 0;
  call.search = RandomGoodSearch(random, {"@GoodCode", "@GoodName", "", "@Reverse "});
  return call;
}

struct Stocks {
  Decimal before;
  std::map<std::int64_t, Decimal> within;
};

class StoreAsset : public ::testing::Test {
 protected:
  void Make(const AssetCompanyShape& shape) {
    file_.emplace("asset-" + std::to_string(shape.seed) + "-" + std::to_string(shape.stores) + ".company");
    WriteAssetCompany(file_->Path(), shape);
    connection_ = OpenCompany(file_->Path())->OpenConnection();
    goods_ = GoodsOfTables(*connection_);
    movements_ = MovementsOfTables(*connection_);
    stores_ = shape.stores;
    Price([](const std::vector<MovedRow>& card, const AssetGood&) {
      return card.empty() ? Decimal() : card.back().average;
    });
  }

  // The unit price that the amounts are to be at.
  template <typename PriceOf>
  void Price(PriceOf priceOf) {
    for (const AssetGood& good : goods_) {
      std::vector<MovedRow> card;
      std::copy_if(movements_.begin(), movements_.end(), std::back_inserter(card),
                   [&](const MovedRow& row) { return row.good == good.code; });
      prices_[good.code] = priceOf(card, good);
    }
  }

  Stocks StocksOf(const AssetGood& good, const Call& call) const {
    Stocks stocks;
    for (const MovedRow& row : movements_) {
      if (row.good != good.code) continue;
      if (row.date < call.from) stocks.before += row.quantity;
      if (row.date >= call.from && (row.date <= call.to || call.to == "9")) {
        stocks.within[row.store] += row.quantity;
      }
    }
    return stocks;
  }

  // Runs the call and compares every cell.
  void Compare(const Call& call) {
    SCOPED_TRACE(call.Statement());
    rows_ = AskRows(*connection_, call.Statement());
    std::size_t row = 0;
    for (const AssetGood& good : goods_) {
      if (!call.search.holds(good)) continue;
      ASSERT_LT(row, rows_.Count());
      ASSERT_EQ(Number(row, "GoodCode"), Decimal(good.code));
      ASSERT_EQ(rows_.Cell(row, 1).AsText(), good.name);
      CompareRow(row++, good, call);
      if (HasFatalFailure()) return;
    }
    ASSERT_EQ(row, rows_.Count());
  }

  void CompareRow(std::size_t row, const AssetGood& good, const Call& call) {
    const Stocks stocks = StocksOf(good, call);
    if (call.calcBefore) {
      ExpectGroup(row, "B0", good, stocks.before);
    } else {
      ExpectNulls(row, "B0");
    }
    Decimal others;
    for (const auto& [store, quantity] : stocks.within) {
      const std::int64_t position = (store - StoreCode(0)) / 3;
      const bool hasColumns = position < std::min(stores_, kMostStores) && call.listed.count(store) != 0;
      if (!hasColumns) others += quantity;
    }
    ExpectGroup(row, "E0", good, others);
    Decimal quantity = Number(row, "E0-1");
    Decimal amount = Number(row, "E0-Cost");
    for (int n = 1; n <= std::min(stores_, kMostStores); ++n) {
      const std::string group = "S" + std::to_string(n);
      const std::int64_t store = StoreCode(n - 1);
      if (call.listed.count(store) == 0) {
        ExpectNulls(row, group);
        continue;
      }
      const auto found = stocks.within.find(store);
      ExpectGroup(row, group, good, found == stocks.within.end() ? Decimal() : found->second);
      quantity += Number(row, group + "-1");
      amount += Number(row, group + "-Cost");
    }
    ASSERT_EQ(Number(row, "A0-1"), quantity);
    ASSERT_EQ(Number(row, "A0-Cost"), amount);
    ExpectUnits(row, "A0", good, quantity);
  }

  void ExpectGroup(std::size_t row, const std::string& group, const AssetGood& good, Decimal quantity) {
    ASSERT_EQ(Number(row, group + "-1"), quantity) << group << " of " << good.code;
    ASSERT_EQ(Number(row, group + "-Cost"), quantity * prices_[good.code]) << group << " of " << good.code;
    ExpectUnits(row, group, good, quantity);
  }

  // Whole second units, and a part that is smaller than one of them and of the same sign.
  void ExpectUnits(std::size_t row, const std::string& group, const AssetGood& good, Decimal quantity) {
    const Decimal whole = Number(row, group + "-2");
    const Decimal part = Number(row, group + "-3");
    ASSERT_EQ(whole * good.ratio + part, quantity) << group << " of " << good.code;
    if (good.ratio.IsZero()) {
      ASSERT_TRUE(whole.IsZero());
      return;
    }
    ASSERT_EQ(whole, whole.Rounded(0));
    ASSERT_LT(part.Abs(), good.ratio);
    ASSERT_TRUE(part.IsZero() || part.IsNegative() == quantity.IsNegative());
  }

  void ExpectNulls(std::size_t row, const std::string& group) {
    for (const char* figure : {"-1", "-2", "-3", "-Cost"}) {
      ASSERT_TRUE(rows_.Cell(row, *rows_.FindColumn(group + figure)).IsNull()) << group << figure;
    }
  }

  Decimal Number(std::size_t row, const std::string& column) const {
    return rows_.Cell(row, rows_.FindColumn(column).value()).AsDecimal();
  }

  std::optional<TestFile> file_;
  std::unique_ptr<IConnection> connection_;
  std::vector<AssetGood> goods_;
  std::vector<MovedRow> movements_;
  std::map<std::int64_t, Decimal> prices_;
  RowStore rows_;
  int stores_ = 0;
};

TEST_F(StoreAsset, ListedStoresAndTheOthersAreTheTotalInRandomCompanies) {
  int stores = 0;
  for (const unsigned seed : {1U, 2U, 3U, 4U, 5U, 6U}) {
    stores = seed == 6 ? 60 : stores == 0 ? 1 : stores * 2 + 1;
    Make({seed, stores, 900, seed % 2 == 0});
    std::mt19937 random(seed);
    for (int i = 0; i < 40; ++i) {
      Compare(RandomCall(random, stores));
      ASSERT_FALSE(HasFatalFailure()) << "seed " << seed;
    }
  }
}

TEST_F(StoreAsset, ACompanyHasColumnsForItsFirstFiftyStoresByCode) {
  const std::map<int, std::size_t> columns = {{0, 14}, {1, 18}, {50, 214}, {60, 214}};
  for (const auto& [stores, expected] : columns) {
    Make({7, stores, 300});
    Call call;
    for (int i = 0; i < stores; ++i) List(call, StoreCode(i), 3);
    Compare(call);
    ASSERT_EQ(rows_.Columns().size(), expected);
    EXPECT_EQ(rows_.Columns()[5].name, "B0-Cost");
    EXPECT_EQ(rows_.Columns()[expected - 8].name, "E0-1");
    EXPECT_EQ(rows_.Columns()[expected - 1].name, "A0-Cost");
    if (stores == 0) {
      EXPECT_EQ(Number(0, "E0-1"), Number(0, "A0-1"));
    } else {
      EXPECT_EQ(rows_.Columns()[expected - 9].name, "S" + std::to_string(std::min(stores, 50)) + "-Cost");
    }
  }
}

TEST_F(StoreAsset, TheWholeStatementOfTheWindowRuns) {
  Make({8, 6, 300});
  Call call;
  List(call, 10, 3);
  List(call, 13, 3);
  List(call, 16, 1);
  Compare(call);
  EXPECT_EQ(Ask(*connection_, kWholeStatement), Ask(*connection_, call.Statement()));
  EXPECT_EQ(rows_.Count(), goods_.size());
}

TEST_F(StoreAsset, RepeatedUnknownAndUnreadableCodesChangeNothing) {
  Make({9, 6, 300});
  Call once;
  List(once, 13, 1);
  List(once, 19, 1);
  const auto expected = Ask(*connection_, once.Statement());
  for (const char* codes : {"-1,0,13,19,13,13,19,", "19,13", "-1,0,,13,x,19,11,9000,1.5,", "13,19,-1,0"}) {
    Call call = once;
    call.storeCodes = codes;
    EXPECT_EQ(Ask(*connection_, call.Statement()), expected) << codes;
  }
  for (const char* codes : {"-1,0,", "", "-1,0,x,"}) {
    Call none;
    none.storeCodes = codes;
    Compare(none);
  }
}

TEST_F(StoreAsset, EveryBasisPricesTheAmounts) {
  Make({10, 5, 900, true});
  Call call;
  for (int i = 0; i < 4; ++i) List(call, StoreCode(i), 3);
  const auto run = [&](const std::string& basis, auto priceOf) {
    connection_->Execute("Exec RialiStock_SP " + basis);
    Price(priceOf);
    Compare(call);
  };
  using Card = std::vector<MovedRow>;
  for (const int sale : {0, 10}) {
    const auto prices = [sale](const Card& card) {
      std::vector<Decimal> found;
      for (const MovedRow& row : card) {
        if (row.type == (sale == 0 ? 2 : 1)) found.push_back(row.price);
      }
      return found;
    };
    run(std::to_string(sale + 1) + " , 1 , 1", [&](const Card& card, const AssetGood&) {
      const auto found = prices(card);
      return found.empty() ? Decimal() : *std::max_element(found.begin(), found.end());
    });
    run(std::to_string(sale + 2) + " , 1 , 2", [&](const Card& card, const AssetGood&) {
      const auto found = prices(card);
      return found.empty() ? Decimal() : *std::min_element(found.begin(), found.end());
    });
    run(std::to_string(sale + 3) + " , 1 , 3", [&](const Card& card, const AssetGood&) {
      const auto found = prices(card);
      return found.empty() ? Decimal() : found.back();
    });
  }
  const auto asked = [&](const std::string& field, const std::string& from, const AssetGood& good) {
    const RowStore rows =
        AskRows(*connection_, "select " + field + " from " + from + std::to_string(good.code));
    return rows.Count() == 0 ? Decimal() : rows.Cell(0, 0).AsDecimal();
  };
  run("5 , 1 , 2", [&](const Card&, const AssetGood& good) {
    return asked("BuyPrice", "CostLevelPrices where LevelCode = 2 and Kala = ", good);
  });
  run("5 , 0 , 1", [&](const Card&, const AssetGood& good) {
    return asked("SellPrice", "CostLevelPrices where LevelCode = 1 and Kala = ", good);
  });
  run("5 , 0 , -100", [&](const Card&, const AssetGood& good) {
    return asked("ConsumerPrice", "GoodInf where Code = ", good);
  });
  run("77 , 0 , 0", [](const Card&, const AssetGood&) { return Decimal(); });
  run("-1 , -1 , -1",
      [](const Card& card, const AssetGood&) { return card.empty() ? Decimal() : card.back().average; });
}

TEST_F(StoreAsset, StockBeforeAndTheMovementsOfAPeriodAreTheStockAtItsEnd) {
  Make({11, 5, 900});
  std::mt19937 random(3);
  for (int i = 0; i < 20; ++i) {
    Call period;
    period.from = "1402/03/15";
    period.to = "1402/0" + std::to_string(3 + random() % 4) + "/2" + std::to_string(random() % 10);
    period.calcBefore = true;
    Call atTheEnd;
    atTheEnd.to = period.to;
    const RowStore parts = AskRows(*connection_, period.Statement());
    const RowStore whole = AskRows(*connection_, atTheEnd.Statement());
    ASSERT_EQ(parts.Count(), goods_.size());
    for (std::size_t row = 0; row < parts.Count(); ++row) {
      const auto of = [row](const RowStore& rows, const char* column) {
        return rows.Cell(row, *rows.FindColumn(column)).AsDecimal();
      };
      ASSERT_EQ(of(parts, "B0-1") + of(parts, "A0-1"), of(whole, "A0-1"));
    }
  }
}

TEST_F(StoreAsset, TheStoredRemaindersServeWhereNoPeriodLimitsTheMovements) {
  Make({12, 5, 500});
  Call all;
  List(all, 13, 1);
  for (const char* from : {"", "0000/00/00"}) {
    for (const char* to : {"9", "9999/99/99", ""}) {
      Call open = all;
      open.from = from;
      open.to = to;
      EXPECT_EQ(Ask(*connection_, open.Statement()), Ask(*connection_, all.Statement())) << from << " " << to;
    }
  }
  Call wide = all;
  wide.from = "0001";
  wide.to = "8";
  const auto fromMovements = Ask(*connection_, wide.Statement());
  EXPECT_EQ(Ask(*connection_, all.Statement()), fromMovements);
  Database(file_->Path(), SQLITE_OPEN_READWRITE).Run("UPDATE GoodStoreStock SET Mogodi = 5");
  EXPECT_NE(Ask(*connection_, all.Statement()), fromMovements);
  connection_->Execute("Exec dbo.DefineRemainInStore 0, 0");
  EXPECT_EQ(Ask(*connection_, all.Statement()), fromMovements);
}

TEST_F(StoreAsset, AReversedSearchFindsTheGoodsThatTheSearchLeavesOut) {
  Make({13, 2, 50});
  for (const char* search : {"@GoodCode='3'", "@GoodCode='x'", "@GoodName='%'", "@GoodName=''''",
                             "@GoodName='پيچ'", "@GoodCode='3',@GoodName='zz'"}) {
    std::set<std::string> codes;
    std::size_t count = 0;
    for (const char* reverse : {"0", "1"}) {
      for (const auto& row :
           Ask(*connection_, "exec GoodsAsset_Store_SP @Reverse =" + std::string(reverse) + "," + search)) {
        codes.insert(row[0]);
        ++count;
      }
    }
    EXPECT_EQ(count, goods_.size()) << search;
    EXPECT_EQ(codes.size(), goods_.size()) << search;
  }
  EXPECT_EQ(Ask(*connection_, "exec GoodsAsset_Store_SP @Reverse =1").size(), goods_.size());
  EXPECT_EQ(Ask(*connection_, "exec GoodsAsset_Store_SP @GoodCode='x'").size(), 0U);
}

TEST_F(StoreAsset, AStoppedRunEndsAsCancelledAndTheNextOneRuns) {
  struct Stop : IStatementProgress {
    bool Progress(std::size_t) override { return false; }
  } stop;
  Make({14, 5, 20'000});
  // Out of the stock cards it takes long enough to be stopped.
  Database(file_->Path(), SQLITE_OPEN_READWRITE).Run("DELETE FROM PackedMovements");
  RowStore rows;
  EXPECT_THROW(connection_->Open("exec GoodsAsset_Store_SP @ToDate='1402/05/01'", rows, &stop),
               StatementCancelled);
  connection_->Execute("exec GoodsAsset_Store_SP");
  EXPECT_EQ(Ask(*connection_, "exec GoodsAsset_Store_SP @ToDate='1402/05/01'").size(), goods_.size());
}

}  // namespace
}  // namespace goods
