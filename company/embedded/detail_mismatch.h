// Where the details of goods disagree with the stock card. Both tables look at the goods that keep details,
// and read each good's stock card and details once; a quantity is a decimal cell.
//
// - detail_asset(Kala, Anbar, KardexAsset, DetailAsset): every store in which a good moved, with what the
// stock
//   card and what the details have there. In the order of good and store.
// - detail_operation_mismatch(Kala, Date, Radif, Anbar, Type, OperationCode, OperationRow, OperationAmount,
//   DetailAmount): rows of the stock card whose details do not add up to their quantity. Details in another
//   store than their row's, or without a row, make a row of their own with OperationAmount 0. Quantities are
//   positive in the row's direction. In the order of good, date and row number.
#pragma once

#include <sqlite3.h>

namespace goods {

void RegisterDetailMismatch(sqlite3* db);

}  // namespace goods
