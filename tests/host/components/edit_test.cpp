#include "host/components/edit.h"

#include <utility>

#include <gtest/gtest.h>

namespace goods {
namespace {

TEST(Edit, AnIntegerEditNeverHoldsAnythingButANumber) {
  TEdit edit(nullptr, "Code_EDT", InputKind::Integer);
  EXPECT_TRUE(edit.SetText("12"));
  for (const char* wrong : {"12a", "1 OR 1=1", "1;2", "--", "1.5", "1'2", "12345678901234567890"}) {
    EXPECT_FALSE(edit.SetText(wrong)) << wrong;
    EXPECT_EQ(edit.Text(), "12") << wrong;
  }
  EXPECT_EQ(edit.AsInteger(), 12);
}

TEST(Edit, PersianAndArabicDigitsAreTakenAsDigits) {
  TEdit code(nullptr, "Code_EDT", InputKind::Integer);
  EXPECT_TRUE(code.SetText("۱۲٣"));
  EXPECT_EQ(code.Text(), "123");
  TEdit text(nullptr, "Text_EDT");
  EXPECT_TRUE(text.SetText("کالای ۱۲"));
  EXPECT_EQ(text.Text(), "کالای ۱۲");
}

TEST(Edit, AnAmountMayHaveSeparatorsASignAndNineDecimals) {
  TEdit edit(nullptr, "Amount_EDT", InputKind::Amount);
  for (const char* right : {"1,250", "-3.5", "0.123456789", ".5", ""})
    EXPECT_TRUE(edit.SetText(right)) << right;
  for (const char* wrong : {"1.2.3", "1e5", "0.1234567891", "5-", "abc"})
    EXPECT_FALSE(edit.SetText(wrong)) << wrong;
}

TEST(Edit, ATextIsOneLine) {
  TEdit edit(nullptr, "Text_EDT");
  EXPECT_FALSE(edit.SetText("a\nb"));
  EXPECT_EQ(edit.Text(), "");
}

TEST(Edit, LengthIsCountedInCharacters) {
  TEdit edit(nullptr, "Text_EDT");
  edit.MaxLength = 3;
  EXPECT_TRUE(edit.SetText("کال"));
  EXPECT_FALSE(edit.SetText("کالا"));
}

TEST(Edit, TypingChangesAtEachKeyAndIsAcceptedOnce) {
  TEdit edit(nullptr, "Code_EDT", InputKind::Integer);
  int changes = 0;
  int accepts = 0;
  edit.OnChange = [&] { ++changes; };
  edit.OnAccept = [&] { ++accepts; };
  edit.TypeText("1");
  edit.TypeText("12");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(accepts, 0);
  TKey enter{Key::Enter};
  edit.DoKey(enter);
  EXPECT_TRUE(enter.IsConsumed());
  edit.DoExit();
  EXPECT_EQ(accepts, 1);
}

TEST(Edit, TheProgramsTextIsAcceptedAtOnce) {
  TEdit edit(nullptr, "Code_EDT", InputKind::Integer);
  int accepts = 0;
  edit.OnAccept = [&] { ++accepts; };
  edit.SetText("5");
  edit.SetText("5");
  EXPECT_EQ(accepts, 1);
}

TEST(Edit, ADateIsCompletedWhenItIsAccepted) {
  TDateEdit edit(nullptr, "Date_EDT");
  for (const char* typed :
       {"14010305", "1401/3/5", "۱۴۰۱/۰۳/۰۵", "1401-03-05", "1401.3.5", "01/3/5", "01-03-05"}) {
    EXPECT_TRUE(edit.SetText(typed));
    EXPECT_EQ(edit.Text(), "1401/03/05") << typed;
    EXPECT_TRUE(edit.IsValidDate());
  }
  edit.SetText("1401/13/01");
  EXPECT_EQ(edit.Text(), "1401/13/01");
  EXPECT_FALSE(edit.IsValidDate());
  edit.SetText("99/12/01");
  EXPECT_EQ(edit.Text(), "1399/12/01");
  EXPECT_FALSE(edit.SetText("1401 03 05"));
}

TEST(Edit, ATimeIsCompletedWhenItIsAccepted) {
  TEdit edit(nullptr, "Time_EDT", InputKind::Time);
  const std::pair<const char*, const char*> times[] = {
      {"930", "09:30"}, {"9:5", "09:05"}, {"1745", "17:45"}, {"۲۳:۵۹", "23:59"}, {"00:00", "00:00"}};
  for (const auto& [typed, time] : times) {
    EXPECT_TRUE(edit.SetText(typed));
    EXPECT_EQ(edit.Text(), time);
    EXPECT_TRUE(edit.IsValidTime()) << time;
  }
  for (const char* wrong : {"24:00", "12:60", "12", ":", "1:2:3", "::", ""}) {
    EXPECT_TRUE(edit.SetText(wrong)) << wrong;
    EXPECT_FALSE(edit.IsValidTime()) << wrong;
  }
  EXPECT_FALSE(edit.SetText("12.30"));
  EXPECT_FALSE(edit.SetText("123456"));
}

TEST(Edit, AnotherKindOfInputEmptiesATextThatDoesNotFit) {
  TEdit edit(nullptr, "Search_EDT");
  edit.SetText("پیچ");
  edit.SetKind(InputKind::Integer);
  EXPECT_EQ(edit.Text(), "");
  edit.SetText("7");
  edit.SetKind(InputKind::Amount);
  EXPECT_EQ(edit.Text(), "7");
}

TEST(Edit, TheCaretStaysInsideTheText) {
  TEdit edit(nullptr, "Search_EDT");
  edit.SetText("پیچ");
  edit.SetCaret(9);
  EXPECT_EQ(edit.Caret(), 3);
  edit.SetText("پ");
  EXPECT_EQ(edit.Caret(), 1);
}

TEST(Edit, DigitsTakeNoSign) {
  TEdit edit(nullptr, "Code_EDT", InputKind::Digits);
  EXPECT_TRUE(edit.SetText("12۳"));
  EXPECT_FALSE(edit.TypeText("-"));
  EXPECT_FALSE(edit.SetText("-5"));
  EXPECT_EQ(edit.Text(), "123");
}

TEST(Edit, WhatIsHalfTypedIsNoValue) {
  TEdit number(nullptr, "Code_EDT", InputKind::Integer);
  TEdit amount(nullptr, "Amount_EDT", InputKind::Amount);
  for (const char* text : {"-", ""}) {
    EXPECT_TRUE(number.TypeText(text));
    EXPECT_FALSE(number.HoldsValue()) << text;
    EXPECT_EQ(number.Value(), "") << text;
    EXPECT_EQ(number.HalfTyped(), *text != '\0') << text;
  }
  for (const char* text : {"-", ".", "-.", ",", ""}) {
    EXPECT_TRUE(amount.TypeText(text));
    EXPECT_FALSE(amount.HoldsValue()) << text;
    EXPECT_EQ(amount.Value(), "") << text;
    EXPECT_EQ(amount.TextOfValue(), "") << text;
  }
}

TEST(Edit, AnAmountIsReadAsStatementsTakeIt) {
  TEdit amount(nullptr, "Amount_EDT", InputKind::Amount);
  const std::pair<const char*, const char*> values[] = {{"1,250", "1250"},     {"1,250.", "1250"},
                                                        {".5", "0.5"},         {"-.5", "-0.5"},
                                                        {"-1,2.50", "-12.50"}, {"0", "0"}};
  for (const auto& [text, value] : values) {
    amount.SetText(text);
    EXPECT_EQ(amount.Value(), value);
    EXPECT_EQ(amount.TextOfValue(), text);
  }
}

TEST(Edit, ADateThatDoesNotExistIsMarkedUntilItIsAnotherOne) {
  TDateEdit date(nullptr, "Date_EDT");
  date.SetText("14021229");
  EXPECT_EQ(date.Problem(), "");
  date.TypeText("1404/12/30");
  EXPECT_TRUE(date.HoldsImpossibleDate());
  EXPECT_TRUE(date.HalfTyped());
  date.Accept();
  EXPECT_EQ(date.Problem(), kNoSuchDate);
  date.TypeText("1404/12/3");
  EXPECT_FALSE(date.HoldsImpossibleDate());  // it is completed to the third
  date.TypeText("1404/12");
  EXPECT_TRUE(date.HoldsImpossibleDate());
  date.GiveBackLastGoodDate();
  EXPECT_EQ(date.Text(), "1402/12/29");
  EXPECT_EQ(date.Problem(), "");
  date.Clear();
  EXPECT_FALSE(date.HoldsImpossibleDate());
}

TEST(Edit, ATextHasNoNul) {
  TEdit edit(nullptr, "Search_EDT");
  EXPECT_FALSE(edit.SetText(std::string_view("a\0b", 3)));
  EXPECT_EQ(edit.Text(), "");
}

}  // namespace
}  // namespace goods
