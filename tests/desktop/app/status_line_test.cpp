// The line below a report: its rows, the time of the reading, and what the selected rows come to.
#include "desktop/views/status_line.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QTableWidget>

#include "host/components/edit.h"
#include "host/components/standard.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class StatusOfAReport : public DesktopTest {
 protected:
  void OpenCard(const std::function<void(QWidget&)>& steps) {
    HostFor("admin");
    bool shown = false;
    WhileModal([&](QWidget& window) {
      shown = true;
      TypeGood(window, BusiestGood(Company()));
      Wait(50);
      steps(window);
    });
    Module().Call("Open_GoodKardex");
    EXPECT_TRUE(shown);
  }
};

QString Told(QWidget& window, const char* label) {
  return dynamic_cast<QLabel&>(Child(window, label)).text();
}

QString Number(std::size_t count) {
  return ShownNumber(QLocale(QLocale::English).toString(static_cast<qulonglong>(count)));
}

// From the first row on, by the keyboard.
void SelectRows(QWidget& window, int count) {
  Child(window, "Kardex_GRD").setFocus();
  PressKey(window, Qt::Key_Home, Qt::ControlModifier);
  for (int i = 1; i < count; ++i) PressKey(window, Qt::Key_Down, Qt::ShiftModifier);
  WaitUntil([&] { return Told(window, "StatusSelection_LBL").contains("جمع"); }, 3000);
}

TEST_F(StatusOfAReport, TellsTheRowsAndWhenTheyWereRead) {
  OpenCard([&](QWidget& window) {
    const std::size_t all = RowCount(window);
    EXPECT_EQ(Told(window, "StatusRows_LBL"), Number(all) + " ردیف");
    EXPECT_TRUE(Told(window, "StatusRead_LBL").startsWith("خواندن: ساعت "));
    EXPECT_EQ(Told(window, "StatusSelection_LBL"), "");
    const QString read = Told(window, "StatusRead_LBL");
    PressKey(window, Qt::Key_2, Qt::AltModifier);
    Wait(50);
    TypeText(window, "Store_SESF.TSelect_Entity_Frame1.Code_EDT", "1");
    PressKey(window, Qt::Key_Return);
    Wait(50);
    ASSERT_LT(RowCount(window), all);
    EXPECT_EQ(Told(window, "StatusRows_LBL"), Number(RowCount(window)) + " ردیف از " + Number(all));
    EXPECT_EQ(Told(window, "StatusRead_LBL"), read);  // narrowing reads nothing
  });
}

TEST_F(StatusOfAReport, TellsTheFiguresOfTheSelectedRows) {
  OpenCard([&](QWidget& window) {
    SelectRows(window, 4);
    auto& grid = Component<TSmartDBGrid_QRT>(window, "Kardex_GRD");
    ASSERT_EQ(grid.Selection().size(), 4U);
    const TGridColumn& column = *grid.FindColumn("Bagh");
    const std::size_t field = *grid.DataSet()->FindField(column.FieldName());
    std::vector<Decimal> values;
    for (const std::size_t row : grid.Selection())
      values.push_back(grid.DataSet()->Cell(row, field).AsDecimal());
    Decimal sum;
    for (const Decimal value : values) sum += value;
    const auto shown = [&](Decimal value) { return ShownNumber(ToQt(column.Format().Format(value))); };
    EXPECT_TRUE(Told(window, "StatusSelection_LBL").startsWith(Number(4) + " ردیف برگزیده"));
    EXPECT_TRUE(Told(window, "StatusSelection_LBL").contains("جمع مقدار باقیمانده: " + shown(sum)));

    EXPECT_FALSE(window.findChild<QTableWidget*>("Figures_TBL")->isVisible());
    PressKey(window, Qt::Key_T, Qt::ControlModifier);
    auto& table = dynamic_cast<QTableWidget&>(Child(window, "Figures_TBL"));
    const auto rows = table.findItems("مقدار باقیمانده", Qt::MatchExactly);
    ASSERT_EQ(rows.size(), 1);
    QStringList texts;
    for (int i = 1; i < table.columnCount(); ++i) texts << table.item(rows.front()->row(), i)->text();
    EXPECT_EQ(texts, QStringList({Number(4), shown(sum), shown(sum / Decimal(4)),
                                  shown(*std::min_element(values.begin(), values.end())),
                                  shown(*std::max_element(values.begin(), values.end()))}));
    // Columns without figures, such as the date and the store's code, have no sum.
    EXPECT_TRUE(table.findItems("انبار", Qt::MatchExactly).isEmpty());
    EXPECT_TRUE(table.findItems("تاریخ", Qt::MatchExactly).isEmpty());

    PressKey(window, Qt::Key_Down);  // one row again
    Wait(50);
    EXPECT_EQ(Told(window, "StatusSelection_LBL"), "");
    EXPECT_EQ(table.item(0, 0)->text(), "دو ردیف یا بیشتر را برگزینید.");
    PressKey(window, Qt::Key_T, Qt::ControlModifier);
    EXPECT_FALSE(table.isVisible());
  });
}

TEST_F(StatusOfAReport, AsksTheDatabaseForNothing) {
  OpenCard([&](QWidget& window) {
    const std::string before = Written(Path("statements.log"));
    SelectRows(window, 5);
    PressKey(window, Qt::Key_T, Qt::ControlModifier);
    Wait(100);
    EXPECT_EQ(Written(Path("statements.log")), before);
  });
}

TEST_F(StatusOfAReport, AllColumnsStandInTheTipAndColumnsWithoutPricesAreNotTold) {
  OpenCard([&](QWidget& window) {
    SelectRows(window, 3);
    const QString tip = Child(window, "StatusSelection_LBL").toolTip();
    for (const TGridColumn* column : Component<TSmartDBGrid_QRT>(window, "Kardex_GRD").VisibleColumns()) {
      EXPECT_EQ(tip.contains(ToQt(column->Caption()) + ": تعداد"), column->IsNumber()) << column->Caption();
    }
    Component<TSmartDBGrid_QRT>(window, "Kardex_GRD").FindColumn("Bagh")->SetVisible(false);
    SelectRows(window, 3);
    Wait(100);
    EXPECT_FALSE(Child(window, "StatusSelection_LBL").toolTip().contains("مقدار باقیمانده"));
  });
}

}  // namespace
}  // namespace goods
