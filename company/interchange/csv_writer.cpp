#include "company/interchange/csv_writer.h"

#include <array>
#include <charconv>

namespace goods {

namespace {

constexpr std::size_t kBlock = 1 << 16;
constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

}  // namespace

CsvWriter::CsvWriter(const std::string& path, bool replace, bool ownerOnly)
    : file_(path, {.replace = replace, .ownerOnly = ownerOnly}), buffer_(kByteOrderMark) {}

void CsvWriter::Separate() {
  if (!first_) buffer_ += ',';
  first_ = false;
}

void AppendCsvText(std::string& line, std::string_view text) {
  // Blanks at the ends of a plain field are not read.
  const bool blank = !text.empty() && (static_cast<unsigned char>(text.front()) <= ' ' ||
                                       static_cast<unsigned char>(text.back()) <= ' ');
  if (!blank && text.find_first_of(",;\t\"\r\n") == std::string_view::npos) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) {
    if (c == '"') line += '"';
    line += c;
  }
  line += '"';
}

void AppendDecimal(std::string& line, Decimal number) {
  const Int128 whole = number.Units() / Decimal::kOne;
  if (number.Units() % Decimal::kOne != 0 || whole != static_cast<std::int64_t>(whole)) {
    line += number.ToString();
    return;
  }
  std::array<char, 24> digits{};
  const auto result =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<std::int64_t>(whole));
  line.append(digits.data(), result.ptr);
}

void CsvWriter::Text(std::string_view text) {
  Separate();
  AppendCsvText(buffer_, text);
}

void CsvWriter::Whole(std::int64_t number) {
  Separate();
  AppendDecimal(buffer_, Decimal(number));
}

void CsvWriter::Number(Decimal number) {
  Separate();
  AppendDecimal(buffer_, number);
}

void CsvWriter::Ready(std::string_view cells) {
  Separate();
  buffer_ += cells;
}

void CsvWriter::EndRow() {
  buffer_ += '\n';
  first_ = true;
  FlushIfLong();
}

void CsvWriter::FlushIfLong() {
  if (buffer_.size() < kBlock) return;
  file_.Write(buffer_);
  buffer_.clear();
}

void CsvWriter::Row(std::initializer_list<std::string_view> cells) {
  for (const std::string_view cell : cells) Text(cell);
  EndRow();
}

void CsvWriter::Commit() {
  file_.Write(buffer_);
  buffer_.clear();
  file_.Commit();
}

}  // namespace goods
