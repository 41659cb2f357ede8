// Pictures of the wide and the good-detail reports: stock per store, overall turnover, details, mismatches.
#pragma once

#include <QSize>
#include <functional>

#include "desktop/app/desktop_host.h"

namespace goods {

struct ReportScenes {
  ModuleLibrary& module;  // has the host attached
  DesktopHost& host;
  std::function<void(QWidget& window, const char* name)> save;
  QSize size{1440, 860};  // of the reports' windows; dialogs have their own
};

// Opens each report and takes its pictures. Throws what fails on the way.
void PictureReports(const ReportScenes& scenes);

}  // namespace goods
