#include "company/files/input_file.h"

#include <array>
#include <cerrno>

namespace goods {

namespace {

void CheckInput(int error, const std::string& path) {
  if (error == 0) return;
  const bool missing = error == ENOENT || error == ENOTDIR;
  throw FileError(missing ? FileProblem::Missing : ProblemOf(error), path, error);
}

void CheckState(const FileState& state, const std::string& path) {
  if (state.kind == FileKind::None) throw FileError(FileProblem::Missing, path);
  if (state.kind == FileKind::Folder) throw FileError(FileProblem::Folder, path);
  if (state.kind != FileKind::Regular) throw FileError(FileProblem::NotRegular, path);
}

FileHandle OpenInput(const std::string& path, FileLayer& layer) {
  FileState state;
  CheckInput(layer.Look(path, true, state), path);
  CheckState(state, path);
  int opened = -1;
  CheckInput(layer.OpenToRead(path, true, opened), path);
  FileHandle handle(layer, opened);
  // Looked at once more, by the handle: what was looked at before may have been replaced.
  CheckInput(layer.LookAt(opened, state), path);
  CheckState(state, path);
  return handle;
}

}  // namespace

void CheckInputFile(const std::string& path, FileLayer& layer) { OpenInput(path, layer); }

std::string ReadInputFile(const std::string& path, std::uint64_t limit, FileLayer& layer) {
  const FileHandle handle = OpenInput(path, layer);
  std::string contents;
  std::array<char, 65536> block{};
  for (;;) {
    std::size_t read = 0;
    CheckInput(layer.Read(handle.Get(), block.data(), block.size(), read), path);
    if (read == 0) return contents;
    if (contents.size() + read > limit) throw FileError(FileProblem::TooLarge, path);
    contents.append(block.data(), read);
  }
}

}  // namespace goods
