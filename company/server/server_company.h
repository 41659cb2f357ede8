// A company in a database on a server.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "company/company.h"

namespace goods {

// address: as ServerAddress reads it; password: that of its user, empty where the address has it or none is
// needed. Throws CompanyError when the server does not answer, refuses the login or has no such database, or
// when the database is newer than this program. A database that was not deployed by this program is taken as
// it is: it needs the procedures and the look-up views of docs/procedures.md.
std::unique_ptr<ICompany> OpenServerCompany(std::string_view address, std::string_view password);

}  // namespace goods
