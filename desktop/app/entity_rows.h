// EntityRows: entities that match a search text, as the toolkit's tables read them.
#pragma once

#include <QAbstractTableModel>
#include <string>
#include <vector>

#include "company/company.h"

namespace goods {

// Rows come by the page: scrolling to the end asks the company for more.
class EntityRows : public QAbstractTableModel {
 public:
  // company must outlive it. recent: codes that stand first, as far as there are such and nothing is
  // searched.
  EntityRows(ICompany& company, EntityKind kind, QObject* parent, std::vector<std::int64_t> recent = {});

  // Throws CompanyError; the rows are then as they were.
  void Search(const QString& text);
  void Clear();
  // Whether there are rows beyond those that were read.
  bool IsCut() const { return mayHaveMore_; }
  const EntityRecord& Record(int row) const;
  // How many rows at the start are recent ones.
  int RecentCount() const { return static_cast<int>(recent_.size()); }
  // In its own place, not among the recent ones. Reads on until the code is there; -1 when no row has it.
  // Throws CompanyError.
  int RowOfCode(std::int64_t code);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  // A company that cannot be read has no more rows.
  void fetchMore(const QModelIndex& parent) override;

 private:
  std::vector<EntityRecord> Read(std::size_t limit);
  void ReadMore();
  std::vector<EntityRecord> FindRecent();

  ICompany& company_;
  EntityKind kind_;
  std::string text_;
  std::vector<std::int64_t> recentCodes_;
  std::vector<EntityRecord> recent_;
  std::vector<EntityRecord> records_;
  bool mayHaveMore_ = false;
};

}  // namespace goods
