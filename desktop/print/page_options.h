// What the user chooses of a report's paper.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace goods {

enum class SheetDirection { ByColumns, Upright, Lying };

struct PageOptions {
  static constexpr int kLeastText = 5;  // points
  static constexpr int kMostText = 16;
  static constexpr int kLeastWidth = 30;  // per cent
  static constexpr int kMostWidth = 400;

  int textSize = 0;  // points; 0: as suits the columns
  SheetDirection sheet = SheetDirection::ByColumns;
  // By the column's name (ReportColumn::name): per cent of the width that it has on the screen. Columns that
  // are not named have that width.
  std::map<std::string, int> widths;

  friend bool operator==(const PageOptions&, const PageOptions&) = default;
};

// A line a choice, for a section of the settings; empty where nothing is chosen. What a text holds beside
// choices within their bounds is passed over.
std::string TextOf(const PageOptions& options);
PageOptions PageOptionsOf(std::string_view text);

}  // namespace goods
