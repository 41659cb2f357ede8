// Rows into files: 1,000,000 stock-card rows as CSV, JSON and spreadsheet, beside the spreadsheet library
// alone writing the same cells; and the whole goods list of a company of 2,000,000 movements to CSV, beside
// its statement alone. "grown": by how many MB the process's peak exceeded what it held before the writing.
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include "bench/data/stock_card_rows.h"
#include "company/company.h"
#include "company/demo/demo_company.h"
#include "desktop/print/export.h"
#include "figures.h"
#include "host/components/grid.h"

namespace goods {
namespace {

constexpr std::int64_t kMovements = 2'000'000;
constexpr double kBytesPerMegabyte = 1e6;

// The columns that a stock card shows.
constexpr const char* kShown[] = {"Date", "Document", "PersonName", "AnbarName", "Comment", "Varede",
                                  "Mab",  "Sadere",   "Amount",     "Bagh",      "Mab_Bagh"};

// Bytes of a line of /proc/self/status, such as VmHWM.
double Memory(const std::string& line) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == line + ":" && status >> kilobytes) return kilobytes * 1024;
  }
  return 0;
}

// The peak is counted anew from here.
void ResetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

// A grid over a query.
class Filled {
 public:
  Filled(IConnection& connection, const std::string& statement) : query_(nullptr, "Rows_QRY", connection) {
    query_.SetSQL(statement);
    query_.Open();
    grid_.SetDataSource(&source_);
  }
  void Show(const std::string& name) {
    const auto field = query_.FindField(name);
    TGridColumn& column = grid_.AddColumn(name, name);
    if (query_.Fields().at(*field).type == ColumnType::Decimal) {
      column.SetDisplayFormat(kAmountFormat).SetFooter(FooterKind::Sum);
    }
  }
  void ShowEverything() {
    for (const ColumnInfo& field : query_.Fields()) Show(field.name);
  }
  TSmartDBGrid_QRT& Grid() { return grid_; }

 private:
  TADOQuery query_;
  TDataSource source_{nullptr, "Rows_DS", &query_};
  TSmartDBGrid_QRT grid_{nullptr, "Rows_GRD"};
};

Filled& StockCard() {
  static bench::GeneratedConnection connection;
  static Filled filled(connection, "rows");
  static const bool shown = [] {
    for (const char* name : kShown) filled.Show(name);
    return true;
  }();
  benchmark::DoNotOptimize(shown);
  return filled;
}

void Write(TSmartDBGrid_QRT& grid, FileFormat format, const std::string& path) {
  const auto table = grid.Table();
  PrintJob job;
  job.title = "گزارش";
  job.table = table.get();
  WriteReport(job, format, path);
}

template <FileFormat kFormat>
void Rows(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("out").toStdString();
  TSmartDBGrid_QRT& grid = StockCard().Grid();
  ResetPeak();
  const double before = Memory("VmRSS");
  for (auto each : state) Write(grid, kFormat, path);
  state.counters["grown"] = (Memory("VmHWM") - before) / kBytesPerMegabyte;
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(grid.RowCount()));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(path)));
}

// Without formats.
void XlsxLibraryAlone(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("out.xlsx").toStdString();
  const auto table = StockCard().Grid().Table();
  for (auto each : state) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    lxw_workbook* book = workbook_new_opt(path.c_str(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
    for (std::size_t row = 0; row < table->RowCount(); ++row) {
      for (std::size_t column = 0; column < table->Columns().size(); ++column) {
        const Value value = table->Cell(row, column);
        const auto line = static_cast<lxw_row_t>(row);
        const auto at = static_cast<lxw_col_t>(column);
        if (value.IsNumber()) {
          worksheet_write_number(sheet, line, at, value.AsDecimal().ToDouble(), nullptr);
        } else if (!value.IsNull()) {
          worksheet_write_string(sheet, line, at, value.AsText().c_str(), nullptr);
        }
      }
    }
    if (workbook_close(book) != LXW_NO_ERROR) state.SkipWithError("the library failed");
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(table->RowCount()));
}

struct LargeCompany {
  LargeCompany() {
    DemoOptions options;
    options.goods = 20'000;
    options.stores = 50;
    options.movements = kMovements;
    const std::string path = folder.filePath("large.goods").toStdString();
    MakeDemoCompany(path, options);
    company = OpenCompany(path);
    connection = company->OpenConnection();
  }
  QTemporaryDir folder;
  std::unique_ptr<ICompany> company;
  std::unique_ptr<IConnection> connection;
};

IConnection& Large() {
  static LargeCompany large;
  return *large.connection;
}

constexpr const char* kGoodsList = "exec GoodInf_sp ";

void GoodsListStatement(benchmark::State& state) {
  IConnection& connection = Large();
  for (auto each : state) Filled(connection, kGoodsList);
}

void GoodsListToCsv(benchmark::State& state) {
  IConnection& connection = Large();
  const QTemporaryDir folder;
  const std::string path = folder.filePath("list.csv").toStdString();
  for (auto each : state) {
    Filled filled(connection, kGoodsList);
    filled.ShowEverything();
    Write(filled.Grid(), FileFormat::Csv, path);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(path)));
}

BENCHMARK_TEMPLATE(Rows, FileFormat::Csv)->Name("Csv")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_TEMPLATE(Rows, FileFormat::Json)->Name("Json")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_TEMPLATE(Rows, FileFormat::Xlsx)->Name("Xlsx")->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(XlsxLibraryAlone)->Unit(benchmark::kMillisecond)->Iterations(2);
// The statement is divided over threads, which all count.
BENCHMARK(GoodsListStatement)->Unit(benchmark::kMillisecond)->Iterations(10)->MeasureProcessCPUTime();
BENCHMARK(GoodsListToCsv)->Unit(benchmark::kMillisecond)->Iterations(10)->MeasureProcessCPUTime();

void Report() {
  Tell({"1,000,000 stock-card rows of 11 columns to CSV", ProcessorTime("Csv")});
  Tell({"its speed", Counter("Csv", "bytes_per_second") / 1e6, "", 0, 0, "MB/s"});
  Tell({"the same to JSON", ProcessorTime("Json")});
  Tell({"the same to XLSX, with formats", ProcessorTime("Xlsx"), "100,000 rows a second", 10'000, 1});
  Tell({"the same to XLSX, with formats", ProcessorTime("Xlsx"), "libxlsxwriter alone writing the same cells",
        ProcessorTime("XlsxLibraryAlone")});
  Tell({"its speed", Counter("Xlsx", "items_per_second"), "libxlsxwriter alone",
        Counter("XlsxLibraryAlone", "items_per_second"), 0, "rows/s"});
  Tell({"goods list of 20,000 goods to CSV, its statement included", ProcessorTime("GoodsListToCsv"),
        "the statement", ProcessorTime("GoodsListStatement"), 2});
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) { return goods::RunBenchmarks(argc, argv, goods::Report); }
