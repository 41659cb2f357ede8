// The host's small common functions on parameter lists, filters and numbers.
#pragma once

#include <string>
#include <string_view>

#include "host/data/decimal.h"

namespace goods {

class TADOQuery;

// second, a comma, first; an empty side adds nothing. With (new piece, list) the list reads in the order
// added, with (list, new piece) newest first.
std::string ADDParam(std::string_view first, std::string_view second);

// The list without the parameter of that name ("@GrpCode", letter case apart), its comma included. Commas
// inside quoted texts separate nothing.
std::string DeleteParam(std::string_view list, std::string_view name);

// filter And condition; an empty side adds nothing.
std::string AddFilter(std::string_view filter, std::string_view condition);

// Closes the query and opens it again.
void ResetDataset(TADOQuery& query);

// The shortest text of a number, and that text in the host's currency format: thousands separators, up to
// four decimals (quantities pass through here too), minus sign behind. A text that is no number stands as it
// is.
std::string NumberToText(Decimal number);
std::string SetCurrencyFormat(std::string_view number);

}  // namespace goods
