// A text file of any usual encoding, read as UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace goods {

// Whether every byte belongs to a well-formed character; overlong forms and surrogates do not.
bool IsUtf8(std::string_view text);

// UTF-16 and UTF-8 are known by their byte order mark, UTF-16 also by its zero bytes. Other text is UTF-8,
// unless the first block that holds more than ASCII is none: then it is Windows-1256. What is not well formed
// within UTF-8 is handed on as it stands.
class TextFile {
 public:
  // Check IsOpen before reading. A pipe or a device is not opened.
  explicit TextFile(const std::string& path);
  bool IsOpen() const { return file_.is_open(); }
  // Appends the next text, at least one byte unless the file is at its end, about wanted bytes; false at the
  // end.
  bool Read(std::string& text, std::size_t wanted);
  std::int64_t Done() const { return done_; }  // bytes of the file
  std::int64_t Size() const { return size_; }

 private:
  enum class Encoding { Unknown, Utf8, Windows1256, Utf16Little, Utf16Big };
  bool ReadBytes(std::size_t wanted);
  void Recognise();
  void AppendUtf16(std::string& text);
  void AppendWindows1256(std::string& text);

  std::ifstream file_;
  std::string bytes_;  // read and not yet handed on
  Encoding encoding_ = Encoding::Unknown;
  bool started_ = false;
  std::int64_t done_ = 0;
  std::int64_t size_ = 0;
};

}  // namespace goods
