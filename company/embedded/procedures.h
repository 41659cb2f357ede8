// The company's procedures. Each is a file of procedures/: declarations in comment lines, then plain SQLite
// SQL.
//
//   -- parameter @Name integer|decimal|text|date [default <number | 'text' | null>]
//   -- column Name integer|decimal|text          one line a result column, in order
//   -- column Name decimal running [within Column]   the body gives the cells that are added up
//   -- column Name decimal product Column Column     the body gives NULL in its place
//   -- column Name text named by SELECT ... ?1       the body gives the key, the statement its name
//   -- criterion ...                          a search criterion, put into the body (see criteria.h)
//   -- condition name @A or @B...             a name for conditions of lines (see conditional_lines.h)
//   -- include Part                           parts/Part.sql in place of the line, for what several files say
//   -- divided by g.Code [unless @A or @B...]    the rows of a good depend on no other good's, and come in
//   the
//                                               order of the codes: divided_reading.h. The body says {goods}
//                                               where its condition belongs, on a line of its own
//   -- writes                                    changes derived figures; runs in a transaction
//   -- native                                    there is no body: native_procedures.h has it, in C++
//
// A parameter without a default must be given. A date is a text whose empty one is null: an open end of a
// period. The body names parameters as they are declared; they are bound, decimals as decimal cells. A
// procedure that writes may hold several statements and returns no rows; another one holds a single SELECT,
// and may have lines that stand in some calls only (see conditional_lines.h).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "company/embedded/derived_columns.h"
#include "company/embedded/sqlite.h"
#include "company/embedded/statement_parser.h"
#include "host/data/row_store.h"

namespace goods {

struct ProcedureParameter {
  std::string name;  // with its "@"
  ColumnType type = ColumnType::Text;
  bool emptyIsNull = false;
  bool required = true;
  Literal value;  // the default
};

struct Procedure {
  std::string name;
  std::vector<ProcedureParameter> parameters;
  std::vector<ColumnInfo> columns;
  std::vector<DerivedColumn> derived;                           // one for each column
  std::vector<std::pair<std::string, std::string>> conditions;  // by name
  std::string goodColumn;      // what the work is divided by; empty where it is not
  std::string undividedCalls;  // conditions of calls that are not; empty for none
  bool writes = false;
  bool native = false;
  std::string body;
};

// Reads a procedure file; throws std::logic_error when its declarations are wrong.
Procedure ReadProcedure(std::string_view name, std::string_view text);

// All procedures, read once.
const std::vector<Procedure>& Procedures();

// A value for each parameter of the procedure, in its order. Throws StatementError when the procedure or a
// parameter is unknown, given twice, missing, too many, or of the wrong kind.
struct ProcedureCall {
  const Procedure* procedure = nullptr;
  std::vector<Literal> values;
};
ProcedureCall MatchProcedure(const ExecStatement& exec, std::string_view statement);

// The value of a parameter that the procedure declares; throws std::logic_error when it does not.
const Literal& ArgumentOf(const ProcedureCall& call, std::string_view name);

// Binds the values to those parameters that the prepared statement names.
void BindParameters(Statement& prepared, const ProcedureCall& call);

// Runs the statements of a procedure that writes, dropping rows; row is called for each. The transaction is
// the caller's. Throws SqliteError and what row throws.
void RunProcedureBody(Database& db, const ProcedureCall& call, const std::function<void()>& row);

}  // namespace goods
