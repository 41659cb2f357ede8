#include "host/data/row_condition.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_set>

#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {
namespace {

bool IsEmptyValue(const Value& value) { return value.IsNull() || (value.IsText() && value.AsText().empty()); }

// What is asked, made ready once.
class PreparedCondition {
 public:
  explicit PreparedCondition(const RowCondition& condition) : condition_(condition) {
    for (const Value& value : condition.values) {
      empty_ = empty_ || IsEmptyValue(value);
      if (IsEmptyValue(value)) continue;
      texts_.insert(value.AsText());
      if (const auto number = NumberOf(value)) numbers_.push_back(Rounded(*number));
    }
    std::sort(numbers_.begin(), numbers_.end());
    if (condition.values.empty()) return;
    const std::string first = condition.values.front().AsText();
    needle_ = FoldPersian(first);
    sortKey_ = PersianSortKey(first);
  }

  bool Empty() const {
    switch (condition_.kind) {
      case ConditionKind::Equal:
      case ConditionKind::OneOf:
        return empty_;
      case ConditionKind::NotEqual:
        return !empty_;
      default:
        return false;
    }
  }

  bool Text(std::string_view text) {
    if (text.empty()) return Empty();
    switch (condition_.kind) {
      case ConditionKind::Contains:
        FoldPersianInto(text, buffer_);
        return buffer_.find(needle_) != std::string::npos;
      case ConditionKind::From:
      case ConditionKind::To:
        buffer_.clear();
        AppendPersianSortKey(text, buffer_);
        return condition_.kind == ConditionKind::From ? buffer_ >= sortKey_ : buffer_ <= sortKey_;
      default:
        buffer_.assign(text);
        return texts_.contains(buffer_) == (condition_.kind != ConditionKind::NotEqual);
    }
  }

  bool Number(Decimal number) {
    if (condition_.kind == ConditionKind::Contains) return Text(number.ToString());
    number = Rounded(number);
    switch (condition_.kind) {
      case ConditionKind::From:
        return !numbers_.empty() && number >= numbers_.front();
      case ConditionKind::To:
        return !numbers_.empty() && number <= numbers_.front();
      default:
        return std::binary_search(numbers_.begin(), numbers_.end(), number) ==
               (condition_.kind != ConditionKind::NotEqual);
    }
  }

 private:
  static std::optional<Decimal> NumberOf(const Value& value) {
    return value.IsNumber() ? value.AsDecimal() : Decimal::Parse(Trim(value.AsText()));
  }

  Decimal Rounded(Decimal number) const {
    return condition_.decimals < 0 ? number : number.Rounded(condition_.decimals);
  }

  const RowCondition& condition_;
  bool empty_ = false;
  std::unordered_set<std::string> texts_;
  std::vector<Decimal> numbers_;
  std::string needle_;
  std::string sortKey_;
  std::string buffer_;
};

}  // namespace

std::vector<std::uint64_t> EvaluateCondition(const RowCondition& condition, const Column& column,
                                             std::size_t rowCount) {
  std::vector<std::uint64_t> mask((rowCount + 63) / 64);
  PreparedCondition prepared(condition);
  const auto set = [&mask](std::size_t row, bool on) { mask[row / 64] |= std::uint64_t{on} << (row % 64); };
  if (column.Type() != ColumnType::Text) {
    for (std::size_t row = 0; row < rowCount; ++row)
      set(row, column.IsNull(row) ? prepared.Empty() : prepared.Number(column.Number(row)));
    return mask;
  }
  std::vector<std::uint8_t> passes(column.DistinctTexts());
  for (std::size_t id = 0; id < passes.size(); ++id)
    passes[id] = prepared.Text(column.TextOfId(static_cast<std::uint32_t>(id))) ? 1 : 0;
  for (std::size_t row = 0; row < rowCount; ++row)
    set(row, column.IsNull(row) ? prepared.Empty() : passes[column.TextId(row)] != 0);
  return mask;
}

}  // namespace goods
