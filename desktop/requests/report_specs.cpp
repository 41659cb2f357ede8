#include "desktop/requests/report_specs.h"

#include <algorithm>
#include <utility>

#include "host/core/text.h"

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

ReportCriterion PeriodOf(std::string_view path, Place place = Place::Window, bool exclude = false) {
  return {"from", Kind::Period, place, path, -1, exclude, false, "", "First day, yyyy/mm/dd (Jalali)"};
}
ReportCriterion BeforeOf(std::string_view path, Place place = Place::Window) {
  return {"before", Kind::Flag, place, path, -1, false, false, "", "Count the stock before the period"};
}
ReportCriterion Search(std::string_view option, std::string_view path, int item, std::string_view help,
                       bool exclude = true, Place place = Place::Window) {
  return {option, Kind::Text, place, path, item, exclude, false, "", help};
}
ReportCriterion RangeOf(std::string_view option, std::string_view path, int item, std::string_view help,
                        bool exclude = true) {
  return {option, Kind::Range, Place::Dialog, path, item, exclude, false, "", help};
}
ReportCriterion StoreOf(std::string_view path, Place place, bool exclude) {
  return {"store", Kind::Code, place, path, -1, exclude, false, "", "One store's code"};
}
ReportCriterion GoodOf(std::string_view path, Place place, bool required) {
  return {"good", Kind::Code, place, path, 0, false, required, "", "One good's code"};
}
ReportCriterion GroupOf() {
  return {"group", Kind::Group, Place::Window, "", -1, false, false, "", "One good group's code"};
}
ReportCriterion BasisOf() {
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
ReportCriterion TagsOf(bool exclude) {
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
ReportCriterion CategoriesOf() {
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
void AddSavedList(std::vector<ReportCriterion>& to) {
  to.push_back({"list", Kind::Object, Place::Dialog, "SelectedList_CMB", -1, false, false, "",
                "Goods of a saved list, by its code"});
  to.push_back({"not-in-list", Kind::Flag, Place::Dialog, "DisplayType_CHK", -1, false, false, "",
                "With --list: the goods that it does not hold"});
}

std::vector<ReportCriterion> RowSearch() {
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

std::vector<ReportCriterion> GoodsList(bool money) {
  constexpr std::string_view kSearch = "GeneralSearch_FRAME";
  std::vector<ReportCriterion> criteria{
      Search("good-code", kSearch, 0, "A good's code, as the quick search takes it"),
      Search("name", kSearch, 1, "A text in the good's name"),
      Search("quick-in", kSearch, 2, "The quantity in, as the quick search takes it"),
      Search("quick-out", kSearch, 3, "The quantity out, as the quick search takes it"),
      Search("quick-stock", kSearch, 4, "The stock, as the quick search takes it"),
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

std::vector<ReportCriterion> Overall() {
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

std::vector<ReportCriterion> StoreStock() {
  constexpr std::string_view kSearch = "GeneralSearch_FRAME";
  return {
      Search("good-code", kSearch, 0, "A good's code"),
      Search("name", kSearch, 1, "A text in the good's name"),
      PeriodOf("Period_PNL"),
      BeforeOf("Period_PNL.AvalDore_CHK"),
      BasisOf(),
  };
}

void AddTitleSearch(std::vector<ReportCriterion>& to,
                    std::initializer_list<std::pair<std::string_view, std::string_view>> items) {
  int item = 0;
  for (const auto& [option, help] : items)
    to.push_back(Search(option, "GoodDetailSearch", item++, help, false));
}

void AddDetailDialog(std::vector<ReportCriterion>& to) {
  to.push_back({"detail", Kind::Detail, Place::Window, "", -1, false, false, "",
                "A detail of the good: TITLE=VALUE or TITLE=FROM..TO; up to five times"});
  to.push_back(RangeOf("code", "SearchGoodCode_FRAME", 0, "Goods' codes", false));
  to.push_back(StoreOf("Store_SESF", Place::Dialog, false));
  to.push_back(PeriodOf("DateRangeSearch_Frame", Place::Dialog));
  to.push_back(TagsOf(false));
  to.push_back(CategoriesOf());
  AddSavedList(to);
}

std::vector<ReportCriterion> DetailStock() {
  std::vector<ReportCriterion> criteria{
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

std::vector<ReportCriterion> DetailMovements() {
  std::vector<ReportCriterion> criteria;
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
  criteria.push_back(RangeOf("store-codes", "SearchGoodCode_FRAME", 1, "Stores' codes", false));
  criteria.push_back(RangeOf("group-codes", "SearchGoodCode_FRAME", 2, "Good groups' codes", false));
  return criteria;
}

std::vector<ReportCriterion> DetailMismatch() {
  std::vector<ReportCriterion> criteria{
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

std::vector<ReportCriterion> OperationMismatch() {
  std::vector<ReportCriterion> criteria{
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

std::vector<ReportCriterion> GoodDetails() {
  ReportCriterion detail{"detail", Kind::Detail, Place::Outer,
                         "",       -1,           false,
                         false,    "",           "The combination: TITLE=VALUE; up to five times"};
  return {
      GoodOf("Good_SESF", Place::OuterDialog, true),
      detail,
      StoreOf("Store_SESF", Place::OuterDialog, false),
      PeriodOf("DateRangeSearch_Frame", Place::OuterDialog),
  };
}

ReportSpec Spec(ReportId report, std::vector<ReportCriterion> criteria) {
  return {&Describe(report), "", report, "", "", "", std::move(criteria)};
}

ReportSpec WithRun(ReportSpec spec, std::string_view button) {
  spec.run = button;
  return spec;
}

ReportSpec WithGroups(ReportSpec spec, std::string_view grid) {
  spec.groups = grid;
  return spec;
}

ReportSpec Through(ReportSpec spec, ReportId outer) {
  spec.outer = outer;
  spec.through = "OpenInfo_BTN";
  return spec;
}

ReportSpec StockCard() {
  ReportSpec spec =
      Spec(ReportId::StockCard,
           {{"good", Kind::Code, Place::Window, "Good_SEF", 0, false, false, "",
             "One good's code; by itself the good with the most movements"},
            StoreOf("Store_SESF", Place::Window, true),
            {"person", Kind::Code, Place::Window, "Person_SESF", -1, true, false, "", "One person's code"},
            PeriodOf("Date_RDSF", Place::Window, true)});
  spec.alias = "kardex";
  return spec;
}

ReportSpec SpecOf(ReportId report) {
  switch (report) {
    case ReportId::GoodsInQuantity:
      return WithGroups(Spec(report, GoodsList(false)), "GoodGroup_DBG");
    case ReportId::GoodsInMoney:
      return WithGroups(Spec(report, GoodsList(true)), "GoodGroup_DBG");
    case ReportId::OverallTurnover:
      return WithRun(Spec(report, Overall()), "Search_BTN");
    case ReportId::StockPerStore:
      return WithRun(Spec(report, StoreStock()), "Search_BTN");
    case ReportId::StockCard:
      break;
    case ReportId::RowSearch:
      return WithRun(Spec(report, RowSearch()), "Report_BTN");
    case ReportId::NegativeCard:
      return Spec(report, {PeriodOf("", Place::Call)});
    case ReportId::StockByDetails:
      return WithGroups(Spec(report, DetailStock()), "GoodGroup_GRD");
    case ReportId::SearchInDetails:
      return Spec(report, DetailMovements());
    case ReportId::DetailMismatch:
      return WithGroups(Spec(report, DetailMismatch()), "GoodGroup_GRD");
    case ReportId::OneGoodDetails:
      return Through(Spec(report, GoodDetails()), ReportId::StockByDetails);
    case ReportId::OperationMismatch:
      return Through(Spec(report, OperationMismatch()), ReportId::DetailMismatch);
  }
  return StockCard();
}

std::vector<ReportSpec> MakeSpecs() {
  std::vector<ReportSpec> specs;
  for (const ReportDescription& report : kReports) specs.push_back(SpecOf(report.id));
  return specs;
}

}  // namespace

std::span<const ReportSpec> ReportSpecs() {
  static const std::vector<ReportSpec> kSpecs = MakeSpecs();
  return kSpecs;
}

const ReportSpec* FindSpec(std::string_view name) {
  for (const ReportSpec& report : ReportSpecs()) {
    if (report.Name() == name || (!report.alias.empty() && report.alias == name)) return &report;
  }
  return nullptr;
}

const ReportCriterion* FindCriterion(const ReportSpec& report, std::string_view option) {
  const auto found = std::find_if(report.criteria.begin(), report.criteria.end(),
                                  [option](const ReportCriterion& each) { return each.option == option; });
  return found == report.criteria.end() ? nullptr : &*found;
}

std::vector<std::string> ChoicesOf(const ReportCriterion& criterion) {
  return criterion.choices.empty() ? std::vector<std::string>() : Split(criterion.choices, ' ');
}

std::string ValueName(const ReportCriterion& criterion) {
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

std::vector<ReportCriterion> EveryCriterion() {
  std::vector<ReportCriterion> every;
  for (const ReportSpec& report : ReportSpecs()) {
    for (const ReportCriterion& criterion : report.criteria) {
      const auto known = std::find_if(every.begin(), every.end(), [&](const ReportCriterion& each) {
        return each.option == criterion.option;
      });
      if (known == every.end()) every.push_back(criterion);
    }
  }
  return every;
}

}  // namespace goods
