#include "desktop/tools/picture_scenes_views.h"

#include <QApplication>
#include <QLineEdit>
#include <stdexcept>
#include <string>

#include "desktop/app/main_window.h"
#include "desktop/app/report_views.h"
#include "desktop/tools/window_driver.h"
#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "host/frames/range_date_search_frame.h"

namespace goods {
namespace {

constexpr int kViewSettle = 500;

SavedView ViewCalled(const char* name, const char* report) {
  SavedView view;
  view.name = name;
  view.report = report;
  view.onStartPage = true;
  return view;
}

// A card of this month is saved under a name, from the menu below the report.
void SaveCard(const ReportScenes& scenes, QWidget& window, std::int64_t good) {
  TypeText(window, "Good_SEF.Code_EDT", QString::number(good));
  PressKey(window, Qt::Key_Return);
  auto& dates = dynamic_cast<TRange_Date_Search_Frame&>(
      *dynamic_cast<FormView&>(window).Form().FindComponent("Date_RDSF"));
  const DayRange year = RelativePeriod("this-year", scenes.host.Windows().NowDate());
  dates.SetRange(year.from, year.to);
  Wait(kViewSettle);
  PressKey(window, Qt::Key_F6);
  QWidget* menu = QApplication::activePopupWidget();
  if (menu == nullptr) throw std::runtime_error("no menu of the views");
  Wait(kViewSettle);
  scenes.save(*menu, "views-menu");
  WhileModal([&scenes](QWidget& dialog) {
    dynamic_cast<QLineEdit&>(Child(dialog, "ViewName_EDT")).setText("گردش امسال، به ترتیب تاریخ");
    Wait(kViewSettle);
    scenes.save(dialog, "save-view");
    PressKey(dialog, Qt::Key_Return);
  });
  PressKey(*menu, Qt::Key_Down);
  PressKey(*menu, Qt::Key_Return);
  Wait(kViewSettle);
}

// The table with the first of its inner groups open, and its paper.
void SaveGroups(const ReportScenes& scenes, QWidget& window, const std::string& name) {
  PressKey(window, Qt::Key_Home, Qt::ControlModifier);
  PressKey(window, Qt::Key_Down);
  PressKey(window, Qt::Key_Plus);
  Wait(kViewSettle);
  scenes.save(window, name.c_str());
  WhileModal([&](QWidget& preview) {
    preview.resize(1200, 860);
    Wait(kViewSettle);
    scenes.save(preview, (name + "-print").c_str());
  });
  PressKey(window, Qt::Key_F9);
}

// A card month by month, and by store and month, with one month open.
void PictureGroups(const ReportScenes& scenes, std::int64_t good) {
  WhileModal([&](QWidget& window) {
    window.resize(scenes.size);
    Wait(kViewSettle);
    auto& form = dynamic_cast<FormView&>(window);
    auto& grid = dynamic_cast<TSmartDBGrid_QRT&>(*form.Form().FindComponent("Kardex_GRD"));
    form.Run([&] { grid.SetFocus(); });
    auto& table = dynamic_cast<GridWidget&>(*form.WidgetOf(grid));
    table.GroupBy(grid.FindColumn("Date"), true);
    SaveGroups(scenes, window, "grid-groups");
    table.GroupBy(grid.FindColumn("Anbar"));
    table.GroupWithin(*grid.FindColumn("Date"), true);
    SaveGroups(scenes, window, "nested-groups");
  });
  scenes.module.OpenKardex(good, 0, "1402/01/01", "1403/12/29");
  RethrowFailure();
}

}  // namespace

void PictureViews(const ReportScenes& scenes, const QString& companyTitle, DesktopSettings& settings,
                  std::int64_t good) {
  PictureGroups(scenes, good);
  ReportViews& views = scenes.host.Views();
  SavedView daily = ViewCalled("خرید و فروش دیروز", "row-search");
  daily.period = "yesterday";
  views.Store().Put(daily);
  views.Store().Put(ViewCalled("کالاهای زیر حداقل", "turnover-list"));
  views.Store().Put(ViewCalled("کارت کالا برای انباردار", "stock-card"));
  WhileModal([&](QWidget& window) {
    window.resize(scenes.size);
    Wait(kViewSettle);
    SaveCard(scenes, window, good);
  });
  scenes.module.Call("Open_GoodKardex");
  RethrowFailure();
  WhileModal([&](QWidget& dialog) { scenes.save(dialog, "views"); });
  views.Manage(nullptr);
  RethrowFailure();
  MainWindow window(scenes.host, scenes.module, settings, companyTitle, "", {}, &views);
  window.resize(1200, 760);
  window.show();
  Wait(kViewSettle);
  scenes.save(window, "start-page-view");
}

}  // namespace goods
