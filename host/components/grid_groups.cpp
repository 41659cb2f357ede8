#include "host/components/grid_groups.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "host/components/grid.h"
#include "host/core/text.h"
#include "host/data/exact_sum.h"
#include "host/data/persian.h"

namespace goods {
namespace {

constexpr std::size_t kMonthText = 7;  // "yyyy/mm"
constexpr std::size_t kMostUnits = 20;
// Fields that name the unit of a row's quantities.
constexpr std::array<std::string_view, 2> kUnitFields{"UnitName1", "UnitName"};
constexpr std::array<std::string_view, 12> kMonthNames{
    "فروردین", "اردیبهشت", "خرداد", "تیر", "مرداد", "شهریور", "مهر", "آبان", "آذر", "دی", "بهمن", "اسفند"};

std::optional<std::size_t> UnitField(const TADOQuery& query) {
  for (const std::string_view name : kUnitFields) {
    if (const auto field = query.FindField(name)) return field;
  }
  return std::nullopt;
}

// Tells whether rows that come one behind the other belong together; what was worked out of the row before is
// kept.
class SameGroup {
 public:
  SameGroup(const TADOQuery& query, const TGridColumn& column, std::size_t field, bool byMonth)
      : query_(query), field_(field), byMonth_(byMonth) {
    if (column.IsNumber()) decimals_ = column.Format().Decimals();
    const RowStore& rows = *query.Rows();
    const bool stored = field < rows.Columns().size();
    if (stored && rows.Columns()[field].type == ColumnType::Text) texts_ = &rows.ColumnAt(field);
  }

  // True for a row like the one that was asked about before.
  bool Goes(std::size_t position) {
    const std::uint32_t row = query_.VisibleRows()[position];
    if (texts_ != nullptr) return GoesText(texts_->IsNull(row), row);
    Value value = query_.Cell(position, field_);
    if (value.IsNumber() && decimals_ >= 0) value = Value(value.AsDecimal().Rounded(decimals_));
    if (value.IsText()) return GoesKey(Key(value.AsText()));
    const bool same = first_ ? false : value == value_ && key_.empty();
    first_ = false;
    key_.clear();
    value_ = std::move(value);
    return same;
  }

 private:
  bool GoesText(bool null, std::uint32_t row) {
    const std::int64_t id = null ? -1 : static_cast<std::int64_t>(texts_->TextId(row));
    if (!first_ && id == id_) return true;
    id_ = id;
    return GoesKey(null ? std::string() : Key(texts_->Text(row)));
  }
  bool GoesKey(std::string key) {
    const bool same = !first_ && key == key_ && value_.IsNull();
    first_ = false;
    key_ = std::move(key);
    value_ = Value();
    return same;
  }
  std::string Key(std::string_view text) const {
    return byMonth_ ? std::string(FirstChars(text, kMonthText)) : PersianSortKey(text);
  }

  const TADOQuery& query_;
  std::size_t field_;
  bool byMonth_;
  int decimals_ = -1;
  const Column* texts_ = nullptr;
  bool first_ = true;
  std::int64_t id_ = -2;
  std::string key_;
  Value value_;
};

// "1403/05" as "مرداد 1403".
std::string MonthTitle(std::string_view month) {
  const auto number = month.size() == kMonthText ? ParseInteger(month.substr(5)) : std::nullopt;
  if (!number || *number < 1 || *number > 12) return std::string(month);
  return std::string(kMonthNames[static_cast<std::size_t>(*number - 1)]) + " " +
         std::string(month.substr(0, 4));
}

}  // namespace

void GridGroups::Set(const TGridColumn* column, bool byMonth) {
  const bool withheld = column != nullptr && column->Withheld();
  column_ = column == nullptr || withheld ? std::string() : column->Name();
  byMonth_ = byMonth && !column_.empty();
  foldedAll_ = true;
  exceptions_.clear();
  RowsChanged();
  // The order of the rows follows; who asked for it hears of it as of any other sort.
  grid_.SetSortKeys(grid_.SortKeys());
}

const TGridColumn* GridGroups::Asked() const {
  if (column_.empty()) return nullptr;
  for (const auto& column : grid_.Columns()) {
    if (SameText(column->Name(), column_)) return column->Withheld() ? nullptr : column.get();
  }
  return nullptr;
}

const TGridColumn* GridGroups::By() const {
  const TADOQuery* query = grid_.DataSet();
  const TGridColumn* column = query == nullptr || !query->Active() ? nullptr : Asked();
  return column != nullptr && query->FindField(column->FieldName()) ? column : nullptr;
}

std::string GridGroups::Caption() const {
  const TGridColumn* column = By();
  if (column == nullptr) return {};
  return "گروه‌بندی: " + ReplaceAll(Trim(PlainCaption(column->Caption())), "|", " / ") +
         (byMonth_ ? " (ماه)" : "");
}

void GridGroups::RowsChanged() {
  built_ = false;
  groups_.clear();
  lines_.clear();
  totals_.clear();
}

void GridGroups::Build() const {
  // Rows may be others before the grid is told, as while a statement runs.
  const TADOQuery* query = grid_.DataSet();
  const std::size_t rows = query == nullptr ? 0 : query->RecordCount();
  const std::size_t known = groups_.empty() ? 0 : groups_.back().first + groups_.back().count;
  if (built_ && known == rows) return;
  built_ = true;
  groups_.clear();
  totals_.clear();
  if (const TGridColumn* column = By()) {
    FindGroups(*column);
    FindUnits();
  }
  CountLines();
}

void GridGroups::FindGroups(const TGridColumn& column) const {
  const TADOQuery& query = *grid_.DataSet();
  SameGroup same(query, column, *query.FindField(column.FieldName()), byMonth_);
  const std::size_t rows = query.RecordCount();
  for (std::size_t row = 0; row < rows; ++row) {
    if (!same.Goes(row)) groups_.push_back({row, 0, foldedAll_});
    ++groups_.back().count;
  }
  if (exceptions_.empty()) return;
  for (std::size_t group = 0; group < groups_.size(); ++group)
    groups_[group].folded = foldedAll_ != exceptions_.contains(KeyText(groups_[group].first, column));
}

void GridGroups::FindUnits() const {
  const TADOQuery& query = *grid_.DataSet();
  const auto field = UnitField(query);
  if (!field || *field >= query.Rows()->Columns().size() ||
      query.Rows()->Columns()[*field].type != ColumnType::Text)
    return;
  const Column& texts = query.Rows()->ColumnAt(*field);
  std::vector<std::string> units;
  for (Group& group : groups_) {
    units.clear();
    std::int64_t last = -2;
    for (std::size_t row = group.first; row < group.first + group.count; ++row) {
      const std::uint32_t stored = query.VisibleRows()[row];
      const std::int64_t id = texts.IsNull(stored) ? -1 : static_cast<std::int64_t>(texts.TextId(stored));
      if (id == last) continue;
      last = id;
      std::string unit(id < 0 ? std::string_view() : Trim(texts.Text(stored)));
      if (std::find(units.begin(), units.end(), unit) == units.end() && units.size() < kMostUnits)
        units.push_back(std::move(unit));
    }
    if (units.size() > 1) group.units = units;
  }
}

void GridGroups::CountLines() const {
  lines_.clear();
  lines_.reserve(groups_.size() + 1);
  std::size_t line = 0;
  for (const Group& group : groups_) {
    lines_.push_back(line);
    line += 1 + group.units.size() + (group.folded ? 0 : group.count);
  }
  lines_.push_back(line);
}

std::size_t GridGroups::LineCount() const {
  Build();
  return lines_.back();
}

GridGroups::Line GridGroups::LineAt(std::size_t line) const {
  Build();
  const auto above = std::upper_bound(lines_.begin(), lines_.end(), line);
  const auto group = static_cast<std::size_t>(above - lines_.begin()) - 1;
  const std::size_t within = line - lines_[group];
  const std::size_t units = groups_[group].units.size();
  if (within == 0) return {group, std::nullopt, std::nullopt};
  if (within <= units) return {group, std::nullopt, within - 1};
  return {group, groups_[group].first + within - 1 - units, std::nullopt};
}

std::size_t GridGroups::LineOf(std::size_t row) const {
  const std::size_t group = GroupOf(row);
  if (group >= groups_.size() || groups_[group].folded) return lines_[std::min(group, groups_.size())];
  return lines_[group] + 1 + groups_[group].units.size() + (row - groups_[group].first);
}

std::size_t GridGroups::GroupCount() const {
  Build();
  return groups_.size();
}

std::size_t GridGroups::GroupOf(std::size_t row) const {
  Build();
  const auto above =
      std::upper_bound(groups_.begin(), groups_.end(), row,
                       [](std::size_t each, const Group& group) { return each < group.first; });
  return above == groups_.begin() ? 0 : static_cast<std::size_t>(above - groups_.begin()) - 1;
}

std::size_t GridGroups::FirstRow(std::size_t group) const {
  Build();
  return groups_.at(group).first;
}

std::size_t GridGroups::RowCount(std::size_t group) const {
  Build();
  return groups_.at(group).count;
}

bool GridGroups::Folded(std::size_t group) const {
  Build();
  return groups_.at(group).folded;
}

void GridGroups::Fold(std::size_t group, bool folded) {
  Build();
  if (group >= groups_.size() || groups_[group].folded == folded) return;
  groups_[group].folded = folded;
  const std::string key = KeyText(groups_[group].first, *By());
  if (folded == foldedAll_) {
    exceptions_.erase(key);
  } else {
    exceptions_.insert(key);
  }
  CountLines();
  grid_.Changed();
}

void GridGroups::FoldAll(bool folded) {
  Build();
  foldedAll_ = folded;
  exceptions_.clear();
  for (Group& group : groups_) group.folded = folded;
  CountLines();
  grid_.Changed();
}

void GridGroups::Reveal(std::size_t row) {
  if (!Active() || row >= grid_.RowCount()) return;
  Fold(GroupOf(row), false);
}

std::string GridGroups::KeyText(std::size_t row, const TGridColumn& column) const {
  const TADOQuery& query = *grid_.DataSet();
  const auto field = query.FindField(column.FieldName());
  if (!byMonth_) return column.Format().Format(query.Cell(row, *field));
  const std::string date = query.Cell(row, *field).AsText();
  return std::string(FirstChars(date, kMonthText));
}

std::string GridGroups::Title(std::size_t group) const {
  Build();
  const TGridColumn* column = By();
  if (column == nullptr || group >= groups_.size()) return {};
  const std::string text = KeyText(groups_[group].first, *column);
  if (text.empty()) return "(خالی)";
  return byMonth_ ? MonthTitle(text) : text;
}

const std::vector<std::string>& GridGroups::Units(std::size_t group) const {
  Build();
  return groups_.at(group).units;
}

std::string GridGroups::HeadText(const Line& line) const {
  if (line.row) return {};
  if (!line.unit) return Title(line.group) + " (" + std::to_string(RowCount(line.group)) + ")";
  const std::string& unit = Units(line.group).at(*line.unit);
  return "واحد: " + (unit.empty() ? std::string("(خالی)") : unit);
}

std::vector<std::uint32_t> GridGroups::RowsOfUnit(const Group& group, const std::string& unit) const {
  const TADOQuery& query = *grid_.DataSet();
  const Column& texts = query.Rows()->ColumnAt(*UnitField(query));
  std::vector<std::uint32_t> rows;
  for (std::size_t row = group.first; row < group.first + group.count; ++row) {
    const std::uint32_t stored = query.VisibleRows()[row];
    if (Trim(texts.Text(stored)) == unit) rows.push_back(stored);
  }
  return rows;
}

Value GridGroups::Total(const Line& line, const TGridColumn& column) const {
  Build();
  const bool sums = column.Footer() == FooterKind::Sum && !column.Withheld();
  if (line.row || line.group >= groups_.size() || !sums || (line.unit && column.Money())) return {};
  const std::string known = std::to_string(line.group) + (line.unit ? "u" + std::to_string(*line.unit) : "") +
                            "/" + column.FieldName();
  if (const auto found = totals_.find(known); found != totals_.end()) return found->second;
  const TADOQuery& query = *grid_.DataSet();
  const Group& group = groups_[line.group];
  std::vector<std::uint32_t> ofUnit;
  if (line.unit) ofUnit = RowsOfUnit(group, group.units.at(*line.unit));
  const auto visible = query.VisibleRows().subspan(group.first, group.count);
  const std::span<const std::uint32_t> rows = line.unit ? std::span<const std::uint32_t>(ofUnit) : visible;
  Value total;
  const auto field = query.FindField(column.FieldName());
  if (field && *field < query.Rows()->Columns().size()) {
    total = Value(query.Rows()->ColumnAt(*field).Sum(rows.data(), rows.size()));
  } else if (field) {
    ExactSum sum;
    for (const std::uint32_t row : rows) sum.Add(query.StoredCell(row, *field).AsDecimal().Units());
    total = Value(sum.Total());
  }
  totals_.emplace(known, total);
  return total;
}

std::string GridGroups::TotalText(const Line& line, const TGridColumn& column) const {
  const Value total = Total(line, column);
  return total.IsNull() ? std::string() : column.FooterFormat().Format(total);
}

}  // namespace goods
