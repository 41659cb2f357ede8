// The way along the drill-down: it is shown, and Alt+Left goes back.
#include <QLabel>

#include "desktop/documents/document_window.h"
#include "host/base/base_dock.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class DrillPath : public DesktopTest {
 protected:
  static QString PathOf(QWidget& window) {
    const auto* line = window.findChild<QLabel*>("Path_LBL");
    return line == nullptr ? QString() : line->text();
  }
};

TEST_F(DrillPath, EachWindowSaysWhatLedToItAndAltLeftGoesBack) {
  HostFor("admin");
  int opened = 0;
  WhileModal([&](QWidget& list) {
    Wait(500);
    EXPECT_EQ(PathOf(list), "");
    PressKey(list, Qt::Key_Left, Qt::AltModifier);
    Wait(50);
    ASSERT_TRUE(list.isVisible()) << "there is nothing to go back to";
    const Value good(BusiestGood(Company()));
    auto& rows = Component<TSmartDBGrid_QRT>(list, "GoodTransactin_List_GRD");
    ASSERT_TRUE(rows.DataSet()->Locate("Code", std::span(&good, 1)));
    WhileModal([&](QWidget& card) {
      ++opened;
      const QString path = list.windowTitle() + " ← " + card.windowTitle();
      EXPECT_EQ(PathOf(card), path);
      const Value sale(std::int64_t{1});
      auto& movements = Component<TSmartDBGrid_QRT>(card, "Kardex_GRD");
      ASSERT_TRUE(movements.DataSet()->Locate("Type", std::span(&sale, 1)));
      WhileModal([&](QWidget& document) {
        ++opened;
        EXPECT_TRUE(PathOf(document).startsWith(path + " ← ")) << FromQt(PathOf(document));
        EXPECT_TRUE(PathOf(document).contains("شماره"));
        PressKey(document, Qt::Key_Escape);
      });
      PressKey(card, Qt::Key_F2);
      RethrowFailure();
      PressKey(card, Qt::Key_Left, Qt::AltModifier);
      EXPECT_NE(FormOf(card).ModalResult(), kModalNone);
    });
    Child(list, "GoodTransactin_List_GRD").setFocus();
    PressKey(list, Qt::Key_F2);
    RethrowFailure();
    EXPECT_TRUE(list.isVisible());
    EXPECT_EQ(PathOf(list), "");
  });
  Module().Call("Open_GoodAmountAsset");
  RethrowFailure();
  EXPECT_EQ(opened, 2);
}

TEST_F(DrillPath, ACardThatNothingLedToHasNoPathAndADialogNeither) {
  HostFor("admin");
  WhileModal([&](QWidget& card) { EXPECT_EQ(PathOf(card), ""); });
  Module().Call("Open_GoodKardex");
  RethrowFailure();
  WhileModal([&](QWidget& list) {
    Wait(300);
    WhileModal([&](QWidget& dialog) { EXPECT_EQ(PathOf(dialog), ""); });
    PressKey(list, Qt::Key_F10, Qt::ControlModifier);
  });
  Module().Call("Open_GoodAmountAsset");
  RethrowFailure();
}

}  // namespace
}  // namespace goods
