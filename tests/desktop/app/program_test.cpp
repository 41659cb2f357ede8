#include "desktop/app/program.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTimer>
#include <fstream>

#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class Program : public DesktopTest {
 protected:
  StartOptions Options() const {
    StartOptions options;
    options.module = GOODS_MODULE_FILE;
    options.settingsFolder = Path("settings");
    options.dataFolder = Path("data");
    return options;
  }
  // Triggers an action of the main window as soon as it is there.
  static void WhenMainWindow(const char* action) {
    auto* timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
      for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() != "Main_FRM" || !widget->isVisible()) continue;
        timer->deleteLater();
        widget->findChild<QAction*>(action)->trigger();
        return;
      }
    });
    timer->start(20);
  }
};

TEST_F(Program, TheDemoCompanyIsMadeOnFirstUseAndSignedInByFile) {
  std::ofstream(Path("password")) << "admin\n";
  StartOptions options = Options();
  options.demo = true;
  options.user = "admin";
  options.passwordFile = Path("password");
  WhenMainWindow("Quit_ACT");
  EXPECT_EQ(DesktopProgram(options).Run(), 0);
  EXPECT_TRUE(QFile::exists(folder_.filePath("data/demo.goods")));
  EXPECT_FALSE(QFile::exists(folder_.filePath("data/demo.goods.new")));
}

TEST_F(Program, SigningOutAsksForTheNextUser) {
  std::ofstream(Path("password")) << "admin";
  StartOptions options = Options();
  options.company = SmallCompany();
  options.user = "admin";
  options.passwordFile = Path("password");
  bool asked = false;
  WhenMainWindow("SignOut_ACT");
  WhileModal([&](QWidget& window) {
    asked = window.objectName() == "SignIn_FRM";
    WhileModal([](QWidget& chooser) { PressKey(chooser, Qt::Key_Escape); });
    PressKey(window, Qt::Key_Escape);
  });
  EXPECT_EQ(DesktopProgram(options).Run(), 0);
  EXPECT_TRUE(asked);
}

TEST_F(Program, WithoutTheLibraryItTellsWhyAndEnds) {
  StartOptions options = Options();
  options.module = Path("missing.so");
  QString told;
  WhileModal([&](QWidget& window) { told = dynamic_cast<QLabel&>(Child(window, "Text")).text(); });
  EXPECT_EQ(DesktopProgram(options).Run(), 1);
  EXPECT_TRUE(told.startsWith("کتابخانه گزارش‌ها پیدا نشد"));
}

}  // namespace
}  // namespace goods
