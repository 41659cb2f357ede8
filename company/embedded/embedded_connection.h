// Statements on an embedded company.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "company/embedded/catalog.h"
#include "company/embedded/row_reader.h"
#include "company/embedded/sqlite.h"
#include "company/embedded/statement_parser.h"
#include "host/data/connection.h"

namespace goods {

struct ProcedureCall;

// Reads through a handle that cannot write; the refresh procedures write through another one, opened when
// first needed, each in a transaction. Every failure is a DatabaseError with a Persian message.
class EmbeddedConnection : public IConnection {
 public:
  // The file must have been prepared (see company_file.h). Throws SqliteError.
  EmbeddedConnection(std::string path, bool writable);
  ~EmbeddedConnection() override;
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress = nullptr) override;
  void Execute(std::string_view statement, IStatementProgress* progress = nullptr) override;

 private:
  // into is null when the rows are to be dropped.
  void Dispatch(std::string_view statement, RowStore* into, IStatementProgress* progress);
  void Read(const ParsedStatement& parsed, std::string_view statement, RowStore* into, ProgressWatch& watch);
  void Refresh(const ProcedureCall& call, std::string_view statement, IStatementProgress* progress);

  std::string path_;
  bool writable_;
  Database reader_;
  std::optional<Database> writer_;
  Catalog catalog_;
};

}  // namespace goods
