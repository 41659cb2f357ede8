// Two periods of a report side by side, by the keys of the report: what is read, shown, printed, and left
// alone.
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <algorithm>
#include <map>

#include "desktop/comparison/compared_period.h"
#include "desktop/comparison/period_comparison.h"
#include "desktop/print/export.h"
#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"
#include "host/components/standard.h"
#include "host/components/tabs.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

constexpr const char* kMoneyGrid = "money_Overall_List_GRD";
constexpr const char* kStoreGrid = "GoodsAsset_Store_GRD";

TSmartDBGrid_QRT& GridIn(QWidget& window, const char* name) {
  return Component<TSmartDBGrid_QRT>(window, name);
}
TSmartDBGrid_QRT& ComparedGrid(QWidget& window) { return GridIn(window, "Comparison_GRD"); }

// The figures of a column by the good's code.
std::map<std::int64_t, Decimal> FiguresOf(const TSmartDBGrid_QRT& grid, const char* key,
                                          const std::string& field) {
  std::map<std::int64_t, Decimal> figures;
  const TADOQuery& rows = *grid.DataSet();
  for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
    const Value value = rows.Cell(row, *rows.FindField(field));
    if (!value.AsDecimal().IsZero())
      figures[rows.Cell(row, *rows.FindField(key)).AsInteger()] = value.AsDecimal();
  }
  return figures;
}

std::vector<std::string> StatementsIn(const std::string& log, const std::string& head) {
  std::vector<std::string> statements;
  for (std::size_t at = log.find(head); at != std::string::npos; at = log.find(head, at + 1))
    statements.push_back(log.substr(at, log.find('\n', at) - at));
  return statements;
}

class TwoPeriods : public DesktopTest {
 protected:
  // The report for that period, then its steps.
  void Open(const char* exportName, const char* from, const char* to,
            const std::function<void(QWidget&)>& steps) {
    bool shown = false;
    WhileModal([&](QWidget& window) {
      shown = true;
      RunFor(window, from, to);
      steps(window);
    });
    Module().Call(exportName);
    EXPECT_TRUE(shown);
  }
  static void RunFor(QWidget& window, const char* from, const char* to) {
    Component<TCheckBox>(window, "Period_PNL.Date_CHK").SetChecked(from != nullptr);
    if (from != nullptr) {
      Component<TEdit>(window, "Period_PNL.Date1_EDT").SetText(from);
      Component<TEdit>(window, "Period_PNL.Date2_EDT").SetText(to);
    }
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    Wait(100);
  }
  // Ctrl+F12, the two dates typed, F3; then the steps on the comparison.
  static void Compare(QWidget& window, const char* from, const char* to,
                      const std::function<void(QWidget&)>& steps) {
    bool compared = false;
    WhileModal([&](QWidget& dialog) {
      if (from != nullptr) {
        Component<TEdit>(dialog, "Date1_EDT").SetText(from);
        Component<TEdit>(dialog, "Date2_EDT").SetText(to);
      }
      WhenShown("PeriodComparison_FRM", [&](QWidget& comparison) {
        compared = true;
        steps(comparison);
      });
      PressKey(dialog, Qt::Key_F3);
    });
    PressKey(window, Qt::Key_F12, Qt::ControlModifier);
    Wait(200);
    EXPECT_TRUE(compared);
  }
};

TEST_F(TwoPeriods, StandSideBySideWithTheFiguresThatEachHasByItself) {
  HostFor("admin");
  using Figures = std::map<std::int64_t, Decimal>;
  Figures before;
  Open("Open_GoodTrans_Overall", "1402/01/01", "1402/12/29", [&](QWidget& window) {
    before = FiguresOf(GridIn(window, kMoneyGrid), "KalaCode", "Sell");
    ASSERT_GT(before.size(), 5U);
  });
  Open("Open_GoodTrans_Overall", "1403/01/01", "1403/12/30", [&](QWidget& window) {
    const Figures now = FiguresOf(GridIn(window, kMoneyGrid), "KalaCode", "Sell");
    ASSERT_NE(now, before);
    Compare(window, nullptr, nullptr, [&](QWidget& comparison) {
      TSmartDBGrid_QRT& grid = ComparedGrid(comparison);
      const auto& status = dynamic_cast<QLabel&>(Child(comparison, "StatusRows_LBL"));
      EXPECT_TRUE(status.text().startsWith(ShownText(std::to_string(grid.RowCount())) + " ردیف"));
      const ComparedFields fields("Sell");
      EXPECT_EQ(FiguresOf(grid, "KalaCode", fields.own), now);
      EXPECT_EQ(FiguresOf(grid, "KalaCode", fields.other), before);
      EXPECT_EQ(grid.FindColumn(fields.own)->Caption(), "صادره - فروش|1403/01/01 تا 1403/12/30");
      EXPECT_EQ(grid.FindColumn(fields.other)->Caption(), "صادره - فروش|1402/01/01 تا 1402/12/29");
      EXPECT_EQ(grid.FindColumn(fields.difference)->Caption(), "صادره - فروش|تفاوت");
      EXPECT_EQ(grid.FooterValue(*grid.FindColumn(fields.difference)).AsDecimal(),
                grid.FooterValue(*grid.FindColumn(fields.own)).AsDecimal() -
                    grid.FooterValue(*grid.FindColumn(fields.other)).AsDecimal());
      EXPECT_TRUE(grid.FooterText(*grid.FindColumn(fields.percent)).empty());
      EXPECT_EQ(grid.FindColumn("YearStart")->Money(), true);
    });
  });
}

TEST_F(TwoPeriods, AreReadByTheSameStatementButForTheDatesAndTheReportStaysAsItIs) {
  HostFor("admin");
  Open("Open_GoodTrans_Overall", "1403/01/01", "1403/12/30", [&](QWidget& window) {
    TSmartDBGrid_QRT& grid = GridIn(window, kMoneyGrid);
    grid.MoveTo(3);
    const std::size_t rows = grid.RowCount();
    const std::size_t columns = grid.Columns().size();
    const std::string footer = grid.FooterText(*grid.FindColumn("Sell"));
    const std::vector<std::string> lines = dynamic_cast<TBaseDock_FRM&>(FormOf(window)).PrintLines();
    Compare(window, "1401/02/05", "1401/03/06", [](QWidget& comparison) {
      PressKey(comparison, Qt::Key_Escape);
      Wait(50);
    });
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(grid.RowCount(), rows);
    EXPECT_EQ(grid.Columns().size(), columns);
    EXPECT_EQ(grid.DataSet()->RecNo(), 3U);
    EXPECT_EQ(grid.FooterText(*grid.FindColumn("Sell")), footer);
    EXPECT_EQ(dynamic_cast<TBaseDock_FRM&>(FormOf(window)).PrintLines(), lines);
    std::vector<std::string> sent =
        StatementsIn(Written(Path("statements.log")), "Exec GoodKardex_Overall_Money");
    ASSERT_EQ(sent.size(), 2U);
    EXPECT_NE(sent[0], sent[1]);
    for (const auto& [own, other] : {std::pair("1403/01/01", "1401/02/05"), {"1403/12/30", "1401/03/06"}})
      sent[0].replace(sent[0].find(own), 10, other);
    EXPECT_EQ(sent[0], sent[1]);
    // The quantities are on the other tab: they are not read for this one.
    EXPECT_EQ(StatementsIn(Written(Path("statements.log")), "Exec GoodKardex_Overall_Tedad").size(), 1U);
  });
}

TEST_F(TwoPeriods, OfTheTabThatIsSeenAreCompared) {
  HostFor("admin");
  Open("Open_GoodTrans_Overall", "1403/01/01", "1403/12/30", [&](QWidget& window) {
    Component<TPageControl>(window, "Mojodi_PGC").SetActivePageIndex(1);
    Wait(50);
    Compare(window, nullptr, nullptr,
            [](QWidget& comparison) { EXPECT_FALSE(ComparedGrid(comparison).FindColumn("Sell")->Money()); });
    EXPECT_EQ(StatementsIn(Written(Path("statements.log")), "Exec GoodKardex_Overall_Tedad").size(), 2U);
  });
}

TEST_F(TwoPeriods, OfTheStockPerStoreHaveAGroupForEachFigureOfEachStore) {
  HostFor("admin");
  std::map<std::int64_t, Decimal> before;
  Open("Open_GoodsAsset_Store", "1400/01/01", "1402/06/31", [&](QWidget& window) {
    before = FiguresOf(GridIn(window, kStoreGrid), "GoodCode", "S1-1");
    ASSERT_FALSE(before.empty());
  });
  Open("Open_GoodsAsset_Store", "1400/01/01", "1403/12/30", [&](QWidget& window) {
    const auto now = FiguresOf(GridIn(window, kStoreGrid), "GoodCode", "S1-1");
    Compare(window, "1400/01/01", "1402/06/31", [&](QWidget& comparison) {
      TSmartDBGrid_QRT& grid = ComparedGrid(comparison);
      EXPECT_EQ(FiguresOf(grid, "GoodCode", "S1-1"), now);
      EXPECT_EQ(FiguresOf(grid, "GoodCode", "S1-1_Other"), before);
      EXPECT_NE(grid.FindColumn("A0-Cost_Difference"), nullptr);
    });
    // What was read for the comparison is what the report itself reads for that period, prices first.
    const std::string log = Written(Path("statements.log"));
    const std::vector<std::string> sent = StatementsIn(log, "exec GoodsAsset_Store_SP");
    ASSERT_EQ(sent.size(), 3U);
    EXPECT_EQ(sent[2], sent[0]);
    EXPECT_EQ(StatementsIn(log, "Exec RialiStock_SP").size(), 3U);
  });
}

TEST_F(TwoPeriods, AUserWithoutPricesComparesQuantitiesAlone) {
  HostFor("anbar");
  Open("Open_GoodsAsset_Store", "1400/01/01", "1403/12/30", [&](QWidget& window) {
    Compare(window, nullptr, nullptr, [&](QWidget& comparison) {
      TSmartDBGrid_QRT& grid = ComparedGrid(comparison);
      EXPECT_NE(grid.FindColumn("A0-1_Difference"), nullptr);
      for (const auto& column : grid.Columns()) {
        EXPECT_EQ(column->Name().find("Cost"), std::string::npos) << column->Name();
        EXPECT_EQ(column->Caption().find("مبلغ"), std::string::npos) << column->Caption();
      }
    });
  });
}

TEST_F(TwoPeriods, AreFilteredPrintedAndExportedAsAnyTable) {
  HostFor("admin");
  Open("Open_GoodTrans_Overall", "1403/01/01", "1403/12/30", [&](QWidget& window) {
    Compare(window, nullptr, nullptr, [&](QWidget& comparison) {
      TSmartDBGrid_QRT& grid = ComparedGrid(comparison);
      const std::size_t all = grid.RowCount();
      const ComparedFields fields("Sell");
      AddCondition(grid, ConditionOn(*grid.FindColumn(fields.difference), ConditionKind::From, {Value(1)}));
      EXPECT_LT(grid.RowCount(), all);
      PressKey(comparison, Qt::Key_F8);
      EXPECT_EQ(grid.RowCount(), all);
      const std::vector<std::string> lines = dynamic_cast<TBaseDock_FRM&>(FormOf(comparison)).PrintLines();
      ASSERT_FALSE(lines.empty());
      EXPECT_NE(lines.back().find("دوره دیگر: 1402/01/01 تا 1402/12/29"), std::string::npos) << lines.back();
      const std::unique_ptr<IReportTable> table = grid.Table();
      PrintJob job{.title = "مقایسه", .lines = lines, .parameters = {}, .options = 0, .table = table.get()};
      WriteReport(job, FileFormat::Csv, Path("compared.csv"));
      EXPECT_NE(Written(Path("compared.csv")).find("1402/01/01"), std::string::npos);
      bool previewed = false;
      WhileModal([&](QWidget& preview) {
        previewed = preview.objectName() == "PreviewWindow";
        PressKey(preview, Qt::Key_Escape);
      });
      PressKey(comparison, Qt::Key_F9);
      EXPECT_TRUE(previewed);
    });
  });
}

TEST_F(TwoPeriods, BeginFilteredSortedAndGroupedAsTheTableOfTheReport) {
  HostFor("admin");
  Open("Open_GoodTrans_Overall", "1403/01/01", "1403/12/30", [&](QWidget& window) {
    TSmartDBGrid_QRT& report = GridIn(window, kMoneyGrid);
    const std::size_t all = report.RowCount();
    AddCondition(report, ConditionOn(*report.FindColumn("Sell"), ConditionKind::From, {Value(1)}));
    ASSERT_GT(report.RowCount(), 2U);
    ASSERT_LT(report.RowCount(), all);
    report.SetSortKeys({{"KalaName", true}});
    report.Groups().Set(report.FindColumn("KalaCode"));
    const std::size_t some = report.RowCount();
    Compare(window, nullptr, nullptr, [&](QWidget& comparison) {
      TSmartDBGrid_QRT& grid = ComparedGrid(comparison);
      EXPECT_EQ(grid.RowCount(), some);
      ASSERT_EQ(grid.SortKeys().size(), 1U);
      EXPECT_EQ(grid.SortKeys()[0].FieldName, "KalaName");
      EXPECT_TRUE(grid.SortKeys()[0].Descending);
      EXPECT_EQ(grid.Groups().By(), grid.FindColumn("KalaCode"));
      // Paper says what holds here, once, and not what holds in the report behind.
      const auto said = [&](const char* text) {
        const std::vector<std::string> lines = dynamic_cast<TBaseDock_FRM&>(FormOf(comparison)).PrintLines();
        return std::count_if(lines.begin(), lines.end(),
                             [&](const std::string& line) { return line.find(text) != std::string::npos; });
      };
      EXPECT_EQ(said("فیلتر جدول"), 1);
      EXPECT_EQ(said("گروه‌بندی"), 1);
      PressKey(comparison, Qt::Key_F8);
      grid.Groups().Set(nullptr);
      EXPECT_GE(grid.RowCount(), all);
      EXPECT_EQ(said("فیلتر جدول"), 0);
      EXPECT_EQ(said("گروه‌بندی"), 0);
    });
    EXPECT_EQ(report.RowCount(), some) << "the report keeps its filter";
  });
}

TEST_F(TwoPeriods, TheColumnsOfAComparisonComeBackAsTheyWereArranged) {
  HostFor("admin");
  const ComparedFields fields("Sell");
  for (const bool again : {false, true}) {
    Open("Open_GoodTrans_Overall", "1403/01/01", "1403/12/30", [&](QWidget& window) {
      Compare(window, nullptr, nullptr, [&](QWidget& comparison) {
        TSmartDBGrid_QRT& grid = ComparedGrid(comparison);
        EXPECT_EQ(grid.FindColumn(fields.other)->Visible(), !again);
        EXPECT_EQ(grid.FindColumn(fields.difference)->Width() == 177, again);
        EXPECT_EQ(grid.SortKeys().empty(), !again);
        grid.FindColumn(fields.other)->SetVisible(false);
        grid.FindColumn(fields.difference)->SetWidth(177);
        grid.SetSortKeys({{fields.difference, true}});
      });
      // The other tab has columns of its own.
      Component<TPageControl>(window, "Mojodi_PGC").SetActivePageIndex(1);
      Wait(50);
      Compare(window, nullptr, nullptr, [&](QWidget& comparison) {
        EXPECT_TRUE(ComparedGrid(comparison).FindColumn(fields.other)->Visible());
      });
    });
  }
}

TEST_F(TwoPeriods, F2OpensTheCardOfTheSameGood) {
  HostFor("admin");
  Open("Open_GoodTrans_Overall", "1403/01/01", "1403/12/30", [&](QWidget& window) {
    Compare(window, nullptr, nullptr, [&](QWidget& comparison) {
      TSmartDBGrid_QRT& grid = ComparedGrid(comparison);
      grid.MoveTo(4);
      const std::string code = grid.DataSet()->FieldByName("KalaCode").AsText();
      bool opened = false;
      WhileModal([&](QWidget& card) {
        opened = true;
        EXPECT_EQ(Component<TEdit>(card, "Good_SEF.Code_EDT").Text(), code);
        PressKey(card, Qt::Key_Escape);
      });
      PressKey(comparison, Qt::Key_F2);
      EXPECT_TRUE(opened);
    });
  });
}

TEST_F(TwoPeriods, QuickPeriodsAreAtHandAndWrongDatesAreRefused) {
  DesktopHost& host = HostFor("admin");
  std::string told;
  host.Messages().SetUnattended([&](const ShownMessage& message) {
    told = message.text;
    return true;
  });
  Open("Open_GoodTrans_Overall", "1403/01/01", "1403/12/30", [&](QWidget& window) {
    WhileModal([&](QWidget& dialog) {
      EXPECT_EQ(Component<TEdit>(dialog, "Date1_EDT").Text(), "1402/01/01");
      EXPECT_EQ(Component<TEdit>(dialog, "Date2_EDT").Text(), "1402/12/29");
      auto* button = dialog.findChild<QToolButton*>("Date2_EDT_Periods");
      ASSERT_NE(button, nullptr);
      Child(dialog, "Date1_EDT").setFocus();
      PressKey(dialog, Qt::Key_Down, Qt::ControlModifier);
      Wait(50);
      auto* menu = button->findChild<QMenu*>("Periods_MNU");
      ASSERT_NE(menu, nullptr);
      menu->actions().at(9)->trigger();  // the year before
      menu->close();
      const std::string chosen = Component<TEdit>(dialog, "Date1_EDT").Text();
      EXPECT_EQ(chosen.substr(4), "/01/01");
      Component<TEdit>(dialog, "Date1_EDT").SetText("1403/05/01");
      Component<TEdit>(dialog, "Date2_EDT").SetText("1403/04/01");
      PressKey(dialog, Qt::Key_F3);
      EXPECT_EQ(told, "پایان دوره پیش از آغاز آن است.");
      Component<TEdit>(dialog, "Date1_EDT").SetText("");
      PressKey(dialog, Qt::Key_F3);
      EXPECT_EQ(told, "تاریخ آغاز دوره را بنویسید.");
      EXPECT_TRUE(dialog.isVisible());
      PressKey(dialog, Qt::Key_Escape);
    });
    PressKey(window, Qt::Key_F12, Qt::ControlModifier);
    Wait(200);
    EXPECT_EQ(StatementsIn(Written(Path("statements.log")), "Exec GoodKardex_Overall_Money").size(), 1U);
  });
}

TEST_F(TwoPeriods, AreNotOfferedBeforeARunAndInReportsWithoutAPeriod) {
  HostFor("admin");
  for (const char* exportName : {"Open_GoodTrans_Overall", "Open_GoodAmountAsset"}) {
    WhileModal([&](QWidget& window) {
      Wait(200);
      const QWidget* front = QApplication::activeModalWidget();
      PressKey(window, Qt::Key_F12, Qt::ControlModifier);
      Wait(100);
      EXPECT_EQ(QApplication::activeModalWidget(), front);
    });
    Module().Call(exportName);
  }
}

}  // namespace
}  // namespace goods
