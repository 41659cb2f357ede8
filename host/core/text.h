// Small text tools that statements, captions and filters are made with. All text is UTF-8.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// The text without the blanks and control characters at both ends.
std::string_view Trim(std::string_view text);

// Equal but for the letter case of A to Z; the rule for names of components and fields.
bool SameText(std::string_view a, std::string_view b);
std::string LowerAscii(std::string_view text);

// The text as a statement literal: in single quotes, each quote inside doubled.
std::string QuotedStr(std::string_view text);

// Replaces every occurrence of what.
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

// The parts between separators; an empty text has one empty part.
std::vector<std::string> Split(std::string_view text, char separator);

// The whole text as a decimal integer with an optional sign; none when it is not one or does not fit.
std::optional<std::int64_t> ParseInteger(std::string_view text);

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Persian and Arabic-Indic digits as 0 to 9, everything else as it stands: what a typed number means.
std::string AsciiDigits(std::string_view text);

// Length in characters (code points), and the first count of them.
std::size_t CharCount(std::string_view text);
std::string_view FirstChars(std::string_view text, std::size_t count);

// UTF-16 at the border of the library. Unpaired surrogates and invalid bytes become U+FFFD.
std::string FromUtf16(std::u16string_view text);
std::u16string ToUtf16(std::string_view text);

}  // namespace goods
