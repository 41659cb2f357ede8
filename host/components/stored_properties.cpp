#include "host/components/stored_properties.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/components/grid_arrangement.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::int64_t kWidest = 10'000;  // pixels; more is no width

// A value stands on one line of the section.
std::string OneLine(std::string_view value) {
  return ReplaceAll(ReplaceAll(ReplaceAll(value, "\\", "\\\\"), "\r", "\\r"), "\n", "\\n");
}

std::string Lines(std::string_view value) {
  std::string lines;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      lines.push_back(value[i]);
      continue;
    }
    ++i;
    lines.push_back(value[i] == 'n' ? '\n' : value[i] == 'r' ? '\r' : value[i]);
  }
  return lines;
}

// The last line of that name.
std::optional<std::string> ValueIn(const std::vector<std::string>& lines, std::string_view name) {
  std::optional<std::string> value;
  for (const std::string& line : lines) {
    const std::size_t equals = line.find('=');
    if (equals != std::string::npos && SameText(line.substr(0, equals), name)) {
      value = Lines(std::string_view(line).substr(equals + 1));
    }
  }
  return value;
}

}  // namespace

TStoredProperties::TStoredProperties(TComponent* owner, std::string name, std::string section)
    : TComponent(owner, std::move(name)), section_(std::move(section)) {}

void TStoredProperties::Add(std::string name, std::function<std::string()> read,
                            std::function<bool(const std::string&)> write) {
  if (!together_) ++groups_;
  properties_.push_back({std::move(name), std::move(read), std::move(write), groups_});
}

void TStoredProperties::KeepTogether(const std::function<void()>& keep) {
  ++groups_;
  together_ = true;
  keep();
  together_ = false;
}

void TStoredProperties::Keep(TCheckBox& box) {
  Add(
      PathOf(box) + ".Checked", [&box] { return std::string(box.Checked() ? "1" : "0"); },
      [&box](const std::string& value) {
        if (value != "0" && value != "1") return false;
        box.SetChecked(value == "1");
        return true;
      });
}

void TStoredProperties::Keep(TComboBox& combo) {
  Add(
      PathOf(combo) + ".ItemIndex", [&combo] { return std::to_string(combo.ItemIndex()); },
      [&combo](const std::string& value) {
        const auto index = ParseInteger(value);
        if (!index || *index < 0 || *index >= static_cast<std::int64_t>(combo.Items().size())) return false;
        combo.SetItemIndex(static_cast<int>(*index));
        return true;
      });
}

void TStoredProperties::Keep(TEdit& edit) {
  Add(
      PathOf(edit) + ".Text", [&edit] { return edit.Text(); },
      [&edit](const std::string& value) {
        const std::string before = edit.Text();
        if (!edit.SetText(value)) return false;
        if (!edit.HalfTyped()) return true;
        edit.SetText(before);
        return false;
      });
}

void TStoredProperties::Keep(TSmartDBGrid_QRT& grid) {
  Add(
      PathOf(grid) + ".Layout", [&grid] { return ArrangementOf(grid); },
      [&grid](const std::string& value) {
        ApplyArrangement(grid, value);
        return true;
      });
}

void TStoredProperties::KeepWidth(TControl& control) {
  Add(
      PathOf(control) + ".Width", [&control] { return std::to_string(control.Width()); },
      [&control](const std::string& value) {
        const auto width = ParseInteger(value);
        if (!width || *width <= 0 || *width > kWidest) return false;
        control.SetWidth(static_cast<int>(*width));
        return true;
      });
}

bool TStoredProperties::Knows(std::string_view name) const {
  return std::any_of(properties_.begin(), properties_.end(),
                     [name](const Property& property) { return SameText(property.name, name); });
}

void TStoredProperties::Restore(Group group, const std::vector<std::string>& lines) {
  std::vector<std::string> before;
  for (const Property& property : group) before.push_back(property.read());
  const bool refused = std::any_of(group.begin(), group.end(), [&lines](const Property& property) {
    const auto value = ValueIn(lines, property.name);
    return value && !property.write(*value);
  });
  if (!refused) return;
  for (std::size_t i = 0; i < group.size(); ++i) group[i].write(before[i]);
}

void TStoredProperties::Load(const ISettings& settings) {
  const std::vector<std::string> lines = Split(settings.ReadSection(section_), '\n');
  for (std::size_t from = 0; from < properties_.size();) {
    std::size_t to = from + 1;
    while (to < properties_.size() && properties_[to].group == properties_[from].group) ++to;
    Restore(Group(properties_).subspan(from, to - from), lines);
    from = to;
  }
}

void TStoredProperties::Save(ISettings& settings) const {
  std::string text;
  for (const Property& property : properties_) text += property.name + "=" + OneLine(property.read()) + "\n";
  for (const std::string& line : Split(settings.ReadSection(section_), '\n')) {
    const std::size_t equals = line.find('=');
    if (equals != std::string::npos && !Knows(line.substr(0, equals))) text += line + "\n";
  }
  settings.WriteSection(section_, text);
}

std::string TStoredProperties::PathOf(const TComponent& component) const {
  std::string path = component.Name();
  for (const TComponent* each = component.Owner(); each != nullptr && each != Owner(); each = each->Owner()) {
    path = each->Name() + "." + path;
  }
  return path;
}

}  // namespace goods
