#include "desktop/requests/file_names.h"

#include <array>
#include <optional>
#include <string_view>

#include "desktop/requests/report_request.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::size_t kLongestName = 80;  // characters

std::string AsNamePart(std::string_view text) {
  std::string name;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    name += byte < ' ' || c == '/' || c == '\\' || c == ':' ? '_' : c;
  }
  if (name == "." || name == "..") name = "_";
  return std::string(FirstChars(name, kLongestName));
}

std::optional<std::string> ValueOf(std::string_view placeholder, const FileNameValues& values) {
  const std::vector<std::string> date = Split(values.today, '/');
  const auto part = [&](std::size_t index) { return index < date.size() ? date[index] : std::string(); };
  if (placeholder == "date") return ReplaceAll(values.today, "/", "-");
  if (placeholder == "year") return part(0);
  if (placeholder == "month") return part(1);
  if (placeholder == "day") return part(2);
  if (placeholder == "report") return values.report;
  if (placeholder == "code") return std::to_string(values.code);
  if (placeholder == "name") return AsNamePart(values.name);
  return std::nullopt;
}

template <typename Found>
std::string Expand(const std::string& pattern, Found found) {
  std::string out;
  std::size_t at = 0;
  while (at < pattern.size()) {
    const auto open = pattern.find('{', at);
    const auto close = open == std::string::npos ? open : pattern.find('}', open);
    if (close == std::string::npos) break;
    out.append(pattern, at, open - at);
    out += found(pattern.substr(open + 1, close - open - 1));
    at = close + 1;
  }
  return out.append(pattern, std::min(at, pattern.size()), std::string::npos);
}

}  // namespace

std::string FileNameFor(const std::string& pattern, const FileNameValues& values) {
  return Expand(pattern,
                [&](const std::string& name) { return ValueOf(name, values).value_or("{" + name + "}"); });
}

void CheckPlaceholders(const std::string& pattern) {
  Expand(pattern, [&](const std::string& name) {
    if (!ValueOf(name, {})) throw UsageError("در نام پرونده این جانشین شناخته نیست: {" + name + "}");
    return std::string();
  });
}

}  // namespace goods
