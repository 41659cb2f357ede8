// Import, export and addition of 2,000,000 movements, beside a bare loop that inserts the same rows.
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "company/demo/demo_company.h"
#include "company/embedded/company_file.h"
#include "company/embedded/sqlite.h"
#include "company/interchange/export_company.h"
#include "company/interchange/import_company.h"
#include "figures.h"

namespace {

using namespace goods;
namespace fs = std::filesystem;

std::int64_t Setting(const char* name, std::int64_t otherwise) {
  const char* text = std::getenv(name);
  return text != nullptr ? std::atoll(text) : otherwise;
}

struct Times {
  double wall = 0;
  double processor = 0;
};

template <typename Body>
Times Measure(Body body) {
  const auto began = std::chrono::steady_clock::now();
  const std::clock_t clock = std::clock();
  body();
  Times times;
  times.processor = static_cast<double>(std::clock() - clock) / CLOCKS_PER_SEC;
  times.wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  return times;
}

// The rows of a table as its columns, ready to be bound.
struct Rows {
  struct Cell {
    bool text = false;
    std::int64_t number = 0;
    std::string bytes;
  };
  std::vector<Cell> cells;
  int columns = 0;
};

Rows ReadRows(Database& db, const std::string& sql) {
  Statement rows = db.Prepare(sql);
  Rows read;
  read.columns = rows.Columns();
  while (rows.Step()) {
    for (int column = 0; column < read.columns; ++column) {
      Rows::Cell cell;
      cell.text = sqlite3_column_type(rows.Handle(), column) == SQLITE_TEXT;
      if (cell.text) {
        cell.bytes = rows.Text(column);
      } else {
        cell.number = rows.Integer(column);
      }
      read.cells.push_back(std::move(cell));
    }
  }
  return read;
}

void InsertRows(Database& db, const std::string& sql, const Rows& rows) {
  Statement insert = db.Prepare(sql);
  for (std::size_t at = 0; at < rows.cells.size();) {
    for (int column = 1; column <= rows.columns; ++column, ++at) {
      const Rows::Cell& cell = rows.cells[at];
      if (cell.text) {
        insert.Bind(column, std::string_view(cell.bytes));
      } else {
        insert.Bind(column, cell.number);
      }
    }
    insert.Run();
  }
}

// What the stock card and the documents of the company hold, put into an empty company row by row: no file is
// read and nothing is worked out. sorted: in the order of the tables' keys, else in the order of the files.
Times BareLoop(const std::string& company, const std::string& path, bool sorted) {
  Rows cards;
  Rows documents;
  {
    Database source(company, SQLITE_OPEN_READONLY);
    cards = ReadRows(source,
                     "SELECT Kala, Date, Radif, Anbar, Percode, Tedad, Meghdar2, Gheymat, Fi, Miangin, Type,"
                     " OperationCode, OperationRow, Comment FROM Kardex ORDER BY " +
                         std::string(sorted ? "Kala, Date, Radif" : "Radif"));
    documents = ReadRows(
        source, "SELECT Kind, Code, Date, Percode, Anbar, ToAnbar, Comment FROM Documents ORDER BY 1, 2");
  }
  fs::remove(path);
  return Measure([&] {
    Database db(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    db.Run(
        "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
        "PRAGMA cache_size = -65536; BEGIN");
    CreateCompanySchema(db);
    InsertRows(
        db,
        "INSERT INTO Kardex(Kala, Date, Radif, Anbar, Percode, Tedad, Meghdar2, Gheymat, Fi, Miangin, Type,"
        " OperationCode, OperationRow, Comment) VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, "
        "?13, ?14)",
        cards);
    InsertRows(db,
               "INSERT INTO Documents(Kind, Code, Date, Percode, Anbar, ToAnbar, Comment)"
               " VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7)",
               documents);
    CreateCompanyIndexes(db);
    db.Run("COMMIT");
  });
}

// A batch of as many purchases and sales, of every tenth good, at the end of the last year.
void WriteBatch(const fs::path& folder, std::int64_t rows, std::int64_t goods) {
  fs::create_directories(folder);
  std::ofstream csv(folder / "movements.csv");
  csv << "date,good,store,movement type,quantity,unit price,document number\n";
  for (std::int64_t i = 0; i < rows; ++i) {
    const bool buys = i % 2 == 0;
    csv << "1404/12/2" << i % 9 << ',' << i * 10 % goods + 1 << ',' << i % 5 + 1 << ','
        << (buys ? "purchase" : "sale") << ',' << (buys ? 5 : -3) << ',' << 1000 + i << ','
        << 900'000'000 + i / 4 << '\n';
  }
}

}  // namespace

int main(int count, char** /*arguments*/) {
  if (count > 1) {
    std::cout << "Measures import, export and addition of a company beside a bare SQLite loop. "
                 "GOODS_BENCH_GOODS and\n"
                 "GOODS_BENCH_MOVEMENTS set its size. Takes no arguments.\n";
    return 0;
  }
  DemoOptions options;
  options.goods = Setting("GOODS_BENCH_GOODS", 20'000);
  options.stores = 50;
  options.movements = Setting("GOODS_BENCH_MOVEMENTS", 2'000'000);
  options.replace = true;
  const fs::path folder = fs::path(GOODS_BENCH_FILES) / "interchange";
  fs::remove_all(folder);
  fs::create_directories(folder);
  const std::string company = (folder / "made.company").string();
  const std::string imported = (folder / "imported.company").string();
  const std::string exported = (folder / "exported").string();
  MakeDemoCompany(company, options);
  const Times out = Measure([&] { ExportCompany(company, exported); });
  const Times sorted = BareLoop(company, (folder / "sorted.company").string(), true);
  const Times unsorted = BareLoop(company, (folder / "unsorted.company").string(), false);
  ImportOptions in;
  in.firstPassword = "a bench password";
  const Times import = Measure([&] { ImportCompany(imported, exported, in); });
  const std::string asked = "import of " + std::to_string(options.movements) + " movements";
  Tell({asked, import.processor * 1e3,
        "a bare SQLite loop that inserts the same rows, in the order of the files", unsorted.processor * 1e3,
        1.5});
  Tell({asked, import.processor * 1e3, "the same loop, rows in the order of the tables' keys",
        sorted.processor * 1e3});
  Tell({asked + ", by the clock", import.wall, "45 s", 45, 1, "s"});
  Tell({"export of them", out.processor * 1e3, "the import", import.processor * 1e3, 0.5});
  const std::string batch = (folder / "batch").string();
  WriteBatch(batch, 10'000, options.goods);
  Tell({"adding 10,000 movements to them, by the clock", Measure([&] { AddToCompany(imported, batch); }).wall,
        "2 s", 2, 1, "s"});
  fs::remove_all(folder);
  return 0;
}
