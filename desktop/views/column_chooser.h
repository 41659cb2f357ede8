// The dialog that chooses which columns of a table are seen.
#pragma once

class QDialog;

namespace goods {

class FormView;
class TSmartDBGrid_QRT;

// Lists the columns that may be hidden, under their groups, with a search; the last visible column stays. It
// works while it is open, and deletes itself when it is closed.
QDialog* ShowColumnChooser(FormView& form, TSmartDBGrid_QRT& grid);

}  // namespace goods
