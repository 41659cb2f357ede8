#include "host/components/stored_properties.h"

#include <utility>

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

}  // namespace

TStoredProperties::TStoredProperties(TComponent* owner, std::string name, std::string section)
    : TComponent(owner, std::move(name)), section_(std::move(section)) {}

void TStoredProperties::Keep(TCheckBox& box) {
  properties_.push_back({PathOf(box) + ".Checked", [&box] { return std::string(box.Checked() ? "1" : "0"); },
                         [&box](const std::string& value) {
                           if (value == "0" || value == "1") box.SetChecked(value == "1");
                         }});
}

void TStoredProperties::Keep(TComboBox& combo) {
  properties_.push_back({PathOf(combo) + ".ItemIndex", [&combo] { return std::to_string(combo.ItemIndex()); },
                         [&combo](const std::string& value) {
                           const auto index = ParseInteger(value);
                           if (index && *index >= 0 &&
                               *index < static_cast<std::int64_t>(combo.Items().size())) {
                             combo.SetItemIndex(static_cast<int>(*index));
                           }
                         }});
}

void TStoredProperties::Keep(TEdit& edit) {
  properties_.push_back({PathOf(edit) + ".Text", [&edit] { return edit.Text(); },
                         [&edit](const std::string& value) { edit.SetText(value); }});
}

void TStoredProperties::Keep(TSmartDBGrid_QRT& grid) {
  properties_.push_back({PathOf(grid) + ".Layout", [&grid] { return grid.SaveLayout(); },
                         [&grid](const std::string& value) { grid.LoadLayout(value); }});
}

void TStoredProperties::KeepWidth(TControl& control) {
  properties_.push_back({PathOf(control) + ".Width", [&control] { return std::to_string(control.Width()); },
                         [&control](const std::string& value) {
                           const auto width = ParseInteger(value);
                           if (width && *width > 0 && *width <= kWidest) {
                             control.SetWidth(static_cast<int>(*width));
                           }
                         }});
}

void TStoredProperties::Load(const ISettings& settings) {
  const std::vector<std::string> lines = Split(settings.ReadSection(section_), '\n');
  for (const Property& property : properties_) {
    for (const std::string& line : lines) {
      const std::size_t equals = line.find('=');
      if (equals != std::string::npos && SameText(line.substr(0, equals), property.name)) {
        property.write(Lines(std::string_view(line).substr(equals + 1)));
      }
    }
  }
}

void TStoredProperties::Save(ISettings& settings) const {
  std::string text;
  for (const Property& property : properties_) text += property.name + "=" + OneLine(property.read()) + "\n";
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
