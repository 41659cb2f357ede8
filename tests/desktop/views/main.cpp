#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include "desktop/tools/window_driver.h"
#include "desktop/views/theme.h"

int main(int argc, char** argv) {
  goods::UseOffscreenScreen(QSize(1920, 1080));
  QStandardPaths::setTestModeEnabled(true);
  QApplication application(argc, argv);
  goods::ApplyTheme(application, goods::ThemeMode::Light);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
