#include "host/core/component.h"

#include <algorithm>
#include <utility>

#include "host/core/text.h"

namespace goods {

TComponent::TComponent(TComponent* owner, std::string name) : name_(std::move(name)), owner_(owner) {
  if (owner_ != nullptr) owner_->components_.push_back(this);
}

TComponent::~TComponent() {
  if (owner_ != nullptr) std::erase(owner_->components_, this);
  for (TComponent* component : components_) component->owner_ = nullptr;
}

TComponent* TComponent::FindComponent(std::string_view path) const {
  const std::size_t dot = path.find('.');
  const std::string_view head = path.substr(0, dot);
  const auto found = std::find_if(components_.begin(), components_.end(),
                                  [&](const TComponent* each) { return SameText(each->Name(), head); });
  if (found == components_.end()) return nullptr;
  return dot == std::string_view::npos ? *found : (*found)->FindComponent(path.substr(dot + 1));
}

}  // namespace goods
