#include "host/services/error_text.h"

#include <new>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "host/data/connection.h"
#include "host/data/decimal.h"
#include "host/data/exact_sum.h"

namespace goods {
namespace {

bool IsPersian(const std::string& text) {
  return text.find_first_of("abcdefghijklmnopqrstuvwxyz") == text.npos;
}

TEST(ErrorText, KeepsAPersianText) {
  EXPECT_EQ(ErrorText(DatabaseError("ستون «Code» شناخته نیست", "select Code")), "ستون «Code» شناخته نیست");
}

TEST(ErrorText, SaysInPersianWhatTheLibrarySaysInEnglish) {
  EXPECT_TRUE(IsPersian(ErrorText(std::bad_alloc())));
  EXPECT_TRUE(IsPersian(ErrorText(std::length_error("vector::reserve"))));
  EXPECT_TRUE(IsPersian(ErrorText(std::overflow_error("overflow"))));
  EXPECT_EQ(ErrorText(std::logic_error("a mistake")), kUnexpectedError);
  EXPECT_EQ(ErrorText(std::exception()), kUnexpectedError);
}

TEST(ErrorText, WhatDecimalsThrowIsPersianWhereverItIsShown) {
  const auto text = [](auto body) -> std::string {
    try {
      body();
    } catch (const std::exception& error) {
      return error.what();
    }
    return "nothing thrown";
  };
  const Decimal large = Decimal::FromUnits(static_cast<Int128>(1) << 126);
  EXPECT_TRUE(IsPersian(text([&] { static_cast<void>(large + large); })));
  EXPECT_TRUE(IsPersian(text([&] { static_cast<void>(large / Decimal()); })));
  ExactSum sum;
  for (int i = 0; i < 4; ++i) sum.Add(static_cast<Int128>(1) << 126);
  EXPECT_TRUE(IsPersian(text([&] { static_cast<void>(sum.Total()); })));
}

}  // namespace
}  // namespace goods
