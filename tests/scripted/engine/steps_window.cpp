// Steps on whole windows: opening, closing, keys, time.
#include <memory>
#include <stdexcept>

#include "host/base/base_dock.h"
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/component_access.h"
#include "tests/scripted/engine/step_table.h"

namespace goods {
namespace {

constexpr std::int64_t kUsualMode = 1;

template <typename Values>
const auto& NamedOrFail(const Values& values, const std::string& name, const std::string& what,
                        const Place& place) {
  const auto found = values.find(name);
  if (found == values.end()) throw CaseError(place.Text() + ": there is no " + what + " " + name);
  return found->second;
}

void CallExport(CaseRun& run, const Step& step, const Arguments& given) {
  const auto& call = NamedOrFail(run.Environment().exports, given.Text(0), "export", step.place);
  try {
    call(given.From(1));
  } catch (const std::invalid_argument& error) {
    throw CaseError(step.place.Text() + ": " + error.what());
  }
}

// Shows a window of its own, as an export that keeps none does.
void OpenWindow(CaseRun& run, const Step& step, const std::string& name, std::int64_t formMode,
                Variant parameter) {
  const auto& make = NamedOrFail(run.Environment().windows, name, "window", step.place);
  ScriptedHost& host = run.Host();
  run.UserAction([&] {
    const std::size_t before = host.Connection().SentCount();
    const std::unique_ptr<TForm> window = make(host, static_cast<int>(formMode), std::move(parameter));
    if (host.Connection().SentCount() != before) {
      host.Log.AddMisuse("a statement is sent before " + window->Name() + " is shown");
    }
    window->ShowModal();
  });
}

void Press(CaseRun& run, const Step& step, const std::string& name) {
  const TKey key = ParseKey(name);
  if (key.IsConsumed()) throw CaseError(step.place.Text() + ": there is no key " + name);
  TForm& window = run.Window(step.place);
  run.UserAction([&] {
    if (!window.KeyDown(key) && key.key == Key::Tab && !key.ctrl && !key.alt) window.FocusNext(key.shift);
  });
}

void Focus(CaseRun& run, const Step& step, const std::string& name) {
  TForm& window = run.Window(step.place);
  TControl& control = FindKind<TControl>(window, name, step.place, "control");
  CheckReachable(control, step.place);
  run.UserAction([&] { control.SetFocus(); });
}

void AddOpeningSteps(StepTable& table) {
  table.Add("call {name} {...}", CallExport);
  table.Add("open {class} {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    OpenWindow(run, step, given.Text(0), kUsualMode, given.Text(1));
  });
  table.Add("open {class} {n}", [](CaseRun& run, const Step& step, const Arguments& given) {
    OpenWindow(run, step, given.Text(0), kUsualMode, given.Number(1));
  });
  table.Add("open {class}", [](CaseRun& run, const Step& step, const Arguments& given) {
    OpenWindow(run, step, given.Text(0), kUsualMode, Variant());
  });
  table.Add("open {class} mode {n}", [](CaseRun& run, const Step& step, const Arguments& given) {
    OpenWindow(run, step, given.Text(0), given.Number(1), Variant());
  });
  table.Add("open {class} mode {n} with {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    OpenWindow(run, step, given.Text(0), given.Number(1), given.Text(2));
  });
  table.Add("open {class} mode {n} with {n}", [](CaseRun& run, const Step& step, const Arguments& given) {
    OpenWindow(run, step, given.Text(0), given.Number(1), given.Number(2));
  });
  table.Add("hand over parameter {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    auto* window = dynamic_cast<TBaseDock_FRM*>(&run.Window(step.place));
    if (window == nullptr) throw CaseError(step.place.Text() + ": this window is no report window");
    run.UserAction([&] { window->SetCustomParameter(given.Text(0), ""); });
  });
  table.Add("close window", [](CaseRun& run, const Step& step, const Arguments&) {
    TForm& window = run.Window(step.place);
    run.UserAction([&] { window.Close(); });
  });
  table.Add("close window with result {n}", [](CaseRun& run, const Step& step, const Arguments& given) {
    TForm& window = run.Window(step.place);
    const auto result = static_cast<int>(given.Number(0));
    if (result == kModalNone) throw CaseError(step.place.Text() + ": the result 0 closes no window");
    run.UserAction([&] { window.SetModalResult(result); });
  });
  table.Add("resize window", [](CaseRun& run, const Step& step, const Arguments&) {
    TForm& window = run.Window(step.place);
    run.UserAction([&] { window.FormResize(); });
  });
}

}  // namespace

void AddWindowSteps(StepTable& table) {
  AddOpeningSteps(table);
  table.Add("press {key}",
            [](CaseRun& run, const Step& step, const Arguments& given) { Press(run, step, given.Text(0)); });
  table.Add("press {key} in {control}", [](CaseRun& run, const Step& step, const Arguments& given) {
    Focus(run, step, given.Text(1));
    Press(run, step, given.Text(0));
  });
  table.Add("focus {control}",
            [](CaseRun& run, const Step& step, const Arguments& given) { Focus(run, step, given.Text(0)); });
  table.Add("wait {n} ms", [](CaseRun& run, const Step& step, const Arguments& given) {
    if (given.Number(0) < 0) throw CaseError(step.place.Text() + ": time does not run backwards");
    run.Host().Windows().LetTimePass(static_cast<std::uint64_t>(given.Number(0)));
  });
}

}  // namespace goods
