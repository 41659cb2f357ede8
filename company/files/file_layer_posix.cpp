// The calls of POSIX that files are written with; for Windows file_layer_win32.cpp.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "company/files/file_layer.h"

namespace goods {

namespace {

// Runs a call until no signal interrupts it; -1 is its failure.
template <typename Call>
auto Uninterrupted(Call call) -> decltype(call()) {
  for (;;) {
    const auto result = call();
    if (result != -1 || errno != EINTR) return result;
  }
}

int ErrorOf(int result) { return result == -1 ? errno : 0; }

int OpenAt(const std::string& path, int flags, std::uint32_t permissions, int& handle) {
  handle = Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, permissions); });
  return ErrorOf(handle);
}

FileState StateFrom(const struct stat& status) {
  FileState state;
  state.kind = S_ISREG(status.st_mode)   ? FileKind::Regular
               : S_ISDIR(status.st_mode) ? FileKind::Folder
               : S_ISLNK(status.st_mode) ? FileKind::Link
                                         : FileKind::Other;
  state.device = status.st_dev;
  state.inode = status.st_ino;
  state.size = status.st_size > 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
  state.permissions = static_cast<std::uint32_t>(status.st_mode) & 0777U;
  state.owner = status.st_uid;
  return state;
}

}  // namespace

std::string_view FileLayer::Separators() { return "/"; }

bool FileLayer::ReplacesOpenFiles() { return true; }

int FileLayer::Look(const std::string& path, bool followLinks, FileState& state) {
  state = {};
  struct stat status {};
  const int result = followLinks ? ::stat(path.c_str(), &status) : ::lstat(path.c_str(), &status);
  if (result == -1) return errno == ENOENT ? 0 : errno;
  state = StateFrom(status);
  return 0;
}

int FileLayer::LookAt(int handle, FileState& state) {
  state = {};
  struct stat status {};
  if (::fstat(handle, &status) == -1) return errno;
  state = StateFrom(status);
  return 0;
}

int FileLayer::ReadLink(const std::string& path, std::string& target) {
  target.assign(4096, '\0');
  const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
  if (length == -1) return errno;
  if (static_cast<std::size_t>(length) == target.size()) return ENAMETOOLONG;
  target.resize(static_cast<std::size_t>(length));
  return 0;
}

int FileLayer::List(const std::string& folder, std::vector<std::string>& names) {
  names.clear();
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
  if (open == nullptr) return errno;
  for (;;) {
    errno = 0;
    const dirent* entry = ::readdir(open.get());
    if (entry == nullptr) return errno;
    names.emplace_back(entry->d_name);
  }
}

std::uint32_t FileLayer::User() { return ::geteuid(); }

bool FileLayer::MayWrite(const std::string& path) {
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

int FileLayer::Create(const std::string& path, std::uint32_t permissions, int& handle) {
  return OpenAt(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, permissions, handle);
}

int FileLayer::OpenToRead(const std::string& path, bool followLinks, int& handle) {
  return OpenAt(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | (followLinks ? 0 : O_NOFOLLOW), 0, handle);
}

int FileLayer::OpenToAppend(const std::string& path, std::uint32_t permissions, int& handle) {
  return OpenAt(path, O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, permissions,
                handle);
}

int FileLayer::OpenFolder(const std::string& path, int& handle) {
  return OpenAt(path, O_RDONLY | O_DIRECTORY, 0, handle);
}

int FileLayer::TryLock(int handle, bool& taken) {
  const int result = Uninterrupted([&] { return ::flock(handle, LOCK_EX | LOCK_NB); });
  taken = result == 0;
  return !taken && errno != EWOULDBLOCK ? errno : 0;
}

int FileLayer::Read(int handle, char* into, std::size_t size, std::size_t& read) {
  const ssize_t result = Uninterrupted([&] { return ::read(handle, into, size); });
  read = result > 0 ? static_cast<std::size_t>(result) : 0;
  return result == -1 ? errno : 0;
}

int FileLayer::Write(int handle, std::string_view bytes, std::size_t& written) {
  const ssize_t result = Uninterrupted([&] { return ::write(handle, bytes.data(), bytes.size()); });
  written = result > 0 ? static_cast<std::size_t>(result) : 0;
  return result == -1 ? errno : 0;
}

int FileLayer::Truncate(int handle, std::uint64_t size) {
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
  return ErrorOf(
      Uninterrupted([&] { return ::ftruncate(handle, static_cast<off_t>(std::min(size, kMost))); }));
}

int FileLayer::SetPermissions(int handle, std::uint32_t permissions) {
  return ErrorOf(::fchmod(handle, permissions));
}

int FileLayer::Flush(int handle) {
  return ErrorOf(Uninterrupted([&] { return ::fsync(handle); }));
}

// Not repeated: after an interrupted close the handle is gone all the same.
int FileLayer::Close(int handle) {
  const int error = ErrorOf(::close(handle));
  return error == EINTR ? 0 : error;
}

int FileLayer::Rename(const std::string& from, const std::string& to, bool replace) {
  if (replace) return ErrorOf(::rename(from.c_str(), to.c_str()));
  const int error = ErrorOf(::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE));
  if (error != EINVAL && error != ENOSYS) return error;
  // A file system without that call: a second name for the file fails in the same way when the name is taken.
  if (::link(from.c_str(), to.c_str()) == 0) return ErrorOf(::unlink(from.c_str()));
  if (errno != EPERM && errno != EOPNOTSUPP) return errno;
  // One without links as well, such as a memory stick's: look, then rename.
  FileState there;
  if (const int failed = Look(to, false, there); failed != 0) return failed;
  return there.kind == FileKind::None ? ErrorOf(::rename(from.c_str(), to.c_str())) : EEXIST;
}

int FileLayer::Remove(const std::string& path) { return ErrorOf(::unlink(path.c_str())); }

}  // namespace goods
