// What the service interfaces have of their own, here so that their type information lives in one library.
#include "host/services/host.h"

namespace goods {

IRights::~IRights() = default;
IMessages::~IMessages() = default;
IWaiting::~IWaiting() = default;
ISettings::~ISettings() = default;
IReportTable::~IReportTable() = default;
IPrinting::~IPrinting() = default;
IDocuments::~IDocuments() = default;
ILookups::~ILookups() = default;
IWindows::~IWindows() = default;
THost::~THost() = default;

std::string ISettings::ReadSection(std::string_view /*section*/) const { return {}; }
void ISettings::WriteSection(std::string_view /*section*/, std::string_view /*text*/) {}

std::vector<TTag> ILookups::Tags() { return {}; }
std::vector<TCategory> ILookups::Categories() { return {}; }
std::optional<std::vector<std::string>> ILookups::SelectCategories(
    TForm* /*owner*/, const std::vector<std::string>& /*chosen*/) {
  return std::nullopt;
}

bool IDocuments::DontSavedVouchers(std::string_view /*kind*/) { return false; }
bool NoDocuments::LoadedDLLs(DocumentModule /*module*/) const { return false; }

bool IsAllowed(IRights& rights, int softwarePart, int permission, RightQuestion question) {
  return rights.HavePermission(rights.UserInfo(), softwarePart, permission,
                               question == RightQuestion::ToldAndLogged, question != RightQuestion::Silent,
                               "");
}

}  // namespace goods
