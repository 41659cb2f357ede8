#include "desktop/app/company_chooser.h"

#include <QLabel>
#include <QListWidget>
#include <fstream>

#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class Chooser : public DesktopTest {
 protected:
  static QString NoDemo() { throw CompanyError("شرکت نمایشی ساخته نشد."); }
};

TEST_F(Chooser, AForeignFileIsRefusedWithAMessageAndTheWindowGoesOn) {
  const std::string foreign = Path("foreign.goods");
  std::ofstream(foreign) << "this is no company";
  CompanyChooser chooser(Settings(), NoDemo);
  WhileModal([&](QWidget& window) {
    chooser.OpenFile(ToQt(foreign));
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(dynamic_cast<QLabel&>(Child(window, "Problem_LBL")).text().isEmpty());
    chooser.OpenFile(ToQt(SmallCompany()));
  });
  const OpenedCompany opened = chooser.Choose();
  ASSERT_NE(opened.company, nullptr);
  EXPECT_FALSE(opened.demo);
  EXPECT_EQ(Settings().RecentCompanies(), QStringList(ToQt(SmallCompany())));
  EXPECT_EQ(Written(foreign), "this is no company");
}

TEST_F(Chooser, AFileThatWasOpenedIsOfferedAndOpenedByEnter) {
  Settings().AddRecentCompany(ToQt(SmallCompany()));
  CompanyChooser chooser(Settings(), NoDemo);
  WhileModal([](QWidget& window) {
    EXPECT_EQ(dynamic_cast<QListWidget&>(Child(window, "Company_LST")).count(), 2);
    PressKey(window, Qt::Key_Return);
  });
  const OpenedCompany opened = chooser.Choose();
  ASSERT_NE(opened.company, nullptr);
  EXPECT_EQ(opened.path, ToQt(SmallCompany()));
}

TEST_F(Chooser, ADemoCompanyThatCannotBeMadeIsToldInTheWindow) {
  CompanyChooser chooser(Settings(), NoDemo);
  WhileModal([](QWidget& window) {
    PressKey(window, Qt::Key_Return);
    EXPECT_EQ(dynamic_cast<QLabel&>(Child(window, "Problem_LBL")).text(), "شرکت نمایشی ساخته نشد.");
    PressKey(window, Qt::Key_Escape);
  });
  EXPECT_EQ(chooser.Choose().company, nullptr);
}

}  // namespace
}  // namespace goods
