// How a company and its reports grow with the movements: time of the processor, memory and file size, as the
// table of docs/scale.md. usage: company_growth [MOVEMENTS...]   (without: 200000) Each step is a
// process of its own, so that its memory is its own. GOODS_BENCH_FILES_IN names another folder for the
// companies, which take 200 bytes a movement; beyond 20,000,000 movements nothing is imported, since the
// files and a second company would stand beside the first.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "company/company.h"
#include "company/demo/demo_company.h"
#include "company/interchange/export_company.h"
#include "company/interchange/import_company.h"
#include "host/data/connection.h"
#include "host/data/row_store.h"

namespace {

using namespace goods;
namespace fs = std::filesystem;

constexpr std::int64_t kGoods = 20'000;
constexpr std::int64_t kMostToImport = 20'000'000;

struct Cost {
  double seconds = 0;   // of the processor
  double peakMb = 0;    // of the process
  double resultMb = 0;  // of the rows; 0 without
  double clock = 0;     // seconds by the clock
};

// What a process of its own takes for the work, which tells the bytes of its result. Nothing when it failed.
std::optional<Cost> Measure(const std::function<std::size_t()>& work) {
  int ends[2];
  if (pipe(ends) != 0) return std::nullopt;
  std::cout.flush();
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    try {
      const std::size_t bytes = work();
      const bool told = write(ends[1], &bytes, sizeof bytes) == sizeof bytes;
      _exit(told ? 0 : 1);
    } catch (const std::exception& error) {
      std::cerr << error.what() << '\n';
      _exit(1);
    }
  }
  close(ends[1]);
  std::size_t bytes = 0;
  const bool told = read(ends[0], &bytes, sizeof bytes) == sizeof bytes;
  close(ends[0]);
  int status = 0;
  rusage used{};
  if (child < 0 || wait4(child, &status, 0, &used) != child || status != 0 || !told) return std::nullopt;
  const std::chrono::duration<double> clock = std::chrono::steady_clock::now() - start;
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return Cost{seconds(used.ru_utime) + seconds(used.ru_stime), static_cast<double>(used.ru_maxrss) / 1024,
              static_cast<double>(bytes) * 1e-6, clock.count()};
}

// The system keeps none of the file's pages in memory.
void ForgetPages(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  fsync(file);
  posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
  close(file);
}

std::string Written(double number, const char* unit) {
  char text[40];
  std::snprintf(text, sizeof text, number < 10 ? "%.2f %s" : "%.0f %s", number, unit);
  return text;
}

std::string Written(const std::optional<Cost>& cost) {
  if (!cost) return "failed";
  std::string text = Written(cost->seconds, "s");
  if (cost->resultMb > 0) return text + ", " + Written(cost->resultMb, "MB");
  return text + ", peak " + Written(cost->peakMb, "MB");
}

struct Report {
  const char* name;
  const char* statement;
};
constexpr char kOverAllDates[] = "exec GoodInf_sp @EffectiveDate1 = '', @EffectiveDate2 = '9999/99/99'";
constexpr Report kReports[] = {
    {"stock card of the busiest good, a third of all", "Exec Kardex_Proc 12"},
    {"stock card of another good", "Exec Kardex_Proc 7"},
    {"row search without criteria", "Exec srKardex"},
    {"row search of a month", "Exec srKardex @FromDate='1402/01/01',@ToDate='1402/01/31'"},
    {"negative stock", "Exec srKardex_Negative"},
    {"goods list", "exec GoodInf_sp "},
    {"goods list over all dates", kOverAllDates},
    {"goods list of a year",
     "exec GoodInf_sp @EffectiveDate1 = '1402/01/01', @EffectiveDate2 = '1402/12/29'"},
    {"stock per store", "exec GoodsAsset_Store_SP @StoreCodes='-1,0,1,2,3,'"},
    {"stock per store to a date", "exec GoodsAsset_Store_SP @StoreCodes='-1,0,1,2,3,',@ToDate='1402/12/29'"},
    {"overall turnover, quantities", "Exec GoodKardex_Overall_Tedad "},
    {"overall turnover, amounts", "Exec GoodKardex_Overall_Money "},
    {"stock by details", "EXEC GoodDetailTransaction "},
    {"all detail movements of a week",
     "EXEC AllGoodDetailTransaction @FromDate='1402/01/01',@ToDate='1402/01/07'"},
    {"one good's details", "EXEC OneGoodDetailTransaction @GoodCode=2122"},
    {"detail mismatch", "EXEC DetailKardexAsset_Dismatch"},
    {"operation mismatch", "EXEC DetailOperation_Dismatch"},
};

// A batch of purchases and sales at the end of the last year.
void WriteBatch(const fs::path& folder) {
  fs::create_directories(folder);
  std::ofstream csv(folder / "movements.csv");
  csv << "date,good,store,movement type,quantity,unit price,document number\n";
  for (int i = 0; i < 10'000; ++i) {
    const bool buys = i % 2 == 0;
    csv << "1404/12/2" << i % 9 << ',' << i * 10 % kGoods + 1 << ',' << i % 5 + 1 << ','
        << (buys ? "purchase" : "sale") << ',' << (buys ? 5 : -3) << ',' << 1000 + i << ','
        << 900'000'000 + i / 4 << '\n';
  }
}

// One cell for each line of the table, under the number of movements.
struct Growth {
  std::int64_t movements = 0;
  std::vector<std::string> cells;
};

std::vector<std::string> Names() {
  std::vector<std::string> names = {"file",   "a company is made",          "export",
                                    "import", "10,000 movements are added", "stored figures are refreshed"};
  for (const Report& report : kReports) names.emplace_back(report.name);
  names.emplace_back("goods list over all dates by the clock, file in memory / on the disk");
  return names;
}

Growth Grow(std::int64_t movements, const fs::path& folder) {
  Growth column{movements, {}};
  const std::string made = (folder / ("growth-" + std::to_string(movements) + ".company")).string();
  const fs::path exported = folder / "growth-exported";
  const fs::path imported = folder / "growth-imported.company";
  const std::optional<Cost> making = Measure([&] {
    MakeDemoCompany(made, {.goods = kGoods, .stores = 6, .movements = movements, .replace = true});
    return 0U;
  });
  std::error_code none;
  column.cells.push_back(Written(static_cast<double>(fs::file_size(made, none)) * 1e-6, "MB"));
  column.cells.push_back(Written(making));
  if (movements <= kMostToImport) {
    fs::remove_all(exported);
    column.cells.push_back(Written(Measure([&] {
      ExportCompany(made, exported.string());
      return 0U;
    })));
    column.cells.push_back(Written(Measure([&] {
      ImportOptions options;
      options.firstPassword = "a bench password";
      options.replace = true;
      ImportCompany(imported.string(), exported.string(), options);
      return 0U;
    })));
    fs::remove_all(exported);
    fs::remove(imported);
  } else {
    column.cells.insert(column.cells.end(), 2, "not tried");
  }
  const auto asked = [&](const char* statement) {
    return Measure([&] {
      RowStore rows;
      OpenCompany(made)->OpenConnection()->Open(statement, rows);
      return rows.MemoryBytes();
    });
  };
  std::vector<std::string> reports;
  for (const Report& report : kReports) reports.push_back(Written(asked(report.statement)));
  const std::optional<Cost> warm = asked(kOverAllDates);
  ForgetPages(made);
  const std::optional<Cost> cold = asked(kOverAllDates);
  reports.push_back(warm && cold ? Written(warm->clock, "s") + " / " + Written(cold->clock, "s") : "failed");
  const fs::path batch = folder / "growth-batch";
  WriteBatch(batch);
  column.cells.push_back(Written(Measure([&] {
    AddToCompany(made, batch.string());
    return 0U;
  })));
  fs::remove_all(batch);
  column.cells.push_back(Written(Measure([&] {
    const auto connection = OpenCompany(made)->OpenConnection();
    connection->Execute("Exec UpdateMogodiKala 0");
    connection->Execute("Exec DefineRemainInStore 0, 0");
    return 0U;
  })));
  column.cells.insert(column.cells.end(), reports.begin(), reports.end());
  fs::remove(made);
  return column;
}

}  // namespace

int main(int count, char** arguments) {
  if (count > 1 && std::atoll(arguments[1]) <= 0) {
    std::cout << "usage: company_growth [MOVEMENTS...]   (without: 200000)\n";
    return 0;
  }
  const char* elsewhere = std::getenv("GOODS_BENCH_FILES_IN");
  const fs::path folder = elsewhere != nullptr ? elsewhere : GOODS_BENCH_FILES;
  std::vector<Growth> columns;
  for (int i = 1; i < count; ++i) columns.push_back(Grow(std::atoll(arguments[i]), folder));
  if (columns.empty()) columns.push_back(Grow(200'000, folder));
  std::string head = "| 20,000 goods, 6 stores |";
  std::string rule = "|---|";
  for (const Growth& column : columns) {
    head += " " + std::to_string(column.movements) + " movements |";
    rule += "---|";
  }
  std::cout << head << '\n' << rule << '\n';
  const std::vector<std::string> names = Names();
  for (std::size_t i = 0; i < names.size(); ++i) {
    std::cout << "| " << names[i] << " |";
    for (const Growth& column : columns) std::cout << ' ' << column.cells[i] << " |";
    std::cout << '\n';
  }
  return 0;
}
