#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include "desktop/views/theme.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QStandardPaths::setTestModeEnabled(true);
  QApplication application(argc, argv);
  goods::ApplyTheme(application, goods::ThemeMode::Light);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
