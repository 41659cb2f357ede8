// Every window and dialog on the screen of the program: run once by itself, and again on small screens and
// with factors (GOODS_TEST_SCREEN, see CMakeLists.txt).
#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QTabBar>
#include <utility>

#include "desktop/app/category_picker.h"
#include "desktop/app/company_chooser.h"
#include "desktop/app/entity_picker.h"
#include "desktop/app/help_viewer.h"
#include "desktop/app/help_windows.h"
#include "desktop/app/import_dialog.h"
#include "desktop/app/main_window.h"
#include "desktop/app/password_dialog.h"
#include "desktop/app/server_dialog.h"
#include "desktop/app/settings_dialog.h"
#include "desktop/app/sign_in.h"
#include "desktop/app/start_page.h"
#include "desktop/app/users_dialog.h"
#include "desktop/views/fit_area.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/screen_fit.h"
#include "desktop/windows/message_dialog.h"
#include "goods_reports.h"
#include "host/components/tabs.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

constexpr int kSettle = 600;  // milliseconds: longer than a search waits for further keys

// Whether something has changed on the screen since it was asked last.
class ScreenWatch : public QObject {
 public:
  ScreenWatch() { qApp->installEventFilter(this); }
  bool Changed() { return std::exchange(changed_, false); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Show:
      case QEvent::Hide:
      case QEvent::Move:
      case QEvent::Resize:
      case QEvent::LayoutRequest:
      case QEvent::UpdateRequest:
        changed_ = true;
        break;
      default:
        break;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  bool changed_ = false;
};

// Lets the message loop run until no widget has been shown, moved, laid out or painted for a tenth of a
// second, for five seconds at most.
void WaitUntilQuiet() {
  constexpr int kQuiet = 100;  // milliseconds
  constexpr int kMost = 50;
  ScreenWatch watch;
  for (int times = 0; times < kMost; ++times) {
    Wait(kQuiet);
    if (!watch.Changed()) return;
  }
}

std::string Named(const QWidget& widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  return FromQt(widget.objectName()) + (button == nullptr ? "" : " \"" + FromQt(button->text()) + "\"");
}

// Where the picture of each window goes; nowhere when empty.
void KeepPicture(QWidget& window) {
  const QString folder = qEnvironmentVariable("GOODS_TEST_PICTURES");
  static int number = 0;
  if (folder.isEmpty()) return;
  const QString name = QString("%1-%2-%3.png")
                           .arg(window.screen()->availableSize().width())
                           .arg(++number, 2, 10, QChar('0'))
                           .arg(window.objectName());
  PictureOf(window).save(folder + '/' + name);
}

// Whole, on the screen, and not cut by what it stands in.
void ExpectButtonsInView(QWidget& window) {
  for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    if (button->window() != &window || !button->isVisible() || button->size().isEmpty()) continue;
    // Its own arrows at the ends of a strip of tabs; cards that a page scrolls.
    if (qobject_cast<QTabBar*>(button->parentWidget()) != nullptr) continue;
    const QRect place(button->mapTo(&window, QPoint()), button->size());
    EXPECT_TRUE(window.rect().contains(place)) << Named(window) << ": " << Named(*button);
    EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect())
        << Named(window) << ": " << Named(*button);
  }
}

void ExpectOnScreen(QWidget& window) {
  WaitUntilQuiet();
  KeepPicture(window);
  const QRect screen = window.screen()->availableGeometry();
  const QRect frame = window.isMaximized() ? window.geometry() : window.frameGeometry();
  EXPECT_TRUE(screen.contains(frame)) << Named(window) << ' ' << frame.width() << 'x' << frame.height()
                                      << " at " << frame.x() << ',' << frame.y();
  if (const FitArea* area = FitArea::Of(window)) {
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << Named(window) << " is cut at a side";
  }
}

// The same with every button in view.
void ExpectWhole(QWidget& window) {
  ExpectOnScreen(window);
  ExpectButtonsInView(window);
}

void ExpectRowsInView(QWidget& window) {
  int highest = 0;
  for (const GridWidget* grid : window.findChildren<GridWidget*>()) {
    if (!grid->isVisible() || grid->window() != &window) continue;
    highest = std::max(highest, grid->visibleRegion().boundingRect().height());
    // Where reading starts: the first column is not scrolled away.
    EXPECT_EQ(grid->visibleRegion().boundingRect().right(), grid->rect().right()) << Named(*grid);
  }
  EXPECT_GE(highest, 150) << Named(window);
}

class Screens : public DesktopTest {
 protected:
  // A report's window, then its steps.
  void Shown(const std::function<void()>& open, const std::function<void(QWidget&)>& steps = {}) {
    bool shown = false;
    WhileModal([&](QWidget& window) {
      shown = true;
      ExpectWhole(window);
      ExpectRowsInView(window);
      if (steps) steps(window);
    });
    open();
    EXPECT_TRUE(shown);
    EXPECT_NO_THROW(RethrowFailure());
  }
  void Dialog(const std::function<void()>& open) {
    bool shown = false;
    WhileModal([&](QWidget& window) {
      shown = true;
      ExpectWhole(window);
      while (window.isVisible() && &window == QApplication::activeModalWidget()) {
        PressKey(window, Qt::Key_Escape);
        Wait(20);
      }
    });
    open();
    EXPECT_TRUE(shown);
    EXPECT_NO_THROW(RethrowFailure());
  }
  static void Criteria(QWidget& window) {
    WhileModal([](QWidget& dialog) { ExpectWhole(dialog); });
    PressKey(window, Qt::Key_F10, Qt::ControlModifier);
    WaitUntilQuiet();
  }
  static void Preview(QWidget& window) {
    WhileModal([](QWidget& preview) { ExpectWhole(preview); });
    PressKey(window, Qt::Key_F9);
    WaitUntilQuiet();
  }
};

TEST_F(Screens, StockCards) {
  DesktopHost& host = HostFor("admin");
  host.Settings().Settings().SecondUnit = true;
  const std::int64_t good = BusiestGood(Company());
  Shown([&] { Module().Call("Open_GoodKardex"); },
        [&](QWidget& window) {
          WhileModal([](QWidget& picker) { ExpectWhole(picker); });
          Child(window, "Good_SEF.Code_EDT").setFocus();
          PressKey(window, Qt::Key_F4);
          TypeGood(window, good);
          PressKey(window, Qt::Key_2, Qt::AltModifier);
          ExpectWhole(window);
          Preview(window);
          WhileModal([](QWidget& charts) { ExpectWhole(charts); });
          PressKey(window, Qt::Key_F11);
          Wait(3 * kSettle);
          WhileModal([](QWidget& document) { ExpectWhole(document); });
          PressKey(window, Qt::Key_F2);
        });
  Shown([&] { Module().OpenKardex(good, 1, "1402/01/01", "1403/06/31"); });
  Shown([&] { Module().Call("Open_KardexSearch"); }, [](QWidget& window) { Criteria(window); });
  Shown([&] { Module().OpenKardexNegativ("1", "0", "0"); });
}

TEST_F(Screens, Turnover) {
  DesktopHost& host = HostFor("admin");
  TSettings& settings = host.Settings().Settings();
  settings.SecondUnit = settings.SecondUnitIsLarger = settings.WholeAndPart = settings.GoodsDetail = true;
  for (const char* exportName : {"Open_GoodAmountAsset", "Open_GoodCashAsset"}) {
    Shown([&] { Module().Call(exportName); },
          [&](QWidget& window) {
            Component<TButton>(window, "Tags_btn").Click();
            ExpectWhole(window);
            Criteria(window);
            Preview(window);
          });
  }
  Shown([&] { Module().Call("Open_GoodTrans_Overall"); },
        [](QWidget& window) {
          Component<TCheckBox>(window, "Period_PNL.Date_CHK").SetChecked(true);
          PressKey(window, Qt::Key_F2, Qt::ControlModifier);
          ExpectWhole(window);
        });
  Shown([&] { Module().Call("Open_GoodsAsset_Store"); },
        [](QWidget& window) {
          Component<TCheckBox>(window, "Period_PNL.Date_CHK").SetChecked(true);
          PressKey(window, Qt::Key_F2, Qt::ControlModifier);
          ExpectWhole(window);
        });
}

TEST_F(Screens, Details) {
  DesktopHost& host = HostFor("admin");
  host.Settings().Settings().SecondUnit = true;
  const auto details = [&](QWidget& window) {
    Component<TRadioButton>(window, "StoresSeparations_RDB").SetChecked(true);
    Wait(2 * kSettle);
    WhileModal([](QWidget& good) {
      ExpectWhole(good);
      ExpectRowsInView(good);
      Criteria(good);
    });
    Component<TButton>(window, "OpenInfo_BTN").Click();
    Criteria(window);
  };
  Shown([&] { Module().Call("Open_DetailTransactions"); }, details);
  Shown([&] {
    Module().OpenGoodDetailTransactions(BusiestGood(Company()), false, 0, false, "", "", false, "", false,
                                        "");
  });
  Shown([&] { Module().Call("Open_SearchInDetailTransactions"); }, [](QWidget& window) { Criteria(window); });
  Shown([&] { Module().Call("Open_DetailKardexAsset_Dismatch"); },
        [](QWidget& window) {
          Component<TRadioButton>(window, "StoresSeparations_RDB").SetChecked(true);
          Wait(kSettle);
          WhileModal([](QWidget& rows) {
            ExpectWhole(rows);
            Criteria(rows);
          });
          PressKey(window, Qt::Key_F2);
        });
}

TEST_F(Screens, TheMainWindow) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), QString("شرکت بازرگانی ").repeated(20), "");
  window.show();
  window.activateWindow();
  ExpectOnScreen(window);
  const auto* page = window.findChild<StartPage*>();
  ASSERT_NE(page, nullptr);
  EXPECT_EQ(page->horizontalScrollBar()->maximum(), 0);
  for (const QAbstractButton* card : page->findChildren<QAbstractButton*>()) {
    if (!card->isVisible()) continue;
    EXPECT_EQ(card->mapTo(page->widget(), QPoint()).x() >= 0 &&
                  card->mapTo(page->widget(), QPoint(card->width(), 0)).x() <= page->viewport()->width(),
              true)
        << Named(*card);
  }
  EXPECT_LE(window.menuBar()->sizeHint().width(), window.width());
}

TEST_F(Screens, Dialogs) {
  DesktopHost& host = HostFor("admin");
  MainWindow window(host, Module(), Settings(), "شرکت", "");
  window.show();
  Dialog([&] { SignInDialog(Company(), "admin", "راهنما").Ask(); });
  Dialog([&] { CompanyChooser(Settings(), [] { return QString(); }).Choose(); });
  Dialog([&] { UsersDialog(Company().Users(), 1, &window).exec(); });
  WhileModal([](QWidget& users) {
    WhileModal([](QWidget& user) { ExpectWhole(user); });
    PressKey(users, Qt::Key_F2);
  });
  UsersDialog(Company().Users(), 1, &window).exec();
  Dialog([&] {
    PasswordDialog(
        "admin", true, [](auto&&...) {}, &window)
        .exec();
  });
  Dialog([&] { ServerDialog("server:SERVER=10.0.0.5;DATABASE=Sherkat;UID=anbar").Ask(); });
  Dialog([&] { SettingsDialog(Settings(), &window).exec(); });
  Dialog([&] { EntityPicker(Company(), EntityKind::Good, 0, "", &window).Choose(); });
  Dialog([&] { CategoryPicker(host.Lookups().Categories(), {}, &window).Choose(); });
  Dialog([&] { ImportDialog(folder_.path(), &window).Make(); });
  Dialog([&] { ShowKeysWindow(&window); });
  Dialog([&] { ShowAboutWindow(&window); });
  OpenHelp(window, "stock-card.md");
  QWidget* help = window.findChild<HelpViewer*>();
  ASSERT_NE(help, nullptr);
  ExpectWhole(*help);
}

TEST_F(Screens, AMessageOfAnyLengthAndItsDetails) {
  ShownMessage message;
  message.caption = "پیام";
  message.text =
      FromQt(QString("خواندن اطلاعات ناتمام ماند و ردیف‌ها نشان داده "
                     "نشدند.\n")
                 .repeated(60));
  message.details = "Exec Kardex_Proc 12";
  message.icon = MessageIcon::Error;
  bool shown = false;
  WhileModal([&](QWidget& window) {
    shown = true;
    ExpectWhole(window);
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
      if (button->isCheckable()) button->click();
    }
    ExpectWhole(window);
    ASSERT_NE(FitArea::Of(window), nullptr);
    PressKey(window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
  });
  MessageDialog(message, nullptr).exec();
  EXPECT_TRUE(shown);
}

TEST_F(Screens, AWindowThatIsTooWideFoldsItsRowsAndUnfoldsThem) {
  HostFor("admin");
  Shown([&] { Module().Call("Open_GoodKardex"); },
        [](QWidget& window) {
          PressKey(window, Qt::Key_2, Qt::AltModifier);
          Wait(100);
          const QWidget& row = Child(window, "Filters_PNL");
          window.showNormal();
          const QSize room = RoomFor(window);
          window.resize(room);
          WaitUntilQuiet();
          const int wide = row.height();
          window.resize(std::min(560, room.width()), room.height());
          EXPECT_TRUE(WaitUntil([&] { return row.height() > wide; }));
          WaitUntilQuiet();
          ExpectButtonsInView(window);
          window.resize(room);
          EXPECT_TRUE(WaitUntil([&] { return row.height() == wide; }));
        });
}

}  // namespace
}  // namespace goods
