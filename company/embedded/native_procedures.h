// Procedures whose whole result is made here: those with the line "-- native". Their files declare parameters
// and columns; the rows come from here.
//
// This is for results that no SELECT can shape, or out of which SQL would have nothing left to
// do. GoodsAsset_Store_SP has columns for every store of the company, so that their number is known at the
// call alone. The overall turnovers are a walk through the movements whose result nothing is joined to,
// searched in or ordered by; as table-valued functions their 20 cells a row would be handed through SQLite
// for nothing. Where criteria, joins or an order follow, the computed part is a table of SQL instead
// (computed_table.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "company/embedded/divided_reading.h"
#include "company/embedded/procedures.h"
#include "company/embedded/row_reader.h"
#include "company/embedded/sqlite.h"
#include "host/data/row_store.h"

namespace goods {

// Reads the goods of a range, as a RangeReader does (divided_reading.h). Throws SqliteError,
// std::overflow_error and Cancelled.
using NativeBody = void (*)(Database& db, const ProcedureCall& call, const GoodRange& goods, RowStore& into,
                            ProgressWatch& watch);

// Throws std::logic_error for a procedure that has none.
NativeBody NativeBodyOf(const Procedure& procedure);

// GoodsAsset_Store_SP: the stock of goods in every store side by side.
void RunStoreAsset(Database& db, const ProcedureCall& call, const GoodRange& goods, RowStore& into,
                   ProgressWatch& watch);
// GoodKardex_Overall_Money and GoodKardex_Overall_Tedad: what came in and went out, by operation.
void RunOverallMoney(Database& db, const ProcedureCall& call, const GoodRange& goods, RowStore& into,
                     ProgressWatch& watch);
void RunOverallQuantity(Database& db, const ProcedureCall& call, const GoodRange& goods, RowStore& into,
                        ProgressWatch& watch);

// The value of a parameter that the procedure declares; null reads as the empty text and as 0.
std::string TextArgument(const ProcedureCall& call, std::string_view name);
std::int64_t IntegerArgument(const ProcedureCall& call, std::string_view name);

}  // namespace goods
