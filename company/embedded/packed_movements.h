// A good's movements packed into a cell: what reports over a period count of them, column by column, so
// that a period of all goods is read without the rows of the stock card. The cell is written together with
// the good's stored figures, from the same rows (FigureWriter), and checked with them (CheckCards). A good
// whose movements cannot be packed has none, and is read from its stock card.
//
// A cell is, little-endian: the format (1), the numbers of rows, of averages and of costs (32 bits each),
// then for each of the six columns its width in bytes (0 to 8), the power of ten that its numbers are
// multiplied with (0 to 9) and their base; then the columns: dates as numbers yyyymmdd, stores, types,
// quantities; a bit a row for an average that is another one than before the row, and those averages; a bit a
// row for a cost that is not the average before the row, and those costs; eight bytes of padding. A number is
// (base + what stands in its width) times its power of ten, modulo 2^64.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "company/embedded/sqlite.h"
#include "host/data/decimal.h"

namespace goods {

// The number yyyymmdd of a date "yyyy/mm/dd", whose order is that of the texts; none for a text of another
// form.
std::optional<std::int64_t> PackedDate(std::string_view date);
std::string DateOfPacked(std::int64_t date);

// Collects the rows of one good in the order of date and Radif.
class MovementPacker {
 public:
  // Rows of a cell, and cells of a good; beyond that a good is not packed, so that memory stays bounded.
  static constexpr std::size_t kMostRows = 65'536;
  static constexpr std::int64_t kMostCells = 64;

  void Add(std::string_view date, std::int64_t store, std::int64_t type, Decimal quantity, Decimal cost,
           Decimal averageAfter);
  // Takes the cells, in order. None without rows, with more than the cells hold, with a date that is none,
  // and with a number beyond 64 bits.
  std::vector<std::string> TakeCells();

 private:
  struct Rows {
    std::vector<std::int64_t> dates;
    std::vector<std::int64_t> stores;
    std::vector<std::int64_t> types;
    std::vector<std::int64_t> quantities;
    std::vector<bool> averageMoves;
    std::vector<std::int64_t> averages;
    std::vector<bool> costDiffers;
    std::vector<std::int64_t> costs;
  };

  static std::string CellOf(const Rows& rows);
  void EndCell();
  void GiveUp();

  bool possible_ = true;
  std::int64_t average_ = 0;  // before the next row; 0 at the beginning of a cell
  Rows rows_;
  std::vector<std::string> cells_;
};

// What is counted of a movement. Quantities and costs in billionths.
struct CountedMovement {
  std::int64_t store = 0;
  std::int64_t type = 0;
  std::int64_t quantity = 0;
  Int128 cost = 0;
};

// Rows [first, last) of a cell.
struct PackedRows {
  std::size_t first = 0;
  std::size_t last = 0;
};

// Reads a cell, which it does not own.
class PackedMovements {
 public:
  // False for bytes that are no such cell; nothing else may be asked then.
  bool Open(const void* bytes, std::size_t size);
  std::size_t Rows() const { return rows_; }
  // The rows before a date, and those up to it.
  std::size_t Before(std::int64_t date) const { return LowerBound(date); }
  std::size_t UpTo(std::int64_t date) const { return LowerBound(date + 1); }
  std::int64_t DateAt(std::size_t row) const { return columns_[kDates].At(row); }
  // The average after the row, in billionths.
  std::int64_t AverageAfter(std::size_t row) const;

  // Calls each(row, const CountedMovement&) for the rows in their order. Without costs, cost is 0.
  template <bool kWithCosts, typename Each>
  void ForEach(PackedRows rows, Each each) const {
    std::int64_t average = 0;
    std::size_t nextAverage = 0;
    std::size_t nextCost = 0;
    if constexpr (kWithCosts) {
      nextAverage = BitsBefore(averageMoves_, rows.first);
      nextCost = BitsBefore(costDiffers_, rows.first);
      if (nextAverage > 0) average = columns_[kAverages].At(nextAverage - 1);
    }
    for (std::size_t row = rows.first; row < rows.last; ++row) {
      CountedMovement movement{columns_[kStores].At(row), columns_[kTypes].At(row),
                               columns_[kQuantities].At(row)};
      if constexpr (kWithCosts) {
        movement.cost = Bit(costDiffers_, row) ? columns_[kCosts].At(nextCost++) : average;
        if (Bit(averageMoves_, row)) average = columns_[kAverages].At(nextAverage++);
      }
      each(row, movement);
    }
  }

 private:
  enum ColumnIndex : std::size_t { kDates, kStores, kTypes, kQuantities, kAverages, kCosts, kColumns };

  struct PackedColumn {
    const unsigned char* bytes = nullptr;
    std::size_t width = 0;
    std::uint64_t mask = 0;
    std::uint64_t base = 0;
    std::uint64_t power = 1;

    // Reads eight bytes wherever a number starts; the cell's padding makes that safe.
    std::int64_t At(std::size_t row) const {
      std::uint64_t number = 0;
      std::memcpy(&number, bytes + row * width, sizeof number);
      return static_cast<std::int64_t>((base + (number & mask)) * power);
    }
  };

  static bool Bit(const unsigned char* bits, std::size_t row) { return (bits[row / 8] >> row % 8 & 1) != 0; }
  static std::size_t BitsBefore(const unsigned char* bits, std::size_t row);
  std::size_t LowerBound(std::int64_t date) const;

  std::size_t rows_ = 0;
  std::array<PackedColumn, kColumns> columns_;
  const unsigned char* averageMoves_ = nullptr;
  const unsigned char* costDiffers_ = nullptr;
};

// Where a good's cells stand: PackedMovements.Place is the good's code times kMostCells, and further from
// cell to cell. None for a code whose places would not be numbers.
std::optional<std::int64_t> PlaceOfPacked(std::int64_t good);

// The cells of one good after another.
class PackedGoods {
 public:
  explicit PackedGoods(sqlite3* db);

  // Calls each(const PackedMovements&) for the good's cells in their order; false where it has none. Throws
  // SqliteError for a cell that is none.
  template <typename Each>
  bool ForCells(std::int64_t good, Each each) {
    if (!Select(good)) return false;
    do {
      each(cell_);
    } while (Next());
    return true;
  }

 private:
  bool Select(std::int64_t good);
  bool Next();

  Statement cells_;
  PackedMovements cell_;
};

// Writes the cells of goods in the place of those that they have.
class PackedWriter {
 public:
  explicit PackedWriter(Database& db);
  void Write(std::int64_t good, MovementPacker& packer);

 private:
  Statement clear_;
  Statement insert_;
};

// Packs the movements of every good anew.
void PackEveryGood(Database& db);

}  // namespace goods
