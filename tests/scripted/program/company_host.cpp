#include "tests/scripted/program/company_host.h"

#include <stdexcept>

#ifdef GOODS_WITH_COMPANY

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "company/company.h"
#include "host/core/text.h"

namespace goods {
namespace {

std::optional<ScriptedLookups::Entity> Find(ICompany& company, EntityType type, std::int64_t code) {
  const auto found = company.FindEntity(static_cast<EntityKind>(type), code);
  if (!found) return std::nullopt;
  ScriptedLookups::Entity entity{{"Name", found->name}, {"Unit", found->unit}, {"Unit2", found->unit2}};
  if (type != EntityType::Good) return entity;
  constexpr const char* kDetailFields = "UnitKind;D1Title;D2Title;D3Title;D4Title;D5Title";
  const auto values = company.Lookup("GoodInf", "Code", std::to_string(code), kDetailFields);
  const std::vector<std::string> names = Split(kDetailFields, ';');
  for (std::size_t i = 0; values && i < names.size(); ++i) entity[names[i]] = (*values)[i];
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
