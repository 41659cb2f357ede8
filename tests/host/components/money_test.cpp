// What a form declares as money is withheld from a user who sees no prices.
#include <gtest/gtest.h>

#include "host/base/base_dock.h"
#include "host/components/field_list.h"
#include "host/components/tabs.h"
#include "host/frames/general_search_frame.h"
#include "host/frames/range_digit_search_frame.h"
#include "tests/scripted/scripted_host.h"

namespace goods {
namespace {

class TPriced_FRM : public TBaseDock_FRM {
 public:
  explicit TPriced_FRM(THost& host) : TBaseDock_FRM(host, "Priced_FRM", 1, "") {
    Rows_GRD.AddColumn("Name", "نام");
    Rows_GRD.AddColumn("Amount", "مبلغ")
        .SetDisplayFormat(kAmountFormat)
        .SetFooter(FooterKind::Sum)
        .SetMoney();
    Rows_GRD.SetDataSource(&source);
    Average_LBL.SetMoney();
    Fields_LST.SetDataSource(&source);
    Fields_LST.SetFields({{"Name", "نام", ""}, {"Amount", "مبلغ", std::string(kAmountFormat), true}});
    Search_CMB.SetItems({{"نام", 1, ""}, {"مبلغ", 2, "", true}, {"شرح", 3, ""}});
    Range_FRAME.SetItems({{"فی", "Amount", DataKind::Amount}});
    Range_FRAME.SetMoney();
    Amounts_TAB.SetMoney();
    Pages_PGC.Place(Amounts_TAB);
    Pages_PGC.Place(Quantities_TAB);
    for (TControl* each : std::initializer_list<TControl*>{&Average_LBL, &Search_CMB, &Range_FRAME,
                                                           &Pages_PGC, &Fields_LST, &Rows_GRD}) {
      Place(*each);
    }
    Initialise();
  }
  TADOQuery query{nullptr, "Rows_QRY", Host().Connection()};
  TDataSource source{nullptr, "Rows_DS", &query};
  TLabel Average_LBL{this, "Average_LBL", "1,250"};
  TComboBox Search_CMB{this, "Search_CMB"};
  TRange_Cost_Search_Frame Range_FRAME{this, "Range_FRAME", "مبلغ :"};
  TPageControl Pages_PGC{this, "Pages_PGC"};
  TTabSheet Amounts_TAB{this, "Amounts_TAB"};
  TTabSheet Quantities_TAB{this, "Quantities_TAB"};
  TFieldList Fields_LST{this, "Fields_LST"};
  TSmartDBGrid_QRT Rows_GRD{this, "Rows_GRD"};
};

class Money : public ::testing::TestWithParam<bool> {
 protected:
  Money() {
    host.Rights().SetSeesPrices(GetParam());
    host.Connection().Answer("rows", {{{"Name", ColumnType::Text}, {"Amount", ColumnType::Decimal}},
                                      {{"b", "1250.5"}, {"a", "-3"}}});
    window.emplace(host);
    window->query.SetSQL("rows");
    window->query.Open();
  }
  bool Sees() const { return GetParam(); }
  TSmartDBGrid_QRT& Grid() { return window->Rows_GRD; }
  TGridColumn& Amount() { return *Grid().FindColumn("Amount"); }

  ScriptedHost host;
  std::optional<TPriced_FRM> window;
};

INSTANTIATE_TEST_SUITE_P(SeenAndWithheld, Money, ::testing::Bool());

TEST_P(Money, AColumnIsSeenOfferedAndPrintedOrNot) {
  EXPECT_EQ(Grid().VisibleColumns().size(), Sees() ? 2U : 1U);
  EXPECT_EQ(Amount().Customizable(), Sees());
  EXPECT_EQ(Grid().Table()->Columns().size(), Sees() ? 2U : 1U);
  EXPECT_EQ(Grid().CellText(0, Amount()), Sees() ? "1,250.5" : "");
  EXPECT_EQ(Grid().FooterText(Amount()), Sees() ? "1,247.5" : "");
}

TEST_P(Money, ShowingTheColumnAgainShowsItToWhoSeesPricesAlone) {
  Amount().SetVisible(false).SetCustomizable(false);
  EXPECT_FALSE(Amount().Visible());
  Amount().SetVisible(true).SetCustomizable(true);
  EXPECT_EQ(Amount().Visible(), Sees());
  EXPECT_EQ(Amount().Customizable(), Sees());
}

TEST_P(Money, NobodySortsByWhatIsNotSeen) {
  Grid().TitleClick(Amount());
  EXPECT_EQ(Grid().SortKeys().size(), Sees() ? 1U : 0U);
}

// Settings are shared by who works at one computer: what is withheld from one is kept for the other.
TEST_P(Money, TheKeptLayoutIsTheSame) {
  EXPECT_EQ(Grid().SaveLayout(), "Name=80,1\nAmount=80,1\n");
  Grid().LoadLayout("Amount=120,0\n");
  EXPECT_EQ(Grid().SaveLayout(), "Amount=120,0\nName=80,1\n");
}

TEST_P(Money, ALabelAFieldAndAnEntryAreSeenOrNot) {
  EXPECT_EQ(window->Average_LBL.Visible(), Sees());
  EXPECT_EQ(window->Fields_LST.Entries().size(), Sees() ? 2U : 1U);
  EXPECT_EQ(window->Search_CMB.OfferedItems(),
            Sees() ? (std::vector<int>{0, 1, 2}) : (std::vector<int>{0, 2}));
}

TEST_P(Money, ACriterionThatIsNotSeenDoesNotFilterWhateverWasKeptOfIt) {
  window->Range_FRAME.SetRange("100", "200");
  EXPECT_TRUE(window->Range_FRAME.RangeDigit_CHK.Checked());
  EXPECT_EQ(window->Range_FRAME.Search.Active, Sees());
  EXPECT_EQ(window->Range_FRAME.RangeDigit_From_EDT.CanFocus(), Sees());
}

TEST_P(Money, APageGivesWayToTheNextAndIsNotTurnedTo) {
  TPageControl& pages = window->Pages_PGC;
  EXPECT_EQ(pages.ActivePage(), Sees() ? &window->Amounts_TAB : &window->Quantities_TAB);
  pages.SetActivePageIndex(1);
  pages.SetActivePageIndex(0);
  EXPECT_EQ(pages.ActivePageIndex(), Sees() ? 0 : 1);
}

TEST_P(Money, TheRightIsReadAnewWheneverTheWindowIsShown) {
  host.Rights().SetSeesPrices(!Sees());
  EXPECT_EQ(Amount().Visible(), Sees());
  window->ShowModal();
  EXPECT_EQ(Amount().Visible(), !Sees());
}

}  // namespace
}  // namespace goods
