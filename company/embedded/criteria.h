// Search criteria of a procedure, declared in its file and written out where the body says {criteria}:
//
//   -- criterion contains F on <expression>               @F: the cell holds the text, as a Persian reader
//   compares
//   -- criterion name F of Table on <expression>          the same of the Name of the table's row with that
//   Code
//   -- criterion equals F integer|decimal|text on <expression>
//   -- criterion codes F on <expression>                  @F and the cell are codes joined with ","; any in
//   both
//   -- criterion range F integer|decimal|text|date on <expression>   @FromF, @ToF: both ends belong to it
//
// Each declares its parameters too. A parameter that is null asks nothing, and so does a list
// of codes without a code; an end of a range that is null is open. @NotF=1, of a range @NotRangeF=1, turns
// the criterion round, so that a field may be asked for by value and by range at once; alone it asks nothing.
// A null cell meets no criterion, and so every excluded one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// The next word of a declaration, cut off its front together with the blanks around it.
std::string_view TakeWord(std::string_view& line);

struct Criterion {
  std::vector<std::string> parameters;  // declarations, as in a procedure file
  std::string condition;                // SQL, in parentheses
  std::string given;                    // when it asks anything at all, as conditional lines say it
};

// The declaration behind the word "criterion"; none when it is no such line.
std::optional<Criterion> ReadCriterion(std::string_view declaration);

// Puts the conditions, joined with AND, in the place of {criteria}, each on a line that stands in the calls
// that give its parameters; no conditions are true. Returns whether the body has such a place.
bool PutCriteria(std::string& body, const std::vector<Criterion>& criteria);

}  // namespace goods
