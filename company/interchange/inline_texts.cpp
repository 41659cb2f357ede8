#include "company/interchange/inline_texts.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <zlib.h>

#include "company/company.h"

namespace goods {

namespace {

constexpr std::uint32_t kArchiveEnd = 0x06054B50;
constexpr std::uint32_t kArchiveEntry = 0x02014B50;
constexpr std::uint32_t kArchiveFile = 0x04034B50;
constexpr std::size_t kArchiveEndSize = 22;
constexpr std::size_t kArchiveEntrySize = 46;
constexpr std::size_t kArchiveFileSize = 30;
constexpr std::size_t kLongestComment = 65535;
constexpr std::uint64_t kLargestSheet = std::uint64_t{2} << 30;
constexpr unsigned kStored = 0;
constexpr unsigned kDeflated = 8;
constexpr std::string_view kInline = "inlineStr";

// Numbers of a ZIP archive; none beyond its end.
std::optional<std::uint64_t> NumberAt(std::string_view bytes, std::uint64_t at, std::size_t size) {
  if (at > bytes.size() || bytes.size() - at < size) return std::nullopt;
  std::uint64_t number = 0;
  for (std::size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

void AppendArchiveNumber(std::string& out, std::uint64_t number, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(number >> (8 * i) & 0xFF);
}

struct ArchiveEntry {
  std::string name;
  unsigned method = 0;
  std::uint64_t moment = 0;
  std::uint32_t checksum = 0;
  std::string_view bytes;  // as they stand in the archive
  std::uint64_t plain = 0;
};

// None when the archive is not one of the common kind: the library then says what it is.
std::optional<std::vector<ArchiveEntry>> EntriesOf(std::string_view archive) {
  if (archive.size() < kArchiveEndSize) return std::nullopt;
  const std::size_t least = archive.size() - std::min(archive.size(), kArchiveEndSize + kLongestComment);
  std::size_t end = archive.size() - kArchiveEndSize;
  while (NumberAt(archive, end, 4) != kArchiveEnd) {
    if (end == least) return std::nullopt;
    --end;
  }
  std::uint64_t at = *NumberAt(archive, end + 16, 4);
  std::vector<ArchiveEntry> entries;
  for (std::uint64_t left = *NumberAt(archive, end + 10, 2); left > 0; --left) {
    if (NumberAt(archive, at, 4) != kArchiveEntry || !NumberAt(archive, at + kArchiveEntrySize - 2, 2)) {
      return std::nullopt;
    }
    const auto number = [&](std::uint64_t from, std::size_t size) {
      return *NumberAt(archive, at + from, size);
    };
    const std::uint64_t nameLength = number(28, 2);
    const std::uint64_t file = number(42, 4);
    const auto fileName = NumberAt(archive, file + 26, 2);
    const auto fileExtra = NumberAt(archive, file + 28, 2);
    if (NumberAt(archive, file, 4) != kArchiveFile || !fileName || !fileExtra) return std::nullopt;
    const std::uint64_t begin = file + kArchiveFileSize + *fileName + *fileExtra;
    const std::uint64_t compressed = number(20, 4);
    if (begin > archive.size() || archive.size() - begin < compressed ||
        archive.size() - at - kArchiveEntrySize < nameLength) {
      return std::nullopt;
    }
    entries.push_back({std::string(archive.substr(at + kArchiveEntrySize, nameLength)),
                       static_cast<unsigned>(number(10, 2)), number(12, 4),
                       static_cast<std::uint32_t>(number(16, 4)), archive.substr(begin, compressed),
                       number(24, 4)});
    at += kArchiveEntrySize + nameLength + number(30, 2) + number(32, 2);
  }
  return entries;
}

// The entry's own bytes; none when it is damaged.
std::optional<std::string> Unpacked(const ArchiveEntry& entry) {
  if (entry.method == kStored) return std::string(entry.bytes);
  if (entry.method != kDeflated) return std::nullopt;
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return std::nullopt;
  // zlib does not write to what it reads. An entry is shorter than the file, and that than zlib's counts.
  stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(entry.bytes.data()));
  stream.avail_in = static_cast<uInt>(entry.bytes.size());
  std::string plain;
  std::string piece(1 << 16, '\0');
  int state = Z_OK;
  while (state == Z_OK && plain.size() <= kLargestSheet) {
    stream.next_out = reinterpret_cast<Bytef*>(piece.data());
    stream.avail_out = static_cast<uInt>(piece.size());
    state = inflate(&stream, Z_NO_FLUSH);
    plain.append(piece, 0, piece.size() - stream.avail_out);
  }
  inflateEnd(&stream);
  if (plain.size() > kLargestSheet) {
    throw CompanyError("یک برگه این صفحه گسترده بیش از 2 گیگابایت است. آن را در چند برگه یا پرونده بیاورید.");
  }
  if (state != Z_STREAM_END) return std::nullopt;
  return plain;
}

// The texts between <t> and </t>, as XML has them, without those of <rPh>, which say how a text is spoken.
std::string TextsOf(std::string_view cell) {
  std::string texts;
  while (!cell.empty()) {
    const std::size_t tag = cell.find('<');
    if (tag == cell.npos) break;
    cell.remove_prefix(tag + 1);
    if (cell.starts_with("rPh")) {
      cell.remove_prefix(std::min(cell.size(), cell.find("</rPh>")));
    } else if (cell.starts_with("t>") || cell.starts_with("t ")) {
      const std::size_t end = cell.find('>');
      if (end == cell.npos) break;
      const bool empty = cell[end - 1] == '/';
      cell.remove_prefix(end + 1);
      if (empty) continue;
      const std::size_t close = cell.find("</t>");
      texts += cell.substr(0, close);
      cell.remove_prefix(std::min(cell.size(), close));
    }
  }
  return texts;
}

// Each cell "<c ... t="inlineStr"><is>...</is></c>" with its text as a formula's result.
std::string WithResults(std::string_view sheet) {
  std::string out;
  out.reserve(sheet.size());
  for (;;) {
    const std::size_t found = sheet.find(kInline);
    if (found == sheet.npos) break;
    const std::size_t open = sheet.find('>', found);
    const std::size_t close = open == sheet.npos ? sheet.npos : sheet.find("</c>", open);
    // The word may stand in a text, between tags.
    const std::size_t tag = sheet.rfind('<', found);
    if (close == sheet.npos || tag == sheet.npos || !sheet.substr(tag).starts_with("<c ") ||
        sheet.substr(tag, found - tag).find('>') != sheet.npos || sheet[open - 1] == '/') {
      out += sheet.substr(0, found + kInline.size());
      sheet.remove_prefix(found + kInline.size());
      continue;
    }
    out += sheet.substr(0, found);
    out += "str";
    out += sheet.substr(found + kInline.size(), open + 1 - found - kInline.size());
    out += "<f>0</f><v>" + TextsOf(sheet.substr(open + 1, close - open - 1)) + "</v>";
    sheet.remove_prefix(close);
  }
  out += sheet;
  return out;
}

std::string Archive(const std::vector<ArchiveEntry>& entries) {
  std::string archive;
  std::string list;
  for (const ArchiveEntry& entry : entries) {
    const std::uint64_t at = archive.size();
    const auto append = [&entry](std::string& out) {
      AppendArchiveNumber(out, 20, 2);  // the version that is needed, flags
      AppendArchiveNumber(out, 0, 2);
      AppendArchiveNumber(out, entry.method, 2);
      AppendArchiveNumber(out, entry.moment, 4);
      AppendArchiveNumber(out, entry.checksum, 4);
      AppendArchiveNumber(out, entry.bytes.size(), 4);
      AppendArchiveNumber(out, entry.plain, 4);
      AppendArchiveNumber(out, entry.name.size(), 2);
      AppendArchiveNumber(out, 0, 2);
    };
    AppendArchiveNumber(archive, kArchiveFile, 4);
    append(archive);
    archive += entry.name;
    archive += entry.bytes;
    AppendArchiveNumber(list, kArchiveEntry, 4);
    AppendArchiveNumber(list, 20, 2);
    append(list);
    AppendArchiveNumber(list, 0, 8);  // comment, disk, attributes
    AppendArchiveNumber(list, 0, 2);
    AppendArchiveNumber(list, at, 4);
    list += entry.name;
  }
  const std::uint64_t at = archive.size();
  archive += list;
  AppendArchiveNumber(archive, kArchiveEnd, 4);
  AppendArchiveNumber(archive, 0, 4);
  AppendArchiveNumber(archive, entries.size(), 2);
  AppendArchiveNumber(archive, entries.size(), 2);
  AppendArchiveNumber(archive, list.size(), 4);
  AppendArchiveNumber(archive, at, 4);
  AppendArchiveNumber(archive, 0, 2);
  return archive;
}

}  // namespace

std::string WithReadableTexts(std::string archive) {
  std::optional<std::vector<ArchiveEntry>> entries = EntriesOf(archive);
  if (!entries) return archive;
  std::vector<std::string> changed(entries->size());  // kept as long as entries point into them
  bool any = false;
  for (std::size_t i = 0; i < entries->size(); ++i) {
    ArchiveEntry& entry = (*entries)[i];
    if (!entry.name.starts_with("xl/worksheets/") || !entry.name.ends_with(".xml")) continue;
    const std::optional<std::string> sheet = Unpacked(entry);
    if (!sheet || sheet->find(kInline) == std::string::npos) continue;
    changed[i] = WithResults(*sheet);
    entry.method = kStored;
    entry.bytes = changed[i];
    entry.plain = changed[i].size();
    entry.checksum = static_cast<std::uint32_t>(
        crc32_z(0, reinterpret_cast<const Bytef*>(changed[i].data()), changed[i].size()));
    any = true;
  }
  return any ? Archive(*entries) : archive;
}

}  // namespace goods
