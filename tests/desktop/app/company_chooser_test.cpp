#include "desktop/app/company_chooser.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <fstream>

#include "desktop/app/server_dialog.h"
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

// Nobody listens on port 1.
TEST_F(Chooser, AServerThatDoesNotAnswerIsToldAndNothingOfItIsKept) {
  CompanyChooser chooser(Settings(), NoDemo);
  WhileModal([&](QWidget& window) {
    chooser.OpenFile("server:host=127.0.0.1;port=1;database=Sherkat;user=anbar;password=secret");
    EXPECT_TRUE(window.isVisible());
    const QString problem = dynamic_cast<QLabel&>(Child(window, "Problem_LBL")).text();
    EXPECT_FALSE(problem.isEmpty());
    EXPECT_FALSE(problem.contains("secret"));
    PressKey(window, Qt::Key_Escape);
  });
  EXPECT_EQ(chooser.Choose().company, nullptr);
  EXPECT_EQ(Settings().RecentCompanies(), QStringList());
}

TEST_F(Chooser, AServersAddressIsAskedWithWhatWasKeptOfIt) {
  ServerDialog dialog("server:SERVER=10.0.0.5;PORT=1500;DATABASE={My Company};UID=anbar");
  std::optional<std::string> description;
  WhileModal([](QWidget& window) {
    EXPECT_EQ(dynamic_cast<QLineEdit&>(Child(window, "Host_EDT")).text(), "10.0.0.5:1500");
    EXPECT_EQ(dynamic_cast<QLineEdit&>(Child(window, "Password_EDT")).text(), "");
    dynamic_cast<QLineEdit&>(Child(window, "Password_EDT")).setText("a;b}c");
    PressKey(window, Qt::Key_Return);
  });
  description = dialog.Ask();
  EXPECT_EQ(description,
            "server:host={10.0.0.5};port={1500};database={My Company};user={anbar};password={a;b}}c}");
  EXPECT_EQ(ShownDescription(*description).find("a;b"), std::string::npos);
}

}  // namespace
}  // namespace goods
