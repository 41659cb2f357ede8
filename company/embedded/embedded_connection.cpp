#include "company/embedded/embedded_connection.h"

#include <span>
#include <stdexcept>
#include <utility>
#include <variant>

#include "company/embedded/conditional_lines.h"
#include "company/embedded/native_procedures.h"
#include "company/embedded/procedures.h"
#include "company/embedded/row_reader.h"
#include "company/embedded/select_translator.h"
#include "company/embedded/statement_parser.h"

namespace goods {

namespace {

// Whatever text gets this far, a reading handle does nothing but read.
int AllowReading(void*, int action, const char*, const char*, const char*, const char*) {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    default:
      return SQLITE_DENY;
  }
}

// A declaration that does not fit its body would shift every column.
void DefineColumns(RowStore& into, const std::vector<ColumnInfo>& columns, const Statement& prepared) {
  if (static_cast<int>(columns.size()) != prepared.Columns()) {
    throw SqliteError(SQLITE_MISMATCH, "شمار ستون ها با تعریف روال یکی نیست");
  }
  into.Define(columns);
}

void DropRows(Statement& prepared, ProgressWatch& watch) {
  while (prepared.Step()) watch.Row();
}

}  // namespace

EmbeddedConnection::EmbeddedConnection(std::string path, bool writable)
    : path_(std::move(path)), writable_(writable), reader_(path_, SQLITE_OPEN_READONLY), catalog_(reader_) {
  sqlite3_set_authorizer(reader_.Handle(), AllowReading, nullptr);
}

EmbeddedConnection::~EmbeddedConnection() = default;

void EmbeddedConnection::Open(std::string_view statement, RowStore& into, IStatementProgress* progress) {
  Dispatch(statement, &into, progress);
}

void EmbeddedConnection::Execute(std::string_view statement, IStatementProgress* progress) {
  Dispatch(statement, nullptr, progress);
}

void EmbeddedConnection::Dispatch(std::string_view statement, RowStore* into, IStatementProgress* progress) {
  try {
    const ParsedStatement parsed = ParseStatement(statement);
    Statement prepared;
    std::vector<ColumnInfo> columns;
    std::span<const DerivedColumn> derived;
    if (const auto* exec = std::get_if<ExecStatement>(&parsed)) {
      const ProcedureCall call = MatchProcedure(*exec, statement);
      if (call.procedure->writes) {
        Refresh(call, statement, progress);
        if (into != nullptr) into->Define({});
        return;
      }
      if (call.procedure->native) {
        RunNative(call, into, progress);
        return;
      }
      prepared = reader_.Prepare(BodyOf(call));
      BindParameters(prepared, call);
      columns = call.procedure->columns;
      derived = call.procedure->derived;
    } else {
      TranslatedQuery query = TranslateQuery(std::get<QueryStatement>(parsed), catalog_, statement);
      prepared = reader_.Prepare(query.sql);
      columns = std::move(query.columns);
    }
    ProgressWatch watch(reader_.Handle(), progress);
    try {
      if (into == nullptr) {
        DropRows(prepared, watch);
      } else {
        DefineColumns(*into, columns, prepared);
        ReadRows(prepared, derived, *into, watch);
      }
    } catch (const SqliteError&) {
      watch.Rethrow();
      throw;
    }
  } catch (const StatementError& error) {
    throw DatabaseError(error.what(), std::string(statement));
  } catch (const SqliteError& error) {
    throw DatabaseError(PersianMessage(error), std::string(statement));
  } catch (const std::overflow_error&) {
    throw DatabaseError("حاصل از اندازه یک عدد بزرگتر است.", std::string(statement));
  } catch (const Cancelled&) {
    throw StatementCancelled("کار به خواست کاربر متوقف شد.", std::string(statement));
  }
}

void EmbeddedConnection::RunNative(const ProcedureCall& call, RowStore* into, IStatementProgress* progress) {
  const NativeBody body = NativeBodyOf(*call.procedure);
  ProgressWatch watch(reader_.Handle(), progress);
  RowStore dropped;
  try {
    body(reader_, call, into != nullptr ? *into : dropped, watch);
  } catch (const SqliteError&) {
    watch.Rethrow();
    throw;
  }
}

void EmbeddedConnection::Refresh(const ProcedureCall& call, std::string_view statement,
                                 IStatementProgress* progress) {
  if (!writable_) {
    throw DatabaseError("فایل شرکت فقط خواندنی است و چیزی در آن نوشته نمی شود.", std::string(statement));
  }
  if (!writer_) writer_.emplace(path_, SQLITE_OPEN_READWRITE);
  ProgressWatch watch(writer_->Handle(), progress);
  try {
    Transaction transaction(*writer_);
    RunProcedureBody(*writer_, call, [&] { watch.Row(); });
    transaction.Commit();
  } catch (const SqliteError&) {
    watch.Rethrow();
    throw;
  }
}

}  // namespace goods
