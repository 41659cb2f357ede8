#include "host/components/row_units.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include "host/components/form.h"
#include "host/components/grid.h"
#include "host/core/text.h"
#include "host/data/exact_sum.h"
#include "host/services/good_units.h"
#include "host/services/host.h"

namespace goods {
namespace {

constexpr std::array<std::string_view, 2> kFirstUnitFields{"UnitName1", "UnitName"};
constexpr std::string_view kSecondUnitField = "UnitName2";
constexpr std::array<std::string_view, 2> kGoodCodeFields{"KalaCode", "GoodCode"};

// Numbers names in the order in which they come.
class UnitNumbers {
 public:
  explicit UnitNumbers(std::vector<std::string>& names) : names_(names) {}
  std::uint32_t Of(std::string_view name) {
    const auto [place, added] =
        numbers_.try_emplace(std::string(Trim(name)), static_cast<std::uint32_t>(names_.size()));
    if (added) names_.push_back(place->first);
    return place->second;
  }

 private:
  std::vector<std::string>& names_;
  std::unordered_map<std::string, std::uint32_t> numbers_;
};

std::optional<std::size_t> UnitFieldOf(const TADOQuery& query, bool second) {
  if (second) return query.FindField(kSecondUnitField);
  for (const std::string_view name : kFirstUnitFields) {
    if (const auto field = query.FindField(name)) return field;
  }
  return std::nullopt;
}

Value SumOf(const TADOQuery& query, std::size_t field, const std::vector<std::uint32_t>& rows) {
  try {
    if (field < query.Rows()->Columns().size())
      return Value(query.Rows()->ColumnAt(field).Sum(rows.data(), rows.size()));
    ExactSum sum;
    for (const std::uint32_t row : rows) sum.Add(query.StoredCell(row, field).AsDecimal().Units());
    return Value(sum.Total());
  } catch (const std::overflow_error&) {
    return {};
  }
}

}  // namespace

bool InSecondUnit(const TGridColumn& column) {
  return column.Name().ends_with('2') || column.Name().find("2_") != std::string::npos;
}

void RowUnits::RowsChanged() {
  for (std::optional<Known>& known : known_) known.reset();
}

const RowUnits::Known* RowUnits::Of(bool second) const {
  std::optional<Known>& known = known_[second ? 1 : 0];
  const TADOQuery* query = grid_.DataSet();
  // Rows may be others before the grid is told, as while a statement runs.
  if (known && (query == nullptr || known->ofRows.size() != query->TotalCount())) known.reset();
  if (!known) known = Read(second);
  return known->names.empty() ? nullptr : &*known;
}

RowUnits::Known RowUnits::Read(bool second) const {
  const TADOQuery* query = grid_.DataSet();
  if (query == nullptr || !query->Active()) return {};
  Known known;
  if (const auto field = UnitFieldOf(*query, second)) {
    known = ReadNames(*query, *field);
  } else if (!UnitFieldOf(*query, false)) {
    for (const std::string_view name : kGoodCodeFields) {
      const auto code = query->FindField(name);
      if (code && *code < query->Rows()->Columns().size()) {
        known = ReadGoods(*query, *code, second);
        break;
      }
    }
  }
  known.ofRows.resize(query->TotalCount());
  return known;
}

RowUnits::Known RowUnits::ReadNames(const TADOQuery& query, std::size_t field) const {
  Known known;
  UnitNumbers numbers(known.names);
  const std::size_t count = query.TotalCount();
  known.ofRows.reserve(count);
  const bool stored = field < query.Rows()->Columns().size();
  if (!stored || query.Rows()->Columns()[field].type != ColumnType::Text) {
    for (std::size_t row = 0; row < count; ++row)
      known.ofRows.push_back(numbers.Of(query.StoredCell(row, field).AsText()));
    return known;
  }
  const Column& texts = query.Rows()->ColumnAt(field);
  std::unordered_map<std::uint32_t, std::uint32_t> ofTexts;
  for (std::size_t row = 0; row < count; ++row) {
    if (texts.IsNull(row)) {
      known.ofRows.push_back(numbers.Of({}));
      continue;
    }
    const auto [place, added] = ofTexts.try_emplace(texts.TextId(row), 0U);
    if (added) place->second = numbers.Of(texts.Text(row));
    known.ofRows.push_back(place->second);
  }
  return known;
}

RowUnits::Known RowUnits::ReadGoods(const TADOQuery& query, std::size_t field, bool second) const {
  const TForm* form = grid_.Form();
  if (form == nullptr) return {};
  auto* host = dynamic_cast<IGoodUnits*>(&form->Host().Lookups());
  if (host == nullptr) return {};
  std::shared_ptr<const TUnitsOfGoods> units;
  try {
    units = host->UnitsOfGoods();
  } catch (const DatabaseError&) {
    return {};  // a sum stays what it is
  }
  if (units == nullptr) return {};
  Known known;
  UnitNumbers numbers(known.names);
  const std::size_t count = query.TotalCount();
  known.ofRows.reserve(count);
  for (std::size_t row = 0; row < count; ++row) {
    const Value code = query.StoredCell(row, field);
    const auto number = code.IsText() ? ParseInteger(code.AsText()).value_or(-1) : code.AsInteger();
    const auto found = units->find(number);
    known.ofRows.push_back(numbers.Of(found == units->end() ? std::string_view()
                                      : second              ? std::string_view(found->second.Unit2)
                                                            : std::string_view(found->second.Unit)));
  }
  return known;
}

std::vector<UnitSum> RowUnits::Sums(const TGridColumn& column) const {
  const TADOQuery* query = grid_.DataSet();
  if (column.Footer() != FooterKind::Sum || column.DisplayFormatText() != kQuantityFormat ||
      query == nullptr || column.Withheld()) {
    return {};
  }
  const auto field = query->FindField(column.FieldName());
  const Known* known = field ? Of(InSecondUnit(column)) : nullptr;
  if (known == nullptr || known->names.size() < 2) return {};
  std::vector<std::vector<std::uint32_t>> rows(known->names.size());
  std::vector<std::uint32_t> order;
  for (const std::uint32_t row : query->VisibleRows()) {
    const std::uint32_t unit = known->ofRows[row];
    if (rows[unit].empty()) order.push_back(unit);
    rows[unit].push_back(row);
  }
  std::vector<UnitSum> sums;
  if (order.size() < 2) return sums;
  for (const std::uint32_t unit : order) {
    Value sum = SumOf(*query, *field, rows[unit]);
    if (!sum.IsNull() && sum.AsDecimal() == Decimal()) continue;
    std::string text = sum.IsNull() ? kUnitTooLarge : column.FooterFormat().Format(sum);
    const std::string& name = known->names[unit];
    sums.push_back({name.empty() ? kNoUnit : name, std::move(sum), std::move(text)});
  }
  if (sums.size() < 2) sums.clear();
  return sums;
}

}  // namespace goods
