// What is worked out good by good has in common: which goods a report lists, and the walk through the
// movements of one good after another that adds them up. The stock card lies by good and date, so a good's
// movements of a period are one range of it, and all goods together are one scan; packed_movements.h tells
// from where they are read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "company/embedded/decimal_cell.h"
#include "company/embedded/divided_reading.h"
#include "company/embedded/packed_movements.h"
#include "company/embedded/sqlite.h"

namespace goods {

// A search for goods. Code is what a user typed and means the one good of that code; a text
// that is no whole number means none. name and abbName are parts of the text, as a Persian reader compares.
// An empty text asks for nothing. reverse turns the whole search round, and does nothing where none is asked.
struct GoodSearch {
  std::string code;
  std::string name;
  std::string abbName;
  bool reverse = false;
};

// The goods of the range that are found, by code; each with its ratio Meghdar_Formool (0 without a second
// unit) and its unit price at the basis that was prepared last (0 without one).
enum GoodColumn : int { kGoodCode = 0, kGoodName, kGoodAbbName, kGoodRatio, kGoodPrice };
Statement FindGoods(Database& db, const GoodSearch& search, const GoodRange& goods);

// Jalali dates, both included. An empty text is an open end; so are '0000/00/00' as the first, and '9' and
// '9999/99/99' as the last.
class Period {
 public:
  Period() = default;
  Period(std::string from, std::string to);
  bool OpenFrom() const { return from_.empty(); }
  bool OpenTo() const { return to_.empty(); }
  const std::string& From() const { return from_; }
  const std::string& To() const { return to_; }
  bool operator==(const Period&) const = default;

 private:
  std::string from_;
  std::string to_;
};

enum class Span { Within, Before };

// Which movements a walk goes through, and how.
struct MovementWalk {
  const char* table = "Kardex";  // or "DetailKardex", the details of the same movements
  Span span = Span::Within;      // of the period; its last date does not count before it
  std::int64_t store = 0;        // 0: every store
  bool lastFirst = false;        // by date and row number, backwards; else in no order that is promised
};

// The movements of one good after another.
class GoodMovements {
 public:
  // columns: of the table, joined with ",".
  GoodMovements(sqlite3* db, std::string_view columns, const Period& period, const MovementWalk& walk = {});

  // Calls each(Statement&) for every movement of the good.
  template <typename Each>
  void ForGood(std::int64_t good, Each each) {
    movements_.Reset();
    movements_.Bind(1, good);
    while (movements_.Step()) each(movements_);
  }

 private:
  Statement movements_;
};

// The rows of a cell that lie in a period; none where an end is no date that a cell knows ("1402/1"), so that
// the texts themselves have to be compared.
class PackedPeriod {
 public:
  PackedPeriod() = default;
  explicit PackedPeriod(const Period& period);
  bool Known() const { return known_; }
  PackedRows Within(const PackedMovements& movements) const;
  PackedRows Before(const PackedMovements& movements) const;
  // How many rows there are up to the period's end, whenever it begins.
  std::size_t UpToEnd(const PackedMovements& movements) const;

 private:
  bool known_ = true;
  std::optional<std::int64_t> from_;
  std::optional<std::int64_t> to_;
};

// The movements of one good after another, within a period and before it: out of the good's packed cell, or
// where there is none, of its stock card.
class MovementScan {
 public:
  // store 0: every store.
  MovementScan(sqlite3* db, const Period& period, std::int64_t store = 0)
      : packed_(db),
        period_(period),
        store_(store),
        within_(db, kCounted, period, {.store = store}),
        before_(db, kCounted, period, {.span = Span::Before, .store = store}) {}

  // Calls each(const CountedMovement&) for every movement of the good in the period, or before it; in no
  // order that is promised. Without costs, cost may be 0.
  template <bool kWithCosts, typename Each>
  void Within(std::int64_t good, Each each) {
    const auto unpack = [&](const PackedMovements& cell) {
      Unpack<kWithCosts>(cell, period_.Within(cell), each);
    };
    if (!period_.Known() || !packed_.ForCells(good, unpack)) Read(within_, good, each);
  }
  template <bool kWithCosts, typename Each>
  void Before(std::int64_t good, Each each) {
    const auto unpack = [&](const PackedMovements& cell) {
      Unpack<kWithCosts>(cell, period_.Before(cell), each);
    };
    if (!period_.Known() || !packed_.ForCells(good, unpack)) Read(before_, good, each);
  }

 private:
  static constexpr std::string_view kCounted = "Anbar, Type, Tedad, Gheymat";

  template <typename Each>
  static void Read(GoodMovements& movements, std::int64_t good, Each& each) {
    movements.ForGood(good, [&](const Statement& row) {
      each(CountedMovement{row.Integer(0), row.Integer(1), row.Integer(2), ColumnUnits(row.Handle(), 3)});
    });
  }
  template <bool kWithCosts, typename Each>
  void Unpack(const PackedMovements& cell, PackedRows rows, Each& each) const {
    cell.ForEach<kWithCosts>(rows, [&](std::size_t, const CountedMovement& movement) {
      if (store_ == 0 || movement.store == store_) each(movement);
    });
  }

  PackedGoods packed_;
  PackedPeriod period_;
  std::int64_t store_;
  GoodMovements within_;
  GoodMovements before_;
};

}  // namespace goods
