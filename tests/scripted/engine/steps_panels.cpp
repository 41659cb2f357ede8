// Steps on tabs, drop-down panels and token editors.
#include <functional>

#include "host/components/drop_down.h"
#include "host/components/tabs.h"
#include "host/components/token_editor.h"
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/component_access.h"
#include "tests/scripted/engine/step_table.h"

namespace goods {
namespace {

// Clicks the tab that fits; the focus goes to the strip, as it does on a screen.
void ChooseTab(CaseRun& run, const Step& step, const std::string& name, const std::string& wanted,
               const std::function<bool(const SeenTab&)>& fits) {
  auto& control = Reach<TControl>(run, step, name, "control");
  const auto tabs = TabsOf(control);
  if (!tabs) throw CaseError(step.place.Text() + ": " + name + " has no tabs");
  std::string seen;
  for (const SeenTab& tab : *tabs) {
    seen += " " + InQuotes(tab.caption);
    if (!fits(tab)) continue;
    if (!tab.enabled) throw CaseError(step.place.Text() + ": the tab " + wanted + " is disabled");
    return run.UserAction([&] {
      control.SetFocus();
      if (auto* strip = dynamic_cast<TTabControl*>(&control)) strip->SetTabIndex(tab.index);
      if (auto* pages = dynamic_cast<TPageControl*>(&control)) pages->SetActivePageIndex(tab.index);
    });
  }
  throw CaseError(step.place.Text() + ": " + name + " has no tab " + wanted + "; it has" + seen);
}

// A click on the combo, which has to be in the other state.
void Drop(CaseRun& run, const Step& step, const std::string& name, bool dropped) {
  auto& control = Reach<TControl>(run, step, name, "control");
  auto* panelCombo = dynamic_cast<TDropDownCombo*>(&control);
  auto* listCombo = dynamic_cast<TComboBox*>(&control);
  const std::string problem = step.place.Text() + ": " + name;
  if (panelCombo == nullptr && listCombo == nullptr) throw CaseError(problem + " does not drop down");
  const auto isDropped = [&] {
    return panelCombo != nullptr ? panelCombo->DroppedDown() : listCombo->DroppedDown();
  };
  if (isDropped() == dropped) throw CaseError(problem + (dropped ? " is open" : " is closed") + " already");
  if (panelCombo != nullptr && !panelCombo->CanDropDown()) throw CaseError(problem + " has no panel");
  run.UserAction([&] {
    if (dropped) control.SetFocus();
    if (panelCombo != nullptr) {
      panelCombo->Click();
    } else {
      listCombo->SetDroppedDown(dropped);
    }
  });
}

// The code of the token that is named by its text or its code; throws CaseError when there is none.
std::string CodeOf(const std::vector<TToken>& tokens, const std::string& wanted, const Step& step,
                   const std::string& what) {
  std::string texts;
  for (const TToken& token : tokens) {
    if (token.Text == wanted) return token.Code;
    texts += " " + InQuotes(token.Text);
  }
  for (const TToken& token : tokens) {
    if (token.Code == wanted) return token.Code;
  }
  throw CaseError(step.place.Text() + ": " + what + " no token " + InQuotes(wanted) + "; there are" + texts);
}

TTokenEditor& ReachEditor(CaseRun& run, const Step& step, const std::string& name) {
  auto& editor = Reach<TTokenEditor>(run, step, name, "token editor");
  if (editor.ReadOnly()) throw CaseError(step.place.Text() + ": " + name + " only shows its tokens");
  return editor;
}

// Chosen in the list of what is left.
void AddToken(CaseRun& run, const Step& step, const Arguments& given) {
  auto& editor = ReachEditor(run, step, given.Text(1));
  std::vector<TToken> left;
  for (const TToken& choice : editor.Choices()) {
    bool chosen = false;
    for (const std::string& code : editor.Codes()) chosen = chosen || code == choice.Code;
    if (!chosen) left.push_back(choice);
  }
  const std::string code = CodeOf(left, given.Text(0), step, given.Text(1) + " offers");
  run.UserAction([&] {
    editor.SetFocus();
    editor.Add(code);
  });
}

// The token's own close button.
void RemoveToken(CaseRun& run, const Step& step, const Arguments& given) {
  auto& editor = ReachEditor(run, step, given.Text(1));
  const std::string code = CodeOf(editor.Tokens(), given.Text(0), step, given.Text(1) + " holds");
  run.UserAction([&] {
    editor.SetFocus();
    editor.Remove(code);
  });
}

}  // namespace

void AddPanelSteps(StepTable& table) {
  table.Add("choose tab {n} in {tabs}", [](CaseRun& run, const Step& step, const Arguments& given) {
    const std::int64_t index = given.Number(0);
    ChooseTab(run, step, given.Text(1), std::to_string(index),
              [index](const SeenTab& tab) { return tab.index == index; });
  });
  table.Add("choose tab {text} in {tabs}", [](CaseRun& run, const Step& step, const Arguments& given) {
    ChooseTab(run, step, given.Text(1), InQuotes(given.Text(0)),
              [&given](const SeenTab& tab) { return tab.caption == given.Text(0); });
  });
  table.Add("drop down {combo}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Drop(run, step, given.Text(0), true);
  });
  table.Add("close up {combo}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Drop(run, step, given.Text(0), false);
  });
  table.Add("add token {text} to {editor}", AddToken);
  table.Add("remove token {text} from {editor}", RemoveToken);
}

}  // namespace goods
