// Charts of a table whose rows are in groups: the groups beside each other, and the way back to them.
#include <QComboBox>
#include <algorithm>

#include "desktop/charts/chart_window.h"
#include "desktop/charts/report_charts.h"
#include "host/base/base_dock.h"
#include "host/components/grid_groups.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class GroupCharts : public DesktopTest {
 protected:
  // The card of a good in groups by a column, all folded; then the steps on what F11 opens.
  void OverGroups(const char* field, const std::function<void(QWidget& window, ChartWindow& charts)>& steps) {
    OverLevels({{field, false}}, steps);
  }
  // The same with groups within groups.
  void OverLevels(const std::vector<GridGroups::Level>& levels,
                  const std::function<void(QWidget& window, ChartWindow& charts)>& steps) {
    bool shown = false;
    WhileModal([&](QWidget& window) {
      TypeGood(window, BusiestGood(Company()));
      auto& grid = Grid(window);
      Child(window, "Kardex_GRD").setFocus();
      dynamic_cast<FormView&>(window).Run([&] { grid.Groups().SetLevels(levels); });
      ASSERT_TRUE(grid.Groups().Active());
      PressKey(window, Qt::Key_F11);
      Wait(100);
      auto* charts = window.findChild<ChartWindow*>();
      ASSERT_NE(charts, nullptr);
      shown = true;
      steps(window, *charts);
    });
    Module().Call("Open_GoodKardex");
    RethrowFailure();
    EXPECT_TRUE(shown);
  }
  static TSmartDBGrid_QRT& Grid(QWidget& window) { return Component<TSmartDBGrid_QRT>(window, "Kardex_GRD"); }
  static QComboBox& List(ChartWindow& charts) { return *charts.findChild<QComboBox*>("Charts_CMB"); }
};

TEST_F(GroupCharts, HaveABarForEachGroupWithWhatItsHeadSays) {
  HostFor("admin");
  OverGroups("Anbar", [](QWidget& window, ChartWindow& charts) {
    const TSmartDBGrid_QRT& grid = Grid(window);
    const GridGroups& groups = grid.Groups();
    ASSERT_GT(groups.GroupCount(), 1U);
    EXPECT_TRUE(List(charts).itemText(0).startsWith("گروه‌ها: جمع"))
        << FromQt(List(charts).itemText(0));
    EXPECT_GE(List(charts).findText("مانده و قیمت میانگین"), 0);
    const std::vector<ChartOffer> offers = ChartsOf(grid);
    for (const TGridColumn* column : grid.VisibleColumns()) {
      if (column->Footer() != FooterKind::Sum) continue;
      SCOPED_TRACE(column->Caption());
      const auto offer = std::find_if(offers.begin(), offers.end(), [&](const ChartOffer& each) {
        return each.title.starts_with("گروه‌ها") &&
               each.title.ends_with(PlainCaption(column->Caption()));
      });
      ASSERT_NE(offer, offers.end());
      const Chart chart = offer->make();
      EXPECT_EQ(chart.shape, ChartShape::Bars);
      ASSERT_EQ(chart.Points(), groups.GroupCount());
      for (std::size_t group = 0; group < groups.GroupCount(); ++group) {
        EXPECT_EQ(chart.labels[group], groups.Title(group));
        EXPECT_NEAR(chart.series[0].values[group],
                    groups.Total({group, {}, {}}, *column).AsDecimal().ToDouble(), 1e-6);
      }
      EXPECT_EQ(chart.PointOf(grid.RowCount() - 1), groups.GroupCount() - 1);
    }
  });
}

TEST_F(GroupCharts, EnterOnABarGoesToItsGroupAndLeavesItFolded) {
  HostFor("admin");
  OverGroups("Anbar", [](QWidget& window, ChartWindow& charts) {
    PressKey(charts, Qt::Key_Home);
    PressKey(charts, Qt::Key_Left);
    PressKey(charts, Qt::Key_Return);
    Wait(100);
    const GridGroups& groups = Grid(window).Groups();
    EXPECT_EQ(Grid(window).DataSet()->RecNo(), groups.FirstRow(1));
    EXPECT_TRUE(groups.Folded(1));
  });
}

TEST_F(GroupCharts, EnterOnARowsPointOpensTheGroupThatItIsIn) {
  HostFor("admin");
  OverGroups("Anbar", [](QWidget& window, ChartWindow& charts) {
    List(charts).setCurrentIndex(List(charts).findText("مانده و قیمت میانگین"));
    Wait(50);
    const GridGroups& groups = Grid(window).Groups();
    // The last row as it was read, wherever its group has put it.
    PressKey(charts, Qt::Key_End);
    PressKey(charts, Qt::Key_Return);
    Wait(100);
    const std::size_t row = *Grid(window).DataSet()->RecNo();
    EXPECT_EQ(Grid(window).DataSet()->VisibleRows()[row], Grid(window).DataSet()->RecordCount() - 1);
    EXPECT_FALSE(groups.Folded(groups.GroupOf(row)));
  });
}

TEST_F(GroupCharts, MonthsStandUprightInTheirOrder) {
  HostFor("admin");
  OverGroups("Date", [](QWidget& window, ChartWindow& /*charts*/) {
    TSmartDBGrid_QRT& grid = Grid(window);
    grid.Groups().Set(grid.FindColumn("Date"), true);
    const Chart chart = ChartsOf(grid).front().make();
    EXPECT_EQ(chart.shape, ChartShape::Columns);
    EXPECT_EQ(chart.labels.front(), grid.Groups().Title(0));
  });
}

// The outermost groups, each with all that stands in it, whatever is open of them.
TEST_F(GroupCharts, OfGroupsWithinGroupsShowTheOutermost) {
  HostFor("admin");
  OverLevels({{"Anbar", false}, {"Date", true}}, [](QWidget& window, ChartWindow& charts) {
    TSmartDBGrid_QRT& grid = Grid(window);
    GridGroups& groups = grid.Groups();
    std::vector<std::size_t> outer;
    for (std::size_t group = 0; group < groups.GroupCount(); ++group)
      if (groups.LevelOf(group) == 0) outer.push_back(group);
    ASSERT_GT(outer.size(), 1U);
    ASSERT_GT(groups.GroupCount(), 2 * outer.size());
    for (const std::size_t open : {0U, 1U, 2U}) {
      groups.OpenLevels(open);
      for (const ChartOffer& offer : ChartsOf(grid)) {
        if (!offer.title.starts_with("گروه‌ها")) continue;
        SCOPED_TRACE(offer.title);
        const Chart chart = offer.make();
        EXPECT_EQ(chart.shape, ChartShape::Bars) << "stores lie, whatever stands in them";
        EXPECT_TRUE(chart.title.ends_with(GridGroups::CaptionOf(groups.Columns().front())));
        ASSERT_EQ(chart.Points(), outer.size());
        ASSERT_EQ(chart.pointOfRow.size(), grid.RowCount());
        const TGridColumn* summed = nullptr;
        for (const TGridColumn* column : grid.VisibleColumns())
          if (column->Footer() == FooterKind::Sum && offer.title.ends_with(PlainCaption(column->Caption())))
            summed = column;
        for (std::size_t point = 0; point < outer.size(); ++point) {
          EXPECT_EQ(chart.labels[point], groups.Title(outer[point]));
          EXPECT_EQ(chart.PointOf(groups.FirstRow(outer[point])), point);
          const double figure = summed == nullptr
                                    ? static_cast<double>(groups.RowCount(outer[point]))
                                    : groups.Total({outer[point], {}, {}}, *summed).AsDecimal().ToDouble();
          EXPECT_NEAR(chart.series[0].values[point], figure, 1e-6);
        }
      }
    }
    // From a bar to its group: the first row, in a month that stays folded.
    groups.OpenLevels(1);
    PressKey(charts, Qt::Key_Home);
    PressKey(charts, Qt::Key_Left);
    PressKey(charts, Qt::Key_Return);
    Wait(100);
    EXPECT_EQ(grid.DataSet()->RecNo(), groups.FirstRow(outer[1]));
    EXPECT_FALSE(groups.Folded(outer[1]));
    EXPECT_TRUE(groups.Folded(groups.GroupOf(groups.FirstRow(outer[1]))));
  });
}

TEST_F(GroupCharts, OfMonthsWithinWhichStoresStandAreUpright) {
  HostFor("admin");
  OverLevels({{"Date", true}, {"Anbar", false}}, [](QWidget& window, ChartWindow& charts) {
    const Chart chart = ChartsOf(Grid(window)).front().make();
    EXPECT_EQ(chart.shape, ChartShape::Columns);
    EXPECT_GT(chart.Points(), 3U);
    EXPECT_LT(chart.Points(), Grid(window).Groups().GroupCount());
    charts.close();
  });
}

TEST_F(GroupCharts, AUserWithoutPricesHasNoneOfAmounts) {
  HostFor("anbar");
  OverGroups("Anbar", [](QWidget& window, ChartWindow& charts) {
    for (const auto& column : Grid(window).Columns()) {
      if (!column->Money()) continue;
      EXPECT_LT(List(charts).findText("گروه‌ها: جمع " + ToQt(PlainCaption(column->Caption()))), 0);
    }
    EXPECT_GE(List(charts).findText("گروه‌ها: شمار ردیف‌ها"), 0);
  });
}

TEST_F(GroupCharts, AReportWithoutChartsOfItsOwnHasThoseOfItsGroups) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    Wait(700);
    TSmartDBGrid_QRT& grid = *dynamic_cast<TBaseDock_FRM&>(FormOf(window)).PrintedGrid();
    EXPECT_TRUE(ChartsOf(grid).empty());
    PressKey(window, Qt::Key_F11);
    Wait(50);
    EXPECT_EQ(window.findChild<ChartWindow*>(), nullptr);
    grid.Groups().Set(grid.FindColumn("AnbarName"));
    ASSERT_TRUE(grid.Groups().Active());
    dynamic_cast<FormView&>(window).Flush();
    PressKey(window, Qt::Key_F11);
    Wait(100);
    auto* charts = window.findChild<ChartWindow*>();
    ASSERT_NE(charts, nullptr);
    EXPECT_EQ(List(*charts).count(), static_cast<int>(ChartsOf(grid).size()));
    EXPECT_EQ(ChartsOf(grid).back().make().Points(), grid.Groups().GroupCount());
    charts->close();
  });
  Module().Call("Open_SearchInDetailTransactions");
  RethrowFailure();
}

}  // namespace
}  // namespace goods
