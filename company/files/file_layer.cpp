#include "company/files/file_layer.h"

#include <utility>

namespace goods {

FileLayer& FileLayer::System() {
  static FileLayer layer;
  return layer;
}

FileLayer::~FileLayer() = default;

FileHandle::FileHandle(FileHandle&& other) noexcept
    : layer_(other.layer_), handle_(std::exchange(other.handle_, -1)) {}

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept {
  std::swap(layer_, other.layer_);
  std::swap(handle_, other.handle_);
  return *this;
}

void FileHandle::Close() {
  if (handle_ >= 0) layer_->Close(std::exchange(handle_, -1));
}

}  // namespace goods
