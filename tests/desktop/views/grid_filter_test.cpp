// Filtering by what is seen: the menu of a cell, the dialog of a column, the chips, and the key that lifts
// all.
#include "host/components/grid_filter.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include "desktop/views/grid_view.h"
#include "desktop/views/keyboard_marks.h"
#include "desktop/views/shown_text.h"
#include "tests/desktop/views/grid_fixture.h"

namespace goods::testing {
namespace {

class GridFilterView : public GridTest {
 protected:
  void ClickCell(std::size_t row, const char* field) {
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().CellRect(row, Column(field)).center());
    Settle();
  }
  // Opens the menu of a cell and chooses what begins with that text.
  void Choose(std::size_t row, const char* field, const QString& entry) {
    bool chosen = false;
    QTimer::singleShot(0, [&] {
      auto* menu = view.findChild<QMenu*>("GridMenu");
      ASSERT_NE(menu, nullptr);
      auto* filter = menu->findChild<QMenu*>("GridFilterMenu");
      ASSERT_NE(filter, nullptr);
      for (QAction* action : filter->actions()) {
        if (chosen || !WithoutMark(action->text()).startsWith(entry)) continue;
        chosen = true;
        action->trigger();
      }
      menu->close();
    });
    const QPoint point = Table().CellRect(row, Column(field)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, Table().viewport()->mapToGlobal(point));
    QApplication::sendEvent(Table().viewport(), &event);
    EXPECT_TRUE(chosen) << entry.toStdString();
    Settle();
  }
  QStringList Chips() {
    QStringList texts;
    for (const QToolButton* chip : Table().findChild<QWidget*>("FilterChips")->findChildren<QToolButton*>())
      if (chip->isVisible()) texts << chip->text();
    return texts;
  }
  QDialog* Dialog() { return view.findChild<QDialog*>("FilterDialog"); }
  template <typename Kind>
  Kind& Part(const char* name) {
    return *Dialog()->findChild<Kind*>(name);
  }
  void WaitForValues() {
    ASSERT_NE(Dialog(), nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] {
      return Part<QListWidget>("FilterValues_LST").count() > 0 &&
             !Part<QLabel>("FilterState_LBL").text().contains(QChar(0x2026));
    }));
  }
};

TEST_F(GridFilterView, TheMenuOfACellNarrowsTheRowsByWhatTheCellHolds) {
  Open(400);
  Choose(1, "PerName", "برابر «");
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 100U);
  EXPECT_EQ(Chips(), (QStringList{"نام شخص: برابر «فروشگاه مرکزی»  ✕", "برداشتن همه  F8"}));
  Choose(0, "Date", "از «");
  EXPECT_EQ(Chips().size(), 3);
  EXPECT_EQ(form.Kardex_QRY.Filter(), "");
  QTest::keyClick(&Table(), Qt::Key_F8);
  Settle();
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 400U);
  EXPECT_EQ(Chips(), QStringList());
  Choose(1, "PerName", "به جز «");
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 300U);
}

TEST_F(GridFilterView, AChipLiftsItsOwnConditionAndTheFooterFollows) {
  Open(40);
  const std::string whole = form.Kardex_GRD.FooterText(Column("Tedad_Varde"));
  Choose(0, "PerName", "برابر «");
  Choose(0, "Comment", "برابر «");
  EXPECT_NE(form.Kardex_GRD.FooterText(Column("Tedad_Varde")), whole);
  ASSERT_EQ(Chips().size(), 3);
  QTest::mouseClick(Table().findChild<QToolButton*>("FilterChip_1"), Qt::LeftButton);
  Settle();
  ASSERT_EQ(Chips().size(), 2);
  QTest::mouseClick(Table().findChild<QToolButton*>("FilterClear_BTN"), Qt::LeftButton);
  Settle();
  EXPECT_TRUE(Chips().empty());
  EXPECT_EQ(form.Kardex_GRD.FooterText(Column("Tedad_Varde")), whole);
}

TEST_F(GridFilterView, AltDownListsTheValuesOfTheColumnToTick) {
  Open(400);
  ClickCell(2, "PerName");
  QTest::keyClick(&Table(), Qt::Key_Down, Qt::AltModifier);
  WaitForValues();
  auto& list = Part<QListWidget>("FilterValues_LST");
  ASSERT_EQ(list.count(), 4);
  EXPECT_EQ(list.item(0)->text(), ShownText("آقای احمدی   (100)"));
  EXPECT_EQ(Part<QCheckBox>("FilterAll_CHK").checkState(), Qt::Checked);
  ASSERT_TRUE(QTest::qWaitForWindowActive(Dialog()));
  QTest::keyClick(&Part<QLineEdit>("FilterSearch_EDT"), Qt::Key_Down);
  EXPECT_EQ(Dialog()->focusWidget(), &list);
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_EQ(list.item(0)->checkState(), Qt::Unchecked);
  EXPECT_EQ(Part<QCheckBox>("FilterAll_CHK").checkState(), Qt::PartiallyChecked);
  QTest::keyClick(Dialog(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 300U);
  EXPECT_TRUE(Chips().front().startsWith("نام شخص: «"));
  // Opened again it has the same ticks; all of them lift the condition.
  QTest::keyClick(&Table(), Qt::Key_Down, Qt::AltModifier);
  WaitForValues();
  EXPECT_EQ(Part<QListWidget>("FilterValues_LST").item(0)->checkState(), Qt::Unchecked);
  EXPECT_EQ(Part<QListWidget>("FilterValues_LST").item(1)->checkState(), Qt::Checked);
  QTest::mouseClick(
      &Part<QCheckBox>("FilterAll_CHK"), Qt::LeftButton, {},
      QPoint(Part<QCheckBox>("FilterAll_CHK").width() - 8, Part<QCheckBox>("FilterAll_CHK").height() / 2));
  QTest::keyClick(Dialog(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 400U);
}

TEST_F(GridFilterView, TheButtonInATitleOpensTheDialogAndDoesNotSort) {
  Open(40);
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().FilterRect(Column("Anbar")).center());
  Settle();
  WaitForValues();
  EXPECT_EQ(Dialog()->windowTitle(), "فیلتر انبار");
  EXPECT_EQ(Part<QListWidget>("FilterValues_LST").count(), 6);
  EXPECT_TRUE(form.Kardex_GRD.SortKeys().empty());
  QTest::keyClick(Dialog(), Qt::Key_Escape);
  Settle();
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 40U);
}

TEST_F(GridFilterView, ASearchInTheDialogTakesWhatItShowsOrAllThatHoldsIt) {
  Open(400);
  Table().FilterColumn(&Column("Comment"), "فروش");
  WaitForValues();
  EXPECT_EQ(Part<QListWidget>("FilterValues_LST").count(), 2);
  QTest::mouseClick(&Part<QPushButton>("FilterContains_BTN"), Qt::LeftButton);
  Settle();
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 200U);
  EXPECT_EQ(Chips().front(), "شرح: شامل «فروش»  ✕");
  QTest::keyClick(&Table(), Qt::Key_F8);
  Table().FilterColumn(&Column("Comment"));
  WaitForValues();
  TypeLetters(&Part<QLineEdit>("FilterSearch_EDT"), "نقدي");
  QTest::keyClick(&Part<QLineEdit>("FilterSearch_EDT"), Qt::Key_Return);
  if (Dialog() != nullptr && Dialog()->isVisible()) QTest::keyClick(Dialog(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 100U);
}

TEST_F(GridFilterView, ManyValuesAreListedToALimitAndSearchedWhole) {
  Open(200'000);
  const_cast<TGridColumn&>(Column("Anbar")).SetFieldName("Radif");
  Settle();
  Table().FilterColumn(form.Kardex_GRD.FindColumn("Radif"));
  ASSERT_NE(Dialog(), nullptr);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Part<QListWidget>("FilterValues_LST").count() == 1000; }, 20'000));
  EXPECT_TRUE(Part<QLabel>("FilterState_LBL").text().startsWith("بیش از"));
  // The window goes on while all rows are looked through.
  int meanwhile = 0;
  QTimer between;
  QObject::connect(&between, &QTimer::timeout, [&] {
    if (Part<QLabel>("FilterState_LBL").text().contains(QChar(0x2026))) ++meanwhile;
  });
  between.start(0);
  TypeLetters(&Part<QLineEdit>("FilterSearch_EDT"), "199999");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Part<QListWidget>("FilterValues_LST").count() == 1; }, 20'000));
  between.stop();
  EXPECT_GT(meanwhile, 0);
  WaitForValues();
  QTest::keyClick(Dialog(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(form.Kardex_GRD.RowCount(), 1U);
}

TEST_F(GridFilterView, OtherRowsCloseTheDialog) {
  Open(40);
  Table().FilterColumn(&Column("PerName"));
  ASSERT_NE(Dialog(), nullptr);
  form.Fill(80);
  Settle();
  EXPECT_TRUE(Dialog() == nullptr || !Dialog()->isVisible());
}

TEST_F(GridFilterView, CtrlAndTheArrowsChooseTheColumnThatKeysMean) {
  Open(40);
  QTest::keyClick(&Table(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Table().CurrentColumn(), &Column("Date"));
  QTest::keyClick(&Table(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Table().CurrentColumn(), &Column("PerName"));
  QTest::keyClick(&Table(), Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Table().CurrentColumn(), &Column("Date"));
}

TEST_F(GridFilterView, AUserWithoutPricesIsOfferedNone) {
  const_cast<TGridColumn&>(Column("Miangin")).SetMoney();
  host.rights.seesPrices = false;
  TCard_FRM other{host};
  const TGridColumn& price = other.Kardex_GRD.FindColumn("Miangin")->SetMoney();
  other.Kardex_GRD.DataSet()->SetSQL("rows 10");
  other.Kardex_GRD.DataSet()->Open();
  AddCondition(other.Kardex_GRD, ConditionOn(price, ConditionKind::From, {Value(1)}));
  EXPECT_TRUE(other.Kardex_GRD.DataSet()->Narrowing().empty());
  EXPECT_TRUE(CellValue(other.Kardex_GRD, 1, price).IsNull());
}

}  // namespace
}  // namespace goods::testing
