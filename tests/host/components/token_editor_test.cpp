#include "host/components/token_editor.h"

#include <gtest/gtest.h>

namespace goods {
namespace {

class Tokens : public ::testing::Test {
 protected:
  Tokens() {
    editor.SetChoices({{"3", "آهنی", 0xFF0000}, {"7", "پلاستیکی", {}}, {"9", "کالای آهنی", {}}});
    editor.OnChange = [this] { ++changes; };
  }
  bool Press(Key which) {
    TKey key{which};
    editor.DoKey(key);
    return key.IsConsumed();
  }
  std::string Matches() {
    std::string codes;
    for (const TToken& token : editor.Matches()) codes += token.Code + " ";
    return codes;
  }

  TTokenEditor editor{nullptr, "Tags_EDT"};
  int changes = 0;
};

TEST_F(Tokens, StandInTheOrderOfChoosing) {
  EXPECT_TRUE(editor.Add("9"));
  EXPECT_TRUE(editor.Add("3"));
  EXPECT_EQ(editor.Codes(), (std::vector<std::string>{"9", "3"}));
  EXPECT_EQ(editor.CodesText(), "9,3");
  EXPECT_EQ(editor.Tokens()[1].Text, "آهنی");
  EXPECT_EQ(editor.Tokens()[1].Background, 0xFF0000U);
  EXPECT_EQ(changes, 2);
}

TEST_F(Tokens, ACodeThatIsChosenOrUnknownIsNotAdded) {
  editor.Add("3");
  EXPECT_FALSE(editor.Add("3"));
  EXPECT_FALSE(editor.Add("33"));
  EXPECT_FALSE(editor.Add(""));
  EXPECT_EQ(editor.CodesText(), "3");
  EXPECT_EQ(changes, 1);
}

TEST_F(Tokens, OnlyWhatIsChosenIsRemoved) {
  editor.SetCodes({"3", "7"});
  EXPECT_TRUE(editor.Remove("3"));
  EXPECT_FALSE(editor.Remove("3"));
  EXPECT_EQ(editor.CodesText(), "7");
  EXPECT_EQ(changes, 2);
  editor.Clear();
  editor.Clear();
  EXPECT_EQ(editor.CodesText(), "");
  EXPECT_EQ(changes, 3);
}

TEST_F(Tokens, AnUnknownCodeThatTheProgramChoosesStandsForItself) {
  editor.SetCodes({"55", "3"});
  EXPECT_EQ(editor.Tokens()[0].Text, "55");
  EXPECT_EQ(editor.Tokens()[0].Background, std::nullopt);
  editor.SetChoices({{"55", "نو", 0x00FF00}});
  EXPECT_EQ(editor.Tokens()[0].Text, "نو");
  EXPECT_EQ(editor.Tokens()[1].Text, "آهنی") << "what is no choice any more keeps its text";
  EXPECT_EQ(changes, 1) << "new choices choose nothing";
}

TEST_F(Tokens, TheSameCodesAgainChangeNothing) {
  editor.SetCodes({"3", "7"});
  editor.SetCodes({"3", "7"});
  editor.SetCodes({"3", "3", "7"});
  EXPECT_EQ(editor.CodesText(), "3,7");
  EXPECT_EQ(changes, 1);
  editor.SetCodes({"7", "3"});
  EXPECT_EQ(changes, 2);
}

TEST_F(Tokens, WhatIsTypedIsLookedForAsAPersianReaderCompares) {
  EXPECT_EQ(Matches(), "3 7 9 ");
  editor.TypeText("پلاستيكي");  // Arabic yeh and kaf
  EXPECT_EQ(Matches(), "7 ");
  editor.TypeText("آهن");
  EXPECT_EQ(Matches(), "3 9 ");
  editor.Add("3");
  EXPECT_EQ(Matches(), "9 ");
  editor.TypeText("مسی");
  EXPECT_EQ(Matches(), "");
}

TEST_F(Tokens, AcceptingAddsTheFirstMatchAndEmptiesTheText) {
  editor.TypeText("آهن");
  EXPECT_TRUE(editor.AcceptText());
  EXPECT_EQ(editor.CodesText(), "3");
  EXPECT_EQ(editor.Text(), "");
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(editor.AcceptText()) << "nothing is typed";
  EXPECT_EQ(editor.Problem(), "");
}

TEST_F(Tokens, ATextWithoutAMatchStaysWithAProblemUntilItIsChanged) {
  editor.TypeText("مسی");
  EXPECT_FALSE(editor.AcceptText());
  EXPECT_EQ(editor.Text(), "مسی");
  EXPECT_EQ(editor.Problem(), "موردی با این نام وجود ندارد.");
  EXPECT_EQ(changes, 0);
  editor.TypeText("مس");
  EXPECT_EQ(editor.Problem(), "");
}

TEST_F(Tokens, AProblemIsGoneWhenTheTextIsAcceptedAfterAll) {
  editor.TypeText("مسی");
  editor.AcceptText();
  editor.SetChoices({{"4", "مسی", {}}});
  EXPECT_TRUE(editor.AcceptText());
  EXPECT_EQ(editor.Problem(), "");
}

TEST_F(Tokens, EnterAndPlusAcceptAndAreLeftAloneWithoutAText) {
  EXPECT_FALSE(Press(Key::Enter));
  EXPECT_FALSE(Press(Key::Plus));
  editor.TypeText("پلاس");
  EXPECT_TRUE(Press(Key::Enter));
  editor.TypeText("کالا");
  EXPECT_TRUE(Press(Key::Plus));
  EXPECT_EQ(editor.CodesText(), "7,9");
}

TEST_F(Tokens, BackspaceTakesTheLastTokenAwayBesideAnEmptyTextOnly) {
  EXPECT_FALSE(Press(Key::Backspace));
  editor.SetCodes({"3", "7"});
  editor.TypeText("آ");
  EXPECT_FALSE(Press(Key::Backspace));
  editor.TypeText("");
  EXPECT_TRUE(Press(Key::Backspace));
  EXPECT_EQ(editor.CodesText(), "3");
  EXPECT_EQ(changes, 2);
}

TEST_F(Tokens, AReadOnlyEditorTakesNothingFromTheUser) {
  editor.SetCodes({"3"});
  editor.SetReadOnly(true);
  editor.TypeText("پلاس");
  EXPECT_EQ(editor.Text(), "");
  EXPECT_FALSE(Press(Key::Backspace));
  EXPECT_FALSE(editor.AcceptText());
  EXPECT_EQ(editor.CodesText(), "3");
  editor.SetCodes({"7"});
  EXPECT_EQ(editor.CodesText(), "7") << "the program may";
}

}  // namespace
}  // namespace goods
