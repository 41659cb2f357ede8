#include "desktop/app/entity_rows.h"

#include <QBrush>
#include <algorithm>
#include <iterator>
#include <utility>

#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::size_t kFirstPage = 500;
constexpr std::size_t kPageGrowth = 4;

enum EntityColumn { kCode, kName, kUnit, kUnit2 };

}  // namespace

EntityRows::EntityRows(ICompany& company, EntityKind kind, QObject* parent, std::vector<std::int64_t> recent)
    : QAbstractTableModel(parent), company_(company), kind_(kind), recentCodes_(std::move(recent)) {}

const EntityRecord& EntityRows::Record(int row) const {
  const auto place = static_cast<std::size_t>(row);
  return place < recent_.size() ? recent_[place] : records_[place - recent_.size()];
}

std::vector<EntityRecord> EntityRows::FindRecent() {
  std::vector<EntityRecord> found;
  if (!text_.empty()) return found;
  for (const std::int64_t code : recentCodes_) {
    if (auto record = company_.FindEntity(kind_, code)) found.push_back(std::move(*record));
  }
  return found;
}

std::vector<EntityRecord> EntityRows::Read(std::size_t limit) {
  auto records = company_.SearchEntities(kind_, text_, limit);
  mayHaveMore_ = records.size() >= limit;
  return records;
}

void EntityRows::Search(const QString& text) {
  std::string before = std::exchange(text_, AsciiDigits(FromQt(text.trimmed())));
  try {
    auto found = Read(kFirstPage);
    auto recent = FindRecent();
    beginResetModel();
    records_ = std::move(found);
    recent_ = std::move(recent);
    endResetModel();
  } catch (const CompanyError&) {
    text_ = std::move(before);
    throw;
  }
}

void EntityRows::Clear() {
  beginResetModel();
  recent_.clear();
  records_.clear();
  mayHaveMore_ = false;
  endResetModel();
}

int EntityRows::RowOfCode(std::int64_t code) {
  while (true) {
    const auto found = std::find_if(records_.begin(), records_.end(),
                                    [code](const auto& record) { return record.code == code; });
    if (found != records_.end()) return RecentCount() + static_cast<int>(found - records_.begin());
    if (!mayHaveMore_) return -1;
    ReadMore();
  }
}

int EntityRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : RecentCount() + static_cast<int>(records_.size());
}

int EntityRows::columnCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return kind_ == EntityKind::Good ? kUnit2 + 1 : kName + 1;
}

QVariant EntityRows::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole) {
    const Qt::Alignment across = index.column() == kName ? Qt::AlignLeading : Qt::AlignHCenter;
    return static_cast<int>(across | Qt::AlignVCenter);
  }
  const bool recent = index.row() < RecentCount();
  if (role == Qt::BackgroundRole && recent) return QBrush(CurrentTheme().accentSoft);
  if (role == Qt::ToolTipRole && recent) return QString("به تازگی برگزیده");
  if (role != Qt::DisplayRole) return {};
  const EntityRecord& record = Record(index.row());
  switch (index.column()) {
    case kCode:
      return ShownText(std::to_string(record.code));
    case kName:
      return ShownText(record.name);
    case kUnit:
      return ToQt(record.unit);
    default:
      return ToQt(record.unit2);
  }
}

QVariant EntityRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation == Qt::Vertical) return {};
  switch (section) {
    case kCode:
      return QString("کد");
    case kName:
      return QString("نام");
    case kUnit:
      return QString("واحد");
    default:
      return QString("واحد دوم");
  }
}

bool EntityRows::canFetchMore(const QModelIndex& parent) const { return !parent.isValid() && mayHaveMore_; }

void EntityRows::fetchMore(const QModelIndex& /*parent*/) {
  try {
    ReadMore();
  } catch (const CompanyError&) {
    mayHaveMore_ = false;
  }
}

void EntityRows::ReadMore() {
  auto longer = Read(records_.size() * kPageGrowth);
  if (longer.size() <= records_.size()) return;
  const int before = rowCount();
  beginInsertRows({}, before, before + static_cast<int>(longer.size() - records_.size()) - 1);
  records_ = std::move(longer);
  endInsertRows();
}

}  // namespace goods
