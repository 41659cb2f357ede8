#include "company/embedded/card_figures.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/core/text.h"
#include "host/data/column_chunk.h"

namespace goods {

namespace {

constexpr const char* kFiguresStatement =
    "SELECT ISNULL(SUM((Tedad + ABS(Tedad)) / 2), 0), ISNULL(SUM((Tedad - ABS(Tedad)) / 2), 0) FROM Kardex";

bool SameLiteral(const Literal& one, const Literal& other) {
  const auto* number = std::get_if<NumberValue>(&one);
  const auto* otherNumber = std::get_if<NumberValue>(&other);
  if (number != nullptr && otherNumber != nullptr) return number->text == otherNumber->text;
  const auto* text = std::get_if<std::string>(&one);
  const auto* otherText = std::get_if<std::string>(&other);
  if (text != nullptr && otherText != nullptr) return *text == *otherText;
  return one.index() == other.index();
}

bool SameExpression(const Expression& one, const Expression& other) {
  return one.kind == other.kind && one.negated == other.negated && SameText(one.text, other.text) &&
         SameText(one.qualifier, other.qualifier) && SameLiteral(one.literal, other.literal) &&
         one.rows == nullptr && other.rows == nullptr &&
         std::equal(one.children.begin(), one.children.end(), other.children.begin(), other.children.end(),
                    SameExpression);
}

bool AsksForSums(const SelectStatement& select) {
  static const QueryStatement kSums = std::get<QueryStatement>(ParseStatement(kFiguresStatement));
  const auto same = [](const SelectItem& one, const SelectItem& other) {
    return one.expression && other.expression && SameExpression(*one.expression, *other.expression);
  };
  const std::vector<SelectItem>& items = kSums.selects.front().items;
  return !select.top && select.tables.size() == 1 && SameText(select.tables.front().name, "Kardex") &&
         std::equal(select.items.begin(), select.items.end(), items.begin(), items.end(), same);
}

// Takes the parts of "a AND b AND c"; false where one of them is of another kind, or comes twice.
bool TakeCondition(const Expression& condition, std::optional<std::int64_t>& good,
                   std::optional<std::string>& before, std::optional<std::int64_t>& store) {
  if (condition.kind != ExpressionKind::Binary) return false;
  const Expression& left = condition.children[0];
  const Expression& right = condition.children[1];
  if (condition.text == "AND")
    return TakeCondition(left, good, before, store) && TakeCondition(right, good, before, store);
  if (left.kind != ExpressionKind::Column || right.kind != ExpressionKind::Constant) return false;
  if (condition.text == "<" && SameText(left.text, "Date") && !before) {
    if (const auto* text = std::get_if<std::string>(&right.literal)) before = *text;
    return before.has_value();
  }
  std::optional<std::int64_t>& code = SameText(left.text, "Kala") ? good : store;
  const auto* number = std::get_if<NumberValue>(&right.literal);
  const bool known = SameText(left.text, "Kala") || SameText(left.text, "Anbar");
  if (condition.text != "=" || !known || code || number == nullptr) return false;
  code = ParseInteger(number->text);
  return code.has_value();
}

}  // namespace

std::optional<FiguresQuestion> AskedFigures(const QueryStatement& query) {
  if (query.selects.size() != 1 || !query.order.empty()) return std::nullopt;
  const SelectStatement& select = query.selects.front();
  std::optional<std::int64_t> good;
  std::optional<std::string> before;
  std::optional<std::int64_t> store;
  if (!AsksForSums(select) || !select.where || !TakeCondition(*select.where, good, before, store))
    return std::nullopt;
  if (!good || !before) return std::nullopt;
  return FiguresQuestion{*good, *std::move(before), store};
}

void CardFigures::Forget() {
  good_.reset();
  days_ = {};
  sums_ = {};
}

// False when there are too many.
bool CardFigures::AddDay(std::string_view date) {
  if (sums_.size() > kMostSums) return false;
  if (days_.empty() || days_.back().date != date) days_.push_back({std::string(date), sums_.size()});
  return true;
}

void CardFigures::Keep(std::int64_t good, const RowStore& rows) {
  Forget();
  const auto date = rows.FindColumn("Date");
  const auto store = rows.FindColumn("Anbar");
  const auto incoming = rows.FindColumn("Tedad_Varde");
  const auto outgoing = rows.FindColumn("Tedad_Sadere");
  if (rows.Count() < kFewestRows || !date || !store || !incoming || !outgoing) return;
  const Column& dates = rows.ColumnAt(*date);
  std::optional<std::uint32_t> day;
  for (std::size_t chunk = 0; chunk < dates.Chunks().size(); ++chunk) {
    const ColumnChunk& dateCells = dates.Chunks()[chunk];
    const ColumnChunk& storeCells = rows.ColumnAt(*store).Chunks()[chunk];
    const ColumnChunk& inCells = rows.ColumnAt(*incoming).Chunks()[chunk];
    const ColumnChunk& outCells = rows.ColumnAt(*outgoing).Chunks()[chunk];
    for (std::size_t cell = 0; cell < dateCells.size; ++cell) {
      if (const std::uint32_t id = dateCells.TextId(cell); id != day) {
        if (!AddDay(dates.TextOfId(id))) return Forget();
        day = id;
      }
      const auto first = sums_.begin() + static_cast<std::ptrdiff_t>(days_.back().first);
      auto at = std::find_if(first, sums_.end(), [code = storeCells.narrow[cell]](const StoreSums& each) {
        return each.store == code;
      });
      if (at == sums_.end()) at = sums_.insert(at, {storeCells.narrow[cell], {}});
      at->sums.incoming += Decimal::FromUnits(inCells.Units(cell));
      at->sums.outgoing -= Decimal::FromUnits(outCells.Units(cell));
    }
  }
  good_ = good;
}

CardFigures::Sums CardFigures::Before(const FiguresQuestion& question) const {
  Sums sums;
  const auto end = std::lower_bound(days_.begin(), days_.end(), question.before,
                                    [](const Day& day, const std::string& date) { return day.date < date; });
  const std::size_t last = end == days_.end() ? sums_.size() : end->first;
  for (std::size_t i = 0; i < last; ++i) {
    if (question.store && sums_[i].store != *question.store) continue;
    sums.incoming += sums_[i].sums.incoming;
    sums.outgoing += sums_[i].sums.outgoing;
  }
  return sums;
}

}  // namespace goods
