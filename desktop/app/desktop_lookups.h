// DesktopLookups: look-ups of the company, the list to choose from, and what was chosen lately.
#pragma once

#include <functional>
#include <utility>

#include "desktop/app/services/company_lookups.h"
#include "desktop/views/typed_codes.h"
#include "host/services/settings.h"

class QWidget;

namespace goods {

class DesktopLookups : public CompanyLookups, public ITypedCodes {
 public:
  // company must outlive it. parent gives the window that the list opens over.
  DesktopLookups(ICompany& company, std::function<QWidget*()> parent)
      : CompanyLookups(company), parent_(std::move(parent)) {}
  // An entity whose code the user has typed counts as chosen lately once the code is looked up.
  std::optional<std::vector<std::string>> LookupDBs(EntityType type, std::int64_t code,
                                                    std::string_view fields) override;
  void CodeTyped(TForm& form, EntityType type, std::int64_t code) override;
  std::optional<std::int64_t> SelectEntity(TForm* owner, EntityType type, std::int64_t current,
                                           std::string_view filter) override;
  std::optional<std::vector<std::string>> SelectCategories(TForm* owner,
                                                           const std::vector<std::string>& chosen) override;

 private:
  struct TypedCode {
    ISettings* settings = nullptr;
    EntityType type = EntityType::None;
    std::int64_t code = 0;
  };

  std::function<QWidget*()> parent_;
  TypedCode typed_;
};

}  // namespace goods
