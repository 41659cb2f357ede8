// A filter text (first line) and a sort text (second line) on rows of every kind.
#include <string>
#include <utility>

#include "fuzz/fuzz_input.h"
#include "host/data/query.h"

namespace goods {
namespace {

class Rows : public IConnection {
 public:
  void Open(std::string_view, RowStore& into, IStatementProgress*) override {
    into.Define({{"Kala", ColumnType::Integer}, {"Tedad", ColumnType::Decimal}, {"Name", ColumnType::Text}});
    constexpr const char* kNames[] = {"", "كتاب", "کتاب ي", "O'Brien", "100%", "[x]", "1403/01/01", "12"};
    for (int row = 0; row < 64; ++row) {
      if (row % 9 == 0) {
        into.ColumnAt(0).AppendNull();
      } else {
        into.ColumnAt(0).AppendInteger(row - 30);
      }
      if (row % 7 == 0) {
        into.ColumnAt(1).AppendNull();
      } else {
        into.ColumnAt(1).AppendDecimal(Decimal::FromUnits(static_cast<Int128>(row - 20) * 123'456'789));
      }
      if (row % 11 == 0) {
        into.ColumnAt(2).AppendNull();
      } else {
        into.ColumnAt(2).AppendText(kNames[row % 8]);
      }
      into.EndRow();
    }
    into.Finish();
  }
  void Execute(std::string_view, IStatementProgress*) override {}
};

struct Opened {
  Opened() { query.Open(); }
  Rows rows;
  TADOQuery query{nullptr, "Rows_QRY", rows};
};

// Whether the query took the text.
template <typename Set>
bool Taken(Set set) {
  try {
    set();
    return true;
  } catch (const FilterError&) {
    return false;
  }
}

void TryFilter(TADOQuery& query, const std::string& text) {
  query.SetFilter("");
  const std::size_t total = query.TotalCount();
  fuzz::Holds(query.RecordCount() == total, "no filter shows every row");
  if (!Taken([&] { query.SetFilter(text); })) {
    fuzz::Holds(query.RecordCount() == total, "a refused filter changes nothing");
    return;
  }
  const std::size_t shown = query.RecordCount();
  fuzz::Holds(shown <= total, "a filter adds no rows");
  // Conditions are true or false, never unknown. One bracket and NOT more may be one too many.
  if (!text.empty() && Taken([&] { query.SetFilter("NOT (" + text + ")"); })) {
    fuzz::Holds(query.RecordCount() == total - shown, "a filter and its opposite show each row once");
  }
  query.SetFilter(text);
  fuzz::Holds(query.RecordCount() == shown, "the same filter shows the same rows");
}

}  // namespace
}  // namespace goods

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static goods::Opened opened;
  goods::TADOQuery& query = opened.query;
  std::string_view text = goods::fuzz::AsText(data, size);
  const std::string filter(goods::fuzz::TakeLine(text));
  const std::string sort(goods::fuzz::TakeLine(text));
  goods::TryFilter(query, filter);
  const std::size_t shown = query.RecordCount();
  goods::Taken([&] { query.SetSort(sort); });
  goods::fuzz::Holds(query.RecordCount() == shown, "sorting keeps the rows");
  query.SetSort("");
  return 0;
}
