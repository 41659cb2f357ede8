#include "module/reports/detail/unit_kinds.h"

namespace goods {
namespace {

struct Measure {
  std::int64_t code;
  const char* field;
  std::string searchText;
  std::string caption;
};

// In the order of the search list.
std::vector<Measure> MeasuresOf(std::int64_t kind, const std::string& unit, const std::string& unit2) {
  const Measure length{kLength, "Length", "  طـــول", "طول"};
  const Measure width{kWidth, "Width", "  عـــرض", "عرض"};
  const Measure count{kAmount3, "Amount3", "  تـعداد", "تعداد"};
  const Measure amount1{kAmount1, "Amount1", "  مقدار 1", "مقدار 1"};
  const Measure amount2{kAmount2, "Amount2", "  مقدار 2", "مقدار 2"};
  switch (kind) {
    case 1:
      return {amount1, amount2, length, width, count};
    case 3:
      return {{kAmount3, "Amount3", "  " + unit, unit},
              {kAmount2, "Amount2", "  " + unit2, unit2},
              {kAmount1, "Amount1", "  مقدار کل", "مقدار کل"}};
    case 4:
      return {amount1, amount2, {kAmount3, "Amount3", "  مقدار کل", "مقدار کل"}};
    case 5:
      return {{kAmount1, "Amount1", "  مقدار", "مقدار"}, length, width, count};
    default:
      return {amount1, amount2};
  }
}

}  // namespace

std::vector<UnitMeasure> UnitMeasures(std::int64_t kind, const std::string& unit, const std::string& unit2) {
  std::vector<UnitMeasure> measures;
  for (const Measure& each : MeasuresOf(kind, unit, unit2)) measures.push_back({each.field, each.caption});
  return measures;
}

std::vector<TitleSearchItem> UnitSearchItems(std::int64_t kind, const std::string& unit,
                                             const std::string& unit2) {
  std::vector<TitleSearchItem> items{{"  شــخص", InputKind::Text, kPerson},
                                     {"  شــرح", InputKind::Text, kComment}};
  for (const Measure& each : MeasuresOf(kind, unit, unit2)) {
    items.push_back({each.searchText, InputKind::Amount, each.code});
  }
  items.push_back({"  قیمت واحد", InputKind::Amount, kUnitPrice, true});
  items.push_back({"  قیمت کل", InputKind::Amount, kTotalPrice, true});
  return items;
}

}  // namespace goods
