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
  // company must outlive it.
  EntityRows(ICompany& company, EntityKind kind, QObject* parent);

  // Throws CompanyError; the rows are then as they were.
  void Search(const QString& text);
  void Clear();
  // Whether there are rows beyond those that were read.
  bool IsCut() const { return mayHaveMore_; }
  const EntityRecord& Record(int row) const { return records_[static_cast<std::size_t>(row)]; }
  // Reads on until the code is there; -1 when no row has it. Throws CompanyError.
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

  ICompany& company_;
  EntityKind kind_;
  std::string text_;
  std::vector<EntityRecord> records_;
  bool mayHaveMore_ = false;
};

}  // namespace goods
