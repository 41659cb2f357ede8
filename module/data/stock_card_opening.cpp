#include "module/data/stock_card_opening.h"

#include <algorithm>

namespace goods {

bool MayOpenStockCard(THost& host, std::span<const AskedRight> rights, MovementData* movements,
                      std::int64_t good) {
  const bool allowed = std::all_of(rights.begin(), rights.end(), [&](const AskedRight& right) {
    return IsAllowed(host.Rights(), right.softwarePart, right.permission);
  });
  if (!allowed) return false;
  if (movements == nullptr || movements->Good_HasGardesh(good)) return true;
  host.Messages().MsgWithoutGardesh("کالا");
  return false;
}

void OpenStockCard(THost& host, const AskedRight& right, MovementData* movements, std::int64_t good,
                   std::string_view from, std::string_view to) {
  if (!MayOpenStockCard(host, {&right, 1}, movements, good)) return;
  host.Documents().Call_KardexKala(good, 0, from, to);
}

}  // namespace goods
