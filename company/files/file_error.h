// A file that could not be written or read, told in Persian.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace goods {

// Why a file was refused or not written.
enum class FileProblem {
  Missing,      // to be read, and not there
  NoFolder,     // the folder that it belongs into is not there
  Exists,       // there, and not to be replaced
  Folder,       // the path names a folder
  NotRegular,   // a pipe, a socket or a device
  ReadOnly,     // marked read-only by its owner
  Forbidden,    // one of the files that must not be written, such as the open company
  Database,     // a database, in the place of something else
  ForeignLink,  // a symbolic link that somebody else put there
  InUse,        // being written by another program
  NoSpace,      // the disk or the quota is full
  NoAccess,     // the system does not allow it
  TooLarge,     // to be read, and larger than the limit
  Lost,         // what was written is no longer there under its name
  Failed        // anything else
};

// what() is one Persian sentence with the path, meant for the user; it holds no text of the system.
class FileError : public std::runtime_error {
 public:
  // systemError: errno, or 0 when no call failed.
  FileError(FileProblem problem, const std::string& path, int systemError = 0);
  ~FileError() override;
  FileProblem Problem() const { return problem_; }
  int SystemError() const { return systemError_; }

 private:
  FileProblem problem_;
  int systemError_;
};

// The problem that an errno of a failed write, flush or rename stands for.
FileProblem ProblemOf(int systemError);

}  // namespace goods
