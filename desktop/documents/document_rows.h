// DocumentRows: the rows of a document as the toolkit's tables read them.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

#include "company/company.h"

namespace goods {

class DocumentRows : public QAbstractTableModel {
 public:
  DocumentRows(const DocumentView& view, QObject* parent);

  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<DocumentColumn> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace goods
