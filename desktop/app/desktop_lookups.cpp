#include "desktop/app/desktop_lookups.h"

#include "desktop/app/category_picker.h"
#include "desktop/app/entity_picker.h"
#include "desktop/app/services/recent_entities.h"
#include "desktop/views/shown_text.h"
#include "host/components/form.h"

namespace goods {

std::optional<std::int64_t> DesktopLookups::SelectEntity(TForm* owner, EntityType type, std::int64_t current,
                                                         std::string_view filter) {
  if (type == EntityType::None) return std::nullopt;
  return AskCompany([&] {
    std::optional<RecentEntities> recent;
    if (owner != nullptr) recent.emplace(owner->Host().Settings(), Company().Title());
    EntityPicker picker(Company(), type, current, ToQt(filter), parent_(),
                        recent ? recent->Codes(type) : std::vector<std::int64_t>());
    const auto chosen = picker.Choose();
    if (recent && chosen) recent->Add(type, *chosen);
    return chosen;
  });
}

void DesktopLookups::CodeTyped(TForm& form, EntityType type, std::int64_t code) {
  typed_ = {&form.Host().Settings(), type, code};
}

std::optional<std::vector<std::string>> DesktopLookups::LookupDBs(EntityType type, std::int64_t code,
                                                                  std::string_view fields) {
  auto found = CompanyLookups::LookupDBs(type, code, fields);
  if (found && code != 0 && typed_.code == code && typed_.type == type)
    RecentEntities(*std::exchange(typed_, {}).settings, Company().Title()).Add(type, code);
  return found;
}

std::optional<std::vector<std::string>> DesktopLookups::SelectCategories(
    TForm* /*owner*/, const std::vector<std::string>& chosen) {
  CategoryPicker picker(Categories(), chosen, parent_());
  return picker.Choose();
}

}  // namespace goods
