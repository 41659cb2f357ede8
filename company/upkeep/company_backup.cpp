#include "company/upkeep/company_backup.h"

#include "company/company.h"
#include "company/embedded/company_file.h"
#include "company/files/whole_file.h"
#include "company/writer/resting_company.h"

namespace goods {

namespace {

constexpr int kPages = 2048;  // a step
constexpr int kWaitMilliseconds = 50;
constexpr int kMostWaits = 200;

void CopyPages(Database& from, Database& to, const WorkWatcher& watcher) {
  WorkMeter meter(watcher, "رونوشت از شرکت", from.AskInteger("PRAGMA page_count"));
  sqlite3_backup* copy = sqlite3_backup_init(to.Handle(), "main", from.Handle(), "main");
  if (copy == nullptr) throw SqliteError(sqlite3_errcode(to.Handle()), sqlite3_errmsg(to.Handle()));
  int code = SQLITE_OK;
  try {
    for (int waits = 0; code != SQLITE_DONE;) {
      code = sqlite3_backup_step(copy, kPages);
      if (code == SQLITE_BUSY || code == SQLITE_LOCKED) {
        if (++waits > kMostWaits) break;
        sqlite3_sleep(kWaitMilliseconds);
      } else if (code != SQLITE_OK && code != SQLITE_DONE) {
        break;
      }
      meter.Reach(sqlite3_backup_pagecount(copy) - sqlite3_backup_remaining(copy));
    }
  } catch (...) {
    sqlite3_backup_finish(copy);
    throw;
  }
  sqlite3_backup_finish(copy);
  if (code != SQLITE_DONE) throw SqliteError(code & 0xff, sqlite3_errstr(code));
  meter.End();
}

}  // namespace

void BackUpCompany(const std::string& path, const std::string& to, const BackupOptions& options) {
  PrepareCompanyFile(path);
  WholeFile file(to,
                 {.replace = options.replace, .ownerOnly = true, .forbidden = {path}, .overDatabases = true});
  { const RestingCompany old(file.TargetPath(), options.replace); }
  try {
    RunStoppable([&] {
      Database from(path, SQLITE_OPEN_READONLY);
      Database copy(file.TemporaryPath(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
      copy.Run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
      // One state: whoever writes meanwhile waits, or is seen whole.
      from.Run("BEGIN");
      from.AskInteger("SELECT count(*) FROM Meta");
      CopyPages(from, copy, options.watcher);
      const WatchedStatements watched(copy, options.watcher, "بررسی رونوشت");
      if (copy.AskText("PRAGMA integrity_check(1)") != "ok") {
        throw CompanyError(
            "رونوشت درست نیست و نگه داشته نشد؛ فایل شرکت را با goods-company check بررسی کنید: " + path);
      }
    });
  } catch (const SqliteError& failure) {
    throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  }
  const RestingCompany old(file.TargetPath(), options.replace);
  file.Commit();
}

}  // namespace goods
