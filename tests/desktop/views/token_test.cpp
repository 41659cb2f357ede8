// The token editor: chips, typing, the list of choices.
#include <QListWidget>

#include "desktop/views/theme.h"
#include "tests/desktop/views/parts_kit.h"

namespace goods::testing {
namespace {

using TokenEditor = Parts;

TEST_F(TokenEditor, TypingOpensTheListAndEnterAddsWhatIsMarked) {
  Focus(TagEdit());
  QTest::sendKeyEvent(QTest::Click, view.focusWidget(), Qt::Key_unknown, QString::fromUtf8("ف"), {});
  Settle();
  EXPECT_EQ(TagEdit().Text(), "ف");
  ASSERT_TRUE(Tokens().ListIsOpen());
  // پرفروش, فصلی, سفارش ویژه
  EXPECT_EQ(Tokens().List().count(), 3);
  Press(Qt::Key_Down);
  EXPECT_EQ(Tokens().List().currentRow(), 1);
  EXPECT_TRUE(TagEdit().Focused());
  Press(Qt::Key_Return);
  EXPECT_EQ(TagEdit().CodesText(), "3");
  EXPECT_EQ(TagEdit().Text(), "");
  EXPECT_FALSE(Tokens().ListIsOpen());
  EXPECT_TRUE(TagEdit().Focused());
}

TEST_F(TokenEditor, DownOpensTheWholeListWithoutWhatIsChosenAndEscapeClosesIt) {
  TagEdit().SetCodes({"2"});
  Focus(TagEdit());
  Press(Qt::Key_Down);
  ASSERT_TRUE(Tokens().ListIsOpen());
  EXPECT_EQ(Tokens().List().count(), 6);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Tokens().ListIsOpen());
  EXPECT_EQ(TagEdit().CodesText(), "2");
}

TEST_F(TokenEditor, AClickInTheListAddsAndTheKeyboardStays) {
  Focus(TagEdit());
  Press(Qt::Key_Down);
  QListWidget& list = Tokens().List();
  Click(*list.viewport(), list.visualItemRect(list.item(3)).center());
  EXPECT_EQ(TagEdit().CodesText(), "4");
  EXPECT_EQ(view.focusWidget(), &Tokens().Field().Line());
}

TEST_F(TokenEditor, TheListClosesWhenTheFocusLeaves) {
  Focus(TagEdit());
  Press(Qt::Key_Down);
  Focus(form.After_EDT);
  EXPECT_FALSE(Tokens().ListIsOpen());
}

TEST_F(TokenEditor, TheCrossOfAChipRemovesItAndBackspaceTheLastOne) {
  TagEdit().SetCodes({"1", "2", "3"});
  Settle();
  TokenField& field = Tokens().Field();
  EXPECT_GT(field.ChipRect(0).left(), field.ChipRect(1).right());
  Click(field, field.ChipRect(1).center() + QPoint(field.ChipRect(1).width() / 2 - 6, 0));
  EXPECT_EQ(TagEdit().CodesText(), "1,2,3");
  Click(field, field.CrossRect(1).center());
  EXPECT_EQ(TagEdit().CodesText(), "1,3");
  Focus(TagEdit());
  Press(Qt::Key_Escape);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(TagEdit().CodesText(), "1");
}

TEST_F(TokenEditor, ChipsWrapOntoMoreLinesWhereTheFieldIsNarrow) {
  TagEdit().SetCodes({"1", "2", "3", "4", "5", "6", "7"});
  Settle();
  TokenField& field = Tokens().Field();
  const int oneLine = field.height();
  view.resize(420, 640);
  Settle();
  EXPECT_GT(field.height(), oneLine);
  EXPECT_GT(field.ChipRect(6).top(), field.ChipRect(0).bottom());
  for (std::size_t i = 0; i < 7; ++i) EXPECT_TRUE(field.rect().contains(field.ChipRect(i))) << i;
  view.resize(1060, 640);
  Settle();
  EXPECT_EQ(field.height(), oneLine);
}

TEST_F(TokenEditor, AReadOnlyOneShowsOnlyAndDownGoesToItsTable) {
  TTokenEditor& shown = form.Tags_FRM.Tags_EDT;
  form.Tags_FRM.Grid = &form.Goods_GRD;
  shown.SetCodes({"1", "2"});
  Focus(shown);
  auto& tokens = dynamic_cast<TokenEditorView&>(*view.ViewOf(shown));
  EXPECT_TRUE(tokens.Field().CrossRect(0).isEmpty());
  Press(Qt::Key_Backspace);
  EXPECT_EQ(shown.CodesText(), "1,2");
  Press(Qt::Key_Down);
  EXPECT_FALSE(tokens.ListIsOpen());
  EXPECT_TRUE(form.Goods_GRD.Focused());
}

TEST_F(TokenEditor, ANameThatNothingHasIsMarkedAndAddsNothing) {
  TTokenEditor& edit = form.Category_FRM.Category_EDT;
  form.Category_FRM.Category_EDT.SetCodes({"2"});
  Focus(edit);
  QTest::keyClicks(view.focusWidget(), "xyz");
  Press(Qt::Key_Return);
  EXPECT_FALSE(edit.Problem().empty());
  EXPECT_EQ(edit.CodesText(), "2");
}

TEST(Colours, TextOnAnyBackgroundCanBeRead) {
  double least = 21;
  for (int red = 0; red < 256; red += 15) {
    for (int green = 0; green < 256; green += 15) {
      for (int blue = 0; blue < 256; blue += 15) {
        const QColor background(red, green, blue);
        least = std::min(least, Contrast(background, ReadableOn(background)));
      }
    }
  }
  EXPECT_GT(least, 4.2);
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
}

}  // namespace
}  // namespace goods::testing
