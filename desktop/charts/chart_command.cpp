#include "desktop/charts/chart_command.h"

#include <utility>

#include "desktop/charts/chart_window.h"
#include "host/services/windows.h"

namespace goods {

GridCommand ChartCommand(const DesktopPrinting& printing, IWindows& windows, IMessages& messages) {
  GridCommand command;
  command.caption = "نمودار…\tF11";
  command.key = Qt::Key_F11;
  command.offered = [](const TSmartDBGrid_QRT& grid) { return !ChartsOf(grid).empty(); };
  command.run = [&printing, &windows, &messages](TSmartDBGrid_QRT& grid, QWidget* window) {
    std::vector<ChartOffer> offers = ChartsOf(grid);
    auto* form = dynamic_cast<FormView*>(window);
    if (offers.empty() || form == nullptr) return;
    const PrintJob job = printing.JobOf(grid);
    auto* charts = new ChartWindow(*form, grid, std::move(offers),
                                   {.title = job.title,
                                    .lines = job.lines,
                                    .today = windows.NowDate(),
                                    .forbidden = printing.Protected(),
                                    .messages = &messages,
                                    .mayTakeAway = [&grid] { return DesktopPrinting::MayTakeAway(grid); }});
    charts->open();
  };
  return command;
}

}  // namespace goods
