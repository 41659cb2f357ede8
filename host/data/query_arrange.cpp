// Filter, sort and sums of TADOQuery.
#include <algorithm>
#include <bit>
#include <functional>
#include <map>
#include <numeric>
#include <utility>

#include "host/core/text.h"
#include "host/data/exact_sum.h"
#include "host/data/filter.h"
#include "host/data/filter_lexer.h"
#include "host/data/query.h"
#include "host/data/sort.h"

namespace goods {
namespace {

bool SameKeys(const std::vector<SortKey>& a, const std::vector<SortKey>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const SortKey& x, const SortKey& y) {
    return SameText(x.field, y.field) && x.descending == y.descending && x.detail == y.detail;
  });
}

void AppendValue(Column& column, ColumnType type, const Value& value) {
  if (value.IsNull()) return column.AppendNull();
  switch (type) {
    case ColumnType::Integer:
      return column.AppendInteger(value.AsInteger());
    case ColumnType::Decimal:
      return column.AppendDecimal(value.AsDecimal());
    case ColumnType::Text:
      return column.AppendText(value.AsText());
  }
}

bool TestBit(const std::vector<std::uint64_t>& mask, std::uint32_t row) {
  return ((mask[row / 64] >> (row % 64)) & 1U) != 0;
}

}  // namespace

// The columns that filter and sort work on: the store's own, and a computed one worked out for every row
// once.
class TADOQuery::ColumnFinder {
 public:
  explicit ColumnFinder(const TADOQuery& query) : query_(query) {}

  const Column* operator()(std::string_view name) {
    const auto computed = query_.FindComputed(name);
    if (!computed) {
      const auto stored = query_.rows_->FindColumn(name);
      return stored ? &std::as_const(*query_.rows_).ColumnAt(*stored) : nullptr;
    }
    RowStore& made = made_[*computed];
    if (made.Columns().empty()) WorkOut(query_.computed_[*computed], made);
    return &std::as_const(made).ColumnAt(0);
  }

 private:
  void WorkOut(const ComputedColumn& computed, RowStore& made) const {
    made.Define({computed.info});
    for (std::size_t row = 0; row < query_.rows_->Count(); ++row) {
      AppendValue(made.ColumnAt(0), computed.info.type, computed.compute(row, *query_.rows_));
      made.EndRow();
    }
    made.Finish();
  }

  const TADOQuery& query_;
  std::map<std::size_t, RowStore> made_;
};

bool TADOQuery::IsComputed(std::string_view field) const { return Active() && FindComputed(field); }

bool TADOQuery::ReadsComputed(const FilterNode& tree) const {
  std::vector<std::string> fields;
  CollectFields(tree, fields);
  return std::any_of(fields.begin(), fields.end(), [this](const auto& field) { return IsComputed(field); });
}

bool TADOQuery::ReadsComputed(const std::vector<SortKey>& keys) const {
  return std::any_of(keys.begin(), keys.end(), [this](const SortKey& key) { return IsComputed(key.field); });
}

std::vector<std::uint64_t> TADOQuery::MaskOf(const FilterNode& tree) const {
  if (tree.kind == FilterNode::Kind::All) return {};
  ColumnFinder finder(*this);
  return EvaluateFilter(tree, std::ref(finder), rows_->Count());
}

std::vector<std::uint32_t> TADOQuery::OrderOf(const std::vector<SortKey>& keys) const {
  if (keys.empty()) return {};
  ColumnFinder finder(*this);
  std::vector<SortColumn> columns;
  for (const SortKey& key : keys) {
    const Column* column = finder(key.field);
    if (column == nullptr) ThrowFilterError("چنین فیلدی وجود ندارد", key.place, key.field);
    columns.push_back({column, key.descending, key.detail});
  }
  return SortRows(columns, rows_->Count());
}

std::vector<std::uint32_t> TADOQuery::VisibleOf(const std::vector<std::uint32_t>& ordered,
                                                const std::vector<std::uint64_t>& mask) const {
  if (mask.empty()) {
    if (!ordered.empty()) return ordered;
    std::vector<std::uint32_t> all(rows_->Count());
    std::iota(all.begin(), all.end(), 0U);
    return all;
  }
  std::size_t count = 0;
  for (const std::uint64_t word : mask) count += static_cast<std::size_t>(std::popcount(word));
  std::vector<std::uint32_t> visible(count + 1);  // one more, so that the loop can write before it decides
  std::size_t next = 0;
  for (const std::uint32_t row : ordered) {
    visible[next] = row;
    next += TestBit(mask, row) ? 1U : 0U;
  }
  for (std::size_t i = 0; ordered.empty() && i < mask.size(); ++i) {
    for (std::uint64_t word = mask[i]; word != 0; word &= word - 1) {
      visible[next++] = static_cast<std::uint32_t>(i * 64 + static_cast<std::size_t>(std::countr_zero(word)));
    }
  }
  visible.pop_back();
  return visible;
}

void TADOQuery::Show(std::vector<std::uint32_t> visible) {
  const std::optional<std::uint32_t> before = cursor_ ? std::optional(visible_[*cursor_]) : std::nullopt;
  visible_ = std::move(visible);
  const auto kept = before ? std::find(visible_.begin(), visible_.end(), *before) : visible_.end();
  if (visible_.empty()) {
    cursor_.reset();
  } else {
    cursor_ = kept == visible_.end() ? 0 : static_cast<std::size_t>(kept - visible_.begin());
  }
  Notify(true, before.has_value() != cursor_.has_value() || (before && kept == visible_.end()));
}

void TADOQuery::SetFilter(std::string text) {
  auto tree = std::make_unique<FilterNode>(ParseFilter(text));
  if (Active() && text == filter_ && !ReadsComputed(*tree)) return;
  std::vector<std::uint64_t> filterMask;
  std::vector<std::uint64_t> mask;
  std::vector<std::uint32_t> visible;
  if (Active()) {
    filterMask = MaskOf(*tree);
    mask = Narrowed(filterMask);
    visible = VisibleOf(ordered_, mask);
  }
  filter_ = std::move(text);
  filterTree_ = std::move(tree);
  filterMask_ = std::move(filterMask);
  mask_ = std::move(mask);
  if (Active()) Show(std::move(visible));
}

std::vector<std::uint64_t> TADOQuery::Narrowed(std::vector<std::uint64_t> mask,
                                               std::string_view butOn) const {
  ColumnFinder finder(*this);
  for (const RowCondition& condition : narrowing_) {
    if (!butOn.empty() && SameText(condition.field, butOn)) continue;
    const Column* column = finder(condition.field);
    if (column == nullptr) continue;
    std::vector<std::uint64_t> met = EvaluateCondition(condition, *column, rows_->Count());
    if (mask.empty()) {
      mask = std::move(met);
    } else {
      std::transform(mask.begin(), mask.end(), met.begin(), mask.begin(), std::bit_and<>());
    }
  }
  return mask;
}

void TADOQuery::SetNarrowing(std::vector<RowCondition> conditions) {
  if (Active())
    std::erase_if(conditions, [this](const RowCondition& each) { return !FindField(each.field); });
  if (conditions == narrowing_) return;
  narrowing_ = std::move(conditions);
  if (!Active()) return;
  mask_ = Narrowed(filterMask_);
  Show(VisibleOf(ordered_, mask_));
}

std::vector<std::uint64_t> TADOQuery::RowsBeside(std::string_view field) const {
  return Active() ? Narrowed(filterMask_, field) : std::vector<std::uint64_t>();
}

void TADOQuery::SetSort(std::string text) {
  std::vector<SortKey> keys = ParseSort(text);
  std::vector<std::uint32_t> ordered;
  std::vector<std::uint32_t> visible;
  const bool others = Active() && (!SameKeys(keys, sortKeys_) || ReadsComputed(keys));
  if (others) {
    ordered = OrderOf(keys);
    visible = VisibleOf(ordered, mask_);
    ordered_ = std::move(ordered);
  }
  sort_ = std::move(text);
  sortKeys_ = std::move(keys);
  if (others) Show(std::move(visible));
}

// The kept filter and sort over new rows; what does not fit them is dropped.
void TADOQuery::ArrangeOpened() {
  try {
    filterMask_ = MaskOf(*filterTree_);
  } catch (const FilterError&) {
    filter_.clear();
    *filterTree_ = {};
  }
  std::erase_if(narrowing_, [this](const RowCondition& each) { return !FindField(each.field); });
  mask_ = Narrowed(filterMask_);
  try {
    ordered_ = OrderOf(sortKeys_);
  } catch (const FilterError&) {
    sort_.clear();
    sortKeys_.clear();
  }
  visible_ = VisibleOf(ordered_, mask_);
  if (!visible_.empty()) cursor_ = 0;
}

void TADOQuery::Swap(Arrangement& other) {
  rows_.swap(other.rows);
  ordered_.swap(other.ordered);
  filterMask_.swap(other.filterMask);
  mask_.swap(other.mask);
  visible_.swap(other.visible);
}

TADOQuery::FirstRowsScope::FirstRowsScope(TADOQuery* query) {
  if (query == nullptr || query->Active() || query->first_ == nullptr) return;
  query_ = query;
  query_->Swap(*query_->first_);
}

TADOQuery::FirstRowsScope::~FirstRowsScope() {
  if (query_ != nullptr) query_->Swap(*query_->first_);
}

// As many as fill the tallest screen. Where a filter hides some of them more are wanted: soon while they are
// few, later at every doubling, so that a filter that lets hardly any row through costs little.
std::size_t TADOQuery::FirstRowsWanted(std::size_t rows) const {
  constexpr std::size_t kScreen = 128;
  constexpr std::size_t kMost = std::size_t{1} << 14U;
  if (first_ == nullptr) return kScreen;
  const std::size_t have = first_->rows->Count();
  if (first_->visible.size() >= kScreen || rows <= have || have >= kMost) return 0;
  if (have < kScreen) return kScreen;
  return rows >= 2 * have ? std::min(rows, kMost) : 0;
}

void TADOQuery::KeepFirstRows(RowStore rows) {
  if (Active()) return;  // opened once more, by a host that handled messages meanwhile
  first_ = std::make_unique<Arrangement>();
  first_->rows = std::make_unique<RowStore>(std::move(rows));
  {
    const FirstRowsScope scope(this);
    try {
      filterMask_ = MaskOf(*filterTree_);
      mask_ = Narrowed(filterMask_);
      ordered_ = OrderOf(sortKeys_);
    } catch (const FilterError&) {  // of fields that these rows do not have: dropped when all have come
    }
    visible_ = VisibleOf(ordered_, mask_);
  }
  FirstRowsCame();
}

Decimal TADOQuery::Sum(std::string_view field) const {
  if (!Active()) return Decimal();
  const auto computed = FindComputed(field);
  if (!computed) {
    const auto stored = rows_->FindColumn(field);
    if (!stored) return Decimal();
    const Column& column = std::as_const(*rows_).ColumnAt(*stored);
    return mask_.empty() ? column.SumAll() : column.SumMasked(mask_.data());
  }
  if (computed_[*computed].info.type == ColumnType::Text) return Decimal();
  ExactSum sum;
  for (const std::uint32_t row : visible_)
    sum.Add(computed_[*computed].compute(row, *rows_).AsDecimal().Units());
  return sum.Total();
}

}  // namespace goods
