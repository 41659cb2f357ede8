#include "desktop/app/desktop_lookups.h"

#include "desktop/app/category_picker.h"
#include "desktop/app/entity_picker.h"
#include "desktop/views/shown_text.h"

namespace goods {

std::optional<std::int64_t> DesktopLookups::SelectEntity(TForm* /*owner*/, EntityType type,
                                                         std::int64_t current, std::string_view filter) {
  if (type == EntityType::None) return std::nullopt;
  return AskCompany([&] {
    EntityPicker picker(Company(), type, current, ToQt(filter), parent_());
    return picker.Choose();
  });
}

std::optional<std::vector<std::string>> DesktopLookups::SelectCategories(
    TForm* /*owner*/, const std::vector<std::string>& chosen) {
  CategoryPicker picker(Categories(), chosen, parent_());
  return picker.Choose();
}

}  // namespace goods
