// ServerUsers: the users of a company on a server.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "company/users.h"

namespace goods {

// Reads through the views of the signing in; changes the tables of a database that deploy made, each change
// as a transaction on a connection of its own. The connection's login needs the server's rights to do so:
// without them CompanyError tells what the server said.
class ServerUsers : public IUsers {
 public:
  explicit ServerUsers(std::string connectionString) : connectionString_(std::move(connectionString)) {}

  std::vector<CompanyUser> List() override;
  std::int64_t Add(const CompanyUser& user, std::string_view password) override;
  void Change(const CompanyUser& user) override;
  void Remove(std::int64_t code) override;
  void SetPassword(std::int64_t code, std::string_view password) override;

 private:
  std::string connectionString_;
};

}  // namespace goods
