#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>

#include <zlib.h>

#include "desktop/print/writers.h"

namespace goods {
namespace {

constexpr std::uint32_t kEndMark = 0x06054B50;
constexpr std::uint32_t kEntryMark = 0x02014B50;
constexpr std::uint32_t kFileMark = 0x04034B50;
constexpr std::size_t kEndSize = 22;
constexpr std::size_t kEntrySize = 46;
constexpr std::size_t kFileSize = 30;
constexpr std::size_t kPiece = 1 << 18;
constexpr std::string_view kRowEnd = "</row>";
constexpr std::string_view kSheetEnd = "</worksheet>";

class Archive {
 public:
  explicit Archive(const std::string& path) : file_(path, std::ios::binary) {
    file_.seekg(0, std::ios::end);
    const auto size = static_cast<std::uint64_t>(file_.tellg());
    if (!file_ || size < kEndSize) throw UnfinishedFile();
    const std::string end = Read(size - kEndSize, kEndSize);
    if (Number(end, 0, 4) != kEndMark) throw UnfinishedFile();
    entries_ = Number(end, 10, 2);
    directory_ = Read(Number(end, 16, 4), Number(end, 12, 4));
  }

  // Where the compressed bytes of the entry of that name begin, and how many they and the plain ones are.
  struct Entry {
    std::uint64_t at = 0;
    std::uint64_t compressed = 0;
    std::uint64_t plain = 0;
    std::uint32_t checksum = 0;
  };
  Entry Find(const std::string& name) {
    std::size_t at = 0;
    for (std::uint64_t i = 0; i < entries_; ++i) {
      if (at + kEntrySize > directory_.size() || Number(directory_, at, 4) != kEntryMark)
        throw UnfinishedFile();
      const std::uint64_t nameLength = Number(directory_, at + 28, 2);
      if (directory_.compare(at + kEntrySize, nameLength, name) == 0) {
        Entry entry{Number(directory_, at + 42, 4), Number(directory_, at + 20, 4),
                    Number(directory_, at + 24, 4),
                    static_cast<std::uint32_t>(Number(directory_, at + 16, 4))};
        const std::string head = Read(entry.at, kFileSize);
        if (Number(head, 0, 4) != kFileMark) throw UnfinishedFile();
        entry.at += kFileSize + Number(head, 26, 2) + Number(head, 28, 2);
        return entry;
      }
      at += kEntrySize + nameLength + Number(directory_, at + 30, 2) + Number(directory_, at + 32, 2);
    }
    throw UnfinishedFile();
  }
  std::string Read(std::uint64_t at, std::uint64_t size) {
    std::string bytes(size, '\0');
    file_.seekg(static_cast<std::streamoff>(at));
    file_.read(bytes.data(), static_cast<std::streamsize>(size));
    if (static_cast<std::uint64_t>(file_.gcount()) != size) throw UnfinishedFile();
    return bytes;
  }

 private:
  static std::uint64_t Number(const std::string& bytes, std::size_t at, std::size_t size) {
    if (at + size > bytes.size()) throw UnfinishedFile();
    std::uint64_t number = 0;
    for (std::size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
  }

  std::ifstream file_;
  std::string directory_;
  std::uint64_t entries_ = 0;
};

// Unpacks an entry in pieces; each piece begins with the last bytes of the one before.
class Unpacked {
 public:
  Unpacked(Archive& archive, const Archive::Entry& entry) : archive_(archive), entry_(entry) {
    if (inflateInit2(&stream_, -MAX_WBITS) != Z_OK) throw UnfinishedFile();
  }
  Unpacked(const Unpacked&) = delete;
  Unpacked& operator=(const Unpacked&) = delete;
  ~Unpacked() { inflateEnd(&stream_); }

  template <typename Piece>
  void ForEach(Piece&& piece) {
    std::string out(kPiece, '\0');
    std::string in;
    std::uint64_t read = 0;
    std::uint64_t plain = 0;
    auto checksum = crc32(0, nullptr, 0);
    int state = Z_OK;
    while (state != Z_STREAM_END) {
      if (stream_.avail_in == 0 && read < entry_.compressed) {
        in = archive_.Read(entry_.at + read, std::min<std::uint64_t>(kPiece, entry_.compressed - read));
        read += in.size();
        stream_.next_in = reinterpret_cast<Bytef*>(in.data());
        stream_.avail_in = static_cast<uInt>(in.size());
      }
      stream_.next_out = reinterpret_cast<Bytef*>(out.data());
      stream_.avail_out = static_cast<uInt>(out.size());
      state = inflate(&stream_, Z_NO_FLUSH);
      const std::size_t got = out.size() - stream_.avail_out;
      if (state != Z_OK && state != Z_STREAM_END) throw UnfinishedFile();
      if (got == 0 && state == Z_OK && stream_.avail_in == 0 && read == entry_.compressed)
        throw UnfinishedFile();
      checksum = crc32(checksum, reinterpret_cast<const Bytef*>(out.data()), static_cast<uInt>(got));
      plain += got;
      piece(std::string_view(out).substr(0, got));
    }
    if (plain != entry_.plain || checksum != entry_.checksum) throw UnfinishedFile();
  }

 private:
  Archive& archive_;
  Archive::Entry entry_;
  z_stream stream_{};
};

// Counts the ends of rows over the seams of pieces, and keeps the last bytes.
class RowCounter {
 public:
  void Take(std::string_view piece) {
    text_.append(piece);
    const char* at = text_.data();
    const char* end = at + text_.size();
    while (const void* found =
               memmem(at, static_cast<std::size_t>(end - at), kRowEnd.data(), kRowEnd.size())) {
      ++rows_;
      at = static_cast<const char*>(found) + kRowEnd.size();
    }
    const auto left = static_cast<std::size_t>(end - at);
    text_.erase(0, text_.size() - std::min(left, kSheetEnd.size() + 1));
    if (tail_.append(piece).size() > kSheetEnd.size() + 1)
      tail_.erase(0, tail_.size() - kSheetEnd.size() - 1);
  }
  std::size_t Rows() const { return rows_; }
  bool Whole() const { return tail_.find(kSheetEnd) != std::string::npos; }

 private:
  std::string text_;
  std::string tail_;
  std::size_t rows_ = 0;
};

}  // namespace

void CheckXlsx(const std::string& path, const std::vector<std::size_t>& rowsOfSheets) {
  Archive archive(path);
  for (std::size_t sheet = 0; sheet < rowsOfSheets.size(); ++sheet) {
    const std::string name = "xl/worksheets/sheet" + std::to_string(sheet + 1) + ".xml";
    RowCounter counter;
    Unpacked(archive, archive.Find(name)).ForEach([&](std::string_view piece) { counter.Take(piece); });
    if (!counter.Whole() || counter.Rows() != rowsOfSheets[sheet]) throw UnfinishedFile();
  }
}

}  // namespace goods
