// The tables of all windows on paper: what is wider than a sheet stands on sheets side by side, and nothing
// of it is lost.
#include <QComboBox>
#include <QSpinBox>
#include <set>

#include "desktop/print/preview_window.h"
#include "desktop/print/printed_document.h"
#include "tests/desktop/app/filled_windows.h"

namespace goods {
namespace {

using WidePaper = FilledWindows;

const PageLayout& LayoutIn(const QWidget& preview) {
  return dynamic_cast<const PreviewWindow&>(preview).Document().Layout(0);
}

// Each column of the table on a sheet, each row on one sheet of every band, and the table's keys on all.
void ExpectWhole(const PageLayout& layout, const TSmartDBGrid_QRT& grid) {
  const IReportTable& table = *layout.Job().table;
  ASSERT_EQ(table.Columns().size(), grid.VisibleColumns().size());
  EXPECT_TRUE(table.KeyColumns() > 0 || table.HasRowNumbers());
  std::multiset<int> further;
  std::set<int> printed;
  for (std::size_t band = 0; band < layout.Bands(); ++band) {
    const std::vector<PrintedColumn>& columns = layout.Columns(band);
    double left = layout.Body().right();
    for (const PrintedColumn& column : columns) {
      EXPECT_GT(column.width, 4);
      EXPECT_NEAR(column.left + column.width, left, 0.01) << "beside the one before";
      left = column.left;
      if (column.index < 0) continue;
      printed.insert(column.index);
      if (static_cast<std::size_t>(column.index) >= table.KeyColumns()) further.insert(column.index);
    }
    EXPECT_NEAR(left, layout.Body().left(), 0.01);
    EXPECT_EQ(columns.front().index, layout.Columns(0).front().index) << "what a row is about, band " << band;
  }
  EXPECT_EQ(printed.size(), table.Columns().size());
  EXPECT_EQ(std::set<int>(further.begin(), further.end()).size(), further.size()) << "a column stands twice";
  std::vector<std::size_t> rows(layout.Bands());
  std::vector<int> totals(layout.Bands());
  for (const PrintedPage& page : layout.Pages()) {
    EXPECT_EQ(page.firstRow, rows.at(page.band));
    rows[page.band] += page.rows;
    totals[page.band] += page.footer ? 1 : 0;
  }
  for (std::size_t band = 0; band < layout.Bands(); ++band) {
    EXPECT_EQ(rows[band], table.RowCount());
    EXPECT_EQ(totals[band], table.HasFooter() ? 1 : 0);
  }
}

// The largest text: for most tables too large for one sheet.
void ChooseLargeText(QWidget& preview) {
  WhileModal([&](QWidget& dialog) {
    Child(dialog, "TextSize_CMB").setFocus();
    PressKey(dialog, Qt::Key_End);
    PressKey(dialog, Qt::Key_Return);
  });
  PressKey(preview, Qt::Key_E, Qt::ControlModifier);
  RethrowFailure();
}

TEST_F(WidePaper, EachReportsTableFallsIntoSheetsSideBySideWithAllItsColumns) {
  HostFor("admin");
  int fallen = 0;
  for (const Opener& opener : EveryFilledWindow()) {
    SCOPED_TRACE(opener.name);
    bool printed = false;
    opener.open([&](QWidget& window) {
      const TSmartDBGrid_QRT& grid = PrintedTable(window);
      ASSERT_GT(grid.RowCount(), 0U);
      WhenShown("PreviewWindow", [&](QWidget& preview) {
        ExpectWhole(LayoutIn(preview), grid);
        const std::size_t natural = LayoutIn(preview).Bands();
        ChooseLargeText(preview);
        const PageLayout& large = LayoutIn(preview);
        EXPECT_EQ(large.TextSize(), PageOptions::kMostText);
        ExpectWhole(large, grid);
        EXPECT_GE(large.Bands(), natural);
        if (large.Bands() > natural) ++fallen;
        printed = true;
      });
      PressKey(window, Qt::Key_F9);
      EXPECT_TRUE(WaitUntil([&] { return printed; }));
    });
    EXPECT_TRUE(printed);
  }
  EXPECT_GE(fallen, 12);
}

}  // namespace
}  // namespace goods
