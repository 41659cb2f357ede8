#include "host/data/filter.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "host/core/text.h"
#include "host/data/column_chunk.h"
#include "host/data/filter_lexer.h"
#include "host/data/like_pattern.h"

namespace goods {
namespace {

using Op = FilterOperator;

// Packs a yes or no per cell into words.
template <typename Test>
void FillWords(std::uint64_t* words, std::size_t size, Test test) {
  std::size_t cell = 0;
  for (; cell + 64 <= size; cell += 64) {
    std::uint64_t word = 0;
    for (std::size_t bit = 0; bit < 64; ++bit) word |= std::uint64_t{test(cell + bit)} << bit;
    words[cell / 64] = word;
  }
  if (cell == size) return;
  std::uint64_t word = 0;
  for (std::size_t bit = 0; cell + bit < size; ++bit) word |= std::uint64_t{test(cell + bit)} << bit;
  words[cell / 64] = word;
}

template <typename Order>
bool Holds(Op op, Order order) {
  switch (op) {
    case Op::Equal:
      return order == 0;
    case Op::NotEqual:
      return order != 0;
    case Op::Less:
      return order < 0;
    case Op::LessEqual:
      return order <= 0;
    case Op::Greater:
      return order > 0;
    default:
      return order >= 0;
  }
}

// The cells that satisfy a comparison with a number, as a range of the chunk's own 64-bit cells, or as
// everything outside of it. The range is empty when first is beyond last.
struct CellRange {
  Int128 first = std::numeric_limits<std::int64_t>::min();
  Int128 last = std::numeric_limits<std::int64_t>::max();
  bool outside = false;
};

CellRange RangeFor(Op op, Int128 units, int scale) {
  const Int128 step = PowerOfTen(Decimal::kDecimals - scale);
  const bool exact = units % step == 0;
  const Int128 floor = units / step - (!exact && units < 0 ? 1 : 0);
  CellRange range;
  if (op == Op::Equal || op == Op::NotEqual) {
    range.first = exact ? floor : 1;
    range.last = exact ? floor : 0;
    range.outside = op == Op::NotEqual;
  } else if (op == Op::Less || op == Op::LessEqual) {
    range.last = std::min(range.last, op == Op::Less && exact ? floor - 1 : floor);
  } else {
    range.first = std::max(range.first, op == Op::GreaterEqual && exact ? floor : floor + 1);
  }
  const CellRange all;
  if (range.first > all.last || range.last < all.first) range.first = 1, range.last = 0;
  return range;
}

// One comparison, made ready for its column.
class PreparedTest {
 public:
  PreparedTest(const FilterTest& test, const Column& column) : test_(test), column_(column) {
    if (test.op == Op::IsNull || test.op == Op::IsNotNull) return;
    const bool like = test.op == Op::Like || test.op == Op::NotLike;
    if (like) pattern_.emplace(test.value);
    if (column.Type() == ColumnType::Text) {
      PrepareTexts();
    } else if (!like) {
      number_ = Number(test);
    }
  }

  // Sets the words of one chunk.
  void Evaluate(std::size_t chunkIndex, std::uint64_t* words) {
    const ColumnChunk& chunk = column_.Chunks()[chunkIndex];
    const std::size_t count = (chunk.size + 63) / 64;
    if (test_.op == Op::IsNull || test_.op == Op::IsNotNull) {
      const std::uint64_t flip = test_.op == Op::IsNull ? 0 : ~std::uint64_t{0};
      for (std::size_t i = 0; i < count; ++i) words[i] = (chunk.nulls ? chunk.nulls[i] : 0) ^ flip;
      return;
    }
    if (column_.Type() == ColumnType::Text) {
      FillWords(words, chunk.size, [&](std::size_t i) { return passes_[chunk.TextId(i)]; });
    } else if (pattern_) {
      LikeNumbers(chunk, words);
    } else if (chunk.wide) {
      const Int128 units = number_.Units();
      FillWords(words, chunk.size,
                [&](std::size_t i) { return Holds(test_.op, Compare(chunk.wide[i], units)); });
    } else {
      CompareNarrow(chunk, words);
    }
    if (chunk.nulls == nullptr) return;
    for (std::size_t i = 0; i < count; ++i) words[i] &= ~chunk.nulls[i];
  }

 private:
  static int Compare(Int128 a, Int128 b) { return a < b ? -1 : a > b ? 1 : 0; }

  static Decimal Number(const FilterTest& test) {
    const auto number = Decimal::Parse(Trim(test.value));
    if (!number)
      ThrowFilterError("فیلد «" + test.field + "» عددی است و این عدد نیست", test.valuePlace, test.value);
    return *number;
  }

  void PrepareTexts() {
    const std::size_t count = column_.DistinctTexts();
    passes_.resize(count);
    for (std::size_t id = 0; id < count; ++id) {
      const std::string_view text = column_.TextOfId(static_cast<std::uint32_t>(id));
      passes_[id] = pattern_ ? pattern_->Matches(text) == (test_.op == Op::Like)
                             : Holds(test_.op, text.compare(test_.value));
    }
  }

  void LikeNumbers(const ColumnChunk& chunk, std::uint64_t* words) {
    FillWords(words, chunk.size, [&](std::size_t i) {
      return pattern_->Matches(Decimal::FromUnits(chunk.Units(i)).ToString()) == (test_.op == Op::Like);
    });
  }

  void CompareNarrow(const ColumnChunk& chunk, std::uint64_t* words) const {
    const CellRange range = RangeFor(test_.op, number_.Units(), chunk.scale);
    const bool outside = range.outside;
    if (range.first > range.last) {
      std::fill_n(words, (chunk.size + 63) / 64, outside ? ~std::uint64_t{0} : 0);
      return;
    }
    const std::int64_t* cells = chunk.narrow.get();
    const auto first = static_cast<std::uint64_t>(range.first);
    const auto span = static_cast<std::uint64_t>(range.last) - first;
    FillWords(words, chunk.size, [=](std::size_t i) {
      return (static_cast<std::uint64_t>(cells[i]) - first <= span) != outside;
    });
  }

  const FilterTest& test_;
  const Column& column_;
  Decimal number_;
  std::optional<LikePattern> pattern_;
  std::vector<std::uint8_t> passes_;  // 1 for each text id that satisfies the test
};

struct PreparedNode {
  FilterNode::Kind kind = FilterNode::Kind::All;
  std::vector<PreparedNode> children;
  std::optional<PreparedTest> test;
};

PreparedNode Prepare(const FilterNode& node, const ColumnOfField& columnOf) {
  PreparedNode prepared;
  prepared.kind = node.kind;
  if (node.kind == FilterNode::Kind::Test) {
    const Column* column = columnOf(node.test.field);
    if (column == nullptr) ThrowFilterError("چنین فیلدی وجود ندارد", node.test.fieldPlace, node.test.field);
    prepared.test.emplace(node.test, *column);
  }
  prepared.children.reserve(node.children.size());
  for (const FilterNode& child : node.children) prepared.children.push_back(Prepare(child, columnOf));
  return prepared;
}

void EvaluateChunk(PreparedNode& node, std::size_t chunk, std::uint64_t* words, std::size_t count) {
  switch (node.kind) {
    case FilterNode::Kind::All:
      std::fill_n(words, count, ~std::uint64_t{0});
      return;
    case FilterNode::Kind::Test:
      node.test->Evaluate(chunk, words);
      return;
    case FilterNode::Kind::Not:
      EvaluateChunk(node.children.front(), chunk, words, count);
      std::transform(words, words + count, words, [](std::uint64_t word) { return ~word; });
      return;
    default:
      break;
  }
  const bool both = node.kind == FilterNode::Kind::And;
  const std::uint64_t settled = both ? 0 : ~std::uint64_t{0};
  EvaluateChunk(node.children.front(), chunk, words, count);
  std::vector<std::uint64_t> other(count);
  for (std::size_t i = 1; i < node.children.size(); ++i) {
    if (std::all_of(words, words + count, [settled](std::uint64_t word) { return word == settled; })) return;
    EvaluateChunk(node.children[i], chunk, other.data(), count);
    for (std::size_t k = 0; k < count; ++k) words[k] = both ? words[k] & other[k] : words[k] | other[k];
  }
}

}  // namespace

std::vector<std::uint64_t> EvaluateFilter(const FilterNode& node, const ColumnOfField& columnOf,
                                          std::size_t rowCount) {
  PreparedNode prepared = Prepare(node, columnOf);
  std::vector<std::uint64_t> mask((rowCount + 63) / 64);
  constexpr std::size_t kChunkWords = kChunkCells / 64;
  for (std::size_t from = 0; from < mask.size(); from += kChunkWords) {
    EvaluateChunk(prepared, from / kChunkWords, mask.data() + from,
                  std::min(kChunkWords, mask.size() - from));
  }
  if (rowCount % 64 != 0) mask.back() &= (std::uint64_t{1} << (rowCount % 64)) - 1;
  return mask;
}

}  // namespace goods
