// The name that a report's file is proposed under.
#include "desktop/print/file_name.h"

#include <gtest/gtest.h>

#include "desktop/views/shown_text.h"

namespace goods {
namespace {

TEST(ProposedName, IsTheTitleTheDayAndTheEnding) {
  EXPECT_EQ(ProposedFileName("کاردکس کالا", "1403/05/12", "pdf"), "کاردکس کالا 1403-05-12.pdf");
  EXPECT_EQ(ProposedFileName("موجودی", "", "csv"), "موجودی.csv");
}

TEST(ProposedName, IsLegalOnEverySystem) {
  EXPECT_EQ(ProposedFileName("  ..گردش: \"کالا\" <1/2>\\|*?\n\t. ", "1403/05/12", "csv"),
            "گردش کالا 1 2 1403-05-12.csv");
  EXPECT_EQ(ProposedFileName("../../etc/passwd", "", "txt"), "etc passwd.txt");
  for (const char* device : {"CON", "nul", "Com1", "LPT9"})
    EXPECT_EQ(ProposedFileName(device, "", "txt"), std::string(device) + "_.txt");
  EXPECT_EQ(ProposedFileName("\u200E۱۲\u200F کالا\u202A", "", "pdf"), "۱۲ کالا.pdf");
}

TEST(ProposedName, KeepsTheJoinersOfPersianWords) {
  EXPECT_EQ(ProposedFileName("ردیف‌ها", "", "pdf"), "ردیف‌ها.pdf");
}

TEST(ProposedName, OfNothingUsableIsStillAName) {
  for (const char* title : {"", " ", "...", "///", "\x01"})
    EXPECT_EQ(ProposedFileName(title, "1403/05/12", "pdf"), "گزارش 1403-05-12.pdf");
}

TEST(ProposedName, IsNoLongerThanAFolderTakes) {
  const std::string name =
      ProposedFileName(FromQt(QString("گردش و موجودی ").repeated(40)), "1403/05/12", "json");
  EXPECT_LE(name.size(), 255U);
  EXPECT_TRUE(name.ends_with(" 1403-05-12.json"));
  EXPECT_EQ(name.find("  "), std::string::npos);
}

}  // namespace
}  // namespace goods
