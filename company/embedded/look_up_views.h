// The views that look-ups read (company/kit/look_ups.h), over the tables of a company file. They are no part
// of the file: a file that was made by another version, or by a stranger, answers them alike.
#pragma once

#include <span>

namespace goods {

struct LookUpView {
  const char* name;
  const char* columns;  // "Name type, ..." with the types integer, quantity, decimal and text
  const char* select;
};

std::span<const LookUpView> LookUpViews();

}  // namespace goods
