// The common menu of tables: column chooser, copy, and the commands that the application adds.
#pragma once

#include <QPoint>
#include <QString>
#include <cstddef>
#include <optional>

#include "host/components/grid.h"

namespace goods {

class FormView;

class GridWidget;

struct GridCell {
  std::size_t row;
  TGridColumn* column;
};

// Shows the menu and runs what is chosen; on a cell it begins with the conditions that the cell gives. column
// is the one under the mouse or the one that keys mean, null for none.
void GridMenu(GridWidget& table, FormView& form, const std::optional<GridCell>& cell, TGridColumn* column,
              const QPoint& at);

// The selected rows, or the current one where none is selected, with a line of titles, separated by tabs.
QString CopiedText(const TSmartDBGrid_QRT& grid);
void CopyRows(const TSmartDBGrid_QRT& grid);

}  // namespace goods
