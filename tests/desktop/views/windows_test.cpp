// Modal windows, posted messages, waiting, messages.
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

#include "desktop/windows/message_dialog.h"
#include "host/core/jalali.h"
#include "host/data/blocking_work.h"
#include "tests/desktop/views/kit.h"
#include "tests/desktop/views/parts_form.h"

namespace goods::testing {
namespace {

// Does something once the loop of the window that is opened next runs.
void Later(const std::function<void()>& action, int ms = 0) { QTimer::singleShot(ms, qApp, action); }

TEST(Windows, AModalWindowRunsUntilItHasAResult) {
  TestHost host;
  TCard_FRM form(host);
  Later([&] {
    EXPECT_EQ(host.windows.ActiveWindow(), &form);
    EXPECT_NE(host.windows.ViewOf(form), nullptr);
    EXPECT_NE(form.ActiveControl(), nullptr);
    form.SetModalResult(kModalOk);
  });
  EXPECT_EQ(form.ShowModal(), kModalOk);
  EXPECT_EQ(host.windows.ActiveWindow(), nullptr);
  EXPECT_EQ(host.windows.ViewOf(form), nullptr);
}

TEST(Windows, TheWindowsOwnCloseButtonClosesTheForm) {
  TestHost host;
  TCard_FRM form(host);
  Later([&] { host.windows.ViewOf(form)->close(); });
  EXPECT_EQ(form.ShowModal(), kModalCancel);
}

TEST(Windows, EscClosesThroughTheFormsOwnButton) {
  TestHost host;
  TCard_FRM form(host);
  Later([&] { QTest::keyClick(host.windows.ViewOf(form), Qt::Key_Escape); });
  EXPECT_EQ(form.ShowModal(), kModalCancel);
}

TEST(Windows, ModalWindowsNestAndAKeptOneOpensAgain) {
  TestHost host;
  TCard_FRM outer(host);
  TCard_FRM inner(host);
  int innerResult = 0;
  for (int round = 0; round < 2; ++round) {
    Later([&] {
      Later([&] {
        EXPECT_EQ(host.windows.ActiveWindow(), &inner);
        inner.SetModalResult(kModalOk);
      });
      innerResult = inner.ShowModal();
      EXPECT_EQ(host.windows.ActiveWindow(), &outer);
      outer.Close();
    });
    EXPECT_EQ(outer.ShowModal(), kModalCancel);
    EXPECT_EQ(innerResult, kModalOk);
  }
}

TEST(Windows, AnErrorWhileShowingIsToldAndTheWindowIsShownAllTheSame) {
  TestHost host;
  host.messages.SetUnattended([](const ShownMessage&) { return true; });
  TCard_FRM form(host);
  form.OnShow = [] { throw ConnectionLost("read from server failed", "Exec X"); };
  Later([&] { form.Close(); });
  form.ShowModal();
  ASSERT_EQ(host.messages.Shown().size(), 1U);
  EXPECT_NE(host.messages.Shown()[0].text.find("ارتباط"), std::string::npos);
}

TEST(Windows, PostedMessagesArriveLaterAndInOrder) {
  TestHost host;
  TCard_FRM form(host);
  host.windows.PostMessage(form, 9035);
  host.windows.PostMessage(form, 9036);
  EXPECT_TRUE(form.messages.empty());
  host.windows.ProcessMessages([&] { return form.messages.size() == 2; });
  EXPECT_EQ(form.messages, (std::vector<int>{9035, 9036}));
}

TEST(Windows, AMessageToAWindowThatIsGoneNeverArrives) {
  TestHost host;
  auto form = std::make_unique<TCard_FRM>(host);
  host.windows.PostMessage(*form, 9035);
  form.reset();
  Settle();
  // Another window at the same address must not get it, either.
  form = std::make_unique<TCard_FRM>(host);
  Settle();
  EXPECT_TRUE(form->messages.empty());
}

TEST(Windows, ProcessMessagesEndsWhenTimeAloneMakesTheConditionTrue) {
  TestHost host;
  const std::uint64_t start = host.windows.TickCount();
  host.windows.ProcessMessages([&] { return host.windows.TickCount() - start >= 60; });
  EXPECT_GE(host.windows.TickCount() - start, 60U);
  EXPECT_LT(host.windows.TickCount() - start, 2000U);
}

TEST(Windows, QuitEndsEveryLoop) {
  TestHost host;
  TCard_FRM form(host);
  Later([&] {
    host.windows.Quit();
    host.windows.ProcessMessages([] { return false; });
  });
  EXPECT_EQ(form.ShowModal(), kModalCancel);
}

TEST(Windows, TodayIsAJalaliDateAndTheLayoutIsRemembered) {
  TestHost host;
  EXPECT_TRUE(IsValidJalali(host.windows.NowDate()));
  host.windows.ActivateKeyboardLayout("00000429");
  EXPECT_EQ(host.windows.KeyboardLayout(), "00000429");
}

TEST(Waiting, EscCancelsAStatementThoughKeysAreHeldAndNothingElseGetsThroughMeanwhile) {
  TestHost host;
  TCard_FRM form(host);
  bool cancelled = false;
  int folds = -1;
  std::string shown;
  Later([&] {
    const WaitingScope waiting(host.waiting, &form, "سیستم در حال تهیه گزارش می باشد.");
    Later(
        [&] {
          shown = host.waiting.ShownText();
          QTest::keyClick(host.windows.ViewOf(form), Qt::Key_2, Qt::AltModifier);
          QTest::keyClick(host.windows.ViewOf(form), Qt::Key_Escape);
        },
        250);
    try {
      form.Fill(4000000, "slow");
    } catch (const StatementCancelled&) {
      cancelled = true;
    }
    folds = form.folds;
    EXPECT_TRUE(host.waiting.PanelVisible());
  });
  Later([&] { form.Close(); }, 300);
  form.ShowModal();
  EXPECT_TRUE(cancelled);
  EXPECT_EQ(folds, 0);
  EXPECT_NE(shown.find("سیستم در حال تهیه گزارش"), std::string::npos);
  EXPECT_NE(shown.find("ردیف خوانده شد"), std::string::npos);
  EXPECT_FALSE(form.Kardex_QRY.Active());
  EXPECT_FALSE(host.waiting.PanelVisible());
}

// A connection whose driver blocks, deaf to every wish to stop, and counts rows before it does.
class BlockingConnection : public IConnection {
 public:
  static constexpr int kBlocksMs = 3000;
  void Open(std::string_view statement, RowStore& /*into*/, IStatementProgress* progress) override {
    const auto rows = std::make_shared<std::atomic<std::size_t>>(0);
    const WorkOutcome outcome = BlockingWork::Run(
        progress, rows,
        [rows] {
          rows->store(1234);
          QThread::msleep(kBlocksMs);
        },
        [] {});
    if (outcome != WorkOutcome::Ended) throw StatementCancelled("cancelled", std::string(statement));
  }
  void Execute(std::string_view /*statement*/, IStatementProgress* /*progress*/) override {}
};

TEST(Waiting, AWindowLivesWhileTheDriverBlocksAndEscReturnsAtOnce) {
  TestHost host;
  BlockingConnection blocking;
  WaitingConnection connection(blocking, host.waiting);
  TCard_FRM form(host);
  TADOQuery query(&form, "Blocked_QRY", connection);
  query.SetSQL("Exec Blocks");
  int ticks = 0;
  QTimer ticking;
  QObject::connect(&ticking, &QTimer::timeout, [&] { ++ticks; });
  std::string shown;
  QElapsedTimer sinceEsc;
  bool cancelled = false;
  qint64 returned = BlockingConnection::kBlocksMs;
  Later([&] {
    ticking.start(50);
    Later(
        [&] {
          shown = host.waiting.ShownText();
          sinceEsc.start();
          QTest::keyClick(host.windows.ViewOf(form), Qt::Key_Escape);
        },
        1000);
    try {
      query.Open();
    } catch (const StatementCancelled&) {
      cancelled = true;
      returned = sinceEsc.elapsed();
    }
    form.Close();
  });
  form.ShowModal();
  EXPECT_TRUE(cancelled);
  EXPECT_LT(returned, BlockingConnection::kBlocksMs / 2);  // long before the driver lets go
  EXPECT_GE(ticks, 5);
  EXPECT_NE(shown.find("۱,۲۳۴"), std::string::npos) << shown;
  EXPECT_FALSE(query.Active());
}

// 40,000,000 rows of a "slow" statement would take longer than the test waits: Esc ends it after a second.
TEST(Waiting, KeysTypedDuringARunOfASecondAreDeliveredAfterItInOrder) {
  TestHost host;
  TCard_FRM form(host);
  std::string during;
  QElapsedTimer ran;
  Later([&] {
    QWidget* edit = host.windows.WidgetOf(form.Search_EDT);
    form.Search_EDT.SetFocus();
    Settle();
    ran.start();
    Later([&] { QTest::keyClicks(edit, "ab"); }, 300);
    Later([&] { QTest::keyClicks(edit, "cd"); }, 600);
    Later([&] { QTest::keyClick(edit, Qt::Key_Backspace); }, 700);
    Later([&] { QTest::keyClick(edit, Qt::Key_2, Qt::AltModifier); }, 800);
    Later(
        [&] {
          during = form.Search_EDT.Text();
          QTest::keyClick(edit, Qt::Key_Escape);
        },
        1000);
    EXPECT_THROW(form.Fill(40000000, "slow"), StatementCancelled);
    EXPECT_GE(ran.elapsed(), 1000);
    EXPECT_EQ(form.Search_EDT.Text(), "");
    QTest::keyClick(edit, Qt::Key_E);  // typed after the others
    host.windows.ProcessMessages([&] { return form.folds > 0; });
    host.windows.ProcessMessages([&] { return form.Search_EDT.Text().size() == 4; });
    form.Close();
  });
  form.ShowModal();
  EXPECT_EQ(during, "");
  EXPECT_EQ(form.Search_EDT.Text(), "abce");
  EXPECT_EQ(form.folds, 1);
}

TEST(Waiting, AKeyThatOpensAWindowIsFollowedByKeysInThatWindow) {
  TestHost host;
  TCard_FRM form(host);
  TCard_FRM second(host);
  form.OpenInfo_BTN.OnClick = [&] {
    second.OnShow = [&] { second.Search_EDT.SetFocus(); };
    second.ShowModal();
  };
  Later([&] {
    QWidget* view = host.windows.ViewOf(form);
    Later(
        [view] {
          QTest::keyClick(view, Qt::Key_F2);
          QTest::keyClicks(view, "xy");
          QTest::keyClick(view, Qt::Key_Escape);
        },
        300);
    EXPECT_THROW(form.Fill(40000000, "slow"), StatementCancelled);
    Later([&] { second.Close(); }, 500);
    Later([&] { form.Close(); }, 600);
  });
  form.ShowModal();
  EXPECT_EQ(second.Search_EDT.Text(), "xy");
  EXPECT_EQ(form.Search_EDT.Text(), "");
}

TEST(Waiting, KeysTypedBeforeAMessageAppearedDoNotAnswerIt) {
  TestHost host;
  TCard_FRM form(host);
  bool open = false;
  Later([&] {
    QWidget* view = host.windows.ViewOf(form);
    Later(
        [view] {
          QTest::keyClick(view, Qt::Key_Return);
          QTest::keyClick(view, Qt::Key_Space);
          QTest::keyClick(view, Qt::Key_Escape);
        },
        300);
    EXPECT_THROW(form.Fill(40000000, "slow"), StatementCancelled);
    Later(
        [&open] {
          auto* dialog = dynamic_cast<MessageDialog*>(QApplication::activeModalWidget());
          open = dialog != nullptr;
          if (dialog != nullptr) dialog->reject();
        },
        300);
    host.messages.ShowError(std::runtime_error("deadlock"));
    form.Close();
  });
  form.ShowModal();
  EXPECT_TRUE(open);
}

TEST(Waiting, AQuickStatementShowsNothing) {
  TestHost host;
  TCard_FRM form(host);
  FormView view(form);
  view.show();
  bool seen = false;
  struct Watch : QObject {
    bool* seen;
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() == QEvent::Show && watched->objectName() == "WaitingPanel") *seen = true;
      return false;
    }
  } watch;
  watch.seen = &seen;
  qApp->installEventFilter(&watch);
  {
    const WaitingScope waiting(host.waiting, &form, "…");
    form.Fill(9000);
  }
  Settle();
  EXPECT_FALSE(seen);
}

TEST(Waiting, PostedMessagesWaitForTheStatementsEnd) {
  TestHost host;
  TCard_FRM form(host);
  std::size_t during = 99;
  Later([&] {
    host.windows.PostMessage(form, 9037);
    Later([&] { during = form.messages.size(); }, 220);
    form.Fill(400000, "slow");
    host.windows.ProcessMessages([&] { return !form.messages.empty(); });
    form.Close();
  });
  form.ShowModal();
  EXPECT_EQ(during, 0U);
  EXPECT_EQ(form.messages, (std::vector<int>{9037}));
}

TEST(Messages, TheHostsOwnWordings) {
  TestHost host;
  host.messages.SetUnattended([](const ShownMessage& message) { return message.question; });
  host.messages.ShowSmartMessage(kMessageNotPossibleBecause, "غیرثبتی بودن آن");
  host.messages.MsgWithoutGardesh("کالا");
  host.messages.OpenOther("فايل مورد نظر توسط بخش", "بخش مشابه");
  EXPECT_TRUE(host.messages.Ask("ادامه می‌دهید؟", ""));
  host.messages.ShowError(StatementCancelled("cancelled", "Exec X"));
  const auto& shown = host.messages.Shown();
  ASSERT_EQ(shown.size(), 4U);
  EXPECT_EQ(shown[0].text, "به دلیل غیرثبتی بودن آن امکان انجام این عملیات وجود ندارد.");
  EXPECT_EQ(shown[1].text, "«کالا» گردشی ندارد.");
  EXPECT_EQ(shown[2].text, "فايل مورد نظر توسط بخش «بخش مشابه» باز شده است.");
}

TEST(Messages, ABoxIsAnsweredByItsPersianButtons) {
  TestHost host;
  Later(
      [] {
        auto* dialog = dynamic_cast<MessageDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->layoutDirection(), Qt::RightToLeft);
        QTest::mouseClick(dialog->findChild<QPushButton*>("Reject"), Qt::LeftButton);
      },
      30);
  EXPECT_FALSE(host.messages.Ask("حذف شود؟", "حذف"));
}

TEST(Messages, ABalloonStandsBesideItsControlAndGoesWithTheNextKey) {
  TestHost host;
  TCard_FRM form(host);
  Later([&] {
    host.messages.ShowTooltipMessage(form.Search_EDT, "این تاریخ وجود ندارد.");
    QWidget* edit = host.windows.WidgetOf(form.Search_EDT);
    const QWidget* balloon = edit->findChild<QWidget*>("Balloon");
    EXPECT_NE(balloon, nullptr);
    QTest::keyClick(edit, Qt::Key_A);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(edit->findChild<QWidget*>("Balloon") != nullptr &&
                 edit->findChild<QWidget*>("Balloon")->isVisible());
    form.Close();
  });
  form.ShowModal();
}

// Settings of this test alone, as an application with a name keeps them.
class NamedApplication {
 public:
  NamedApplication() {
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.path());
    QCoreApplication::setOrganizationName("test");
  }
  ~NamedApplication() { QCoreApplication::setOrganizationName({}); }

 private:
  QTemporaryDir folder_;
};

TEST(Windows, ABorderThatWasDraggedStandsThereInTheNextWindowOfItsKind) {
  const NamedApplication application;
  TestHost host;
  const auto widthAfter = [&host](int dragged) {
    TParts_FRM form(host);
    int shown = 0;
    Later([&] {
      shown = form.GoodGroup_DBG.Width();
      if (dragged > 0) form.GoodGroup_DBG.SetWidth(dragged);
      form.Close();
    });
    form.ShowModal();
    return shown;
  };
  EXPECT_EQ(widthAfter(0), 200);
  EXPECT_EQ(widthAfter(0), 200);  // nothing was dragged, so nothing is kept
  EXPECT_TRUE(QSettings().allKeys().filter("borders/").isEmpty());
  EXPECT_EQ(widthAfter(264), 200);
  EXPECT_EQ(widthAfter(0), 264);
  const QString key = QSettings().allKeys().filter("borders/").value(0);
  for (const QVariant& spoilt : {QVariant(-3), QVariant(100'000), QVariant("wide")}) {
    QSettings().setValue(key, QVariantMap{{"GoodGroup_DBG", spoilt}});
    EXPECT_EQ(widthAfter(0), 200);
  }
}

}  // namespace
}  // namespace goods::testing
