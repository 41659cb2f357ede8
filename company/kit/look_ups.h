// What a host looks up in a company, as statements that every engine answers alike.
//
// The statements read views whose names end in LookUp_VW; docs/procedures.md lists their columns, so that a
// database that keeps its masters otherwise can serve them. Searched names are kept folded (FoldPersian) in
// SearchName, and the text that is sought is folded before it is sent.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "company/company.h"
#include "host/data/row_store.h"

namespace goods {

class IConnection;

// A statement's text literal: N'...' with quotes doubled.
std::string TextLiteral(std::string_view text);

// The rows of one look-up, cells by position. Valid as long as the rows live.
class LookUpRows {
 public:
  explicit LookUpRows(RowStore rows) : rows_(std::move(rows)) {}
  std::size_t Count() const { return rows_.Count(); }
  bool IsNull(std::size_t row, std::size_t column) const { return rows_.ColumnAt(column).IsNull(row); }
  std::int64_t Integer(std::size_t row, std::size_t column) const {
    return rows_.Cell(row, column).AsInteger();
  }
  Decimal Number(std::size_t row, std::size_t column) const { return rows_.Cell(row, column).AsDecimal(); }
  std::string Text(std::size_t row, std::size_t column) const { return rows_.Cell(row, column).AsText(); }

 private:
  RowStore rows_;
};

// Every function throws DatabaseError.
class LookUps {
 public:
  // connection must outlive it.
  explicit LookUps(IConnection& connection) : connection_(connection) {}

  LookUpRows Ask(const std::string& statement);

  std::optional<EntityRecord> FindEntity(EntityType type, std::int64_t code);
  std::vector<EntityRecord> SearchEntities(EntityType type, std::string_view text, std::size_t limit);
  std::optional<GoodRecord> FindGood(std::int64_t code);
  std::vector<TagRecord> Tags();
  std::vector<CategoryRecord> Categories();
  std::vector<BusyGood> ListBusyGoods(std::size_t limit);

 private:
  IConnection& connection_;
};

}  // namespace goods
