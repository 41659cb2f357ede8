// SQL functions over decimal cells (see decimal_cell.h). A null argument gives null; a real number, a text or
// a broken blob is an error; so is leaving the range of a Decimal. Results take the cell form: INTEGER where
// it fits, else BLOB.
//
// - dec_add(a, b), dec_sub(a, b), dec_neg(a), dec_abs(a): exact
// - dec_mul(a, b), dec_div(a, b): rounded once to nine decimals, half away from zero; by 0 is an error
// - dec_whole(a, b), dec_rest(a, b): how many whole b are in a, towards zero, and what they leave, exact; by
// 0
//   is an error
// - dec_cmp(a, b): -1, 0 or 1
// - dec_of(i): the decimal of a whole number
// - dec_trunc(a): without its decimals, towards zero
// - dec_text(a), dec_parse(text): shortest exact text and back; a text that is no number is an error
// - dec_key(a): a BLOB that sorts as the number does
// - dec_sum(a), dec_min(a), dec_max(a): aggregates, null over no rows; dec_sum is a window function too
#pragma once

#include <sqlite3.h>

namespace goods {

void RegisterDecimalFunctions(sqlite3* db);

}  // namespace goods
