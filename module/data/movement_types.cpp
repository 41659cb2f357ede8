#include "module/data/movement_types.h"

#include <algorithm>
#include <array>

namespace goods {
namespace {

using enum MovementDirection;

constexpr std::array<MovementType, 15> kOffered{{
    {1, "فروش", Outgoing},
    {2, "خرید", Incoming},
    {3, "موجودی اول دوره", Incoming},
    {4, "برگشت از فروش", Incoming},
    {5, "برگشت از خرید", Outgoing},
    {6, "حواله از انبار", Outgoing},
    {7, "حواله به انبار", Incoming},
    {8, "کالای تولیدی در تولید آنالیز متغیر", Incoming},
    {9, "کالای مصرفی در تولید آنالیز متغیر", Outgoing},
    {11, "کالای هزینه شده", Outgoing},
    {21, "حواله خروج کالا", Outgoing},
    {22, "رسید ورود کالا", Incoming},
    {23, "کالای درآمد شده", Incoming},
    {24, "تقسیم خروج جزییات", Outgoing},
    {25, "تقسیم ورود جزییات", Incoming},
}};

}  // namespace

std::span<const MovementType> OfferedMovementTypes() { return kOffered; }

std::optional<MovementType> FindOfferedMovementType(std::int64_t code) {
  const auto found =
      std::find_if(kOffered.begin(), kOffered.end(), [code](const auto& type) { return type.code == code; });
  return found == kOffered.end() ? std::nullopt : std::optional(*found);
}

std::optional<MovementDirection> DirectionOf(Decimal quantity) {
  if (quantity.IsZero()) return std::nullopt;
  return quantity.IsNegative() ? Outgoing : Incoming;
}

}  // namespace goods
