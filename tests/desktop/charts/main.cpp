#include <QApplication>

#include <gtest/gtest.h>

#include "desktop/app/main_window.h"
#include "desktop/tools/window_driver.h"

int main(int argc, char** argv) {
  goods::UseOffscreenScreen(QSize(1366, 768));
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  goods::ApplyLook({});
  return RUN_ALL_TESTS();
}
