// Which view shows which kind of component.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "desktop/views/control_view.h"

class QWidget;

namespace goods {

using ViewMaker =
    std::function<std::unique_ptr<ControlView>(FormView& form, TControl& control, QWidget* parent)>;

// Kinds are asked in the reverse order of adding, so that a derived kind that is added later wins over its
// base.
class ViewRegistry {
 public:
  // The registry of the host's own kinds; an application may add kinds to it.
  static ViewRegistry& Global();

  template <typename Kind>
  void Add(ViewMaker maker) {
    entries_.push_back(
        {[](const TControl& control) { return dynamic_cast<const Kind*>(&control) != nullptr; },
         std::move(maker)});
  }
  // Null for a kind without a view.
  std::unique_ptr<ControlView> Make(FormView& form, TControl& control, QWidget* parent) const;

 private:
  struct Entry {
    std::function<bool(const TControl&)> matches;
    ViewMaker make;
  };
  std::vector<Entry> entries_;
};

}  // namespace goods
