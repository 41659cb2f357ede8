// Filling a company's tables on a server from a company file.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "company/server/server_session.h"

namespace goods {

// How far a table's copy is, in rows.
struct FillProgress {
  std::string_view table;
  std::int64_t rows = 0;
  std::int64_t total = 0;
};
// False asks for the filling to be given up.
using FillWatcher = std::function<bool(const FillProgress&)>;

// Copies every table of the file, block by block, in the transaction of the caller; the tables must be empty
// and without their triggers. told as in DeployOptions; may be empty. Throws CompanyError.
void FillFromFile(ServerSession& session, const std::string& path, const FillWatcher& told);

}  // namespace goods
