// Separators of thousands in figures whose own format has none.
#pragma once

#include <QString>

namespace goods {

// Whether figures of a thousand and more are shown with them in cells and totals. Off unless switched on;
// touches only what is painted, never a component's text, the clipboard or an export.
void SetThousandsSeparators(bool on);
bool ThousandsSeparators();

// The whole part of a figure in groups of three; what has groups, or is no figure, stays as it is.
QString InThousands(QString figure);

}  // namespace goods
