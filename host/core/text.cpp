#include "host/core/text.h"

#include <algorithm>
#include <charconv>

namespace goods {
namespace {

char LowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

void AppendCodePoint(std::string& out, char32_t c) {
  const auto byte = [&out](char32_t value) { out.push_back(static_cast<char>(value)); };
  if (c < 0x80) {
    byte(c);
  } else if (c < 0x800) {
    byte(0xC0U | (c >> 6U));
    byte(0x80U | (c & 0x3FU));
  } else if (c < 0x10000) {
    byte(0xE0U | (c >> 12U));
    byte(0x80U | ((c >> 6U) & 0x3FU));
    byte(0x80U | (c & 0x3FU));
  } else {
    byte(0xF0U | (c >> 18U));
    byte(0x80U | ((c >> 12U) & 0x3FU));
    byte(0x80U | ((c >> 6U) & 0x3FU));
    byte(0x80U | (c & 0x3FU));
  }
}

constexpr char32_t kReplacement = 0xFFFD;

// Decodes the code point at position i and moves i past it.
char32_t NextCodePoint(std::string_view text, std::size_t& i) {
  const auto lead = static_cast<unsigned char>(text[i++]);
  if (lead < 0x80) return lead;
  const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
  if (more == 0 || lead > 0xF4) return kReplacement;
  char32_t c = lead & (0x3FU >> static_cast<unsigned>(more));
  for (int k = 0; k < more; ++k) {
    if (i >= text.size() || !IsContinuation(text[i])) return kReplacement;
    c = (c << 6U) | (static_cast<unsigned char>(text[i++]) & 0x3FU);
  }
  constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  const bool surrogate = c >= 0xD800 && c < 0xE000;
  return c < kSmallest[more] || c > 0x10FFFF || surrogate ? kReplacement : c;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const auto blank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

bool SameText(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](char x, char y) { return LowerChar(x) == LowerChar(y); });
}

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerChar);
  return lower;
}

std::string QuotedStr(std::string_view text) { return "'" + ReplaceAll(text, "'", "''") + "'"; }

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  std::string out;
  std::size_t from = 0;
  for (std::size_t at = text.find(what); at != std::string_view::npos && !what.empty();
       at = text.find(what, from)) {
    out.append(text.substr(from, at - from)).append(with);
    from = at + what.size();
  }
  return out.append(text.substr(from));
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator, from)) {
    parts.emplace_back(text.substr(from, at - from));
    from = at + 1;
  }
  parts.emplace_back(text.substr(from));
  return parts;
}

std::optional<std::int64_t> ParseInteger(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::string AsciiDigits(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t start = i;
    const char32_t c = NextCodePoint(text, i);
    if (c >= 0x6F0 && c <= 0x6F9) {
      out.push_back(static_cast<char>('0' + (c - 0x6F0)));
    } else if (c >= 0x660 && c <= 0x669) {
      out.push_back(static_cast<char>('0' + (c - 0x660)));
    } else {
      out.append(text.substr(start, i - start));
    }
  }
  return out;
}

std::size_t CharCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

std::string_view FirstChars(std::string_view text, std::size_t count) {
  std::size_t i = 0;
  for (; i < text.size(); ++i) {
    if (IsContinuation(text[i])) continue;
    if (count-- == 0) break;
  }
  return text.substr(0, i);
}

std::string FromUtf16(std::u16string_view text) {
  std::string out;
  out.reserve(text.size() * 2);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t unit = text[i];
    if (unit < 0xD800 || unit >= 0xE000) {
      AppendCodePoint(out, unit);
    } else if (unit < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
      AppendCodePoint(out, 0x10000 + ((unit - 0xD800) << 10U) + (text[++i] - 0xDC00U));
    } else {
      AppendCodePoint(out, kReplacement);
    }
  }
  return out;
}

std::u16string ToUtf16(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const char32_t c = NextCodePoint(text, i);
    if (c < 0x10000) {
      out.push_back(static_cast<char16_t>(c));
    } else {
      out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10U)));
      out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FFU)));
    }
  }
  return out;
}

}  // namespace goods
