// The reports of the library Goods_Transaction_QRT, for C++: one table, a row a report. The exports, a host's
// menu, its help, its command line and the checks of the documentation read it.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "host/components/form.h"
#include "host/services/rights.h"

namespace goods {

// The rows of the table, by their place in it.
enum class ReportId {
  GoodsInQuantity,
  GoodsInMoney,
  OverallTurnover,
  StockPerStore,
  StockCard,
  RowSearch,
  NegativeCard,
  StockByDetails,
  SearchInDetails,
  DetailMismatch,
  OneGoodDetails,
  OperationMismatch,
};

// How long a report's window lives.
enum class ReportLife {
  Kept,     // made at the first call and shown again by the next
  Guarded,  // as long as it is shown, and only once at a time
  OneShot,  // as long as it is shown; a second one may stand before it
};

struct ReportDescription {
  ReportId id{};
  // Names the report on command lines, and its help page docs/fa/<name>.md.
  std::string_view name{};
  // The name of its window.
  std::string_view form{};
  // The function that opens it for a user, and the one that opens it for another part of the program with
  // what that part gives; both may be null, and the first is where only another report opens this one.
  const char* exportName = nullptr;
  const char* callerExport = nullptr;
  // The permission on the software part that the first export asks for. Prints ask for 23 on that part.
  int softwarePart = 0;
  int permission = kPermissionOpenReport;
  // The window's component software part; 0 where it has none.
  int component = 0;
  ReportLife life = ReportLife::OneShot;
  // What a user is told who opens a kept or guarded window that is being shown; the software part's right is
  // asked for before.
  std::string_view alreadyShown{};
  // As a menu offers it; without an export, what the report is called.
  std::string_view group{};
  std::string_view title{};
  std::string_view about{};
  int digit = -1;  // Ctrl and this digit open it; -1 none

  std::string HelpPage() const { return std::string(name) + ".md"; }
};

namespace report_groups {
inline constexpr std::string_view kTurnover = "گردش و موجودی";
inline constexpr std::string_view kStockCards = "کاردکس";
inline constexpr std::string_view kDetails = "جزئیات کالا";
}  // namespace report_groups

// In the order of menus and help: what most users come for stands first, and what only reports open last.
inline constexpr std::array<ReportDescription, 12> kReports{{
    {.id = ReportId::GoodsInQuantity,
     .name = "turnover-list",
     .form = "GoodTransaction_FRM",
     .exportName = "Open_GoodAmountAsset",
     .callerExport = "Open_GarKala",
     .softwarePart = kPartAmountAsset,
     .component = cspGoodAmountAsset,
     .life = ReportLife::Kept,
     .alreadyShown = "امکان نمایش مجدد موجودی کالا وجود ندارد",
     .group = report_groups::kTurnover,
     .title = "موجودی کالاها",
     .about = "گردش و مانده مقداری کالاها",
     .digit = 1},
    {.id = ReportId::GoodsInMoney,
     .name = "turnover-money",
     .form = "GoodTransaction_FRM",
     .exportName = "Open_GoodCashAsset",
     .callerExport = "Open_GarKala",
     .softwarePart = kPartCashAsset,
     .component = cspGoodCashAsset,
     .life = ReportLife::Kept,
     .alreadyShown = "امکان نمایش مجدد موجودی ریالی وجود ندارد",
     .group = report_groups::kTurnover,
     .title = "موجودی ریالی",
     .about = "گردش و مانده کالاها با ارزش ریالی",
     .digit = 2},
    {.id = ReportId::OverallTurnover,
     .name = "overall-turnover",
     .form = "GoodTrans_Overall_FRM",
     .exportName = "Open_GoodTrans_Overall",
     .softwarePart = kPartOverallTurnover,
     .group = report_groups::kTurnover,
     .title = "گردش کلی کالا",
     .about = "جمع گردش کالاها به تفکیک نوع عملیات",
     .digit = 3},
    {.id = ReportId::StockPerStore,
     .name = "store-stock",
     .form = "GoodsAsset_Store_FRM",
     .exportName = "Open_GoodsAsset_Store",
     .softwarePart = kPartStoreAsset,
     .group = report_groups::kTurnover,
     .title = "موجودی به تفکیک انبار",
     .about = "مقدار و ارزش کالاها در هر انبار",
     .digit = 4},
    {.id = ReportId::StockCard,
     .name = "stock-card",
     .form = "Kardex_FRM",
     .exportName = "Open_GoodKardex",
     .callerExport = "Open_Kardex",
     .softwarePart = kPartStockCard,
     .component = cspKardex,
     .life = ReportLife::Kept,
     .alreadyShown = "امکان نمایش مجدد کاردکس وجود ندارد.",
     .group = report_groups::kStockCards,
     .title = "کاردکس کالا",
     .about = "گردش یک کالا به ترتیب تاریخ، با مانده و قیمت میانگین",
     .digit = 5},
    {.id = ReportId::RowSearch,
     .name = "row-search",
     .form = "KardexSearch_FRM",
     .exportName = "Open_KardexSearch",
     .softwarePart = kPartStockCardSearch,
     .component = cspSearchInKardex,
     .group = report_groups::kStockCards,
     .title = "جستجو در کاردکس",
     .about =
         "یافتن ردیف‌های کاردکس همه کالاها با شرط‌های دلخواه",
     .digit = 6},
    {.id = ReportId::NegativeCard,
     .name = "negative-card",
     .form = "KardexSearch_FRM",
     .exportName = "Open_KardexNegativ",
     .softwarePart = kPartStockCardSearch,
     .component = cspSearchInKardex,
     .group = report_groups::kStockCards,
     .title = "کاردکس منفی",
     .about =
         "ردیف‌هایی که موجودی کالا را در انبار منفی کرده‌اند",
     .digit = 7},
    {.id = ReportId::StockByDetails,
     .name = "detail-stock",
     .form = "GoodDetailTransaction_FRM",
     .exportName = "Open_DetailTransactions",
     .callerExport = "Open_GoodDetailTransactions",
     .softwarePart = kPartGoodDetail,
     .component = cspGoodDetail,
     .life = ReportLife::Guarded,
     .alreadyShown = "امکان نمایش مجدد گردش جزئیات کالا وجود ندارد",
     .group = report_groups::kDetails,
     .title = "گردش جزئیات کالا",
     .about = "گردش کالاها به تفکیک مقدار جزئیات",
     .digit = 8},
    {.id = ReportId::SearchInDetails,
     .name = "detail-search",
     .form = "AllGoodDetailTransaction_FRM",
     .exportName = "Open_SearchInDetailTransactions",
     .softwarePart = kPartGoodDetail,
     .component = cspGoodDetail,
     .life = ReportLife::Guarded,
     .alreadyShown = "امکان نمایش مجدد جستجو در گردش جزئیات کالا وجود ندارد",
     .group = report_groups::kDetails,
     .title = "جستجو در گردش جزئیات",
     .about = "گردش جزئیات همه کالاها با شرط‌های دلخواه",
     .digit = 9},
    {.id = ReportId::DetailMismatch,
     .name = "detail-mismatch",
     .form = "GoodDetailKardexDismatch_FRM",
     .exportName = "Open_DetailKardexAsset_Dismatch",
     .softwarePart = kPartGoodDetail,
     .component = cspGoodDetail,
     .life = ReportLife::Guarded,
     .alreadyShown = "امکان نمایش مجدد گزارش مغایرت جزئیات کالا وجود ندارد",
     .group = report_groups::kDetails,
     .title = "مغایرت جزئیات کالا",
     .about = "کالاهایی که جمع جزئیات آن‌ها با کاردکس نمی‌خواند",
     .digit = 0},
    {.id = ReportId::OneGoodDetails,
     .name = "one-good-detail",
     .form = "OneGoodDetailTransaction_FRM",
     .softwarePart = kPartGoodDetail,
     .component = cspGoodDetail,
     .group = report_groups::kDetails,
     .title = "گردش جزئیات یک کالا",
     .about = "گردش یک ترکیب از جزئیات"},
    {.id = ReportId::OperationMismatch,
     .name = "operation-mismatch",
     .form = "GoodDetailOperationDismatch_FRM",
     .softwarePart = kPartGoodDetail,
     .component = cspGoodDetail,
     .group = report_groups::kDetails,
     .title = "ریز مغایرت جزئیات کالا",
     .about = "ردیف‌های اسنادی که جزئیات آن‌ها با کاردکس "
              "نمی‌خواند"},
}};

constexpr const ReportDescription& Describe(ReportId report) {
  return kReports[static_cast<std::size_t>(report)];
}

static_assert(
    [] {
      for (std::size_t row = 0; row < kReports.size(); ++row) {
        const ReportDescription& report = kReports[row];
        if (report.id != static_cast<ReportId>(row)) return false;
        if (report.alreadyShown.empty() != (report.life == ReportLife::OneShot)) return false;
        if ((report.exportName == nullptr) != (report.digit < 0)) return false;
      }
      return true;
    }(),
    "each row stands in the place of its id; a window that is kept or guarded says that it is shown already");

// The reports that a menu can offer.
inline std::span<const ReportDescription> MenuReports() {
  const auto* end = kReports.data();
  while (end != kReports.data() + kReports.size() && end->exportName != nullptr) ++end;
  return {kReports.data(), end};
}

// The row of that name; null for another name.
constexpr const ReportDescription* FindReport(std::string_view name) {
  for (const ReportDescription& report : kReports) {
    if (report.name == name) return &report;
  }
  return nullptr;
}

}  // namespace goods
