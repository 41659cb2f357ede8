#include "desktop/requests/criteria_reader.h"

#include <algorithm>
#include <array>

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

constexpr int kMostDetailRows = 5;
// The price history, by the order of the words behind "cost".
constexpr std::array<int, 6> kHistoryBases{1, 2, 3, 11, 12, 13};

template <typename Kind>
Kind* Seen(TForm& form, std::string_view path) {
  auto* component = dynamic_cast<Kind*>(form.FindComponent(path));
  for (const TControl* control = component; control != nullptr; control = control->Parent()) {
    if (!control->Visible()) return nullptr;
  }
  return component;
}

std::string Ends(const std::string& from, const std::string& to) { return from + ".." + to; }

class CriteriaReader {
 public:
  CriteriaReader(TForm& form, const ReportSpec& report, AskedCriteria& into)
      : form_(form), report_(report), into_(into) {}

  void Read(const ReportCriterion& criterion) {
    switch (criterion.kind) {
      case CriterionKind::Code:
        return ReadCode(criterion);
      case CriterionKind::Text:
        return ReadText(criterion);
      case CriterionKind::Range:
        return ReadRange(criterion);
      case CriterionKind::Dates:
      case CriterionKind::Period:
        return ReadDates(criterion);
      case CriterionKind::Codes:
        return ReadCodes(criterion);
      case CriterionKind::Choice:
        return ReadChoice(criterion);
      case CriterionKind::Object:
        if (const auto* combo = Seen<TComboBox>(form_, criterion.path);
            combo != nullptr && combo->ItemIndex() > 0)
          Put(criterion, std::to_string(combo->ItemObject()));
        return;
      case CriterionKind::Flag:
        if (const auto* box = Seen<TCheckBox>(form_, criterion.path);
            box != nullptr && box->Checked() && box->Enabled())
          Put(criterion, "1");
        return;
      case CriterionKind::Group:
        return ReadGroup(criterion);
      case CriterionKind::PriceBasis:
        return ReadPriceBasis(criterion);
      case CriterionKind::Detail:
        return ReadDetails(criterion);
    }
  }

 private:
  void Put(const ReportCriterion& criterion, std::string value, bool reversed = false) {
    const std::string option(criterion.option);
    into_.criteria[option] = {std::move(value)};
    if (reversed && criterion.exclude) into_.exclude.insert(option);
  }

  static bool Chosen(const TComboBox& list, const ReportCriterion& criterion) {
    return criterion.item < 0 || list.Items().empty() || list.ItemIndex() == criterion.item;
  }

  void ReadCode(const ReportCriterion& criterion) {
    if (const auto* frame = Seen<TSelectEntity_Search_Frame>(form_, criterion.path)) {
      if (frame->InUse() && Chosen(frame->SelectEntity_CMB, criterion))
        Put(criterion, std::to_string(frame->CodeAsInt()), frame->SelectEntity_Reverst_CHK.Checked());
    } else if (const auto* code = Seen<TSelect_Entity_Frame>(form_, criterion.path);
               code != nullptr && code->CodeAsInt() != 0) {
      Put(criterion, std::to_string(code->CodeAsInt()));
    }
  }

  void ReadText(const ReportCriterion& criterion) {
    if (const auto* frame = Seen<TGeneral_Search_Frame>(form_, criterion.path)) {
      const std::string text = frame->GeneralSearch_EDT.Value();
      if (!text.empty() && frame->GeneralSearch_CHK.Checked() && Chosen(frame->GeneralSearch_CMB, criterion))
        Put(criterion, text, frame->GeneralSearch_Reverst_CHK.Checked());
      return;
    }
    const std::string name(criterion.path);
    const auto* list = Seen<TComboBox>(form_, name + "_CMB");
    const auto* edit = Seen<TEdit>(form_, name + "_EDT");
    if (list != nullptr && edit != nullptr && Chosen(*list, criterion) && !edit->Value().empty())
      Put(criterion, edit->Value());
  }

  void ReadRange(const ReportCriterion& criterion) {
    if (const auto* frame = Seen<TRange_Digit_Search_Frame>(form_, criterion.path)) {
      if (frame->InUse() && Chosen(frame->RangeDigit_CMB, criterion))
        Put(criterion, Ends(frame->FromValue(), frame->ToValue()), frame->RangeDigit_Reverst_CHK.Checked());
      return;
    }
    const std::vector<std::string> names = Split(criterion.path, ' ');
    if (names.size() != 3) return;
    const auto* list = Seen<TComboBox>(form_, names[0]);
    const auto* from = Seen<TEdit>(form_, names[1]);
    const auto* to = Seen<TEdit>(form_, names[2]);
    if (list == nullptr || from == nullptr || to == nullptr || !Chosen(*list, criterion)) return;
    if (!from->Value().empty() || !to->Value().empty()) Put(criterion, Ends(from->Value(), to->Value()));
  }

  void PutDates(const ReportCriterion& criterion, const std::string& from, const std::string& to,
                bool reversed) {
    if (from.empty() && to.empty()) return;
    if (criterion.kind == CriterionKind::Dates) return Put(criterion, Ends(from, to), reversed);
    Put(criterion, from, reversed);
    if (!to.empty()) into_.criteria["to"] = {to};
  }

  void ReadDates(const ReportCriterion& criterion) {
    if (criterion.path.empty()) return;
    if (const auto* frame = Seen<TRange_Date_Search_Frame>(form_, criterion.path)) {
      if (frame->InUse())
        PutDates(criterion, frame->FromDate(), frame->ToDate(), frame->RangeDate_Reverst_CHK.Checked());
      return;
    }
    const std::string panel(criterion.path);
    const auto* box = Seen<TCheckBox>(form_, panel + ".Date_CHK");
    const auto* from = Seen<TEdit>(form_, panel + ".Date1_EDT");
    const auto* to = Seen<TEdit>(form_, panel + ".Date2_EDT");
    if (box != nullptr && from != nullptr && to != nullptr && box->Checked())
      PutDates(criterion, from->Value(), to->Value(), false);
  }

  void ReadCodes(const ReportCriterion& criterion) {
    const TTokenEditor* editor = Seen<TTokenEditor>(form_, criterion.path);
    bool reversed = false;
    if (const auto* tags = Seen<TTags_search_FRM>(form_, criterion.path)) {
      editor = &tags->Tags_EDT;
      reversed = tags->Tags_Reverst_CHK.Checked();
    }
    if (editor != nullptr && !editor->Tokens().empty()) Put(criterion, editor->CodesText(), reversed);
  }

  void ReadChoice(const ReportCriterion& criterion) {
    const std::vector<std::string> words = ChoicesOf(criterion);
    int index = -1;
    if (criterion.path.find(' ') != std::string_view::npos) {
      const std::vector<std::string> names = Split(criterion.path, ' ');
      for (std::size_t i = 0; i < names.size(); ++i) {
        const auto* button = Seen<TRadioButton>(form_, names[i]);
        if (button != nullptr && button->Checked()) index = static_cast<int>(i);
      }
    } else if (const auto* pages = Seen<TPageControl>(form_, criterion.path)) {
      index = pages->ActivePageIndex();
    } else if (const auto* tabs = Seen<TTabControl>(form_, criterion.path)) {
      index = tabs->TabIndex();
    }
    if (index >= 0 && index < static_cast<int>(words.size()))
      Put(criterion, words[static_cast<std::size_t>(index)]);
  }

  // The first row stands for every group.
  void ReadGroup(const ReportCriterion& criterion) {
    const auto* grid = Seen<TSmartDBGrid_QRT>(form_, report_.groups);
    const TADOQuery* rows = grid == nullptr ? nullptr : grid->DataSet();
    if (rows == nullptr || rows->RecNo().value_or(0) == 0) return;
    Put(criterion, rows->FieldByName("Code").AsText());
  }

  // What was chosen stands in the settings, as the price basis always does.
  void ReadPriceBasis(const ReportCriterion& criterion) {
    const auto* box = Seen<TCheckBox>(form_, std::string(criterion.path) + ".Stock_CHK");
    if (box == nullptr) return;
    const std::vector<std::string> words = ChoicesOf(criterion);
    if (!box->Checked()) return Put(criterion, words.front());
    const TSettings& settings = form_.Host().Settings().Settings();
    if (settings.PriceLevel)
      return Put(criterion,
                 (settings.BuyOrSell != 0 ? "buy:" : "sell:") + std::to_string(settings.PriceLevelCode));
    const auto basis = std::find(kHistoryBases.begin(), kHistoryBases.end(), settings.PriceBasis);
    if (settings.PriceHistory && basis != kHistoryBases.end())
      Put(criterion, words.at(static_cast<std::size_t>(basis - kHistoryBases.begin()) + 1));
  }

  void ReadDetails(const ReportCriterion& criterion) {
    for (int row = 1; row <= kMostDetailRows; ++row) {
      const std::string number = std::to_string(row);
      const auto* kinds = Seen<TComboBox>(form_, "GoodDetailSelectSearch" + number + "_CMB");
      if (kinds == nullptr || kinds->ItemIndex() <= 0) continue;
      const std::string value = DetailValueOf(number);
      if (!value.empty())
        into_.criteria[std::string(criterion.option)].push_back(std::string(Trim(kinds->Text())) + "=" +
                                                                value);
    }
  }

  std::string DetailValueOf(const std::string& number) {
    if (const auto* list = Seen<TComboBox>(form_, "GoodDetail" + number + "_CMB"))
      return std::string(Trim(list->Text()));
    for (const char* kind : {"GoodDetailDate", "GoodDetail"}) {
      const auto* from = Seen<TEdit>(form_, "From" + std::string(kind) + number + "_EDT");
      const auto* to = Seen<TEdit>(form_, "To" + std::string(kind) + number + "_EDT");
      if (from == nullptr || (from->Value().empty() && (to == nullptr || to->Value().empty()))) continue;
      return Ends(from->Value(), to == nullptr ? from->Value() : to->Value());
    }
    return {};
  }

  TForm& form_;
  const ReportSpec& report_;
  AskedCriteria& into_;
};

// Details stand in the window and in its dialog.
bool HasPlace(const ReportCriterion& criterion, CriterionPlace place) {
  const bool inDialog = criterion.kind == CriterionKind::Detail &&
                        criterion.place == CriterionPlace::Window && place == CriterionPlace::Dialog;
  return criterion.place == place || inDialog;
}

void ClearDetails(TForm& form) {
  for (int row = 1; row <= kMostDetailRows; ++row) {
    auto* kinds = Seen<TComboBox>(form, "GoodDetailSelectSearch" + std::to_string(row) + "_CMB");
    if (kinds != nullptr && kinds->ItemIndex() > 0) kinds->SetItemIndex(0);
  }
}

void ClearRange(TForm& form, const ReportCriterion& criterion) {
  const std::vector<std::string> names = Split(criterion.path, ' ');
  if (names.size() != 3) return;
  for (const std::size_t edit : {std::size_t{1}, std::size_t{2}}) {
    if (auto* each = Seen<TEdit>(form, names[edit])) each->Clear();
  }
  if (auto* list = Seen<TComboBox>(form, names[0])) list->SetItemIndex(0);
}

void ClearPeriod(TForm& form, const std::string& panel) {
  for (const char* edit : {".Date1_EDT", ".Date2_EDT"}) {
    if (auto* each = Seen<TEdit>(form, panel + edit)) each->Clear();
  }
  if (auto* box = Seen<TCheckBox>(form, panel + ".Date_CHK")) box->SetChecked(false);
}

void Clear(TForm& form, const ReportSpec& report, const ReportCriterion& criterion) {
  const std::string path(criterion.path);
  if (auto* frame = Seen<TSearchFrame>(form, path)) return frame->Clear();
  if (auto* tags = Seen<TTags_search_FRM>(form, path)) return tags->Clear();
  switch (criterion.kind) {
    case CriterionKind::Code:
      if (auto* frame = Seen<TSelect_Entity_Frame>(form, path)) frame->SetCode(0);
      return;
    case CriterionKind::Text:
      if (auto* edit = Seen<TEdit>(form, path + "_EDT")) edit->Clear();
      return;
    case CriterionKind::Range:
      return ClearRange(form, criterion);
    case CriterionKind::Period:
      return ClearPeriod(form, path);
    case CriterionKind::Codes:
      if (auto* editor = Seen<TTokenEditor>(form, path)) editor->Clear();
      return;
    case CriterionKind::Object:
      if (auto* combo = Seen<TComboBox>(form, path)) combo->SetItemIndex(0);
      return;
    case CriterionKind::Flag:
      if (auto* box = Seen<TCheckBox>(form, path)) box->SetChecked(false);
      return;
    case CriterionKind::Group:
      if (auto* grid = Seen<TSmartDBGrid_QRT>(form, report.groups)) grid->MoveTo(0);
      return;
    case CriterionKind::Detail:
      return ClearDetails(form);
    case CriterionKind::Dates:
    case CriterionKind::Choice:
    case CriterionKind::PriceBasis:
      return;
  }
}

// What asks for something though none of the report's options says so: a field of a list of fields that has
// no option.
void FindUnsaid(TForm& form, const ReportSpec& report, CriterionPlace place, AskedCriteria& into) {
  std::set<std::string_view> looked;
  for (const ReportCriterion& criterion : report.criteria) {
    if (!HasPlace(criterion, place) || criterion.item < 0 || !looked.insert(criterion.path).second) continue;
    const auto said = std::any_of(report.criteria.begin(), report.criteria.end(), [&](const auto& each) {
      return each.path == criterion.path && HasPlace(each, place) &&
             into.criteria.contains(std::string(each.option));
    });
    if (said) continue;
    const TComboBox* list = nullptr;
    if (const auto* text = Seen<TGeneral_Search_Frame>(form, criterion.path);
        text != nullptr && text->GeneralSearch_CHK.Checked() && !text->GeneralSearch_EDT.Value().empty())
      list = &text->GeneralSearch_CMB;
    if (const auto* range = Seen<TRange_Digit_Search_Frame>(form, criterion.path);
        range != nullptr && range->InUse())
      list = &range->RangeDigit_CMB;
    if (const auto* edit = Seen<TEdit>(form, std::string(criterion.path) + "_EDT");
        edit != nullptr && !edit->Value().empty())
      list = Seen<TComboBox>(form, std::string(criterion.path) + "_CMB");
    if (list != nullptr) into.unsaid.push_back(std::string(Trim(list->Text())));
  }
}

}  // namespace

bool AskedCriteria::Same(const ReportCriterion& criterion, const ReportRequest& request) const {
  const auto same = [&](const std::string& option) {
    const auto here = criteria.find(option);
    const auto there = request.criteria.find(option);
    const bool none = here == criteria.end() || there == request.criteria.end();
    return none ? here == criteria.end() && there == request.criteria.end() : here->second == there->second;
  };
  const std::string option(criterion.option);
  return same(option) && exclude.contains(option) == request.exclude.contains(option) &&
         (criterion.kind != CriterionKind::Period || same("to"));
}

void ReadCriteria(TForm& form, const ReportSpec& report, CriterionPlace place, AskedCriteria& into) {
  CriteriaReader reader(form, report, into);
  for (const ReportCriterion& criterion : report.criteria) {
    if (HasPlace(criterion, place)) reader.Read(criterion);
  }
  FindUnsaid(form, report, place, into);
}

bool IsSubject(const ReportSpec& report, const ReportCriterion& criterion) {
  return report.description->id == ReportId::StockCard && criterion.option == "good";
}

void ClearCriteria(TForm& form, const ReportSpec& report, const ReportRequest& request, CriterionPlace place,
                   const AskedCriteria& there) {
  // Criteria of one component are its fields, of which it asks for one.
  const auto component = [](const ReportCriterion& each) {
    return each.path.empty() ? each.option : each.path;
  };
  std::set<std::string_view> named;
  for (const ReportCriterion& criterion : report.criteria) {
    const bool given = request.criteria.contains(std::string(criterion.option)) ||
                       (criterion.kind == CriterionKind::Period && request.criteria.contains("to"));
    // Details are set one behind the other, over what was there.
    if (given && HasPlace(criterion, place) && criterion.kind != CriterionKind::Detail)
      named.insert(component(criterion));
  }
  for (const ReportCriterion& criterion : report.criteria) {
    if (!HasPlace(criterion, place) || named.contains(component(criterion)) || IsSubject(report, criterion))
      continue;
    const bool asks = there.criteria.contains(std::string(criterion.option)) ||
                      (criterion.kind == CriterionKind::Period && there.criteria.contains("to"));
    if ((asks || !there.unsaid.empty()) && !there.Same(criterion, request)) Clear(form, report, criterion);
  }
}

}  // namespace goods
