#include "desktop/tools/picture_scenes_charts.h"

#include <vector>

#include "desktop/tools/window_driver.h"
#include "host/components/edit.h"
#include "host/components/standard.h"

namespace goods {
namespace {

constexpr int kChartSettle = 500;  // milliseconds

// The charts of the report in front, one after another, under these names, marked where that key leads.
void TakeCharts(const ReportScenes& scenes, QWidget& window, const std::vector<const char*>& names,
                Qt::Key first = Qt::Key_End) {
  WhileModal([&](QWidget& charts) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (i > 0) PressKey(charts, Qt::Key_Tab, Qt::ControlModifier);
      PressKey(charts, first);
      Wait(kChartSettle);
      scenes.save(charts, names[i]);
    }
  });
  PressKey(window, Qt::Key_F11);
  Wait(kChartSettle * static_cast<int>(2 + 2 * names.size()));
}

void OpenForCharts(const ReportScenes& scenes, const std::function<void()>& open,
                   const std::function<void(QWidget&)>& steps) {
  WhileModal([&](QWidget& window) {
    window.resize(scenes.size);
    Wait(kChartSettle);
    steps(window);
  });
  open();
  RethrowFailure();
}

// The report in front beside the year before.
void TakeComparison(const ReportScenes& scenes, QWidget& window) {
  WhileModal([&](QWidget& dialog) {
    Wait(kChartSettle);
    WhileModal([&](QWidget& compared) {
      compared.resize(scenes.size);
      Wait(kChartSettle);
      scenes.save(compared, "comparison");
    });
    PressKey(dialog, Qt::Key_F3);
  });
  PressKey(window, Qt::Key_F12, Qt::ControlModifier);
  Wait(kChartSettle);
}

}  // namespace

void PictureCharts(const ReportScenes& scenes, std::int64_t good) {
  OpenForCharts(
      scenes, [&] { scenes.module.OpenKardex(good, 0, "", ""); },
      [&](QWidget& window) {
        TakeCharts(scenes, window, {"chart-card", "chart-months"});
      });
  OpenForCharts(
      scenes, [&] { scenes.module.Call("Open_GoodsAsset_Store"); },
      [&](QWidget& window) {
        PressKey(window, Qt::Key_F2, Qt::ControlModifier);
        Wait(kChartSettle);
        TakeCharts(scenes, window, {"chart-stores"}, Qt::Key_Home);
      });
  OpenForCharts(
      scenes, [&] { scenes.module.Call("Open_GoodTrans_Overall"); },
      [&](QWidget& window) {
        PressKey(window, Qt::Key_F2, Qt::ControlModifier);
        Wait(kChartSettle);
        TakeCharts(scenes, window, {"chart-operations"});
        Component<TCheckBox>(window, "Period_PNL.Date_CHK").SetChecked(true);
        Component<TEdit>(window, "Period_PNL.Date1_EDT").SetText("1403/01/01");
        Component<TEdit>(window, "Period_PNL.Date2_EDT").SetText("1403/12/30");
        PressKey(window, Qt::Key_F2, Qt::ControlModifier);
        Wait(kChartSettle);
        TakeComparison(scenes, window);
      });
  OpenForCharts(
      scenes, [&] { scenes.module.Call("Open_GoodCashAsset"); },
      [&](QWidget& window) { TakeCharts(scenes, window, {"chart-value"}, Qt::Key_Home); });
}

}  // namespace goods
