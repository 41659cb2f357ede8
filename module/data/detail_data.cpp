#include "module/data/detail_data.h"

#include <optional>
#include <utility>

#include "host/core/text.h"
#include "module/data/lookup.h"
#include "module/framework/movement_types.h"
#include "module/framework/texts.h"

namespace goods {
namespace {

std::string CodeAndText(std::int64_t code, std::string_view text) {
  return std::to_string(code) + ";" + std::string(text) + ";";
}

}  // namespace

std::vector<std::string> DetailData::GetDetailItems(std::int64_t detail) {
  std::vector<std::string> items{"انتخاب کنید..."};
  Lookup lookup(module_, "SELECT * FROM DetailTypesItems dti WHERE dti.DetailID = " + std::to_string(detail) +
                             " ORDER BY dti.Row");
  lookup.ForEachRow([&](const Lookup& row) { items.push_back(row.Field("Value").AsText()); });
  return items;
}

TDetailType DetailData::GetDetailTypeWithDetailID(std::int64_t detail) {
  const Lookup lookup(module_, "SELECT * FROM DetailTypes dt WHERE dt.ID = " + std::to_string(detail));
  return {lookup.Field("DetailType").AsInteger(), lookup.Field("DateType").AsInteger()};
}

void DetailData::ComboBoxFill_WithItems(TComboBox& combo) {
  std::vector<std::string> rows;
  Lookup lookup(module_, "SELECT * FROM DetailTypes ORDER BY ID");
  lookup.ForEachRow([&](const Lookup& row) {
    rows.push_back(CodeAndText(row.Field("ID").AsInteger(), row.Field("Title").AsText()));
  });
  ComboBoxFill_WithObjectID(combo, rows);
}

void DetailData::ComboBoxFill_WithObjectID(TComboBox& combo, const std::vector<std::string>& rows) {
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

void DetailData::ComboBoxOperationFill_WithItems(TComboBox& combo) {
  std::vector<std::string> rows;
  for (const MovementTypeRow& row : kMovementTypes) {
    if (row.label.empty()) continue;
    rows.push_back(CodeAndText(static_cast<int>(row.type), "  " + std::string(row.label)));
  }
  ComboBoxFill_WithObjectID(combo, rows);
}

TGoodUnitInfo DetailData::GetGoodUnitInfo(std::int64_t good) {
  const Lookup lookup(
      module_,
      " SELECT g.Unit AS Unit1Code, u.Name AS Unit1Name, g.Unit2 AS Unit2Code, u2.Name AS Unit2Name   "
      "FROM GoodInf g JOIN Units u ON g.Unit = u.Code JOIN Units u2 ON g.Unit2 = u2.Code WHERE g.Code = " +
          std::to_string(good));
  return {lookup.Field("Unit1Code").AsInteger(), lookup.Field("Unit1Name").AsText(),
          lookup.Field("Unit2Code").AsInteger(), lookup.Field("Unit2Name").AsText()};
}

std::int64_t DetailData::GoodDetailChange_ComboBox(const TComboBox& detail, const TDetailControls& controls) {
  const std::int64_t code = detail.ItemIndex() > 0 ? detail.ItemObject() : 0;
  const std::int64_t type = code == 0 ? 0 : GetDetailTypeWithDetailID(code).DetailType;
  const bool value = type == kPickedValue || type == kTypedValue;
  const bool range = type == kNumber || type == kOtherNumber;
  const bool date = type == kDate;
  std::vector<TComboItem> items;
  if (value) {
    for (std::string& item : GetDetailItems(code)) items.push_back({std::move(item), 0, ""});
  }
  controls.Value.SetStyle(type == kTypedValue ? ComboStyle::Typing : ComboStyle::PickList);
  controls.Value.SetItems(std::move(items));
  if (type == kTypedValue) controls.Value.SetText("");
  controls.Value.SetVisible(value);
  for (TEdit* edit : {&controls.From, &controls.To}) {
    edit->SetKind(range ? InputKind::Amount : InputKind::Text);
    edit->Clear();
  }
  controls.From.SetVisible(range || type == kOneValue);
  controls.To.SetVisible(range);
  for (TDateEdit* edit : {&controls.FromDate, &controls.ToDate}) {
    edit->Clear();
    edit->SetVisible(date);
  }
  controls.FromLabel.SetVisible(range || date);
  controls.ToLabel.SetVisible(range || date);
  return type;
}

void TDetailReportRows::Fetch(std::string_view parameters, TForm* window, int mode, bool shown) {
  if (!shown) return;
  std::optional<WaitingScope> waiting;
  if (mode == 1) waiting.emplace(module_.Host().Waiting(), window, kFetchingData);
  Query.SetSQL(std::string(head_) + std::string(parameters));
  Query.Open();
}

}  // namespace goods
