#include "host/components/grid.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "host/components/form.h"
#include "host/components/grid_groups.h"
#include "host/core/text.h"

namespace goods {

namespace {

// A field as a sort text names it: one with other characters than those of a word stands in brackets.
std::string SortField(const std::string& name) {
  const auto odd = [](char c) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    return !letter && c != '_' && static_cast<unsigned char>(c) < 0x80;
  };
  const bool digitFirst = !name.empty() && name.front() >= '0' && name.front() <= '9';
  if (!digitFirst && std::none_of(name.begin(), name.end(), odd)) return name;
  return "[" + ReplaceAll(name, "]", "]]") + "]";
}

// Long enough for every text: an empty one then stands with the empty cells, as in a group.
constexpr int kWholeText = 100'000;
constexpr int kMonthChars = 7;  // "yyyy/mm"

bool HasField(const TADOQuery* query, const std::string& field) {
  return query == nullptr || !query->Active() || query->FindField(field);
}

// How exactly a column is compared where further groups stand within its groups, and so that empty cells and
// empty texts stand together; empty for in full.
std::string DetailOf(const TADOQuery* query, const GridGroups::GroupedBy& by, bool innermost,
                     bool descending) {
  const auto field = query == nullptr ? std::nullopt : query->FindField(by.column->FieldName());
  const bool text = field && query->Fields()[*field].type == ColumnType::Text;
  if (innermost) return text && descending ? " TO " + std::to_string(kWholeText) : std::string();
  if (by.byMonth) return " TO " + std::to_string(kMonthChars);
  if (text) return " TO " + std::to_string(kWholeText);
  const int decimals = field && by.column->IsNumber() ? by.column->Format().Decimals() : -1;
  return decimals < 0 ? std::string() : " TO " + std::to_string(decimals);
}

// The keys that keep groups together: which way round says the user's own key of a column, if there is one.
// What an outer group's rows differ in beyond their group counts behind the inner groups.
std::string GroupSort(const TSmartDBGrid_QRT& grid) {
  const TADOQuery* query = grid.DataSet();
  std::vector<GridGroups::GroupedBy> columns = grid.Groups().Asked();
  std::erase_if(columns, [&](const auto& by) { return !HasField(query, by.column->FieldName()); });
  std::string text;
  std::string behind;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string& field = columns[i].column->FieldName();
    const auto& keys = grid.SortKeys();
    const auto own = std::find_if(keys.begin(), keys.end(),
                                  [&](const TSortKey& key) { return SameText(key.FieldName, field); });
    const bool descending = own != keys.end() && own->Descending;
    const char* way = descending ? " DESC" : " ASC";
    const bool innermost = i + 1 == columns.size();
    const std::string detail = DetailOf(query, columns[i], innermost, descending);
    text += (i == 0 ? "" : ",") + SortField(field) + detail + way;
    const bool coarse = columns[i].byMonth || columns[i].column->IsNumber();
    if (coarse && !innermost && !detail.empty()) behind += "," + SortField(field) + way;
  }
  return text + behind;
}

// Rows that came in an order of their own, such as after others without the column, are sorted by it again.
void KeepGroupsTogether(TSmartDBGrid_QRT& grid) {
  if (!grid.Groups().Active()) return;
  const std::string groups = GroupSort(grid);
  const std::string& sort = grid.DataSet()->Sort();
  if (sort != groups && !sort.starts_with(groups + ",")) grid.DataSet()->SetSort(grid.GetSort());
}

// In the place of a sum that is beyond the range of numbers.
constexpr const char* kFooterTooLarge = "بیش از اندازه";

}  // namespace

TGridColumn::TGridColumn(TSmartDBGrid_QRT& grid, std::string fieldName, std::string caption)
    : grid_(grid), name_(std::move(fieldName)), fieldName_(name_), caption_(std::move(caption)) {}

TGridColumn& TGridColumn::SetFieldName(std::string fieldName) {
  if (fieldName == fieldName_) return *this;
  const std::string before = std::exchange(fieldName_, std::move(fieldName));
  grid_.RefreshFooters();
  grid_.SortFollows(before, fieldName_);
  if (TADOQuery* query = grid_.DataSet(); query != nullptr) {
    std::vector<RowCondition> narrowing = query->Narrowing();
    for (RowCondition& condition : narrowing)
      if (SameText(condition.field, before)) condition.field = fieldName_;
    query->SetNarrowing(std::move(narrowing));
  }
  return *this;
}

TGridColumn& TGridColumn::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  grid_.Changed();
  return *this;
}

TGridColumn& TGridColumn::SetDisplayFormat(std::string_view format) {
  formatText_ = std::string(format);
  format_ = DisplayFormat(format);
  grid_.RefreshFooters();
  return *this;
}

TGridColumn& TGridColumn::SetFooterFormat(std::string_view format) {
  footerFormat_ = DisplayFormat(format);
  grid_.RefreshFooters();
  return *this;
}

TGridColumn& TGridColumn::SetFooter(FooterKind kind) {
  footer_ = kind;
  grid_.RefreshFooters();
  return *this;
}

TGridColumn& TGridColumn::SetWidth(int width) {
  if (width == width_) return *this;
  width_ = width;
  grid_.Changed();
  return *this;
}

TGridColumn& TGridColumn::SetAutoFit(bool autoFit) {
  autoFit_ = autoFit;
  grid_.Changed();
  return *this;
}

TGridColumn& TGridColumn::SetVisible(bool visible) {
  if (visible == visible_) return *this;
  visible_ = visible;
  grid_.Changed();
  return *this;
}

TGridColumn& TGridColumn::SetMoney(bool money) {
  money_ = money;
  grid_.Changed();
  return *this;
}

bool TGridColumn::Withheld() const {
  if (!money_) return false;
  const TForm* form = std::as_const(grid_).Form();
  return form != nullptr && !form->ShowsMoney();
}

TGridColumn& TGridColumn::SetCustomizable(bool customizable) {
  if (customizable == customizable_) return *this;
  customizable_ = customizable;
  grid_.Changed();
  return *this;
}

TGridColumn& TGridColumn::SetAlign(TextAlign align) {
  align_ = align;
  grid_.Changed();
  return *this;
}

TSmartDBGrid_QRT::TSmartDBGrid_QRT(TComponent* owner, std::string name)
    : TControl(owner, std::move(name)),
      groups_(std::make_unique<GridGroups>(*this)),
      emptyText_("<داده ای برای نمایش وجود ندارد>") {}

TSmartDBGrid_QRT::~TSmartDBGrid_QRT() = default;

void TSmartDBGrid_QRT::SetDataSource(TDataSource* source) {
  source_ = source;
  sourceChanged_.Disconnect();
  sourceScrolled_.Disconnect();
  if (source_ != nullptr) {
    sourceChanged_ = source_->Changed.Connect([this] {
      selection_.clear();
      DropForeignSort();
      RefreshFooters();
      KeepGroupsTogether(*this);
    });
    sourceScrolled_ = source_->Scrolled.Connect([this] { Changed(); });
  }
  RefreshFooters();
}

TGridColumn& TSmartDBGrid_QRT::AddColumn(std::string fieldName, std::string caption) {
  return InsertColumn(columns_.size(), std::move(fieldName), std::move(caption));
}

TGridColumn& TSmartDBGrid_QRT::InsertColumn(std::size_t at, std::string fieldName, std::string caption) {
  const auto place = columns_.begin() + static_cast<std::ptrdiff_t>(std::min(at, columns_.size()));
  auto column = std::make_unique<TGridColumn>(*this, std::move(fieldName), std::move(caption));
  TGridColumn& added = **columns_.insert(place, std::move(column));
  Changed();
  return added;
}

void TSmartDBGrid_QRT::MoveColumn(std::size_t from, std::size_t to) {
  if (from >= columns_.size() || to >= columns_.size() || from == to) return;
  const auto at = [this](std::size_t i) { return columns_.begin() + static_cast<std::ptrdiff_t>(i); };
  if (from < to) {
    std::rotate(at(from), at(from + 1), at(to + 1));
  } else {
    std::rotate(at(to), at(from), at(from + 1));
  }
  Changed();
}

TGridColumn* TSmartDBGrid_QRT::FindColumn(std::string_view fieldName) const {
  for (const auto& column : columns_) {
    if (SameText(column->FieldName(), fieldName)) return column.get();
  }
  return nullptr;
}

std::vector<TGridColumn*> TSmartDBGrid_QRT::VisibleColumns() const {
  std::vector<TGridColumn*> visible;
  for (const auto& column : columns_) {
    if (column->Visible()) visible.push_back(column.get());
  }
  return visible;
}

std::string TSmartDBGrid_QRT::CellText(std::size_t position, const TGridColumn& column) const {
  const TADOQuery* query = DataSet();
  if (query == nullptr || position >= query->RecordCount() || column.Withheld()) return {};
  const auto field = query->FindField(column.FieldName());
  return field ? column.Format().Format(query->Cell(position, *field)) : std::string();
}

std::string TSmartDBGrid_QRT::FooterText(const TGridColumn& column) const {
  try {
    const Value value = FooterValue(column);
    return column.Footer() == FooterKind::Count ? value.AsText() : column.FooterFormat().Format(value);
  } catch (const std::overflow_error&) {
    return kFooterTooLarge;
  }
}

Value TSmartDBGrid_QRT::FooterValue(const TGridColumn& column) const {
  const TADOQuery* query = DataSet();
  if (column.Footer() == FooterKind::None || query == nullptr || !query->Active() || column.Withheld())
    return {};
  const auto known = std::find_if(footers_.begin(), footers_.end(),
                                  [&](const KnownFooter& footer) { return footer.column == &column; });
  if (known != footers_.end()) return known->value;
  Value value = column.Footer() == FooterKind::Count ? Value(static_cast<std::int64_t>(query->RecordCount()))
                                                     : Value(query->Sum(column.FieldName()));
  footers_.push_back({&column, value});
  return value;
}

TCellStyle TSmartDBGrid_QRT::CellStyle(std::size_t position, const TGridColumn& column) const {
  TCellStyle style;
  if (OnDrawColumnCell) OnDrawColumnCell(position, column, style);
  return style;
}

void TSmartDBGrid_QRT::RefreshFooters() {
  footers_.clear();
  groups_->RowsChanged();
  Changed();
}

void TSmartDBGrid_QRT::TitleClick(const TGridColumn& column, bool add) {
  if (column.Withheld() || !CanSortBy(column.FieldName())) return;
  const auto same = [&](const TSortKey& key) { return SameText(key.FieldName, column.FieldName()); };
  const auto found = std::find_if(sort_.begin(), sort_.end(), same);
  std::vector<TSortKey> keys;
  if (add) keys = sort_;
  if (found == sort_.end()) {
    keys.push_back({column.FieldName(), false});
  } else if (add) {
    auto& key = keys[static_cast<std::size_t>(found - sort_.begin())];
    if (key.Descending) {
      std::erase_if(keys, same);
    } else {
      key.Descending = true;
    }
  } else if (!found->Descending) {
    keys.push_back({column.FieldName(), true});
  }
  SetSortKeys(std::move(keys));
}

void TSmartDBGrid_QRT::SetSortKeys(std::vector<TSortKey> keys) {
  std::vector<TSortKey> before = std::exchange(sort_, std::move(keys));
  try {
    ApplySort();
  } catch (...) {
    sort_ = std::move(before);
    throw;
  }
  Changed();
  if (OnSortChanged) OnSortChanged();
}

bool TSmartDBGrid_QRT::CanSortBy(const std::string& field) const { return HasField(DataSet(), field); }

// A closed query keeps the order for the rows to come.
void TSmartDBGrid_QRT::ApplySort() {
  if (TADOQuery* query = DataSet(); query != nullptr) query->SetSort(GetSort());
}

void TSmartDBGrid_QRT::DropForeignSort() {
  std::erase_if(sort_, [this](const TSortKey& key) { return !CanSortBy(key.FieldName); });
}

void TSmartDBGrid_QRT::SortFollows(std::string_view before, const std::string& now) {
  const auto key = std::find_if(sort_.begin(), sort_.end(),
                                [before](const TSortKey& each) { return SameText(each.FieldName, before); });
  const auto asked = groups_->Asked();
  const bool groups = std::any_of(asked.begin(), asked.end(), [&](const GridGroups::GroupedBy& by) {
    return SameText(by.column->FieldName(), now);
  });
  if (key == sort_.end()) {
    if (groups && CanSortBy(now)) ApplySort();
    return;
  }
  key->FieldName = now;
  if (CanSortBy(now)) ApplySort();
  if (OnSortChanged) OnSortChanged();
}

std::string TSmartDBGrid_QRT::GetSort() const {
  std::string text = GroupSort(*this);
  for (const TSortKey& key : sort_) {
    const auto groups = groups_->Asked();
    const bool groupKey = std::any_of(groups.begin(), groups.end(), [&](const auto& by) {
      return SameText(by.column->FieldName(), key.FieldName) && CanSortBy(key.FieldName);
    });
    if (groupKey) continue;
    if (!text.empty()) text += ",";
    text += SortField(key.FieldName) + (key.Descending ? " DESC" : " ASC");
  }
  return text;
}

void TSmartDBGrid_QRT::SetSelection(std::set<std::size_t> positions) {
  selection_ = std::move(positions);
  Changed();
}

void TSmartDBGrid_QRT::MoveTo(std::size_t position) {
  if (TADOQuery* query = DataSet(); query != nullptr) query->MoveTo(position);
}

void TSmartDBGrid_QRT::SetEmptyText(std::string text) {
  emptyText_ = std::move(text);
  Changed();
}

void TSmartDBGrid_QRT::DoubleClick() {
  if (Visible() && Enabled() && OnDblClick) OnDblClick();
}

std::string TSmartDBGrid_QRT::SaveLayout() const {
  std::string text;
  for (const auto& column : columns_) {
    text +=
        column->Name() + "=" + std::to_string(column->Width()) + "," + (column->visible_ ? "1" : "0") + "\n";
  }
  return text;
}

void TSmartDBGrid_QRT::LoadLayout(std::string_view text) {
  std::vector<std::size_t> order;
  for (const std::string& line : Split(text, '\n')) {
    const std::size_t equals = line.rfind('=');
    if (equals == std::string::npos) continue;
    const std::vector<std::string> values = Split(Trim(std::string_view(line).substr(equals + 1)), ',');
    const std::int64_t width = values.size() == 2 ? ParseInteger(values[0]).value_or(0) : 0;
    const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const auto& column) {
      return SameText(column->Name(), line.substr(0, equals));
    });
    if (width < 10 || width > 4000 || found == columns_.end()) continue;
    TGridColumn& column = **found;
    column.SetWidth(static_cast<int>(width));
    if (column.customizable_) column.SetVisible(values[1] == "1");
    const auto place = static_cast<std::size_t>(found - columns_.begin());
    if (std::find(order.begin(), order.end(), place) == order.end()) order.push_back(place);
  }
  if (!order.empty()) ArrangeColumns(std::move(order));
}

void TSmartDBGrid_QRT::ArrangeColumns(std::vector<std::size_t> order) {
  for (std::size_t place = 0; place < columns_.size(); ++place) {
    if (std::find(order.begin(), order.end(), place) != order.end()) continue;
    const auto last =
        std::find_if(order.rbegin(), order.rend(), [=](std::size_t each) { return each < place; });
    order.insert(last == order.rend() ? order.end() : last.base(), place);
  }
  std::vector<std::unique_ptr<TGridColumn>> arranged;
  for (const std::size_t place : order) arranged.push_back(std::move(columns_[place]));
  columns_ = std::move(arranged);
  Changed();
}

}  // namespace goods
