// Components by name, and their properties as texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/grid.h"
#include "tests/scripted/engine/case_run.h"

namespace goods {

// The component of that name (a path of names joined with "."); throws CaseError when there is none.
TComponent& FindComponentOrFail(TForm& form, std::string_view path, const Place& place);

// The same as a class of components; throws CaseError when it is of another one.
template <typename Kind>
Kind& FindKind(TForm& form, std::string_view path, const Place& place, std::string_view kind) {
  auto* found = dynamic_cast<Kind*>(&FindComponentOrFail(form, path, place));
  if (found == nullptr)
    throw CaseError(place.Text() + ": " + std::string(path) + " is no " + std::string(kind));
  return *found;
}

// A control that a user can reach now: placed, visible, enabled, in no folded panel, on the page that is
// shown, in no closed drop-down; else throws CaseError.
void CheckReachable(const TControl& control, const Place& place);

// A control of the window in front that a user can reach; throws CaseError.
template <typename Kind>
Kind& Reach(CaseRun& run, const Step& step, const std::string& name, const char* kind) {
  Kind& control = FindKind<Kind>(run.Window(step.place), name, step.place, kind);
  CheckReachable(control, step.place);
  return control;
}

// A tab that is seen. Pages without a tab keep their index.
struct SeenTab {
  int index = 0;
  std::string caption;  // without the accelerator's mark
  bool chosen = false;
  bool enabled = true;
};

// Of a tab control or a page control; none when it is neither.
std::optional<std::vector<SeenTab>> TabsOf(const TComponent& component);

// The grid of that name; without a name the window's only one. Throws CaseError.
TSmartDBGrid_QRT& FindGrid(TForm& form, std::string_view name, const Place& place);
// The query under it; throws CaseError when there is none.
TADOQuery& QueryOf(const TSmartDBGrid_QRT& grid, const Place& place);

// A column by its caption, or by its field; throws CaseError when there is none.
TGridColumn& FindColumn(const TSmartDBGrid_QRT& grid, std::string_view name, bool hiddenToo,
                        const Place& place);

// The position of a row that a step numbers from 1; throws CaseError when there is no such row.
std::size_t RowPosition(const TADOQuery& query, std::int64_t number, const Place& place);

// The property of a component: a text, a number, or a state such as "checked". None when it has no such
// property.
std::optional<std::string> TextProperty(const TComponent& component, std::string_view property);
std::optional<std::int64_t> NumberProperty(const TComponent& component, std::string_view property);
std::optional<bool> StateProperty(const TComponent& component, std::string_view state);

}  // namespace goods
