// Making, upgrading, filling and checking a company's database on a server.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "company/server/fill_company.h"
#include "company/server/server_address.h"

namespace goods {

// Of what this program deploys. An older database is brought up to it, a newer one refused.
inline constexpr int kServerSchemaVersion = 3;
// The role that may run every report, refresh the stored figures, and write nothing else.
inline constexpr const char* kReaderRole = "goods_reader";

struct DeployOptions {
  ServerAddress server;
  std::string database;
  // A company file to fill the database from; it must then hold no goods yet. Empty: nothing is filled in.
  std::string from;
  // Names of OptionScripts() that are made too, where they are not yet; they stay.
  std::vector<std::string> with;
  // Hears of the filling; returning false stops it, and everything is undone. May be empty.
  FillWatcher told;
};

// Makes the database where it is missing, then its tables, or those that are new; functions, views, triggers
// and procedures are made anew. All but the database itself is one transaction: what fails or is stopped
// leaves everything as it was. Throws CompanyError, also for a database that holds tables of something else.
void DeployCompany(const DeployOptions& options);

// What the database's collation does to texts that reports send without N; empty where they arrive whole.
// Throws CompanyError.
std::string CollationWarning(ServerAddress server, const std::string& database);

// What differs between the database and what this program deploys, and between stored figures and the
// movements: one line each, empty where all is well. Throws CompanyError when it cannot be looked at.
std::vector<std::string> VerifyCompany(ServerAddress server, const std::string& database);

}  // namespace goods
