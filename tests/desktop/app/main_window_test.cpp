#include "desktop/app/main_window.h"

#include <QAction>
#include <QLabel>

#include "desktop/app/report_card.h"
#include "desktop/app/settings_dialog.h"
#include "goods_reports.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

using Main = DesktopTest;

TEST_F(Main, AUserWithoutRightsSeesEveryReportDisabledWithItsReason) {
  DesktopHost& host = HostFor("guest");
  MainWindow window(host, Module(), Settings(), "شرکت", "");
  window.show();
  const auto cards = window.findChildren<QPushButton*>();
  ASSERT_FALSE(cards.empty());
  for (const QPushButton* card : cards) {
    EXPECT_FALSE(card->isEnabled());
    EXPECT_TRUE(card->toolTip().startsWith("شما مجوز"));
    EXPECT_TRUE(card->toolTip().endsWith("ندارید."));
  }
  const auto* action = window.findChild<QAction*>("Open_GoodKardex_ACT");
  ASSERT_NE(action, nullptr);
  EXPECT_FALSE(action->isEnabled());
}

TEST_F(Main, OnlyReportsThatTheLibraryHasAreOffered) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), "شرکت", "");
  EXPECT_NE(window.findChild<QPushButton*>("Open_GoodKardex"), nullptr);
  for (const QPushButton* card : window.findChildren<QPushButton*>()) {
    EXPECT_TRUE(Module().Has(card->objectName().toUtf8().constData()));
  }
}

TEST_F(Main, TheGoodsListsStandFirstOfWhatTheLibraryHas) {
  std::vector<std::string> exports;
  for (const ReportDescription& report : MenuReports()) exports.emplace_back(report.exportName);
  ASSERT_GT(exports.size(), 2U);
  EXPECT_EQ(exports[0], "Open_GoodAmountAsset");
  EXPECT_EQ(exports[1], "Open_GoodCashAsset");
  DesktopHost& host = HostFor("admin");
  std::erase_if(exports, [&](const std::string& name) { return !Module().Has(name.c_str()); });
  MainWindow window(host, Module(), Settings(), "شرکت", "");
  std::vector<std::string> cards;
  for (const QPushButton* card : window.findChildren<QPushButton*>())
    cards.push_back(FromQt(card->objectName()));
  EXPECT_EQ(cards, exports);
}

TEST_F(Main, TheShortcutsOfTheCardsAreInTheirOrder) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), "شرکت", "");
  int place = 0;
  for (const QPushButton* card : window.findChildren<QPushButton*>()) {
    QStringList texts;
    for (const QLabel* label : card->findChildren<QLabel*>()) texts << label->text();
    EXPECT_TRUE(texts.contains(QString("Ctrl+%1").arg(++place % 10))) << FromQt(texts.join(" / "));
    const auto* action = window.findChild<QAction*>(card->objectName() + "_ACT");
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->shortcut(), QKeySequence(QString("Ctrl+%1").arg(place % 10)));
  }
  EXPECT_EQ(place, 10);
}

TEST_F(Main, F4ChoosesAndSignsNobodyOut) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), "شرکت", "");
  window.show();
  window.activateWindow();
  for (const QAction* action : window.findChildren<QAction*>())
    EXPECT_NE(action->shortcut(), QKeySequence(Qt::Key_F4)) << FromQt(action->text());
  PressKey(window, Qt::Key_F4);
  Wait(50);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(Main, EnterOnACardOpensItsReport) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), "شرکت", "");
  window.show();
  window.activateWindow();
  std::string opened;
  WhileModal([&](QWidget& report) {
    opened = FormOf(report).Caption();
    PressKey(report, Qt::Key_Escape);
  });
  window.findChild<QPushButton*>("Open_GoodKardex")->setFocus();
  PressKey(window, Qt::Key_Return);
  EXPECT_EQ(opened, "کاردکس کالا");
}

TEST_F(Main, TheStatusBarTellsCompanyUserAndDate) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), "شرکت آزمون", "");
  EXPECT_EQ(window.findChild<QLabel*>("StatusCompany_LBL")->text(), "شرکت: شرکت آزمون");
  EXPECT_EQ(window.findChild<QLabel*>("StatusUser_LBL")->text(),
            "کاربر: " + ShownText(host.Rights().UserInfo().Name));
  EXPECT_EQ(window.findChild<QLabel*>("StatusDate_LBL")->text(),
            "تاریخ: " + ShownText(host.Windows().NowDate()));
}

TEST_F(Main, ClosingTellsWhatTheUserWantsNext) {
  DesktopHost& host = HostFor("admin");
  const auto outcomeOf = [&](const char* action) {
    MainWindow window(host, Module(), Settings(), "شرکت", "");
    QAction* wanted = window.findChild<QAction*>(action);
    QMetaObject::invokeMethod(
        wanted, [wanted] { wanted->trigger(); }, Qt::QueuedConnection);
    return window.Run();
  };
  EXPECT_EQ(outcomeOf("SignOut_ACT"), MainOutcome::SignOut);
  EXPECT_EQ(outcomeOf("SwitchCompany_ACT"), MainOutcome::SwitchCompany);
  EXPECT_EQ(outcomeOf("Quit_ACT"), MainOutcome::Quit);
}

TEST_F(Main, TheDecimalsSayWhichReportTheyAreFor) {
  const SettingsDialog dialog(Settings());
  const auto* where = dialog.findChild<QLabel*>("Decimals_LBL");
  ASSERT_NE(where, nullptr);
  EXPECT_TRUE(where->text().contains(
      "«" + ToQt(kReports[static_cast<std::size_t>(ReportId::OverallTurnover)].title) + "»"));
}

TEST_F(Main, SeparatorsOfThousandsAreOffUntilTheyAreAskedFor) {
  EXPECT_FALSE(Settings().Options().ThousandsSeparators);
  SettingsDialog dialog(Settings());
  WhileModal([](QWidget& window) {
    Child(window, "ThousandsSeparators_CHK").setFocus();
    PressKey(window, Qt::Key_Space);
    PressKey(window, Qt::Key_Return);
  });
  dialog.exec();
  EXPECT_TRUE(DesktopSettings(folder_.filePath("settings")).Options().ThousandsSeparators);
  ApplyLook(Settings().Options());
  EXPECT_EQ(ShownCell("22308.525", true), "۲۲,۳۰۸/۵۲۵");
  ApplyLook({});
  EXPECT_EQ(ShownCell("22308.525", true), "۲۲۳۰۸/۵۲۵");
}

TEST_F(Main, SettingsAreKeptWhenAcceptedOnly) {
  const auto tickSecondUnit = [&](Qt::Key last) {
    SettingsDialog dialog(Settings());
    WhileModal([last](QWidget& window) {
      Child(window, "SecondUnit_CHK").setFocus();
      PressKey(window, Qt::Key_Space);
      PressKey(window, last);
    });
    dialog.exec();
  };
  tickSecondUnit(Qt::Key_Escape);
  EXPECT_FALSE(Settings().Settings().SecondUnit);
  tickSecondUnit(Qt::Key_Return);
  EXPECT_TRUE(Settings().Settings().SecondUnit);
  EXPECT_TRUE(DesktopSettings(folder_.filePath("settings")).Settings().SecondUnit);
}

}  // namespace
}  // namespace goods
