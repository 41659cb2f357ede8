#include "tests/scripted/engine/component_access.h"

#include <functional>
#include <map>

#include "host/base/base_dock.h"
#include "host/components/drop_down.h"
#include "host/components/edit.h"
#include "host/components/standard.h"
#include "host/components/tabs.h"
#include "host/components/token_editor.h"
#include "host/frames/select_entity_frame.h"
#include "host/frames/select_entity_search_frame.h"

namespace goods {
namespace {

void CollectGrids(TComponent& component, std::vector<TSmartDBGrid_QRT*>& found) {
  for (TComponent* each : component.Components()) {
    if (auto* grid = dynamic_cast<TSmartDBGrid_QRT*>(each)) found.push_back(grid);
    CollectGrids(*each, found);
  }
}

std::string NamesOf(const TComponent& component) {
  std::string names;
  for (const TComponent* each : component.Components()) {
    if (!each->Name().empty()) names += " " + each->Name();
  }
  return names;
}

bool VisibleWithParents(const TControl& control) {
  for (const TControl* each = &control; each->Parent() != nullptr; each = each->Parent()) {
    if (!each->Visible()) return false;
  }
  return true;
}

bool EnabledWithParents(const TControl& control) {
  for (const TControl* each = &control; each->Parent() != nullptr; each = each->Parent()) {
    if (!each->Enabled()) return false;
  }
  return true;
}

// What keeps a control from being seen that is visible itself.
const char* WhyNotShown(const TControl& control) {
  for (const TControl* each = control.Parent(); each != nullptr; each = each->Parent()) {
    const auto* panel = dynamic_cast<const TPanel*>(each);
    const auto* combo = dynamic_cast<const TDropDownCombo*>(each);
    if (panel != nullptr && panel->Folded()) return " is in a folded panel";
    if (combo != nullptr && !combo->DroppedDown()) return " is in a closed drop-down";
  }
  return " is on a page that is not shown";
}

// Reads a property of the components of one class.
template <typename Kind, typename Result, typename Read>
std::function<std::optional<Result>(const TComponent&)> Of(Read read) {
  return [read](const TComponent& component) -> std::optional<Result> {
    const auto* kind = dynamic_cast<const Kind*>(&component);
    if (kind == nullptr) return std::nullopt;
    return read(*kind);
  };
}

template <typename Result>
using Readers =
    std::multimap<std::string, std::function<std::optional<Result>(const TComponent&)>, std::less<>>;

template <typename Result>
std::optional<Result> Read(const Readers<Result>& readers, const TComponent& component,
                           std::string_view name) {
  const auto [first, last] = readers.equal_range(name);
  for (auto each = first; each != last; ++each) {
    if (auto value = each->second(component)) return value;
  }
  return std::nullopt;
}

template <typename Kind, typename Read>
auto Text(Read read) {
  return Of<Kind, std::string>(read);
}

template <typename Kind, typename Read>
auto Number(Read read) {
  return Of<Kind, std::int64_t>(read);
}

template <typename Kind, typename Read>
auto State(Read read) {
  return Of<Kind, bool>(read);
}

const TBaseDock_FRM* ReportWindowOf(const TControl& control) {
  return dynamic_cast<const TBaseDock_FRM*>(control.Form());
}

}  // namespace

TComponent& FindComponentOrFail(TForm& form, std::string_view path, const Place& place) {
  TComponent* const found = form.FindComponent(path);
  if (found != nullptr) return *found;
  throw CaseError(place.Text() + ": " + form.Name() + " has no component " + std::string(path) + "; it has" +
                  NamesOf(form));
}

void CheckReachable(const TControl& control, const Place& place) {
  if (control.Form() != nullptr && control.CanFocus()) return;
  const char* why = control.Form() == nullptr      ? " stands in no window"
                    : !VisibleWithParents(control) ? " is not visible"
                    : !EnabledWithParents(control) ? " is disabled"
                                                   : WhyNotShown(control);
  throw CaseError(place.Text() + ": a user cannot reach " + control.Name() + ": it" + why);
}

TSmartDBGrid_QRT& FindGrid(TForm& form, std::string_view name, const Place& place) {
  if (!name.empty()) return FindKind<TSmartDBGrid_QRT>(form, name, place, "grid");
  std::vector<TSmartDBGrid_QRT*> grids;
  CollectGrids(form, grids);
  if (grids.size() != 1) {
    throw CaseError(place.Text() + ": " + form.Name() + " has " + std::to_string(grids.size()) +
                    " grids; name one");
  }
  return *grids.front();
}

TADOQuery& QueryOf(const TSmartDBGrid_QRT& grid, const Place& place) {
  if (grid.DataSet() == nullptr) throw CaseError(place.Text() + ": " + grid.Name() + " shows no query");
  return *grid.DataSet();
}

TGridColumn& FindColumn(const TSmartDBGrid_QRT& grid, std::string_view name, bool hiddenToo,
                        const Place& place) {
  std::string names;
  for (const auto& column : grid.Columns()) {
    if (!column->Visible() && !hiddenToo) continue;
    if (column->Caption() == name || column->FieldName() == name) return *column;
    names += " " + InQuotes(column->Caption());
  }
  throw CaseError(place.Text() + ": " + grid.Name() + " shows no column " + InQuotes(name) + "; it shows" +
                  names);
}

std::size_t RowPosition(const TADOQuery& query, std::int64_t number, const Place& place) {
  const auto count = static_cast<std::int64_t>(query.RecordCount());
  if (number >= 1 && number <= count) return static_cast<std::size_t>(number - 1);
  throw CaseError(place.Text() + ": there is no row " + std::to_string(number) + " among " +
                  std::to_string(count));
}

std::optional<std::vector<SeenTab>> TabsOf(const TComponent& component) {
  std::vector<SeenTab> tabs;
  if (const auto* strip = dynamic_cast<const TTabControl*>(&component)) {
    for (const std::string& caption : strip->Tabs()) {
      const int index = static_cast<int>(tabs.size());
      tabs.push_back({index, PlainCaption(caption), index == strip->TabIndex(), true});
    }
  } else if (const auto* pages = dynamic_cast<const TPageControl*>(&component)) {
    int index = 0;
    for (const TTabSheet* page : pages->Pages()) {
      if (page->Visible()) {
        tabs.push_back({index, PlainCaption(page->Caption()), page == pages->ActivePage(), page->Enabled()});
      }
      ++index;
    }
  } else {
    return std::nullopt;
  }
  return tabs;
}

namespace {

// The caption of the chosen tab, empty when no tab is chosen.
std::optional<std::string> ChosenTab(const TComponent& component) {
  const auto tabs = TabsOf(component);
  if (!tabs) return std::nullopt;
  for (const SeenTab& tab : *tabs) {
    if (tab.chosen) return tab.caption;
  }
  return std::string();
}

}  // namespace

std::optional<std::string> TextProperty(const TComponent& component, std::string_view property) {
  static const Readers<std::string> readers{
      {"text", Text<TEdit>([](const TEdit& edit) { return edit.Text(); })},
      {"text", Text<TComboBox>([](const TComboBox& combo) { return combo.Text(); })},
      {"text", Text<TDropDownCombo>([](const TDropDownCombo& combo) { return combo.Text(); })},
      {"text", Text<TTokenEditor>([](const TTokenEditor& editor) { return editor.Text(); })},
      {"tokens", Text<TTokenEditor>([](const TTokenEditor& editor) { return editor.CodesText(); })},
      {"tab", ChosenTab},
      {"caption", Text<TControl>([](const TControl& control) { return control.Caption(); })},
      {"hint", Text<TControl>([](const TControl& control) { return control.Hint(); })},
      {"problem", Text<TEdit>([](const TEdit& edit) { return edit.Problem(); })},
      {"problem", Text<TTokenEditor>([](const TTokenEditor& editor) { return editor.Problem(); })},
      {"placeholder", Text<TEdit>([](const TEdit& edit) { return edit.Placeholder(); })},
      {"placeholder", Text<TTokenEditor>([](const TTokenEditor& editor) { return editor.Placeholder(); })},
      {"name", Text<TControl>([](const TControl& control) { return control.AccessibleName(); })},
      {"empty-text", Text<TSmartDBGrid_QRT>([](const TSmartDBGrid_QRT& grid) { return grid.EmptyText(); })},
  };
  return Read(readers, component, property);
}

std::optional<std::int64_t> NumberProperty(const TComponent& component, std::string_view property) {
  static const Readers<std::int64_t> readers{
      {"height", Number<TControl>([](const TControl& control) { return control.Height(); })},
      {"width", Number<TControl>([](const TControl& control) { return control.Width(); })},
      {"tag", Number<TComponent>([](const TComponent& each) { return each.Tag; })},
      {"tab", Number<TTabControl>([](const TTabControl& strip) { return strip.TabIndex(); })},
      {"tab", Number<TPageControl>([](const TPageControl& pages) { return pages.ActivePageIndex(); })},
      {"item", Number<TComboBox>([](const TComboBox& combo) { return combo.ItemIndex(); })},
      {"code", Number<TComboBox>([](const TComboBox& combo) { return combo.ItemObject(); })},
      {"code",
       Number<TSelect_Entity_Frame>([](const TSelect_Entity_Frame& each) { return each.CodeAsInt(); })},
      {"code", Number<TSelectEntity_Search_Frame>(
                   [](const TSelectEntity_Search_Frame& each) { return each.CodeAsInt(); })},
      {"part", Number<TFormOptions>([](const TFormOptions& each) { return each.ComponentSoftwarePart; })},
  };
  return Read(readers, component, property);
}

std::optional<bool> StateProperty(const TComponent& component, std::string_view state) {
  static const Readers<bool> readers{
      {"checked", State<TCheckBox>([](const TCheckBox& box) { return box.Checked(); })},
      {"unchecked", State<TCheckBox>([](const TCheckBox& box) { return !box.Checked(); })},
      {"checked", State<TRadioButton>([](const TRadioButton& radio) { return radio.Checked(); })},
      {"unchecked", State<TRadioButton>([](const TRadioButton& radio) { return !radio.Checked(); })},
      {"visible", State<TControl>([](const TControl& each) { return VisibleWithParents(each); })},
      {"hidden", State<TControl>([](const TControl& each) { return !VisibleWithParents(each); })},
      {"reachable", State<TControl>([](const TControl& each) { return each.CanFocus(); })},
      {"enabled", State<TControl>([](const TControl& each) { return EnabledWithParents(each); })},
      {"disabled", State<TControl>([](const TControl& each) { return !EnabledWithParents(each); })},
      {"folded", State<TPanel>([](const TPanel& panel) { return panel.Folded(); })},
      {"unfolded", State<TPanel>([](const TPanel& panel) { return !panel.Folded(); })},
      {"focused", State<TControl>([](const TControl& each) { return each.Focused(); })},
      {"unfocused", State<TControl>([](const TControl& each) { return !each.Focused(); })},
      {"dropped", State<TComboBox>([](const TComboBox& combo) { return combo.DroppedDown(); })},
      {"dropped", State<TDropDownCombo>([](const TDropDownCombo& combo) { return combo.DroppedDown(); })},
      {"sound", State<TEdit>([](const TEdit& edit) { return edit.Problem().empty(); })},
      {"sound", State<TTokenEditor>([](const TTokenEditor& editor) { return editor.Problem().empty(); })},
      {"read-only", State<TTokenEditor>([](const TTokenEditor& editor) { return editor.ReadOnly(); })},
      {"row-numbers",
       State<TSmartDBGrid_QRT>([](const TSmartDBGrid_QRT& grid) { return grid.ShowRowNumbers; })},
      {"footer-row", State<TSmartDBGrid_QRT>([](const TSmartDBGrid_QRT& grid) { return grid.ShowFooter; })},
      {"right-aligned",
       State<TSmartDBGrid_QRT>([](const TSmartDBGrid_QRT& grid) { return grid.RightAligned; })},
      {"shortcut-keys", State<TControl>([](const TControl& each) {
         const auto* window = ReportWindowOf(each);
         return window != nullptr && window->HasShortCut(each);
       })},
      {"pop-up-menu", State<TControl>([](const TControl& each) {
         const auto* window = ReportWindowOf(each);
         return window != nullptr && window->HasPopMenu(each);
       })},
  };
  return Read(readers, component, state);
}

}  // namespace goods
