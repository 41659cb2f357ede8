#include "company/interchange/csv_reader.h"

#include <algorithm>

#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::size_t kBlock = 1 << 18;

}  // namespace

RowError::~RowError() = default;
RowSource::~RowSource() = default;

CsvReader::CsvReader(const std::string& path) : file_(path) {}

bool CsvReader::More() {
  if (ended_) return false;
  buffer_.erase(0, at_);
  at_ = 0;
  // A record that does not fit is looked at again from its beginning, so each block is as long as what is
  // there.
  ended_ = !file_.Read(buffer_, std::max(kBlock, buffer_.size()));
  return !ended_;
}

void CsvReader::FindSeparator() {
  std::array<std::size_t, 3> counts{};
  constexpr std::string_view kSeparators = ",;\t";
  bool quoted = false;
  for (const char c : buffer_) {
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '\n') break;
    const std::size_t found = kSeparators.find(c);
    if (found != std::string_view::npos) ++counts[found];
  }
  const auto most = std::max_element(counts.begin(), counts.end());
  separator_ = kSeparators[static_cast<std::size_t>(most - counts.begin())];
  for (const char c : {separator_, '\r', '\n', '"', '\0'}) stops_[static_cast<unsigned char>(c)] = true;
}

bool CsvReader::SkipEmptyLines() {
  for (;;) {
    if (at_ == buffer_.size() && !More()) return false;
    if (separator_ == 0) FindSeparator();
    if (buffer_[at_] == '\r') {
      if (at_ + 1 == buffer_.size() && !More() && buffer_.size() - at_ == 1) return true;
      if (buffer_[at_ + 1] != '\n') return true;
      ++at_;
    }
    if (buffer_[at_] != '\n') return true;
    ++at_;
    ++line_;
  }
}

// Skips the line that holds the place, and refuses the record.
void CsvReader::Fail(std::size_t at, const char* reason) {
  at_ = at;
  for (;;) {
    const std::size_t end = buffer_.find('\n', at_);
    if (end != std::string::npos) {
      at_ = end + 1;
      ++line_;
      break;
    }
    at_ = buffer_.size();
    if (!More()) break;
  }
  throw RowError(reason);
}

bool CsvReader::ScanQuoted(std::size_t& at, Span& span) {
  span.begin = ++at;
  span.quoted = true;
  for (;;) {
    const std::size_t found = buffer_.find('"', at);
    if (found == std::string::npos) {
      if (!ended_) return false;
      recordLines_ += static_cast<std::size_t>(
          std::count(buffer_.begin() + static_cast<std::ptrdiff_t>(span.begin), buffer_.end(), '\n'));
      at_ = buffer_.size();
      line_ += recordLines_;
      throw RowError("گیومه باز مانده است");
    }
    if (found + 1 == buffer_.size() && !ended_) return false;
    at = found + 1;
    if (at < buffer_.size() && buffer_[at] == '"') {
      span.doubled = true;
      ++at;
      continue;
    }
    span.end = found;
    break;
  }
  for (std::size_t i = span.begin; i < span.end; ++i) {
    bits_ |= static_cast<unsigned char>(buffer_[i]);
    if (buffer_[i] == '\n') ++recordLines_;
    if (buffer_[i] == '\0') Fail(at, "نویسه تهی");
  }
  if (at < buffer_.size() && buffer_[at] != separator_ && buffer_[at] != '\r' && buffer_[at] != '\n') {
    line_ += recordLines_;
    Fail(at, "پس از گیومه پایانی چیزی آمده است");
  }
  return true;
}

bool CsvReader::Scan() {
  spans_.clear();
  recordLines_ = 0;
  bits_ = 0;
  std::size_t at = at_;
  const std::size_t size = buffer_.size();
  for (;;) {
    Span span;
    if (at < size && buffer_[at] == '"') {
      if (!ScanQuoted(at, span)) return false;
    } else {
      span.begin = at;
      for (; at < size; ++at) {
        const auto byte = static_cast<unsigned char>(buffer_[at]);
        if (stops_[byte]) break;
        bits_ |= byte;
      }
      span.end = at;
    }
    if (at == size && !ended_) return false;
    spans_.push_back(span);
    if (at == size) break;
    const char c = buffer_[at];
    if (c == separator_) {
      ++at;
      continue;
    }
    if (c == '"') Fail(at, "گیومه در میان خانه بی گیومه");
    if (c == '\0') Fail(at, "نویسه تهی");
    if (c == '\r') {
      if (at + 1 == size && !ended_) return false;
      if (at + 1 == size || buffer_[at + 1] != '\n') Fail(at, "CR بدون LF");
      ++at;
    }
    ++at;
    ++recordLines_;
    break;
  }
  recordEnd_ = at;
  return true;
}

bool CsvReader::Next(std::vector<std::string_view>& fields) {
  if (!SkipEmptyLines()) return false;
  recordLine_ = line_;
  while (!Scan()) More();
  line_ += recordLines_;
  fields.clear();
  std::size_t used = 0;
  unquoted_.resize(std::max(unquoted_.size(), spans_.size()));
  for (const Span& span : spans_) {
    const std::string_view raw = std::string_view(buffer_).substr(span.begin, span.end - span.begin);
    if (!span.doubled) {
      fields.push_back(span.quoted ? raw : Trim(raw));
      continue;
    }
    std::string& text = unquoted_[used++];
    text.clear();
    for (std::size_t i = 0; i < raw.size(); ++i) {
      text += raw[i];
      if (raw[i] == '"') ++i;
    }
    fields.emplace_back(text);
  }
  at_ = recordEnd_;
  if ((bits_ & 0x80) == 0) return true;
  for (const std::string_view field : fields) {
    if (!IsUtf8(field)) throw RowError("نویسه ها UTF-8 نیستند");
  }
  return true;
}

}  // namespace goods
