#include <string_view>

#include "company/company.h"
#include "company/embedded/embedded_company.h"
#include "company/server/server_address.h"
#include "company/server/server_company.h"

namespace goods {

namespace {

constexpr std::string_view kFile = "file:";
constexpr std::string_view kServer = "server:";

}  // namespace

std::unique_ptr<ICompany> OpenCompany(const std::string& description, IStatementProgress* progress) {
  if (description.starts_with(kServer)) return OpenServerCompany(description.substr(kServer.size()), "");
  if (description.starts_with(kFile)) return OpenEmbeddedCompany(description.substr(kFile.size()), progress);
  return OpenEmbeddedCompany(description, progress);
}

bool IsOnServer(const std::string& description) { return description.starts_with(kServer); }

std::string ShownDescription(const std::string& description) {
  if (!IsOnServer(description)) return description;
  return ServerAddress(description.substr(kServer.size())).Description();
}

}  // namespace goods
