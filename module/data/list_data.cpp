#include "module/data/list_data.h"

#include <algorithm>

#include "host/core/text.h"
#include "module/data/lookup.h"

namespace goods {
namespace {

// The codes without the commas at both ends; empty unless they are whole numbers between commas.
std::string_view TagCodes(std::string_view codes) {
  codes = Trim(codes);
  while (codes.starts_with(',')) codes.remove_prefix(1);
  while (codes.ends_with(',')) codes.remove_suffix(1);
  const std::vector<std::string> parts = Split(codes, ',');
  const bool numbers = std::all_of(parts.begin(), parts.end(),
                                   [](const std::string& part) { return ParseInteger(Trim(part)); });
  return numbers ? codes : std::string_view();
}

}  // namespace

std::int64_t SelectedListData::GoodSelectedIndex_IsChecked(std::int64_t listCode) {
  const Lookup lookup(module_, "Select Code,DisplayType from SelectedLists where Type=0 and Code=" +
                                   std::to_string(listCode));
  return lookup.Field("DisplayType").AsInteger();
}

TSelectedListFill SelectedListData::FillSelectedList(TComboBox& combo) {
  std::vector<TComboItem> items{{"هيچکدام", 0, ""}};
  TSelectedListFill fill;
  Lookup lookup(module_, "Select Code, Title, Enable, DisplayType FROM SelectedLists where Type = 0");
  lookup.ForEachRow([&](const Lookup& row) {
    if (fill.SelectedIndex < 0 && row.Field("Enable").AsBoolean())
      fill.SelectedIndex = static_cast<int>(items.size());
    items.push_back({row.Field("Title").AsText(), row.Field("Code").AsInteger(), ""});
  });
  fill.RowCount = static_cast<int>(items.size());
  combo.SetItems(std::move(items));
  return fill;
}

TTag TagData::GetTag(std::int64_t code) {
  const Lookup lookup(module_,
                      "select tags.code, TagS.color_code, TagS.Name, [H-img] from  TagS inner join colors on "
                      "TagS.color_code = colors.code  where tags.code = " +
                          std::to_string(code));
  TTag tag{std::to_string(code), std::to_string(code), kWhite};
  if (lookup.IsEmpty()) return tag;
  tag.Name = lookup.Field("Name").AsText();
  tag.Background = ParseColor(lookup.Field("H-img").AsText()).value_or(kWhite);
  return tag;
}

std::string TagData::ReturnTagName(std::string_view codes) {
  const std::string_view plain = TagCodes(codes);
  if (plain.empty()) return {};
  const Lookup lookup(module_,
                      " SELECT TOP 1 TagName = STUFF(( SELECT ',' + NAME  FROM TagS ts WHERE ts.Code IN (" +
                          std::string(plain) + ") FOR XML PATH('')),1,1,'') FROM TagS ts ");
  return lookup.Field("TagName").AsText();
}

}  // namespace goods
