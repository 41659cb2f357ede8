// SQL functions over the details of goods.
//
// - detail_text(title1, value1, ...): "title: value - title: value" of the values that are not empty; a value
//   without a title stands alone.
// - detail_between(type, value, from, to): 1 when the value lies between the two ends, both included. type is
//   the detail's DetailType: 3 and 4 compare as numbers, 5 as dates (year, month and day; no calendar is
//   asked), any other as texts, as a Persian reader orders them, blanks at both ends aside. An end that is
//   null is open; so is an end of a date without any digit, as an empty date edit gives it. 0 when the value
//   is null, or when the value or an end is not of the type. The ends must be the same for every row of a
//   statement.
// - dec_try(text): the number that a text holds; null when it holds none.
//
// A text is a number as an amount edit takes it, since windows may send what was typed as it
// stands: digits in either script, and "," before the point as thousands separators, wherever they are.
#pragma once

#include <sqlite3.h>

namespace goods {

void RegisterDetailFunctions(sqlite3* db);

}  // namespace goods
