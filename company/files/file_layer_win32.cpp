// The calls of Windows that files are written with; everywhere else it is file_layer_posix.cpp.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "company/files/file_layer.h"

namespace goods {

namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kLongestPath = 32768;  // characters of UTF-16

// Locks hold off whoever reads or writes the same bytes, so the one byte lies where no file reaches.
constexpr DWORD kLockLow = 0xfffffffe;
constexpr DWORD kLockHigh = 0x7fffffff;

int ErrorFrom(DWORD code) {
  switch (code) {
    case ERROR_SUCCESS:
      return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
      return EACCES;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return EBUSY;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    case ERROR_TOO_MANY_OPEN_FILES:
      return EMFILE;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return ENOMEM;
    case ERROR_INVALID_HANDLE:
      return EBADF;
    default:
      return EIO;
  }
}

int LastError() { return ErrorFrom(GetLastError()); }
int ErrorUnless(BOOL done) { return done != 0 ? 0 : LastError(); }

// What follows the drive. A colon elsewhere would name a stream of a file, not a file.
std::size_t DriveEnd(std::wstring_view name) {
  constexpr std::wstring_view kLongName = L"\\\\?\\";
  const std::size_t drive = name.starts_with(kLongName) ? kLongName.size() : 0;
  return name.size() > drive + 1 && name[drive + 1] == L':' ? drive + 2 : drive;
}

// A name of UTF-8 as the system takes it; nothing when it is not UTF-8 or names no file.
std::optional<std::wstring> WideName(const std::string& text) {
  if (text.empty()) return std::wstring();
  if (text.size() > kLongestPath) return std::nullopt;
  const int size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
  if (length <= 0) return std::nullopt;
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), length);
  if (wide.find(L':', DriveEnd(wide)) != wide.npos) return std::nullopt;
  return wide;
}

std::string NarrowName(const wchar_t* text, std::size_t size) {
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(size), nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(std::max(length, 0)), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(size), narrow.data(), length, nullptr, nullptr);
  return narrow;
}

// A handle of the system that closes itself, unless it is handed on as a file descriptor.
class SystemHandle {
 public:
  explicit SystemHandle(HANDLE handle) : handle_(handle) {}
  SystemHandle(const SystemHandle&) = delete;
  SystemHandle& operator=(const SystemHandle&) = delete;
  ~SystemHandle() {
    if (IsOpen()) CloseHandle(handle_);
  }
  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }

  int ToDescriptor(int flags, int& descriptor) {
    descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle_), flags | _O_BINARY | _O_NOINHERIT);
    if (descriptor == -1) return EMFILE;
    handle_ = INVALID_HANDLE_VALUE;
    return 0;
  }

 private:
  HANDLE handle_;
};

HANDLE HandleOf(int descriptor) { return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); }

HANDLE OpenName(const std::wstring& name, DWORD access, DWORD how, bool followLinks) {
  // Folders open only with the first of the two.
  const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | (followLinks ? 0 : FILE_FLAG_OPEN_REPARSE_POINT);
  return CreateFileW(name.c_str(), access, kShared, nullptr, how, FILE_ATTRIBUTE_NORMAL | flags, nullptr);
}

bool IsLink(HANDLE handle, DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
  FILE_ATTRIBUTE_TAG_INFO info{};
  if (GetFileInformationByHandleEx(handle, FileAttributeTagInfo, &info, sizeof info) == 0) return false;
  return info.ReparseTag == IO_REPARSE_TAG_SYMLINK || info.ReparseTag == IO_REPARSE_TAG_MOUNT_POINT;
}

int LookAtHandle(HANDLE handle, FileState& state) {
  state = {};
  if (GetFileType(handle) != FILE_TYPE_DISK) {
    state.kind = FileKind::Other;
    return 0;
  }
  BY_HANDLE_FILE_INFORMATION info{};
  if (GetFileInformationByHandle(handle, &info) == 0) return LastError();
  state.kind = IsLink(handle, info.dwFileAttributes)                     ? FileKind::Link
               : (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::Folder
                                                                         : FileKind::Regular;
  state.device = info.dwVolumeSerialNumber;
  state.inode = std::uint64_t{info.nFileIndexHigh} << 32 | info.nFileIndexLow;
  state.size = std::uint64_t{info.nFileSizeHigh} << 32 | info.nFileSizeLow;
  state.permissions = (info.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0 ? 0444U : 0666U;
  return 0;
}

// After a failed call: the name belongs to a file that is open and removed.
bool RemovalIsPending() {
  constexpr unsigned long kDeletePending = 0xc0000056;
  using LastStatus = unsigned long(__stdcall*)();
  const FARPROC found = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetLastNtStatus");
  LastStatus status = nullptr;
  static_assert(sizeof status == sizeof found);
  std::memcpy(&status, &found, sizeof status);
  const DWORD code = GetLastError();
  const bool pending = status != nullptr && status() == kDeletePending;
  SetLastError(code);
  return pending;
}

OVERLAPPED LockPlace() {
  OVERLAPPED place{};
  place.Offset = kLockLow;
  place.OffsetHigh = kLockHigh;
  return place;
}

}  // namespace

std::string_view FileLayer::Separators() { return "/\\"; }

bool FileLayer::ReplacesOpenFiles() { return false; }

int FileLayer::Look(const std::string& path, bool followLinks, FileState& state) {
  state = {};
  const auto name = WideName(path);
  if (!name) return EILSEQ;
  const SystemHandle file(OpenName(*name, FILE_READ_ATTRIBUTES, OPEN_EXISTING, followLinks));
  if (file.IsOpen()) return LookAtHandle(file.Get(), state);
  const int error = LastError();
  return error == ENOENT ? 0 : error;
}

int FileLayer::LookAt(int handle, FileState& state) { return LookAtHandle(HandleOf(handle), state); }

// Where the link leads in the end, from the drive on.
int FileLayer::ReadLink(const std::string& path, std::string& target) {
  const auto name = WideName(path);
  if (!name) return EILSEQ;
  const SystemHandle file(OpenName(*name, FILE_READ_ATTRIBUTES, OPEN_EXISTING, true));
  if (!file.IsOpen()) return LastError();
  std::wstring place(kLongestPath, L'\0');
  const DWORD length =
      GetFinalPathNameByHandleW(file.Get(), place.data(), kLongestPath, FILE_NAME_NORMALIZED);
  if (length == 0) return LastError();
  if (length >= kLongestPath) return ENAMETOOLONG;
  target = NarrowName(place.data(), length);
  return 0;
}

int FileLayer::List(const std::string& folder, std::vector<std::string>& names) {
  names.clear();
  const auto pattern = WideName(folder + "/*");
  if (!pattern) return EILSEQ;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(pattern->c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return LastError();
  do {
    const std::wstring_view name(found.cFileName);
    names.push_back(NarrowName(name.data(), name.size()));
  } while (FindNextFileW(search, &found) != 0);
  const DWORD end = GetLastError();
  FindClose(search);
  return end == ERROR_NO_MORE_FILES ? 0 : ErrorFrom(end);
}

// Who owns a file is the access list's matter here: all files count as the same user's.
std::uint32_t FileLayer::User() { return 0; }

bool FileLayer::MayWrite(const std::string& path) {
  const auto name = WideName(path);
  if (!name) return false;
  const SystemHandle file(OpenName(*name, GENERIC_WRITE, OPEN_EXISTING, true));
  return file.IsOpen() || GetLastError() == ERROR_SHARING_VIOLATION;
}

// A new file has the access list of its folder; permissions cannot narrow it.
int FileLayer::Create(const std::string& path, std::uint32_t /*permissions*/, int& handle) {
  const auto name = WideName(path);
  if (!name) return EILSEQ;
  SystemHandle file(OpenName(*name, GENERIC_READ | GENERIC_WRITE, CREATE_NEW, false));
  if (file.IsOpen()) return file.ToDescriptor(_O_RDWR, handle);
  // A file that was removed keeps its name until everybody has closed it.
  return RemovalIsPending() ? EEXIST : LastError();
}

int FileLayer::OpenToRead(const std::string& path, bool followLinks, int& handle) {
  const auto name = WideName(path);
  if (!name) return EILSEQ;
  SystemHandle file(OpenName(*name, GENERIC_READ, OPEN_EXISTING, followLinks));
  if (!file.IsOpen()) return LastError();
  FileState state;
  if (const int error = LookAtHandle(file.Get(), state); error != 0) return error;
  return state.kind == FileKind::Link ? ELOOP : file.ToDescriptor(_O_RDONLY, handle);
}

int FileLayer::OpenToAppend(const std::string& path, std::uint32_t /*permissions*/, int& handle) {
  const auto name = WideName(path);
  if (!name) return EILSEQ;
  SystemHandle file(OpenName(*name, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, false));
  if (!file.IsOpen()) return LastError();
  FileState state;
  if (const int error = LookAtHandle(file.Get(), state); error != 0) return error;
  return state.kind == FileKind::Link ? ELOOP : file.ToDescriptor(_O_WRONLY | _O_APPEND, handle);
}

int FileLayer::OpenFolder(const std::string& path, int& handle) {
  const auto name = WideName(path);
  if (!name) return EILSEQ;
  SystemHandle folder(OpenName(*name, FILE_LIST_DIRECTORY, OPEN_EXISTING, true));
  if (!folder.IsOpen()) return LastError();
  FileState state;
  if (const int error = LookAtHandle(folder.Get(), state); error != 0) return error;
  return state.kind == FileKind::Folder ? folder.ToDescriptor(_O_RDONLY, handle) : ENOTDIR;
}

int FileLayer::TryLock(int handle, bool& taken) {
  OVERLAPPED place = LockPlace();
  taken =
      LockFileEx(HandleOf(handle), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
  if (taken) return 0;
  const DWORD code = GetLastError();
  return code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING ? 0 : ErrorFrom(code);
}

int FileLayer::Read(int handle, char* into, std::size_t size, std::size_t& read) {
  constexpr std::size_t kMost = std::numeric_limits<int>::max();
  const int result = ::_read(handle, into, static_cast<unsigned>(std::min(size, kMost)));
  read = result > 0 ? static_cast<std::size_t>(result) : 0;
  return result == -1 ? errno : 0;
}

int FileLayer::Write(int handle, std::string_view bytes, std::size_t& written) {
  constexpr std::size_t kMost = std::numeric_limits<int>::max();
  const int result = ::_write(handle, bytes.data(), static_cast<unsigned>(std::min(bytes.size(), kMost)));
  written = result > 0 ? static_cast<std::size_t>(result) : 0;
  return result == -1 ? errno : 0;
}

int FileLayer::Truncate(int handle, std::uint64_t size) {
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  return ::_chsize_s(handle, static_cast<std::int64_t>(std::min(size, kMost)));
}

// The one permission that a file itself has: to be written at all.
int FileLayer::SetPermissions(int handle, std::uint32_t permissions) {
  FILE_BASIC_INFO info{};
  if (GetFileInformationByHandleEx(HandleOf(handle), FileBasicInfo, &info, sizeof info) == 0)
    return LastError();
  const DWORD before = info.FileAttributes;
  if ((permissions & 0222U) == 0) {
    info.FileAttributes |= FILE_ATTRIBUTE_READONLY;
  } else {
    info.FileAttributes &= ~DWORD{FILE_ATTRIBUTE_READONLY};
  }
  if (info.FileAttributes == before) return 0;
  if (info.FileAttributes == 0) info.FileAttributes = FILE_ATTRIBUTE_NORMAL;
  return ErrorUnless(SetFileInformationByHandle(HandleOf(handle), FileBasicInfo, &info, sizeof info));
}

// A folder cannot be flushed here; Rename returns when the new name is on the disk.
int FileLayer::Flush(int handle) {
  FileState state;
  if (const int error = LookAt(handle, state); error != 0) return error;
  return state.kind == FileKind::Folder ? 0 : ErrorUnless(FlushFileBuffers(HandleOf(handle)));
}

int FileLayer::Close(int handle) { return ::_close(handle) == 0 ? 0 : errno; }

int FileLayer::Rename(const std::string& from, const std::string& to, bool replace) {
  const auto name = WideName(from);
  const auto target = WideName(to);
  if (!name || !target) return EILSEQ;
  const DWORD how = MOVEFILE_WRITE_THROUGH | (replace ? MOVEFILE_REPLACE_EXISTING : 0);
  if (MoveFileExW(name->c_str(), target->c_str(), how) != 0) return 0;
  const DWORD code = GetLastError();
  if (code != ERROR_ACCESS_DENIED || !replace) return ErrorFrom(code);
  // A target that somebody has open is refused as if it were forbidden; which of the two it is, opening it
  // tells.
  const SystemHandle there(OpenName(*target, DELETE, OPEN_EXISTING, false));
  return !there.IsOpen() && GetLastError() == ERROR_SHARING_VIOLATION ? EBUSY : EACCES;
}

int FileLayer::Remove(const std::string& path) {
  const auto name = WideName(path);
  if (!name) return EILSEQ;
  return ErrorUnless(DeleteFileW(name->c_str()));
}

}  // namespace goods
