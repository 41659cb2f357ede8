#include "bare_loop.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>
#include <variant>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "company/embedded/conditional_lines.h"
#include "company/embedded/decimal_cell.h"
#include "company/embedded/procedures.h"
#include "company/embedded/statement_parser.h"

namespace goods {
namespace {

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

void KeepLeast(std::map<std::string, double>& best, const std::string& name, double seconds) {
  const auto [place, first] = best.try_emplace(name, seconds);
  if (!first && seconds < place->second) place->second = seconds;
}

void CopyCells(sqlite3_stmt* statement, const std::vector<ColumnInfo>& columns, PlainRows& rows) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const int index = static_cast<int>(i);
    switch (columns[i].type) {
      case ColumnType::Integer:
        rows.integers[i].push_back(sqlite3_column_int64(statement, index));
        rows.valueBytes += 8;
        break;
      case ColumnType::Decimal: {
        const Int128 units = ColumnUnits(statement, index);
        rows.decimals[i].push_back(units);
        rows.valueBytes += FitsCell64(units) ? 8 : 16;
        break;
      }
      case ColumnType::Text: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
        const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, index));
        rows.texts[i].emplace_back(text == nullptr ? "" : text, length);
        rows.valueBytes += length;
        break;
      }
    }
  }
}

PlainRows ReadStatement(Statement& statement, const std::vector<ColumnInfo>& columns) {
  PlainRows rows;
  rows.integers.resize(columns.size());
  rows.decimals.resize(columns.size());
  rows.texts.resize(columns.size());
  for (; sqlite3_step(statement.Handle()) == SQLITE_ROW; ++rows.rows) {
    CopyCells(statement.Handle(), columns, rows);
  }
  return rows;
}

}  // namespace

std::map<std::string, double>& Best() {
  static std::map<std::string, double> best;
  return best;
}

std::map<std::string, double>& BestOfProcessor() {
  static std::map<std::string, double> best;
  return best;
}

Watch::Watch(std::string name)
    : name_(std::move(name)), start_(std::chrono::steady_clock::now()), processorStart_(ProcessorSeconds()) {}

Watch::~Watch() {
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start_;
  KeepLeast(Best(), name_, took.count());
  KeepLeast(BestOfProcessor(), name_, ProcessorSeconds() - processorStart_);
}

PlainRows ReadBare(Database& db, std::string_view text) {
  const ParsedStatement parsed = ParseStatement(text);
  const ProcedureCall call = MatchProcedure(std::get<ExecStatement>(parsed), text);
  Statement statement = db.Prepare(BodyOf(call));
  BindParameters(statement, call);
  return ReadStatement(statement, call.procedure->columns);
}

const std::vector<ColumnInfo>& ColumnsOf(std::string_view procedure) {
  const auto& known = Procedures();
  const auto found =
      std::find_if(known.begin(), known.end(), [&](const Procedure& each) { return each.name == procedure; });
  return found->columns;
}

PlainRows ReadSelect(Database& db, std::string_view select, const std::vector<ColumnInfo>& columns) {
  Statement statement = db.Prepare(select);
  return ReadStatement(statement, columns);
}

void ScanMovements(Database& db) {
  Statement scan =
      db.Prepare("SELECT Kala, Date, Radif, Anbar, Tedad FROM Kardex ORDER BY Kala, Date, Radif");
  std::int64_t sum = 0;
  while (scan.Step()) {
    sum += scan.Integer(0) + scan.Integer(2) + scan.Integer(3) + scan.Integer(4) % 7;
    benchmark::DoNotOptimize(scan.Text(1).data());
  }
  benchmark::DoNotOptimize(sum);
}

}  // namespace goods
