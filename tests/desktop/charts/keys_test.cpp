// The charts of the reports, by their keys: what is drawn, the way back to the rows, and who sees what.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "desktop/charts/chart_view.h"
#include "desktop/charts/chart_window.h"
#include "desktop/views/keyboard_marks.h"
#include "host/components/grid_filter.h"
#include "host/components/standard.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class Charts : public DesktopTest {
 protected:
  void Shown(const std::function<void()>& open, const std::function<void(QWidget&)>& steps) {
    bool shown = false;
    WhileModal([&](QWidget& window) {
      shown = true;
      steps(window);
    });
    open();
    EXPECT_TRUE(shown);
  }
  void OpenCard(const std::function<void(QWidget&)>& steps) {
    Shown([&] { Module().Call("Open_GoodKardex"); },
          [&](QWidget& window) {
            TypeGood(window, BusiestGood(Company()));
            Child(window, "Kardex_GRD").setFocus();
            steps(window);
          });
  }
};

ChartWindow* ChartsOver(QWidget& window) {
  PressKey(window, Qt::Key_F11);
  Wait(100);
  return window.findChild<ChartWindow*>();
}
ChartView& ViewIn(QWidget& charts) { return dynamic_cast<ChartView&>(Child(charts, "Chart_VIEW")); }
void Click(QWidget& widget, const QPoint& place) {
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
}
TSmartDBGrid_QRT& CardGrid(QWidget& window) { return Component<TSmartDBGrid_QRT>(window, "Kardex_GRD"); }

QStringList Offered(const QWidget& charts) {
  const auto& list = *charts.findChild<QComboBox*>("Charts_CMB");
  QStringList titles;
  for (int i = 0; i < list.count(); ++i) titles << list.itemText(i);
  return titles;
}

const ChartOffer& OfferOf(const std::vector<ChartOffer>& offers, std::size_t i) {
  if (i >= offers.size()) throw std::runtime_error("there is no such chart");
  return offers[i];
}

TEST_F(Charts, TheCardsChartMarksTheCurrentRowAndEnterGoesToTheMarkedOne) {
  HostFor("admin");
  OpenCard([](QWidget& window) {
    TADOQuery& rows = *CardGrid(window).DataSet();
    ASSERT_GT(rows.RecordCount(), 20U);
    rows.MoveTo(12);
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    ChartView& view = ViewIn(*charts);
    EXPECT_EQ(view.Scene()->Mark(), 12U);
    PressKey(*charts, Qt::Key_Left);
    PressKey(*charts, Qt::Key_Left);
    PressKey(*charts, Qt::Key_Up);
    EXPECT_EQ(view.Scene()->Mark(), 13U);
    EXPECT_EQ(rows.RecNo(), 12U);  // the arrows look only
    EXPECT_TRUE(view.accessibleDescription().contains("مقدار باقیمانده"));
    PressKey(*charts, Qt::Key_End);
    EXPECT_EQ(view.Scene()->Mark(), rows.RecordCount() - 1);
    PressKey(*charts, Qt::Key_Home);
    PressKey(*charts, Qt::Key_Left);
    PressKey(*charts, Qt::Key_Return);
    Wait(100);
    EXPECT_EQ(rows.RecNo(), 1U);
    EXPECT_EQ(window.findChild<ChartWindow*>(), nullptr);
    EXPECT_TRUE(window.isVisible());
  });
}

TEST_F(Charts, EscClosesTheChartAloneAndLeavesTheRow) {
  HostFor("admin");
  OpenCard([](QWidget& window) {
    CardGrid(window).MoveTo(5);
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    PressKey(*charts, Qt::Key_Left);
    PressKey(*charts, Qt::Key_Escape);
    Wait(100);
    EXPECT_EQ(window.findChild<ChartWindow*>(), nullptr);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(CardGrid(window).DataSet()->RecNo(), 5U);
  });
}

TEST_F(Charts, AClickGoesToTheRowAndTheChartStays) {
  HostFor("admin");
  OpenCard([](QWidget& window) {
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    ChartView& view = ViewIn(*charts);
    const QPoint place = view.mapFromScene(view.Scene()->PositionOf(7));
    const auto meant = view.Scene()->PointAt(view.mapToScene(place));
    ASSERT_TRUE(meant);
    Click(*view.viewport(), place);
    EXPECT_EQ(CardGrid(window).DataSet()->RecNo(), *meant);
    EXPECT_EQ(view.Scene()->Mark(), *meant);
    EXPECT_TRUE(charts->isVisible());
    CardGrid(window).MoveTo(3);  // the report's own way to another row
    Wait(50);
    EXPECT_EQ(view.Scene()->Mark(), 3U);
  });
}

TEST_F(Charts, FiguresAreThoseOfTheRowsAsTheyWereReadAndNothingIsAskedFor) {
  HostFor("admin");
  OpenCard([&](QWidget& window) {
    TSmartDBGrid_QRT& grid = CardGrid(window);
    grid.SetSortKeys({{"Tedad_Varde", true}});  // another order of the rows is the same chart
    const std::string before = Written(Path("statements.log"));
    const std::vector<ChartOffer> offers = ChartsOf(grid);
    ASSERT_EQ(offers.size(), 2U);
    const Chart card = OfferOf(offers, 0).make();
    ASSERT_EQ(card.Points(), grid.RowCount());
    ASSERT_EQ(card.series.size(), 2U);
    EXPECT_TRUE(std::is_sorted(card.places.begin(), card.places.end()));
    const TADOQuery& query = *grid.DataSet();
    const auto store = query.VisibleRows();
    const std::size_t remainder = *query.FindField(grid.FindColumn("Bagh")->FieldName());
    for (std::size_t i = 0; i < card.Points(); ++i) {
      EXPECT_EQ(store[card.rows[i]], i);
      EXPECT_DOUBLE_EQ(card.series[0].values[i], query.Cell(card.rows[i], remainder).AsDecimal().ToDouble());
    }
    const Chart months = OfferOf(offers, 1).make();
    double sum = 0;
    for (const double figure : months.series[0].values) sum += figure;
    EXPECT_NEAR(sum, query.Sum("Tedad_Varde").ToDouble(), 1e-6 * std::abs(sum));
    for (std::size_t row = 0; row < grid.RowCount(); ++row) {
      const std::string date = query.Cell(row, *query.FindField("Date")).AsText();
      EXPECT_EQ(months.labels.at(months.PointOf(row)), date.substr(0, 7));
    }
    EXPECT_EQ(Written(Path("statements.log")), before);
  });
}

TEST_F(Charts, FollowTheFilterOfTheRowsAlsoWhileTheyAreOpen) {
  HostFor("admin");
  OpenCard([](QWidget& window) {
    TSmartDBGrid_QRT& grid = CardGrid(window);
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    const QImage before = ImageOf(*ViewIn(*charts).Scene());
    AddCondition(grid, ConditionOn(*grid.FindColumn("Tedad_Varde"), ConditionKind::From, {Value(1)}));
    Wait(100);
    EXPECT_NE(ImageOf(*ViewIn(*charts).Scene()), before);
    EXPECT_EQ(ChartsOf(grid).front().make().Points(), grid.RowCount());
    AddCondition(grid, ConditionOn(*grid.FindColumn("Comment"), ConditionKind::Contains, {Value("نیست")}));
    Wait(100);
    EXPECT_EQ(grid.RowCount(), 0U);
    EXPECT_EQ(ViewIn(*charts).Scene()->Mark(), std::nullopt);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Plus, Qt::Key_Return, Qt::Key_End})
      PressKey(*charts, key);
    EXPECT_TRUE(charts->isVisible());
  });
}

TEST_F(Charts, PlusAndMinusShowFewerAndMorePointsAroundTheMark) {
  HostFor("admin");
  OpenCard([](QWidget& window) {
    CardGrid(window).MoveTo(10);
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    ChartScene& scene = *ViewIn(*charts).Scene();
    const std::size_t all = scene.CountShown();
    PressKey(*charts, Qt::Key_Plus);
    PressKey(*charts, Qt::Key_Plus);
    EXPECT_LT(scene.CountShown(), all / 3);
    EXPECT_LE(scene.FirstShown(), 10U);
    EXPECT_GT(scene.FirstShown() + scene.CountShown(), 10U);
    PressKey(*charts, Qt::Key_End);  // what is seen goes along
    EXPECT_EQ(scene.FirstShown() + scene.CountShown(), all);
    PressKey(*charts, Qt::Key_0);
    EXPECT_EQ(scene.CountShown(), all);
  });
}

TEST_F(Charts, AUserWithoutPricesSeesNoMoneyInThem) {
  HostFor("anbar");
  OpenCard([](QWidget& window) {
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    EXPECT_EQ(Offered(*charts), QStringList({"مانده", "گردش ماه به ماه"}));
    for (const ChartOffer& offer : ChartsOf(CardGrid(window))) {
      for (const ChartSeries& series : offer.make().series) {
        EXPECT_EQ(series.name.find("قیمت"), std::string::npos) << series.name;
        EXPECT_EQ(series.name.find("مبلغ"), std::string::npos) << series.name;
      }
    }
    EXPECT_FALSE(ViewIn(*charts).Scene()->PointText(0).contains("قیمت"));
  });
  Shown([&] { Module().Call("Open_GoodsAsset_Store"); },
        [](QWidget& window) {
          PressKey(window, Qt::Key_F2, Qt::ControlModifier);
          Wait(100);
          const auto offers = ChartsOf(Component<TSmartDBGrid_QRT>(window, "GoodsAsset_Store_GRD"));
          ASSERT_EQ(offers.size(), 1U);
          EXPECT_EQ(offers[0].title, "موجودی کالاها در انبارها (مقدار)");
        });
}

TEST_F(Charts, StockPerStoreIsStackedAndAddsUpToTheStoresColumns) {
  HostFor("admin");
  Shown([&] { Module().Call("Open_GoodsAsset_Store"); },
        [](QWidget& window) {
          PressKey(window, Qt::Key_F2, Qt::ControlModifier);
          Wait(200);
          auto& grid = Component<TSmartDBGrid_QRT>(window, "GoodsAsset_Store_GRD");
          ASSERT_GT(grid.RowCount(), 0U);
          const auto offers = ChartsOf(grid);
          ASSERT_EQ(offers.size(), 3U);
          for (const auto& [chart, total] : {std::pair(0, "A0-1"), std::pair(1, "A0-Cost")}) {
            const Chart stock = OfferOf(offers, static_cast<std::size_t>(chart)).make();
            ASSERT_EQ(stock.Points(), grid.RowCount());
            EXPECT_EQ(stock.series.size(), 4U);  // three stores, and the others
            const std::size_t field = *grid.DataSet()->FindField(total);
            for (std::size_t row = 0; row < stock.Points(); ++row) {
              double sum = 0;
              for (const ChartSeries& series : stock.series)
                sum += std::isnan(series.values[row]) ? 0 : series.values[row];
              const double whole = grid.DataSet()->Cell(row, field).AsDecimal().ToDouble();
              EXPECT_NEAR(sum, whole, 1e-6 + 1e-9 * std::abs(whole)) << total << ' ' << row;
            }
          }
          const Chart totals = OfferOf(offers, 2).make();
          EXPECT_EQ(totals.Points(), 4U);
          ChartWindow* charts = ChartsOver(window);
          ASSERT_NE(charts, nullptr);
          EXPECT_EQ(Offered(*charts).size(), 3);
          PressKey(*charts, Qt::Key_Tab, Qt::ControlModifier);
          EXPECT_EQ(charts->findChild<QComboBox*>("Charts_CMB")->currentIndex(), 1);
          PressKey(*charts, Qt::Key_Home);
          PressKey(*charts, Qt::Key_Down);
          PressKey(*charts, Qt::Key_Return);
          Wait(50);
          EXPECT_EQ(grid.DataSet()->RecNo(), 1U);
        });
}

TEST_F(Charts, OverallTurnoverHasABarForEachOperationThatIsSeen) {
  HostFor("admin");
  Shown([&] { Module().Call("Open_GoodTrans_Overall"); },
        [](QWidget& window) {
          PressKey(window, Qt::Key_F2, Qt::ControlModifier);
          Wait(200);
          auto& grid = Component<TSmartDBGrid_QRT>(window, "money_Overall_List_GRD");
          ASSERT_GT(grid.RowCount(), 0U);
          const auto operations = [&] { return OfferOf(ChartsOf(grid), 0).make(); };
          const Chart chart = operations();
          ASSERT_EQ(chart.series.size(), 2U);
          EXPECT_EQ(chart.series[0].name, "وارده");
          EXPECT_EQ(chart.series[1].name, "صادره");
          ASSERT_EQ(chart.Points(), 13U);
          EXPECT_EQ(chart.labels[1], "خرید");
          EXPECT_DOUBLE_EQ(chart.series[0].values[1], grid.DataSet()->Sum("Buy").ToDouble());
          EXPECT_TRUE(std::isnan(chart.series[1].values[1]));
          EXPECT_EQ(chart.RowOf(1), kNoRow);
          ChartWindow* charts = ChartsOver(window);
          ASSERT_NE(charts, nullptr);
          PressKey(*charts, Qt::Key_Down);
          PressKey(*charts, Qt::Key_Return);  // an operation has no row to go to
          EXPECT_TRUE(charts->isVisible());
          PressKey(*charts, Qt::Key_Escape);
          grid.FindColumn("Buy")->SetVisible(false);
          EXPECT_EQ(operations().Points(), 12U);
        });
}

TEST_F(Charts, GoodsByValueTellHowManyCarryFourFifths) {
  HostFor("admin");
  Shown([&] { Module().Call("Open_GoodCashAsset"); },
        [](QWidget& window) {
          Wait(300);
          auto& grid = Component<TSmartDBGrid_QRT>(window, "GoodTransactin_List_GRD");
          ASSERT_GT(grid.RowCount(), 10U);
          const Chart chart = OfferOf(ChartsOf(grid), 0).make();
          ASSERT_EQ(chart.Points(), grid.RowCount());
          const std::vector<double>& values = chart.series[0].values;
          const std::vector<double>& shares = chart.series[1].values;
          EXPECT_TRUE(std::is_sorted(values.rbegin(), values.rend()));
          EXPECT_NEAR(shares.back(), 100, 1e-6);
          ASSERT_TRUE(chart.goalPlace);
          const auto carrying = static_cast<std::size_t>(*chart.goalPlace);
          EXPECT_GE(shares[carrying - 1], 80);
          EXPECT_LT(carrying < 2 ? 0 : shares[carrying - 2], 80);
          ASSERT_EQ(chart.notes.size(), 1U);
          EXPECT_TRUE(chart.notes[0].starts_with(std::to_string(carrying) + " کالا از"));
          ChartWindow* charts = ChartsOver(window);
          ASSERT_NE(charts, nullptr);
          PressKey(*charts, Qt::Key_Home);
          PressKey(*charts, Qt::Key_Return);
          Wait(50);
          EXPECT_EQ(grid.DataSet()->RecNo(), chart.rows[0]);  // the most valuable good
        });
}

TEST_F(Charts, RowsOfManyGoodsAreCountedAndThoseOfOneAreSummed) {
  HostFor("admin");
  Shown([&] { Module().Call("Open_KardexSearch"); },
        [](QWidget& window) {
          PressKey(window, Qt::Key_F2, Qt::ControlModifier);
          Wait(200);
          auto& grid = Component<TSmartDBGrid_QRT>(window, "KardexSearch_GRD");
          ASSERT_GT(grid.RowCount(), 100U);
          const Chart counted = OfferOf(ChartsOf(grid), 0).make();
          ASSERT_EQ(counted.notes.size(), 1U);
          double rows = 0;
          for (const ChartSeries& series : counted.series) {
            for (const double figure : series.values) rows += figure;
          }
          EXPECT_LE(rows, static_cast<double>(grid.RowCount()));
          EXPECT_GT(rows, 0);
          const Value code = grid.DataSet()->FieldByName("Code");
          AddCondition(grid, ConditionOn(*grid.FindColumn("Code"), ConditionKind::Equal, {code}));
          const Chart summed = OfferOf(ChartsOf(grid), 0).make();
          EXPECT_TRUE(summed.notes.empty());
          double sum = 0;
          for (const double figure : summed.series[0].values) sum += figure;
          EXPECT_NEAR(sum, grid.DataSet()->Sum("Varede").ToDouble(), 1e-6);
        });
}

TEST_F(Charts, AreOfferedInTheMenuOfTablesThatHaveThem) {
  HostFor("admin");
  const auto offered = [](QWidget& window, const char* grid) {
    bool found = false;
    QTimer::singleShot(0, [&] {
      const auto* menu = window.findChild<QMenu*>("GridMenu");
      if (menu == nullptr) return;
      for (const QAction* action : menu->actions())
        found = found || WithoutMark(action->text()).startsWith("نمودار");
      const_cast<QMenu*>(menu)->close();
    });
    auto& table = dynamic_cast<QAbstractScrollArea&>(Child(window, grid));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(table.viewport(), &event);
    return found;
  };
  OpenCard([&](QWidget& window) { EXPECT_TRUE(offered(window, "Kardex_GRD")); });
  Shown([&] { Module().Call("Open_GoodAmountAsset"); },
        [&](QWidget& window) {
          Wait(300);
          EXPECT_FALSE(offered(window, "GoodTransactin_List_GRD"));
          EXPECT_EQ(ChartsOver(window), nullptr);  // quantities alone have no chart, and the key does nothing
        });
}

TEST_F(Charts, CtrlCCopiesAPictureOnPapersColours) {
  HostFor("admin");
  OpenCard([](QWidget& window) {
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    QGuiApplication::clipboard()->clear();
    PressKey(*charts, Qt::Key_C, Qt::ControlModifier);
    const QImage copied = QGuiApplication::clipboard()->image();
    ASSERT_FALSE(copied.isNull());
    EXPECT_GE(copied.width(), 1600);
    EXPECT_EQ(copied.pixelColor(2, 2), QColor(Qt::white));
  });
}

TEST_F(Charts, CtrlSSavesUnderTheReportsNameAndSaysWhatCannotBeWritten) {
  DesktopHost& host = HostFor("admin");
  std::string told;
  host.Messages().SetUnattended([&](const ShownMessage& message) {
    told = message.text;
    return true;
  });
  OpenCard([&](QWidget& window) {
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    WhileModal([&](QWidget& dialog) {
      auto& name = dynamic_cast<QLineEdit&>(Child(dialog, "fileNameEdit"));
      EXPECT_TRUE(name.text().startsWith("کاردکس کالا - مانده")) << FromQt(name.text());
      EXPECT_TRUE(name.text().endsWith(".png"));
      name.setText(folder_.filePath("نمودار.png"));
      PressKey(name, Qt::Key_Return);
    });
    PressKey(*charts, Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(QImage(folder_.filePath("نمودار.png")).isNull());
    EXPECT_TRUE(charts->SaveTo(folder_.filePath("نمودار.svg")));
    EXPECT_EQ(Written(Path("نمودار.svg")).rfind("<?xml", 0), 0U);
    EXPECT_EQ(told, "");
    EXPECT_FALSE(charts->SaveTo(folder_.filePath("nowhere/نمودار.png")));
    EXPECT_NE(told.find("nowhere"), std::string::npos) << told;
  });
}

// The host's own rights, but none to print.
class NoPrinting : public IRights {
 public:
  explicit NoPrinting(IRights& rights) : rights_(rights) {}
  const TUserInfo& UserInfo() const override { return rights_.UserInfo(); }
  bool HavePermission(const TUserInfo& user, int part, int permission, bool a, bool b,
                      std::string_view text) override {
    if (permission == kPermissionPrintList) return ++asked, false;
    return rights_.HavePermission(user, part, permission, a, b, text);
  }
  void SetUserEvent(int part, int event, std::int64_t code) override {
    rights_.SetUserEvent(part, event, code);
  }
  bool SeesPrices() const override { return rights_.SeesPrices(); }

  int asked = 0;

 private:
  IRights& rights_;
};

TEST_F(Charts, WhoMayNotPrintSavesAndPrintsNone) {
  const auto user = Company().SignIn("admin", "admin");
  ASSERT_TRUE(user);
  ModuleLibrary module(GOODS_MODULE_FILE);
  NoPrinting* rights = nullptr;
  OwnServices own;
  own.rights = [&](CompanyRights& standard) {
    auto made = std::make_unique<NoPrinting>(standard);
    rights = made.get();
    return made;
  };
  DesktopHost host(Company(), *user, Settings(), module, nullptr, {}, std::move(own));
  module.Attach(host);
  WhileModal([&](QWidget& window) {
    ChartWindow* charts = ChartsOver(window);
    ASSERT_NE(charts, nullptr);
    PressKey(*charts, Qt::Key_S, Qt::ControlModifier);
    PressKey(*charts, Qt::Key_F9);
    EXPECT_EQ(rights->asked, 2);
    EXPECT_EQ(QApplication::activeModalWidget(), charts);
  });
  module.OpenKardex(BusiestGood(Company()), 0, "", "");
  module.Detach();
}

}  // namespace
}  // namespace goods
