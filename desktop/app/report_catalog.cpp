#include "desktop/app/report_catalog.h"

#include <array>

#include "desktop/app/services/module_library.h"
#include "host/services/rights.h"

namespace goods {
namespace {

void OpenPlain(ModuleLibrary& module, const ReportEntry& entry) { module.Call(entry.exportName); }

// All dates: the procedure's two values are not given.
void OpenNegative(ModuleLibrary& module, const ReportEntry& /*entry*/) {
  module.OpenKardexNegativ("1", "0", "0");
}

constexpr const char* kStockCards = "کاردکس";
constexpr const char* kTurnover = "گردش و موجودی";
constexpr const char* kDetails = "جزئیات کالا";

// What most users come for stands first.
constexpr std::array<ReportEntry, 10> kReports{{
    {kTurnover, "موجودی کالاها", "گردش و مانده مقداری کالاها", "Open_GoodAmountAsset", kPartAmountAsset, 1,
     OpenPlain},
    {kTurnover, "موجودی ریالی", "گردش و مانده کالاها با ارزش ریالی", "Open_GoodCashAsset", kPartCashAsset, 2,
     OpenPlain},
    {kTurnover, "گردش کلی کالا", "جمع گردش کالاها به تفکیک نوع عملیات", "Open_GoodTrans_Overall",
     kPartOverallTurnover, 3, OpenPlain},
    {kTurnover, "موجودی به تفکیک انبار", "مقدار و ارزش کالاها در هر انبار", "Open_GoodsAsset_Store",
     kPartStoreAsset, 4, OpenPlain},
    {kStockCards, "کاردکس کالا", "گردش یک کالا به ترتیب تاریخ، با مانده و قیمت میانگین", "Open_GoodKardex",
     kPartStockCard, 5, OpenPlain},
    {kStockCards, "جستجو در کاردکس",
     "یافتن ردیف‌های کاردکس همه کالاها با شرط‌های دلخواه",
     "Open_KardexSearch", kPartStockCardSearch, 6, OpenPlain},
    {kStockCards, "کاردکس منفی",
     "ردیف‌هایی که موجودی کالا را در انبار منفی کرده‌اند",
     "Open_KardexNegativ", kPartStockCardSearch, 0, OpenNegative},
    {kDetails, "گردش جزئیات کالا", "گردش کالاها به تفکیک مقدار جزئیات", "Open_DetailTransactions",
     kPartGoodDetail, 7, OpenPlain},
    {kDetails, "جستجو در گردش جزئیات",
     "گردش جزئیات همه کالاها با شرط‌های دلخواه",
     "Open_SearchInDetailTransactions", kPartGoodDetail, 8, OpenPlain},
    {kDetails, "مغایرت جزئیات کالا",
     "کالاهایی که جمع جزئیات آن‌ها با کاردکس نمی‌خواند",
     "Open_DetailKardexAsset_Dismatch", kPartGoodDetail, 9, OpenPlain},
}};

}  // namespace

std::span<const ReportEntry> ReportCatalog() { return kReports; }

}  // namespace goods
