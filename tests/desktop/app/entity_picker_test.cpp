#include "desktop/app/entity_picker.h"

#include <QLabel>
#include <QTableView>

#include "desktop/app/entity_rows.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

using Picker = DesktopTest;

constexpr int kAfterTyping = 400;  // milliseconds, more than the list waits

QTableView& List(QWidget& window) { return dynamic_cast<QTableView&>(Child(window, "Entity_GRD")); }

TEST_F(Picker, TheArrowsMoveFromTheEditAndEnterChooses) {
  const auto goods = Company().SearchEntities(EntityKind::Good, "", 3);
  EntityPicker picker(Company(), EntityKind::Good, 0, "", nullptr);
  WhileModal([](QWidget& window) {
    PressKey(window, Qt::Key_Down);
    PressKey(window, Qt::Key_Down);
    EXPECT_EQ(window.focusWidget()->objectName(), "Search_EDT");
    PressKey(window, Qt::Key_Return);
  });
  EXPECT_EQ(picker.Choose(), goods.at(2).code);
}

TEST_F(Picker, TheListFollowsTheTypedCode) {
  EntityPicker picker(Company(), EntityKind::Good, 0, "", nullptr);
  WhileModal([](QWidget& window) {
    TypeText(window, "Search_EDT", "۵۷");
    Wait(kAfterTyping);
    EXPECT_EQ(List(window).model()->rowCount(), 1);
    PressKey(window, Qt::Key_Return);
  });
  EXPECT_EQ(picker.Choose(), 57);
}

TEST_F(Picker, EnterBeforeTheListFollowedChoosesByWhatWasTyped) {
  EntityPicker picker(Company(), EntityKind::Good, 0, "", nullptr);
  WhileModal([](QWidget& window) {
    TypeText(window, "Search_EDT", "57");
    PressKey(window, Qt::Key_Return);
  });
  EXPECT_EQ(picker.Choose(), 57);
}

TEST_F(Picker, ANameThatNothingHasShowsATextAndEnterDoesNothing) {
  EntityPicker picker(Company(), EntityKind::Store, 0, "", nullptr);
  WhileModal([](QWidget& window) {
    TypeText(window, "Search_EDT", "چنین انباری نیست");
    Wait(kAfterTyping);
    EXPECT_EQ(dynamic_cast<QLabel&>(Child(window, "Empty_LBL")).text(), "چیزی با این نام یا کد پیدا نشد.");
    PressKey(window, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    PressKey(window, Qt::Key_Escape);
  });
  EXPECT_EQ(picker.Choose(), std::nullopt);
}

TEST_F(Picker, TheCurrentOneIsChosenAtFirst) {
  EntityPicker picker(Company(), EntityKind::Good, 41, "41", nullptr);
  WhileModal([](QWidget& window) {
    EXPECT_GT(List(window).model()->rowCount(), 1);
    PressKey(window, Qt::Key_Return);
  });
  EXPECT_EQ(picker.Choose(), 41);
}

TEST_F(Picker, RowsComeByThePageUntilTheCodeIsThere) {
  EntityRows rows(Company(), EntityKind::Good, nullptr);
  rows.Search("");
  EXPECT_EQ(rows.RowOfCode(60), 59);
  EXPECT_EQ(rows.RowOfCode(987654), -1);
}

}  // namespace
}  // namespace goods
