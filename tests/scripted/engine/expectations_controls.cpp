// Expectations about windows and the properties of their components.
#include "tests/scripted/engine/case_run.h"
#include "tests/scripted/engine/component_access.h"
#include "tests/scripted/engine/step_table.h"

namespace goods {
namespace {

[[noreturn]] void NoProperty(const Step& step, const std::string& name, const std::string& property) {
  throw CaseError(step.place.Text() + ": " + name + " has no property " + property);
}

void CompareOne(CaseRun& run, const Step& step, const std::string& what, const std::string& expected,
                const std::string& got) {
  run.Compare(step.place, what + " is another", {expected}, {got});
}

void ExpectText(CaseRun& run, const Step& step, const Arguments& given) {
  const std::string& name = given.Text(0);
  const auto got =
      TextProperty(FindComponentOrFail(run.WindowToLookAt(step.place), name, step.place), given.Text(1));
  if (!got) NoProperty(step, name, given.Text(1));
  CompareOne(run, step, name + " " + given.Text(1), InQuotes(given.Text(2)), InQuotes(*got));
}

std::int64_t ReadNumber(CaseRun& run, const Step& step, const std::string& name,
                        const std::string& property) {
  const auto got =
      NumberProperty(FindComponentOrFail(run.WindowToLookAt(step.place), name, step.place), property);
  if (!got) NoProperty(step, name, property);
  return *got;
}

void ExpectNumber(CaseRun& run, const Step& step, const Arguments& given) {
  CompareOne(run, step, given.Text(0) + " " + given.Text(1), std::to_string(given.Number(2)),
             std::to_string(ReadNumber(run, step, given.Text(0), given.Text(1))));
}

// "expect PANEL height remembered + 45": against what "remember PANEL height" has noted.
void ExpectRemembered(CaseRun& run, const Step& step, const Arguments& given) {
  const std::string key = given.Text(0) + " " + given.Text(1);
  const auto before = run.Remembered.find(key);
  if (before == run.Remembered.end()) throw CaseError(step.place.Text() + ": " + key + " was not remembered");
  const std::string& sign = given.Text(2);
  if (sign != "+" && sign != "-") throw CaseError(step.place.Text() + ": + or - is expected, not " + sign);
  const std::int64_t change = sign == "+" ? given.Number(3) : -given.Number(3);
  CompareOne(run, step, key, std::to_string(before->second + change),
             std::to_string(ReadNumber(run, step, given.Text(0), given.Text(1))));
}

void ExpectState(CaseRun& run, const Step& step, const Arguments& given) {
  const auto got = StateProperty(
      FindComponentOrFail(run.WindowToLookAt(step.place), given.Text(0), step.place), given.Text(1));
  if (!got) NoProperty(step, given.Text(0), given.Text(1));
  if (!*got) run.Fail(step.place, given.Text(0) + " is not " + given.Text(1));
}

void ExpectNotState(CaseRun& run, const Step& step, const Arguments& given) {
  const auto got = StateProperty(
      FindComponentOrFail(run.WindowToLookAt(step.place), given.Text(0), step.place), given.Text(1));
  if (!got) NoProperty(step, given.Text(0), given.Text(1));
  if (*got) run.Fail(step.place, given.Text(0) + " is " + given.Text(1));
}

void AddWindowExpectations(StepTable& table) {
  table.Add("expect window {name}", [](CaseRun& run, const Step& step, const Arguments& given) {
    const TForm* window = run.Host().Windows().ActiveWindow();
    CompareOne(run, step, "the window in front", given.Text(0),
               window == nullptr ? "no window" : window->Name());
  });
  table.Add("expect no window", [](CaseRun& run, const Step& step, const Arguments&) {
    const TForm* window = run.Host().Windows().ActiveWindow();
    if (window != nullptr) run.Fail(step.place, window->Name() + " is open");
  });
  table.Add("expect window caption {text}", [](CaseRun& run, const Step& step, const Arguments& given) {
    CompareOne(run, step, "the caption of the window", InQuotes(given.Text(0)),
               InQuotes(run.WindowToLookAt(step.place).Caption()));
  });
  table.Add("expect window instance {n}", [](CaseRun& run, const Step& step, const Arguments& given) {
    const auto number = run.Host().Windows().InstanceNumber(run.Window(step.place));
    CompareOne(run, step, "the window's number", std::to_string(given.Number(0)), std::to_string(number));
  });
  table.Add("expect window result {n}", [](CaseRun& run, const Step& step, const Arguments& given) {
    const TForm* closed = run.Host().Windows().ClosedLast();
    if (closed == nullptr) throw CaseError(step.place.Text() + ": no closed window is kept");
    CompareOne(run, step, "the result of the window that was closed last", std::to_string(given.Number(0)),
               std::to_string(closed->ModalResult()));
  });
  table.Add("expect {n} open windows", [](CaseRun& run, const Step& step, const Arguments& given) {
    CompareOne(run, step, "the number of open windows", std::to_string(given.Number(0)),
               std::to_string(run.Host().Windows().OpenWindows().size()));
  });
}

}  // namespace

void AddControlExpectations(StepTable& table) {
  AddWindowExpectations(table);
  table.Add("remember {component} {property}", [](CaseRun& run, const Step& step, const Arguments& given) {
    run.Remembered[given.Text(0) + " " + given.Text(1)] =
        static_cast<int>(ReadNumber(run, step, given.Text(0), given.Text(1)));
  });
  table.Add("expect {component} {property} remembered {sign} {n}", ExpectRemembered);
  table.Add("expect {component} not {state}", ExpectNotState);
  table.Add("expect {component} {property} {text}", ExpectText);
  table.Add("expect {component} {property} {n}", ExpectNumber);
  table.Add("expect {component} {state}", ExpectState);
}

}  // namespace goods
