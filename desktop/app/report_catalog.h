// The reports that the application offers, in the order of its start page and menu.
#pragma once

#include <span>

namespace goods {

class ModuleLibrary;

struct ReportEntry {
  const char* group;
  const char* title;
  const char* description;
  const char* exportName;
  int softwarePart;  // permission 6 on it opens the report
  int shortcut;      // Ctrl and this digit
  void (*open)(ModuleLibrary& module, const ReportEntry& entry);
};

// All that the application knows of; a library may lack some.
std::span<const ReportEntry> ReportCatalog();

}  // namespace goods
