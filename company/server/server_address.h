// Where a company on a server is: what a user writes, and the ODBC connection string that it means.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace goods {

// Keywords and values of an ODBC connection string, in order.
class ServerAddress {
 public:
  // "HOST[:PORT][/DATABASE]", or "keyword=value;..." with the keywords of ODBC or the short ones host, port,
  // database, user, password, driver, dsn and encrypt (yes or no). A value may stand in { }. Without a driver
  // or a DSN the driver is FreeTDS, in its newest protocol and with UTF-8. Throws CompanyError for what is
  // neither.
  explicit ServerAddress(std::string_view text);

  // Letter case of A to Z apart; none when it was not given.
  std::optional<std::string> Find(std::string_view keyword) const;
  // An empty value takes the keyword away.
  void Set(std::string_view keyword, std::string_view value);

  std::string ConnectionString() const;
  // As it may be shown and kept: without the password.
  std::string Description() const;

 private:
  std::string Joined(bool password) const;
  std::vector<std::pair<std::string, std::string>> pairs_;
};

}  // namespace goods
