// The table-valued function stock_figures(good, from, to, store, others): what the lists of goods show of one
// good, in one row of varede, sadere, Mogodi, gheymat_miangin and OperationDate.
//
// This implementation:
// - from or to given (not null) makes a period; both ends belong to it and an empty one is open. Its figures
//   are added up from the movements, so with a first date the stock is what the period moved, incoming minus
//   outgoing, and without one it is the stock at the period's end. Without a period the stored figures stand.
// - store given (neither null nor 0) takes that store's figures alone, or with others 1 those of all the
//   other stores. A good that never moved there has zeros.
// - gheymat_miangin is the good's own, whatever the store: the stored one, and with a period the average
//   after the good's last movement up to the period's end.
// - OperationDate is the last movement's that was counted; '' when none was.
//
// A movement is read only within the period of its good, so a short period costs little.
#pragma once

#include <sqlite3.h>

namespace goods {

void RegisterStockFigures(sqlite3* db);

}  // namespace goods
