// TComponent: what everything with a published name is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/core/signal.h"

namespace goods {

// A named object in a tree of owners. The owner knows its components but does not free them: they are members
// of the window or data module that declares them, and die with it. Names are unique within one owner.
class TComponent {
 public:
  // Registers with owner, which may be null and must outlive this component.
  TComponent(TComponent* owner, std::string name);
  TComponent(const TComponent&) = delete;
  TComponent& operator=(const TComponent&) = delete;
  virtual ~TComponent();

  const std::string& Name() const { return name_; }
  TComponent* Owner() const { return owner_; }
  const std::vector<TComponent*>& Components() const { return components_; }

  // Finds a component by name, or by a path of names joined with ".", such as "Store_SESF.SelectEntity_CHK".
  // Letter case does not matter. Null when there is none.
  TComponent* FindComponent(std::string_view path) const;

  // A number that belongs to the program. On a check box, 1 says that the program, not the user, is changing
  // it.
  long Tag = 0;

  // The one signal that a view listens to: something that it shows has changed.
  Signal<> Changed;

 private:
  std::string name_;
  TComponent* owner_;
  std::vector<TComponent*> components_;
};

}  // namespace goods
