// Opening the stock card of a row's good from another report.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "host/services/host.h"
#include "module/data/stock_data.h"

namespace goods {

struct AskedRight {
  int softwarePart = 0;
  int permission = kPermissionOpenReport;
};

// Whether the good's stock card may open: the rights are asked for in their order, and, where movements are
// given, the good must have moved; else the user is told that it has not.
bool MayOpenStockCard(THost& host, std::span<const AskedRight> rights, MovementData* movements,
                      std::int64_t good);

// The host's stock card of the good, over all stores; two empty dates are no date range. One right is asked
// for; movements may be null.
void OpenStockCard(THost& host, const AskedRight& right, MovementData* movements, std::int64_t good,
                   std::string_view from = {}, std::string_view to = {});

}  // namespace goods
