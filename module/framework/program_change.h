// ProgramChange: the mark of a check box that the program, not the user, is changing.
#pragma once

#include "host/components/standard.h"

namespace goods {

// The box carries the tag 1 for a scope; a click handler that must not react looks at it.
class ProgramChange {
 public:
  explicit ProgramChange(TCheckBox& box) : box_(box), before_(box.Tag) { box_.Tag = 1; }
  ProgramChange(const ProgramChange&) = delete;
  ProgramChange& operator=(const ProgramChange&) = delete;
  ~ProgramChange() { box_.Tag = before_; }

 private:
  TCheckBox& box_;
  long before_;
};

}  // namespace goods
