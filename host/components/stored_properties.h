// TStoredProperties: what a window remembers of its controls until the next time.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/components/edit.h"
#include "host/components/grid.h"
#include "host/components/standard.h"
#include "host/services/settings.h"

namespace goods {

// Kept by the host in a section of the user's settings, a line "name=value" each; the name is the component's
// path within the window. A line that names nothing, and a value that the control refuses, change nothing.
class TStoredProperties : public TComponent {
 public:
  TStoredProperties(TComponent* owner, std::string name, std::string section);

  const std::string& Section() const { return section_; }
  // control must outlive this object.
  void Keep(TCheckBox& box);          // ticked or not
  void Keep(TComboBox& combo);        // the chosen item's index
  void Keep(TEdit& edit);             // the text
  void Keep(TSmartDBGrid_QRT& grid);  // order, visibility and widths of the columns
  void KeepWidth(TControl& control);

  // Loading fires the controls' events, in the order in which they were named here.
  void Load(const ISettings& settings);
  void Save(ISettings& settings) const;

 private:
  struct Property {
    std::string name;
    std::function<std::string()> read;
    std::function<void(const std::string&)> write;
  };
  std::string PathOf(const TComponent& component) const;

  std::string section_;
  std::vector<Property> properties_;
};

}  // namespace goods
