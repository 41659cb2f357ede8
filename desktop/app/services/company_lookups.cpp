#include "desktop/app/services/company_lookups.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "host/core/text.h"

namespace goods {
namespace {

// Units of goods change seldom, and tables ask for them after each change of their rows.
constexpr std::chrono::minutes kUnitsAreFresh{2};

using Texts = std::vector<std::pair<std::string, std::string>>;

// What may be asked of an entity, by field name.
Texts TextsOf(const GoodRecord& good) {
  Texts texts = {{"Name", good.name},
                 {"Unit", good.unit},
                 {"Unit2", good.unit2},
                 {"AbbName", good.abbreviation},
                 {"UnitKind", std::to_string(good.unitKind)}};
  for (std::size_t i = 0; i < good.detailTitles.size(); ++i) {
    texts.emplace_back("D" + std::to_string(i + 1) + "Title", good.detailTitles[i]);
  }
  return texts;
}

std::optional<Texts> FindTexts(ICompany& company, EntityType type, std::int64_t code) {
  if (type == EntityType::None) return std::nullopt;
  if (type == EntityType::Good) {
    const auto good = company.FindGood(code);
    return good ? std::optional(TextsOf(*good)) : std::nullopt;
  }
  const auto record = company.FindEntity(type, code);
  return record ? std::optional(Texts{{"Name", record->name}}) : std::nullopt;
}

}  // namespace

std::optional<std::vector<std::string>> CompanyLookups::LookupDBs(EntityType type, std::int64_t code,
                                                                  std::string_view fields) {
  return AskCompany([&]() -> std::optional<std::vector<std::string>> {
    const auto known = FindTexts(company_, type, code);
    if (!known) return std::nullopt;
    std::vector<std::string> texts;
    for (const std::string& field : Split(fields, ';')) {
      const auto found = std::find_if(known->begin(), known->end(),
                                      [&](const auto& text) { return SameText(text.first, field); });
      if (found == known->end()) throw CompanyError("این مشخصه وجود ندارد: " + field);
      texts.push_back(found->second);
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

std::shared_ptr<const TUnitsOfGoods> CompanyLookups::UnitsOfGoods() {
  const auto now = std::chrono::steady_clock::now();
  if (units_ != nullptr && now - unitsRead_ < kUnitsAreFresh) return units_;
  auto units = std::make_shared<TUnitsOfGoods>();
  AskCompany([&] {
    for (EntityRecord& good : company_.SearchEntities(EntityType::Good, "", SIZE_MAX))
      units->emplace(good.code, TGoodUnits{std::move(good.unit), std::move(good.unit2)});
  });
  unitsRead_ = now;
  return units_ = std::move(units);
}

}  // namespace goods
