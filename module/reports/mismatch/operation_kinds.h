// The kinds of operations that the operation mismatch can be limited to.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace goods {

struct OperationKind {
  std::int64_t code;
  std::string_view item;     // in the list
  std::string_view caption;  // above the printed list
};

// A list of this report's own; its wording differs from that of the movement types. Item and
// caption of a purchase differ in their yeh.
inline constexpr std::array kOperationKinds = std::to_array<OperationKind>({
    {1, "  فاکتور فروش", "نوع عملیات : فاکتور فروش"},
    {2, "  فاکتور خريد", "نوع عملیات : فاکتور خرید"},
    {3, "  اول دوره", "نوع عملیات : اول دوره"},
    {4, "  برگشت از فروش", "نوع عملیات : برگشت از فروش"},
    {5, "  برگشت از خريد", "نوع عملیات : برگشت از خريد"},
    {6, "  خروج کالا در حواله بين انبار", "نوع عملیات : خروج کالا در حواله بين انبار"},
    {7, "  ورود کالا در حواله بين انبار", "نوع عملیات : ورود کالا در حواله بين انبار"},
    {8, "  کالاي توليدي در توليد آناليز متغير", "نوع عملیات : کالاي توليدي در توليد آناليز متغير"},
    {9, "  مواد خام در توليد آناليز متغير", "نوع عملیات : مواد خام در توليد آناليز متغير"},
    {11, "  کالاي هزينه شده", "نوع عملیات : کالاي هزينه شده"},
    {21, "  حواله خروج کالا", "نوع عملیات : حواله خروج کالا"},
    {22, "  رسید ورود کالا", "نوع عملیات : رسید ورود کالا"},
    {23, "  کالاي درآمد شده", "نوع عملیات : کالاي درآمد شده"},
    {24, "  خروج کالا در تقسيم جزئيات", "نوع عملیات : خروج کالا در تقسيم جزئيات"},
    {25, "  ورود کالا در تقسيم جزئيات", "نوع عملیات : ورود کالا در تقسيم جزئيات"},
});

}  // namespace goods
