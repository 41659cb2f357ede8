#include "tests/scripted/program/company_host.h"

#include <stdexcept>

#ifdef GOODS_WITH_COMPANY

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "company/company.h"

namespace goods {
namespace {

std::optional<ScriptedLookups::Entity> Find(ICompany& company, EntityType type, std::int64_t code) {
  if (type != EntityType::Good) {
    const auto found = company.FindEntity(type, code);
    return found ? std::optional(ScriptedLookups::Entity{{"Name", found->name}}) : std::nullopt;
  }
  const auto good = company.FindGood(code);
  if (!good) return std::nullopt;
  ScriptedLookups::Entity entity{{"Name", good->name},
                                 {"Unit", good->unit},
                                 {"Unit2", good->unit2},
                                 {"UnitKind", std::to_string(good->unitKind)}};
  for (std::size_t i = 0; i < good->detailTitles.size(); ++i) {
    entity["D" + std::to_string(i + 1) + "Title"] = good->detailTitles[i];
  }
  return entity;
}

}  // namespace

void AnswerFromCompany(CaseEnvironment& environment, const std::string& path) {
  const std::shared_ptr<ICompany> company = OpenCompany(path);
  // The connection lives until the next case has one.
  const auto connection = std::make_shared<std::unique_ptr<IConnection>>();
  environment.prepareHost = [company, connection](ScriptedHost& host) {
    *connection = company->OpenConnection();
    host.Connection().SetReal(connection->get());
    host.Lookups().Otherwise = [company](EntityType type, std::int64_t code) {
      return Find(*company, type, code);
    };
  };
}

}  // namespace goods

#else

namespace goods {

void AnswerFromCompany(CaseEnvironment& /*environment*/, const std::string& /*path*/) {
  throw std::runtime_error("this program was built without company databases");
}

}  // namespace goods

#endif
