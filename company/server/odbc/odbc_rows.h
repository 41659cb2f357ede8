// Rows of an ODBC result, in blocks straight into a row store.
#pragma once

#include <atomic>
#include <cstddef>

#include "company/server/odbc/odbc_handles.h"
#include "host/data/first_rows.h"
#include "host/data/row_store.h"

namespace goods {

// Defines the store with the columns of the statement's present result, reads every row and finishes it.
// Whole numbers become integers, other numbers decimals of nine places, rounded half away from zero;
// everything else, dates among it, is text. rows counts what has been read. Throws OdbcError, also for a
// number that a Decimal does not hold. first, where it is given, is offered the rows as they come.
void ReadOdbcRows(OdbcStatement& statement, RowStore& into, std::atomic<std::size_t>& rows,
                  FirstRowsRelay* first = nullptr);

}  // namespace goods
