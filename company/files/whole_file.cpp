#include "company/files/whole_file.h"

#include <cerrno>
#include <random>
#include <stdexcept>
#include <thread>
#include <utility>

namespace goods {

namespace {

constexpr std::size_t kBuffer = std::size_t{64} * 1024;
constexpr std::chrono::milliseconds kPause{10};
constexpr int kFolderTries = 50;
constexpr std::size_t kRandomDigits = 16;
constexpr std::string_view kEnd = ".partial";
// With the random part and the ending a name stays under the 255 bytes of a file system.
constexpr std::size_t kLongestName = 180;

std::string Hexadecimal(std::uint64_t value) {
  std::string text(kRandomDigits, '0');
  for (std::size_t i = kRandomDigits; i-- > 0; value >>= 4) text[i] = "0123456789abcdef"[value & 15];
  return text;
}

// FNV-1a, so that long names with one beginning stay apart.
std::uint64_t Digest(std::string_view text) {
  std::uint64_t digest = 0xcbf29ce484222325;
  for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  return digest;
}

// What the names of all temporary files of one target begin with.
std::string Beginning(const std::string& name) {
  if (name.size() <= kLongestName) return "." + name + ".";
  return "." + name.substr(0, kLongestName) + "-" + Hexadecimal(Digest(name)) + ".";
}

// A temporary file, and what a database that wrote it may have left beside it.
void RemoveTemporary(FileLayer& layer, const std::string& path) {
  for (const char* beside : {"-journal", "-wal", "-shm", ""}) layer.Remove(path + beside);
}

std::uint64_t RandomNumber() {
  std::random_device device;
  return static_cast<std::uint64_t>(device()) << 32 | device();
}

bool IsTemporaryName(std::string_view name, std::string_view beginning) {
  if (name.size() != beginning.size() + kRandomDigits + kEnd.size()) return false;
  if (!name.starts_with(beginning) || !name.ends_with(kEnd)) return false;
  return name.substr(beginning.size(), kRandomDigits).find_first_not_of("0123456789abcdef") == name.npos;
}

}  // namespace

WholeFile::WholeFile(std::string path, WholeFileOptions options)
    : options_(std::move(options)),
      layer_(options_.layer != nullptr ? *options_.layer : FileLayer::System()),
      path_(std::move(path)),
      target_(FindTarget(layer_, path_, {options_.replace, options_.overDatabases, options_.forbidden})) {
  try {
    MakeTemporary();
  } catch (...) {
    Discard();
    throw;
  }
}

WholeFile::~WholeFile() {
  if (!finished_) Discard();
}

void WholeFile::MakeTemporary() {
  const auto end = std::chrono::steady_clock::now() + options_.patience;
  while (!TryMakeTemporary()) {
    if (std::chrono::steady_clock::now() >= end) throw FileError(FileProblem::InUse, path_);
    std::this_thread::sleep_for(kPause);
  }
}

bool WholeFile::TryMakeTemporary() {
  // The folder's lock makes looking for others and making one's own one step. It is held for these calls
  // alone. Without it (a file system that has no such locks, or a stranger who keeps it) of two that begin at
  // the same moment both may be refused.
  int opened = -1;
  if (const int error = layer_.OpenFolder(target_.folder, opened); error != 0) Fail(error);
  const FileHandle folder(layer_, opened);
  bool taken = false;
  for (int tries = 0; tries < kFolderTries && layer_.TryLock(folder.Get(), taken) == 0 && !taken; ++tries) {
    std::this_thread::sleep_for(kPause);
  }

  temporary_ =
      PathIn(target_.folder, Beginning(target_.name) + Hexadecimal(RandomNumber()) + std::string(kEnd));
  const bool keeps = options_.ownerOnly || target_.state.kind == FileKind::Regular;
  int made = -1;
  const int error = layer_.Create(temporary_, keeps ? 0600U : 0666U, made);
  if (error == EEXIST) return false;
  if (error != 0) {
    temporary_.clear();
    Fail(error);
  }
  handle_ = FileHandle(layer_, made);
  if (const int looked = layer_.LookAt(made, identity_); looked != 0) Fail(looked);
  layer_.TryLock(made, taken);
  if (!AnotherWriterIsAtWork()) return true;
  Discard();
  return false;
}

bool WholeFile::AnotherWriterIsAtWork() {
  std::vector<std::string> names;
  if (const int error = layer_.List(target_.folder, names); error != 0) Fail(error);
  const std::string beginning = Beginning(target_.name);
  for (const std::string& name : names) {
    const std::string path = PathIn(target_.folder, name);
    if (!IsTemporaryName(name, beginning) || path == temporary_) continue;
    int opened = -1;
    if (layer_.OpenToRead(path, false, opened) != 0) continue;
    const FileHandle other(layer_, opened);
    FileState state;
    if (layer_.LookAt(opened, state) != 0 || state.kind != FileKind::Regular) continue;
    bool taken = false;
    if (layer_.TryLock(opened, taken) != 0) continue;
    if (!taken) return true;
    if (state.owner == layer_.User()) RemoveTemporary(layer_, path);
  }
  return false;
}

void WholeFile::Write(std::string_view bytes) {
  if (failed_) Fail(error_);
  if (finished_) throw std::logic_error("WholeFile::Write after Commit");
  if (buffer_.size() + bytes.size() >= kBuffer) {
    WriteOut(std::exchange(buffer_, {}));
    if (bytes.size() >= kBuffer) {
      WriteOut(bytes);
      return;
    }
  }
  buffer_ += bytes;
}

void WholeFile::WriteOut(std::string_view bytes) {
  while (!bytes.empty()) {
    std::size_t written = 0;
    const int error = layer_.Write(handle_.Get(), bytes, written);
    if (error != 0) Fail(error);
    // A system that takes nothing and names no reason has no room.
    if (written == 0) Fail(ENOSPC);
    bytes.remove_prefix(written);
  }
}

void WholeFile::Commit() {
  if (failed_) Fail(error_);
  if (finished_) throw std::logic_error("WholeFile::Commit twice");
  WriteOut(std::exchange(buffer_, {}));
  const bool replaces = target_.state.kind == FileKind::Regular;
  if (replaces && !options_.ownerOnly) {
    if (const int error = layer_.SetPermissions(handle_.Get(), target_.state.permissions); error != 0)
      Fail(error);
  }
  if (const int error = layer_.Flush(handle_.Get()); error != 0) Fail(error);
  CheckStillOurs();
  MoveIntoPlace();
}

// A library may have put another file over ours, or somebody may have moved it away.
void WholeFile::CheckStillOurs() {
  FileState there;
  if (const int error = layer_.Look(temporary_, false, there); error != 0) Fail(error);
  if (there.kind == FileKind::Regular && there.SameFile(identity_)) return;
  failed_ = true;
  throw FileError(FileProblem::Lost, path_);
}

void WholeFile::MoveIntoPlace() {
  try {
    // What has come to the target's place in the meantime is looked at by the same rules.
    const Target now =
        FindTarget(layer_, target_.path, {options_.replace, options_.overDatabases, options_.forbidden});
    if (now.path != target_.path) throw FileError(FileProblem::Lost, path_);
    if (const int error = layer_.Rename(temporary_, target_.path, options_.replace); error != 0) Fail(error);
  } catch (const FileError& error) {
    failed_ = true;
    error_ = error.SystemError();
    throw;
  }
  finished_ = true;
  RemoveTemporary(layer_, temporary_);  // what a database left beside it
  int opened = -1;
  int error = layer_.OpenFolder(target_.folder, opened);
  if (error == 0) {
    const FileHandle folder(layer_, opened);
    error = layer_.Flush(folder.Get());
  }
  handle_.Close();
  // Some file systems keep their names in order by themselves and refuse to be told.
  if (error != 0 && error != EINVAL && error != EROFS && error != ENOTSUP)
    throw FileError(ProblemOf(error), path_, error);
}

void WholeFile::Discard() noexcept {
  if (!handle_.IsOpen()) return;
  // Only what is still ours; the lock goes after the name, so that nobody takes it for a leftover.
  FileState there;
  const bool unseen = identity_.kind == FileKind::None;  // made a moment ago, and looking at it failed
  if (unseen || (layer_.Look(temporary_, false, there) == 0 && there.SameFile(identity_)))
    RemoveTemporary(layer_, temporary_);
  handle_.Close();
}

void WholeFile::Fail(int systemError) {
  failed_ = true;
  error_ = systemError;
  throw FileError(ProblemOf(systemError), path_, systemError);
}

void WriteWholeFile(const std::string& path, std::string_view contents, WholeFileOptions options) {
  WholeFile file(path, std::move(options));
  file.Write(contents);
  file.Commit();
}

}  // namespace goods
