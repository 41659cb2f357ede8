#include "company/interchange/import_company.h"

#include <optional>
#include <utility>

#include "company/embedded/users.h"
#include "company/interchange/first_password.h"
#include "company/interchange/movement_import.h"
#include "company/interchange/table_import.h"
#include "company/writer/company_adder.h"
#include "company/writer/company_writer.h"

namespace goods {

namespace {

// The company's title from its own file.
std::string ReadTitle(const ImportSession& session) {
  TableReader reader(session.source, kCompanyFile, CompanyTitles());
  if (!reader.Open(false) || !reader.Next()) return "";
  return std::string(reader.Field(0));
}

void ReadTables(ImportSession& session) {
  for (const CompanyTable& table : CompanyTables()) {
    const bool ofUsers = table.entity == Entity::User || std::string_view(table.table) == "UserRights";
    if (session.adding && ofUsers) continue;
    TableImport(session, table).Run();
    if (table.entity == Entity::Group && session.Made(Entity::Group) && !session.adding) {
      session.db.Run("INSERT INTO GoodGrps(Code, Name) VALUES(0, 'کلیه گروه ها')");
      session.Book(Entity::Group).Add(0);
    }
  }
  ReadGoodCodes(session, kGoodTagsFile, kGoodTagColumn, Entity::Tag, "Tags");
  ReadGoodCodes(session, kGoodCategoriesFile, kGoodCategoryColumn, Entity::Category, "category_code");
}

const char* Reason(Unattached::Kind kind) {
  switch (kind) {
    case Unattached::Kind::DetailWithoutMovement:
      return "کالای این ترکیب گردشی با این ترتیب ندارد";
    case Unattached::Kind::RepeatedDetail:
      return "این ترکیب برای این گردش تکراری است";
    case Unattached::Kind::RemarkWithoutDocument:
      return "سندی با این نوع و شماره نیست";
  }
  return "";
}

// Reads everything that the files hold. What is found out once the movements are put in order is refused too.
class WholeImport {
 public:
  WholeImport(ImportSession& session, const MovementKinds& kinds)
      : session_(session),
        movements_(session, kinds, hash_),
        details_(DetailMovementsReader(session)),
        remarks_(RemarksReader(session)) {}

  void Read() {
    ReadTables(session_);
    movements_.Run();
    ReadDetailMovements(session_, details_);
    ReadRemarks(session_, remarks_);
  }
  void RefuseKnownDocuments() const { movements_.RefuseKnownDocuments(); }

  void Refuse(const Unattached& row) const {
    const bool remark = row.kind == Unattached::Kind::RemarkWithoutDocument;
    (remark ? remarks_ : details_).RefuseLine(row.tag, Reason(row.kind));
  }

  // Empty without movements.
  std::string BatchText() { return hash_.Movements() > 0 ? hash_.Text() : ""; }

 private:
  ImportSession& session_;
  BatchHash hash_;
  MovementImport movements_;
  TableReader details_;
  TableReader remarks_;
};

void NoteBatch(Database& db, const std::string& batch, std::int64_t movements) {
  if (batch.empty()) return;
  Statement note = db.Prepare(
      "INSERT INTO Batches(Hash, AddedAt, Movements) VALUES(?1, strftime('%Y-%m-%dT%H:%M:%SZ', 'now'), ?2)");
  note.Bind(1, std::string_view(batch));
  note.Bind(2, movements);
  note.Run();
}

void RefuseKnownBatch(Database& db, const std::string& batch) {
  Statement known = db.Prepare("SELECT AddedAt FROM Batches WHERE Hash = ?1");
  known.Bind(1, std::string_view(batch));
  if (known.Step()) {
    throw CompanyError("همین گردش ها پیش از این (" + std::string(known.Text(0)) +
                       ") به شرکت افزوده شده اند و دوباره افزوده نشدند.");
  }
}

ImportCounts Counts(ImportSession& session) {
  ImportCounts counts;
  counts.goods = static_cast<std::size_t>(session.Count(Entity::Good));
  counts.stores = static_cast<std::size_t>(session.Count(Entity::Store));
  counts.persons = static_cast<std::size_t>(session.Count(Entity::Person));
  counts.movements = static_cast<std::size_t>(session.movements);
  return counts;
}

template <typename Body>
ImportCounts WithPersianErrors(const std::string& path, Body body) {
  try {
    return body();
  } catch (const SqliteError& failure) {
    throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  }
}

}  // namespace

ImportCounts ImportCompany(const std::string& path, const std::string& from, const ImportOptions& options) {
  if (!options.firstPassword.empty())
    CheckPassword("", options.firstPassword);  // now, not after all the work
  const DataFolder folder(from, options.names);
  ImportProblems problems;
  return WithPersianErrors(path, [&] {
    CompanyWriter writer(path, options.replace, options.watcher);
    ImportSession session({folder, options.names, problems, options.watcher}, writer.Tables(),
                          writer.Intake());
    session.unsignedQuantities = options.unsignedQuantities;
    session.db.Run("INSERT INTO Units(Code, Name) VALUES(0, '')");
    session.Book(Entity::Unit).Add(0);
    std::string title = options.title.empty() ? ReadTitle(session) : options.title;
    if (title.empty()) title = folder.Title();
    writer.SetTitle(title);
    const MovementKinds kinds(session.db);
    WholeImport import(session, kinds);
    import.Read();
    problems.ThrowIfAny();
    writer.WriteMovements([&](const Unattached& row) { import.Refuse(row); });
    problems.ThrowIfAny();
    ImportCounts counts = Counts(session);
    SetFirstPassword(session.db, options.firstPassword, counts);
    NoteBatch(session.db, import.BatchText(), session.movements);
    writer.Finish();
    return counts;
  });
}

ImportCounts AddToCompany(const std::string& path, const std::string& from, const AddOptions& options) {
  const DataFolder folder(from, options.names);
  ImportProblems problems;
  return WithPersianErrors(path, [&] {
    CompanyAdder adder(path, options.watcher);
    ImportSession session({folder, options.names, problems, options.watcher}, adder.Tables(), adder.Intake());
    session.adding = true;
    session.unsignedQuantities = options.unsignedQuantities;
    session.hasDocument = [&](std::int64_t kind, std::int64_t number) {
      return adder.HasDocument(kind, number);
    };
    session.touchGood = [&](std::int64_t good) { adder.TouchGood(good); };
    LoadBooks(session);
    const MovementKinds kinds(session.db);
    WholeImport import(session, kinds);
    import.Read();
    problems.ThrowIfAny();
    const std::string batch = import.BatchText();
    RefuseKnownBatch(session.db, batch);
    import.RefuseKnownDocuments();
    problems.ThrowIfAny();
    adder.WriteMovements([&](const Unattached& row) { import.Refuse(row); });
    problems.ThrowIfAny();
    NoteBatch(session.db, batch, session.movements);
    adder.Finish();
    return Counts(session);
  });
}

}  // namespace goods
