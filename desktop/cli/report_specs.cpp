#include "desktop/cli/report_specs.h"

#include <algorithm>

#include "host/core/text.h"
#include "host/services/rights.h"

namespace goods {
namespace {

using Kind = CriterionKind;
using Place = CriterionPlace;

constexpr std::string_view kListTabs = "in-stock short no-turnover no-stock below-minimum all";
constexpr std::string_view kMovementTabs =
    "all purchase sale opening sale-return production purchase-return transfer-in surplus increase "
    "transfer-out "
    "shortage decrease";
constexpr std::string_view kStores = "total separate";

Criterion PeriodOf(std::string_view path, Place place = Place::Window, bool exclude = false) {
  return {"from", Kind::Period, place, path, -1, exclude, false, "", "First day, yyyy/mm/dd (Jalali)"};
}
Criterion BeforeOf(std::string_view path, Place place = Place::Window) {
  return {"before", Kind::Flag, place, path, -1, false, false, "", "Count the stock before the period"};
}
Criterion Search(std::string_view option, std::string_view path, int item, std::string_view help,
                 bool exclude = true, Place place = Place::Window) {
  return {option, Kind::Text, place, path, item, exclude, false, "", help};
}
Criterion RangeOf(std::string_view option, std::string_view path, int item, std::string_view help,
                  bool exclude = true) {
  return {option, Kind::Range, Place::Dialog, path, item, exclude, false, "", help};
}
Criterion StoreOf(std::string_view path, Place place, bool exclude) {
  return {"store", Kind::Code, place, path, -1, exclude, false, "", "One store's code"};
}
Criterion GoodOf(std::string_view path, Place place, bool required) {
  return {"good", Kind::Code, place, path, 0, false, required, "", "One good's code"};
}
Criterion GroupOf() {
  return {"group", Kind::Group, Place::Window, "", -1, false, false, "", "One good group's code"};
}
Criterion BasisOf() {
  return {"price-basis",
          Kind::PriceBasis,
          Place::Window,
          "pnlReport_PNL",
          -1,
          false,
          false,
          "cost highest-purchase lowest-purchase last-purchase highest-sale lowest-sale last-sale",
          "What stock is valued at; also buy:CODE and sell:CODE, a price level"};
}
Criterion TagsOf(bool exclude) {
  return {"tags",
          Kind::Codes,
          Place::Dialog,
          "TTags_search_FRM1",
          -1,
          exclude,
          false,
          "",
          "Goods with one of these tags"};
}
Criterion CategoriesOf() {
  return {"categories",
          Kind::Codes,
          Place::Dialog,
          "TCategorySearchFrame1.Category_EDT",
          -1,
          false,
          false,
          "",
          "Goods in one of these categories"};
}
void AddSavedList(std::vector<Criterion>& to) {
  to.push_back({"list", Kind::Object, Place::Dialog, "SelectedList_CMB", -1, false, false, "",
                "Goods of a saved list, by its code"});
  to.push_back({"not-in-list", Kind::Flag, Place::Dialog, "DisplayType_CHK", -1, false, false, "",
                "With --list: the goods that it does not hold"});
}

std::vector<Criterion> RowSearch() {
  constexpr std::string_view kAmounts = "SearchRangeAmount_FRAME";
  constexpr std::string_view kCosts = "SearchRangeCost_FRAME";
  return {
      Search("comment", "SearchComment_Frame", 0, "A text in the row's description"),
      Search("name", "SearchGood_FRAME", 0, "A text in the good's name", true, Place::Dialog),
      Search("person-name", "SearchPerson_FRAME", 0, "A text in the person's name", true, Place::Dialog),
      Search("store-name", "SearchStore_FRAME", 0, "A text in the store's name", true, Place::Dialog),
      RangeOf("code", "SearchRangeCode_FRAME", 0, "Goods' codes"),
      RangeOf("in", kAmounts, 0, "Quantity in"),
      RangeOf("out", kAmounts, 1, "Quantity out"),
      RangeOf("price-in", kCosts, 0, "Price of what came in"),
      RangeOf("price-out", kCosts, 1, "Price of what went out"),
      RangeOf("amount-in", kCosts, 2, "Amount of what came in"),
      RangeOf("amount-out", kCosts, 3, "Amount of what went out"),
      PeriodOf("SearchRangeDate_FRAME", Place::Dialog, true),
  };
}

std::vector<Criterion> GoodsList(bool money) {
  constexpr std::string_view kSearch = "GeneralSearch_FRAME";
  std::vector<Criterion> criteria{
      Search("good-code", kSearch, 0, "A good's code, as the quick search takes it"),
      Search("name", kSearch, 1, "A text in the good's name"),
      Search("bar-code", kSearch, 6, "A text in the good's bar code"),
      Search("unit-name", kSearch, 5, "A text in the unit's name"),
      GroupOf(),
      {"tab", Kind::Choice, Place::Window, "Kala_TBC", -1, false, false, kListTabs, "Which goods"},
      RangeOf("code", "Code_Frame", 0, "Goods' codes"),
      RangeOf("stock", "Code_Frame", 1, "Stock in the first unit"),
      {"last-movement", Kind::Dates, Place::Dialog, "Date_Frame", -1, true, false, "",
       "Day of the last movement"},
      StoreOf("Store_Frame", Place::Dialog, true),
      CategoriesOf(),
      TagsOf(true),
      PeriodOf("Period_PNL", Place::Dialog),
      BeforeOf("Period_PNL.AvalDore_CHK", Place::Dialog),
  };
  AddSavedList(criteria);
  if (money) {
    criteria.push_back(RangeOf("price", "CostRangeSearch_FRAME", 0, "Price"));
    criteria.push_back(RangeOf("amount", "CostRangeSearch_FRAME", 1, "Amount"));
    criteria.push_back(BasisOf());
  }
  return criteria;
}

std::vector<Criterion> Overall() {
  constexpr std::string_view kSearch = "GeneralSearch_FRAME";
  return {
      Search("good-code", kSearch, 0, "A good's code"),
      Search("name", kSearch, 1, "A text in the good's name"),
      Search("bar-code", kSearch, 2, "A text in the good's bar code"),
      StoreOf("Store_SESF", Place::Window, false),
      PeriodOf("Period_PNL"),
      BeforeOf("Period_PNL.AvalDore_CHK"),
      {"tab", Kind::Choice, Place::Window, "Mojodi_PGC", -1, false, false, "money quantity", "Which table"},
  };
}

std::vector<Criterion> StoreStock() {
  constexpr std::string_view kSearch = "GeneralSearch_FRAME";
  return {
      Search("good-code", kSearch, 0, "A good's code"),
      Search("name", kSearch, 1, "A text in the good's name"),
      PeriodOf("Period_PNL"),
      BeforeOf("Period_PNL.AvalDore_CHK"),
      BasisOf(),
  };
}

void AddTitleSearch(std::vector<Criterion>& to,
                    std::initializer_list<std::pair<std::string_view, std::string_view>> items) {
  int item = 0;
  for (const auto& [option, help] : items)
    to.push_back(Search(option, "GoodDetailSearch", item++, help, false));
}

void AddDetailDialog(std::vector<Criterion>& to) {
  to.push_back({"detail", Kind::Detail, Place::Window, "", -1, false, false, "",
                "A detail of the good: TITLE=VALUE or TITLE=FROM..TO; up to five times"});
  to.push_back(RangeOf("code", "SearchGoodCode_FRAME", 0, "Goods' codes", false));
  to.push_back(StoreOf("Store_SESF", Place::Dialog, false));
  to.push_back(PeriodOf("DateRangeSearch_Frame", Place::Dialog));
  to.push_back(TagsOf(false));
  to.push_back(CategoriesOf());
  AddSavedList(to);
}

std::vector<Criterion> DetailStock() {
  std::vector<Criterion> criteria{
      GroupOf(),
      {"stores", Kind::Choice, Place::Window, "StoresTotals_RDB StoresSeparations_RDB", -1, false, false,
       kStores, "Stores together or each by itself"},
      {"tab", Kind::Choice, Place::Window, "TTab_Search_Frame1.Search_TBC", -1, false, false, kMovementTabs,
       "Which movements"},
  };
  AddTitleSearch(criteria, {{"good-code", "A good's code, as the quick search takes it"},
                            {"name", "A text in the good's name"},
                            {"store-name", "A text in the store's name"},
                            {"detail-text", "A text in the details"},
                            {"stock", "The stock"}});
  criteria.push_back(GoodOf("Good_SESF", Place::Dialog, false));
  AddDetailDialog(criteria);
  return criteria;
}

std::vector<Criterion> DetailMovements() {
  std::vector<Criterion> criteria;
  AddTitleSearch(criteria, {{"good-code", "A good's code, as the quick search takes it"},
                            {"name", "A text in the good's name"},
                            {"store-name", "A text in the store's name"},
                            {"detail-text", "A text in the details"},
                            {"person-name", "A text in the person's name"},
                            {"comment", "A text in the row's description"},
                            {"in", "The quantity in"},
                            {"out", "The quantity out"},
                            {"price", "The price"},
                            {"amount", "The amount"}});
  criteria.push_back({"operation", Kind::Object, Place::Window, "OperationsType_CMB", -1, false, false, "",
                      "The kind of movement, by its number"});
  criteria.push_back(GoodOf("Good_SESF", Place::Dialog, false));
  criteria.push_back(
      {"group", Kind::Code, Place::Dialog, "Good_SESF", 1, false, false, "", "One good group's code"});
  AddDetailDialog(criteria);
  return criteria;
}

std::vector<Criterion> DetailMismatch() {
  std::vector<Criterion> criteria{
      GroupOf(),
      {"stores", Kind::Choice, Place::Window, "StoresTotals_RDB StoresSeparations_RDB", -1, false, false,
       kStores, "Stores together or each by itself"},
  };
  AddTitleSearch(criteria, {{"good-code", "A good's code"},
                            {"name", "A text in the good's name"},
                            {"store-code", "A store's code"},
                            {"store-name", "A text in the store's name"}});
  criteria.push_back({"difference", Kind::Range, Place::Window,
                      "GoodDetailSearchAmount_CMB FromAmount_EDT ToAmount_EDT", 1, false, false, "",
                      "The difference of the stocks"});
  return criteria;
}

std::vector<Criterion> OperationMismatch() {
  std::vector<Criterion> criteria{
      {"good", Kind::Text, Place::Outer, "GoodDetailSearch", 0, false, true, "", "The good's code"},
  };
  AddTitleSearch(criteria, {{"store-code", "A store's code"},
                            {"store-name", "A text in the store's name"},
                            {"operation-code", "The document's code"},
                            {"operation-row", "The row in the document"},
                            {"quantity", "The row's quantity"},
                            {"detail-quantity", "The details' quantity"}});
  criteria.push_back({"operation", Kind::Object, Place::Window, "OperationsType_CMB", -1, false, false, "",
                      "The kind of movement, by its number"});
  criteria.push_back(PeriodOf("Date_Frame", Place::Dialog));
  criteria.push_back(RangeOf("operation-codes", "OperationCode_FRAME", 0, "The documents' codes", false));
  criteria.push_back(RangeOf("operation-rows", "OperationRow_FRAME", 0, "The rows in the documents", false));
  criteria.push_back(RangeOf("quantities", "OperationAmount_FRAME", 0, "The rows' quantities", false));
  criteria.push_back(
      RangeOf("detail-quantities", "OperationAmount_FRAME", 1, "The details' quantities", false));
  return criteria;
}

std::vector<Criterion> GoodDetails() {
  Criterion detail{"detail", Kind::Detail, Place::Outer,
                   "",       -1,           false,
                   false,    "",           "The combination: TITLE=VALUE; up to five times"};
  return {
      GoodOf("Good_SESF", Place::OuterDialog, true),
      detail,
      StoreOf("Store_SESF", Place::OuterDialog, false),
      PeriodOf("DateRangeSearch_Frame", Place::OuterDialog),
  };
}

std::vector<ReportSpec> MakeReports() {
  return {
      {"stock-card",
       "kardex",
       "کاردکس کالا",
       kPartStockCard,
       "Open_GoodKardex",
       "Kardex_FRM",
       "",
       "",
       "",
       "Every movement of one good with the running remainder; by itself of the good with the most movements",
       {GoodOf("Good_SEF", Place::Window, false),
        StoreOf("Store_SESF", Place::Window, true),
        {"person", Kind::Code, Place::Window, "Person_SESF", -1, true, false, "", "One person's code"},
        PeriodOf("Date_RDSF", Place::Window, true)}},
      {"row-search", "", "جستجو در کاردکس", kPartStockCardSearch, "Open_KardexSearch", "KardexSearch_FRM", "",
       "Report_BTN", "", "Rows of all goods' stock cards by any criterion", RowSearch()},
      {"negative-stock",
       "",
       "کاردکس منفی",
       kPartStockCardSearch,
       "Open_KardexNegativ",
       "KardexSearch_FRM",
       "",
       "",
       "",
       "The rows that drive a good's stock in a store below zero",
       {PeriodOf("", Place::Call)}},
      {"goods-quantity", "", "موجودی کالا", kPartAmountAsset, "Open_GoodAmountAsset", "GoodTransaction_FRM",
       "", "", "GoodGroup_DBG", "What there is of each good", GoodsList(false)},
      {"goods-money", "", "موجودی ریالی", kPartCashAsset, "Open_GoodCashAsset", "GoodTransaction_FRM", "", "",
       "GoodGroup_DBG", "What there is of each good, and what it is worth", GoodsList(true)},
      {"overall-turnover", "", "گزارش کلی ورود و خروج کالا", kPartOverallTurnover, "Open_GoodTrans_Overall",
       "GoodTrans_Overall_FRM", "", "Search_BTN", "", "What came in and went out of each good, by operation",
       Overall()},
      {"store-stock", "", "موجودی کالا به تفکیک انبار", kPartStoreAsset, "Open_GoodsAsset_Store",
       "GoodsAsset_Store_FRM", "", "Search_BTN", "", "The stock of each good in every store", StoreStock()},
      {"detail-stock", "", "گزارش جزئیات کالا", kPartGoodDetail, "Open_DetailTransactions",
       "GoodDetailTransaction_FRM", "", "", "GoodGroup_GRD", "The stock of each combination of details",
       DetailStock()},
      {"detail-movements", "", "جستجو در گردش جزئیات کالا", kPartGoodDetail,
       "Open_SearchInDetailTransactions", "AllGoodDetailTransaction_FRM", "", "", "",
       "The movements of all goods by their details", DetailMovements()},
      {"good-details", "", "گردش جزئیات کالا", kPartGoodDetail, "Open_DetailTransactions",
       "OneGoodDetailTransaction_FRM", "OpenInfo_BTN", "", "",
       "The movements of one combination of a good's details", GoodDetails()},
      {"detail-mismatch", "", "گزارش مغایرت جزئیات کالا", kPartGoodDetail, "Open_DetailKardexAsset_Dismatch",
       "GoodDetailKardexDismatch_FRM", "", "", "GoodGroup_GRD", "Goods whose details and stock card disagree",
       DetailMismatch()},
      {"operation-mismatch", "", "گزارش ریز مغایرت جزئیات کالا", kPartGoodDetail,
       "Open_DetailKardexAsset_Dismatch", "GoodDetailOperationDismatch_FRM", "OpenInfo_BTN", "", "",
       "The documents' rows behind one good's mismatch", OperationMismatch()},
  };
}

}  // namespace

std::span<const ReportSpec> Reports() {
  static const std::vector<ReportSpec> kReports = MakeReports();
  return kReports;
}

const ReportSpec* FindReport(std::string_view name) {
  for (const ReportSpec& report : Reports()) {
    if (report.name == name || (!report.alias.empty() && report.alias == name)) return &report;
  }
  return nullptr;
}

const Criterion* FindCriterion(const ReportSpec& report, std::string_view option) {
  const auto found = std::find_if(report.criteria.begin(), report.criteria.end(),
                                  [option](const Criterion& each) { return each.option == option; });
  return found == report.criteria.end() ? nullptr : &*found;
}

std::vector<std::string> ChoicesOf(const Criterion& criterion) {
  return criterion.choices.empty() ? std::vector<std::string>() : Split(criterion.choices, ' ');
}

std::string ValueName(const Criterion& criterion) {
  switch (criterion.kind) {
    case CriterionKind::Code:
    case CriterionKind::Group:
    case CriterionKind::Object:
      return "CODE";
    case CriterionKind::Text:
      return "TEXT";
    case CriterionKind::Range:
      return "A..B";
    case CriterionKind::Dates:
      return "DAY..DAY";
    case CriterionKind::Period:
      return "DAY";
    case CriterionKind::Codes:
      return "CODE,CODE...";
    case CriterionKind::Choice:
    case CriterionKind::PriceBasis:
      return "WORD";
    case CriterionKind::Detail:
      return "TITLE=VALUE";
    case CriterionKind::Flag:
      break;
  }
  return "";
}

std::vector<Criterion> EveryCriterion() {
  std::vector<Criterion> every;
  for (const ReportSpec& report : Reports()) {
    for (const Criterion& criterion : report.criteria) {
      const auto known = std::find_if(every.begin(), every.end(),
                                      [&](const Criterion& each) { return each.option == criterion.option; });
      if (known == every.end()) every.push_back(criterion);
    }
  }
  return every;
}

}  // namespace goods
