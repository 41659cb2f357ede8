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
// was typed. A code that could not be looked up counts as none: the edit keeps it, marked, the name is "---",
// OnCodeChange is fired, and the look-up's error goes on to the caller. Enter on the accepted code asks again
// when its look-up or what OnCodeChange did with it failed or was stopped.
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

  // The accepted code, 0 when none.
  std::int64_t CodeAsInt() const { return code_; }
  // 0, and a code that does not fit the edit, empties it.
  void SetCode(std::int64_t code);
  // Whether the accepted code names something.
  bool Exists() const { return !values_.empty(); }
  std::string EntityName() const { return Field(0); }

  // Opens the host's list to choose from, as the button does.
  void SelectFromList();

  // The accepted code is another one, or the same that is asked again. Fired once a change.
  std::function<void()> OnCodeChange;
  // Whether what the window fills by the code is there: a window that fills outside of OnCodeChange says so
  // before and after, so that Enter asks again after a failure.
  void SetFilled(bool filled) { filled_ = filled; }

  TEdit Code_EDT{this, "Code_EDT", InputKind::Integer};
  TButton Select_BTN{this, "Select_BTN", "..."};
  TLabel Name_LBL{this, "Name_LBL", kNoName};

 private:
  void CodeAccepted();
  // The fields of what the edit's code stands for.
  std::vector<std::string> LookUp();
  void ShowOutcome(bool lookedUp);

  EntityType type_ = EntityType::None;
  std::string fields_ = "Name";
  std::vector<std::string> values_;
  std::int64_t code_ = 0;
  bool filled_ = true;
};

}  // namespace goods
