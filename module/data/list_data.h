// The lists that the company's users make of their goods: selected lists, and tags.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/components/standard.h"
#include "host/services/lookups.h"
#include "module/data/data_module.h"

namespace goods {

// How many rows a selected-list control has ("هيچکدام" included), and which to select; -1 none.
struct TSelectedListFill {
  int RowCount = 0;
  int SelectedIndex = -1;
};

class SelectedListData {
 public:
  explicit SelectedListData(DataModule& module) : module_(module) {}
  std::int64_t GoodSelectedIndex_IsChecked(std::int64_t listCode);
  TSelectedListFill FillSelectedList(TComboBox& combo);

 private:
  DataModule& module_;
};

class TagData {
 public:
  explicit TagData(DataModule& module) : module_(module) {}
  // A tag's name and colour; the code alone where there is no such tag.
  TTag GetTag(std::int64_t code);
  // codes: comma separated, outer commas allowed; none of them, or anything but whole numbers: the empty
  // text.
  std::string ReturnTagName(std::string_view codes);

 private:
  DataModule& module_;
};

}  // namespace goods
