// The row search and the negative stock card on the desktop: the real library, windows and company.
#include "host/components/edit.h"
#include "host/components/standard.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class RowSearch : public DesktopTest {
 protected:
  void Open(std::function<void(QWidget&)> steps) {
    WhileModal(std::move(steps));
    Module().Call("Open_KardexSearch");
  }
};

TEST_F(RowSearch, NothingRunsUntilTheUserAsksForTheReport) {
  HostFor("admin");
  Open([&](QWidget& window) {
    EXPECT_EQ(RowCount(window), 0U);
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    EXPECT_GT(RowCount(window), 1000U);
  });
  EXPECT_NE(Written(Path("statements.log")).find("\tExec srKardex\n"), std::string::npos);
}

TEST_F(RowSearch, TheDialogNarrowsTheRowsAndItsBoxLiftsItAgain) {
  HostFor("admin");
  Open([&](QWidget& window) {
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    const std::size_t all = RowCount(window);
    WhileModal([](QWidget& dialog) {
      TypeText(dialog, "SearchRangeCode_FRAME.RangeDigit_From_EDT", "1");
      TypeText(dialog, "SearchRangeCode_FRAME.RangeDigit_To_EDT", "5");
      PressKey(dialog, Qt::Key_F3);
    });
    PressKey(window, Qt::Key_F10, Qt::ControlModifier);
    const std::size_t narrowed = RowCount(window);
    EXPECT_GT(narrowed, 0U);
    EXPECT_LT(narrowed, all);
    auto& box = Component<TCheckBox>(window, "ADVSearch_Fram1.ADVSearch_CHK");
    EXPECT_TRUE(box.Checked());
    box.SetChecked(false);
    Wait(50);
    EXPECT_EQ(RowCount(window), all);
  });
}

TEST_F(RowSearch, AWordTypedQuicklyRunsOneStatementAndKeepsTheCaret) {
  HostFor("admin");
  Open([&](QWidget& window) {
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    TypeText(window, "SearchComment_Frame.GeneralSearch_EDT", "خرید");
    Wait(800);
    EXPECT_EQ(Component<TEdit>(window, "SearchComment_Frame.GeneralSearch_EDT").Caret(), 4);
    EXPECT_GT(RowCount(window), 0U);
  });
  const std::string log = Written(Path("statements.log"));
  std::size_t runs = 0;
  for (std::size_t at = log.find("Exec srKardex"); at != std::string::npos;
       at = log.find("Exec srKardex", at + 1)) {
    ++runs;
  }
  EXPECT_EQ(runs, 2U) << log;
  EXPECT_NE(log.find("\tExec srKardex @Comment='خرید'\n"), std::string::npos);
}

TEST_F(RowSearch, TheStockCardOfAFoundRowOpensOverTheList) {
  HostFor("admin");
  std::string caption;
  Open([&](QWidget& window) {
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    WhileModal([&](QWidget& card) {
      caption = FormOf(card).Caption();
      EXPECT_GT(RowCount(card), 0U);
    });
    PressKey(window, Qt::Key_F2);
  });
  EXPECT_EQ(caption, "کاردکس کالا");
}

TEST_F(RowSearch, TheNegativeCardShowsItsRowsAtOnce) {
  HostFor("admin");
  std::size_t rows = 0;
  WhileModal([&](QWidget& window) { rows = RowCount(window); });
  Module().OpenKardexNegativ("1", "0", "0");
  EXPECT_GT(rows, 0U);
  EXPECT_NE(Written(Path("statements.log")).find("\tExec srKardex_Negative\n"), std::string::npos);
}

}  // namespace
}  // namespace goods
