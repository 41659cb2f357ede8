// RowStore: the rows of one result, column by column. Written once, front to back; then only read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/data/decimal.h"
#include "host/data/value.h"

namespace goods {

struct ColumnChunk;

struct ColumnInfo {
  std::string name;
  ColumnType type = ColumnType::Text;
};

// The cells of one column in chunks, so that growing never copies what stands and never needs it twice.
//
// Integers take 8 bytes. Decimals take 8 bytes a cell in every chunk whose values fit 64 bits at one scale,
// else 9, 10 (from 2.3 trillion on) or 16 (from 600 trillion on). Texts are kept once in one arena: a cell is
// a 4-byte id, so a text that repeats is stored once, and a test on a text column is made once per distinct
// text. In a column whose texts hardly repeat they are no longer looked up but stored as they come, and whole
// chunks then need no ids.
class Column {
 public:
  explicit Column(ColumnType type);
  Column(Column&&) noexcept;
  Column& operator=(Column&&) noexcept;
  ~Column();

  ColumnType Type() const;

  // Appending. The kind must be the column's own and the store not finished, else std::logic_error is thrown.
  void AppendNull();
  void AppendInteger(std::int64_t value) {
    if (nextInteger_ == endInteger_) MakeRoom(ColumnType::Integer);
    *nextInteger_++ = value;
  }
  void AppendDecimal(Decimal value) {
    if (nextDecimal_ == endDecimal_) MakeRoom(ColumnType::Decimal);
    *nextDecimal_++ = value.Units();
  }
  void AppendText(std::string_view text);

  // Reading, once the store is finished. row is below the store's Count(), else std::out_of_range is thrown.
  // A null reads as 0 or the empty text; an integer column's text, or a text column's number, likewise.
  bool IsNull(std::size_t row) const;
  std::int64_t Integer(std::size_t row) const;
  Decimal Number(std::size_t row) const;  // of an integer column too
  // Valid as long as the store lives.
  std::string_view Text(std::size_t row) const;
  // Of whatever kind the column is; null where the cell is.
  Value Cell(std::size_t row) const;
  // The text's id in a text column: equal ids, equal texts. Ids run from 0 to DistinctTexts() - 1. Where
  // texts hardly repeat (see above) equal texts may stand under several ids, and DistinctTexts() counts each
  // of them.
  std::uint32_t TextId(std::size_t row) const;
  std::size_t DistinctTexts() const;
  std::string_view TextOfId(std::uint32_t id) const;

  // Exact sum of the cells at the given rows; nulls count as 0, texts as 0. Throws std::overflow_error only
  // when the sum itself is out of range, whatever the order of the rows.
  Decimal Sum(const std::uint32_t* rows, std::size_t count) const;
  // The same over every row, and over the rows whose bit is set (bit i % 64 of word i / 64). Fastest: the
  // cells are read in the order in which they lie.
  Decimal SumAll() const;
  Decimal SumMasked(const std::uint64_t* mask) const;

  // The cells as they lie in memory; complete once the store is finished.
  const std::vector<ColumnChunk>& Chunks() const;

  // Bytes held, for measurements.
  std::size_t MemoryBytes() const;

 private:
  friend class RowStore;
  struct Impl;
  void MakeRoom(ColumnType type);
  void Finish();
  std::size_t OpenCells() const;
  std::size_t Cells() const;
  void AppendRowsOf(const Column& from, std::size_t rows);
  void AppendTextId(std::uint32_t id);
  const ColumnChunk& ChunkOf(std::size_t row) const;

  std::unique_ptr<Impl> impl_;
  // The room for further cells of an integer or decimal column; for a text column it is with the ids, inside.
  std::int64_t* nextInteger_ = nullptr;
  std::int64_t* endInteger_ = nullptr;
  Int128* nextDecimal_ = nullptr;
  Int128* endDecimal_ = nullptr;
};

// Rows are numbered from 0, at most 2^32 - 1 of them. How a producer writes: Define, then for each row one
// Append on every column and EndRow; Finish at the end.
class RowStore {
 public:
  RowStore();
  RowStore(RowStore&&) noexcept;
  RowStore& operator=(RowStore&&) noexcept;
  ~RowStore();

  void Define(std::vector<ColumnInfo> columns);
  Column& ColumnAt(std::size_t index) { return columns_[index]; }
  void EndRow() { ++count_; }
  // Writes all rows of a finished store behind those that are there. Throws std::logic_error when its columns
  // are of other kinds.
  void Append(const RowStore& rows);
  // Ends the writing and gives back what was reserved for further rows; a second call does nothing. Throws
  // std::logic_error when a column has not one cell for each row.
  void Finish();

  // A finished store of the first rows, at most as many as have ended; this one goes on. Reading it is
  // writing's business while it is not finished: for the thread that writes alone.
  RowStore Head(std::size_t rows) const;

  std::size_t Count() const { return count_; }
  const std::vector<ColumnInfo>& Columns() const { return infos_; }
  const Column& ColumnAt(std::size_t index) const { return columns_[index]; }
  // By name, letter case of A to Z apart.
  std::optional<std::size_t> FindColumn(std::string_view name) const;
  Value Cell(std::size_t row, std::size_t column) const;
  std::size_t MemoryBytes() const;

 private:
  std::vector<ColumnInfo> infos_;
  std::vector<Column> columns_;
  std::size_t count_ = 0;
};

}  // namespace goods
