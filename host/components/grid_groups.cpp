#include "host/components/grid_groups.h"

#include <algorithm>
#include <array>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "host/components/grid.h"
#include "host/components/row_units.h"
#include "host/core/text.h"
#include "host/data/exact_sum.h"
#include "host/data/persian.h"

namespace goods {
namespace {

constexpr std::size_t kMonthText = 7;  // "yyyy/mm"
constexpr std::array<std::string_view, 12> kMonthNames{
    "فروردین", "اردیبهشت", "خرداد", "تیر", "مرداد", "شهریور", "مهر", "آبان", "آذر", "دی", "بهمن", "اسفند"};

// Tells whether rows that come one behind the other belong together; what was worked out of the row before is
// kept.
class SameGroup {
 public:
  SameGroup(const TADOQuery& query, const TGridColumn& column, std::size_t field, bool byMonth)
      : query_(query), field_(field), byMonth_(byMonth) {
    if (column.IsNumber()) decimals_ = column.Format().Decimals();
    const RowStore& rows = *query.Rows();
    isText_ = query.Fields()[field].type == ColumnType::Text;
    if (isText_ && field < rows.Columns().size()) texts_ = &rows.ColumnAt(field);
  }

  // True for a row like the one that was asked about before.
  bool Goes(std::size_t position) {
    const std::uint32_t row = query_.VisibleRows()[position];
    if (texts_ != nullptr) return GoesText(texts_->IsNull(row), row);
    Value value = query_.Cell(position, field_);
    if (value.IsNumber() && decimals_ >= 0) value = Value(value.AsDecimal().Rounded(decimals_));
    if (isText_) return GoesKey(Key(value.AsText()));
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
    return GoesKey(Key(null ? std::string_view() : texts_->Text(row)));
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
  bool isText_ = false;
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

// Null beyond the range of numbers.
Value SumOver(const TADOQuery& query, const TGridColumn& column, std::span<const std::uint32_t> rows) {
  const auto field = query.FindField(column.FieldName());
  if (!field) return {};
  try {
    if (*field < query.Rows()->Columns().size())
      return Value(query.Rows()->ColumnAt(*field).Sum(rows.data(), rows.size()));
    ExactSum sum;
    for (const std::uint32_t row : rows) sum.Add(query.StoredCell(row, *field).AsDecimal().Units());
    return Value(sum.Total());
  } catch (const std::overflow_error&) {
    return {};
  }
}

// Stands between the parts of a path; no text of a company holds it.
constexpr char kPathMark = '\x1f';

}  // namespace

// The order of the rows follows; who asked for it hears of it as of any other sort.
void GridGroups::Ask(std::vector<Level> levels, std::size_t openLevels) {
  levels_ = std::move(levels);
  openLevels_ = std::min(openLevels, levels_.size());
  exceptions_.clear();
  Forget();
  grid_.SetSortKeys(grid_.SortKeys());
}

void GridGroups::Set(const TGridColumn* column, bool byMonth) {
  const bool withheld = column != nullptr && column->Withheld();
  if (column == nullptr || withheld) return Ask({}, 0);
  Ask({{column->Name(), byMonth}}, 0);
}

bool GridGroups::Add(const TGridColumn& column, bool byMonth) {
  if (column.Withheld()) return false;
  std::vector<Level> levels = levels_;
  const auto known = std::find_if(levels.begin(), levels.end(),
                                  [&](const Level& level) { return SameText(level.column, column.Name()); });
  if (known != levels.end()) {
    known->byMonth = byMonth;
    Ask(std::move(levels), openLevels_);
    return true;
  }
  if (levels.size() >= kMostLevels) return false;
  levels.push_back({column.Name(), byMonth});
  const std::size_t open = levels.size() - 1;
  Ask(std::move(levels), open);
  return true;
}

void GridGroups::Remove(const TGridColumn& column) {
  std::vector<Level> levels = levels_;
  std::erase_if(levels, [&](const Level& level) { return SameText(level.column, column.Name()); });
  if (levels.size() == levels_.size()) return;
  const std::size_t open = levels.empty() ? 0 : std::min(openLevels_, levels.size() - 1);
  Ask(std::move(levels), open);
}

void GridGroups::SetLevels(const std::vector<Level>& levels) {
  std::vector<Level> taken;
  for (const Level& level : levels) {
    const bool again = std::any_of(taken.begin(), taken.end(),
                                   [&](const Level& each) { return SameText(each.column, level.column); });
    if (!level.column.empty() && !again && taken.size() < kMostLevels) taken.push_back(level);
  }
  Ask(std::move(taken), 0);
}

const GridGroups::Level* GridGroups::LevelOf(const TGridColumn& column) const {
  const auto level = std::find_if(levels_.begin(), levels_.end(),
                                  [&](const Level& each) { return SameText(each.column, column.Name()); });
  return level == levels_.end() ? nullptr : &*level;
}

std::vector<GridGroups::GroupedBy> GridGroups::Asked() const {
  std::vector<GroupedBy> asked;
  for (const Level& level : levels_) {
    for (const auto& column : grid_.Columns()) {
      if (!SameText(column->Name(), level.column)) continue;
      if (!column->Withheld()) asked.push_back({column.get(), level.byMonth});
      break;
    }
  }
  return asked;
}

std::vector<GridGroups::GroupedBy> GridGroups::Columns() const {
  const TADOQuery* query = grid_.DataSet();
  if (levels_.empty() || query == nullptr || !query->Active()) return {};
  std::vector<GroupedBy> columns = Asked();
  std::erase_if(columns, [query](const GroupedBy& by) { return !query->FindField(by.column->FieldName()); });
  return columns;
}

const TGridColumn* GridGroups::By() const {
  const std::vector<GroupedBy> columns = Columns();
  return columns.empty() ? nullptr : columns.front().column;
}

std::string GridGroups::CaptionOf(const GroupedBy& by) {
  return ReplaceAll(Trim(PlainCaption(by.column->Caption())), "|", " / ") + (by.byMonth ? " (ماه)" : "");
}

std::string GridGroups::Caption() const {
  std::string caption;
  for (const GroupedBy& by : Columns())
    caption += (caption.empty() ? "گروه‌بندی: " : "، سپس ") + CaptionOf(by);
  return caption;
}

void GridGroups::RowsChanged() {
  rowUnits_.RowsChanged();
  Forget();
}

void GridGroups::Forget() {
  built_ = false;
  by_.clear();
  groups_.clear();
  shown_ = {};
  all_.reset();
  totals_.clear();
  parted_.reset();
}

void GridGroups::Build() const {
  // Rows may be others before the grid is told, as while a statement runs.
  const TADOQuery* query = grid_.DataSet();
  const std::size_t rows = query == nullptr ? 0 : query->RecordCount();
  if (built_ && rows_ == rows) return;
  built_ = true;
  rows_ = rows;
  groups_.clear();
  totals_.clear();
  parted_.reset();
  by_ = Columns();
  if (!by_.empty()) {
    FindGroups();
    FindUnits();
  }
  CountLines();
}

// A row begins a group on the outermost level where it differs from the row before, and on all within.
void GridGroups::FindGroups() const {
  const TADOQuery& query = *grid_.DataSet();
  std::vector<SameGroup> same;
  for (const GroupedBy& by : by_)
    same.emplace_back(query, *by.column, *query.FindField(by.column->FieldName()), by.byMonth);
  std::vector<std::size_t> open(by_.size());  // the group of each level that the last row stood in
  for (std::size_t row = 0; row < rows_; ++row) {
    std::size_t differs = by_.size();
    for (std::size_t level = by_.size(); level-- > 0;)
      if (!same[level].Goes(row)) differs = level;
    for (std::size_t level = differs; level < by_.size(); ++level) {
      if (level > 0) {
        groups_.push_back({level, row, 0, open[level - 1]});
      } else {
        groups_.push_back({level, row, 0});
      }
      open[level] = groups_.size() - 1;
    }
    for (const std::size_t group : open) ++groups_[group].count;
  }
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    Group& each = groups_[group];
    each.folded = each.level >= openLevels_;
    if (!exceptions_.empty() && exceptions_.contains(PathOf(group))) each.folded = !each.folded;
  }
}

void GridGroups::FindUnits() const {
  const RowUnits::Known* known = rowUnits_.Of(false);
  if (known == nullptr || known->names.size() < 2) return;
  const auto visible = grid_.DataSet()->VisibleRows();
  std::vector<std::size_t> seenIn(known->names.size(), groups_.size());  // the last group with that unit
  for (std::size_t place = 0; place < groups_.size(); ++place) {
    Group& group = groups_[place];
    std::vector<std::uint32_t> units;
    for (const std::uint32_t row : visible.subspan(group.first, group.count)) {
      const std::uint32_t unit = known->ofRows[row];
      if (std::exchange(seenIn[unit], place) != place) units.push_back(unit);
    }
    if (units.size() > 1) group.units = std::move(units);
  }
}

GridGroups::LineMap GridGroups::MapOf(Lines lines) const {
  LineMap map;
  std::size_t line = 0;
  std::optional<std::size_t> within;  // the level of the folded group that is walked through
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    const Group& each = groups_[group];
    if (within && each.level > *within) continue;
    within.reset();
    const bool folded = lines == Lines::Shown && each.folded;
    if (folded) within = each.level;
    map.groups.push_back(group);
    map.heads.push_back(line);
    line += 1 + each.units.size() + (!folded && each.level + 1 == by_.size() ? each.count : 0);
  }
  map.heads.push_back(line);
  return map;
}

void GridGroups::CountLines() const {
  shown_ = MapOf(Lines::Shown);
  all_.reset();
}

const GridGroups::LineMap& GridGroups::Map(Lines lines) const {
  Build();
  if (lines == Lines::Shown) return shown_;
  if (!all_) all_ = MapOf(Lines::All);
  return *all_;
}

std::size_t GridGroups::LineCount(Lines lines) const { return Map(lines).heads.back(); }

GridGroups::Line GridGroups::LineAt(std::size_t line, Lines lines) const {
  const LineMap& map = Map(lines);
  const auto above = std::upper_bound(map.heads.begin(), map.heads.end(), line);
  const auto place = static_cast<std::size_t>(above - map.heads.begin()) - 1;
  const std::size_t group = map.groups[place];
  const std::size_t within = line - map.heads[place];
  const std::size_t units = groups_[group].units.size();
  if (within == 0) return {group, std::nullopt, std::nullopt};
  if (within <= units) return {group, std::nullopt, within - 1};
  return {group, groups_[group].first + within - 1 - units, std::nullopt};
}

std::optional<std::size_t> GridGroups::HeadLine(std::size_t group) const {
  Build();
  const auto place = std::lower_bound(shown_.groups.begin(), shown_.groups.end(), group);
  if (place == shown_.groups.end() || *place != group) return std::nullopt;
  return shown_.heads[static_cast<std::size_t>(place - shown_.groups.begin())];
}

std::size_t GridGroups::LineOf(std::size_t row) const {
  if (GroupCount() == 0 || row >= rows_) return shown_.heads.back();
  const std::size_t group = ShownGroupOf(row);
  const std::size_t head = *HeadLine(group);
  if (groups_[group].folded) return head;
  return head + 1 + groups_[group].units.size() + (row - groups_[group].first);
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

std::size_t GridGroups::ShownGroupOf(std::size_t row) const {
  const std::size_t innermost = GroupOf(row);
  std::size_t shown = innermost;
  for (std::optional<std::size_t> group = innermost; group && *group < groups_.size();
       group = groups_[*group].around)
    if (groups_[*group].folded) shown = *group;
  return shown;
}

bool GridGroups::InView(std::size_t row) const {
  return GroupCount() == 0 || row >= rows_ || !groups_[ShownGroupOf(row)].folded;
}

std::size_t GridGroups::LevelOf(std::size_t group) const {
  Build();
  return groups_.at(group).level;
}

std::optional<std::size_t> GridGroups::Around(std::size_t group) const {
  Build();
  return groups_.at(group).around;
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

bool GridGroups::FoldedAway(std::size_t group) const {
  Build();
  for (auto around = groups_.at(group).around; around; around = groups_[*around].around)
    if (groups_[*around].folded) return true;
  return false;
}

void GridGroups::Fold(std::size_t group, bool folded) {
  Build();
  if (group >= groups_.size() || groups_[group].folded == folded) return;
  groups_[group].folded = folded;
  const std::string path = PathOf(group);
  if (folded == (groups_[group].level >= openLevels_)) {
    exceptions_.erase(path);
  } else {
    exceptions_.insert(path);
  }
  CountLines();
  grid_.Changed();
}

void GridGroups::FoldAll(bool folded) { OpenLevels(folded ? 0 : levels_.size()); }

void GridGroups::OpenLevels(std::size_t levels) {
  Build();
  openLevels_ = std::min(levels, levels_.size());
  exceptions_.clear();
  for (Group& group : groups_) group.folded = group.level >= openLevels_;
  CountLines();
  grid_.Changed();
}

void GridGroups::Reveal(std::size_t row) {
  if (!Active() || row >= grid_.RowCount()) return;
  while (!InView(row)) Fold(ShownGroupOf(row), false);
}

std::string GridGroups::KeyText(std::size_t row, const GroupedBy& by) const {
  const TADOQuery& query = *grid_.DataSet();
  const auto field = query.FindField(by.column->FieldName());
  if (!by.byMonth) return by.column->Format().Format(query.Cell(row, *field));
  const std::string date = query.Cell(row, *field).AsText();
  return std::string(FirstChars(date, kMonthText));
}

std::string GridGroups::PathOf(std::size_t group) const {
  std::string path;
  for (std::size_t level = 0; level <= groups_[group].level; ++level)
    path += (level == 0 ? "" : std::string(1, kPathMark)) + KeyText(groups_[group].first, by_[level]);
  return path;
}

std::string GridGroups::Title(std::size_t group) const {
  Build();
  if (group >= groups_.size()) return {};
  const GroupedBy& by = by_[groups_[group].level];
  const std::string text = KeyText(groups_[group].first, by);
  if (text.empty()) return "(خالی)";
  return by.byMonth ? MonthTitle(text) : text;
}

std::vector<std::string> GridGroups::Units(std::size_t group) const {
  Build();
  std::vector<std::string> names;
  for (const std::uint32_t unit : groups_.at(group).units) names.push_back(rowUnits_.Of(false)->names[unit]);
  return names;
}

std::string GridGroups::HeadText(const Line& line) const {
  if (line.row) return {};
  if (!line.unit) return Title(line.group) + " (" + std::to_string(RowCount(line.group)) + ")";
  const std::string& unit = rowUnits_.Of(false)->names[groups_.at(line.group).units.at(*line.unit)];
  return "واحد: " + (unit.empty() ? std::string("(خالی)") : unit);
}

const std::vector<std::uint32_t>& GridGroups::RowsOf(const Line& line) const {
  const Group& group = groups_[line.group];
  if (parted_ != line.group) {
    const RowUnits::Known& known = *rowUnits_.Of(false);
    std::vector<std::size_t> part(known.names.size());
    for (std::size_t unit = 0; unit < group.units.size(); ++unit) part[group.units[unit]] = unit;
    parts_.assign(group.units.size(), {});
    for (const std::uint32_t row : grid_.DataSet()->VisibleRows().subspan(group.first, group.count))
      parts_[part[known.ofRows[row]]].push_back(row);
    parted_ = line.group;
  }
  return parts_.at(*line.unit);
}

Value GridGroups::Total(const Line& line, const TGridColumn& column) const {
  Build();
  const bool sums = column.Footer() == FooterKind::Sum && !column.Withheld();
  if (line.row || line.group >= groups_.size() || !sums) return {};
  if (line.unit && (column.Money() || InSecondUnit(column))) return {};
  const std::string known = std::to_string(line.group) + (line.unit ? "u" + std::to_string(*line.unit) : "") +
                            "/" + column.FieldName();
  if (const auto found = totals_.find(known); found != totals_.end()) return found->second;
  const TADOQuery& query = *grid_.DataSet();
  const Group& group = groups_[line.group];
  const std::span<const std::uint32_t> rows =
      line.unit ? std::span(RowsOf(line)) : query.VisibleRows().subspan(group.first, group.count);
  Value total = SumOver(query, column, rows);
  totals_.emplace(known, total);
  return total;
}

std::string GridGroups::TotalText(const Line& line, const TGridColumn& column) const {
  const Value total = Total(line, column);
  return total.IsNull() ? std::string() : column.FooterFormat().Format(total);
}

}  // namespace goods
