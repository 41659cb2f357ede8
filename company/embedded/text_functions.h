// SQL functions over texts. A null argument gives null.
//
// - fold_persian(text): the text as a Persian reader compares it; for searches
// - code_at(codes, n): the n-th code, from 1, of a text of codes joined with ","; null when there are fewer.
//   Blanks, outer commas and what is no number do not count
// - shares_code(a, b): 1 when a code stands in both texts of codes, else 0
#pragma once

#include <sqlite3.h>

namespace goods {

void RegisterTextFunctions(sqlite3* db);

}  // namespace goods
