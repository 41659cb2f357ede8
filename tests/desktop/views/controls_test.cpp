// Edits, boxes, combos, dates, keys and focus, driven as a user drives them.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

#include "desktop/views/calendar.h"
#include "desktop/views/date_edit_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/style.h"
#include "desktop/views/theme.h"
#include "desktop/views/thousands.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

// A key of a Persian keyboard; its code is its letter's.
void PressPersian(QWidget& widget, const char* letter, Qt::KeyboardModifiers modifiers = {}) {
  const QString text = QString::fromUtf8(letter);
  QTest::sendKeyEvent(QTest::Click, &widget, static_cast<Qt::Key>(text.at(0).unicode()), text, modifiers);
}

class Controls : public ::testing::Test {
 protected:
  void SetUp() override {
    host.messages.SetUnattended([](const ShownMessage&) { return true; });
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
  }
  template <typename Kind = QLineEdit>
  Kind& Widget(const TControl& control) {
    return dynamic_cast<Kind&>(*view.WidgetOf(control));
  }
  QLineEdit& Focused(TEdit& edit) {
    edit.SetFocus();
    Settle();
    return Widget(edit);
  }

  TestHost host;
  TCard_FRM form{host};
  FormView view{form};
};

TEST_F(Controls, EveryComponentHasAWidgetUnderItsPath) {
  EXPECT_NE(view.findChild<QLineEdit*>("Store_SESF.TSelect_Entity_Frame1.Code_EDT"), nullptr);
  EXPECT_NE(view.findChild<QCheckBox*>("Date_RDSF.RangeDate_CHK"), nullptr);
  EXPECT_NE(view.findChild<QPushButton*>("PrintList_BTN"), nullptr);
  EXPECT_NE(view.findChild<QWidget*>("Kardex_GRD"), nullptr);
  EXPECT_EQ(view.objectName(), "Card_FRM");
  EXPECT_EQ(Widget(form.Date_RDSF.RangeDate_From_EDT).accessibleName(), "از تاریخ");
}

TEST_F(Controls, TypingGoesToTheComponentKeyByKeyAndTheCaretStays) {
  int changes = 0;
  form.Search_EDT.OnChange = [&] { ++changes; };
  QLineEdit& line = Focused(form.Search_EDT);
  QTest::keyClicks(&line, "abd");
  QTest::keyClick(&line, Qt::Key_Left);
  QTest::keyClicks(&line, "c");
  EXPECT_EQ(form.Search_EDT.Text(), "abcd");
  EXPECT_EQ(changes, 4);
  EXPECT_EQ(line.cursorPosition(), 3);
  Settle();
  EXPECT_EQ(line.cursorPosition(), 3);
  EXPECT_EQ(form.Search_EDT.Caret(), 3);
}

TEST_F(Controls, RefusedInputSnapsBackWithTheCaretWhereItWas) {
  QLineEdit& line = Focused(form.Amount_EDT);
  QTest::keyClicks(&line, "125");
  QTest::keyClick(&line, Qt::Key_Left);
  QTest::keyClicks(&line, "x");
  EXPECT_EQ(form.Amount_EDT.Text(), "125");
  EXPECT_EQ(line.text(), ShownDigits("125"));
  EXPECT_EQ(line.cursorPosition(), 2);
}

TEST_F(Controls, PersianDigitsAreAcceptedAndCopiedAsPlainOnes) {
  QLineEdit& line = Focused(form.Amount_EDT);
  for (const char* digit : {"۱", "۲", "۳"}) PressPersian(line, digit);
  EXPECT_EQ(form.Amount_EDT.Text(), "123");
  EXPECT_EQ(line.text(), QString::fromUtf8("۱۲۳"));
  line.selectAll();
  QTest::keyClick(&line, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "123");
}

TEST_F(Controls, SeparatorsOfThousandsArePutIntoFiguresAlone) {
  SetPersianDigits(false);
  SetThousandsSeparators(true);
  for (const auto& [text, shown] : {std::pair("1234567.5", "1,234,567.5"),
                                    {"123", "123"},
                                    {"1234", "1,234"},
                                    {"12345-", "12,345-"},
                                    {"-12345", "-12,345"},
                                    {"0.12345", "0.12345"},
                                    {"1,234.5", "1,234.5"},
                                    {"", ""},
                                    {"کارتن 1234", "کارتن 1234"}}) {
    EXPECT_EQ(ShownCell(text, true), QString(shown));
  }
  EXPECT_EQ(ShownCell("12345678", false), "12345678");  // a code is no figure
  SetThousandsSeparators(false);
  EXPECT_EQ(ShownCell("1234567.5", true), "1234567.5");
  SetPersianDigits(true);
}

TEST_F(Controls, WithoutPersianDigitsNumbersAreShownAsTheyAre) {
  SetPersianDigits(false);
  form.Amount_EDT.SetText("450");
  Settle();
  EXPECT_EQ(Widget(form.Amount_EDT).text(), "450");
  SetPersianDigits(true);
}

TEST_F(Controls, ADateIsCompletedWhenTheFocusLeaves) {
  QLineEdit& line = Focused(form.Date_RDSF.RangeDate_From_EDT);
  QTest::keyClicks(&line, "14020305");
  QTest::keyClick(&line, Qt::Key_Tab);
  EXPECT_EQ(form.Date_RDSF.RangeDate_From_EDT.Text(), "1402/03/05");
  EXPECT_TRUE(form.Date_RDSF.RangeDate_To_EDT.Focused());
}

TEST_F(Controls, AnImpossibleDateMarksItsEditAndIsTold) {
  QLineEdit& line = Focused(form.Date_RDSF.RangeDate_From_EDT);
  QTest::keyClicks(&line, "1402/13/05");
  QTest::keyClick(&line, Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(line.property(kProblemProperty).toBool());
  ASSERT_FALSE(host.messages.Shown().empty());
  EXPECT_TRUE(host.messages.Shown().back().balloon);
}

TEST_F(Controls, AnImpossibleDateIsNotLeftBehind) {
  TDateEdit& date = form.Date_RDSF.RangeDate_From_EDT;
  date.SetText("1402/03/05");
  QLineEdit& line = Focused(date);
  line.selectAll();
  QTest::keyClicks(&line, "1404/12/30");
  const auto stays = [&](const char* by) {
    Settle();
    EXPECT_TRUE(date.Focused()) << by;
    EXPECT_EQ(date.Text(), "1404/12/30") << by;
    EXPECT_TRUE(line.property(kProblemProperty).toBool()) << by;
    EXPECT_EQ(host.messages.Shown().back().text, kNoSuchDate) << by;
  };
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_F2, Qt::Key_F9, Qt::Key_F3}) {
    QTest::keyClick(&line, key);
    stays("key");
  }
  QTest::keyClick(&line, Qt::Key_F2, Qt::ControlModifier);
  QTest::keyClick(&line, Qt::Key_2, Qt::AltModifier);
  stays("a key of the window");
  EXPECT_EQ(form.folds, 0);
  QTest::mouseClick(view.WidgetOf(form.OpenInfo_BTN), Qt::LeftButton);
  stays("a click on a button");
  EXPECT_EQ(form.documents, 0);
  QTest::mouseClick(view.WidgetOf(form.Search_EDT), Qt::LeftButton);
  stays("a click into another edit");

  QTest::keyClick(&line, Qt::Key_Escape);
  Settle();
  EXPECT_EQ(date.Text(), "1402/03/05");
  EXPECT_FALSE(line.property(kProblemProperty).toBool());
  EXPECT_EQ(form.ModalResult(), kModalNone);
  QTest::keyClick(&line, Qt::Key_Tab);
  Settle();
  EXPECT_FALSE(date.Focused());
}

TEST_F(Controls, AnImpossibleDateIsMendedInItsEditAndTheWindowCanBeClosedOverIt) {
  TDateEdit& date = form.Date_RDSF.RangeDate_From_EDT;
  QLineEdit& line = Focused(date);
  QTest::keyClicks(&line, "1404/12/30");
  QTest::keyClick(&line, Qt::Key_Backspace);
  QTest::keyClick(&line, Qt::Key_Backspace);
  QTest::keyClicks(&line, "29");
  QTest::keyClick(&line, Qt::Key_Tab);
  Settle();
  EXPECT_EQ(date.Text(), "1404/12/29");
  EXPECT_FALSE(date.Focused());
  QLineEdit& again = Focused(date);
  again.selectAll();
  QTest::keyClicks(&again, "14041");
  view.close();
  EXPECT_FALSE(view.isVisible());
}

TEST_F(Controls, TheCalendarChoosesByKeyboard) {
  form.Date_RDSF.RangeDate_From_EDT.SetText("1402/12/29");
  QLineEdit& line = Focused(form.Date_RDSF.RangeDate_From_EDT);
  QTest::keyClick(&line, Qt::Key_Down, Qt::AltModifier);
  auto* popup = dynamic_cast<CalendarPopup*>(QApplication::activePopupWidget());
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(popup->Calendar().Current(), (JalaliDate{1402, 12, 29}));
  QTest::keyClick(&popup->Calendar(), Qt::Key_Left);  // the next day stands at the left
  EXPECT_EQ(popup->Calendar().Current(), (JalaliDate{1403, 1, 1}));
  QTest::keyClick(&popup->Calendar(), Qt::Key_PageDown);
  QTest::keyClick(&popup->Calendar(), Qt::Key_Return);
  EXPECT_EQ(form.Date_RDSF.RangeDate_From_EDT.Text(), "1403/02/01");
  EXPECT_EQ(line.text(), ShownDigits("1403/02/01"));
}

TEST_F(Controls, TheCalendarRunsFromSaturdayAtTheRight) {
  CalendarView calendar(std::nullopt, {1403, 1, 1}, nullptr);  // a Wednesday
  calendar.resize(calendar.sizeHint());
  EXPECT_EQ(JalaliWeekday({1403, 1, 1}), 4);
  EXPECT_GT(calendar.DayRect(1).left(), calendar.DayRect(2).left());
  EXPECT_EQ(calendar.DayRect(4).right(), calendar.width() - 1);  // Saturday
  EXPECT_EQ(calendar.DayRect(10).left(), 0);                     // Friday
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.DayRect(17).center());
  EXPECT_EQ(calendar.Current().day, 17);
}

TEST_F(Controls, ACheckBoxFollowsItsComponentAndNotTheOtherWayRound) {
  int clicks = 0;
  form.Stock_CHK.OnClick = [&] { ++clicks; };
  auto& box = Widget<QCheckBox>(form.Stock_CHK);
  QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(box.width() - 9, box.height() / 2));
  EXPECT_TRUE(form.Stock_CHK.Checked());
  EXPECT_EQ(clicks, 1);
  form.Stock_CHK.SetChecked(false);
  Settle();
  EXPECT_FALSE(box.isChecked());
  form.Stock_CHK.SetFocus();
  Settle();
  QTest::keyClick(&box, Qt::Key_Space);
  EXPECT_TRUE(form.Stock_CHK.Checked());
  EXPECT_TRUE(box.isChecked() || (Settle(), box.isChecked()));
}

TEST_F(Controls, AnAcceleratorClicksItsCheckBoxAndALabelsOneMovesTheFocus) {
  form.Search_EDT.SetFocus();
  Settle();
  PressPersian(*qApp->focusWidget(), "م", Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return form.Stock_CHK.Checked(); }, 1000));
  PressPersian(*qApp->focusWidget(), "ک", Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return form.Good_SEF.Code_EDT.Focused(); }, 1000));
}

TEST_F(Controls, TheFocusIsTheSameOnBothSides) {
  std::vector<std::string> events;
  form.Search_EDT.OnEnter = [&] { events.push_back("enter"); };
  form.Search_EDT.OnExit = [&] { events.push_back("exit"); };
  form.Search_EDT.SetFocus();
  Settle();
  EXPECT_TRUE(Widget(form.Search_EDT).hasFocus());
  QTest::mouseClick(&Widget(form.Amount_EDT), Qt::LeftButton);
  EXPECT_TRUE(form.Amount_EDT.Focused());
  EXPECT_EQ(events, (std::vector<std::string>{"enter", "exit"}));
}

TEST_F(Controls, KeysReachTheWindowFirstAndConsumedOnesGoNoFurther) {
  QLineEdit& line = Focused(form.Search_EDT);
  QTest::keyClick(&line, Qt::Key_2, Qt::AltModifier);
  EXPECT_EQ(form.folds, 1);
  PressPersian(line, "۲", Qt::AltModifier);  // a Persian keyboard's 2
  EXPECT_EQ(form.folds, 2);
  QTest::keyClick(&line, Qt::Key_F2);
  EXPECT_EQ(form.documents, 1);
  form.Search_EDT.OnKeyDown = [](TKey& key) { key.Consume(); };
  QTest::keyClicks(&line, "a");
  EXPECT_EQ(form.Search_EDT.Text(), "");
}

TEST_F(Controls, AFoldedPanelShowsItsTitleOnly) {
  QWidget& code = Widget<QWidget>(form.Good_SEF.Code_EDT);
  EXPECT_TRUE(code.isVisible());
  auto* title = view.findChild<QAbstractButton*>("Criteria_PNL_Title");
  ASSERT_NE(title, nullptr);
  QTest::mouseClick(title, Qt::LeftButton);
  EXPECT_TRUE(form.Criteria_PNL.Folded());
  Settle();
  EXPECT_FALSE(code.isVisible());
  EXPECT_TRUE(title->isVisible());
}

TEST_F(Controls, AHundredChangesAreNotPaintedOneByOne) {
  int paints = 0;
  struct Counter : QObject {
    int* count;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++*count;
      return false;
    }
  } counter;
  counter.count = &paints;
  Settle();
  QWidget& label = Widget<QWidget>(form.InValue_LBL);
  label.installEventFilter(&counter);
  for (int i = 0; i < 100; ++i) form.InValue_LBL.SetCaption(std::to_string(i));
  EXPECT_EQ(paints, 0) << "nothing is painted before the program is done";
  QTest::qWait(50);
  EXPECT_GE(paints, 1);
  EXPECT_LE(paints, 3) << "once for the text, and as often as the layout follows it";
  EXPECT_EQ(dynamic_cast<QLabel&>(label).text(), ShownText("99"));
}

TEST_F(Controls, AComboTellsItsChoiceAndATypingOneItsText) {
  int changes = 0;
  form.Kind_CMB.OnChange = [&] { ++changes; };
  form.Kind_CMB.SetFocus();
  Settle();
  auto& box = Widget<QComboBox>(form.Kind_CMB);
  QTest::keyClick(&box, Qt::Key_Down);
  EXPECT_EQ(form.Kind_CMB.ItemIndex(), 1);
  EXPECT_EQ(changes, 1);
  form.Kind_CMB.SetItemIndex(2);
  Settle();
  EXPECT_EQ(box.currentIndex(), 2);
  auto& typing = Widget<QComboBox>(form.Typing_CMB);
  ASSERT_TRUE(typing.isEditable());
  form.Typing_CMB.SetFocus();
  Settle();
  typing.lineEdit()->selectAll();
  QTest::keyClicks(typing.lineEdit(), "xyz");
  EXPECT_EQ(form.Typing_CMB.Text(), "xyz");
  EXPECT_EQ(form.Typing_CMB.ItemIndex(), -1);
}

TEST_F(Controls, AHandlersErrorBecomesAMessage) {
  form.OpenInfo_BTN.OnClick = [] {
    throw DatabaseError("Invalid object name 'Kardex'.", "Exec Kardex_Proc 5");
  };
  QTest::mouseClick(&Widget<QPushButton>(form.OpenInfo_BTN), Qt::LeftButton);
  ASSERT_EQ(host.messages.Shown().size(), 1U);
  EXPECT_NE(host.messages.Shown()[0].text.find("Invalid object name"), std::string::npos);
  EXPECT_EQ(host.messages.Shown()[0].details, "Exec Kardex_Proc 5");
}

TEST_F(Controls, TabGoesInTheOrderOfTheComponentsBothWays) {
  TEdit late(&form, "Late_EDT");
  form.Good_PNL.Place(late);
  form.Good_PNL.Changed();
  form.Good_SEF.Select_BTN.SetFocus();
  Settle();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(late.Focused());
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "Late_EDT");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(form.Good_SEF.Select_BTN.Focused());
}

TEST_F(Controls, AControlThatJoinsAWindowLaterGetsAView) {
  TButton late(&form, "Late_BTN", "دیرآمده");
  form.Buttons_PNL.Place(late);
  form.Buttons_PNL.Changed();
  Settle();
  EXPECT_NE(view.findChild<QPushButton*>("Late_BTN"), nullptr);
}

TEST(ShownTexts, NumbersKeepTheirOrderAndNamesOfKeysTheirDigits) {
  EXPECT_EQ(ShownNumber("1,250.5-"), QString::fromUtf8("۱,۲۵۰/۵-"));
  EXPECT_EQ(ShownText(std::string_view("خروج F2")), QString::fromUtf8("خروج F2"));
  EXPECT_EQ(ShownText(std::string_view("320-")), QString::fromUtf8("\u2066۳۲۰-\u2069"));
  EXPECT_EQ(ShownText(std::string_view("نسخه 1.2.3")), QString::fromUtf8("نسخه ۱.۲.۳"));
  EXPECT_TRUE(IsNumberLike("1403/01/02"));
  EXPECT_FALSE(IsNumberLike(QString::fromUtf8("کد 5")));
}

TEST(Marks, ThatABarHasMoreThanItShowsIsDrawnInTheInkOfTheLook) {
  HostStyle style;
  const QIcon icon = style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr);
  const QImage drawn = icon.pixmap(QSize(16, 16), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
  ASSERT_EQ(drawn.size(), QSize(16, 16));
  EXPECT_EQ(qAlpha(drawn.pixel(0, 0)), 0);
  int inked = 0;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) {
      if (qAlpha(drawn.pixel(x, y)) < 255) continue;
      ++inked;
      EXPECT_EQ(QColor(drawn.pixel(x, y)).name(), CurrentTheme().text.name());
    }
  }
  EXPECT_GT(inked, 4);
}

}  // namespace
}  // namespace goods::testing
