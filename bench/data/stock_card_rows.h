// Rows like those of a busy good's stock card, made before the clock starts: 19 columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/data/connection.h"
#include "host/data/row_store.h"

namespace goods::bench {

inline constexpr std::size_t kRows = 1'000'000;
inline constexpr std::size_t kIntegers = 6;
inline constexpr std::size_t kNumbers = 8;
inline constexpr std::size_t kTexts = 5;

// Column c of each kind, row by row. Numbers are thousandths.
struct StockCardRows {
  std::vector<std::int64_t> integers[kIntegers];  // Id, Type, OperationCode, Anbar, Person, Kala
  // Varede, Sadere, Mab, Amount, Bagh, Mab_Bagh, RemainInAnbar, Mab_RemainInAnbar
  std::vector<std::int64_t> numbers[kNumbers];
  std::vector<std::string_view> texts[kTexts];  // Date, AnbarName, PersonName, Document, Comment

  std::size_t ValueBytes() const;

  std::vector<std::string> pool;  // what the texts point to
};

// The same rows at every call.
const StockCardRows& Source();

std::vector<ColumnInfo> StockCardColumns();
// Writes every row as a connection does.
void FillStore(const StockCardRows& source, RowStore& store);

class GeneratedConnection : public IConnection {
 public:
  void Open(std::string_view, RowStore& into, IStatementProgress*) override { FillStore(Source(), into); }
  void Execute(std::string_view, IStatementProgress*) override {}
};

}  // namespace goods::bench
