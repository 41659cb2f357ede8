// Paths of the project are UTF-8 texts. Where the standard library's calls are used on files, they are handed
// over by this: of a narrow text some systems think that it is in the user's code page.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace goods {

// Back: path.string(), which is UTF-8 with the libraries that the project is built with. Text that is no
// UTF-8 stays as it is where the system's names are bytes, elsewhere it throws std::system_error.
inline std::filesystem::path PathOf(std::string_view text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

}  // namespace goods
