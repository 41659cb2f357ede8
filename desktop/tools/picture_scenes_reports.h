// Pictures of the wide and the good-detail reports: stock per store, overall turnover, details, mismatches.
#pragma once

#include <QSize>
#include <functional>
#include <stdexcept>
#include <string>

#include "desktop/app/desktop_host.h"
#include "desktop/views/form_view.h"

namespace goods {

// A component of the form that a report's window shows, by its path; throws std::runtime_error for none.
template <typename Kind>
Kind& Component(QWidget& window, const char* path) {
  auto* found = dynamic_cast<Kind*>(dynamic_cast<FormView&>(window).Form().FindComponent(path));
  if (found == nullptr) throw std::runtime_error(std::string("no component ") + path);
  return *found;
}

struct ReportScenes {
  ModuleLibrary& module;  // has the host attached
  DesktopHost& host;
  std::function<void(QWidget& window, const char* name)> save;
  QSize size{1440, 860};  // of the reports' windows; dialogs have their own
};

// Opens each report and takes its pictures. Throws what fails on the way.
void PictureReports(const ReportScenes& scenes);

}  // namespace goods
