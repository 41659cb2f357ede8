// Small lookups, and the lists that combo boxes are filled from.
#include <algorithm>

#include "host/core/text.h"
#include "module/data/good_transactions_dm.h"
#include "module/data/lookup.h"
#include "module/data/movement_types.h"
#include "module/framework/criteria_text.h"

namespace goods {
namespace {

constexpr std::string_view kEnglishLayout = "00000409";
constexpr std::string_view kPersianLayout = "00000429";

std::string CodeAndText(std::int64_t code, std::string_view text) {
  return std::to_string(code) + ";" + std::string(text) + ";";
}

// The codes without the commas at both ends; empty unless they are numbers and commas only.
std::string_view TagCodes(std::string_view codes) {
  codes = Trim(codes);
  while (codes.starts_with(',')) codes.remove_prefix(1);
  while (codes.ends_with(',')) codes.remove_suffix(1);
  const bool numbers = codes.find_first_not_of("0123456789, -") == std::string_view::npos;
  return numbers ? codes : std::string_view();
}

}  // namespace

std::vector<std::string> TGoodTransactions_DM::GetDetailItems(std::int64_t detail) {
  std::vector<std::string> items{"انتخاب کنید..."};
  Lookup lookup(*this, "SELECT * FROM DetailTypesItems dti WHERE dti.DetailID = " + std::to_string(detail) +
                           " ORDER BY dti.Row");
  lookup.ForEachRow([&](const Lookup& row) { items.push_back(row.Field("Value").AsText()); });
  return items;
}

TDetailType TGoodTransactions_DM::GetDetailTypeWithDetailID(std::int64_t detail) {
  const Lookup lookup(*this, "SELECT * FROM DetailTypes dt WHERE dt.ID = " + std::to_string(detail));
  return {lookup.Field("DetailType").AsInteger(), lookup.Field("DateType").AsInteger()};
}

void TGoodTransactions_DM::ComboBoxFill_WithItems(TComboBox& combo) {
  std::vector<std::string> rows;
  Lookup lookup(*this, "SELECT * FROM DetailTypes ORDER BY ID");
  lookup.ForEachRow([&](const Lookup& row) {
    rows.push_back(CodeAndText(row.Field("ID").AsInteger(), row.Field("Title").AsText()));
  });
  ComboBoxFill_WithObjectID(combo, rows);
}

void TGoodTransactions_DM::ComboBoxFill_WithObjectID(TComboBox& combo, const std::vector<std::string>& rows) {
  std::vector<TComboItem> items{{"  انتخاب کنید...", 0, ""}};
  for (const std::string& row : rows) {
    const std::size_t code = row.find(';');
    const std::size_t end = row.rfind(';');
    if (code == std::string::npos) continue;
    // The title may hold the mark itself.
    std::string title = end == code ? row.substr(code + 1) : row.substr(code + 1, end - code - 1);
    items.push_back({std::move(title), ParseInteger(row.substr(0, code)).value_or(0), row});
  }
  combo.SetItems(std::move(items));
}

void TGoodTransactions_DM::ComboBoxOperationFill_WithItems(TComboBox& combo) {
  std::vector<std::string> rows;
  for (const MovementType& type : OfferedMovementTypes()) {
    rows.push_back(CodeAndText(type.code, "  " + std::string(type.label)));
  }
  ComboBoxFill_WithObjectID(combo, rows);
}

TGoodUnitInfo TGoodTransactions_DM::GetGoodUnitInfo(std::int64_t good) {
  const Lookup lookup(
      *this,
      " SELECT g.Unit AS Unit1Code, u.Name AS Unit1Name, g.Unit2 AS Unit2Code, u2.Name AS Unit2Name   "
      "FROM GoodInf g JOIN Units u ON g.Unit = u.Code JOIN Units u2 ON g.Unit2 = u2.Code WHERE g.Code = " +
          std::to_string(good));
  return {lookup.Field("Unit1Code").AsInteger(), lookup.Field("Unit1Name").AsText(),
          lookup.Field("Unit2Code").AsInteger(), lookup.Field("Unit2Name").AsText()};
}

std::vector<TComboItem> TGoodTransactions_DM::Get_StoresTitles_SortedByCode() {
  std::vector<TComboItem> stores;
  Lookup lookup(*this, "SELECT * FROM Stores ORDER BY Code");
  lookup.ForEachRow([&](const Lookup& row) {
    stores.push_back({row.Field("Name").AsText(), row.Field("Code").AsInteger(), ""});
  });
  return stores;
}

TTag TGoodTransactions_DM::GetTag(std::int64_t code) {
  const Lookup lookup(*this,
                      "select tags.code, TagS.color_code, TagS.Name, [H-img] from  TagS inner join colors on "
                      "TagS.color_code = colors.code  where tags.code = " +
                          std::to_string(code));
  TTag tag{std::to_string(code), std::to_string(code), kWhite};
  if (lookup.IsEmpty()) return tag;
  tag.Name = lookup.Field("Name").AsText();
  tag.Background = ParseColor(lookup.Field("H-img").AsText()).value_or(kWhite);
  return tag;
}

std::string TGoodTransactions_DM::ReturnTagName(std::string_view codes) {
  const std::string_view plain = TagCodes(codes);
  if (plain.empty()) return {};
  const Lookup lookup(*this,
                      " SELECT TOP 1 TagName = STUFF(( SELECT ',' + NAME  FROM TagS ts WHERE ts.Code IN (" +
                          std::string(plain) + ") FOR XML PATH('')),1,1,'') FROM TagS ts ");
  return lookup.Field("TagName").AsText();
}

std::int64_t TGoodTransactions_DM::GoodSelectedIndex_IsChecked(std::int64_t listCode) {
  const Lookup lookup(
      *this, "Select Code,DisplayType from SelectedLists where Type=0 and Code=" + std::to_string(listCode));
  return lookup.Field("DisplayType").AsInteger();
}

TSelectedListFill TGoodTransactions_DM::FillSelectedList(TComboBox& combo) {
  std::vector<TComboItem> items{{"هيچکدام", 0, ""}};
  TSelectedListFill fill;
  Lookup lookup(*this, "Select Code, Title, Enable, DisplayType FROM SelectedLists where Type = 0");
  lookup.ForEachRow([&](const Lookup& row) {
    if (fill.SelectedIndex < 0 && row.Field("Enable").AsBoolean())
      fill.SelectedIndex = static_cast<int>(items.size());
    items.push_back({row.Field("Title").AsText(), row.Field("Code").AsInteger(), ""});
  });
  fill.RowCount = static_cast<int>(items.size());
  combo.SetItems(std::move(items));
  return fill;
}

void TGoodTransactions_DM::SerialBarcode_EDTOnEnter(TEdit& /*edit*/) {
  host_.Windows().ActivateKeyboardLayout(kEnglishLayout);
}

void TGoodTransactions_DM::SerialBarcode_EDTOnExit(TEdit& /*edit*/) {
  host_.Windows().ActivateKeyboardLayout(kPersianLayout);
}

std::string TGoodTransactions_DM::ADDFarsiFilter(std::string_view condition, std::string_view filter) {
  return AddFarsiFilter(condition, filter);
}

std::string TGoodTransactions_DM::FarsiFilterOf(const std::vector<std::string>& conditions) {
  return goods::FarsiFilterOf(conditions);
}

}  // namespace goods
