#include "company/files/target_path.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "company/files/file_error.h"
#include "company/files/file_path.h"

namespace goods {

namespace {

constexpr int kMostLinks = 16;

bool IsSeparator(char c) { return FileLayer::Separators().find(c) != std::string_view::npos; }

// Behind the last separator, and behind a drive, where the system has such: a name without a folder is in
// the drive's current one.
std::size_t NameStart(const std::string& path) {
  const std::size_t drive = PathOf(path).root_name().string().size();
  std::size_t start = path.size();
  while (start > drive && !IsSeparator(path[start - 1])) --start;
  return start;
}

std::string FolderOf(const std::string& path) {
  const std::size_t start = NameStart(path);
  if (start == 0) return ".";
  if (!IsSeparator(path[start - 1])) return path.substr(0, start) + ".";
  const std::size_t root = PathOf(path).root_path().string().size();
  return path.substr(0, start == root ? start : start - 1);
}

std::string NameOf(const std::string& path) { return path.substr(NameStart(path)); }

void CheckTarget(int error, const std::string& path) {
  if (error != 0) throw FileError(ProblemOf(error), path, error);
}

// Who may put names into a foreign folder could lead us anywhere; who owns the folder or the machine can do
// so anyway.
bool MayFollow(FileLayer& layer, const FileState& link, const std::string& folder) {
  if (link.owner == 0 || link.owner == layer.User()) return true;
  FileState around;
  return layer.Look(folder, true, around) == 0 && around.owner == link.owner;
}

// Only the first bytes tell; an empty file is none yet.
bool IsDatabase(FileLayer& layer, const std::string& path) {
  constexpr std::string_view kMagic("SQLite format 3\0", 16);
  int opened = -1;
  if (layer.OpenToRead(path, false, opened) != 0) return false;
  const FileHandle handle(layer, opened);
  std::array<char, kMagic.size()> bytes{};
  std::size_t read = 0;
  if (layer.Read(opened, bytes.data(), bytes.size(), read) != 0) return false;
  return std::string_view(bytes.data(), read) == kMagic;
}

// The same place in the same spelling, also of files that are not there.
std::string Spelled(const std::string& path) {
  std::error_code error;
  const std::filesystem::path spelled = std::filesystem::weakly_canonical(PathOf(path), error);
  return error ? path : spelled.string();
}

}  // namespace

std::string PathIn(const std::string& folder, const std::string& name) {
  return folder + (IsSeparator(folder.back()) ? "" : "/") + name;
}

Target FindTarget(FileLayer& layer, const std::string& path, const TargetRules& rules) {
  if (path.empty()) throw FileError(FileProblem::Missing, path);
  if (path.find('\0') != std::string::npos)
    throw FileError(FileProblem::Failed, path.substr(0, path.find('\0')));
  Target target;
  target.path = path;
  for (int links = 0;; ++links) {
    target.folder = FolderOf(target.path);
    target.name = NameOf(target.path);
    if (target.name.empty() || target.name == "." || target.name == "..")
      throw FileError(FileProblem::Folder, path);
    CheckTarget(layer.Look(target.path, false, target.state), path);
    if (target.state.kind != FileKind::Link) break;
    if (links == kMostLinks || !MayFollow(layer, target.state, target.folder)) {
      throw FileError(FileProblem::ForeignLink, path);
    }
    std::string next;
    CheckTarget(layer.ReadLink(target.path, next), path);
    target.path = PathOf(next).is_absolute() ? next : PathIn(target.folder, next);
  }
  RefuseForbidden(layer, target, rules.forbidden);
  switch (target.state.kind) {
    case FileKind::None:
    case FileKind::Link: {
      FileState folder;
      CheckTarget(layer.Look(target.folder, true, folder), path);
      if (folder.kind != FileKind::Folder) throw FileError(FileProblem::NoFolder, path);
      return target;
    }
    case FileKind::Folder:
      throw FileError(FileProblem::Folder, path);
    case FileKind::Other:
      throw FileError(FileProblem::NotRegular, path);
    case FileKind::Regular:
      break;
  }
  if (!rules.replace) throw FileError(FileProblem::Exists, path);
  // Who marked a file read-only is obeyed even where the system would let us write.
  if ((target.state.permissions & 0222U) == 0) throw FileError(FileProblem::ReadOnly, path);
  if (!layer.MayWrite(target.path)) throw FileError(FileProblem::NoAccess, path);
  if (!rules.overDatabases && IsDatabase(layer, target.path)) throw FileError(FileProblem::Database, path);
  return target;
}

void RefuseForbidden(FileLayer& layer, const Target& target, const std::vector<std::string>& forbidden) {
  const std::string here = Spelled(target.path);
  for (const std::string& file : forbidden) {
    if (file.empty()) continue;
    const std::string spelled = Spelled(file);
    // What a database keeps beside itself is part of it.
    for (const std::string_view beside : {"", "-journal", "-wal", "-shm"}) {
      FileState state;
      const bool same =
          layer.Look(file + std::string(beside), true, state) == 0 && state.SameFile(target.state);
      if (same || here == spelled + std::string(beside)) throw FileError(FileProblem::Forbidden, target.path);
    }
  }
}

bool IsSameFile(const std::string& first, const std::string& second, FileLayer& layer) {
  FileState one;
  FileState other;
  return layer.Look(first, true, one) == 0 && layer.Look(second, true, other) == 0 && one.SameFile(other);
}

}  // namespace goods
