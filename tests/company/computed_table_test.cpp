// Tables that are worked out while they are read, asked the ways SQLite asks them.
#include "company/embedded/sqlite.h"
#include "company_fixture.h"

namespace goods {
namespace {

class ComputedTables : public ::testing::Test {
 protected:
  // Every row as one text, sorted by SQLite.
  std::string Rows(const std::string& from) {
    return db_.AskText("SELECT group_concat(row, ';') FROM (SELECT " + from + " ORDER BY 1)");
  }
  Database db_{SmallDemoPath(), SQLITE_OPEN_READONLY};
};

constexpr char kAsset[] = "a.Kala || ',' || a.Anbar || ',' || a.KardexAsset || ',' || a.DetailAsset AS row";
constexpr char kOperationRow[] =
    "m.Kala || ',' || m.Radif || ',' || m.Anbar || ',' || m.OperationAmount AS row";
constexpr char kNegative[] = "n.Kala || ',' || n.Radif || ',' || n.Tedad AS row";

TEST_F(ComputedTables, GoodByGoodTheyHaveTheRowsOfTheWhole) {
  const std::string asset = kAsset;
  const std::string whole = Rows(asset + " FROM detail_asset a");
  EXPECT_NE(whole, "");
  EXPECT_EQ(Rows(asset + " FROM GoodInf g CROSS JOIN detail_asset a ON a.Kala = g.Code"), whole);
  const std::string operation = kOperationRow;
  const std::string mismatches = Rows(operation + " FROM detail_operation_mismatch m");
  EXPECT_NE(mismatches, "");
  EXPECT_EQ(Rows(operation + " FROM GoodInf g CROSS JOIN detail_operation_mismatch m ON m.Kala = g.Code"),
            mismatches);
  const std::string negative = kNegative;
  EXPECT_EQ(Rows(negative + " FROM GoodInf g CROSS JOIN negative_stock n ON n.Kala = g.Code"),
            Rows(negative + " FROM negative_stock n"));
}

TEST_F(ComputedTables, AReadingBrokenOffDoesNotReachIntoTheNext) {
  for (const char* table : {"detail_asset", "detail_operation_mismatch"}) {
    const std::string name = table;
    const std::string first = "SELECT x.Anbar FROM " + name + " x WHERE x.Kala = g.Code LIMIT 1";
    EXPECT_EQ(db_.AskInteger("SELECT count(*) FROM GoodInf g WHERE EXISTS (" + first + ")"),
              db_.AskInteger("SELECT count(DISTINCT Kala) FROM " + name))
        << table;
    EXPECT_EQ(db_.AskText("SELECT group_concat((" + first + ")) FROM GoodInf g"),
              db_.AskText("SELECT group_concat((SELECT Anbar FROM (SELECT * FROM " + name +
                          ") x WHERE +x.Kala = g.Code LIMIT 1)) FROM GoodInf g"))
        << table;
  }
}

TEST_F(ComputedTables, AGoodThatIsNoWholeNumberHasNoRows) {
  EXPECT_EQ(db_.AskInteger("SELECT count(*) FROM detail_asset WHERE Kala = 'x'"), 0);
  EXPECT_EQ(db_.AskInteger("SELECT count(*) FROM detail_asset WHERE Kala = NULL"), 0);
}

TEST_F(ComputedTables, ArgumentsMustAllBeGiven) {
  EXPECT_EQ(db_.AskInteger("SELECT count(*) FROM stock_figures(1, NULL, NULL, NULL, NULL)"), 1);
  EXPECT_THROW(db_.AskInteger("SELECT count(*) FROM stock_figures(1, NULL, NULL)"), SqliteError);
  EXPECT_THROW(db_.AskInteger("SELECT count(*) FROM stock_figures"), SqliteError);
}

TEST_F(ComputedTables, FiguresFollowArgumentsThatChangeFromRowToRow) {
  const std::string figures =
      "SELECT group_concat(f.Mogodi) FROM (SELECT 1 AS n, '1401/01/01' AS last UNION ALL SELECT 2, "
      "'1402/06/31'"
      " UNION ALL SELECT 3, '1401/01/01' ORDER BY n) d CROSS JOIN stock_figures(4, '', d.last, 0, 0) f";
  const auto upTo = [&](const std::string& last) {
    return db_.AskText("SELECT dec_sum(Tedad) FROM Kardex WHERE Kala = 4 AND Date <= '" + last + "'");
  };
  const std::string early = upTo("1401/01/01").empty() ? "0" : upTo("1401/01/01");
  EXPECT_EQ(db_.AskText(figures), early + "," + upTo("1402/06/31") + "," + early);
}

}  // namespace
}  // namespace goods
