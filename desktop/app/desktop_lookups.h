// DesktopLookups: look-ups of the company, and the list to choose from.
#pragma once

#include <functional>
#include <utility>

#include "desktop/app/services/company_lookups.h"

class QWidget;

namespace goods {

class DesktopLookups : public CompanyLookups {
 public:
  // company must outlive it. parent gives the window that the list opens over.
  DesktopLookups(ICompany& company, std::function<QWidget*()> parent)
      : CompanyLookups(company), parent_(std::move(parent)) {}
  std::optional<std::int64_t> SelectEntity(TForm* owner, EntityType type, std::int64_t current,
                                           std::string_view filter) override;
  std::optional<std::vector<std::string>> SelectCategories(TForm* owner,
                                                           const std::vector<std::string>& chosen) override;

 private:
  std::function<QWidget*()> parent_;
};

}  // namespace goods
