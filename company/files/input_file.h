// Files that a user names to be read: only regular files, never more than expected.
#pragma once

#include <cstdint>
#include <string>

#include "company/files/file_error.h"
#include "company/files/file_layer.h"

namespace goods {

// Throws FileError unless path is a regular file, or a link to one, that can be opened for reading. A pipe
// does not block, a device is not opened.
void CheckInputFile(const std::string& path, FileLayer& layer = FileLayer::System());

// The contents. Throws FileError as above, and when there are more than limit bytes.
std::string ReadInputFile(const std::string& path, std::uint64_t limit,
                          FileLayer& layer = FileLayer::System());

}  // namespace goods
