// The common menu of tables: column chooser, copy, and the commands that the application adds.
#pragma once

#include <QPoint>
#include <QString>

#include "host/components/grid.h"

namespace goods {

class FormView;

// Shows the menu and runs what is chosen.
void GridMenu(FormView& form, TSmartDBGrid_QRT& grid, const QPoint& at);

// The selected rows, or the current one where none is selected, with a line of titles, separated by tabs.
QString CopiedText(const TSmartDBGrid_QRT& grid);
void CopyRows(const TSmartDBGrid_QRT& grid);

}  // namespace goods
