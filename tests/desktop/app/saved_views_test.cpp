// Saved views: what a window asks for and shows, kept under a name, used again, handed out as a file.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QJsonArray>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "company/files/whole_file.h"
#include "desktop/app/main_window.h"
#include "desktop/app/report_card.h"
#include "desktop/app/report_views.h"
#include "desktop/views/grid_view.h"
#include "goods_reports.h"
#include "host/base/base_dock.h"
#include "host/components/grid_filter.h"
#include "host/components/grid_groups.h"
#include "host/frames/general_search_frame.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "tests/desktop/app/screenless_kit.h"

namespace goods {
namespace {

using Criteria = std::map<std::string, std::vector<std::string>>;

QStringList NamesIn(const QJsonObject& written) {
  QStringList names;
  for (const QJsonValue& column : written["columns"].toArray()) names << column.toObject()["name"].toString();
  return names;
}

class SavedViews : public ScreenlessTest {
 protected:
  // Opens a report as the start page does.
  void Open(std::string_view report, std::function<void(QWidget&)> steps, std::string_view view = "") {
    bool shown = false;
    WhileModal([&](QWidget& window) {
      shown = true;
      Wait(50);
      steps(window);
    });
    host().Views().Open(report, view, [&] { Module().Open(*FindReport(report)); });
    RethrowFailure();
    EXPECT_TRUE(shown);
  }
  DesktopHost& host() {
    if (host_ == nullptr) host_ = &HostFor("admin");
    return *host_;
  }
  TBaseDock_FRM& Report(QWidget& window) { return dynamic_cast<TBaseDock_FRM&>(FormOf(window)); }
  DriveUnseen Drive() {
    return [this](const auto& click, const auto& steps) { host().Windows().DriveUnseen(click, steps); };
  }
  SavedView Take(QWidget& window) {
    std::vector<std::string> left;
    SavedView view = TakeView(Report(window), *ViewableReport(Report(window)), Drive(), left);
    EXPECT_TRUE(left.empty());
    return view;
  }
  std::vector<std::string> Apply(QWidget& window, const SavedView& view) {
    std::vector<std::string> problems;
    ApplyView(Report(window), *ViewableReport(Report(window)), view, host().Windows().NowDate(), Drive(),
              problems);
    Wait(500);
    return problems;
  }
  TSmartDBGrid_QRT& Grid(QWidget& window) { return *Report(window).PrintedGrid(); }

  // F6 and the entry that holds the text, by the arrows.
  void ChooseInMenu(QWidget& window, const QString& text) {
    PressKey(window, Qt::Key_F6);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    const auto named = [&] {
      return menu->activeAction() != nullptr && menu->activeAction()->text().remove('&').contains(text);
    };
    for (int i = 0; i < 30 && !named(); ++i) PressKey(*menu, Qt::Key_Down);
    ASSERT_TRUE(named()) << FromQt(text);
    PressKey(*menu, Qt::Key_Return);
    Wait(100);
  }
  void SaveAs(QWidget& window, const QString& name, std::function<void(QWidget&)> steps = {}) {
    WhileModal([&, name, steps](QWidget& dialog) {
      if (steps) steps(dialog);
      dynamic_cast<QLineEdit&>(Child(dialog, "ViewName_EDT")).setText(name);
      PressKey(dialog, Qt::Key_Return);
    });
    ChooseInMenu(window, "ذخیره");
    RethrowFailure();
  }
  SavedView ViewOf(const char* report, Criteria criteria, std::set<std::string> exclude = {}) {
    SavedView view;
    view.name = "آزمون";
    view.report = report;
    view.criteria = std::move(criteria);
    view.exclude = std::move(exclude);
    return view;
  }

 private:
  DesktopHost* host_ = nullptr;
};

TEST_F(SavedViews, WhatIsPutIntoAWindowIsReadFromItAgainInEveryReport) {
  const std::string good = std::to_string(BusiestGood(Company()));
  const std::vector<SavedView> views{
      ViewOf("stock-card",
             {{"good", {good}}, {"store", {"1"}}, {"from", {"1403/01/01"}}, {"to", {"1403/06/31"}}},
             {"store"}),
      ViewOf("row-search",
             {{"comment", {"خرید"}},
              {"person-name", {"ی"}},
              {"in", {"1..50"}},
              {"from", {""}},
              {"to", {"1403/06/31"}}},
             {"comment"}),
      ViewOf("turnover-list",
             {{"quick-in", {"1"}},
              {"tab", {"all"}},
              {"code", {"3..40"}},
              {"store", {"2"}},
              {"before", {"1"}},
              {"from", {"1402/01/01"}},
              {"to", {"1403/06/31"}}},
             {"store"}),
      ViewOf("turnover-money", {{"name", {"ا"}}, {"tab", {"all"}}, {"price-basis", {"last-purchase"}}}),
      ViewOf("overall-turnover", {{"name", {"ر"}},
                                  {"store", {"1"}},
                                  {"from", {"1402/01/01"}},
                                  {"to", {"1403/12/29"}},
                                  {"before", {"1"}},
                                  {"tab", {"quantity"}}}),
      ViewOf("store-stock", {{"good-code", {"1"}}, {"from", {"1402/01/01"}}, {"price-basis", {"cost"}}}),
      ViewOf("detail-stock",
             {{"store-name", {"م"}}, {"stores", {"separate"}}, {"tab", {"all"}}, {"code", {"1..60"}}}),
      ViewOf("detail-search", {{"comment", {"خ"}}, {"store", {"1"}}, {"store-codes", {"1..2"}}}),
      ViewOf("detail-mismatch", {{"name", {"ر"}}, {"stores", {"total"}}, {"difference", {"1..5"}}}),
  };
  for (const SavedView& view : views) {
    SCOPED_TRACE(view.report);
    Open(view.report, [&](QWidget& window) {
      const SavedView before = Take(window);
      EXPECT_EQ(Apply(window, view), std::vector<std::string>());
      const SavedView taken = Take(window);
      Criteria others = taken.criteria;
      for (const auto& [option, values] : view.criteria) {
        EXPECT_EQ(taken.criteria.contains(option) ? taken.criteria.at(option) : std::vector<std::string>(),
                  values)
            << option;
        others.erase(option);
      }
      // Choices always say something.
      for (const char* choice : {"tab", "stores", "price-basis"}) others.erase(choice);
      EXPECT_TRUE(others.empty()) << others.begin()->first;
      EXPECT_EQ(taken.exclude, view.exclude);
      // Emptied again, with the choices of before.
      SavedView none = before;
      none.exclude.clear();
      EXPECT_EQ(Apply(window, none), std::vector<std::string>());
      SavedView after = Take(window);
      if (view.report == "stock-card") after.criteria.erase("good");
      EXPECT_EQ(after.criteria, before.criteria);
      EXPECT_TRUE(after.exclude.empty());
    });
  }
}

TEST_F(SavedViews, F6SavesWhatIsSeenAndBringsItBackByItsName) {
  const std::int64_t good = BusiestGood(Company());
  Open("stock-card", [&](QWidget& window) {
    TypeGood(window, good);
    TSmartDBGrid_QRT& grid = Grid(window);
    const std::size_t all = grid.RowCount();
    const TGridColumn& person = *grid.FindColumn("PerName");
    AddCondition(grid, ConditionOn(person, ConditionKind::NotEqual, {CellValue(grid, 0, person)}));
    grid.TitleClick(*grid.FindColumn("Date"));
    grid.FindColumn("Comment")->SetWidth(333);
    grid.FindColumn("PerName")->SetVisible(true);
    grid.Groups().Set(grid.FindColumn("PerName"));
    grid.Groups().Add(*grid.FindColumn("Date"), true);
    grid.Groups().OpenLevels(1);
    const std::size_t narrowed = grid.RowCount();
    ASSERT_LT(narrowed, all);
    const TableView table = TableViewOf(grid);
    SaveAs(window, "بدون آن شخص");
    EXPECT_EQ(Child(window, "Views_BTN").accessibleName(), "نما: بدون آن شخص  F6");
    ChooseInMenu(window, "برداشتن");
    EXPECT_EQ(grid.RowCount(), all);
    EXPECT_TRUE(grid.SortKeys().empty());
    EXPECT_FALSE(grid.Groups().Active());
    EXPECT_EQ(Child(window, "Views_BTN").accessibleName(), "نماها  F6");
    grid.FindColumn("Comment")->SetWidth(90);
    ChooseInMenu(window, "بدون آن شخص");
    EXPECT_EQ(grid.RowCount(), narrowed);
    EXPECT_EQ(TableViewOf(grid), table);
  });
  // A view of a card is not of one good, unless its user says so.
  const SavedView* view = host().Views().Store().Find("stock-card", "بدون آن شخص");
  ASSERT_NE(view, nullptr);
  EXPECT_FALSE(view->criteria.contains("good"));
}

TEST_F(SavedViews, TheOneUsedLastComesBackWithTheReport) {
  Open("turnover-list", [&](QWidget& window) {
    EXPECT_EQ(Apply(window, ViewOf("turnover-list", {{"name", {"ر"}}, {"tab", {"all"}}})),
              std::vector<std::string>());
    SaveAs(window, "نام‌دارها");
  });
  std::size_t rows = 0;
  Open("turnover-list", [&](QWidget& window) {
    Wait(600);
    EXPECT_EQ(Component<TGeneral_Search_Frame>(window, "GeneralSearch_FRAME").GeneralSearch_EDT.Text(), "ر");
    rows = Grid(window).RowCount();
    ChooseInMenu(window, "برداشتن");
  });
  EXPECT_GT(rows, 0U);
  Open("turnover-list", [&](QWidget& window) {
    Wait(600);
    EXPECT_EQ(Component<TGeneral_Search_Frame>(window, "GeneralSearch_FRAME").GeneralSearch_EDT.Text(), "");
    EXPECT_GT(Grid(window).RowCount(), 0U);
  });
}

TEST_F(SavedViews, ACardThatAnotherReportOpensKeepsItsCriteriaAndTakesTheColumns) {
  const std::int64_t good = BusiestGood(Company());
  std::size_t all = 0;
  Open("stock-card", [&](QWidget& window) {
    TypeGood(window, good);
    all = Grid(window).RowCount();
    Grid(window).FindColumn("Comment")->SetWidth(321);
    EXPECT_EQ(Apply(window, ViewOf("stock-card", {{"store", {"1"}}})), std::vector<std::string>());
    SaveAs(window, "انبار ۱");
    Grid(window).FindColumn("Comment")->SetWidth(100);
  });
  WhileModal([&](QWidget& window) {
    Wait(200);
    EXPECT_EQ(Grid(window).RowCount(), all);
    EXPECT_EQ(Component<TSelectEntity_Search_Frame>(window, "Store_SESF").CodeAsInt(), 0);
    EXPECT_EQ(Grid(window).FindColumn("Comment")->Width(), 321);
  });
  Module().OpenKardex(good, 0, "", "");
  RethrowFailure();
}

TEST_F(SavedViews, DatesOfAPeriodMoveOnWithTheDays) {
  SavedView view = ViewOf("stock-card", {{"from", {"1403/05/01"}}, {"to", {"1403/05/31"}}}, {"from"});
  EXPECT_TRUE(DatesAre(view, "this-month", "1403/05/12"));
  EXPECT_FALSE(DatesAre(view, "this-month", "1403/06/12"));
  MakeRelative(view, "this-month");
  const ReportRequest asked = RequestOf(view, "1403/07/03");
  EXPECT_EQ(asked.criteria.at("from"), std::vector<std::string>{"1403/07/01"});
  EXPECT_EQ(asked.criteria.at("to"), std::vector<std::string>{"1403/07/30"});
  std::vector<std::string> ignored;
  EXPECT_EQ(ParseView(ViewText(view), ignored), view);
  EXPECT_TRUE(ignored.empty());
}

TEST_F(SavedViews, TheDialogOffersWhatThereIsToDecide) {
  const std::int64_t good = BusiestGood(Company());
  Open("stock-card", [&](QWidget& window) {
    TypeGood(window, good);
    const DayRange month = RelativePeriod("this-month", host().Windows().NowDate());
    Component<TRange_Date_Search_Frame>(window, "Date_RDSF").SetRange(month.from, month.to);
    SaveAs(window, "کارت این ماه", [&](QWidget& dialog) {
      EXPECT_FALSE(Child(dialog, "Select_BTN").isEnabled());
      EXPECT_TRUE(dynamic_cast<QCheckBox&>(Child(dialog, "Relative_CHK")).isChecked());
      dynamic_cast<QCheckBox&>(Child(dialog, "WithGood_CHK")).click();
      dynamic_cast<QCheckBox&>(Child(dialog, "StartPage_CHK")).click();
    });
    // The same name takes the old one's place, and the button says so.
    SaveAs(window, "کارت این ماه", [&](QWidget& dialog) {
      EXPECT_TRUE(dynamic_cast<QPushButton&>(Child(dialog, "Select_BTN")).text().contains("جایگزین"));
      EXPECT_TRUE(dynamic_cast<QCheckBox&>(Child(dialog, "WithGood_CHK")).isChecked());
    });
  });
  const auto views = host().Views().Store().ViewsOf("stock-card");
  ASSERT_EQ(views.size(), 1U);
  EXPECT_EQ(views.front()->period, "this-month");
  EXPECT_FALSE(views.front()->criteria.contains("from"));
  EXPECT_EQ(views.front()->criteria.at("good"), std::vector<std::string>{std::to_string(good)});
  EXPECT_TRUE(views.front()->onStartPage);
}

TEST_F(SavedViews, AViewOnTheStartPageOpensItsReportWithIt) {
  const std::int64_t good = BusiestGood(Company());
  SavedView view = ViewOf("stock-card", {{"good", {std::to_string(good)}}, {"store", {"1"}}});
  view.onStartPage = true;
  ASSERT_TRUE(host().Views().Store().Put(view));
  MainWindow window(host(), Module(), Settings(), "شرکت", "", {}, &host().Views());
  window.show();
  window.activateWindow();
  auto* card = window.findChild<QPushButton*>("View_0");
  ASSERT_NE(card, nullptr);
  EXPECT_EQ(card->accessibleName(), "آزمون");
  card->setFocus();
  std::int64_t store = 0;
  std::size_t rows = 0;
  WhileModal([&](QWidget& report) {
    Wait(300);
    store = Component<TSelectEntity_Search_Frame>(report, "Store_SESF").CodeAsInt();
    rows = Grid(report).RowCount();
  });
  PressKey(window, Qt::Key_Return);
  Wait(200);
  RethrowFailure();
  EXPECT_EQ(store, 1);
  EXPECT_GT(rows, 0U);
  // Taken from the page in the list of all views, by the keyboard.
  WhileModal([&](QWidget& dialog) {
    PressKey(dialog, Qt::Key_Space);
    EXPECT_EQ(dynamic_cast<QListWidget&>(Child(dialog, "Views_LST")).count(), 1);
  });
  window.findChild<QAction*>("Views_ACT")->trigger();
  RethrowFailure();
  EXPECT_EQ(window.findChild<QPushButton*>("View_0"), nullptr);
  EXPECT_FALSE(host().Views().Store().Views().front().onStartPage);
}

TEST_F(SavedViews, ViewsAreRenamedAndRemovedByKeys) {
  ASSERT_TRUE(host().Views().Store().Put(ViewOf("stock-card", {})));
  host().Views().Store().SetLast("stock-card", "آزمون");
  WhileModal([&](QWidget& dialog) {
    WhileModal([](QWidget& rename) {
      rename.findChild<QLineEdit*>()->setText("  نام   تازه ");
      PressKey(rename, Qt::Key_Return);
    });
    PressKey(dialog, Qt::Key_F2);
    EXPECT_NE(host().Views().Store().Find("stock-card", "نام تازه"), nullptr);
    EXPECT_EQ(host().Views().Store().LastOf("stock-card"), "نام تازه");
    dialog.activateWindow();  // no window manager gives it the keyboard back
    Wait(100);
    PressKey(dialog, Qt::Key_Delete);
    EXPECT_EQ(dynamic_cast<QListWidget&>(Child(dialog, "Views_LST")).count(), 0);
    EXPECT_FALSE(Child(dialog, "Rename_BTN").isEnabled());
  });
  host().Views().Manage(nullptr);
  RethrowFailure();
  EXPECT_TRUE(host().Views().Store().Views().empty());
  EXPECT_EQ(host().Views().Store().LastOf("stock-card"), "");
}

TEST_F(SavedViews, EachUserOfEachCompanyHasViewsOfTheirOwn) {
  ViewStore mine(Settings(), "شرکت", 1);
  ASSERT_TRUE(mine.Put(ViewOf("stock-card", {})));
  EXPECT_EQ(ViewStore(Settings(), "شرکت", 1).Views().size(), 1U);
  EXPECT_TRUE(ViewStore(Settings(), "شرکت", 2).Views().empty());
  EXPECT_TRUE(ViewStore(Settings(), "شرکت دیگر", 1).Views().empty());
}

TEST_F(SavedViews, AUserWhoSeesNoPricesIsToldWhatOfAViewIsLeftOut) {
  DesktopHost& storekeeper = HostFor("anbar");
  SavedView view = ViewOf("row-search", {{"price-in", {"1..5"}}, {"name", {"ر"}}});
  view.table.conditions.push_back({"Mab_Varede", ConditionKind::From, {"1"}});
  std::vector<std::string> problems;
  WhileModal([&](QWidget& window) {
    auto& report = dynamic_cast<TBaseDock_FRM&>(FormOf(window));
    const auto drive = [&](const auto& click, const auto& steps) {
      storekeeper.Windows().DriveUnseen(click, steps);
    };
    ApplyView(report, *ViewableReport(report), view, "1403/01/01", drive, problems);
    EXPECT_TRUE(report.PrintedGrid()->DataSet()->Narrowing().empty());
  });
  Module().Call("Open_KardexSearch");
  RethrowFailure();
  ASSERT_EQ(problems.size(), 2U);
  EXPECT_TRUE(problems[0].find("قیمت‌ها") != std::string::npos);
  EXPECT_TRUE(problems[1].find("Mab_Varede") != std::string::npos);
}

TEST(SavedViewText, EverythingSurvivesAFile) {
  SavedView view;
  view.name = "لوله ۲\" & [#] \\ ,";
  view.report = "row-search";
  view.criteria = {{"comment", {"a\"b'c,#[x]=\\"}}, {"in", {"1..2.5"}}, {"from", {"1403/01/01"}}};
  view.exclude = {"comment", "from"};
  view.table.columns = {{"Date", 90, true}, {"Odd = , name", 40, false}};
  view.table.sort = {{"Date", true}, {"Comment", false}};
  view.table.conditions = {{"PerName", ConditionKind::OneOf, {"آقای احمدی", std::nullopt, ""}},
                           {"Tedad_Varde", ConditionKind::From, {"-12.5"}}};
  view.table.groups = {{"Date", true}, {"PerName", false}};
  view.table.openLevels = 1;
  view.onStartPage = true;
  std::vector<std::string> ignored;
  EXPECT_EQ(ParseView(ViewText(view), ignored), view);
  EXPECT_TRUE(ignored.empty());
  EXPECT_EQ(ParseViews(ViewsText({view, view})).size(), 2U);
}

TEST(SavedViewText, GroupsOfOneLevelAreWrittenAndReadAsEver) {
  const auto read = [](const std::string& groups) {
    std::vector<std::string> ignored;
    const SavedView view = ParseView(
        R"({"goods-view":1,"name":"x","report":"stock-card","table":{"groups":)" + groups + "}}", ignored);
    EXPECT_TRUE(ignored.empty());
    return view;
  };
  using Levels = std::vector<TableView::GroupLevel>;
  SavedView view = read(R"({"column":"Date","by-month":true,"folded":false})");
  EXPECT_EQ(view.table.groups, (Levels{{"Date", true}}));
  EXPECT_EQ(view.table.openLevels, 1U);
  EXPECT_EQ(ViewText(view).find("within"), std::string::npos);
  EXPECT_NE(ViewText(view).find("\"folded\": false"), std::string::npos);
  EXPECT_EQ(read(R"({"column":"Date"})").table.openLevels, 0U);
  view = read(R"({"column":"Anbar","within":[{"column":"Date","by-month":true}],"open-levels":99})");
  EXPECT_EQ(view.table.groups, (Levels{{"Anbar", false}, {"Date", true}}));
  EXPECT_EQ(view.table.openLevels, 2U);
  std::vector<std::string> ignored;
  const std::string level = R"({"column":"a"})";
  EXPECT_THROW(
      ParseView(
          R"({"goods-view":1,"name":"x","report":"stock-card","table":{"groups":{"column":"b","within":[)" +
              level + "," + level + "," + level + "]}}}",
          ignored),
      ViewError);
}

TEST(SavedViewText, WhatIsNotKnownIsNamedAndPassedOver) {
  std::vector<std::string> ignored;
  const SavedView view = ParseView(
      R"({"goods-view":1,"name":"x","report":"stock-card","criteria":{"store":["1"],"moon":["2"]},"sound":3,
          "table":{"filter":[{"column":"Date","kind":"near","values":["1"]}],"charts":[]}})",
      ignored);
  EXPECT_EQ(view.criteria, (Criteria{{"store", {"1"}}}));
  EXPECT_TRUE(view.table.conditions.empty());
  EXPECT_EQ(ignored, (std::vector<std::string>{"شرط «moon»", "فیلتر «near»", "«charts»", "«sound»"}));
}

TEST(SavedViewText, AStrangersTextIsRefusedWithAReasonInPersian) {
  const auto with = [](const std::string& more) {
    return R"({"goods-view":1,"name":"x","report":"stock-card")" + more + "}";
  };
  const std::vector<std::string> texts{
      "",
      "[]",
      "{",
      "{}",
      R"({"goods-view":2,"name":"x","report":"stock-card"})",
      R"({"goods-view":1,"name":"  ","report":"stock-card"})",
      R"({"goods-view":1,"name":"x","report":"../../etc"})",
      with(R"(,"criteria":[])"),
      with(R"(,"criteria":{"store":["1; drop"]})"),
      with(R"(,"criteria":{"store":["1","2"]})"),
      with(R"(,"criteria":{"from":["1403/13/01"]})"),
      with(R"(,"criteria":{"store":[1]})"),
      with(R"(,"period":"tomorrow")"),
      with(R"(,"table":{"columns":[{"name":"a\nb"}]})"),
      with(R"(,"table":{"sort":"Date"})"),
      with(R"(,"table":{"filter":[{"column":"Date","kind":"equal","values":[]}]})"),
      with(R"(,"table":{"filter":[{"column":"Date","kind":"equal","values":["\u0000"]}]})"),
      with(R"(,"criteria":{"store":[")" + std::string(5000, '1') + R"("]})"),
      with(R"(,"x":")" + std::string(2 << 20, 'x') + "\""),
      std::string(100'000, '['),
  };
  for (const std::string& text : texts) {
    std::vector<std::string> ignored;
    try {
      ParseView(text, ignored);
      ADD_FAILURE() << text.substr(0, 200);
    } catch (const ViewError& error) {
      EXPECT_TRUE(std::string_view(error.what()).starts_with("این پرونده نمای گزارش نیست")) << error.what();
    }
  }
  EXPECT_EQ(ViewName(" \u202Eالف\n\tب  ج\u200C "), "الف ب ج");
  EXPECT_EQ(ViewName(std::string(500, 'x')).size(), SavedView::kLongestName);
}

TEST_F(SavedViews, AViewThatWasHandedOutIsTakenInAndRunWithoutAScreen) {
  const std::int64_t good = BusiestGood(Company());
  std::size_t rows = 0;
  SavedView view;
  Open("stock-card", [&](QWidget& window) {
    TypeGood(window, good);
    EXPECT_EQ(Apply(window, ViewOf("stock-card", {{"good", {std::to_string(good)}}, {"store", {"1"}}})),
              std::vector<std::string>());
    TSmartDBGrid_QRT& grid = Grid(window);
    const TGridColumn& comment = *grid.FindColumn("Comment");
    AddCondition(grid, ConditionOn(comment, ConditionKind::Contains, {Value("خرید")}));
    grid.TitleClick(*grid.FindColumn("Date"));
    grid.TitleClick(*grid.FindColumn("Date"));
    rows = grid.RowCount();
    view = Take(window);
    view.name = "خریدها";
  });
  ASSERT_GT(rows, 1U);
  WriteViewFile(Path("view.json"), view);
  ASSERT_EQ(Run({"--json", At("a.json"), "run", At("view.json")}), 0) << FromQt(errors_);
  const QJsonArray written = Json("a.json")["rows"].toArray();
  ASSERT_EQ(static_cast<std::size_t>(written.size()), rows);
  const QStringList columns = NamesIn(Json("a.json"));
  const auto date = columns.indexOf("Date");
  ASSERT_GE(date, 0);
  EXPECT_GE(written.first().toArray()[date].toString(), written.last().toArray()[date].toString());
  // What the command line says counts before what the view says.
  ASSERT_EQ(
      Run({"--view", At("view.json"), "--store", "2", "--columns", "Date,Comment", "--json", At("b.json")}),
      0)
      << FromQt(errors_);
  EXPECT_EQ(NamesIn(Json("b.json")), (QStringList{"Date", "Comment"}));
  EXPECT_NE(Json("b.json")["rows"].toArray().size(), 0);
  WriteWholeFile(Path("jobs.toml"), "[first]\nview = \"" + Path("view.json") + "\"\ncsv = \"" +
                                        Path("c.csv") + "\"\n[second]\nview = \"" + Path("none.json") +
                                        "\"\ncsv = \"" + Path("d.csv") + "\"\n");
  EXPECT_EQ(Run({"run", At("jobs.toml")}), 2);
  EXPECT_TRUE(output_.contains("first: " + QString::number(rows)));
  EXPECT_TRUE(errors_.startsWith("second: ")) << FromQt(errors_);
  // A view without a file to write says so.
  EXPECT_EQ(Run({"run", At("view.json")}), 2);
  EXPECT_TRUE(errors_.contains("--xlsx"));
}

}  // namespace
}  // namespace goods
