#include "desktop/app/entity_picker.h"

#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include "company/demo/demo_company.h"
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

TEST_F(Picker, TheCaretStandsWhereReadingBegins) {
  EntityPicker picker(Company(), EntityKind::Good, 0, "", nullptr);
  WhileModal([](QWidget& window) {
    const auto& search = dynamic_cast<const QLineEdit&>(Child(window, "Search_EDT"));
    ASSERT_TRUE(search.text().isEmpty());
    EXPECT_GT(search.inputMethodQuery(Qt::ImCursorRectangle).toRectF().center().x(), search.width() * 0.9);
  });
  picker.Choose();
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

TEST_F(Picker, OfTwentyThousandGoodsTheRowsComeByThePage) {
  DemoOptions options;
  options.goods = 20'000;
  options.movements = 0;
  MakeDemoCompany(Path("large.goods"), options);
  const auto large = OpenCompany(Path("large.goods"));
  EntityRows rows(*large, EntityKind::Good, nullptr);
  rows.Search("");
  EXPECT_TRUE(rows.IsCut());
  EXPECT_LT(rows.rowCount(), 1'000);
  EXPECT_EQ(rows.RowOfCode(15'000), 14'999);
  EXPECT_EQ(rows.RowOfCode(987'654), -1);
  EXPECT_EQ(rows.rowCount(), 20'000);
  EXPECT_FALSE(rows.IsCut());

  EntityPicker picker(*large, EntityKind::Good, 15'000, "15000", nullptr);
  WhileModal([](QWidget& window) {
    PressKey(window, Qt::Key_Down);
    PressKey(window, Qt::Key_Return);
  });
  EXPECT_EQ(picker.Choose(), 15'001);
}

}  // namespace
}  // namespace goods
