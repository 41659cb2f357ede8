// WholeFile: a file that is written whole or not at all. Everything that the programs write goes through it:
// companies, exports, settings, layouts, backups.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "company/files/file_error.h"
#include "company/files/file_layer.h"
#include "company/files/target_path.h"

namespace goods {

struct WholeFileOptions {
  // False: a file that is there, or that appears while this one is written, is refused and stays.
  bool replace = true;
  // True: only its owner may read and write the file. Else it has the permissions of the file that it
  // replaces, and those of any new file when it is new.
  bool ownerOnly = false;
  // Files that must never be written, such as the company that is open: under no other name and through no
  // link. A database's -journal, -wal and -shm are meant with it. Need not exist; empty paths are passed
  // over.
  std::vector<std::string> forbidden = {};
  // False: no database is ever replaced, be it a company or not. True for what writes databases itself.
  bool overDatabases = false;
  // How long to wait for another writer of the same file before it is refused as InUse.
  std::chrono::milliseconds patience{2000};
  // The calls of the system; a test gives its own, which must outlive the file. Null: FileLayer::System().
  FileLayer* layer = nullptr;
};

// Writes into a file of its own beside the target and moves it there at the end, so that at every moment, a
// power cut included, the target is the old file or the new one, whole. Whatever fails throws FileError,
// leaves the target as it was and no file behind. What a killed program left is removed by the next writer of
// the same target.
//
//   WholeFile file(path, {.forbidden = {company}});
//   file.Write(text);
//   file.Commit();
//
// A symbolic link as target is followed and stays, unless somebody else put it there (see FindTarget). Of two
// writers of one target the second waits, then is refused. One object is used by one thread at a time.
class WholeFile {
 public:
  // Refuses what cannot be a target before anything is written, and makes the temporary file. path is UTF-8.
  explicit WholeFile(std::string path, WholeFileOptions options = {});
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;
  // Not committed: the target stays and the temporary file goes.
  ~WholeFile();

  // Appends. Kept in memory up to 64 KB, so an error may come with a later call; after an error only the same
  // error comes.
  void Write(std::string_view bytes);

  // The file that is being written, for libraries that write by name (a database, a spreadsheet). They must
  // write into this very file (not another one moved over it) and have closed it before Commit; it is there
  // and empty at first. Not to be mixed with Write.
  const std::string& TemporaryPath() const { return temporary_; }
  // Where the file will be: the path with its links followed.
  const std::string& TargetPath() const { return target_.path; }

  // Flushes the file, moves it into place and flushes the folder; once. When flushing the folder fails the
  // new file is in place, whole, but a power cut may still bring the old one back: that throws as well.
  void Commit();

 private:
  void MakeTemporary();
  // Makes the file and takes its lock, unless another writer is at work.
  bool TryMakeTemporary();
  // Removes what killed writers left; true when a living one is found.
  bool AnotherWriterIsAtWork();
  void WriteOut(std::string_view bytes);
  void CheckStillOurs();
  void MoveIntoPlace();
  void Discard() noexcept;
  [[noreturn]] void Fail(int systemError);

  WholeFileOptions options_;
  FileLayer& layer_;
  std::string path_;  // as it was given, for messages
  Target target_;
  std::string temporary_;
  FileHandle handle_;
  FileState identity_;
  std::string buffer_;
  bool failed_ = false;
  bool finished_ = false;
  int error_ = 0;
};

// The contents in one call.
void WriteWholeFile(const std::string& path, std::string_view contents, WholeFileOptions options = {});

}  // namespace goods
