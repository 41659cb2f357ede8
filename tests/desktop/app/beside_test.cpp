// A second report beside the first.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QTimer>

#include "desktop/views/keyboard_marks.h"
#include "host/base/base_dock.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class Beside : public DesktopTest {
 protected:
  static FormView* Shown(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* view = dynamic_cast<FormView*>(window);
      if (view != nullptr && view->isVisible() && view->Form().Name() == name) return view;
    }
    return nullptr;
  }
  // Ctrl+N in the window, and Enter on the entry of that report; then the steps, in which the window that was
  // opened must be closed. Returns when it is.
  static void OpenBeside(QWidget& window, const QString& title, std::function<void()> steps) {
    QTimer::singleShot(100, &window, [&, title] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      EXPECT_EQ(menu->objectName(), "Beside_MNU");
      for (QAction* action : menu->actions())
        if (WithoutMark(action->text()) == title) menu->setActiveAction(action);
      QTimer::singleShot(500, &window, steps);
      PressKey(*menu, Qt::Key_Return);
    });
    PressKey(window, Qt::Key_N, Qt::ControlModifier);
  }
};

TEST_F(Beside, TwoReportsAreUsedInTurn) {
  HostFor("admin");
  bool used = false;
  WhileModal([&](QWidget& list) {
    Wait(500);
    const QRect before = list.normalGeometry();
    const Qt::WindowStates state = list.windowState();
    auto& goods = Component<TSmartDBGrid_QRT>(list, "GoodTransactin_List_GRD");
    OpenBeside(list, "کاردکس کالا", [&] {
      FormView* card = Shown("Kardex_FRM");
      ASSERT_NE(card, nullptr);
      EXPECT_FALSE(card->isModal());
      EXPECT_TRUE(list.isVisible());
      TypeGood(*card, BusiestGood(Company()));
      EXPECT_GT(RowCount(*card), 0U);
      // The list goes on meanwhile, by its own keys.
      PressKey(*card, Qt::Key_N, Qt::ControlModifier);
      Child(list, "GoodTransactin_List_GRD").setFocus();
      PressKey(list, Qt::Key_Home, Qt::ControlModifier);
      PressKey(list, Qt::Key_Down);
      EXPECT_EQ(goods.DataSet()->RecNo(), 1U);
      EXPECT_GT(RowCount(*card), 0U);
      if (list.screen()->availableGeometry().width() >= 2 * 640) {
        EXPECT_FALSE(list.geometry().intersects(card->geometry()));
        EXPECT_GT(list.geometry().left(), card->geometry().left()) << "the first stands at the right";
      }
      used = true;
      PressKey(*card, Qt::Key_Escape);
    });
    EXPECT_TRUE(used);
    EXPECT_EQ(Shown("Kardex_FRM"), nullptr);
    EXPECT_TRUE(list.isVisible());
    EXPECT_EQ(list.windowState(), state);
    EXPECT_EQ(list.normalGeometry(), before);
  });
  Module().Call("Open_GoodAmountAsset");
  RethrowFailure();
}

TEST_F(Beside, ClosingTheFirstClosesTheOtherAndBothMayBeOpenedAgain) {
  HostFor("admin");
  for (int time = 0; time < 2; ++time) {
    bool both = false;
    WhileModal([&](QWidget& list) {
      Wait(300);
      OpenBeside(list, "کاردکس کالا", [&] {
        both = Shown("Kardex_FRM") != nullptr;
        Child(list, "GoodTransactin_List_GRD").setFocus();
        PressKey(list, Qt::Key_Escape);
      });
      EXPECT_TRUE(both);
      EXPECT_EQ(Shown("Kardex_FRM"), nullptr);
    });
    Module().Call("Open_GoodAmountAsset");
    RethrowFailure();
    EXPECT_EQ(Shown("GoodTransaction_FRM"), nullptr);
  }
}

TEST_F(Beside, AReportThatIsShownAlreadyIsToldAndNothingStandsBeside) {
  DesktopHost& host = HostFor("admin");
  std::vector<std::string> told;
  host.Messages().SetUnattended([&](const ShownMessage& message) {
    told.push_back(message.text);
    return true;
  });
  WhileModal([&](QWidget& list) {
    Wait(300);
    OpenBeside(list, "موجودی کالاها", [] {});
    EXPECT_EQ(told.size(), 1U);
    // The next window of the list is its own again.
    WhileModal([](QWidget& dialog) { EXPECT_TRUE(dialog.isModal()); });
    PressKey(list, Qt::Key_F10, Qt::ControlModifier);
  });
  Module().Call("Open_GoodAmountAsset");
  RethrowFailure();
  Wait(600);
}

}  // namespace
}  // namespace goods
