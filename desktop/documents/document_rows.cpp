#include "desktop/documents/document_rows.h"

#include "desktop/views/shown_text.h"

namespace goods {

DocumentRows::DocumentRows(const DocumentView& view, QObject* parent)
    : QAbstractTableModel(parent), columns_(view.columns), rows_(view.rows) {}

int DocumentRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int DocumentRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant DocumentRows::data(const QModelIndex& index, int role) const {
  const auto column = static_cast<std::size_t>(index.column());
  const bool number = columns_[column].number;
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>((number ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeading) |
                            Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  const auto& row = rows_[static_cast<std::size_t>(index.row())];
  if (column >= row.size()) return {};
  return ShownText(row[column]);
}

QVariant DocumentRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return ShownText(std::to_string(section + 1));
  return ToQt(columns_[static_cast<std::size_t>(section)].caption);
}

}  // namespace goods
