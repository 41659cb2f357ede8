// The good-detail reports and the two mismatch reports over 2,000,000 movements, each with its detail
// movement. All movements: through the connection into a query, beside a bare SQLite loop over the same
// statement. A criterion that leaves few rows, and the mismatch reports: beside scans of the movements that
// they look at. The ratios are printed after the runs.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "bare_loop.h"
#include "company/company.h"
#include "company/writer/company_writer.h"
#include "figures.h"
#include "host/core/jalali.h"
#include "host/data/connection.h"
#include "host/data/query.h"

namespace goods {
namespace {

constexpr std::int64_t kRows = 2'000'000;
constexpr std::int64_t kGoods = 2'000;
constexpr std::int64_t kCombinations = 100;  // of a good
constexpr std::int64_t kStores = 6;
constexpr std::int64_t kDays = 5 * 365;

constexpr char kAll[] = " EXEC AllGoodDetailTransaction ";
// The same rows in SQL alone.
constexpr char kAllInSql[] = R"sql(
SELECT d.Date, d.Anbar, s.Name, g.Code, g.Name, v.D1Value, v.D2Value, v.D3Value, v.D4Value, v.D5Value,
       detail_text(t1.Title, v.D1Value, t2.Title, v.D2Value, t3.Title, v.D3Value, t4.Title, v.D4Value, t5.Title, v.D5Value),
       p.Name, d.Comment, max(d.Amount1, 0), max(-d.Amount1, 0), k.Fi, dec_mul(abs(d.Amount1), k.Fi), u.Name, d.Type,
       d.OperationCode, d.DetailValueID, g.Code
FROM GoodInf g
LEFT JOIN Units u ON u.Code = g.Unit
LEFT JOIN GoodDetails p1 ON p1.Kala = g.Code AND p1.Position = 1
LEFT JOIN DetailTypes t1 ON t1.ID = p1.DetailID
LEFT JOIN GoodDetails p2 ON p2.Kala = g.Code AND p2.Position = 2
LEFT JOIN DetailTypes t2 ON t2.ID = p2.DetailID
LEFT JOIN GoodDetails p3 ON p3.Kala = g.Code AND p3.Position = 3
LEFT JOIN DetailTypes t3 ON t3.ID = p3.DetailID
LEFT JOIN GoodDetails p4 ON p4.Kala = g.Code AND p4.Position = 4
LEFT JOIN DetailTypes t4 ON t4.ID = p4.DetailID
LEFT JOIN GoodDetails p5 ON p5.Kala = g.Code AND p5.Position = 5
LEFT JOIN DetailTypes t5 ON t5.ID = p5.DetailID
CROSS JOIN DetailKardex d ON d.Kala = g.Code
LEFT JOIN DetailValues v ON v.ID = d.DetailValueID
LEFT JOIN Kardex k ON k.Kala = d.Kala AND k.Date = d.Date AND k.Radif = d.Radif
LEFT JOIN Stores s ON s.Code = d.Anbar
LEFT JOIN Persons p ON p.Code = d.Percode
ORDER BY g.Code, d.Date, d.Radif, d.DetailValueID)sql";
constexpr char kScanOfDetails[] =
    "SELECT Kala, Date, Radif, Anbar, Amount1 FROM DetailKardex ORDER BY Kala, Date, Radif";
constexpr char kScanOfRows[] =
    "SELECT Kala, Date, Radif, Anbar, Tedad FROM Kardex ORDER BY Kala, Date, Radif";

// Every good keeps five of six details, one of each type in turn; a serial number is one combination's own.
void WriteGoods(CompanyWriter& writer) {
  writer.Tables().Run(
      "INSERT INTO Units VALUES(0, ''), (1, 'عدد'); INSERT INTO GoodGrps VALUES(1, 'گروه');"
      "INSERT INTO DetailTypes VALUES(1, 'رنگ', 1, 0), (2, 'سایز', 2, 0), (3, 'ضخامت', 3, 0),"
      " (4, 'وزن بسته', 4, 0), (5, 'تاریخ انقضا', 5, 1), (6, 'شماره سریال', 6, 0);"
      "INSERT INTO Stores(Code, Name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i "
      "< " +
      std::to_string(kStores) +
      ") SELECT i, 'انبار ' || i FROM n;"
      "INSERT INTO Persons(Code, Name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
      "i < "
      "500) SELECT i, 'طرف حساب ' || i FROM n;"
      "INSERT INTO GoodInf(GrpCode, Code, Name, Unit) WITH RECURSIVE n(i) AS"
      " (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
      std::to_string(kGoods) +
      ") SELECT 1, i, 'کالای شماره ' || i, 1 FROM n;"
      "INSERT INTO GoodDetails SELECT g.Code, p.value, (g.Code + p.value) % 6 + 1"
      " FROM GoodInf g, json_each('[1,2,3,4,5]') p");
  const std::string id = "(g.Code - 1) * " + std::to_string(kCombinations) + " + n.i + 1";
  std::string values;
  for (int position = 1; position <= 5; ++position) {
    values += ", CASE (g.Code + " + std::to_string(position) +
              ") % 6 + 1 WHEN 1 THEN 'رنگ ' || (n.i % 7) WHEN 2 THEN 'سایز ' || (n.i % 5) WHEN 3 THEN n.i * 5"
              " WHEN 4 THEN n.i || '.5' WHEN 5 THEN printf('1405/%02d/15', n.i % 12 + 1) ELSE 'SN' || (" +
              id + ") END";
  }
  writer.Tables().Run(
      "INSERT INTO DetailValues WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 "
      "< " +
      std::to_string(kCombinations) + ") SELECT " + id + ", g.Code" + values + " FROM GoodInf g, n");
}

// Goods, combinations and stores at random; every thousandth row's details tell another quantity.
void WriteMovements(CompanyWriter& writer) {
  const std::int64_t first = DaysFromJalali({1400, 1, 1});
  std::uint64_t drawn = 1;
  const auto next = [&drawn] {
    drawn = drawn * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::int64_t>(drawn >> 33);
  };
  for (std::int64_t i = 0; i < kRows; ++i) {
    const auto random = next();
    const std::string date = FormatJalali(JalaliFromDays(first + i * kDays / kRows));
    const bool incoming = next() % 2 == 0;
    Movement movement;
    movement.date = date;
    movement.good = random % kGoods + 1;
    movement.store = random / kGoods % kStores + 1;
    movement.person = random % 500 + 1;
    movement.type = incoming ? 2 : 1;
    movement.quantity = Decimal(incoming ? random % 50 + 1 : -(random % 50 + 1));
    movement.price = Decimal(1000 + random % 9000);
    movement.document = i / 4 + 1;
    movement.row = i % 4 + 1;
    movement.comment = incoming ? "خرید کالا" : "فروش کالا";
    DetailMovement detail;
    detail.radif = writer.Add(movement);
    detail.valueId = (movement.good - 1) * kCombinations + next() % kCombinations + 1;
    detail.amount = movement.quantity + Decimal(i % 1000 == 0 ? 1 : 0);
    writer.AddDetail(movement, detail);
  }
}

const std::string& CompanyPath() {
  static const std::string path = [] {
    const std::string file = std::string(GOODS_BENCH_FILES) + "/details.company";
    if (!std::filesystem::exists(file)) {
      CompanyWriter writer(file, false);
      WriteGoods(writer);
      WriteMovements(writer);
      writer.Finish();
    }
    return file;
  }();
  return path;
}

std::size_t valueBytes = 0;
std::size_t queryBytes = 0;

void AllBareLoop(benchmark::State& state) {
  Database db(CompanyPath(), SQLITE_OPEN_READONLY);
  for (auto _ : state) {
    const Watch watch("bare");
    const PlainRows rows = ReadSelect(db, kAllInSql, ColumnsOf("AllGoodDetailTransaction"));
    if (rows.rows != static_cast<std::size_t>(kRows)) state.SkipWithError("rows are missing");
    valueBytes = rows.valueBytes;
  }
}

void Open(benchmark::State& state, const std::string& statement, const std::string& name) {
  const std::unique_ptr<IConnection> connection = OpenCompany(CompanyPath())->OpenConnection();
  for (auto _ : state) {
    TADOQuery query(nullptr, "Detail_QRY", *connection);
    query.SetSQL(statement);
    {
      const Watch watch(name);
      query.Open();
    }
    if (query.IsEmpty()) state.SkipWithError("rows are missing");
    state.counters["rows"] = static_cast<double>(query.RecordCount());
    if (statement == kAll) queryBytes = query.MemoryBytes();
  }
}

void Scan(benchmark::State& state, const char* sql, const std::string& name) {
  Database db(CompanyPath(), SQLITE_OPEN_READONLY);
  for (auto _ : state) {
    const Watch watch(name);
    Statement scan = db.Prepare(sql);
    std::int64_t sum = 0;
    while (scan.Step()) {
      sum += scan.Integer(0) + scan.Integer(2) + scan.Integer(3) + scan.Integer(4) % 7;
      benchmark::DoNotOptimize(scan.Text(1).data());
    }
    benchmark::DoNotOptimize(sum);
  }
}

struct Selective {
  const char* what;
  std::string criteria;
};

const Selective kSelective[] = {
    {"one good", "@GoodCode = 777"},
    {"one serial number", "@DetailID1 = 6,@Detail1Value1 = 'SN76543',@Detail1Value2 = 'SN76543'"},
    {"a week of dates", "@FromDate = '1402/05/01',@ToDate = '1402/05/07'"}};

void ReportRatios() {
  auto& best = Best();
  const double details = best["scan of details"] * 1e3;
  const double both = details + best["scan of rows"] * 1e3;
  const std::string scan = "one bare scan of five columns of the detail movements";
  Tell({"movements of all goods by detail values, 2,000,000 of 2,000 goods, into a query",
        best["query"] * 1e3, "a bare SQLite loop over the same rows, with joins, into plain vectors",
        best["bare"] * 1e3, 0.7});
  Tell({"memory of that query", static_cast<double>(queryBytes) / 1e6, "bytes of the values",
        static_cast<double>(valueBytes) / 1e6, 1.2, "MB"});
  for (const Selective& selective : kSelective) {
    const std::string what = selective.what;
    Tell({"movements of " + what, best["all of " + what] * 1e3, "the same report over all movements",
          best["query"] * 1e3, 0.1});
    Tell({"movements of " + what, best["all of " + what] * 1e3, scan, details});
    Tell({"stock by detail of " + what, best["stock of " + what] * 1e3, scan, details});
  }
  Tell({"movements of one combination of a good", best["one"] * 1e3, scan, details, 0.1});
  Tell({"stock of all combinations", best["stock"] * 1e3, scan, details});
  const std::string scans = "one scan of the detail movements and of the stock-card rows";
  Tell({"details against stock cards, each store", best["asset"] * 1e3, scans, both, 3});
  Tell({"details against documents' rows", best["operation"] * 1e3, scans, both, 3});
}

void RegisterAll() {
  const auto add = [](const std::string& name, auto run, int times) {
    benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond)->Iterations(times);
  };
  const auto open = [&](const std::string& name, const std::string& statement, int times) {
    add(
        name, [=](benchmark::State& state) { Open(state, statement, name); }, times);
  };
  add("bare", AllBareLoop, 2);
  open("query", kAll, 2);
  add(
      "scan of details", [](benchmark::State& state) { Scan(state, kScanOfDetails, "scan of details"); }, 5);
  add(
      "scan of rows", [](benchmark::State& state) { Scan(state, kScanOfRows, "scan of rows"); }, 5);
  for (const Selective& selective : kSelective) {
    open(std::string("all of ") + selective.what, kAll + selective.criteria, 20);
    open(std::string("stock of ") + selective.what, " EXEC GoodDetailTransaction " + selective.criteria, 20);
  }
  open("one", " EXEC OneGoodDetailTransaction @GoodCode = 777,@DetailValueID = 77601", 5);
  open("stock", " EXEC GoodDetailTransaction ", 2);
  open("asset", " EXEC DetailKardexAsset_Dismatch @StoreSeparation = 1", 3);
  open("operation", " EXEC DetailOperation_Dismatch ", 3);
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::RegisterAll();
  return goods::RunBenchmarks(argc, argv, goods::ReportRatios);
}
