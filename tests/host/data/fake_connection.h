// A connection that answers with rows made in the test.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/data/connection.h"
#include "host/data/row_store.h"

namespace goods::test {

inline void Append(Column& column, const Value& value) {
  if (value.IsNull()) return column.AppendNull();
  switch (column.Type()) {
    case ColumnType::Integer:
      return column.AppendInteger(value.AsInteger());
    case ColumnType::Decimal:
      return column.AppendDecimal(value.AsDecimal());
    case ColumnType::Text:
      return column.AppendText(value.AsText());
  }
}

using Row = std::vector<Value>;

inline void Fill(RowStore& store, std::vector<ColumnInfo> columns, const std::vector<Row>& rows) {
  store.Define(std::move(columns));
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) Append(store.ColumnAt(i), row[i]);
    store.EndRow();
  }
  store.Finish();
}

class FakeConnection : public IConnection {
 public:
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override {
    opened.emplace_back(statement);
    lastProgress = progress;
    if (duringOpen) duringOpen();
    Fill(into, columns, rows);
    if (failing) throw DatabaseError("خطای پایگاه داده", std::string(statement));
  }
  void Execute(std::string_view statement, IStatementProgress*) override {
    executed.emplace_back(statement);
    if (failing) throw ConnectionLost("ارتباط قطع شد", std::string(statement));
  }

  std::vector<ColumnInfo> columns;
  std::vector<Row> rows;
  bool failing = false;
  std::function<void()> duringOpen;
  std::vector<std::string> opened;
  std::vector<std::string> executed;
  IStatementProgress* lastProgress = nullptr;
};

}  // namespace goods::test
