// Steps on single controls: what a user does with mouse and keyboard.
#include <memory>

#include "host/components/edit.h"
#include "host/components/standard.h"
#include "host/components/token_editor.h"
#include "host/core/text.h"
#include "host/frames/select_entity_search_frame.h"
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/component_access.h"
#include "tests/scripted/engine/step_table.h"

namespace goods {
namespace {

constexpr std::int64_t kTypingPause = 50;  // milliseconds between two keys

void Click(CaseRun& run, TControl& control) {
  run.UserAction([&] {
    if (control.TakesFocus()) control.SetFocus();
    control.Click();
  });
}

void SetBox(CaseRun& run, const Step& step, const std::string& name, bool checked) {
  auto& box = Reach<TCheckBox>(run, step, name, "check box");
  if (box.Checked() == checked) {
    throw CaseError(step.place.Text() + ": " + name + (checked ? " is checked" : " is unchecked") +
                    " already");
  }
  Click(run, box);
}

void SetText(CaseRun& run, const Step& step, const std::string& name, const std::string& text) {
  TForm& window = run.Window(step.place);
  if (auto* combo = dynamic_cast<TComboBox*>(&FindComponentOrFail(window, name, step.place))) {
    CheckReachable(*combo, step.place);
    run.UserAction([&] { combo->SetText(text); });
    return;
  }
  if (auto* tokens = dynamic_cast<TTokenEditor*>(&FindComponentOrFail(window, name, step.place))) {
    CheckReachable(*tokens, step.place);
    bool taken = false;
    run.UserAction([&] {
      tokens->TypeText(text);
      taken = tokens->AcceptText();
    });
    if (!taken) throw CaseError(step.place.Text() + ": " + name + " does not take " + InQuotes(text));
    return;
  }
  auto& edit = Reach<TEdit>(run, step, name, "edit");
  bool taken = false;
  run.UserAction([&] {
    taken = true;
    taken = edit.SetText(text);
  });
  if (!taken) throw CaseError(step.place.Text() + ": " + name + " does not take " + InQuotes(text));
}

void SetCode(CaseRun& run, const Step& step, const std::string& name, std::int64_t code) {
  TForm& window = run.Window(step.place);
  TComponent& found = FindComponentOrFail(window, name, step.place);
  TSelect_Entity_Frame* frame = dynamic_cast<TSelect_Entity_Frame*>(&found);
  if (auto* search = dynamic_cast<TSelectEntity_Search_Frame*>(&found))
    frame = &search->TSelect_Entity_Frame1;
  if (frame == nullptr) throw CaseError(step.place.Text() + ": " + name + " takes no code");
  CheckReachable(frame->Code_EDT, step.place);
  run.UserAction([&] { frame->Code_EDT.SetText(code == 0 ? "" : std::to_string(code)); });
}

void ChooseItem(CaseRun& run, const Step& step, const std::string& name, int index) {
  auto& combo = Reach<TComboBox>(run, step, name, "combo box");
  if (index < 0 || index >= static_cast<int>(combo.Items().size())) {
    throw CaseError(step.place.Text() + ": " + name + " has no item " + std::to_string(index));
  }
  run.UserAction([&] {
    combo.SetFocus();
    combo.SetItemIndex(index);
  });
}

void ChooseText(CaseRun& run, const Step& step, const std::string& name, const std::string& text) {
  const auto& combo = Reach<TComboBox>(run, step, name, "combo box");
  std::string texts;
  for (std::size_t i = 0; i < combo.Items().size(); ++i) {
    if (combo.Items()[i].Text == text) return ChooseItem(run, step, name, static_cast<int>(i));
    texts += " " + InQuotes(combo.Items()[i].Text);
  }
  throw CaseError(step.place.Text() + ": " + name + " has no item " + InQuotes(text) + "; it has" + texts);
}

Key KeyOf(std::string_view character) {
  if (character == " ") return Key::Space;
  const TKey digit = ParseKey(character);
  return character.size() == 1 && !digit.IsConsumed() ? digit.key : Key::Other;
}

// One key of typing: the window's handlers first, then the text. A refused character leaves no trace.
void TypeCharacter(CaseRun& run, TControl& control, const std::string& character, bool first) {
  run.UserAction([&] {
    if (TForm* form = control.Form();
        form != nullptr && form->KeyDown({KeyOf(character), false, false, false})) {
      return;
    }
    if (auto* edit = dynamic_cast<TEdit*>(&control)) {
      edit->TypeText((first ? "" : edit->Text()) + character);
    } else if (auto* combo = dynamic_cast<TComboBox*>(&control)) {
      combo->SetText((first ? "" : combo->Text()) + character);
    } else if (auto* tokens = dynamic_cast<TTokenEditor*>(&control)) {
      tokens->TypeText((first ? "" : tokens->Text()) + character);
    }
  });
}

void Type(CaseRun& run, const Step& step, const std::string& name, const std::string& text,
          std::int64_t pause, bool more) {
  auto& control = Reach<TControl>(run, step, name, "control");
  const auto* tokens = dynamic_cast<TTokenEditor*>(&control);
  if (dynamic_cast<TEdit*>(&control) == nullptr && dynamic_cast<TComboBox*>(&control) == nullptr &&
      (tokens == nullptr || tokens->ReadOnly())) {
    throw CaseError(step.place.Text() + ": nothing can be typed into " + name);
  }
  run.UserAction([&] { control.SetFocus(); });
  // Keys of a window that a fault has closed meanwhile go nowhere.
  const auto window = std::make_shared<WindowWatch>(*control.Form());
  const std::size_t count = CharCount(text);
  std::size_t from = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t to = FirstChars(text, i + 1).size();
    const std::string character = text.substr(from, to - from);
    from = to;
    run.Host().Windows().QueueInput(static_cast<std::uint64_t>(pause) * i,
                                    [&run, &control, window, character, first = i == 0 && !more] {
                                      if (window->Get() == nullptr) return;
                                      TypeCharacter(run, control, character, first);
                                    });
  }
}

void Fold(CaseRun& run, const Step& step, const std::string& name, bool folded) {
  auto& panel = Reach<TPanel>(run, step, name, "panel");
  if (!panel.Foldable || panel.Folded() == folded) {
    throw CaseError(step.place.Text() + ": " + name + " cannot be " + (folded ? "folded" : "unfolded") +
                    " now");
  }
  run.UserAction([&] { panel.SetFolded(folded); });
}

void AddTypingSteps(StepTable& table) {
  table.Add("type {text} into {control}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Type(run, step, given.Text(1), given.Text(0), kTypingPause, false);
  });
  table.Add("type {text} into {control} every {n} ms",
            [](CaseRun& run, const Step& step, const Arguments& given) {
              Type(run, step, given.Text(1), given.Text(0), given.Number(2), false);
            });
  table.Add("type more {text} into {control}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Type(run, step, given.Text(1), given.Text(0), kTypingPause, true);
  });
}

}  // namespace

void AddControlSteps(StepTable& table) {
  table.Add("set {control} text {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    SetText(run, step, given.Text(0), given.Text(1));
  });
  table.Add("set {frame} code {n}", [](CaseRun& run, const Step& step, const Arguments& given) {
    SetCode(run, step, given.Text(0), given.Number(1));
  });
  table.Add("click {control}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Click(run, Reach<TControl>(run, step, given.Text(0), "control"));
  });
  table.Add("try click {control}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Click(run, FindKind<TControl>(run.Window(step.place), given.Text(0), step.place, "control"));
  });
  table.Add("check {box}", [](CaseRun& run, const Step& step, const Arguments& given) {
    SetBox(run, step, given.Text(0), true);
  });
  table.Add("uncheck {box}", [](CaseRun& run, const Step& step, const Arguments& given) {
    SetBox(run, step, given.Text(0), false);
  });
  table.Add("choose item {n} in {combo}", [](CaseRun& run, const Step& step, const Arguments& given) {
    ChooseItem(run, step, given.Text(1), static_cast<int>(given.Number(0)));
  });
  table.Add("choose {text} in {combo}", [](CaseRun& run, const Step& step, const Arguments& given) {
    ChooseText(run, step, given.Text(1), given.Text(0));
  });
  table.Add("fold {panel}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Fold(run, step, given.Text(0), true);
  });
  table.Add("unfold {panel}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Fold(run, step, given.Text(0), false);
  });
  AddTypingSteps(table);
}

}  // namespace goods
