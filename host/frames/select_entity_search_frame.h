// TSelectEntity_Search_Frame: the criterion "one store" (or person, good, group), with exclude.
#pragma once

#include <string>
#include <vector>

#include "host/frames/search_frame.h"
#include "host/frames/select_entity_frame.h"

namespace goods {

// A code that the user chooses or types ticks the box; an empty code unticks it. The criterion is in use
// while the box is ticked and there is a code.
class TSelectEntity_Search_Frame : public TSearchFrame {
 public:
  TSelectEntity_Search_Frame(TComponent* owner, std::string name, std::string caption);

  void SetEntityType(EntityType type) { TSelect_Entity_Frame1.SetEntityType(type); }
  // One type for each item of the list: the code is of the chosen one's, and another choice empties it.
  void SetEntityTypes(std::vector<EntityType> types);
  std::int64_t CodeAsInt() const { return TSelect_Entity_Frame1.CodeAsInt(); }
  // Ticked, with a code, and not turned round.
  bool IsOnlyThisOne() const;
  // Ticked, with a code.
  bool InUse() const { return SelectEntity_CHK.Checked() && CodeAsInt() != 0; }
  // Sets the code and ticks the box; 0 empties and unticks.
  void SetCode(std::int64_t code);
  void Clear() override;

  TCheckBox SelectEntity_CHK;
  TComboBox SelectEntity_CMB{this, "SelectEntity_CMB"};
  TSelect_Entity_Frame TSelect_Entity_Frame1{this, "TSelect_Entity_Frame1"};
  TCheckBox SelectEntity_Reverst_CHK{this, "SelectEntity_Reverst_CHK", "به جز"};

 protected:
  void FillSearch() override;

 private:
  void FollowType();

  std::vector<EntityType> types_;
};

}  // namespace goods
