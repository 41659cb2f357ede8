// The entry of a table's menu that compares its rows with those of another period, and its key.
#pragma once

#include "desktop/views/form_view.h"

namespace goods {

// Ctrl+F12. Offered on tables whose report can be read for another period, while they have rows of a run.
GridCommand ComparisonCommand();

}  // namespace goods
