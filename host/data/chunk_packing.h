// Packing a chunk of decimals: 8 bytes a cell where that is exact, else 9, 10 or 16.
#pragma once

#include <cstddef>

#include "host/data/column_chunk.h"

namespace goods {

// Fills chunk with the cells: narrow at the smallest scale that is exact for all of them, if they then fit 64
// bits, else wide. Sets its size and scale.
void PackDecimals(const Int128* cells, std::size_t count, ColumnChunk& chunk);

}  // namespace goods
