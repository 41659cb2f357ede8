// Expectations about controls that hold lists: the items of a combo box, tabs, tokens.
#include <functional>
#include <utility>

#include "host/components/standard.h"
#include "host/components/token_editor.h"
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/component_access.h"
#include "tests/scripted/engine/step_table.h"
#include "tests/scripted/engine/table_text.h"

namespace goods {
namespace {

// What a heading says about one element.
template <typename Element>
using Parts = std::vector<std::pair<std::string, std::function<std::string(const Element&)>>>;

// Compares the elements with the table below the step, whose headings are any of the parts.
template <typename Element>
void ExpectList(CaseRun& run, const Step& step, const std::string& what, const std::vector<Element>& elements,
                const Parts<Element>& parts) {
  const Table table = ReadTable(step.block, step.place);
  std::vector<std::vector<std::string>> got(elements.size());
  for (const std::string& heading : table.heading) {
    std::string names;
    const std::function<std::string(const Element&)>* read = nullptr;
    for (const auto& [name, reader] : parts) {
      names += " " + name;
      if (name == heading) read = &reader;
    }
    if (read == nullptr) throw CaseError(step.place.Text() + ": " + heading + " is none of" + names);
    for (std::size_t i = 0; i < elements.size(); ++i) got[i].push_back((*read)(elements[i]));
  }
  run.CompareTable(step.place, what, table, got);
}

std::string YesOrNo(bool is) { return is ? "yes" : "no"; }

void ExpectItems(CaseRun& run, const Step& step, const Arguments& given) {
  static const Parts<TComboItem> parts{
      {"Text", [](const TComboItem& item) { return item.Text; }},
      {"Object", [](const TComboItem& item) { return std::to_string(item.Object); }},
      {"Value", [](const TComboItem& item) { return item.HiddenValue; }},
  };
  const auto& combo =
      FindKind<TComboBox>(run.WindowToLookAt(step.place), given.Text(0), step.place, "combo box");
  std::vector<TComboItem> offered;
  for (const int item : combo.OfferedItems())
    offered.push_back(combo.Items()[static_cast<std::size_t>(item)]);
  ExpectList(run, step, given.Text(0) + " has other items", offered, parts);
}

void ExpectTabs(CaseRun& run, const Step& step, const Arguments& given) {
  static const Parts<SeenTab> parts{
      {"Caption", [](const SeenTab& tab) { return tab.caption; }},
      {"Index", [](const SeenTab& tab) { return std::to_string(tab.index); }},
      {"Chosen", [](const SeenTab& tab) { return YesOrNo(tab.chosen); }},
      {"Enabled", [](const SeenTab& tab) { return YesOrNo(tab.enabled); }},
  };
  const auto tabs = TabsOf(FindComponentOrFail(run.WindowToLookAt(step.place), given.Text(0), step.place));
  if (!tabs) throw CaseError(step.place.Text() + ": " + given.Text(0) + " has no tabs");
  ExpectList(run, step, given.Text(0) + " has other tabs", *tabs, parts);
}

void ExpectTokens(CaseRun& run, const Step& step, const Arguments& given, const char* which,
                  std::vector<TToken> (*read)(const TTokenEditor& editor)) {
  static const Parts<TToken> parts{
      {"Code", [](const TToken& token) { return token.Code; }},
      {"Text", [](const TToken& token) { return token.Text; }},
      {"Colour", [](const TToken& token) { return ColorText(token.Background); }},
  };
  const auto& editor =
      FindKind<TTokenEditor>(run.WindowToLookAt(step.place), given.Text(0), step.place, "token editor");
  ExpectList(run, step, given.Text(0) + " has other " + which, read(editor), parts);
}

}  // namespace

void AddListExpectations(StepTable& table) {
  table.Add("expect items of {combo}", ExpectItems);
  table.Add("expect tabs of {tabs}", ExpectTabs);
  table.Add("expect tokens of {editor}", [](CaseRun& run, const Step& step, const Arguments& given) {
    ExpectTokens(run, step, given, "tokens", [](const TTokenEditor& editor) { return editor.Tokens(); });
  });
  table.Add("expect matches of {editor}", [](CaseRun& run, const Step& step, const Arguments& given) {
    ExpectTokens(run, step, given, "matches", [](const TTokenEditor& editor) { return editor.Matches(); });
  });
}

}  // namespace goods
