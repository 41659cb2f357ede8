// What a row of movements is beyond its columns: the name of its operation, the number of its document, the
// name of its store.
#pragma once

#include <string>

#include "host/components/grid.h"
#include "host/services/host.h"

namespace goods {

// The fields of the rows that the facts come from; an empty one has no fact.
struct MovementFields {
  std::string type{};   // the movement type
  std::string code{};   // the number of the document
  std::string store{};  // the code of the store, whose name is looked up
};

// The name of an operation: that of its movement type, else that of its document. Empty for a null or another
// code.
std::string OperationName(const Value& type);

// Describes the rows of a grid. Looks a store up once, as somebody asks for a row in it; a look-up that fails
// leaves the name out. Grid and host must outlive the grid's use of it.
void DescribeMovements(THost& host, TSmartDBGrid_QRT& grid, MovementFields fields);

}  // namespace goods
