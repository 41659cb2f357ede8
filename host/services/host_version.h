// The version of the host packages: a digest of their headers, worked out by the build
// (cmake/host_version.cmake).
#pragma once

#include <cstdint>

#include "goods_host_version.h"

namespace goods {

// That of the headers that the includer is compiled with.
inline constexpr std::int32_t kHostVersion = GOODS_HOST_VERSION;

// That of the headers that the loaded libgoods_host was compiled with.
std::int32_t HostLibraryVersion();

}  // namespace goods
