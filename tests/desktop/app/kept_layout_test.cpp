// What the user arranged in the table of a report is there after a restart, as far as the report's own rules
// do not set it.
#include "goods_reports.h"
#include "host/base/base_dock.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

constexpr int kWider = 37;

// The columns of these are made and set by the report itself, as it is shown and as it runs.
bool SetsItsColumns(const ReportDescription& report) {
  return report.id == ReportId::GoodsInQuantity || report.id == ReportId::GoodsInMoney ||
         report.id == ReportId::StockPerStore;
}

// The report as it shows rows.
void RunTheReport(QWidget& window, ICompany& company) {
  if (FormOf(window).FindComponent("Good_SEF.Code_EDT") != nullptr) TypeGood(window, BusiestGood(company));
  PressKey(window, Qt::Key_F2, Qt::ControlModifier);
  Wait(700);
}

// Columns that a user moves, hides and widens: those that no report shows or hides by itself stand in the
// middle.
struct Arranged {
  std::string widened;
  int width = 0;
  std::string hidden;
  std::string sorted;
  std::string moved;  // before the one that stood first
};

Arranged Arrange(TSmartDBGrid_QRT& grid) {
  Arranged arranged;
  const std::vector<TGridColumn*> columns = grid.VisibleColumns();
  for (TGridColumn* column : columns) {
    if (!column->Customizable() || column->AutoFit()) continue;
    if (arranged.widened.empty()) {
      arranged.widened = column->Name();
      column->SetWidth(arranged.width = column->Width() + kWider);
    } else if (arranged.sorted.empty()) {
      arranged.sorted = column->Name();
      grid.SetSortKeys({{column->FieldName(), true}});
    } else if (arranged.hidden.empty()) {
      arranged.hidden = column->Name();
      column->SetVisible(false);
    }
  }
  arranged.moved = columns.back()->Name();
  for (std::size_t i = 0; i < grid.Columns().size(); ++i) {
    if (grid.Columns()[i]->Name() == arranged.moved) grid.MoveColumn(i, 0);
  }
  return arranged;
}

const TGridColumn* ColumnCalled(const TSmartDBGrid_QRT& grid, const std::string& name) {
  for (const auto& column : grid.Columns()) {
    if (column->Name() == name) return column.get();
  }
  return nullptr;
}

class KeptLayout : public DesktopTest {
 protected:
  void In(const ReportDescription& report, const std::function<void(TSmartDBGrid_QRT&)>& steps) {
    WhileModal([&](QWidget& window) {
      RunTheReport(window, Company());
      TSmartDBGrid_QRT* grid = dynamic_cast<TBaseDock_FRM&>(FormOf(window)).PrintedGrid();
      ASSERT_NE(grid, nullptr);
      dynamic_cast<FormView&>(window).Run([&] { steps(*grid); });
    });
    Module().Open(report);
    RethrowFailure();
  }
};

TEST_F(KeptLayout, ColumnsWidthsOrderAndSortOfAReportComeBackAfterARestart) {
  for (const ReportDescription& report : MenuReports()) {
    if (SetsItsColumns(report)) continue;
    SCOPED_TRACE(report.exportName);
    HostFor("admin");
    Arranged arranged;
    In(report, [&](TSmartDBGrid_QRT& grid) { arranged = Arrange(grid); });
    HostFor("admin");  // a library that was loaded anew
    In(report, [&](TSmartDBGrid_QRT& grid) {
      const TGridColumn* widened = ColumnCalled(grid, arranged.widened);
      ASSERT_NE(widened, nullptr);
      EXPECT_EQ(widened->Width(), arranged.width) << arranged.widened;
      if (!arranged.hidden.empty()) {
        EXPECT_FALSE(ColumnCalled(grid, arranged.hidden)->Visible()) << arranged.hidden;
      }
      EXPECT_EQ(grid.VisibleColumns().front()->Name(), arranged.moved);
      if (report.id == ReportId::SearchInDetails || arranged.sorted.empty())
        return;  // which keeps its columns alone
      ASSERT_EQ(grid.SortKeys().size(), 1U) << arranged.sorted;
      EXPECT_EQ(grid.SortKeys()[0].FieldName, ColumnCalled(grid, arranged.sorted)->FieldName());
    });
  }
}

}  // namespace
}  // namespace goods
