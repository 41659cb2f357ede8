#include "desktop/app/services/company_lookups.h"

#include <utility>

#include "host/core/text.h"

namespace goods {
namespace {

// The field of a record, null for a name that it does not have.
const std::string* FieldOf(const EntityRecord& record, std::string_view field) {
  if (SameText(field, "Name")) return &record.name;
  if (SameText(field, "Unit")) return &record.unit;
  if (SameText(field, "Unit2")) return &record.unit2;
  return nullptr;
}

}  // namespace

std::optional<std::vector<std::string>> CompanyLookups::LookupDBs(EntityType type, std::int64_t code,
                                                                  std::string_view fields) {
  if (type == EntityType::None) return std::nullopt;
  return AskCompany([&]() -> std::optional<std::vector<std::string>> {
    const auto record = company_.FindEntity(static_cast<EntityKind>(type), code);
    if (!record) return std::nullopt;
    std::vector<std::string> texts;
    for (const std::string& field : Split(fields, ';')) {
      const std::string* text = FieldOf(*record, field);
      if (text == nullptr && type == EntityType::Good) {
        return company_.Lookup("GoodInf", "Code", std::to_string(code), fields);
      }
      if (text == nullptr) throw CompanyError("این مشخصه وجود ندارد: " + field);
      texts.push_back(*text);
    }
    return texts;
  });
}

std::optional<std::int64_t> CompanyLookups::SelectEntity(TForm* /*owner*/, EntityType /*type*/,
                                                         std::int64_t /*current*/,
                                                         std::string_view /*filter*/) {
  return std::nullopt;
}

std::string CompanyLookups::ReturnCategoryName(std::string_view categoryCode) {
  const auto code = ParseInteger(Trim(categoryCode));
  if (!code) return {};
  return AskCompany([&] { return company_.CategoryName(*code); });
}

std::vector<TTag> CompanyLookups::Tags() {
  return AskCompany([&] {
    std::vector<TTag> tags;
    for (TagRecord& tag : company_.Tags()) {
      tags.push_back(
          {std::to_string(tag.code), std::move(tag.name), ParseColor(tag.background).value_or(kWhite)});
    }
    return tags;
  });
}

std::vector<TCategory> CompanyLookups::Categories() {
  return AskCompany([&] {
    std::vector<TCategory> categories;
    for (CategoryRecord& category : company_.Categories()) {
      const std::string parent = category.parent == 0 ? "" : std::to_string(category.parent);
      categories.push_back({std::to_string(category.code), std::move(category.name), parent});
    }
    return categories;
  });
}

}  // namespace goods
