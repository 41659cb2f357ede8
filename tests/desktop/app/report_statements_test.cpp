// goods-report sends the statements that the window sends: each report is run once in its window on the
// desktop and once by the command line, and the logs of statements are compared.
#include <algorithm>
#include <fstream>
#include <utility>

#include "desktop/requests/report_specs.h"
#include "host/components/edit.h"
#include "host/components/standard.h"
#include "host/components/tabs.h"
#include "host/components/token_editor.h"
#include "host/core/text.h"
#include "tests/desktop/app/screenless_kit.h"

namespace goods {
namespace {

using Steps = std::function<void(QWidget& window)>;

struct Scenario {
  const char* report;
  QStringList arguments;
  std::function<void(ModuleLibrary& module)> open;
  Steps steps;
};

void Type(QWidget& window, const char* edit, const char* text) {
  Component<TEdit>(window, edit).SetText(text);
}
void Choose(QWidget& window, const char* combo, int item) {
  Component<TComboBox>(window, combo).SetItemIndex(item);
}
void Tick(QWidget& window, const char* box) { Component<TCheckBox>(window, box).SetChecked(true); }
void Press(QWidget& window, const char* button) { Component<TControl>(window, button).Click(); }

void Choose(QWidget& window, const char* combo, const char* text) {
  const auto& items = Component<TComboBox>(window, combo).Items();
  const auto item = std::find_if(items.begin(), items.end(),
                                 [text](const TComboItem& each) { return Trim(each.Text) == text; });
  Choose(window, combo, static_cast<int>(item - items.begin()));
}

// What is typed runs when nothing was typed for a while.
void LetItRun() { Wait(700); }

void InDialog(QWidget& window, Steps steps) {
  WhileModal([steps](QWidget& dialog) {
    steps(dialog);
    Press(dialog, "Select_BTN");
  });
  Press(window, "ADVSearch_Fram1.ADVSearch_BTN");
}

// The first row's button; steps happen in the window that it opens.
void OpenRow(
    QWidget& window, Steps steps = [](QWidget&) {}) {
  WhileModal(std::move(steps));
  Press(window, "OpenInfo_BTN");
}

std::function<void(ModuleLibrary&)> Export(const char* name) {
  return [name](ModuleLibrary& module) { module.Call(name); };
}

std::vector<Scenario> Scenarios() {
  return {
      {"stock-card",
       {"--good", "12", "--store", "1", "--exclude", "store", "--from", "1402/01/01", "--to", "1402/12/29"},
       Export("Open_GoodKardex"),
       [](QWidget& window) {
         Type(window, "Store_SESF.TSelect_Entity_Frame1.Code_EDT", "1");
         Tick(window, "Store_SESF.SelectEntity_Reverst_CHK");
         Type(window, "Date_RDSF.RangeDate_From_EDT", "1402/01/01");
         Type(window, "Date_RDSF.RangeDate_To_EDT", "1402/12/29");
         TypeGood(window, 12);
       }},
      {"row-search",
       {"--comment", "خرید", "--code", "5..20", "--to", "1402/12/29"},
       Export("Open_KardexSearch"),
       [](QWidget& window) {
         Type(window, "SearchComment_Frame.GeneralSearch_EDT", "خرید");
         InDialog(window, [](QWidget& dialog) {
           Type(dialog, "SearchRangeCode_FRAME.RangeDigit_From_EDT", "5");
           Type(dialog, "SearchRangeCode_FRAME.RangeDigit_To_EDT", "20");
           Type(dialog, "SearchRangeDate_FRAME.RangeDate_To_EDT", "1402/12/29");
         });
       }},
      {"negative-card",
       {"--from", "1401/01/01", "--to", "1403/12/29"},
       [](ModuleLibrary& module) { module.OpenKardexNegativ("1", "1401/01/01", "1403/12/29"); },
       [](QWidget&) {}},
      {"turnover-list",
       {"--name", "برنج", "--tab", "in-stock", "--stock", "1.."},
       Export("Open_GoodAmountAsset"),
       [](QWidget& window) {
         Choose(window, "GeneralSearch_FRAME.GeneralSearch_CMB", 1);
         Type(window, "GeneralSearch_FRAME.GeneralSearch_EDT", "برنج");
         Component<TTabControl>(window, "Kala_TBC").SetTabIndex(0);
         LetItRun();
         InDialog(window, [](QWidget& dialog) {
           Choose(dialog, "Code_Frame.RangeDigit_CMB", 1);
           Type(dialog, "Code_Frame.RangeDigit_From_EDT", "1");
         });
       }},
      {"turnover-money",
       {"--from", "1402/01/01", "--to", "1402/12/29", "--price-basis", "last-purchase"},
       Export("Open_GoodCashAsset"),
       [](QWidget& window) {
         auto& list = Component<TSmartDBGrid_QRT>(window, "pnlReport_PNL.RialsHistory_GRD");
         Component<TPageControl>(window, "pnlReport_PNL.CostLevelType_PGC").SetActivePageIndex(2);
         list.DataSet()->MoveTo(2);
         list.DoubleClick();
         InDialog(window, [](QWidget& dialog) {
           Tick(dialog, "Period_PNL.Date_CHK");
           Type(dialog, "Period_PNL.Date1_EDT", "1402/01/01");
           Type(dialog, "Period_PNL.Date2_EDT", "1402/12/29");
         });
       }},
      {"overall-turnover",
       {"--store", "2", "--from", "1402/01/01", "--to", "1402/12/29", "--before"},
       Export("Open_GoodTrans_Overall"),
       [](QWidget& window) {
         Type(window, "Store_SESF.TSelect_Entity_Frame1.Code_EDT", "2");
         Tick(window, "Period_PNL.Date_CHK");
         Type(window, "Period_PNL.Date1_EDT", "1402/01/01");
         Type(window, "Period_PNL.Date2_EDT", "1402/12/29");
         Tick(window, "Period_PNL.AvalDore_CHK");
         Press(window, "Search_BTN");
       }},
      {"store-stock",
       {"--name", "برنج", "--price-basis", "highest-sale"},
       Export("Open_GoodsAsset_Store"),
       [](QWidget& window) {
         Choose(window, "GeneralSearch_FRAME.GeneralSearch_CMB", 1);
         Type(window, "GeneralSearch_FRAME.GeneralSearch_EDT", "برنج");
         auto& list = Component<TSmartDBGrid_QRT>(window, "pnlReport_PNL.RialsHistory_GRD");
         Component<TPageControl>(window, "pnlReport_PNL.CostLevelType_PGC").SetActivePageIndex(2);
         list.DataSet()->MoveTo(3);
         list.DoubleClick();
         Press(window, "Search_BTN");
       }},
      {"detail-stock",
       {"--stores", "separate", "--good", "12", "--to", "1402/12/29"},
       Export("Open_DetailTransactions"),
       [](QWidget& window) {
         Component<TRadioButton>(window, "StoresSeparations_RDB").SetChecked(true);
         InDialog(window, [](QWidget& dialog) {
           Type(dialog, "DateRangeSearch_Frame.RangeDate_To_EDT", "1402/12/29");
           Type(dialog, "Good_SESF.TSelect_Entity_Frame1.Code_EDT", "12");
         });
       }},
      {"detail-search",
       {"--name", "برنج", "--code", "1..30"},
       Export("Open_SearchInDetailTransactions"),
       [](QWidget& window) {
         Type(window, "GoodDetailSearch_EDT", "برنج");
         LetItRun();
         InDialog(window, [](QWidget& dialog) {
           Type(dialog, "SearchGoodCode_FRAME.RangeDigit_From_EDT", "1");
           Type(dialog, "SearchGoodCode_FRAME.RangeDigit_To_EDT", "30");
         });
       }},
      {"detail-mismatch",
       {"--stores", "separate", "--name", "برنج"},
       Export("Open_DetailKardexAsset_Dismatch"),
       [](QWidget& window) {
         Component<TRadioButton>(window, "StoresSeparations_RDB").SetChecked(true);
         Type(window, "GoodDetailSearch_EDT", "برنج");
         LetItRun();
       }},
      // Opened from a row of another report.
      {"one-good-detail",
       {"--good", "10", "--detail", "ضخامت=10"},
       Export("Open_DetailTransactions"),
       [](QWidget& window) {
         Choose(window, "GoodDetailSelectSearch1_CMB", "ضخامت");
         Type(window, "FromGoodDetail1_EDT", "10");
         Type(window, "ToGoodDetail1_EDT", "10");
         LetItRun();
         InDialog(window,
                  [](QWidget& dialog) { Type(dialog, "Good_SESF.TSelect_Entity_Frame1.Code_EDT", "10"); });
         LetItRun();
         OpenRow(window);
       }},
      {"operation-mismatch",
       {"--good", "4", "--quantities", "1.."},
       Export("Open_DetailKardexAsset_Dismatch"),
       [](QWidget& window) {
         Choose(window, "GoodDetailSearch_CMB", 0);
         Type(window, "GoodDetailSearch_EDT", "4");
         LetItRun();
         OpenRow(window, [](QWidget& inner) {
           InDialog(inner, [](QWidget& dialog) {
             Choose(dialog, "OperationAmount_FRAME.RangeDigit_CMB", 0);
             Type(dialog, "OperationAmount_FRAME.RangeDigit_From_EDT", "1");
           });
         });
       }},
  };
}

class ReportStatements : public ScreenlessTest, public testing::WithParamInterface<Scenario> {
 protected:
  // Statements that a log holds, in order.
  static std::vector<std::string> Statements(const std::string& path) {
    std::vector<std::string> statements;
    std::ifstream log(path);
    for (std::string line; std::getline(log, line);) {
      statements.push_back(line.substr(line.find('\t', line.find('\t') + 1) + 1));
    }
    return statements;
  }
};

TEST_P(ReportStatements, AreThoseOfTheWindow) {
  const Scenario& scenario = GetParam();
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    scenario.steps(window);
    LetItRun();
  });
  scenario.open(Module());
  const std::vector<std::string> window = Statements(Path("statements.log"));
  ASSERT_FALSE(window.empty());
  ASSERT_EQ(Run(QStringList{"--report", scenario.report} + scenario.arguments +
                QStringList{"--csv", At("out.csv"), "--statement-log", At("report.log")}),
            0)
      << FromQt(errors_);
  EXPECT_EQ(Statements(Path("report.log")), window);
}

INSTANTIATE_TEST_SUITE_P(EveryReport, ReportStatements, testing::ValuesIn(Scenarios()),
                         [](const testing::TestParamInfo<Scenario>& scenario) {
                           std::string name = scenario.param.report;
                           std::erase(name, '-');
                           return name;
                         });

TEST(ReportStatementsTable, NoReportIsForgotten) {
  const auto scenarios = Scenarios();
  for (const ReportSpec& report : ReportSpecs()) {
    EXPECT_TRUE(std::any_of(scenarios.begin(), scenarios.end(), [&](const Scenario& scenario) {
      return scenario.report == report.Name();
    })) << report.Name();
  }
}

}  // namespace
}  // namespace goods
