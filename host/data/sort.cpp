#include "host/data/sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <utility>

#include "host/core/text.h"
#include "host/data/column_chunk.h"
#include "host/data/filter_lexer.h"
#include "host/data/persian.h"

namespace goods {
namespace {

constexpr std::int64_t kMostDetail = 1'000'000;
constexpr unsigned kDigitBits = 11;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;

template <typename Key>
struct Entry {
  Key key;
  std::uint32_t row;
};

// Sorts by key, digit by digit from the lowest; stable.
template <typename Key>
void RadixSort(std::vector<Entry<Key>>& entries, unsigned keyBits) {
  const auto before = [](const Entry<Key>& a, const Entry<Key>& b) { return a.key < b.key; };
  if (std::is_sorted(entries.begin(), entries.end(), before)) return;
  std::vector<Entry<Key>> scattered(entries.size());
  for (unsigned shift = 0; shift < keyBits; shift += kDigitBits) {
    const auto digit = [shift](const Entry<Key>& entry) {
      return static_cast<std::size_t>(entry.key >> shift) & (kDigits - 1);
    };
    std::array<std::size_t, kDigits> place{};
    for (const Entry<Key>& entry : entries) ++place[digit(entry)];
    if (std::find(place.begin(), place.end(), entries.size()) != place.end()) continue;
    std::exclusive_scan(place.begin(), place.end(), place.begin(), std::size_t{0});
    for (const Entry<Key>& entry : entries) scattered[place[digit(entry)]++] = entry;
    entries.swap(scattered);
  }
}

// A column's cells as numbers from 1 to greatest, in the wanted direction; nulls are 0.
template <typename Key>
void SortByKeys(const std::vector<Key>& keys, Key greatest, std::vector<std::uint32_t>& order) {
  std::vector<Entry<Key>> entries(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) entries[i] = {keys[order[i]], order[i]};
  unsigned bits = 0;
  while (bits < sizeof(Key) * 8 && (greatest >> bits) != 0) ++bits;
  RadixSort(entries, bits);
  std::transform(entries.begin(), entries.end(), order.begin(), [](const auto& entry) { return entry.row; });
}

// A text's sort key by its first eight bytes, which mostly decide, and its place among all keys.
struct TextKey {
  std::uint64_t prefix = 0;
  std::size_t begin = 0;
  std::size_t end = 0;
  std::uint32_t id = 0;
};

// The rank of each text id, from 1; texts of equal keys share one. With a detail that of an empty text is 0.
std::vector<std::uint32_t> TextRanks(const Column& column, int detail) {
  const std::size_t count = column.DistinctTexts();
  std::string arena;
  std::vector<TextKey> keys(count);
  for (std::uint32_t id = 0; id < count; ++id) {
    TextKey& key = keys[id];
    key.id = id;
    key.begin = arena.size();
    const std::string_view text = column.TextOfId(id);
    AppendPersianSortKey(detail < 0 ? text : FirstChars(text, static_cast<std::size_t>(detail)), arena);
    key.end = arena.size();
    for (std::size_t i = 0; i < sizeof key.prefix; ++i) {
      const std::size_t at = key.begin + i;
      key.prefix = key.prefix << 8U | (at < key.end ? static_cast<unsigned char>(arena[at]) : 0U);
    }
  }
  const auto bytes = [&arena](const TextKey& key) {
    return std::string_view(arena).substr(key.begin, key.end - key.begin);
  };
  std::sort(keys.begin(), keys.end(), [&](const TextKey& a, const TextKey& b) {
    return a.prefix != b.prefix ? a.prefix < b.prefix : bytes(a) < bytes(b);
  });
  std::vector<std::uint32_t> ranks(count);
  const std::string empty = PersianSortKey("");
  std::uint32_t rank = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (i == 0 || bytes(keys[i - 1]) != bytes(keys[i])) ++rank;
    ranks[keys[i].id] = detail >= 0 && bytes(keys[i]) == empty ? 0 : rank;
  }
  return ranks;
}

template <typename Visit>
void EachCell(const Column& column, Visit visit) {
  for (const ColumnChunk& chunk : column.Chunks()) {
    for (std::size_t i = 0; i < chunk.size; ++i) visit(chunk, i);
  }
}

void SortByText(const SortColumn& by, std::vector<std::uint32_t>& order) {
  const std::vector<std::uint32_t> ranks = TextRanks(*by.column, by.detail);
  const auto greatest = static_cast<std::uint32_t>(ranks.size());
  std::vector<std::uint32_t> keys;
  keys.reserve(order.size());
  EachCell(*by.column, [&](const ColumnChunk& chunk, std::size_t i) {
    const std::uint32_t rank = ranks[chunk.TextId(i)];
    keys.push_back(chunk.IsNull(i) || rank == 0 ? 0 : by.descending ? greatest + 1 - rank : rank);
  });
  SortByKeys(keys, greatest, order);
}

// Least and greatest of a column's numbers, counted in steps of its finest scale.
struct NumberRange {
  Int128 step = 1;
  Int128 least = 0;
  Int128 most = 0;
};

NumberRange RangeOf(const Column& column) {
  int scale = 0;
  for (const ColumnChunk& chunk : column.Chunks()) scale = std::max(scale, chunk.scale);
  NumberRange range;
  range.step = PowerOfTen(Decimal::kDecimals - scale);
  bool any = false;
  for (const ColumnChunk& chunk : column.Chunks()) {
    const auto extend = [&](Int128 least, Int128 most) {
      range.least = any ? std::min(range.least, least) : least;
      range.most = any ? std::max(range.most, most) : most;
      any = true;
    };
    for (std::size_t i = 0; chunk.wide && i < chunk.size; ++i) extend(chunk.wide[i], chunk.wide[i]);
    if (chunk.narrow == nullptr || chunk.size == 0) continue;
    const auto [least, most] = std::minmax_element(chunk.narrow.get(), chunk.narrow.get() + chunk.size);
    const Int128 factor = PowerOfTen(scale - std::min(scale, chunk.scale));
    extend(*least * factor, *most * factor);
  }
  return range;
}

// Leaves 0 to the nulls. Where the column spans the whole range of Decimal, its two greatest numbers meet.
constexpr UInt128 KeyOf(UInt128 distance) { return distance == ~UInt128{0} ? distance : distance + 1; }

template <typename Key>
void SortByNumberKeys(const SortColumn& by, const NumberRange& range, std::vector<std::uint32_t>& order) {
  std::vector<Key> keys;
  keys.reserve(order.size());
  for (const ColumnChunk& chunk : by.column->Chunks()) {
    const Int128 factor = PowerOfTen(Decimal::kDecimals - chunk.scale) / range.step;
    for (std::size_t i = 0; i < chunk.size; ++i) {
      const Int128 cell = chunk.wide ? chunk.wide[i] : chunk.narrow[i] * factor;
      const UInt128 above = by.descending ? static_cast<UInt128>(range.most) - static_cast<UInt128>(cell)
                                          : static_cast<UInt128>(cell) - static_cast<UInt128>(range.least);
      keys.push_back(chunk.IsNull(i) ? Key{0} : static_cast<Key>(KeyOf(above)));
    }
  }
  const UInt128 span = static_cast<UInt128>(range.most) - static_cast<UInt128>(range.least);
  SortByKeys(keys, static_cast<Key>(KeyOf(span)), order);
}

void SortByRounded(const SortColumn& by, std::vector<std::uint32_t>& order) {
  std::vector<Int128> cells;
  cells.reserve(order.size());
  for (const ColumnChunk& chunk : by.column->Chunks()) {
    const Int128 factor = PowerOfTen(Decimal::kDecimals - chunk.scale);
    for (std::size_t i = 0; i < chunk.size; ++i) {
      const Int128 cell = chunk.wide ? chunk.wide[i] : chunk.narrow[i] * factor;
      cells.push_back(Decimal::FromUnits(cell).Rounded(by.detail).Units());
    }
  }
  if (cells.empty()) return;
  const auto [least, most] = std::minmax_element(cells.begin(), cells.end());
  std::vector<UInt128> keys;
  keys.reserve(cells.size());
  std::size_t row = 0;
  for (const ColumnChunk& chunk : by.column->Chunks()) {
    for (std::size_t i = 0; i < chunk.size; ++i, ++row) {
      const UInt128 above = by.descending ? static_cast<UInt128>(*most) - static_cast<UInt128>(cells[row])
                                          : static_cast<UInt128>(cells[row]) - static_cast<UInt128>(*least);
      keys.push_back(chunk.IsNull(i) ? UInt128{0} : KeyOf(above));
    }
  }
  SortByKeys(keys, KeyOf(static_cast<UInt128>(*most) - static_cast<UInt128>(*least)), order);
}

void SortByNumber(const SortColumn& by, std::vector<std::uint32_t>& order) {
  if (by.detail >= 0) return SortByRounded(by, order);
  const NumberRange range = RangeOf(*by.column);
  const UInt128 span = static_cast<UInt128>(range.most) - static_cast<UInt128>(range.least);
  if (span < ~std::uint32_t{0}) {
    SortByNumberKeys<std::uint32_t>(by, range, order);
  } else if (span < ~std::uint64_t{0}) {
    SortByNumberKeys<std::uint64_t>(by, range, order);
  } else {
    SortByNumberKeys<UInt128>(by, range, order);
  }
}

int TakeDetail(FilterLexer& lexer) {
  const bool number = lexer.Current().kind == FilterTokenKind::Number;
  const auto detail = number ? ParseInteger(lexer.Current().text) : std::nullopt;
  if (!detail || *detail < 0 || *detail > kMostDetail) lexer.Fail("پس از TO عدد درست می آید");
  lexer.Advance();
  return static_cast<int>(*detail);
}

}  // namespace

std::vector<SortKey> ParseSort(std::string_view text) {
  FilterLexer lexer(text);
  std::vector<SortKey> keys;
  if (lexer.Current().kind == FilterTokenKind::End) return keys;
  do {
    const FilterToken& token = lexer.Current();
    const bool named = token.kind == FilterTokenKind::Word || token.kind == FilterTokenKind::Field;
    if (!named || token.text.empty()) lexer.Fail("اینجا باید نام فیلد بیاید");
    SortKey& key = keys.emplace_back();
    key.field = token.text;
    key.place = token.place;
    lexer.Advance();
    if (lexer.TakeWord("TO")) key.detail = TakeDetail(lexer);
    key.descending = lexer.TakeWord("DESC");
    if (!key.descending) lexer.TakeWord("ASC");
  } while (lexer.TakeSymbol(","));
  if (lexer.Current().kind != FilterTokenKind::End) lexer.Fail("پس از فیلد جز TO، ASC، DESC و کاما نمی آید");
  return keys;
}

std::vector<std::uint32_t> SortRows(std::span<const SortColumn> columns, std::size_t rowCount) {
  std::vector<std::uint32_t> order(rowCount);
  std::iota(order.begin(), order.end(), 0U);
  // From the last key to the first, each stable, so that the earlier ones count more.
  for (std::size_t i = columns.size(); i-- > 0;) {
    const bool text = columns[i].column->Type() == ColumnType::Text;
    text ? SortByText(columns[i], order) : SortByNumber(columns[i], order);
  }
  return order;
}

}  // namespace goods
