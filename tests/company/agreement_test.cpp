// Figures agree across reports: the stock card, the goods turnover list, the stock per store, the overall
// turnover and the detail stock of one company tell the same, over random companies and over the demo
// company.
#include <filesystem>
#include <functional>
#include <map>
#include <random>
#include <set>

#include "asset_company.h"
#include "company_fixture.h"
#include "detail_company.h"
#include "search_company.h"
#include "turnover_company.h"

namespace goods {
namespace {

using Figures = std::map<std::int64_t, Decimal>;  // by good

Decimal Of(const Figures& figures, std::int64_t good) {
  const auto found = figures.find(good);
  return found == figures.end() ? Decimal() : found->second;
}

struct CardRow {
  std::string date;
  std::int64_t store = 0;
  Decimal incoming, outgoing, remainder, remainderInStore, cost, average;
};

// One company, asked through its reports' own statements.
class Reports {
 public:
  explicit Reports(const std::string& path) : connection_(OpenCompany(path)->OpenConnection()) {
    for (const auto& row : Ask(*connection_, "select Code from Stores order by Code"))
      stores_.push_back(std::stoll(row[0]));
    connection_->Execute("Exec dbo.DefineRemainInStore 0, 0");
    connection_->Execute("Exec RialiStock_SP -1 , -1 , -1");
    for (const auto& row : Ask(*connection_, "select Code from GoodInf order by Code"))
      ReadCard(std::stoll(row[0]));
  }

  const std::map<std::int64_t, std::vector<CardRow>>& Cards() const { return cards_; }
  const std::vector<std::int64_t>& Stores() const { return stores_; }
  IConnection& Connection() { return *connection_; }

  // A report's column, rows of one good added up.
  Figures Column(const std::string& statement, const char* good, const std::string& column) {
    return Columns(statement, good, {column})[0];
  }
  std::vector<Figures> Columns(const std::string& statement, const char* good,
                               const std::vector<std::string>& columns) {
    const RowStore rows = AskRows(*connection_, statement);
    std::vector<Figures> figures(columns.size());
    for (std::size_t row = 0; row < rows.Count(); ++row) {
      const std::int64_t code = rows.Cell(row, rows.FindColumn(good).value()).AsInteger();
      for (std::size_t i = 0; i < columns.size(); ++i)
        figures[i][code] += rows.Cell(row, rows.FindColumn(columns[i]).value()).AsDecimal();
    }
    return figures;
  }

  std::string PerStore(const std::string& from, const std::string& to) const {
    std::string codes = "-1,0,";
    for (const std::int64_t store : stores_) codes += std::to_string(store) + ",";
    return "exec GoodsAsset_Store_SP @CalcBefore =" + std::string(from.empty() ? "0" : "1") +
           ",@Reverse =0,@StoreCodes ='" + codes + "',@ToDate='" + to + "',@FromDate='" + from + "'";
  }
  // The columns of that ending: of every store, and of the others.
  std::vector<std::string> StoreColumns(const std::string& ending) const {
    std::vector<std::string> columns = {"E0" + ending};
    for (std::size_t i = 1; i <= stores_.size(); ++i) columns.push_back("S" + std::to_string(i) + ending);
    return columns;
  }

  std::pair<std::string, std::string> RandomPeriod(std::mt19937& random) const {
    std::vector<std::string> dates;
    for (const auto& [good, card] : cards_) {
      if (!card.empty()) dates.push_back(card[random() % card.size()].date);
    }
    std::string from = dates[random() % dates.size()];
    std::string to = dates[random() % dates.size()];
    if (to < from) std::swap(from, to);
    return {from, to};
  }

 private:
  void ReadCard(std::int64_t good) {
    const RowStore rows = AskRows(*connection_, "Exec Kardex_Proc " + std::to_string(good));
    std::vector<CardRow>& card = cards_[good];
    const auto column = [&](const char* name) { return rows.FindColumn(name).value(); };
    for (std::size_t row = 0; row < rows.Count(); ++row) {
      const auto number = [&](const char* name) { return rows.Cell(row, column(name)).AsDecimal(); };
      CardRow read{rows.Cell(row, column("Date")).AsText(),
                   rows.Cell(row, column("Anbar")).AsInteger(),
                   number("Tedad_Varde"),
                   number("Tedad_Sadere"),
                   number("Bagh"),
                   number("RemainInAnbar"),
                   number("Gheymat_Varede") + number("Gheymat_Sadere"),
                   number("Miangin")};
      card.push_back(std::move(read));
    }
  }

  std::unique_ptr<IConnection> connection_;
  std::vector<std::int64_t> stores_;
  std::map<std::int64_t, std::vector<CardRow>> cards_;
};

struct MadeCompany {
  std::string name;
  std::function<void(const std::string&)> make;
};

std::vector<MadeCompany> Companies() {
  std::vector<MadeCompany> companies;
  companies.push_back(
      {"demo", [](const std::string& path) { std::filesystem::copy_file(SmallDemoPath(), path); }});
  for (unsigned seed = 101; seed <= 104; ++seed) {
    const bool large = seed % 4 == 0;
    const std::string number = std::to_string(seed);
    companies.push_back(
        {"turnover-" + number, [=](const std::string& path) { WriteTurnoverCompany(path, seed, large); }});
    AssetCompanyShape shape;
    shape.seed = seed;
    shape.stores = static_cast<int>(seed % 5) * 3;
    shape.large = large;
    companies.push_back(
        {"asset-" + number, [=](const std::string& path) { WriteAssetCompany(path, shape); }});
    companies.push_back(
        {"search-" + number, [=](const std::string& path) { WriteSearchCompany(path, seed, 400); }});
  }
  return companies;
}

void WithEachCompany(const std::function<void(Reports&)>& check) {
  for (const MadeCompany& company : Companies()) {
    SCOPED_TRACE(company.name);
    const TestFile file("agreement-" + company.name + ".company");
    company.make(file.Path());
    Reports reports(file.Path());
    ASSERT_FALSE(reports.Cards().empty());
    check(reports);
    if (::testing::Test::HasFailure()) return;
  }
}

TEST(Agreement, TheCardsClosingIsTheListsStockTheSumOverStoresAndTheOverallRemainder) {
  WithEachCompany([](Reports& reports) {
    const Figures list = reports.Column("exec GoodInf_sp ", "Code", "Mogodi");
    const Figures fromMovements =
        reports.Column("exec GoodInf_sp @EffectiveDate1='', @EffectiveDate2='9999/99/99'", "Code", "Mogodi");
    const Figures overall =
        reports.Column("Exec GoodKardex_Overall_Tedad @CalcBeforeDatePeriod=0", "KalaCode", "Remained");
    const std::string perStore = reports.PerStore("", "9");
    const Figures total = reports.Column(perStore, "GoodCode", "A0-1");
    const std::vector<Figures> stores = reports.Columns(perStore, "GoodCode", reports.StoreColumns("-1"));
    std::size_t inStock = 0;
    for (const auto& [good, card] : reports.Cards()) {
      SCOPED_TRACE(good);
      const Decimal closing = card.empty() ? Decimal() : card.back().remainder;
      Decimal sum;
      for (const Figures& store : stores) sum += Of(store, good);
      ASSERT_EQ(list.count(good), 1U);
      EXPECT_EQ(list.at(good), closing);
      EXPECT_EQ(fromMovements.at(good), closing);
      EXPECT_EQ(total.at(good), closing);
      EXPECT_EQ(sum, closing);
      EXPECT_EQ(overall.count(good), card.empty() ? 0U : 1U);
      EXPECT_EQ(Of(overall, good), closing);
      if (!closing.IsZero()) ++inStock;
    }
    EXPECT_GT(inStock, 2U);
  });
}

TEST(Agreement, WithinOneStoreTheCardTheListThePerStoreReportAndTheOverallTurnoverTellTheSame) {
  WithEachCompany([](Reports& reports) {
    const std::vector<Figures> columns =
        reports.Columns(reports.PerStore("", "9"), "GoodCode", reports.StoreColumns("-1"));
    for (std::size_t i = 0; i < std::min<std::size_t>(reports.Stores().size(), 3); ++i) {
      const std::int64_t store = reports.Stores()[i];
      const std::string code = std::to_string(store);
      SCOPED_TRACE("store " + code);
      const Figures list = reports.Column("exec GoodInf_sp @StoreCode=" + code, "Code", "Mogodi");
      const Figures overall =
          reports.Column("Exec GoodKardex_Overall_Tedad @anbarcode=" + code + ",@CalcBeforeDatePeriod=0",
                         "KalaCode", "Remained");
      for (const auto& [good, card] : reports.Cards()) {
        Decimal closing;
        for (const CardRow& row : card) {
          if (row.store == store) closing = row.remainderInStore;
        }
        EXPECT_EQ(list.at(good), closing) << good;
        EXPECT_EQ(Of(columns[i + 1], good), closing) << good;
        EXPECT_EQ(Of(overall, good), closing) << good;
      }
    }
  });
}

struct PeriodSums {
  Decimal before, incoming, outgoing;
  Decimal After() const { return before + incoming - outgoing; }
};

PeriodSums SumsOf(const std::vector<CardRow>& card, const std::string& from, const std::string& to) {
  PeriodSums sums;
  for (const CardRow& row : card) {
    if (row.date > to) break;
    if (row.date < from) {
      sums.before = row.remainder;
    } else {
      sums.incoming += row.incoming;
      sums.outgoing += row.outgoing;
    }
  }
  return sums;
}

// One period: the card's rows in it, the figures before it as the card's window asks for them, the list, the
// overall turnover, and the stock per store.
void ComparePeriod(Reports& reports, const std::string& from, const std::string& to, std::mt19937& random) {
  SCOPED_TRACE(from + " to " + to);
  const std::string list = "exec GoodInf_sp @EffectiveDate1='" + from + "', @EffectiveDate2='" + to + "'";
  const auto inList = reports.Columns(list, "Code", {"varede", "sadere"});
  const Figures atEnd =
      reports.Column("exec GoodInf_sp @EffectiveDate1='', @EffectiveDate2='" + to + "'", "Code", "Mogodi");
  const std::vector<std::string> incoming = {"YearStart", "Buy",          "ReturnSell",  "MakeInput",
                                             "Resid",     "kala_Daramad", "sayer_varade"};
  const std::vector<std::string> outgoing = {"Sell",   "ReturnBuy",   "MakeOutPut",
                                             "Havale", "kala_Hazine", "sayer_sadere"};
  const std::string overall =
      "Exec GoodKardex_Overall_Tedad @FromDate='" + from + "',@ToDate='" + to +
      "',@CalcBeforeDatePeriod=1,@script_Sadere_sayer=" + std::to_string(random() % 32) +
      ",@script_Varede_sayer=" + std::to_string(random() % 64);
  const auto ways = reports.Columns(overall, "KalaCode", {"sarjame_GhableDore", "Remained"});
  const auto in = reports.Columns(overall, "KalaCode", incoming);
  const auto out = reports.Columns(overall, "KalaCode", outgoing);
  const auto perStore = reports.Columns(reports.PerStore(from, to), "GoodCode", {"B0-1", "A0-1"});
  for (const auto& [good, card] : reports.Cards()) {
    SCOPED_TRACE(good);
    const PeriodSums sums = SumsOf(card, from, to);
    Decimal overallIn;
    Decimal overallOut;
    for (const Figures& column : in) overallIn += Of(column, good);
    for (const Figures& column : out) overallOut += Of(column, good);
    const RowStore before = AskRows(
        reports.Connection(),
        "Select isNull(Sum((Tedad+ABS(Tedad))/2),0)as Varede,isNull(Sum((Tedad-ABS(Tedad))/2),0)as Sadere "
        "from Kardex where  Kala=" +
            std::to_string(good) + " And Date<'" + from + "'");
    EXPECT_EQ(before.Cell(0, 0).AsDecimal() + before.Cell(0, 1).AsDecimal(), sums.before);
    EXPECT_EQ(Of(ways[0], good), sums.before);
    EXPECT_EQ(Of(perStore[0], good), sums.before);
    EXPECT_EQ(inList[0].at(good), sums.incoming);
    EXPECT_EQ(overallIn, sums.incoming);
    EXPECT_EQ(inList[1].at(good), sums.outgoing);
    EXPECT_EQ(overallOut, sums.outgoing);
    EXPECT_EQ(Of(ways[1], good), sums.After());
    EXPECT_EQ(atEnd.at(good), sums.After());
    EXPECT_EQ(Of(perStore[0], good) + perStore[1].at(good), sums.After());
  }
}

TEST(Agreement, BeforeAPeriodInItAndAfterItTheReportsTellTheSameQuantities) {
  WithEachCompany([](Reports& reports) {
    std::mt19937 random(7);
    for (int i = 0; i < 4; ++i) {
      const auto [from, to] = reports.RandomPeriod(random);
      ComparePeriod(reports, from, to, random);
    }
  });
}

// The list's amount is the stock times the average; the amount of the overall turnover is every movement's
// quantity times its cost. Two things come between them, both to be seen on the card:
// - the average is kept in billionths, so a row that moves it leaves up to half a billionth for each unit in
//   stock, and every product is rounded once;
// - an incoming row over a stock below zero sets the average to its own price, which values the missing units
//   anew: the amount jumps by that stock times the change of the average, and no movement carries the jump.
struct MoneyGap {
  Decimal jumps;
  Int128 rounding = 2;  // billionths
};

MoneyGap GapOf(const std::vector<CardRow>& card) {
  MoneyGap gap;
  Decimal stock;
  Decimal average;
  for (const CardRow& row : card) {
    gap.rounding += 1;
    if (row.average != average) {
      if (stock.IsNegative()) {
        gap.jumps += stock * (row.average - average);
        gap.rounding += 1;
      }
      gap.rounding += row.remainder.Abs().Units() / Decimal::kOne / 2 + 1;
    }
    stock = row.remainder;
    average = row.average;
  }
  return gap;
}

TEST(Agreement, AmountsAtCostAreEqualUpToRoundedAveragesAndRevaluedShortages) {
  std::size_t revalued = 0;
  std::size_t plain = 0;
  WithEachCompany([&](Reports& reports) {
    const Figures overall =
        reports.Column("Exec GoodKardex_Overall_Money @CalcBeforeDatePeriod=0", "KalaCode", "Remained");
    const auto list = reports.Columns("exec GoodInf_sp ", "Code", {"Jam_Kol", "SumStock"});
    const std::string perStore = reports.PerStore("", "9");
    const Figures total = reports.Column(perStore, "GoodCode", "A0-Cost");
    const auto stores = reports.Columns(perStore, "GoodCode", reports.StoreColumns("-Cost"));
    for (const auto& [good, card] : reports.Cards()) {
      SCOPED_TRACE(good);
      const Decimal amount = list[0].at(good);
      EXPECT_EQ(amount, card.empty() ? Decimal() : card.back().remainder * card.back().average);
      EXPECT_EQ(list[1].at(good), amount);
      // The per-store report rounds each store's amount by itself, and its total is that of what it shows.
      Decimal sum;
      for (const Figures& store : stores) sum += Of(store, good);
      EXPECT_EQ(total.at(good), sum);
      EXPECT_LE((sum - amount).Abs().Units(), static_cast<Int128>(stores.size()));
      const MoneyGap gap = GapOf(card);
      EXPECT_LE((amount - Of(overall, good) - gap.jumps).Abs(), Decimal::FromUnits(gap.rounding))
          << amount.ToString() << " and " << Of(overall, good).ToString();
      if (!card.empty()) ++(gap.jumps.IsZero() ? plain : revalued);
    }
  });
  EXPECT_GT(revalued, 20U);
  EXPECT_GT(plain, 20U);
}

TEST(Agreement, TheDetailStockIsTheCardsForGoodsThatKeepDetailsAndWereNotPlanted) {
  const TestFile file("agreement-details.company");
  DemoOptions options;  // more goods than mismatches are planted in
  options.goods = 200;
  options.movements = 4'000;
  MakeDemoCompany(file.Path(), options);
  Reports reports(file.Path());
  const Figures details = reports.Column("exec GoodDetailTransaction ", "Kala", "SumDetailKardex");
  const Figures kept = reports.Column("select Kala, Position from GoodDetails", "Kala", "Position");
  Figures planted;
  for (const auto& row :
       Ask(reports.Connection(), "select Kala, OperationAmount, DetailAmount from PlantedMismatches")) {
    planted[std::stoll(row[0])] += Decimal::Parse(row[1]).value() - Decimal::Parse(row[2]).value();
  }
  std::size_t sound = 0;
  for (const auto& [good, position] : kept) {
    const std::vector<CardRow>& card = reports.Cards().at(good);
    const Decimal closing = card.empty() ? Decimal() : card.back().remainder;
    EXPECT_EQ(Of(details, good) + Of(planted, good), closing) << good;
    if (planted.count(good) == 0) ++sound;
  }
  EXPECT_GT(sound, 5U);
  EXPECT_GT(planted.size(), 3U);
}

TEST(Agreement, TheMismatchReportTellsTheDifferenceOfCardAndDetailStock) {
  for (unsigned seed = 201; seed <= 204; ++seed) {
    SCOPED_TRACE(seed);
    const TestFile file("agreement-mismatch-" + std::to_string(seed) + ".company");
    WriteDetailCompany(file.Path(), seed, 300);
    Reports reports(file.Path());
    const Figures details = reports.Column("exec GoodDetailTransaction ", "Kala", "SumDetailKardex");
    const Figures kept = reports.Column("select Kala, Position from GoodDetails", "Kala", "Position");
    const auto told = reports.Columns(" EXEC DetailKardexAsset_Dismatch ", "GoodCode",
                                      {"DiffAsset", "KardexAsset", "DetailAsset"});
    std::size_t sound = 0;
    for (const auto& [good, card] : reports.Cards()) {
      if (kept.count(good) == 0) {
        EXPECT_EQ(told[0].count(good), 0U) << good;
        continue;
      }
      const Decimal closing = card.empty() ? Decimal() : card.back().remainder;
      EXPECT_EQ(closing - Of(details, good), Of(told[0], good)) << good;
      if (told[0].count(good) == 0) {
        ++sound;
        continue;
      }
      EXPECT_EQ(told[1].at(good), closing) << good;
      EXPECT_EQ(told[2].at(good), Of(details, good)) << good;
    }
    EXPECT_GT(told[0].size() + sound, 3U);
  }
}

}  // namespace
}  // namespace goods
