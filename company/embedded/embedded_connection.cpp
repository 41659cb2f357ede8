#include "company/embedded/embedded_connection.h"

#include <memory>
#include <span>
#include <stdexcept>
#include <utility>
#include <variant>

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/embedded/conditional_lines.h"
#include "company/embedded/native_procedures.h"
#include "company/embedded/procedures.h"
#include "company/embedded/row_reader.h"
#include "company/embedded/select_translator.h"
#include "company/embedded/statement_parser.h"
#include "host/core/text.h"

namespace goods {

namespace {

// A declaration that does not fit its body would shift every column.
void DefineColumns(RowStore& into, const std::vector<ColumnInfo>& columns, const Statement& prepared) {
  if (static_cast<int>(columns.size()) != prepared.Columns()) {
    throw SqliteError(SQLITE_MISMATCH, "شمار ستون ها با تعریف روال یکی نیست");
  }
  if (into.Columns().empty()) into.Define(columns);
}

void BindGoods(Statement& prepared, const GoodRange& goods) {
  prepared.Bind(sqlite3_bind_parameter_index(prepared.Handle(), kFirstGood), goods.first);
  prepared.Bind(sqlite3_bind_parameter_index(prepared.Handle(), kLastGood), goods.last);
}

void DropRows(Statement& prepared, ProgressWatch& watch) {
  while (prepared.Step()) watch.Row();
}

}  // namespace

EmbeddedConnection::EmbeddedConnection(std::string path, bool writable, Division division)
    : path_(std::move(path)),
      writable_(writable),
      reader_(OpenCompanyDatabase(path_, SQLITE_OPEN_READONLY, Access::Read)),
      look_(reader_.Prepare("SELECT 1 FROM sqlite_schema LIMIT 1")),
      divided_(reader_, path_, division),
      catalog_(reader_) {}

EmbeddedConnection::~EmbeddedConnection() = default;

void EmbeddedConnection::Open(std::string_view statement, RowStore& into, IStatementProgress* progress) {
  into = RowStore();  // what is read is written behind what the store holds
  Dispatch(statement, &into, progress);
}

void EmbeddedConnection::Execute(std::string_view statement, IStatementProgress* progress) {
  Dispatch(statement, nullptr, progress);
}

void EmbeddedConnection::Dispatch(std::string_view statement, RowStore* into, IStatementProgress* progress) {
  if (reader_.WasMoved()) throw DatabaseError(kMovedMessage, std::string(statement));
  try {
    if (into != nullptr && AnswerKept(statement, *into)) return;
    const ParsedStatement parsed = ParseStatement(statement);
    const auto* exec = std::get_if<ExecStatement>(&parsed);
    if (exec != nullptr) {
      const ProcedureCall call = MatchProcedure(*exec, statement);
      if (call.procedure->writes) {
        Refresh(call, statement, progress);
        if (into != nullptr) into->Define({});
        return;
      }
    }
    // From here on, so that preparing a statement can be stopped as well.
    ProgressWatch watch(reader_.Handle(), progress);
    try {
      Read(parsed, statement, into, watch);
    } catch (const SqliteError&) {
      watch.Rethrow();
      throw;
    }
  } catch (const StatementError& error) {
    throw DatabaseError(error.what(), std::string(statement));
  } catch (const CompanyError& error) {
    throw DatabaseError(error.what(), std::string(statement));
  } catch (const SqliteError& error) {
    throw DatabaseError(PersianMessage(error), std::string(statement));
  } catch (const std::overflow_error&) {
    throw DatabaseError("حاصل از اندازه یک عدد بزرگتر است.", std::string(statement));
  } catch (const std::domain_error&) {
    throw DatabaseError("تقسیم بر صفر ممکن نیست.", std::string(statement));
  } catch (const Cancelled&) {
    throw StatementCancelled("کار به خواست کاربر متوقف شد.", std::string(statement));
  }
}

void EmbeddedConnection::Read(const ParsedStatement& parsed, std::string_view statement, RowStore* into,
                              ProgressWatch& watch) {
  if (into != nullptr) watch.Fills(*into);
  if (const auto* exec = std::get_if<ExecStatement>(&parsed)) {
    const ProcedureCall call = MatchProcedure(*exec, statement);
    RowStore dropped;
    ReadProcedure(call, into != nullptr ? *into : dropped, watch);
    ForgetOtherStates();
    if (into != nullptr && SameText(call.procedure->name, "Kardex_Proc")) {
      figures_.Keep(IntegerArgument(call, "@GoodCode"), *into);
    }
    return;
  }
  const auto& asked = std::get<QueryStatement>(parsed);
  const TranslatedQuery query = TranslateQuery(asked, catalog_, statement);
  if (into != nullptr && AnswerFromCard(asked, query.columns, *into)) return;
  Statement prepared = reader_.Prepare(query.sql);
  if (into == nullptr) return DropRows(prepared, watch);
  DefineColumns(*into, query.columns, prepared);
  ReadRows(prepared, {}, *into, watch);
  into->Finish();
  ForgetOtherStates();
  answers_.Keep(statement, *into);
}

void EmbeddedConnection::ReadProcedure(const ProcedureCall& call, RowStore& into, ProgressWatch& watch) {
  const Procedure& procedure = *call.procedure;
  const bool divided = IsDivided(call);
  const std::string body = procedure.native ? "" : BodyOf(call, divided ? OfGoods::Range : OfGoods::All);
  const auto work = [&](Database& db) -> DividedReading::RangeReader {
    if (procedure.native) {
      return
          [&, native = NativeBodyOf(procedure)](const GoodRange& goods, RowStore& rows, ProgressWatch& own) {
            native(db, call, goods, rows, own);
          };
    }
    const auto prepared = std::make_shared<Statement>(db.Prepare(body));
    BindParameters(*prepared, call);
    return [&, prepared](const GoodRange& goods, RowStore& rows, ProgressWatch& own) {
      prepared->Reset();
      if (divided) BindGoods(*prepared, goods);
      DefineColumns(rows, procedure.columns, *prepared);
      ReadRows(*prepared, procedure.derived, rows, own);
    };
  };
  if (divided) return divided_.Read(work, into, watch);
  work(reader_)({}, into, watch);
  into.Finish();
}

void EmbeddedConnection::ForgetOtherStates() {
  const std::uint32_t state = reader_.DataVersion();
  if (std::exchange(keptState_, state) == state) return;
  answers_.Forget();
  figures_.Forget();
}

void EmbeddedConnection::LookAtFile() {
  look_.Step();
  look_.Reset();
  ForgetOtherStates();
}

bool EmbeddedConnection::AnswerKept(std::string_view statement, RowStore& into) {
  if (answers_.Find(statement) == nullptr) return false;
  LookAtFile();
  const RowStore* kept = answers_.Find(statement);
  if (kept == nullptr) return false;
  into = kept->Head(kept->Count());
  return true;
}

bool EmbeddedConnection::AnswerFromCard(const QueryStatement& query, const std::vector<ColumnInfo>& columns,
                                        RowStore& into) {
  const std::optional<FiguresQuestion> question = AskedFigures(query);
  if (!question || !figures_.Holds(question->good)) return false;
  LookAtFile();
  if (!figures_.Holds(question->good)) return false;
  const CardFigures::Sums sums = figures_.Before(*question);
  into.Define(columns);
  into.ColumnAt(0).AppendDecimal(sums.incoming);
  into.ColumnAt(1).AppendDecimal(sums.outgoing);
  into.EndRow();
  into.Finish();
  return true;
}

void EmbeddedConnection::Refresh(const ProcedureCall& call, std::string_view statement,
                                 IStatementProgress* progress) {
  if (!writable_) {
    throw DatabaseError("فایل شرکت فقط خواندنی است و چیزی در آن نوشته نمی شود.", std::string(statement));
  }
  if (!writer_) {
    writer_ = OpenCompanyDatabase(path_, SQLITE_OPEN_READWRITE, Access::Write);
    // Between looking and opening another file may have come to this place.
    if (reader_.WasMoved()) {
      writer_.reset();
      throw DatabaseError(kMovedMessage, std::string(statement));
    }
  }
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
