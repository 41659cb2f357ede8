#include "tests/scripted/program/company_host.h"

#include <stdexcept>

#ifdef GOODS_WITH_COMPANY

#include <memory>
#include <utility>

#include "company/company.h"

namespace goods {
namespace {

std::optional<ScriptedLookups::Entity> Find(ICompany& company, EntityType type, std::int64_t code) {
  const auto found = company.FindEntity(static_cast<EntityKind>(type), code);
  if (!found) return std::nullopt;
  return ScriptedLookups::Entity{{"Name", found->name}, {"Unit", found->unit}, {"Unit2", found->unit2}};
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
