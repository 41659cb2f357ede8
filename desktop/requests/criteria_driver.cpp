#include "desktop/requests/criteria_driver.h"

#include <algorithm>

#include "host/components/tabs.h"
#include "host/components/token_editor.h"
#include "host/core/text.h"
#include "host/frames/general_search_frame.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/range_digit_search_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "host/frames/tags_frame.h"

namespace goods {
namespace {

// The list of a price basis, by the words of the option behind "cost".
constexpr int kHistoryPage = 2;
constexpr std::string_view kTitleSearch = "GoodDetailSearch";

template <typename Kind>
Kind* Find(TForm& form, std::string_view path) {
  return dynamic_cast<Kind*>(form.FindComponent(path));
}

template <typename Kind>
Kind& Require(TForm& form, std::string_view path) {
  auto* component = Find<Kind>(form, path);
  if (component == nullptr) {
    throw std::runtime_error("این پنجره چنین معیاری ندارد: " + form.Name() + "." + std::string(path));
  }
  return *component;
}

class MissingInCompany : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

[[noreturn]] void Missing(const ReportCriterion& criterion, const std::string& value) {
  throw MissingInCompany("--" + std::string(criterion.option) + ": چنین چیزی در این شرکت نیست: " + value);
}

[[noreturn]] void RefuseMoney(const std::string& what) {
  throw RefusedByRights("این کاربر قیمت‌ها و مبلغ‌ها را نمی‌بیند: " +
                        what);
}

bool IsWithheld(const TControl* control) {
  for (; control != nullptr; control = control->Parent()) {
    if (control->Withheld()) return true;
  }
  return false;
}

// An edit that does not take a value would leave the criterion out without a word.
void Type(TEdit& edit, const ReportCriterion& criterion, const std::string& text) {
  if (!edit.SetText(text)) {
    throw UsageError("--" + std::string(criterion.option) + ": این مقدار پذیرفته نیست: " + text);
  }
}

class Setter {
 public:
  Setter(TForm& form, const ReportSpec& report, const ReportRequest& request)
      : form_(form), report_(report), request_(request) {}

  void Set(const ReportCriterion& criterion, const std::vector<std::string>& values) {
    for (const std::string& path : Split(criterion.path, ' ')) {
      if (IsWithheld(Find<TControl>(form_, path))) RefuseMoney("--" + std::string(criterion.option));
    }
    switch (criterion.kind) {
      case CriterionKind::Code:
        return SetCode(criterion, values.front());
      case CriterionKind::Text:
        return SetText(criterion, values.front());
      case CriterionKind::Range:
        return SetRange(criterion, RangeEnds(values.front()));
      case CriterionKind::Dates:
        return SetDates(criterion, RangeEnds(values.front()));
      case CriterionKind::Period:
        return SetDates(criterion, {Given("from"), Given("to")});
      case CriterionKind::Codes:
        return SetCodes(criterion, values.front());
      case CriterionKind::Choice:
        return SetChoice(criterion, values.front());
      case CriterionKind::Object:
        return SetObject(criterion, values.front());
      case CriterionKind::Flag:
        return Require<TCheckBox>(form_, criterion.path).SetChecked(true);
      case CriterionKind::Group:
        return SetGroup(criterion, values.front());
      case CriterionKind::PriceBasis:
        return SetPriceBasis(criterion, values.front());
      case CriterionKind::Detail:
        return SetDetails(criterion, values);
    }
  }

 private:
  std::string Given(const char* option) const {
    const auto found = request_.criteria.find(option);
    return found == request_.criteria.end() ? std::string() : found->second.front();
  }
  bool Excluded(const ReportCriterion& criterion) const {
    return request_.exclude.contains(std::string(criterion.option)) ||
           (criterion.kind == CriterionKind::Period && request_.exclude.contains("period"));
  }

  // An item of a list of fields, which may be one of money.
  static void ChooseItem(TComboBox& list, const ReportCriterion& criterion) {
    const std::vector<int> offered = list.OfferedItems();
    const bool there = criterion.item < static_cast<int>(list.Items().size());
    if (there && std::find(offered.begin(), offered.end(), criterion.item) == offered.end()) {
      RefuseMoney("--" + std::string(criterion.option));
    }
    list.SetItemIndex(criterion.item);
  }

  void SetCode(const ReportCriterion& criterion, const std::string& value) {
    const std::int64_t code = ParseInteger(value).value_or(0);
    if (auto* frame = Find<TSelectEntity_Search_Frame>(form_, criterion.path)) {
      if (criterion.item >= 0) frame->SelectEntity_CMB.SetItemIndex(criterion.item);
      frame->SelectEntity_Reverst_CHK.SetChecked(Excluded(criterion));
      frame->SetCode(code);
      if (!frame->TSelect_Entity_Frame1.Exists()) Missing(criterion, value);
      return;
    }
    auto& frame = Require<TSelect_Entity_Frame>(form_, criterion.path);
    frame.SetCode(code);
    if (!frame.Exists()) Missing(criterion, value);
  }

  void SetText(const ReportCriterion& criterion, const std::string& value) {
    if (criterion.path == kTitleSearch) {
      ChooseItem(Require<TComboBox>(form_, "GoodDetailSearch_CMB"), criterion);
      return Type(Require<TEdit>(form_, "GoodDetailSearch_EDT"), criterion, value);
    }
    auto& frame = Require<TGeneral_Search_Frame>(form_, criterion.path);
    ChooseItem(frame.GeneralSearch_CMB, criterion);
    Type(frame.GeneralSearch_EDT, criterion, value);
    frame.GeneralSearch_Reverst_CHK.SetChecked(Excluded(criterion));
  }

  // A frame of its own, or a list and two edits beside each other.
  void SetRange(const ReportCriterion& criterion, const DayRange& ends) {
    if (auto* frame = Find<TRange_Digit_Search_Frame>(form_, criterion.path)) {
      ChooseItem(frame->RangeDigit_CMB, criterion);
      if (!ends.from.empty()) Type(frame->RangeDigit_From_EDT, criterion, ends.from);
      if (!ends.to.empty()) Type(frame->RangeDigit_To_EDT, criterion, ends.to);
      frame->RangeDigit_Reverst_CHK.SetChecked(Excluded(criterion));
      return;
    }
    const std::vector<std::string> names = Split(criterion.path, ' ');
    ChooseItem(Require<TComboBox>(form_, names.at(0)), criterion);
    Type(Require<TEdit>(form_, names.at(1)), criterion, ends.from);
    Type(Require<TEdit>(form_, names.at(2)), criterion, ends.to);
  }

  void SetDates(const ReportCriterion& criterion, const DayRange& ends) {
    if (auto* frame = Find<TRange_Date_Search_Frame>(form_, criterion.path)) {
      frame->RangeDate_Reverst_CHK.SetChecked(Excluded(criterion));
      if (!ends.from.empty()) Type(frame->RangeDate_From_EDT, criterion, ends.from);
      if (!ends.to.empty()) Type(frame->RangeDate_To_EDT, criterion, ends.to);
      return;
    }
    const std::string panel(criterion.path);
    Require<TCheckBox>(form_, panel + ".Date_CHK").SetChecked(true);
    Type(Require<TEdit>(form_, panel + ".Date1_EDT"), criterion, ends.from);
    Type(Require<TEdit>(form_, panel + ".Date2_EDT"), criterion, ends.to);
  }

  void SetCodes(const ReportCriterion& criterion, const std::string& value) {
    TTokenEditor* editor = Find<TTokenEditor>(form_, criterion.path);
    if (auto* tags = Find<TTags_search_FRM>(form_, criterion.path)) {
      tags->Tags_Reverst_CHK.SetChecked(Excluded(criterion));
      editor = &tags->Tags_EDT;
    }
    if (editor == nullptr) editor = &Require<TTokenEditor>(form_, criterion.path);
    const std::vector<std::string> codes = Split(value, ',');
    const auto& choices = editor->Choices();
    for (const std::string& code : codes) {
      const bool there = std::any_of(choices.begin(), choices.end(),
                                     [&](const TToken& token) { return token.Code == code; });
      if (!there) Missing(criterion, code);
    }
    editor->SetCodes(codes);
  }

  void SetChoice(const ReportCriterion& criterion, const std::string& value) {
    const std::vector<std::string> words = ChoicesOf(criterion);
    const auto index = std::find(words.begin(), words.end(), value) - words.begin();
    if (criterion.path.find(' ') != std::string_view::npos) {
      Require<TRadioButton>(form_, Split(criterion.path, ' ').at(static_cast<std::size_t>(index)))
          .SetChecked(true);
    } else if (auto* pages = Find<TPageControl>(form_, criterion.path)) {
      if (IsWithheld(pages->Pages().at(static_cast<std::size_t>(index)))) {
        RefuseMoney("--" + std::string(criterion.option) + " " + value);
      }
      pages->SetActivePageIndex(static_cast<int>(index));
    } else {
      Require<TTabControl>(form_, criterion.path).SetTabIndex(static_cast<int>(index));
    }
  }

  void SetObject(const ReportCriterion& criterion, const std::string& value) {
    auto& combo = Require<TComboBox>(form_, criterion.path);
    const std::int64_t object = ParseInteger(value).value_or(0);
    const auto& items = combo.Items();
    for (std::size_t i = 1; i < items.size(); ++i) {
      if (items[i].Object == object) return combo.SetItemIndex(static_cast<int>(i));
    }
    Missing(criterion, value);
  }

  void SetGroup(const ReportCriterion& criterion, const std::string& value) {
    auto& grid = Require<TSmartDBGrid_QRT>(form_, report_.groups);
    const Value key[] = {Value(ParseInteger(value).value_or(0))};
    if (grid.DataSet() == nullptr || !grid.DataSet()->Locate("Code", key)) Missing(criterion, value);
  }

  void SetPriceBasis(const ReportCriterion& criterion, const std::string& value) {
    const std::string panel(criterion.path);
    auto& box = Require<TCheckBox>(form_, panel + ".Stock_CHK");
    const std::vector<std::string> words = ChoicesOf(criterion);
    const auto word = std::find(words.begin(), words.end(), value);
    if (word == words.begin()) return box.SetChecked(false);
    auto& pages = Require<TPageControl>(form_, panel + ".CostLevelType_PGC");
    const bool buy = value.starts_with("buy:");
    pages.SetActivePageIndex(word != words.end() ? kHistoryPage : buy ? 0 : 1);
    const char* list = word != words.end() ? ".RialsHistory_GRD"
                       : buy               ? ".CostLevelBuyList_GRD"
                                           : ".CostLevelSellList_GRD";
    auto& grid = Require<TSmartDBGrid_QRT>(form_, panel + list);
    TADOQuery* rows = grid.DataSet();
    if (rows == nullptr) Missing(criterion, value);
    if (word != words.end()) {
      const auto row = static_cast<std::size_t>(word - words.begin()) - 1;
      if (row >= rows->RecordCount()) Missing(criterion, value);
      rows->MoveTo(row);
    } else {
      const Value key[] = {Value(ParseInteger(value.substr(value.find(':') + 1)).value_or(0))};
      if (!rows->Locate("Code", key)) Missing(criterion, value);
    }
    grid.DoubleClick();
  }

  // The first detail stands in the window, the others in its dialog.
  void SetDetails(const ReportCriterion& criterion, const std::vector<std::string>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string number = std::to_string(i + 1);
      auto* kinds = Find<TComboBox>(form_, "GoodDetailSelectSearch" + number + "_CMB");
      if (kinds == nullptr) continue;
      const auto equals = values[i].find('=');
      const std::string title = values[i].substr(0, equals);
      const auto& items = kinds->Items();
      const auto item = std::find_if(items.begin(), items.end(), [&](const TComboItem& each) {
        return Trim(each.Text) == Trim(title) || std::to_string(each.Object) == title;
      });
      if (item == items.end()) Missing(criterion, title);
      kinds->SetItemIndex(static_cast<int>(item - items.begin()));
      SetDetail(criterion, number, values[i].substr(equals + 1));
    }
  }

  void SetDetail(const ReportCriterion& criterion, const std::string& number, const std::string& value) {
    const DayRange ends = RangeEnds(value);
    auto& list = Require<TComboBox>(form_, "GoodDetail" + number + "_CMB");
    auto& from = Require<TEdit>(form_, "FromGoodDetail" + number + "_EDT");
    auto& fromDate = Require<TEdit>(form_, "FromGoodDetailDate" + number + "_EDT");
    if (list.Visible()) {
      list.SetText(value);
      if (Trim(list.Text()) != Trim(value)) Missing(criterion, value);
    } else {
      const bool dates = fromDate.Visible();
      Type(dates ? fromDate : from, criterion, ends.from);
      Type(Require<TEdit>(form_, (dates ? "ToGoodDetailDate" : "ToGoodDetail") + number + "_EDT"), criterion,
           ends.to);
    }
  }

  TForm& form_;
  const ReportSpec& report_;
  const ReportRequest& request_;
};

// Details stand in two places at once.
bool StandsIn(const ReportCriterion& criterion, CriterionPlace place) {
  if (criterion.place == place) return true;
  if (criterion.kind != CriterionKind::Detail) return false;
  return (criterion.place == CriterionPlace::Window && place == CriterionPlace::Dialog) ||
         (criterion.place == CriterionPlace::Outer && place == CriterionPlace::OuterDialog);
}

const std::vector<std::string>* ValuesOf(const ReportCriterion& criterion, const ReportRequest& request) {
  const auto found = request.criteria.find(std::string(criterion.option));
  if (found != request.criteria.end()) return &found->second;
  if (criterion.kind != CriterionKind::Period) return nullptr;
  const auto end = request.criteria.find("to");
  return end == request.criteria.end() ? nullptr : &end->second;
}

template <typename Visit>
void ForEachAsked(const ReportSpec& report, const ReportRequest& request, CriterionPlace place,
                  const Visit& visit) {
  // The good comes last: the others then count from its first reading on.
  for (const bool good : {false, true}) {
    for (const ReportCriterion& criterion : report.criteria) {
      const auto* values = ValuesOf(criterion, request);
      if (values == nullptr || (criterion.option == "good") != good || !StandsIn(criterion, place)) continue;
      visit(criterion, *values);
    }
  }
}

TGridColumn& ColumnOf(TSmartDBGrid_QRT& grid, const std::string& field) {
  TGridColumn* column = grid.FindColumn(field);
  if (column != nullptr && IsOffered(*column)) return *column;
  if (column != nullptr && column->Withheld()) RefuseMoney(field);
  std::string known;
  for (const auto& each : grid.Columns()) {
    if (IsOffered(*each)) known += " " + each->FieldName();
  }
  throw UsageError("ستونی با این نام نیست: " + field + " (یکی از:" + known + ")");
}

}  // namespace

bool IsOffered(const TGridColumn& column) { return column.Visible() || column.Customizable(); }

bool AsksIn(const ReportSpec& report, const ReportRequest& request, CriterionPlace place) {
  return std::any_of(report.criteria.begin(), report.criteria.end(), [&](const ReportCriterion& criterion) {
    const auto* values = ValuesOf(criterion, request);
    if (values == nullptr || !StandsIn(criterion, place)) return false;
    // The first detail is the window's own.
    return criterion.place == place || values->size() > 1;
  });
}

void SetCriteria(TForm& form, const ReportSpec& report, const ReportRequest& request, CriterionPlace place) {
  Setter setter(form, report, request);
  ForEachAsked(report, request, place,
               [&](const ReportCriterion& criterion, const auto& values) { setter.Set(criterion, values); });
}

void SetCriteria(TForm& form, const ReportSpec& report, const ReportRequest& request, CriterionPlace place,
                 const AskedCriteria& there, std::vector<std::string>& problems) {
  Setter setter(form, report, request);
  ForEachAsked(report, request, place, [&](const ReportCriterion& criterion, const auto& values) {
    if (there.Same(criterion, request)) return;
    try {
      setter.Set(criterion, values);
    } catch (const UsageError& error) {
      problems.emplace_back(error.what());
    } catch (const RefusedByRights& error) {
      problems.emplace_back(error.what());
    } catch (const MissingInCompany& error) {
      problems.emplace_back(error.what());
    }
  });
}

void ShowColumns(TSmartDBGrid_QRT& grid, const std::vector<std::string>& fields) {
  if (fields.empty()) return;
  std::vector<TGridColumn*> chosen;
  for (const std::string& field : fields) chosen.push_back(&ColumnOf(grid, field));
  for (const auto& column : grid.Columns()) {
    const bool shown = std::find(chosen.begin(), chosen.end(), column.get()) != chosen.end();
    if (column->Visible() != shown) column->SetVisible(shown);
  }
  std::size_t place = 0;
  for (const TGridColumn* column : chosen) {
    const auto& all = grid.Columns();
    const auto at =
        std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.get() == column; });
    grid.MoveColumn(static_cast<std::size_t>(at - all.begin()), place++);
  }
}

void SortBy(TSmartDBGrid_QRT& grid, const std::vector<std::string>& fields) {
  if (fields.empty()) return;
  std::vector<TSortKey> keys;
  for (const std::string& field : fields) {
    const bool descending = field.starts_with('-');
    keys.push_back({ColumnOf(grid, descending ? field.substr(1) : field).FieldName(), descending});
  }
  grid.SetSortKeys(std::move(keys));
}

void ClickButton(TForm& form, std::string_view name) {
  auto& button = Require<TControl>(form, name);
  if (!button.CanFocus()) throw std::runtime_error("این کار در این پنجره ممکن نیست: " + std::string(name));
  button.Click();
}

}  // namespace goods
