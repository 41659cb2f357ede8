// Paper, files and many cards at once, as a user drives them by keys.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTextBrowser>
#include <QTimer>

#include "desktop/print/preview_window.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/keyboard_marks.h"
#include "host/base/base_dock.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

// Drives the next window of that name once it is shown; it must close itself.
class NextWindow : public QObject {
 public:
  NextWindow(QString name, std::function<void(QWidget&)> steps)
      : name_(std::move(name)), steps_(std::move(steps)) {
    startTimer(20);
  }
  bool Done() const { return done_; }

 protected:
  void timerEvent(QTimerEvent* event) override {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || window->objectName() != name_ || !window->isVisible()) return;
    killTimer(event->timerId());
    Wait(100);
    steps_(*window);
    done_ = true;
    if (window->isVisible()) window->close();
  }

 private:
  QString name_;
  std::function<void(QWidget&)> steps_;
  bool done_ = false;
};

class PaperByKeys : public DesktopTest {
 protected:
  PaperByKeys() { QDesktopServices::setUrlHandler("file", &opened_, "setSource"); }
  ~PaperByKeys() override { QDesktopServices::unsetUrlHandler("file"); }

  static GridWidget& TableOf(QWidget& window, const char* grid) {
    return dynamic_cast<GridWidget&>(
        *dynamic_cast<FormView&>(window).WidgetOf(Component<TSmartDBGrid_QRT>(window, grid)));
  }
  // Chooses an entry of the table's menu; false where it is not offered.
  static bool Choose(QWidget& window, const char* grid, const QString& entry) {
    GridWidget& table = TableOf(window, grid);
    QAction* wanted = nullptr;
    QTimer::singleShot(0, [&] {
      auto* menu = window.findChild<QMenu*>("GridMenu");
      if (menu == nullptr) return;
      for (QAction* action : menu->actions())
        if (WithoutMark(action->text()).startsWith(entry)) wanted = action;
      // The command runs when the menu has closed, as after a click.
      if (wanted != nullptr) menu->setActiveAction(wanted);
      QKeyEvent key(QEvent::KeyPress, wanted != nullptr ? Qt::Key_Return : Qt::Key_Escape, Qt::NoModifier);
      QApplication::sendEvent(menu, &key);
    });
    const QPoint point = table.viewport()->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, point, table.viewport()->mapToGlobal(point));
    QApplication::sendEvent(table.viewport(), &event);
    return wanted != nullptr;
  }

  QTextBrowser opened_;
};

TEST_F(PaperByKeys, WhatIsChosenForAReportsPaperIsThereTheNextTime) {
  HostFor("admin");
  const auto preview = [&](std::function<void(PreviewWindow&)> steps) {
    WhileModal([&, steps](QWidget& window) {
      TypeGood(window, BusiestGood(Company()));
      WhileModal([&](QWidget& shown) { steps(dynamic_cast<PreviewWindow&>(shown)); });
      PressKey(window, Qt::Key_F9);
    });
    Module().Call("Open_GoodKardex");
    RethrowFailure();
  };
  QString pages;
  QString largerPages;
  preview([&](PreviewWindow& shown) {
    pages = dynamic_cast<QLabel&>(Child(shown, "Page")).text();
    WhileModal([&](QWidget& dialog) {
      Child(dialog, "TextSize_CMB").setFocus();
      PressKey(dialog, Qt::Key_End);  // the largest
      Wait(50);
      PressKey(dialog, Qt::Key_Return);
    });
    PressKey(shown, Qt::Key_E, Qt::ControlModifier);
    largerPages = dynamic_cast<QLabel&>(Child(shown, "Page")).text();
  });
  EXPECT_NE(pages, largerPages);
  EXPECT_EQ(Settings().ReadSection("Paper-Kardex_FRM-509"), "text=16\n");
  preview([&](PreviewWindow& shown) {
    EXPECT_EQ(dynamic_cast<QLabel&>(Child(shown, "Page")).text(), largerPages);
    WhileModal([&](QWidget& dialog) {
      Child(dialog, "TextSize_CMB").setFocus();
      PressKey(dialog, Qt::Key_Home);
      Wait(50);
      PressKey(dialog, Qt::Key_Escape);  // given up
    });
    PressKey(shown, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(dynamic_cast<QLabel&>(Child(shown, "Page")).text(), largerPages);
  });
  EXPECT_EQ(Settings().ReadSection("Paper-Kardex_FRM-509"), "text=16\n");
}

TEST_F(PaperByKeys, AFileThatIsSavedCanBeOpenedOrItsFolder) {
  HostFor("admin");
  const auto save = [&](const QString& file, const char* button) {
    WhileModal([&](QWidget& window) {
      TypeGood(window, BusiestGood(Company()));
      WhileModal([&](QWidget& preview) {
        NextWindow saved("Saved_DLG", [&](QWidget& dialog) {
          EXPECT_EQ(dynamic_cast<QLabel&>(Child(dialog, "File_LBL")).text(), QFileInfo(file).fileName());
          Child(dialog, button).setFocus();
          PressKey(dialog, Qt::Key_Space);
        });
        WhileModal([&](QWidget& dialog) {
          auto& name = dynamic_cast<QLineEdit&>(Child(dialog, "fileNameEdit"));
          EXPECT_TRUE(name.text().startsWith("کاردکس کالا ")) << FromQt(name.text());
          EXPECT_TRUE(name.text().endsWith(".pdf"));
          name.setText(file);
          name.setFocus();
          PressKey(dialog, Qt::Key_Return);
        });
        PressKey(preview, Qt::Key_S, Qt::ControlModifier);
        EXPECT_TRUE(saved.Done());
      });
      PressKey(window, Qt::Key_F9);
    });
    Module().Call("Open_GoodKardex");
    RethrowFailure();
    EXPECT_TRUE(QFileInfo::exists(file));
  };
  const QString file = folder_.filePath("کارت.pdf");
  save(file, "OpenFile_BTN");
  EXPECT_EQ(opened_.source(), QUrl::fromLocalFile(file));
  save(folder_.filePath("دوم.pdf"), "OpenFolder_BTN");
  EXPECT_EQ(opened_.source(), QUrl::fromLocalFile(QFileInfo(file).absolutePath()));
}

TEST_F(PaperByKeys, TheCardsOfTheSelectedGoodsArePrintedInOneGo) {
  HostFor("admin");
  std::size_t statements = 0;
  WhileModal([&](QWidget& window) {
    Wait(500);
    auto& grid = Component<TSmartDBGrid_QRT>(window, "GoodTransactin_List_GRD");
    ASSERT_GT(grid.RowCount(), 5U);
    Child(window, "GoodTransactin_List_GRD").setFocus();
    PressKey(window, Qt::Key_Home, Qt::ControlModifier);
    PressKey(window, Qt::Key_Down, Qt::ShiftModifier);
    PressKey(window, Qt::Key_Down, Qt::ShiftModifier);
    ASSERT_EQ(grid.Selection().size(), 3U);
    const std::set<std::size_t> selection = grid.Selection();
    const auto row = grid.DataSet()->RecNo();
    NextWindow preview("PreviewWindow", [&](QWidget& shown) {
      EXPECT_TRUE(shown.windowTitle().contains("کاردکس کالا (" + ShownDigits("3") + ")"))
          << FromQt(shown.windowTitle());
      auto& pages = dynamic_cast<PreviewWindow&>(shown);
      const QString file = folder_.filePath("cards.pdf");
      ASSERT_TRUE(pages.SaveAsPdf(file));
      pages.GoToPage(1'000'000);
      EXPECT_GE(pages.CurrentPage(), 3);
      PressKey(shown, Qt::Key_Escape);
    });
    EXPECT_TRUE(Choose(window, "GoodTransactin_List_GRD", "چاپ کاردکس"));
    EXPECT_TRUE(preview.Done());
    EXPECT_EQ(grid.Selection(), selection);
    EXPECT_EQ(grid.DataSet()->RecNo(), row);
    EXPECT_EQ(QApplication::activeModalWidget(), &window) << "no card is left open";
  });
  Module().Call("Open_GoodAmountAsset");
  RethrowFailure();
  const std::string log = Written(Path("statements.log"));
  for (std::size_t at = log.find("Exec Kardex_Proc "); at != std::string::npos;
       at = log.find("Exec Kardex_Proc ", at + 1))
    ++statements;
  EXPECT_EQ(statements, 3U);
}

TEST_F(PaperByKeys, OtherListsDoNotOfferCards) {
  HostFor("admin");
  WhileModal([&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    EXPECT_FALSE(Choose(window, "Kardex_GRD", "چاپ کاردکس"));
  });
  Module().Call("Open_GoodKardex");
  RethrowFailure();
}

// Every right but the one to print stock cards.
class NoPrintedCards : public IRights {
 public:
  explicit NoPrintedCards(CompanyRights& given) : given_(given) {}
  const TUserInfo& UserInfo() const override { return given_.UserInfo(); }
  bool HavePermission(const TUserInfo& user, int part, int permission, bool show, bool logged,
                      std::string_view text) override {
    if (part == kPartStockCard && permission == kPermissionPrintList) return false;
    return given_.HavePermission(user, part, permission, show, logged, text);
  }
  void SetUserEvent(int part, int permission, std::int64_t code) override {
    given_.SetUserEvent(part, permission, code);
  }

 private:
  CompanyRights& given_;
};

TEST_F(PaperByKeys, WhoMayNotPrintCardsGetsNone) {
  OwnServices own;
  own.rights = [](CompanyRights& given) { return std::make_unique<NoPrintedCards>(given); };
  ModuleLibrary module(GOODS_MODULE_FILE);
  DesktopHost host(Company(), *Company().SignIn("admin", "admin"), Settings(), module, nullptr, {},
                   std::move(own));
  module.Attach(host);
  host.Messages().SetUnattended([](const ShownMessage&) { return true; });
  WhileModal([&](QWidget& window) {
    Wait(500);
    NextWindow preview("PreviewWindow", [](QWidget&) {});
    EXPECT_TRUE(Choose(window, "GoodTransactin_List_GRD", "چاپ کاردکس"));
    Wait(200);
    EXPECT_FALSE(preview.Done());
    EXPECT_EQ(QApplication::activeModalWidget(), &window);
  });
  module.Call("Open_GoodAmountAsset");
  RethrowFailure();
  module.Detach();
}

}  // namespace
}  // namespace goods
