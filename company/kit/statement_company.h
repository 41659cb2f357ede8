// StatementCompany: a company whose look-ups are statements on a connection of its own.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "company/company.h"
#include "company/kit/look_ups.h"
#include "host/data/connection.h"

namespace goods {

// What an engine adds is its connections, users and rights. A look-up that finds the connection lost fails;
// the next one connects again.
class StatementCompany : public ICompany {
 public:
  StatementCompany();
  ~StatementCompany() override;

  std::optional<EntityRecord> FindEntity(EntityType type, std::int64_t code) override;
  std::vector<EntityRecord> SearchEntities(EntityType type, std::string_view text,
                                           std::size_t limit) override;
  std::optional<GoodRecord> FindGood(std::int64_t code) override;
  std::string CategoryName(std::int64_t code) override;
  std::vector<TagRecord> Tags() override;
  std::vector<CategoryRecord> Categories() override;
  std::optional<DocumentView> Document(DocumentKind kind, std::int64_t code) override;
  std::vector<BusyGood> ListBusyGoods(std::size_t limit) override;

 protected:
  // Hands body the look-ups of the connection, made when first needed; a DatabaseError becomes a
  // CompanyError.
  template <typename Body>
  auto Asked(Body body) -> decltype(body(std::declval<LookUps&>())) {
    try {
      Connect();
      return body(*lookUps_);
    } catch (const ConnectionLost& error) {
      Disconnect();
      throw CompanyError(error.what());
    } catch (const DatabaseError& error) {
      throw CompanyError(error.what());
    }
  }

 private:
  void Connect();
  void Disconnect();

  std::unique_ptr<IConnection> connection_;
  std::unique_ptr<LookUps> lookUps_;
};

}  // namespace goods
