#include "desktop/print/page_options.h"

#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::string_view kTextLine = "text=";
constexpr std::string_view kSheetLine = "sheet=";
constexpr std::string_view kWidthLine = "width ";

bool IsWithin(std::int64_t number, int least, int most) { return number >= least && number <= most; }

void ReadWidth(std::string_view line, PageOptions& options) {
  const auto equals = line.rfind('=');
  if (equals == std::string_view::npos || equals == 0) return;
  const std::int64_t width = ParseInteger(line.substr(equals + 1)).value_or(0);
  if (IsWithin(width, PageOptions::kLeastWidth, PageOptions::kMostWidth))
    options.widths[std::string(line.substr(0, equals))] = static_cast<int>(width);
}

}  // namespace

std::string TextOf(const PageOptions& options) {
  std::string text;
  if (options.textSize != 0) text += std::string(kTextLine) + std::to_string(options.textSize) + "\n";
  if (options.sheet != SheetDirection::ByColumns)
    text += std::string(kSheetLine) + (options.sheet == SheetDirection::Upright ? "upright" : "lying") + "\n";
  for (const auto& [name, width] : options.widths)
    text += std::string(kWidthLine) + name + "=" + std::to_string(width) + "\n";
  return text;
}

PageOptions PageOptionsOf(std::string_view text) {
  PageOptions options;
  for (const std::string& each : Split(text, '\n')) {
    const std::string_view line = Trim(each);
    if (line.starts_with(kTextLine)) {
      const std::int64_t size = ParseInteger(line.substr(kTextLine.size())).value_or(0);
      if (IsWithin(size, PageOptions::kLeastText, PageOptions::kMostText))
        options.textSize = static_cast<int>(size);
    } else if (line.starts_with(kSheetLine)) {
      const std::string_view sheet = line.substr(kSheetLine.size());
      if (sheet == "upright") options.sheet = SheetDirection::Upright;
      if (sheet == "lying") options.sheet = SheetDirection::Lying;
    } else if (line.starts_with(kWidthLine)) {
      ReadWidth(line.substr(kWidthLine.size()), options);
    }
  }
  return options;
}

}  // namespace goods
