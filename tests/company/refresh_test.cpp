// The procedures that refresh derived figures.
#include <map>

#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

class RefreshTest : public ::testing::Test {
 protected:
  RefreshTest() {
    std::filesystem::create_directories(std::filesystem::path(file_.Path()).parent_path());
    std::filesystem::copy_file(SmallDemoPath(), file_.Path());
    connection_ = OpenCompany(file_.Path())->OpenConnection();
  }
  // The rows of a card, by column.
  Decimal Last(std::int64_t good, const char* column) {
    const RowStore card = AskRows(*connection_, "Exec Kardex_Proc " + std::to_string(good));
    return card.Count() == 0 ? Decimal() : card.Cell(card.Count() - 1, *card.FindColumn(column)).AsDecimal();
  }
  Decimal Single(const std::string& statement) {
    const RowStore rows = AskRows(*connection_, statement);
    EXPECT_EQ(rows.Count(), 1U) << statement;
    return rows.Cell(0, 0).AsDecimal();
  }
  void Spoil(const char* sql) { Database(file_.Path(), SQLITE_OPEN_READWRITE).Run(sql); }
  // The best unit price of a good's rows of one type.
  std::optional<Decimal> Extreme(std::int64_t good, int type, bool highest) {
    std::optional<Decimal> best;
    const RowStore rows = AskRows(*connection_, "select Fi from Kardex where Kala = " + std::to_string(good) +
                                                    " and Type = " + std::to_string(type));
    for (std::size_t row = 0; row < rows.Count(); ++row) {
      const Decimal price = rows.Cell(row, 0).AsDecimal();
      if (!best || (highest ? price > *best : price < *best)) best = price;
    }
    return best;
  }

  TestFile file_{"refresh.company"};
  std::unique_ptr<IConnection> connection_;
};

TEST_F(RefreshTest, StoredStockIsThatOfTheCards) {
  Spoil("UPDATE GoodStock SET Mogodi = 1, varede = 2, sadere = 3, Jam_Kol = 4, OperationDate = 'x'");
  connection_->Execute("Exec UpdateMogodiKala 0");
  for (const std::int64_t good : {1, 2, 5, 12, 60}) {
    const std::string where = " from GoodInf_VW where Code = " + std::to_string(good);
    EXPECT_EQ(Single("select Mogodi" + where), Last(good, "Bagh"));
    EXPECT_EQ(Single("select varede - sadere" + where), Last(good, "Bagh"));
    EXPECT_EQ(Single("select gheymat_miangin" + where), Last(good, "Miangin"));
    EXPECT_EQ(Single("select Jam_Kol" + where), Last(good, "Mab_Bagh"));
  }
  EXPECT_EQ(Ask(*connection_, "select OperationDate from GoodInf_VW where Code = 60")[0][0], "");
}

TEST_F(RefreshTest, OneGoodsStockIsRefreshedAlone) {
  Spoil("UPDATE GoodStock SET Mogodi = 1");
  connection_->Execute("Exec UpdateMogodiKala @GoodCode = 12");
  EXPECT_EQ(Single("select Mogodi from GoodInf_VW where Code = 12"), Last(12, "Bagh"));
  EXPECT_EQ(Single("select Mogodi from GoodInf_VW where Code = 2"), Decimal::FromUnits(1));
}

TEST_F(RefreshTest, WholeSecondUnitsLeaveAPartSmallerThanOne) {
  const RowStore rows = AskRows(
      *connection_, "select Mogodi, Mogodi2, Meghdar_Formool from GoodInf_VW where Meghdar_Formool > 0");
  ASSERT_GT(rows.Count(), 5U);
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    const Decimal whole = rows.Cell(row, 1).AsDecimal();
    const Decimal part = rows.Cell(row, 0).AsDecimal() - whole * rows.Cell(row, 2).AsDecimal();
    EXPECT_EQ(whole, whole.Rounded(0));
    EXPECT_LT(part.Abs(), rows.Cell(row, 2).AsDecimal());
  }
}

TEST_F(RefreshTest, RemainderInAStoreIsThatOfTheCard) {
  Spoil("UPDATE GoodStoreStock SET Mogodi = 5");
  connection_->Execute("Exec dbo.DefineRemainInStore 12, 2");
  Decimal expected;
  const RowStore rows = AskRows(*connection_, "select Tedad from Kardex where Kala = 12 and Anbar = 2");
  for (std::size_t row = 0; row < rows.Count(); ++row) expected += rows.Cell(row, 0).AsDecimal();
  EXPECT_EQ(Single("select Mogodi from GoodStoreStock where Kala = 12 and Anbar = 2"), expected);
  EXPECT_EQ(Single("select Mogodi from GoodStoreStock where Kala = 12 and Anbar = 1"), Decimal::FromUnits(5));
  connection_->Execute("Exec dbo.DefineRemainInStore 0, 0");
  EXPECT_EQ(Single("select sum(Mogodi) from GoodStoreStock where Kala = 12"), Last(12, "Bagh"));
}

TEST_F(RefreshTest, ValuationAtCostIsTheAverage) {
  connection_->Execute("Exec RialiStock_SP -1 , -1 , -1");
  EXPECT_EQ(Single("select Stock from RialiStock where Kala = 12"), Last(12, "Miangin"));
  EXPECT_EQ(Single("select Stock from RialiStock where Kala = 60"), Decimal());
  EXPECT_EQ(AskRows(*connection_, "select Kala from RialiStock").Count(), 60U);
}

TEST_F(RefreshTest, ValuationByPriceHistoryIsTheExtremeOrTheLast) {
  const std::map<std::string, std::pair<int, bool>> bases = {
      {"1", {2, true}}, {"2", {2, false}}, {"11", {1, true}}, {"12", {1, false}}};
  for (const auto& [basis, rule] : bases) {
    connection_->Execute("Exec RialiStock_SP " + basis + " , 1 , " + basis);
    for (const std::int64_t good : {3, 12, 60}) {
      EXPECT_EQ(Single("select Stock from RialiStock where Kala = " + std::to_string(good)),
                Extreme(good, rule.first, rule.second).value_or(Decimal()))
          << basis << " " << good;
    }
  }
  connection_->Execute("Exec RialiStock_SP 13 , 1 , 13");
  EXPECT_EQ(
      Single("select Stock from RialiStock where Kala = 12"),
      Single("select top 1 Fi from Kardex where Kala = 12 and Type = 1 order by Date desc, Radif desc"));
  connection_->Execute("Exec RialiStock_SP 3 , 1 , 3");
  EXPECT_EQ(
      Single("select Stock from RialiStock where Kala = 12"),
      Single("select top 1 Fi from Kardex where Kala = 12 and Type = 2 order by Date desc, Radif desc"));
}

TEST_F(RefreshTest, ValuationByPriceLevelTakesTheBuyingOrSellingPrice) {
  connection_->Execute("Exec RialiStock_SP 5 , 1 , 2");
  EXPECT_EQ(Single("select Stock from RialiStock where Kala = 12"),
            Single("select BuyPrice from CostLevelPrices where Kala = 12 and LevelCode = 2"));
  connection_->Execute("Exec RialiStock_SP 5 , 0 , 2");
  EXPECT_EQ(Single("select Stock from RialiStock where Kala = 12"),
            Single("select SellPrice from CostLevelPrices where Kala = 12 and LevelCode = 2"));
  connection_->Execute("Exec RialiStock_SP 5 , 0 , -100");
  EXPECT_EQ(Single("select Stock from RialiStock where Kala = 12"),
            Single("select ConsumerPrice from GoodInf where Code = 12"));
  connection_->Execute("Exec RialiStock_SP 5 , 0 , 77");
  EXPECT_EQ(Single("select Stock from RialiStock where Kala = 12"), Decimal());
}

TEST_F(RefreshTest, ARefreshThatIsStoppedLeavesTheFiguresAsTheyWere) {
  struct Stop : IStatementProgress {
    bool Progress(std::size_t) override { return false; }
  } stop;
  Spoil("UPDATE GoodStock SET Mogodi = 1");
  EXPECT_THROW(connection_->Execute("Exec UpdateMogodiKala 0", &stop), StatementCancelled);
  EXPECT_EQ(Single("select sum(Mogodi) from GoodStock"), Decimal::FromUnits(60));
  connection_->Execute("Exec UpdateMogodiKala 0");
  EXPECT_NE(Single("select sum(Mogodi) from GoodStock"), Decimal::FromUnits(60));
}

TEST_F(RefreshTest, AReadingStatementCannotWrite) {
  const std::string before = ReadFile(file_.Path());
  EXPECT_NE(Refusal(*connection_, "update Kardex set Tedad = 0"), "");
  EXPECT_NE(Refusal(*connection_, "select Code from Kardex where Kala = 1 delete from Kardex"), "");
  EXPECT_EQ(AskRows(*connection_, "Exec Kardex_Proc 12").Count() > 0, true);
  EXPECT_EQ(ReadFile(file_.Path()), before);
}

}  // namespace
}  // namespace goods
