#include "company/interchange/workbook.h"
#include "host/core/text.h"

namespace goods {

bool Workbook::IsWorkbookName(const std::string& path) {
  constexpr std::string_view kWorkbookEndings[] = {".xlsx", ".ods"};
  for (const std::string_view ending : kWorkbookEndings) {
    if (path.size() > ending.size() &&
        SameText(std::string_view(path).substr(path.size() - ending.size()), ending))
      return true;
  }
  return false;
}

}  // namespace goods
