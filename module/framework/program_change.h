// ProgramChange: the mark of a control that the program, not the user, is changing.
#pragma once

#include "host/core/component.h"

namespace goods {

// The control carries the tag 1 for a scope; what reacts to its changes asks ByProgram. For controls that
// have no tag of their own.
class ProgramChange {
 public:
  explicit ProgramChange(TComponent& control) : control_(control), before_(control.Tag) { control_.Tag = 1; }
  ProgramChange(const ProgramChange&) = delete;
  ProgramChange& operator=(const ProgramChange&) = delete;
  ~ProgramChange() { control_.Tag = before_; }

 private:
  TComponent& control_;
  long before_;
};

inline bool ByProgram(const TComponent& control) { return control.Tag != 0; }

}  // namespace goods
