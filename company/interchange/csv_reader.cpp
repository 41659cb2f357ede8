#include "company/interchange/csv_reader.h"

#include <string_view>

namespace goods {

namespace {

constexpr std::size_t kBlock = 1 << 16;

// Whether every byte belongs to a well-formed character; overlong forms and surrogates do not.
bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80                   ? 1
                               : lead >= 0xc2 && lead < 0xe0 ? 2
                               : lead >= 0xe0 && lead < 0xf0 ? 3
                               : lead >= 0xf0 && lead < 0xf5 ? 4
                                                             : 0;
    if (length == 0 || i + length > text.size()) return false;
    for (std::size_t k = 1; k < length; ++k) {
      const auto byte = static_cast<unsigned char>(text[i + k]);
      if ((byte & 0xc0) != 0x80) return false;
      if (k != 1) continue;
      if ((lead == 0xe0 && byte < 0xa0) || (lead == 0xed && byte > 0x9f) || (lead == 0xf0 && byte < 0x90) ||
          (lead == 0xf4 && byte > 0x8f)) {
        return false;
      }
    }
    i += length;
  }
  return true;
}

}  // namespace

CsvError::~CsvError() = default;

CsvReader::CsvReader(const std::string& path) : file_(path, std::ios::binary) {
  if (Fill() && buffer_.starts_with("\xef\xbb\xbf")) at_ = 3;
}

bool CsvReader::Fill() {
  buffer_.resize(kBlock);
  file_.read(buffer_.data(), static_cast<std::streamsize>(kBlock));
  buffer_.resize(static_cast<std::size_t>(file_.gcount()));
  at_ = 0;
  return !buffer_.empty();
}

int CsvReader::Peek() {
  if (at_ == buffer_.size() && !Fill()) return kEnd;
  return static_cast<unsigned char>(buffer_[at_]);
}

int CsvReader::Get() {
  const int c = Peek();
  if (c == kEnd) return c;
  ++at_;
  if (c == '\n') ++line_;
  return c;
}

void CsvReader::SkipLine() {
  for (int c = Get(); c != '\n' && c != kEnd; c = Get()) {
  }
}

void CsvReader::Fail(const char* reason) {
  SkipLine();
  throw CsvError(reason);
}

bool CsvReader::Next(std::vector<std::string>& fields) {
  for (;;) {
    recordLine_ = line_;
    const int c = Peek();
    if (c == kEnd) return false;
    if (c == '\n') {
      Get();
      continue;
    }
    if (c == '\r') {
      Get();
      if (Peek() != '\n') Fail("CR بدون LF");
      continue;
    }
    ReadRecord(fields);
    for (const std::string& field : fields) {
      if (!IsUtf8(field)) throw CsvError("نویسه ها UTF-8 نیستند");
    }
    return true;
  }
}

void CsvReader::ReadRecord(std::vector<std::string>& fields) {
  std::size_t count = 0;
  for (;;) {
    if (count == fields.size()) fields.emplace_back();
    std::string& field = fields[count++];
    field.clear();
    if (Peek() == '"') {
      ReadQuoted(field);
    } else {
      ReadPlain(field);
    }
    const int after = Peek();
    if (after == ',') {
      Get();
      continue;
    }
    if (after == '\r') {
      Get();
      if (Peek() != '\n') Fail("CR بدون LF");
    }
    if (after != kEnd) Get();
    fields.resize(count);
    return;
  }
}

void CsvReader::ReadQuoted(std::string& field) {
  Get();
  for (;;) {
    const int c = Get();
    if (c == kEnd) throw CsvError("گیومه باز مانده است");
    if (c == 0) Fail("نویسه تهی");
    if (c != '"') {
      field += static_cast<char>(c);
      continue;
    }
    if (Peek() != '"') break;
    field += static_cast<char>(Get());
  }
  const int after = Peek();
  if (after != ',' && after != '\r' && after != '\n' && after != kEnd)
    Fail("پس از گیومه پایانی چیزی آمده است");
}

void CsvReader::ReadPlain(std::string& field) {
  for (;;) {
    const int c = Peek();
    if (c == ',' || c == '\r' || c == '\n' || c == kEnd) return;
    if (c == '"') Fail("گیومه در میان خانه بی گیومه");
    if (c == 0) Fail("نویسه تهی");
    field += static_cast<char>(Get());
  }
}

}  // namespace goods
