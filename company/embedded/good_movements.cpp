#include "company/embedded/good_movements.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/core/text.h"

namespace goods {

namespace {

constexpr char kGoods[] =
    "SELECT g.Code, g.Name, g.AbbName, g.Meghdar_Formool, r.Stock"
    " FROM GoodInf g LEFT JOIN RialiStock r ON r.Kala = g.Code"
    " WHERE g.Code BETWEEN ?6 AND ?7 AND ((?1 = '' AND ?3 = '' AND ?4 = '')"
    " OR ((?1 = '' OR ifnull(g.Code = ?2, 0))"
    " AND (?3 = '' OR instr(fold_persian(g.Name), fold_persian(?3)) > 0)"
    " AND (?4 = '' OR instr(fold_persian(g.AbbName), fold_persian(?4)) > 0)) = (?5 = 0))"
    " ORDER BY g.Code";

}  // namespace

Statement FindGoods(Database& db, const GoodSearch& search, const GoodRange& range) {
  Statement goods = db.Prepare(kGoods);
  goods.Bind(1, std::string_view(search.code));
  if (const std::optional<std::int64_t> code = ParseInteger(AsciiDigits(Trim(search.code)))) {
    goods.Bind(2, *code);
  }
  goods.Bind(3, std::string_view(search.name));
  goods.Bind(4, std::string_view(search.abbName));
  goods.Bind(5, std::int64_t{search.reverse ? 1 : 0});
  goods.Bind(6, range.first);
  goods.Bind(7, range.last);
  return goods;
}

Period::Period(std::string from, std::string to) : from_(std::move(from)), to_(std::move(to)) {
  if (Trim(from_).empty() || from_ == "0000/00/00") from_.clear();
  if (Trim(to_).empty() || to_ == "9" || to_ == "9999/99/99") to_.clear();
}

GoodMovements::GoodMovements(sqlite3* db, std::string_view columns, const Period& period,
                             const MovementWalk& walk) {
  const bool before = walk.span == Span::Before;
  const bool from = before || !period.OpenFrom();
  const bool to = !before && !period.OpenTo();
  std::string sql = "SELECT " + std::string(columns) + " FROM " + walk.table + " WHERE Kala = ?1";
  if (from) sql += before ? " AND Date < ?2" : " AND Date >= ?2";
  if (to) sql += " AND Date <= ?3";
  if (walk.store != 0) sql += " AND Anbar = ?4";
  if (walk.lastFirst) sql += " ORDER BY Date DESC, Radif DESC";
  movements_ = Statement(db, sql);
  if (from) movements_.Bind(2, std::string_view(period.From()));
  if (to) movements_.Bind(3, std::string_view(period.To()));
  if (walk.store != 0) movements_.Bind(4, walk.store);
}

PackedPeriod::PackedPeriod(const Period& period) {
  const auto take = [&](const std::string& text, std::optional<std::int64_t>& end) {
    if (text.empty()) return;
    end = PackedDate(text);
    if (!end) known_ = false;
  };
  take(period.From(), from_);
  take(period.To(), to_);
}

PackedRows PackedPeriod::Within(const PackedMovements& movements) const {
  const PackedRows rows{from_ ? movements.Before(*from_) : 0, UpToEnd(movements)};
  return {rows.first, std::max(rows.first, rows.last)};
}

std::size_t PackedPeriod::UpToEnd(const PackedMovements& movements) const {
  return to_ ? movements.UpTo(*to_) : movements.Rows();
}

PackedRows PackedPeriod::Before(const PackedMovements& movements) const {
  return {0, from_ ? movements.Before(*from_) : 0};
}

}  // namespace goods
