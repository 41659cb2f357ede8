// What the fuzz targets share: the input as texts and numbers, and what must hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include <unistd.h>

// The entry that libFuzzer, or replay.cpp, calls with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace goods::fuzz {

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Takes the text up to the first line end, and the line end with it.
inline std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text = end == text.npos ? std::string_view() : text.substr(end + 1);
  return line;
}

// What must hold whatever the input is; ends the program, which is what a fuzzer takes for a find.
inline void Holds(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

// A folder of this process, in memory where there is one; removed at the end.
class Folder {
 public:
  Folder() {
    std::error_code error;
    const std::filesystem::path memory("/dev/shm");
    path_ = (std::filesystem::is_directory(memory, error) ? memory : std::filesystem::temp_directory_path()) /
            ("goods-fuzz-" + std::to_string(getpid()));
    std::filesystem::create_directories(path_);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  std::string Path(const char* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace goods::fuzz
