#include "tests/scripted/random_user/random_steps.h"

#include <array>
#include <iterator>
#include <utility>

#include "host/components/drop_down.h"
#include "host/components/edit.h"
#include "host/components/form.h"
#include "host/components/grid.h"
#include "host/components/standard.h"
#include "host/components/tabs.h"
#include "host/components/token_editor.h"
#include "host/data/query.h"
#include "tests/scripted/engine/component_access.h"

namespace goods {
namespace {

constexpr std::array kKeys{"F1",     "F2",     "F3",     "F4",      "F5",      "F9",       "F10",
                           "Enter",  "Esc",    "Tab",    "Ctrl+F2", "Ctrl+F5", "Plus",     "Backspace",
                           "Delete", "Alt+1",  "Alt+2",  "Alt+3",   "Ctrl+1",  "Ctrl+2",   "Ctrl+3",
                           "Ctrl+4", "Ctrl+5", "Ctrl+6", "Ctrl+F3", "Ctrl+F9", "Ctrl+F10", "Up",
                           "Down",   "Home",   "End",    "Space",   "Ctrl+A",  "Ctrl+C",   "Ctrl+F11"};

// Texts that have broken programs before: quotes, comments, halves of numbers and dates, marks without width.
constexpr std::array kTexts{
    "'",
    "''",
    "--",
    "-",
    ".",
    "-.",
    "/*",
    "1'; DROP TABLE Kala --",
    "%",
    "_",
    "[",
    "]",
    "[a-z]",
    "۱۲۳",
    "٣٫٥",
    "پیچ",
    "كي",
    "می\u200cخواهم",
    "\u202Eabc",
    "😀",
    "0",
    "-1",
    "1.5",
    "12345678901234567890",
    "0.0000000001",
    ",,,",
    "3,7",
    "1404/12/30",
    "1403/01/01",
    "14020903",
    "1402/13/45",
    "99",
    "@Code=1",
    "{0}",
    " ",
    "",
    "نام بسیار بلند و بلند و بلند و بلند و بلند و بلند و بلند و بلند و بلند و بلند و بلند"};

struct NamedControl {
  TControl* control;
  std::string path;
};

void CollectReachable(TComponent& component, const std::string& prefix, std::vector<NamedControl>& found) {
  for (TComponent* each : component.Components()) {
    if (each->Name().empty()) continue;
    const std::string path = prefix.empty() ? each->Name() : prefix + "." + each->Name();
    auto* control = dynamic_cast<TControl*>(each);
    if (control != nullptr && control->CanFocus()) found.push_back({control, path});
    CollectReachable(*each, path, found);
  }
}

}  // namespace

std::string RandomSteps::Code() {
  return Chance(70) ? std::to_string(1 + Below(20)) : Any(std::array{"0", "-1", "999", "2147483647"});
}

std::string RandomSteps::Date() {
  if (Chance(15)) return Any(std::array{"1404/12/30", "1402/1/1", "x", "1402/06/31"});
  const auto two = [](std::uint64_t number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  return "140" + std::to_string(Below(4)) + "/" + two(1 + Below(12)) + "/" + two(1 + Below(29));
}

std::string RandomSteps::SomeText() {
  if (Chance(25)) return Code();
  if (Chance(20)) return Date();
  return Any(kTexts);
}

std::string RandomSteps::OpenSomething(CaseRun& run) {
  // Windows that other windows of the host open by their class.
  if (Chance(15)) {
    const std::string name =
        Any(std::array{"TKardex_FRM", "TOneGoodDetailTransaction_FRM", "TGoodDetailOperationDismatch_FRM",
                       "TGoodTransaction_FRM mode 5"});
    if (name.ends_with("mode 5")) return "open " + name;
    return "open " + name + " " + (Chance(50) ? Code() : InQuotes(SomeText()));
  }
  auto found = run.Environment().exports.begin();
  std::advance(found, static_cast<std::ptrdiff_t>(Below(run.Environment().exports.size())));
  const std::string call = "call " + found->first;
  const auto date = [this] { return InQuotes(Chance(30) ? std::string() : Date()); };
  const auto flag = [this] { return std::to_string(Below(2)); };
  if (found->first == "Open_Kardex") return call + " " + Code() + " " + Code() + " " + date() + " " + date();
  if (found->first == "Open_KardexNegativ") {
    return call + " " + InQuotes(Chance(80) ? "1" : SomeText()) + " " +
           InQuotes(Chance(50) ? "0" : SomeText()) + " " + InQuotes(Chance(50) ? "0" : SomeText());
  }
  if (found->first == "Open_GarKala") return call + " " + Any(std::array{"501", "502", "7"});
  if (found->first == "Open_GoodDetailTransactions") {
    return call + " " + Code() + " " + flag() + " " + Code() + " " + flag() + " " + date() + " " + date() +
           " " + flag() + " " + InQuotes(Chance(50) ? ",1,2," : SomeText()) + " " + flag() + " " +
           InQuotes(SomeText());
  }
  return call;
}

std::string RandomSteps::HostFault() {
  switch (Below(14)) {
    case 0:
      return "next statement fails \"deadlock\"";
    case 1:
      return "next statement cancelled";
    case 2:
      return "connection lost after " + std::to_string(Below(4)) + " statements";
    case 3:
    case 4:
      return "connection back";
    case 5:
      return "next lookup fails \"timeout\"";
    case 6:
      return "next document fails \"no document\"";
    case 7:
      return Chance(50) ? "all rights refused" : "all rights granted";
    case 8:
      return "all rights granted";
    case 9:
      return Chance(50) ? "prices hidden" : "prices shown";
    case 10:
      return Chance(50) ? "vouchers \"3\" unsaved" : "vouchers \"3\" saved";
    case 11:
      return "setting SecondUnit " + std::string(Chance(50) ? "on" : "off");
    case 12:
      return "next category tree chooses \"1,2\"";
    default:
      return Chance(80) ? "next picker chooses " + Code() : "next picker gives up";
  }
}

std::string RandomSteps::WindowAction() {
  switch (Below(12)) {
    case 0:
      return "resize window";
    case 1:
      return "close window";
    case 2:
      return "close window with result " + std::to_string(1 + Below(2));
    case 3:
      return "hand over parameter " + InQuotes(SomeText());
    case 4:
    case 5:
      return "wait " + std::to_string(Below(3) * 400 + Below(40)) + " ms";
    default:
      return "press " + std::string(Any(kKeys));
  }
}

std::string RandomSteps::OnGrid(TSmartDBGrid_QRT& grid, const std::string& path) {
  const std::string in = " in " + path;
  const std::size_t rows = grid.DataSet() == nullptr ? 0 : grid.DataSet()->RecordCount();
  std::vector<const TGridColumn*> columns;
  for (const auto& column : grid.Columns()) columns.push_back(column.get());
  if (rows > 0 && Chance(50)) {
    const std::string row = std::to_string(1 + Below(rows));
    if (Chance(60)) return "go to row " + row + in;
    return (Chance(70) ? "double-click row " + row : "select rows " + InQuotes("1 " + row)) + in;
  }
  if (columns.empty() || Chance(10)) return "double-click" + in;
  const TGridColumn& column = *Any(columns);
  // A caption may stand twice; a field is the column's own name.
  const std::string name = InQuotes(column.FieldName().empty() ? column.Caption() : column.FieldName());
  if (column.Customizable() && Chance(25)) return (Chance(60) ? "show column " : "hide column ") + name + in;
  if (!column.Visible()) return "press F9";
  return (Chance(75) ? "sort by " : "sort also by ") + name + in;
}

std::string RandomSteps::OnControl(TControl& control, const std::string& path) {
  if (auto* grid = dynamic_cast<TSmartDBGrid_QRT*>(&control)) return OnGrid(*grid, path);
  if (Chance(12)) return "press " + std::string(Any(kKeys)) + " in " + path;
  const bool date = dynamic_cast<TDateEdit*>(&control) != nullptr;
  const std::string typed = InQuotes(date && Chance(75) ? Date() : SomeText());
  if (dynamic_cast<TEdit*>(&control) != nullptr) {
    if (Chance(30)) return "press Enter in " + path;
    return (Chance(80) ? "type " : "type more ") + typed + " into " + path;
  }
  if (const auto* combo = dynamic_cast<TComboBox*>(&control)) {
    if (combo->Items().empty() || Chance(20)) return "type " + typed + " into " + path;
    return "choose item " + std::to_string(Below(combo->Items().size())) + " in " + path;
  }
  if (dynamic_cast<TTokenEditor*>(&control) != nullptr) {
    return (Chance(50) ? "add token " + InQuotes(Code()) + " to " : "type " + typed + " into ") + path;
  }
  if (const auto* drop = dynamic_cast<TDropDownCombo*>(&control)) {
    return (drop->DroppedDown() ? "close up " : "drop down ") + path;
  }
  if (const auto tabs = TabsOf(control); tabs && !tabs->empty()) {
    return "choose tab " + std::to_string(Any(*tabs).index) + " in " + path;
  }
  if (const auto* panel = dynamic_cast<TPanel*>(&control); panel != nullptr && panel->Foldable) {
    return (panel->Folded() ? "unfold " : "fold ") + path;
  }
  return "click " + path;
}

std::string RandomSteps::Next(CaseRun& run) {
  TForm* const window = run.Host().Windows().ActiveWindow();
  if (Chance(6)) return HostFault();
  if (window == nullptr || Chance(2)) return OpenSomething(run);
  if (Chance(22)) return WindowAction();
  std::vector<NamedControl> controls;
  CollectReachable(*window, "", controls);
  if (controls.empty()) return WindowAction();
  const NamedControl& chosen = controls[Below(controls.size())];
  return OnControl(*chosen.control, chosen.path);
}

}  // namespace goods
