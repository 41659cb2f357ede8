// TSelect_Entity_Frame: one good, store or person, by code or by choosing.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/components/edit.h"
#include "host/components/standard.h"
#include "host/services/lookups.h"

namespace goods {

// The text that stands for a name that is not there.
inline constexpr const char* kNoName = "---";

// A code edit, the name of what the code stands for, and a button that lets the user choose. The code counts
// once it is accepted (Enter, the focus leaving, a choice, or the program); while it is being typed nothing
// happens. A code that nothing has marks the edit and leaves the name at "---"; the code itself stays as it
// was typed.
class TSelect_Entity_Frame : public TPanel {
 public:
  TSelect_Entity_Frame(TComponent* owner, std::string name);

  EntityType GetEntityType() const { return type_; }
  void SetEntityType(EntityType type) { type_ = type; }
  // What is looked up with an accepted code; "Name" comes first.
  void SetLookupFields(std::string fields) { fields_ = std::move(fields); }
  // The looked-up field at that place of the list; empty without an entity.
  std::string Field(std::size_t index) const {
    return index < values_.size() ? values_[index] : std::string();
  }

  // The accepted code, 0 when none. 0, and a code too long for the edit, empties it.
  std::int64_t CodeAsInt() const { return Code_EDT.AsInteger(); }
  void SetCode(std::int64_t code);
  // Whether the accepted code names something.
  bool Exists() const { return !values_.empty(); }
  std::string EntityName() const { return Field(0); }

  // Opens the host's list to choose from, as the button does.
  void SelectFromList();

  // The accepted code is another one. Fired once a change.
  std::function<void()> OnCodeChange;

  TEdit Code_EDT{this, "Code_EDT", InputKind::Integer};
  TButton Select_BTN{this, "Select_BTN", "..."};
  TLabel Name_LBL{this, "Name_LBL", kNoName};

 private:
  void CodeAccepted();

  EntityType type_ = EntityType::None;
  std::string fields_ = "Name";
  std::vector<std::string> values_;
};

}  // namespace goods
