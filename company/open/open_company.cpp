#include <string_view>

#include "company/company.h"
#include "company/embedded/embedded_company.h"

namespace goods {

std::unique_ptr<ICompany> OpenCompany(const std::string& description) {
  constexpr std::string_view kFile = "file:";
  if (description.starts_with(kFile)) return OpenEmbeddedCompany(description.substr(kFile.size()));
  return OpenEmbeddedCompany(description);
}

}  // namespace goods
