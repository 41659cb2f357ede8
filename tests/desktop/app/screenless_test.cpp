#include <QFile>
#include <QProcess>

#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class Screenless : public DesktopTest {
 protected:
  int Run(const QStringList& arguments) {
    QProcess program;
    program.start(GOODS_REPORT_PROGRAM, QStringList{"--company", ToQt(SmallCompany())} + arguments);
    EXPECT_TRUE(program.waitForFinished(60'000));
    errors_ = QString::fromUtf8(program.readAllStandardError());
    return program.exitCode();
  }
  QString errors_;
};

TEST_F(Screenless, TheStockCardOfTheBusiestGoodIsWrittenAsPdfAndText) {
  EXPECT_EQ(Run({"--pdf", folder_.filePath("card.pdf"), "--text", folder_.filePath("card.txt")}), 0)
      << FromQt(errors_);
  EXPECT_EQ(Written(Path("card.pdf")).substr(0, 5), "%PDF-");
  const std::string text = Written(Path("card.txt"));
  const BusyGood good = Company().ListBusyGoods(1).at(0);
  EXPECT_EQ(text.substr(0, text.find('\n')), "کاردکس کالا");
  EXPECT_NE(text.find(good.name), std::string::npos);
  // Title, good, blank, captions and two rules, the rows, the footer.
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), good.movements + 7);
}

TEST_F(Screenless, ARangeOfDatesLeavesTheOtherRowsOut) {
  EXPECT_EQ(Run({"--from", "1402/01/01", "--to", "1402/12/29", "--text", folder_.filePath("card.txt")}), 0);
  const std::string text = Written(Path("card.txt"));
  EXPECT_NE(text.find("\n1402/"), std::string::npos);
  EXPECT_EQ(text.find("\n1401/"), std::string::npos);
  EXPECT_EQ(text.find("\n1403/"), std::string::npos);
}

TEST_F(Screenless, WhatIsWrongIsToldWithExitCodeOne) {
  const QString text = folder_.filePath("card.txt");
  EXPECT_EQ(Run({"--good", "987654", "--text", text}), 1);
  EXPECT_EQ(errors_, "کالایی با این کد وجود ندارد: 987654\n");
  EXPECT_EQ(Run({"--store", "77", "--text", text}), 1);
  EXPECT_EQ(errors_, "انباری با این کد وجود ندارد: 77\n");
  EXPECT_EQ(Run({"--from", "1402/13/01", "--text", text}), 1);
  EXPECT_EQ(errors_, "این تاریخ وجود ندارد: 1402/13/01\n");
  EXPECT_EQ(Run({"--report", "nothing", "--text", text}), 1);
  EXPECT_EQ(Run({"--module", "missing.so", "--text", text}), 1);
  EXPECT_EQ(Run({"--text", folder_.filePath("no/such/folder/card.txt")}), 1);
  EXPECT_FALSE(errors_.isEmpty());
  EXPECT_EQ(Run({}), 1);
  EXPECT_FALSE(QFile::exists(text));
}

}  // namespace
}  // namespace goods
