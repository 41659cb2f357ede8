#include <QApplication>

#include <gtest/gtest.h>

#include "desktop/app/main_window.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  goods::ApplyLook({});
  return RUN_ALL_TESTS();
}
