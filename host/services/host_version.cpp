#include "host/services/host_version.h"

namespace goods {

std::int32_t HostLibraryVersion() { return kHostVersion; }

}  // namespace goods
