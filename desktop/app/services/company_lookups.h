// CompanyLookups: entities of the company by code. Choosing one is left to a host with a screen.
#pragma once

#include <chrono>
#include <memory>

#include "company/company.h"
#include "host/data/connection.h"
#include "host/services/good_units.h"
#include "host/services/lookups.h"

namespace goods {

// What a question to the company answers. Where it cannot be answered, the error is the one that look-ups
// throw.
template <typename Question>
auto AskCompany(Question&& question) {
  try {
    return question();
  } catch (const CompanyError& error) {
    throw DatabaseError(error.what(), "");
  }
}

class CompanyLookups : public ILookups, public IGoodUnits {
 public:
  // company must outlive it.
  explicit CompanyLookups(ICompany& company) : company_(company) {}

  std::optional<std::vector<std::string>> LookupDBs(EntityType type, std::int64_t code,
                                                    std::string_view fields) override;
  // Nobody is there to choose: always none.
  std::optional<std::int64_t> SelectEntity(TForm* owner, EntityType type, std::int64_t current,
                                           std::string_view filter) override;
  std::string ReturnCategoryName(std::string_view categoryCode) override;
  // A tag without a colour that can be read is white.
  std::vector<TTag> Tags() override;
  std::vector<TCategory> Categories() override;
  // Read again after a while only.
  std::shared_ptr<const TUnitsOfGoods> UnitsOfGoods() override;

 protected:
  ICompany& Company() { return company_; }

 private:
  ICompany& company_;
  std::shared_ptr<const TUnitsOfGoods> units_;
  std::chrono::steady_clock::time_point unitsRead_;
};

}  // namespace goods
