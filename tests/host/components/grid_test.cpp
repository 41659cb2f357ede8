#include "host/components/grid.h"

#include <gtest/gtest.h>

#include "host/components/grid_arrangement.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class Grid : public ::testing::Test {
 protected:
  Grid() {
    host.Connection().Answer("rows", {{{"Name", ColumnType::Text}, {"Amount", ColumnType::Decimal}},
                                      {{"b", "1250.5"}, {"a", "-3"}, {"c", "0.001"}}});
    grid.AddColumn("Name", "نام").SetWidth(100).SetFooter(FooterKind::Count);
    grid.AddColumn("Amount", "مبلغ").SetDisplayFormat(kAmountFormat).SetFooter(FooterKind::Sum);
    grid.SetDataSource(&source);
    query.SetSQL("rows");
  }

  ScriptedHost host;
  TADOQuery query{nullptr, "Rows_QRY", host.Connection()};
  TDataSource source{nullptr, "Rows_DS", &query};
  TSmartDBGrid_QRT grid{nullptr, "Rows_GRD"};
};

TEST_F(Grid, ShowsCellsAndFootersInTheirColumnsFormat) {
  query.Open();
  const auto columns = grid.VisibleColumns();
  EXPECT_EQ(grid.CellText(0, *columns[1]), "1,250.5");
  EXPECT_EQ(grid.CellText(1, *columns[1]), "3-");
  EXPECT_EQ(grid.CellText(2, *columns[1]), "0");
  EXPECT_EQ(grid.FooterText(*columns[0]), "3");
  EXPECT_EQ(grid.FooterText(*columns[1]), "1,247.5");
}

TEST_F(Grid, ShowsNothingWhileTheQueryIsClosed) {
  EXPECT_EQ(grid.CellText(0, *grid.VisibleColumns()[0]), "");
  EXPECT_EQ(grid.FooterText(*grid.VisibleColumns()[1]), "");
  EXPECT_EQ(grid.RowCount(), 0U);
}

TEST_F(Grid, FootersFollowTheFilter) {
  query.Open();
  EXPECT_EQ(grid.FooterText(*grid.FindColumn("Amount")), "1,247.5");
  query.SetFilter("Amount < 0");
  EXPECT_EQ(grid.FooterText(*grid.FindColumn("Amount")), "3-");
}

TEST_F(Grid, AFooterBeyondTheRangeOfNumbersIsToldAndThrowsNothing) {
  const std::string most = "17" + std::string(28, '0');
  host.Connection().Answer("large", {{{"Name", ColumnType::Text}, {"Amount", ColumnType::Decimal}},
                                     {{"a", most}, {"b", most}, {"c", "1"}}});
  const TGridColumn& amount = *grid.FindColumn("Amount");
  query.SetSQL("large");
  query.Open();
  EXPECT_EQ(grid.FooterText(amount), "بیش از اندازه");
  EXPECT_EQ(grid.FooterText(*grid.FindColumn("Name")), "3");
  const auto table = grid.Table();
  EXPECT_EQ(table->FooterText(1), "بیش از اندازه");
  EXPECT_TRUE(table->Footer(1).IsNull());
  query.SetFilter("Name = 'c'");
  EXPECT_EQ(grid.FooterText(amount), "1");
}

TEST_F(Grid, ATitleClickSortsTurnsRoundAndLiftsTheSort) {
  const TGridColumn& name = *grid.FindColumn("Name");
  int changes = 0;
  grid.OnSortChanged = [&] { ++changes; };
  grid.TitleClick(name);
  EXPECT_EQ(grid.GetSort(), "Name ASC");
  grid.TitleClick(name);
  EXPECT_EQ(grid.GetSort(), "Name DESC");
  grid.TitleClick(*grid.FindColumn("Amount"), true);
  EXPECT_EQ(grid.GetSort(), "Name DESC,Amount ASC");
  grid.TitleClick(name, true);
  EXPECT_EQ(grid.GetSort(), "Amount ASC");
  grid.TitleClick(*grid.FindColumn("Amount"));
  grid.TitleClick(*grid.FindColumn("Amount"));
  EXPECT_EQ(grid.GetSort(), "");
  EXPECT_EQ(changes, 6);
}

TEST_F(Grid, AFieldWithOddCharactersStandsInBracketsInTheSortText) {
  host.Connection().Answer("stores", {{{"S1-1", ColumnType::Decimal}, {"2]", ColumnType::Decimal}},
                                      {{"2", "5"}, {"-1", "7"}, {"2", "1"}}});
  query.SetSQL("stores");
  query.Open();
  TGridColumn& store = grid.AddColumn("S1-1", "انبار|مقدار").SetFooter(FooterKind::Sum);
  TGridColumn& other = grid.AddColumn("2]", "انبار دو");
  grid.TitleClick(store);
  grid.TitleClick(other, true);
  EXPECT_EQ(grid.GetSort(), "[S1-1] ASC,[2]]] ASC");
  query.SetSort(grid.GetSort());
  EXPECT_EQ(grid.CellText(0, store), "-1");
  EXPECT_EQ(grid.CellText(1, other), "1");
  EXPECT_EQ(grid.CellText(2, other), "5");
  EXPECT_EQ(grid.FooterText(store), "3");
}

TEST_F(Grid, ItsTableHoldsTheVisibleColumnsOnly) {
  query.Open();
  grid.FindColumn("Name")->SetVisible(false);
  const auto columns = grid.Table()->Columns();
  ASSERT_EQ(columns.size(), 1U);
  EXPECT_EQ(columns[0].caption, "مبلغ");
  EXPECT_TRUE(columns[0].isNumber);
  EXPECT_EQ(grid.Table()->CellText(1, 0), "3-");
  EXPECT_EQ(grid.Table()->FooterText(0), "1,247.5");
}

TEST_F(Grid, ItsTableIsTyped) {
  query.Open();
  grid.KeyColumns = 1;
  grid.FindColumn("Name")->SetKind(CellKind::Date);
  const auto table = grid.Table();
  ASSERT_EQ(table->Columns().size(), 2U);
  EXPECT_EQ(table->Columns()[0].name, "Name");
  EXPECT_EQ(table->Columns()[0].kind, CellKind::Date);
  EXPECT_EQ(table->Columns()[1].kind, CellKind::Number);
  EXPECT_EQ(table->Columns()[1].total, TotalKind::Sum);
  EXPECT_EQ(table->Columns()[1].format, grid.FindColumn("Amount")->DisplayFormatText());
  EXPECT_EQ(table->Cell(0, 1), Value(*Decimal::Parse("1250.5")));
  EXPECT_EQ(table->Cell(1, 1), Value(-3));
  EXPECT_EQ(table->Footer(1), Value(*Decimal::Parse("1247.501")));  // exact, whatever is shown
  EXPECT_EQ(table->Footer(0), Value(3));
  EXPECT_EQ(table->KeyColumns(), 1U);
  // The columns are those of the moment when it was made.
  grid.FindColumn("Name")->SetVisible(false);
  EXPECT_EQ(table->Columns().size(), 2U);
  EXPECT_EQ(grid.Table()->KeyColumns(), 0U);
}

TEST_F(Grid, AColourColumnGivesColours) {
  query.Open();
  grid.AddColumn("Colour", "");
  query.AddComputed({"Colour", ColumnType::Text}, [](std::size_t row, const RowStore&) {
    return row == 0 ? Value("#FF8000") : row == 1 ? Value("no colour") : Value();
  });
  grid.FindColumn("Colour")->SetKind(CellKind::Swatch);
  const auto table = grid.Table();
  EXPECT_EQ(table->CellColor(0, 2), std::optional<Color>(0xFF8000));
  EXPECT_EQ(table->CellColor(1, 2), std::nullopt);
  EXPECT_EQ(table->CellColor(2, 2), std::nullopt);
  EXPECT_EQ(table->CellColor(0, 0), std::nullopt);
}

TEST_F(Grid, NewRowsClearTheSelection) {
  query.Open();
  grid.SetSelection({0, 2});
  query.SetFilter("Amount < 0");
  EXPECT_TRUE(grid.Selection().empty());
}

TEST_F(Grid, AColumnCanShowAnotherField) {
  query.Open();
  grid.FindColumn("Amount")->SetFieldName("Name");
  EXPECT_EQ(grid.CellText(0, *grid.VisibleColumns()[1]), "b");
}

TEST_F(Grid, TheDrawingEventStylesACell) {
  grid.OnDrawColumnCell = [](std::size_t position, const TGridColumn&, TCellStyle& style) {
    if (position == 1) style.Brush = 0xFFFFFFU;
  };
  EXPECT_FALSE(grid.CellStyle(0, *grid.VisibleColumns()[0]).Brush.has_value());
  EXPECT_EQ(grid.CellStyle(1, *grid.VisibleColumns()[0]).Brush, 0xFFFFFFU);
}

TEST_F(Grid, ItsLayoutIsKeptAsTextAndForeignTextIsIgnored) {
  grid.AddColumn("Note", "شرح");
  grid.MoveColumn(2, 0);
  grid.FindColumn("Note")->SetWidth(222);
  grid.FindColumn("Amount")->SetVisible(false);
  const std::string layout = grid.SaveLayout();

  TSmartDBGrid_QRT other(nullptr, "Other_GRD");
  other.AddColumn("Name", "نام");
  other.AddColumn("Amount", "مبلغ").SetCustomizable(false);
  other.AddColumn("Note", "شرح");
  other.LoadLayout("garbage\n=,\nNobody=50,1\nName=abc,1\n" + layout);
  EXPECT_EQ(other.Columns()[0]->FieldName(), "Note");
  EXPECT_EQ(other.FindColumn("Note")->Width(), 222);
  EXPECT_EQ(other.FindColumn("Name")->Width(), 100);
  EXPECT_TRUE(other.FindColumn("Amount")->Visible())
      << "only what the chooser offers can be hidden by a file";
}

TEST_F(Grid, ATitleClickSortsTheRowsThatAreThereAndThoseToCome) {
  grid.TitleClick(*grid.FindColumn("Name"));
  query.Open();
  EXPECT_EQ(grid.CellText(0, *grid.FindColumn("Name")), "a");
  grid.TitleClick(*grid.FindColumn("Name"));
  EXPECT_EQ(grid.CellText(0, *grid.FindColumn("Name")), "c");
}

TEST_F(Grid, AColumnWithoutAFieldBearsNoMark) {
  grid.AddColumn("Nothing", "هیچ");
  grid.TitleClick(*grid.FindColumn("Nothing"));
  EXPECT_EQ(grid.GetSort(), "Nothing ASC");  // nothing is known of the rows yet
  query.Open();
  EXPECT_EQ(grid.GetSort(), "");
  grid.TitleClick(*grid.FindColumn("Name"));
  grid.TitleClick(*grid.FindColumn("Nothing"));
  EXPECT_EQ(grid.GetSort(), "Name ASC");
}

TEST_F(Grid, ALayoutIsKeptByTheColumnsOwnNameWhateverItShows) {
  grid.FindColumn("Amount")->SetWidth(77).SetFieldName("RemainInAnbar");
  const std::string layout = grid.SaveLayout();
  TSmartDBGrid_QRT other{nullptr, "Rows_GRD"};
  other.AddColumn("Name", "نام");
  other.AddColumn("Amount", "مبلغ");
  other.LoadLayout(layout);
  EXPECT_EQ(other.FindColumn("Amount")->Width(), 77);
}

TEST_F(Grid, AColumnThatALayoutDoesNotNameStandsBehindWhatItStoodBehind) {
  grid.AddColumn("Other", "سایر");
  const std::string layout = grid.SaveLayout();
  const auto orderAfter = [](const std::string& text) {
    TSmartDBGrid_QRT later(nullptr, "Rows_GRD");
    for (const char* field : {"Name", "Amount", "New", "Newer", "Other"}) later.AddColumn(field, "");
    later.LoadLayout(text);
    std::string order;
    for (const auto& column : later.Columns()) order += column->Name() + " ";
    return order;
  };
  EXPECT_EQ(orderAfter(layout), "Name Amount New Newer Other ");
  EXPECT_EQ(orderAfter("Other=80,1\nAmount=80,1\nName=80,1\n"), "Other Amount Name New Newer ");
  EXPECT_EQ(orderAfter("Amount=80,1\n"), "Amount Name New Newer Other ");
}

TEST_F(Grid, AnArrangementKeepsTheSortByTheColumnsOwnName) {
  grid.FindColumn("Amount")->SetFieldName("RemainInAnbar");
  grid.SetSortKeys({{"RemainInAnbar", true}, {"Name", false}});
  const std::string arranged = ArrangementOf(grid);
  TSmartDBGrid_QRT other{nullptr, "Rows_GRD"};
  other.AddColumn("Name", "نام");
  other.AddColumn("Amount", "مبلغ");
  ApplyArrangement(other, arranged);
  EXPECT_EQ(other.GetSort(), "Amount DESC,Name ASC");
  EXPECT_EQ(ArrangementOf(other), arranged);
  other.SetSortKeys({});
  EXPECT_EQ(ArrangementOf(other), other.SaveLayout());
}

}  // namespace
}  // namespace goods
