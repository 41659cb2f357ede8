// The reader that holds statements to their shape finds what breaks out of one.
#include "tests/scripted/random_user/statement_shape.h"

#include <gtest/gtest.h>

namespace goods {
namespace {

TEST(StatementShape, CallsAndQueriesAreSound) {
  for (const char* text : {"exec GoodInf_sp ", "exec GoodInf_sp @name=' o''ring'' ',@Code=-1.5, @List=NULL",
                           "Exec RialiStock_SP 5 , -1 , -1", "Select top 1 Code From Kardex Where Kala=12",
                           "select tags.code, [H-img] from TagS where (a=N'--;' and b<>'/*')"}) {
    EXPECT_EQ(ProblemOfStatement(text), "") << text;
  }
}

TEST(StatementShape, WhatBreaksOutOfAValueIsFound) {
  for (const char* text : {"exec P @a='x' -- y",
                           "exec P @a='x'; drop table T",
                           "exec P @a='x",
                           "exec P @a=",
                           "exec P @a=1,",
                           "exec P @a=1 @b=2",
                           "exec P @a=-",
                           "exec P @a=.",
                           "exec P @a=1a",
                           "exec P @a=-'x'",
                           "exec P @a=1, 2",
                           "exec P @a=1+1",
                           "exec P @a=/* */1",
                           "select 1 from T where (a=1",
                           "select 1 from T where a=1)",
                           "select 1 into T",
                           "drop table T",
                           "exec 5",
                           "",
                           "exec P @a='x' or 1=1"}) {
    EXPECT_NE(ProblemOfStatement(text), "") << text;
  }
  EXPECT_NE(ProblemOfStatement(std::string_view("exec P @a='x\0y'", 16)), "");
}

}  // namespace
}  // namespace goods
