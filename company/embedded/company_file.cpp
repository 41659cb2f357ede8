#include "company/embedded/company_file.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "company/company.h"
#include "company/embedded/company_schema.h"
#include "company/embedded/embedded_sql.h"
#include "company/embedded/packed_movements.h"
#include "company/embedded/row_reader.h"
#include "company/files/file_path.h"

namespace goods {

namespace {

namespace fs = std::filesystem;

struct Header {
  std::uint32_t pageSize = 0;
  std::uint32_t pages = 0;
  bool pagesKnown = false;  // an old writer leaves the count stale
  std::int32_t applicationId = 0;
  std::int32_t version = 0;
};

std::uint32_t BigEndian(const unsigned char* bytes) {
  return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
         static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
}

// The first 100 bytes of a SQLite file, read as plain bytes so that looking at a foreign file cannot touch
// it.
Header ReadHeader(const fs::path& path) {
  std::array<unsigned char, 100> bytes{};
  std::ifstream file(path, std::ios::binary);
  if (!file) throw CompanyError("فایل شرکت باز نشد: " + path.string());
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (file.gcount() != static_cast<std::streamsize>(bytes.size()) ||
      std::memcmp(bytes.data(), "SQLite format 3", 16) != 0) {
    throw CompanyError("این فایل یک شرکت نیست: " + path.string());
  }
  Header header;
  header.pageSize = static_cast<std::uint32_t>(bytes[16]) << 8 | bytes[17];
  if (header.pageSize == 1) header.pageSize = 65536;
  header.pages = BigEndian(&bytes[28]);
  header.pagesKnown = header.pages > 0 && std::memcmp(&bytes[24], &bytes[92], 4) == 0;
  header.version = static_cast<std::int32_t>(BigEndian(&bytes[60]));
  header.applicationId = static_cast<std::int32_t>(BigEndian(&bytes[68]));
  return header;
}

// The one who marked the file read-only is obeyed even where the system would let us write.
bool MarkedReadOnly(const fs::path& path) {
  const fs::perms permissions = fs::status(path).permissions();
  return (permissions & (fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write)) ==
         fs::perms::none;
}

struct UpgradeStep {
  int from;
  std::string_view sql;
  void (*work)(Database& db) = nullptr;  // after it
};

// Each step leads from its version to the next. A step is never changed once it has been delivered.
constexpr UpgradeStep kUpgradeSteps[] = {
    // Version 1 looked for a document's rows through the whole stock card and kept no consumer price.
    {1,
     "CREATE INDEX Kardex_ByDocument ON Kardex(Type, OperationCode);"
     "CREATE INDEX DetailKardex_ByDocument ON DetailKardex(Type, OperationCode);"
     "ALTER TABLE GoodInf ADD COLUMN ConsumerPrice DECIMAL NOT NULL DEFAULT 0;"},
    // Version 2 kept of a good in a store the remainder alone.
    {2,
     "ALTER TABLE GoodStoreStock ADD COLUMN varede DECIMAL NOT NULL DEFAULT 0;"
     "ALTER TABLE GoodStoreStock ADD COLUMN sadere DECIMAL NOT NULL DEFAULT 0;"
     "ALTER TABLE GoodStoreStock ADD COLUMN OperationDate TEXT NOT NULL DEFAULT '';"
     "DELETE FROM GoodStoreStock;"
     "INSERT INTO GoodStoreStock(Kala, Anbar, Mogodi, varede, sadere, OperationDate)"
     " SELECT Kala, Anbar, dec_sum(Tedad), dec_sum(max(Tedad, 0)), dec_sum(max(-Tedad, 0)), max(Date)"
     " FROM Kardex GROUP BY Kala, Anbar;"},
    // Version 3 looked for a combination's movements through all of its good's.
    {3, "CREATE INDEX DetailKardex_ByValue ON DetailKardex(DetailValueID, Anbar, Type, Amount1);"},
    // Version 4 had no short names of stores and persons, and did not know which files it had taken in.
    {4,
     "ALTER TABLE Stores ADD COLUMN AbbName TEXT NOT NULL DEFAULT '';"
     "ALTER TABLE Persons ADD COLUMN AbbName TEXT NOT NULL DEFAULT '';"
     "CREATE TABLE Batches(Hash TEXT PRIMARY KEY, AddedAt TEXT NOT NULL, Movements INTEGER NOT NULL) WITHOUT "
     "ROWID;"},
    // Version 5 knew prices by the rights to stock values alone, and counted no failed sign-ins.
    {5,
     "ALTER TABLE Users ADD COLUMN SeesPrices INTEGER NOT NULL DEFAULT 1;"
     "UPDATE Users SET SeesPrices = EveryRight <> 0 OR EXISTS("
     " SELECT 1 FROM UserRights r WHERE r.UserCode = Users.Code AND r.Permission IN (24, 5021));"
     "CREATE TABLE SignInFailures("
     " Login TEXT PRIMARY KEY, Failures INTEGER NOT NULL, LastFailure INTEGER NOT NULL) WITHOUT ROWID;"},
    // Version 6 read a period's movements out of the rows of the stock card.
    {6, "CREATE TABLE PackedMovements(Place INTEGER PRIMARY KEY, Data BLOB NOT NULL);", PackEveryGood},
};

void Upgrade(Database& db) {
  Transaction transaction(db);
  // Nothing that came between looking at the file and locking it; another program may have upgraded it.
  const auto version = static_cast<int>(db.AskInteger("PRAGMA user_version"));
  CheckCompanySchema(db, version == kCompanySchemaVersion);
  for (const UpgradeStep& step : kUpgradeSteps) {
    if (step.from < version) continue;
    db.Run(step.sql);
    if (step.work != nullptr) step.work(db);
    db.Run("PRAGMA user_version = " + std::to_string(step.from + 1));
  }
  CheckCompanySchema(db, true);
  transaction.Commit();
}

void CheckTables(Database& db) {
  for (const char* table : {"Kardex", "GoodInf", "GoodInf_VW", "Stores", "Persons", "Users", "Meta"}) {
    db.Prepare(std::string("SELECT * FROM ") + table + " LIMIT 1").Step();
  }
}

Database OpenDatabase(const std::string& path, int flags) {
  try {
    return Database(path, flags);
  } catch (const SqliteError& failure) {
    throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  }
}

// Looking at a company takes a few thousand; a second or so for who made the file to keep us busy.
constexpr std::uint64_t kInstructionsToLook = 5'000'000;

// Runs body on the handle; what fails becomes a CompanyError that names the file.
template <typename Body>
void Watched(Database& db, const std::string& path, IStatementProgress* progress,
             std::uint64_t mostInstructions, Body body) {
  ProgressWatch watch(db.Handle(), progress, mostInstructions);
  try {
    body();
  } catch (const SqliteError& failure) {
    try {
      watch.Rethrow();
    } catch (const Cancelled&) {
      throw OpeningCancelled("باز کردن شرکت به خواست کاربر متوقف شد: " + path);
    }
    throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  }
}

}  // namespace

void CreateCompanySchema(Database& db) {
  db.Run("PRAGMA application_id = " + std::to_string(kCompanyApplicationId));
  db.Run("PRAGMA user_version = " + std::to_string(kCompanySchemaVersion));
  db.Run(SchemaSql());
}

void CreateCompanyIndexes(Database& db) { db.Run(IndexesSql()); }

bool PrepareCompanyFile(const std::string& path, IStatementProgress* progress) {
  const fs::path file = PathOf(path);
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (!fs::exists(status)) throw CompanyError("فایل شرکت پیدا نشد: " + path);
  if (!fs::is_regular_file(status)) throw CompanyError("این مسیر یک فایل شرکت نیست: " + path);

  const Header header = ReadHeader(file);
  if (header.applicationId != kCompanyApplicationId) throw CompanyError("این فایل یک شرکت نیست: " + path);
  if (header.version > kCompanySchemaVersion) {
    throw CompanyError("این شرکت با نسخه تازه تری از برنامه ساخته شده است و با این نسخه باز نمی شود: " +
                       path);
  }
  if (header.version < 1) throw CompanyError("نسخه این فایل شرکت شناخته نیست: " + path);
  // While another program is writing, or after it was stopped, the journal tells the true length.
  const bool journal = fs::exists(PathOf(path + "-journal"), error);
  if (!journal && header.pagesKnown &&
      fs::file_size(file) < static_cast<std::uintmax_t>(header.pages) * header.pageSize) {
    throw CompanyError("فایل شرکت ناقص است (بخشی از آن بریده شده): " + path);
  }
  const bool writable = !MarkedReadOnly(file);
  if (!writable && header.version < kCompanySchemaVersion) {
    throw CompanyError("این شرکت باید به نسخه تازه برده شود، اما فایل آن فقط خواندنی است: " + path);
  }
  Database db = OpenDatabase(path, writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY);
  const bool current = header.version == kCompanySchemaVersion;
  Watched(db, path, progress, kInstructionsToLook, [&] { CheckCompanySchema(db, current); });
  if (!current) Watched(db, path, progress, 0, [&] { Upgrade(db); });
  Watched(db, path, progress, kInstructionsToLook, [&] { CheckTables(db); });
  return writable;
}

Database OpenCompanyDatabase(const std::string& path, int flags, Access access) {
  Database db = OpenDatabase(path, flags);
  Watched(db, path, nullptr, kInstructionsToLook, [&] { CheckCompanySchema(db, true); });
  db.SetAccess(access);
  return db;
}

}  // namespace goods
