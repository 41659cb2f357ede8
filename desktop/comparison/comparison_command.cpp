#include "desktop/comparison/comparison_command.h"

#include "desktop/comparison/period_comparison.h"

namespace goods {

GridCommand ComparisonCommand() {
  GridCommand command;
  command.caption = "مقایسه با دوره‌ای دیگر…\tCtrl+F12";
  command.key = QKeyCombination(Qt::CTRL, Qt::Key_F12).toCombined();
  command.offered = [](const TSmartDBGrid_QRT& grid) {
    const auto* periods = dynamic_cast<const IPeriodReport*>(grid.Form());
    return periods != nullptr && periods->PeriodOfRows().has_value();
  };
  command.run = [](TSmartDBGrid_QRT& grid, QWidget* /*window*/) {
    auto* report = dynamic_cast<TBaseDock_FRM*>(grid.Form());
    auto* periods = dynamic_cast<IPeriodReport*>(grid.Form());
    if (report != nullptr && periods != nullptr) ComparePeriods(*report, *periods, grid);
  };
  return command;
}

}  // namespace goods
