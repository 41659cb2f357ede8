#include "desktop/print/zip_writer.h"

#include <array>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include <zlib.h>

namespace goods {
namespace {

constexpr std::uint32_t kZipFileMark = 0x04034B50;
constexpr std::uint32_t kZipSizesMark = 0x08074B50;
constexpr std::uint32_t kZipEntryMark = 0x02014B50;
constexpr std::uint32_t kZipEndMark = 0x06054B50;
constexpr unsigned kZipVersion = 20;
constexpr unsigned kSizesFollow = 8;
constexpr unsigned kDeflated = 8;
constexpr unsigned kFirstDay = 0x21;  // 1980-01-01: the same rows make the same bytes
constexpr int kMemoryLevel = 8;
constexpr std::size_t kOutputPiece = 1 << 16;

void AppendNumber(std::string& out, std::uint64_t number, int bytes) {
  if (bytes == 4 && number > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("an archive of more than 4 GB");
  }
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(number >> (8 * i) & 0xFF);
}

// What stands in front of an entry and, but for the first fields, in the list at the end.
void AppendKind(std::string& out) {
  AppendNumber(out, kZipVersion, 2);
  AppendNumber(out, kSizesFollow, 2);
  AppendNumber(out, kDeflated, 2);
  AppendNumber(out, 0, 2);
  AppendNumber(out, kFirstDay, 2);
}

}  // namespace

// The fastest level: a spreadsheet's rows repeat so much that a higher one gains little and costs most of the
// time.
class ZipWriter::Deflater {
 public:
  Deflater() {
    if (deflateInit2(&stream_, Z_BEST_SPEED, Z_DEFLATED, -MAX_WBITS, kMemoryLevel, Z_DEFAULT_STRATEGY) !=
        Z_OK)
      throw std::bad_alloc();
  }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;
  ~Deflater() { deflateEnd(&stream_); }
  z_stream& Stream() { return stream_; }
  std::array<char, kOutputPiece>& Output() { return output_; }
  void Begin() { deflateReset(&stream_); }

 private:
  z_stream stream_{};
  std::array<char, kOutputPiece> output_{};
};

ZipWriter::ZipWriter(ByteSink& sink) : sink_(sink), deflater_(std::make_unique<Deflater>()) {}
ZipWriter::~ZipWriter() = default;

void ZipWriter::Put(std::string_view bytes) {
  sink_.Write(bytes);
  written_ += bytes.size();
}

void ZipWriter::Begin(std::string name) {
  entries_.push_back({std::move(name), written_});
  std::string head;
  AppendNumber(head, kZipFileMark, 4);
  AppendKind(head);
  AppendNumber(head, 0, 4);  // checksum and sizes come behind
  AppendNumber(head, 0, 4);
  AppendNumber(head, 0, 4);
  AppendNumber(head, entries_.back().name.size(), 2);
  AppendNumber(head, 0, 2);
  Put(head + entries_.back().name);
  deflater_->Begin();
}

void ZipWriter::Write(std::string_view bytes) {
  Entry& entry = entries_.back();
  entry.checksum = static_cast<std::uint32_t>(
      crc32_z(entry.checksum, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
  entry.plain += bytes.size();
  while (!bytes.empty()) {
    const std::string_view piece = bytes.substr(0, kOutputPiece);
    Deflate(piece, false);
    bytes.remove_prefix(piece.size());
  }
}

void ZipWriter::Deflate(std::string_view bytes, bool last) {
  z_stream& stream = deflater_->Stream();
  auto& output = deflater_->Output();
  // zlib does not write to what it reads.
  stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  do {
    stream.next_out = reinterpret_cast<Bytef*>(output.data());
    stream.avail_out = static_cast<uInt>(output.size());
    deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);
    const std::size_t made = output.size() - stream.avail_out;
    if (made > 0) Put({output.data(), made});
    entries_.back().compressed += made;
  } while (stream.avail_out == 0);
}

void ZipWriter::End() {
  Deflate({}, true);
  const Entry& entry = entries_.back();
  std::string sizes;
  AppendNumber(sizes, kZipSizesMark, 4);
  AppendNumber(sizes, entry.checksum, 4);
  AppendNumber(sizes, entry.compressed, 4);
  AppendNumber(sizes, entry.plain, 4);
  Put(sizes);
}

void ZipWriter::Add(std::string name, std::string_view bytes) {
  Begin(std::move(name));
  Write(bytes);
  End();
}

void ZipWriter::Finish() {
  const std::uint64_t at = written_;
  std::string list;
  for (const Entry& entry : entries_) {
    AppendNumber(list, kZipEntryMark, 4);
    AppendNumber(list, kZipVersion, 2);
    AppendKind(list);
    AppendNumber(list, entry.checksum, 4);
    AppendNumber(list, entry.compressed, 4);
    AppendNumber(list, entry.plain, 4);
    AppendNumber(list, entry.name.size(), 2);
    AppendNumber(list, 0, 2);  // extra field, comment, disk, attributes
    AppendNumber(list, 0, 2);
    AppendNumber(list, 0, 2);
    AppendNumber(list, 0, 2);
    AppendNumber(list, 0, 4);
    AppendNumber(list, entry.at, 4);
    list += entry.name;
  }
  const std::uint64_t size = list.size();
  AppendNumber(list, kZipEndMark, 4);
  AppendNumber(list, 0, 2);
  AppendNumber(list, 0, 2);
  AppendNumber(list, entries_.size(), 2);
  AppendNumber(list, entries_.size(), 2);
  AppendNumber(list, size, 4);
  AppendNumber(list, at, 4);
  AppendNumber(list, 0, 2);
  Put(list);
}

}  // namespace goods
