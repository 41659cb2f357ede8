// Statements on an embedded company.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "company/embedded/card_figures.h"
#include "company/embedded/catalog.h"
#include "company/embedded/divided_reading.h"
#include "company/embedded/kept_answers.h"
#include "company/embedded/row_reader.h"
#include "company/embedded/sqlite.h"
#include "company/embedded/statement_parser.h"
#include "host/data/connection.h"

namespace goods {

struct ProcedureCall;

// Reads through a handle that cannot write; the refresh procedures write through another one, opened when
// first needed, each in a transaction. Every failure is a DatabaseError with a Persian message.
//
// What a window asks several times is read once: small answers of SELECT statements, and what the stock card
// that was read last comes to before a date, are kept until somebody writes to the file, this connection or
// another program. A statement that is answered so has looked at the file for that.
class EmbeddedConnection : public IConnection {
 public:
  // The file must have been prepared (see company_file.h). Throws SqliteError.
  // division: how the work of divided procedures is (see divided_reading.h).
  EmbeddedConnection(std::string path, bool writable, Division division = {});
  ~EmbeddedConnection() override;
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress = nullptr) override;
  void Execute(std::string_view statement, IStatementProgress* progress = nullptr) override;

 private:
  // into is null when the rows are to be dropped.
  void Dispatch(std::string_view statement, RowStore* into, IStatementProgress* progress);
  void Read(const ParsedStatement& parsed, std::string_view statement, RowStore* into, ProgressWatch& watch);
  void ReadProcedure(const ProcedureCall& call, RowStore& into, ProgressWatch& watch);
  // What is kept of another state of the file than the one read last is forgotten.
  void ForgetOtherStates();
  void LookAtFile();
  bool AnswerKept(std::string_view statement, RowStore& into);
  bool AnswerFromCard(const QueryStatement& query, const std::vector<ColumnInfo>& columns, RowStore& into);
  void Refresh(const ProcedureCall& call, std::string_view statement, IStatementProgress* progress);

  std::string path_;
  bool writable_;
  Database reader_;
  Statement look_;
  std::optional<Database> writer_;
  DividedReading divided_;
  Catalog catalog_;
  std::uint32_t keptState_ = 0;
  KeptAnswers answers_;
  CardFigures figures_;
};

}  // namespace goods
