// The look that the host's own lists share with the grids of reports.
#pragma once

class QAbstractItemView;
class QTableView;

namespace goods {

// Soft colours for the chosen row, no frame round the focus.
void GiveListLook(QAbstractItemView& list);
// The same, and titles, row heights and selection by rows.
void GiveTableLook(QTableView& table);
// Columns as wide as their texts, within bounds; the widest takes the room that is left over. Returns the
// width of all, in pixels.
int FitColumns(QTableView& table);

}  // namespace goods
