#include "desktop/tools/picture_scenes_reports.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "desktop/tools/window_driver.h"
#include "desktop/views/form_view.h"
#include "desktop/views/grid_view.h"
#include "host/components/edit.h"
#include "host/components/grid.h"
#include "host/components/grid_filter.h"
#include "host/components/standard.h"
#include "host/components/tabs.h"

namespace goods {
namespace {

using Steps = std::function<void(QWidget&)>;

constexpr int kSettle = 500;  // milliseconds: longer than a search waits for further keys

void Open(const ReportScenes& scenes, const char* exportName, const Steps& steps) {
  WhileModal([&scenes, steps](QWidget& window) {
    window.resize(scenes.size);
    Wait(kSettle);
    steps(window);
  });
  scenes.module.Call(exportName);
  RethrowFailure();
}

void Preview(const ReportScenes& scenes, QWidget& window, const char* name) {
  WhileModal([&scenes, name](QWidget& preview) {
    preview.resize(1200, 860);
    Wait(600);
    scenes.save(preview, name);
  });
  PressKey(window, Qt::Key_F9);
}

// The dialog of the criteria, closed again after the steps.
void Criteria(QWidget& window, Steps steps) {
  WhileModal(std::move(steps));
  PressKey(window, Qt::Key_F10, Qt::ControlModifier);
  Wait(kSettle);
}

void SetPeriod(QWidget& window, const char* from, const char* to) {
  Component<TCheckBox>(window, "Period_PNL.Date_CHK").SetChecked(true);
  for (const auto& [edit, date] : {std::pair("Date1_EDT", from), std::pair("Date2_EDT", to)}) {
    Component<TEdit>(window, (std::string("Period_PNL.") + edit).c_str()).SetText(date);
  }
}

void Run(QWidget& window) {
  PressKey(window, Qt::Key_F2, Qt::ControlModifier);
  Wait(kSettle);
}

// The goods with that in their names: so few that their totals by unit stand on the same page.
void FindGoods(QWidget& window, const char* name) {
  Component<TComboBox>(window, "GeneralSearch_FRAME.GeneralSearch_CMB").SetItemIndex(1);
  Component<TEdit>(window, "GeneralSearch_FRAME.GeneralSearch_EDT").SetText(name);
  Run(window);
}

// The page with the first columns of the stores alone, as a user who prints chooses them. All of them are
// there again for what comes after.
void PreviewOfColumns(const ReportScenes& scenes, QWidget& window, std::size_t most, const char* name) {
  auto& grid = Component<TSmartDBGrid_QRT>(window, "GoodsAsset_Store_GRD");
  std::vector<TGridColumn*> hidden = grid.VisibleColumns();
  std::size_t shown = 0;
  std::erase_if(hidden, [&](const TGridColumn* each) { return !each->Customizable() || ++shown <= most; });
  for (TGridColumn* column : hidden) column->SetVisible(false);
  FindGoods(window, "سفید");
  Preview(scenes, window, name);
  for (TGridColumn* column : hidden) column->SetVisible(true);
}

// The first run leaves the last row as the current one.
void ShowFirstRows(QWidget& window) {
  auto& grid = Component<TSmartDBGrid_QRT>(window, "GoodsAsset_Store_GRD");
  grid.MoveTo(0);
  Wait(kSettle);
  grid.MoveTo(3);
}

void PictureStores(const ReportScenes& scenes) {
  Open(scenes, "Open_GoodsAsset_Store", [&](QWidget& window) {
    Run(window);
    ShowFirstRows(window);
    Wait(kSettle);
    scenes.save(window, "store-asset");
    PreviewOfColumns(scenes, window, 8, "store-asset-print");
  });
  TSettings& settings = scenes.host.Settings().Settings();
  settings.SecondUnit = true;
  Open(scenes, "Open_GoodsAsset_Store", [&](QWidget& window) {
    SetPeriod(window, "1403/01/01", "1403/06/31");
    Component<TCheckBox>(window, "Period_PNL.AvalDore_CHK").SetChecked(true);
    Run(window);
    ShowFirstRows(window);
    Wait(kSettle);
    scenes.save(window, "store-asset-before-period");
  });
  settings.SecondUnit = false;
}

void PictureOverall(const ReportScenes& scenes) {
  Open(scenes, "Open_GoodTrans_Overall", [&](QWidget& window) {
    SetPeriod(window, "1403/01/01", "1403/12/30");
    Run(window);
    scenes.save(window, "overall-turnover-money");
    Component<TPageControl>(window, "Mojodi_PGC").SetActivePageIndex(1);
    Wait(kSettle);
    scenes.save(window, "overall-turnover-quantity");
    FindGoods(window, "سفید");
    Preview(scenes, window, "overall-turnover-print");
    FindGoods(window, "");
    SetPeriod(window, "1403/01/01", "1403/06/31");  // not run: the hint tells that the rows are others'
    window.resize(1024, 640);
    Wait(kSettle);
    scenes.save(window, "overall-turnover-changed");
  });
}

void PictureDetails(const ReportScenes& scenes) {
  Open(scenes, "Open_DetailTransactions", [&](QWidget& window) {
    Component<TRadioButton>(window, "StoresSeparations_RDB").SetChecked(true);
    Wait(2 * kSettle);
    PressKey(window, Qt::Key_F10);
    scenes.save(window, "detail-stock");
    WhileModal([&](QWidget& good) {
      good.resize(scenes.size);
      Wait(kSettle);
      scenes.save(good, "detail-one-good");
    });
    Component<TButton>(window, "OpenInfo_BTN").Click();
  });
  Open(scenes, "Open_SearchInDetailTransactions", [&](QWidget& window) {
    Criteria(window, [&](QWidget& dialog) {
      for (int row = 2; row <= 5; ++row) {
        const std::string list = "GoodDetailSelectSearch" + std::to_string(row) + "_CMB";
        Component<TComboBox>(dialog, list.c_str()).SetItemIndex(row);
      }
      Component<TComboBox>(dialog, "GoodDetail2_CMB").SetItemIndex(2);
      for (const auto& [edit, text] : {std::pair("FromGoodDetail3_EDT", "10"),
                                       {"ToGoodDetail3_EDT", "30"},
                                       {"FromGoodDetail4_EDT", "2"},
                                       {"ToGoodDetail4_EDT", "5"},
                                       {"FromGoodDetailDate5_EDT", "1404/01/01"},
                                       {"ToGoodDetailDate5_EDT", "1404/12/29"}}) {
        Component<TEdit>(dialog, edit).SetText(text);
      }
      Wait(kSettle);
      scenes.save(dialog, "detail-criteria");
    });
    TypeText(window, "GoodDetailSearch_EDT", "برنج");
    Wait(3 * kSettle);
    Component<TSmartDBGrid_QRT>(window, "AllGoodDetailTrans_List_GRD").MoveTo(2);
    Wait(kSettle);
    scenes.save(window, "detail-search");
  });
}

void PictureMismatches(const ReportScenes& scenes) {
  Open(scenes, "Open_DetailKardexAsset_Dismatch", [&](QWidget& window) {
    Component<TRadioButton>(window, "StoresSeparations_RDB").SetChecked(true);
    Wait(kSettle);
    scenes.save(window, "mismatch-kardex");
    WhileModal([&](QWidget& rows) {
      Wait(kSettle);
      Criteria(rows, [&](QWidget& dialog) { scenes.save(dialog, "mismatch-criteria"); });
      scenes.save(rows, "mismatch-operation");
    });
    PressKey(window, Qt::Key_F2);
  });
}

// A list of goods looked through and filtered, and the values of one of its columns.
void PictureTables(const ReportScenes& scenes) {
  Open(scenes, "Open_GoodAmountAsset", [&](QWidget& window) {
    auto& grid = Component<TSmartDBGrid_QRT>(window, "GoodTransactin_List_GRD");
    auto& table = dynamic_cast<GridWidget&>(*dynamic_cast<FormView&>(window).WidgetOf(grid));
    grid.SetFocus();
    PressKey(window, Qt::Key_F, Qt::ControlModifier);
    TypeText(window, "Find_EDT", "روغن");
    Wait(kSettle);
    PressKey(window, Qt::Key_Return);
    Wait(kSettle);
    scenes.save(window, "grid-find");
    PressKey(window, Qt::Key_Escape);
    AddCondition(grid, ConditionOn(*grid.FindColumn("Name"), ConditionKind::Contains, {Value("روغن")}));
    AddCondition(grid, ConditionOn(*grid.FindColumn("Mogodi"), ConditionKind::From, {Value(1)}));
    Wait(kSettle);
    scenes.save(window, "grid-filter");
    WhileModal([&](QWidget& values) {
      Wait(kSettle);
      scenes.save(values, "grid-filter-values");
    });
    table.FilterColumn(grid.FindColumn("UnitName1"));
    Wait(4 * kSettle);
  });
}

}  // namespace

void PictureReports(const ReportScenes& scenes) {
  PictureTables(scenes);
  PictureStores(scenes);
  PictureOverall(scenes);
  PictureDetails(scenes);
  PictureMismatches(scenes);
}

}  // namespace goods
