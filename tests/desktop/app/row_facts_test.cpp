// What a row says of itself beside its columns, and the title of the negative card, on a real company.
#include <QApplication>
#include <QDialog>
#include <QHelpEvent>
#include <QToolTip>
#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>

#include "desktop/print/page_layout.h"
#include "desktop/print/unit_rows.h"
#include "desktop/views/grid_view.h"
#include "goods_reports.h"
#include "host/base/base_dock.h"
#include "host/components/field_list.h"
#include "host/components/grid_groups.h"
#include "host/components/standard.h"
#include "host/components/tabs.h"
#include "host/core/text.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class RowFacts : public DesktopTest {};

GridWidget& TableOf(QWidget& window, const char* grid) {
  return dynamic_cast<GridWidget&>(
      *dynamic_cast<FormView&>(window).WidgetOf(Component<TSmartDBGrid_QRT>(window, grid)));
}

TEST_F(RowFacts, TheStockCardNamesOperationDocumentAndStoreOfARow) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    auto& grid = Component<TSmartDBGrid_QRT>(window, "Kardex_GRD");
    const Value sale(std::int64_t{1});
    ASSERT_TRUE(grid.DataSet()->Locate("Type", std::span(&sale, 1)));
    const std::size_t row = *grid.DataSet()->RecNo();
    const std::vector<TSmartDBGrid_QRT::Fact> facts = grid.OnDescribeRow(row);
    ASSERT_EQ(facts.size(), 3U);
    EXPECT_EQ(facts[0].text, "فروش");
    EXPECT_EQ(facts[1].text, grid.DataSet()->FieldByName("OperationCode").AsText());
    EXPECT_FALSE(facts[2].text.empty());
    EXPECT_NE(facts[2].text, grid.DataSet()->FieldByName("Anbar").AsText());
    EXPECT_TRUE(TableOf(window, "Kardex_GRD").FactsOf(row).contains("نوع عملیات: فروش"));
  });
  Module().Call("Open_GoodKardex");
  RethrowFailure();
}

// The first row says its operation and its document, whatever columns the report has: where it is asked, in
// the tip over it, and in the panel of the current row where the window has one.
void ExpectFactsOfFirstRow(QWidget& window, const char* name) {
  SCOPED_TRACE(FromQt(window.windowTitle()));
  auto& grid = Component<TSmartDBGrid_QRT>(window, name);
  ASSERT_GT(grid.RowCount(), 0U);
  ASSERT_TRUE(grid.OnDescribeRow);
  const std::vector<TSmartDBGrid_QRT::Fact> facts = grid.OnDescribeRow(0);
  ASSERT_GE(facts.size(), 2U);
  EXPECT_EQ(facts[0].caption, "نوع عملیات");
  EXPECT_FALSE(facts[0].text.empty());
  EXPECT_EQ(facts[1].caption, "شماره سند");
  EXPECT_GT(ParseInteger(facts[1].text).value_or(0), 0);

  GridWidget& table = TableOf(window, name);
  grid.MoveTo(0);
  dynamic_cast<FormView&>(window).Flush();
  const QString told = table.FactsOf(0);
  EXPECT_EQ(told.count(':'),
            std::count_if(facts.begin(), facts.end(), [](const auto& fact) { return !fact.text.empty(); }));
  const QPoint point = table.CellRect(0, *table.CurrentColumn()).center();
  QHelpEvent help(QEvent::ToolTip, point, table.viewport()->mapToGlobal(point));
  QApplication::sendEvent(table.viewport(), &help);
  EXPECT_TRUE(QToolTip::text().endsWith(told)) << FromQt(QToolTip::text());
  QToolTip::hideText();
  for (const QString& fact : told.split('\n'))
    EXPECT_TRUE(table.accessibleDescription().contains(fact)) << FromQt(fact);
}

// The panel under the table has the facts behind what the report gives it.
void ExpectFactsInPanel(QWidget& window, const char* name) {
  const auto& grid = Component<TSmartDBGrid_QRT>(window, name);
  const auto& list = Component<TFieldList>(window, "TListDetail_FRAME1.DetailFields_QRT1");
  const QString shown = dynamic_cast<FormView&>(window).WidgetOf(list)->accessibleDescription();
  for (const TSmartDBGrid_QRT::Fact& fact : grid.OnDescribeRow(*grid.DataSet()->RecNo()))
    EXPECT_TRUE(fact.text.empty() || shown.contains(ToQt(fact.caption + ": " + fact.text))) << FromQt(shown);
}

TEST_F(RowFacts, RowsOfTheRowSearchAndTheNegativeCardNameOperationAndDocument) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    ExpectFactsOfFirstRow(window, "KardexSearch_GRD");
  });
  Module().Call("Open_KardexSearch");
  RethrowFailure();
  WhileModal([&](QWidget& window) { ExpectFactsOfFirstRow(window, "KardexSearch_GRD"); });
  Module().OpenKardexNegativ("1", "", "");
  RethrowFailure();
}

TEST_F(RowFacts, RowsOfOneGoodsDetailsAndOfAllDetailsNameOperationAndDocument) {
  HostFor("admin");
  bool opened = false;
  WhileModal([&](QWidget& window) {
    Wait(700);
    WhileModal([&](QWidget& good) {
      opened = true;
      ExpectFactsOfFirstRow(good, "GoodDetailTransaction_GRD");
    });
    Component<TButton>(window, "OpenInfo_BTN").Click();
  });
  Module().Call("Open_DetailTransactions");
  RethrowFailure();
  EXPECT_TRUE(opened);
  WhileModal([&](QWidget& window) {
    Wait(700);
    ExpectFactsOfFirstRow(window, "AllGoodDetailTrans_List_GRD");
    ExpectFactsInPanel(window, "AllGoodDetailTrans_List_GRD");
  });
  Module().Call("Open_SearchInDetailTransactions");
  RethrowFailure();
}

// A row that stands for a good, a combination of details or a mismatch is no movement: its columns say what
// it is. A report that shows movements must say whose they are.
TEST_F(RowFacts, EveryReportThatHasOperationsInItsRowsNamesThem) {
  HostFor("admin");
  int described = 0;
  for (const ReportDescription& report : MenuReports()) {
    SCOPED_TRACE(report.exportName);
    WhileModal([&](QWidget& window) {
      if (FormOf(window).FindComponent("Good_SEF.Code_EDT") != nullptr)
        TypeGood(window, BusiestGood(Company()));
      PressKey(window, Qt::Key_F2, Qt::ControlModifier);
      Wait(700);
      const TSmartDBGrid_QRT* grid = dynamic_cast<TBaseDock_FRM&>(FormOf(window)).PrintedGrid();
      ASSERT_NE(grid, nullptr);
      ASSERT_TRUE(grid->DataSet() != nullptr && grid->DataSet()->Active());
      const bool documents = grid->DataSet()->FindField("OperationCode").has_value();
      const TGridColumn* operation = grid->FindColumn("OperationTitle");
      if (documents && (operation == nullptr || !operation->Visible())) {
        ++described;
        EXPECT_TRUE(grid->OnDescribeRow);
      }
    });
    Module().Open(report);
    RethrowFailure();
  }
  EXPECT_GE(described, 3);
}

TEST_F(RowFacts, SumsOverGoodsOfSeveralUnitsAddUpByUnit) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    const auto& grid = Component<TSmartDBGrid_QRT>(window, "KardexSearch_GRD");
    for (const char* field : {"Varede", "Sadere"}) {
      const TGridColumn& column = *grid.FindColumn(field);
      const std::vector<UnitSum> sums = grid.Groups().AllUnits().Sums(column);
      ASSERT_GT(sums.size(), 1U) << field;
      Decimal all;
      for (const UnitSum& each : sums) all += each.sum.AsDecimal();
      EXPECT_EQ(all, grid.FooterValue(column).AsDecimal()) << field;
    }
  });
  Module().Call("Open_KardexSearch");
  RethrowFailure();
  WhileModal([&](QWidget& window) {
    Wait(500);
    const auto& grid = Component<TSmartDBGrid_QRT>(window, "GoodTransactin_List_GRD");
    EXPECT_GT(grid.Groups().AllUnits().Sums(*grid.FindColumn("Mogodi")).size(), 1U);
  });
  Module().Call("Open_GoodAmountAsset");
  RethrowFailure();
}

// By another road: each row's unit looked up for itself.
std::map<std::string, Decimal> SumsByUnit(ICompany& company, const TSmartDBGrid_QRT& grid, const char* code,
                                          const TGridColumn& column) {
  std::map<std::string, Decimal> sums;
  const TADOQuery& query = *grid.DataSet();
  for (std::size_t row = 0; row < query.RecordCount(); ++row) {
    const auto good = company.FindGood(query.Cell(row, *query.FindField(code)).AsInteger());
    if (!good) throw std::runtime_error("a row of no good");
    const std::string& unit = InSecondUnit(column) ? good->unit2 : good->unit;
    sums[unit.empty() ? kNoUnit : unit] += query.Cell(row, *query.FindField(column.FieldName())).AsDecimal();
  }
  std::erase_if(sums, [](const auto& sum) { return sum.second == Decimal(); });
  if (sums.size() < 2) sums.clear();
  return sums;
}

// How many columns of the grid are told by unit, and each as it should be.
int ExpectSumsByUnit(ICompany& company, const TSmartDBGrid_QRT& grid, const char* code) {
  int told = 0;
  for (const TGridColumn* column : grid.VisibleColumns()) {
    const bool quantity =
        column->Footer() == FooterKind::Sum && column->DisplayFormatText() == kQuantityFormat;
    std::map<std::string, Decimal> sums;
    for (const UnitSum& each : grid.Groups().AllUnits().Sums(*column)) {
      sums[each.unit] = each.sum.AsDecimal();
      EXPECT_EQ(each.text, column->FooterFormat().Format(each.sum));
    }
    EXPECT_EQ(sums, quantity ? SumsByUnit(company, grid, code, *column) : decltype(sums)())
        << column->FieldName();
    told += sums.empty() ? 0 : 1;
  }
  return told;
}

TEST_F(RowFacts, OverallTurnoverIsToldByUnitThoughItsRowsNameNone) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    Component<TPageControl>(window, "Mojodi_PGC").SetActivePageIndex(1);
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    Wait(300);
    const auto& grid = Component<TSmartDBGrid_QRT>(window, "tedad_Overall_List_GRD");
    ASSERT_GT(grid.RowCount(), 5U);
    EXPECT_FALSE(grid.DataSet()->FindField("UnitName"));
    EXPECT_GT(ExpectSumsByUnit(Company(), grid, "KalaCode"), 3);
    EXPECT_EQ(ExpectSumsByUnit(Company(), Component<TSmartDBGrid_QRT>(window, "money_Overall_List_GRD"),
                               "KalaCode"),
              0);
  });
  Module().Call("Open_GoodTrans_Overall");
  RethrowFailure();
}

TEST_F(RowFacts, StockPerStoreIsToldByUnitInEveryStoreAndInSecondUnits) {
  HostFor("admin").Settings().Settings().SecondUnit = true;
  WhileModal([&](QWidget& window) {
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    Wait(300);
    const auto& grid = Component<TSmartDBGrid_QRT>(window, "GoodsAsset_Store_GRD");
    ASSERT_GT(grid.RowCount(), 5U);
    EXPECT_GT(ExpectSumsByUnit(Company(), grid, "GoodCode"), 4);
    const std::unique_ptr<IReportTable> table = grid.Table();
    const std::vector<UnitRow> rows = UnitRowsOf(*table);
    EXPECT_GT(rows.size(), 1U);
    const PageLayout layout(
        [&] {
          PrintJob job;
          job.table = table.get();
          return job;
        }(),
        "1403/05/12", {}, rows);
    EXPECT_EQ(layout.Units().size(), rows.size());
  });
  Module().Call("Open_GoodsAsset_Store");
  RethrowFailure();
}

TEST_F(RowFacts, TheNegativeCardHasItsOwnTitleInTheFrameAndOnPaper) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "کاردکس منفی");
    EXPECT_EQ(FormOf(window).Caption(), "جستجو در کاردکس");
    WhileModal([](QWidget& preview) {
      EXPECT_TRUE(preview.windowTitle().contains("کاردکس منفی")) << FromQt(preview.windowTitle());
    });
    PressKey(window, Qt::Key_F9);
  });
  Module().OpenKardexNegativ("1", "0", "0");
  RethrowFailure();
  WhileModal([&](QWidget& window) { EXPECT_EQ(window.windowTitle(), "جستجو در کاردکس"); });
  Module().Call("Open_KardexSearch");
  RethrowFailure();
}

}  // namespace
}  // namespace goods
