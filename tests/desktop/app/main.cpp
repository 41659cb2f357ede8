#include <QApplication>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include "desktop/app/main_window.h"
#include "desktop/tools/window_driver.h"

namespace {

// "1440x900*1.5": the pixels of the screen and the factor that everything is shown at.
void UseTestScreen() {
  const QString given = qEnvironmentVariable("GOODS_TEST_SCREEN", "1920x1080*1");
  const QStringList parts = given.split(QRegularExpression("[x*]"));
  goods::UseOffscreenScreen(QSize(parts.value(0).toInt(), parts.value(1).toInt()),
                            parts.value(2, "1").toDouble());
}

}  // namespace

int main(int argc, char** argv) {
  UseTestScreen();
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  goods::ApplyLook({});
  return RUN_ALL_TESTS();
}
