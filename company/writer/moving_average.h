// The moving weighted average price of a good.
#pragma once

#include "host/data/decimal.h"

namespace goods {

// The average after an incoming row: (stock * average + quantity * price) / (stock + quantity), rounded once
// to nine decimals, half away from zero. stock is what all stores held before the row; where that is zero or
// negative the average becomes the row's price. quantity must be positive, average and price not negative.
Decimal MovingAverage(Decimal stock, Decimal average, Decimal quantity, Decimal price);

}  // namespace goods
