#include "company/writer/resting_company.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "company/company.h"
#include "company/files/file_error.h"
#include "company/files/file_layer.h"
#include "company/files/file_path.h"

namespace goods {

namespace {

namespace fs = std::filesystem;

// What SQLite keeps beside a database while it works.
std::vector<std::string> Leftovers(const std::string& path) {
  std::vector<std::string> found;
  std::error_code error;
  for (const char* ending : {"-journal", "-wal", "-shm"}) {
    if (fs::symlink_status(PathOf(path + ending), error).type() != fs::file_type::not_found)
      found.push_back(path + ending);
  }
  return found;
}

[[noreturn]] void Refuse(const std::string& leftover) {
  throw CompanyError("کنار این فایل بازمانده کاری نیمه تمام هست. آن را پیش از این کار از آنجا بردارید: " +
                     leftover);
}

}  // namespace

RestingCompany::RestingCompany(const std::string& path, bool replace) {
  std::error_code error;
  if (!fs::exists(PathOf(path), error) || fs::file_size(PathOf(path), error) == 0) {
    for (const std::string& leftover : Leftovers(path)) {
      if (!replace || !fs::remove(PathOf(leftover), error)) Refuse(leftover);
    }
    return;
  }
  try {
    db_.emplace(path, SQLITE_OPEN_READWRITE);
    // Opening has undone what was half done. A log is written back and given up.
    db_->AskText("PRAGMA journal_mode = DELETE");
    lock_.emplace(*db_, "BEGIN EXCLUSIVE");
  } catch (const SqliteError& failure) {
    lock_.reset();
    db_.reset();
    // A file that is no database, or a damaged one, may be replaced; a company that somebody works with may
    // not.
    const bool inUse = failure.Code() == SQLITE_BUSY || failure.Code() == SQLITE_LOCKED;
    if (inUse) throw CompanyError(PersianMessage(failure) + " (" + path + ")");
  }
  for (const std::string& leftover : Leftovers(path)) {
    // With the lock in hand: a journal that was worth anything has been played back, this one holds nothing.
    const bool spent =
        lock_ && leftover.ends_with("-journal") && fs::is_regular_file(PathOf(leftover), error);
    if (!spent || !fs::remove(PathOf(leftover), error)) Refuse(leftover);
  }
  // There the system holds off the replacing itself, as long as anybody has the company open, us included.
  if (!FileLayer::ReplacesOpenFiles()) {
    lock_.reset();
    db_.reset();
  }
}

}  // namespace goods
