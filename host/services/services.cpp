// The destructors of the service interfaces, here so that their type information lives in one library.
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

}  // namespace goods
