// The table-valued function negative_stock: the outgoing rows after which a store holds less than nothing of
// a good, in the order of good, date and row number, with Kardex's columns Kala, Date, Radif, Anbar, Percode,
// Tedad, Gheymat and Comment. One scan of the stock card finds them, adding up as it goes; SQL's own window
// functions take several times as long.
#pragma once

#include <sqlite3.h>

namespace goods {

void RegisterNegativeStock(sqlite3* db);

}  // namespace goods
