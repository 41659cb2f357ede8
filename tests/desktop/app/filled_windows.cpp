#include "tests/desktop/app/filled_windows.h"

#include "host/base/base_dock.h"
#include "host/components/edit.h"
#include "host/components/standard.h"
#include "host/components/tabs.h"

namespace goods {
namespace {

constexpr int kUntilSearched = 700;  // milliseconds: longer than a search waits for further keys

}  // namespace

void FilledWindows::InReport(ReportId id, const Steps& steps) {
  WhileModal([&](QWidget& window) {
    window.resize(1366, 768);
    if (FormOf(window).FindComponent("Good_SEF.Code_EDT") != nullptr)
      TypeGood(window, BusiestGood(Company()));
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    Wait(kUntilSearched);
    steps(window);
  });
  Module().Open(Describe(id));
  RethrowFailure();
}

void FilledWindows::InOneGoodsDetails(const Steps& steps) {
  InReport(ReportId::StockByDetails, [&](QWidget& window) {
    WhenShown("OneGoodDetailTransaction_FRM", [&](QWidget& good) {
      Wait(kUntilSearched);
      steps(good);
    });
    Component<TButton>(window, "OpenInfo_BTN").Click();
  });
}

void FilledWindows::InOperationMismatch(const Steps& steps) {
  InReport(ReportId::DetailMismatch, [&](QWidget& window) {
    Component<TRadioButton>(window, "StoresSeparations_RDB").SetChecked(true);
    Wait(kUntilSearched);
    WhenShown("GoodDetailOperationDismatch_FRM", [&](QWidget& rows) {
      Wait(kUntilSearched);
      steps(rows);
    });
    PressKey(window, Qt::Key_F2);
  });
}

void FilledWindows::InComparison(ReportId id, const Steps& steps) {
  InReport(id, [&](QWidget& window) {
    bool compared = false;
    WhileModal([&](QWidget& dialog) {
      Component<TEdit>(dialog, "Date1_EDT").SetText("1402/01/01");
      Component<TEdit>(dialog, "Date2_EDT").SetText("1402/12/29");
      WhenShown("PeriodComparison_FRM", [&](QWidget& comparison) {
        steps(comparison);
        compared = true;
      });
      PressKey(dialog, Qt::Key_F3);
    });
    PressKey(window, Qt::Key_F12, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] { return compared; }));
  });
}

std::vector<FilledWindows::Opener> FilledWindows::EveryFilledWindow() {
  std::vector<Opener> windows;
  for (const ReportId id : {ReportId::OverallTurnover, ReportId::StockPerStore}) {
    windows.push_back({"a comparison of " + std::string(Describe(id).name),
                       [this, id](const Steps& steps) { InComparison(id, steps); }});
  }
  windows.push_back({"one good's details", [this](const Steps& steps) { InOneGoodsDetails(steps); }});
  windows.push_back({"operation mismatch", [this](const Steps& steps) { InOperationMismatch(steps); }});
  for (const ReportDescription& report : MenuReports()) {
    windows.push_back(
        {std::string(report.name), [this, id = report.id](const Steps& steps) { InReport(id, steps); }});
  }
  windows.push_back({"the other tab of the overall turnover", [this](const Steps& steps) {
                       InReport(ReportId::OverallTurnover, [&](QWidget& window) {
                         auto& tabs = Component<TPageControl>(window, "Mojodi_PGC");
                         tabs.SetActivePageIndex(1 - tabs.ActivePageIndex());
                         Wait(50);
                         steps(window);
                       });
                     }});
  return windows;
}

TSmartDBGrid_QRT& FilledWindows::PrintedTable(QWidget& window) {
  TSmartDBGrid_QRT* grid = dynamic_cast<TBaseDock_FRM&>(FormOf(window)).PrintedGrid();
  if (grid == nullptr) throw std::runtime_error("the window prints no table");
  return *grid;
}

}  // namespace goods
