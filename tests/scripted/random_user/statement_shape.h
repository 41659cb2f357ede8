// Whether a statement text keeps its shape, whatever was typed into it.
#pragma once

#include <string>
#include <string_view>

namespace goods {

// What is wrong with the text as one statement of T-SQL, empty when nothing is. Reads it by itself, without
// the module's own writers: quotes and brackets that end, one call of a procedure whose parameters are single
// values, or one query; no comment, no second statement, no character that the language does not have.
std::string ProblemOfStatement(std::string_view statement);

}  // namespace goods
