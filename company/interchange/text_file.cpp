#include "company/interchange/text_file.h"

#include <algorithm>
#include <array>

#include "company/files/file_error.h"
#include "company/files/file_path.h"
#include "company/files/input_file.h"
#include "host/core/text.h"

namespace goods {

namespace {

// What the bytes from 0x80 on stand for in Windows-1256.
constexpr std::array<char16_t, 128> kWindows1256 = {
    0x20AC, 0x067E, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0679, 0x2039, 0x0152,
    0x0686, 0x0698, 0x0688, 0x06AF, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x06A9, 0x2122,
    0x0691, 0x203A, 0x0153, 0x200C, 0x200D, 0x06BA, 0x00A0, 0x060C, 0x00A2, 0x00A3, 0x00A4, 0x00A5, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x06BE, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF, 0x00B0, 0x00B1, 0x00B2, 0x00B3,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x00B9, 0x061B, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x061F, 0x06C1,
    0x0621, 0x0622, 0x0623, 0x0624, 0x0625, 0x0626, 0x0627, 0x0628, 0x0629, 0x062A, 0x062B, 0x062C, 0x062D,
    0x062E, 0x062F, 0x0630, 0x0631, 0x0632, 0x0633, 0x0634, 0x0635, 0x0636, 0x00D7, 0x0637, 0x0638, 0x0639,
    0x063A, 0x0640, 0x0641, 0x0642, 0x0643, 0x00E0, 0x0644, 0x00E2, 0x0645, 0x0646, 0x0647, 0x0648, 0x00E7,
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x0649, 0x064A, 0x00EE, 0x00EF, 0x064B, 0x064C, 0x064D, 0x064E, 0x00F4,
    0x064F, 0x0650, 0x00F7, 0x0651, 0x00F9, 0x0652, 0x00FB, 0x00FC, 0x200E, 0x200F, 0x06D2};

constexpr std::size_t kReadBlock = 1 << 16;

// Bytes of the well-formed character that begins at the place; 0 when none does.
std::size_t CharacterAt(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
  const unsigned char lead = byte(at);
  const std::size_t length = lead < 0x80                   ? 1
                             : lead >= 0xc2 && lead < 0xe0 ? 2
                             : lead >= 0xe0 && lead < 0xf0 ? 3
                             : lead >= 0xf0 && lead < 0xf5 ? 4
                                                           : 0;
  if (length == 0 || at + length > text.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(at + k) & 0xc0) != 0x80) return 0;
  }
  if (length < 3) return length;
  const unsigned char second = byte(at + 1);
  const bool outside = (lead == 0xe0 && second < 0xa0) || (lead == 0xed && second > 0x9f) ||
                       (lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second > 0x8f);
  return outside ? 0 : length;
}

// Whether more of the bytes beyond ASCII are no UTF-8 than are. A character cut off at the end counts as
// neither.
bool LooksLikeOneByteText(std::string_view text) {
  std::size_t good = 0;
  std::size_t bad = 0;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = CharacterAt(text, i);
    if (length > 1) good += length;
    if (length == 0 && i + 4 <= text.size()) ++bad;
    i += std::max<std::size_t>(length, 1);
  }
  // A short text without a single character of UTF-8.
  if (good == 0 && bad == 0) return !IsUtf8(text);
  return bad > good;
}

bool IsAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

}  // namespace

bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = CharacterAt(text, i);
    if (length == 0) return false;
    i += length;
  }
  return true;
}

TextFile::TextFile(const std::string& path) {
  try {
    CheckInputFile(path);
  } catch (const FileError&) {
    return;
  }
  file_.open(PathOf(path), std::ios::binary | std::ios::ate);
  if (!file_) return;
  size_ = static_cast<std::int64_t>(file_.tellg());
  file_.seekg(0);
}

bool TextFile::ReadBytes(std::size_t wanted) {
  const std::size_t had = bytes_.size();
  bytes_.resize(had + std::max(wanted, kReadBlock));
  file_.read(bytes_.data() + had, static_cast<std::streamsize>(bytes_.size() - had));
  const auto got = static_cast<std::size_t>(file_.gcount());
  bytes_.resize(had + got);
  done_ += static_cast<std::int64_t>(got);
  return got > 0;
}

// Looks at the first bytes of the file.
void TextFile::Recognise() {
  started_ = true;
  const std::string_view first(bytes_);
  if (first.starts_with("\xef\xbb\xbf")) {
    encoding_ = Encoding::Utf8;
    bytes_.erase(0, 3);
  } else if (first.starts_with("\xff\xfe")) {
    encoding_ = Encoding::Utf16Little;
    bytes_.erase(0, 2);
  } else if (first.starts_with("\xfe\xff")) {
    encoding_ = Encoding::Utf16Big;
    bytes_.erase(0, 2);
  } else {
    // A header in UTF-16 has digits, separators and line ends with a zero byte on the same side.
    constexpr std::size_t kLooked = 256;
    std::array<std::size_t, 2> zeros{};
    const std::size_t looked = std::min(first.size(), kLooked);
    for (std::size_t i = 0; i < looked; ++i) zeros[i & 1] += first[i] == '\0' ? 1 : 0;
    if (zeros[1] > looked / 16 && zeros[0] == 0) encoding_ = Encoding::Utf16Little;
    if (zeros[0] > looked / 16 && zeros[1] == 0) encoding_ = Encoding::Utf16Big;
  }
}

bool TextFile::Read(std::string& text, std::size_t wanted) {
  for (;;) {
    if (!ReadBytes(wanted) && bytes_.empty()) return false;
    if (!started_) Recognise();
    if (encoding_ == Encoding::Unknown && !IsAscii(bytes_)) {
      encoding_ = LooksLikeOneByteText(bytes_) ? Encoding::Windows1256 : Encoding::Utf8;
    }
    const std::size_t before = text.size();
    switch (encoding_) {
      case Encoding::Utf16Little:
      case Encoding::Utf16Big:
        AppendUtf16(text);
        break;
      case Encoding::Windows1256:
        AppendWindows1256(text);
        break;
      default:
        text += bytes_;
        bytes_.clear();
    }
    if (text.size() > before) return true;
    if (file_.eof()) return false;
  }
}

void TextFile::AppendUtf16(std::string& text) {
  const bool little = encoding_ == Encoding::Utf16Little;
  std::u16string units;
  units.reserve(bytes_.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes_.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes_[i]);
    const auto second = static_cast<unsigned char>(bytes_[i + 1]);
    units += static_cast<char16_t>(little ? second << 8 | first : first << 8 | second);
  }
  std::size_t used = units.size();
  // Half of a pair waits for the other half.
  if (!file_.eof() && used > 0 && (units.back() & 0xfc00) == 0xd800) --used;
  text += FromUtf16(std::u16string_view(units).substr(0, used));
  bytes_.erase(0, file_.eof() ? bytes_.size() : used * 2);
}

void TextFile::AppendWindows1256(std::string& text) {
  std::u16string units;
  units.reserve(bytes_.size());
  for (const char c : bytes_) {
    const auto byte = static_cast<unsigned char>(c);
    units += byte < 0x80 ? static_cast<char16_t>(byte) : kWindows1256[byte - 0x80U];
  }
  text += FromUtf16(units);
  bytes_.clear();
}

}  // namespace goods
