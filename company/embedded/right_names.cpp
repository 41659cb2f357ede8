#include "company/right_names.h"

#include <algorithm>
#include <array>

#include "host/core/text.h"
#include "host/services/rights.h"

namespace goods {

namespace {

constexpr std::string_view kQuantities = "موجودی کالا";
constexpr std::string_view kMoney = "موجودی ریالی";
constexpr std::string_view kOverall = "گردش کلی کالا";
constexpr std::string_view kStores = "موجودی کالا به تفکیک انبار";
constexpr std::string_view kCard = "کاردکس کالا";
constexpr std::string_view kSearch = "جستجو در کاردکس و کاردکس منفی";
constexpr std::string_view kDetails = "گردش و مغایرت جزئیات کالا";
constexpr std::string_view kDocuments = "سندها";

constexpr std::string_view kOpen = "باز کردن گزارش";
constexpr std::string_view kPrint = "چاپ لیست";
constexpr std::string_view kFromList = "باز کردن کاردکس از فهرست";
constexpr std::string_view kLists =
    "استفاده از همه کالاها، نه تنها لیست‌های انتخابی";
constexpr std::string_view kTotals = "جمع مبلغ موجودی";

constexpr std::array kRights = {
    NamedRight{{kPartAmountAsset, kPermissionOpenReport}, "goods-quantity", kQuantities, kOpen},
    NamedRight{{kPartAmountAsset, kPermissionPrintList}, "goods-quantity.print", kQuantities, kPrint},
    NamedRight{
        {kPartAmountAsset, kPermissionStockCardFromList}, "goods-quantity.card", kQuantities, kFromList},
    NamedRight{{kPartAmountAsset, kPermissionSelectedLists}, "goods-quantity.lists", kQuantities, kLists},
    NamedRight{{kPartAmountAsset, kPermissionStockValues}, "goods-quantity.totals", kQuantities, kTotals},
    NamedRight{{kPartCashAsset, kPermissionOpenReport}, "goods-money", kMoney, kOpen},
    NamedRight{{kPartCashAsset, kPermissionPrintList}, "goods-money.print", kMoney, kPrint},
    NamedRight{{kPartCashAsset, kPermissionStockCardFromList}, "goods-money.card", kMoney, kFromList},
    NamedRight{{kPartCashAsset, kPermissionSelectedLists}, "goods-money.lists", kMoney, kLists},
    NamedRight{
        {kPartCashAsset, kPermissionStockValues}, "goods-money.totals", kMoney, "مبلغ موجودی و جمع آن"},
    NamedRight{{kPartCashAsset, kPermissionAmounts}, "goods-money.amounts", kMoney, "دیدن مبالغ"},
    NamedRight{{kPartOverallTurnover, kPermissionOpenReport}, "overall", kOverall, kOpen},
    NamedRight{{kPartOverallTurnover, kPermissionPrintList}, "overall.print", kOverall, kPrint},
    NamedRight{{kPartStoreAsset, kPermissionOpenReport}, "stores", kStores, kOpen},
    NamedRight{{kPartStoreAsset, kPermissionPrintList}, "stores.print", kStores, kPrint},
    NamedRight{{kPartStockCard, kPermissionOpenReport}, "stock-card", kCard, kOpen},
    NamedRight{{kPartStockCard, kPermissionPrintList}, "stock-card.print", kCard, kPrint},
    NamedRight{{kPartStockCardSearch, kPermissionOpenReport}, "row-search", kSearch, kOpen},
    NamedRight{{kPartStockCardSearch, kPermissionPrintList}, "row-search.print", kSearch, kPrint},
    NamedRight{{kPartGoodDetail, kPermissionOpenReport}, "details", kDetails, kOpen},
    NamedRight{{kPartGoodDetail, kPermissionPrintList}, "details.print", kDetails, kPrint},
    NamedRight{{kPartGoods, kPermissionOpenDocument}, "document.good", kDocuments, "شناسنامه کالا"},
    NamedRight{
        {kPartSale, kPermissionOpenDocument}, "document.sale", kDocuments, "فاکتور فروش و برگشت از فروش"},
    NamedRight{{kPartBuy, kPermissionOpenDocument}, "document.buy", kDocuments, "فاکتور خرید"},
    NamedRight{{kPartBuyReturn, kPermissionOpenDocument}, "document.buy-return", kDocuments, "برگشت از خرید"},
    NamedRight{{kPartGoodAssignment, kPermissionOpenDocument}, "document.issue", kDocuments, "حواله انبار"},
    NamedRight{{kPartGoodReciept, kPermissionOpenDocument}, "document.receipt", kDocuments, "رسید انبار"},
    NamedRight{{kPartFixProduce, kPermissionOpenDocument},
               "document.fixed-production",
               kDocuments,
               "تولید آنالیز ثابت"},
    NamedRight{{kPartVarProduce, kPermissionOpenDocument},
               "document.variable-production",
               kDocuments,
               "تولید آنالیز متغیر"},
    NamedRight{{kPartAdvancedProduce, kPermissionOpenDocument},
               "document.advanced-production",
               kDocuments,
               "تولید آنالیز ثابت پیشرفته"},
    NamedRight{{kPartVoucher, kPermissionOpenDocument}, "document.voucher", kDocuments, "سند حسابداری"},
};

}  // namespace

std::span<const NamedRight> NamedRights() { return kRights; }

const NamedRight* FindRight(std::string_view key) {
  const auto found =
      std::find_if(kRights.begin(), kRights.end(), [key](const NamedRight& each) { return each.key == key; });
  return found == kRights.end() ? nullptr : &*found;
}

const NamedRight* FindRight(UserRight right) {
  const auto found = std::find_if(kRights.begin(), kRights.end(),
                                  [right](const NamedRight& each) { return each.right == right; });
  return found == kRights.end() ? nullptr : &*found;
}

std::string RightKey(UserRight right) {
  if (const NamedRight* named = FindRight(right)) return std::string(named->key);
  return std::to_string(right.part) + ":" + std::to_string(right.permission);
}

std::optional<UserRight> ParseRight(std::string_view text) {
  if (const NamedRight* named = FindRight(text)) return named->right;
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto part = ParseInteger(text.substr(0, colon));
  const auto permission = ParseInteger(text.substr(colon + 1));
  constexpr std::int64_t kLargest = 1'000'000;
  const auto valid = [](const auto& number) { return number && *number > 0 && *number <= kLargest; };
  if (!valid(part) || !valid(permission)) return std::nullopt;
  return UserRight{static_cast<int>(*part), static_cast<int>(*permission)};
}

}  // namespace goods
