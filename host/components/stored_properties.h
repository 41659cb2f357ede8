// TStoredProperties: what a window remembers of its controls until the next time.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/components/edit.h"
#include "host/components/grid.h"
#include "host/components/standard.h"
#include "host/services/settings.h"

namespace goods {

// Kept by the host in a section of the user's settings, a line "name=value" each; the name is the component's
// path within the window. A value that the control refuses, or that is half typed, changes nothing. Windows
// may share a section: a line that names nothing here is carried over when the section is saved.
class TStoredProperties : public TComponent {
 public:
  TStoredProperties(TComponent* owner, std::string name, std::string section);

  const std::string& Section() const { return section_; }
  // control must outlive this object.
  void Keep(TCheckBox& box);          // ticked or not
  void Keep(TComboBox& combo);        // the chosen item's index
  void Keep(TEdit& edit);             // the text
  void Keep(TSmartDBGrid_QRT& grid);  // the columns as they are arranged, and the sort
  void KeepWidth(TControl& control);
  // What keep names belongs together, as the column, the edits and the box of a range: it is restored in the
  // order of its naming and, where a control refuses its value, not at all.
  void KeepTogether(const std::function<void()>& keep);

  // Loading fires the controls' events, in the order in which they were named here.
  void Load(const ISettings& settings);
  void Save(ISettings& settings) const;

 private:
  struct Property {
    std::string name;
    std::function<std::string()> read;
    std::function<bool(const std::string&)> write;  // false when the control refuses the value
    std::size_t group;                              // equal for what belongs together
  };
  using Group = std::span<const Property>;

  void Add(std::string name, std::function<std::string()> read,
           std::function<bool(const std::string&)> write);
  bool Knows(std::string_view name) const;
  static void Restore(Group group, const std::vector<std::string>& lines);
  std::string PathOf(const TComponent& component) const;

  std::string section_;
  std::vector<Property> properties_;
  bool together_ = false;
  std::size_t groups_ = 0;
};

}  // namespace goods
