#include "company/files/appended_file.h"

#include <cerrno>
#include <utility>

namespace goods {

AppendedFile::AppendedFile(std::string path, const std::vector<std::string>& forbidden, FileLayer* layer)
    : layer_(layer != nullptr ? *layer : FileLayer::System()), path_(std::move(path)) {
  target_ = FindTarget(layer_, path_, {true, false, forbidden});
  int opened = -1;
  if (const int error = layer_.OpenToAppend(target_.path, 0666, opened); error != 0) {
    throw FileError(error == ELOOP ? FileProblem::ForeignLink : ProblemOf(error), path_, error);
  }
  handle_ = FileHandle(layer_, opened);
  // By the handle: something else may have come to this place since it was looked at.
  if (const int error = layer_.LookAt(opened, target_.state); error != 0) {
    throw FileError(ProblemOf(error), path_, error);
  }
  if (target_.state.kind != FileKind::Regular) throw FileError(FileProblem::NotRegular, path_);
  RefuseForbidden(layer_, target_, forbidden);
}

void AppendedFile::Forbid(const std::vector<std::string>& files) const {
  RefuseForbidden(layer_, target_, files);
}

void AppendedFile::Append(std::string_view entry) {
  FileState before;
  int error = layer_.LookAt(handle_.Get(), before);
  std::string_view rest = entry;
  while (error == 0 && !rest.empty()) {
    std::size_t written = 0;
    error = layer_.Write(handle_.Get(), rest, written);
    if (error == 0 && written == 0) error = ENOSPC;
    rest.remove_prefix(written);
  }
  if (error == 0) return;
  if (rest.size() < entry.size()) layer_.Truncate(handle_.Get(), before.size);
  throw FileError(ProblemOf(error), path_, error);
}

}  // namespace goods
