// Who may use a company, what each may open, and whether each sees prices.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace goods {

// A permission on a software part, by the numbers that reports ask for (host/services/rights.h).
struct UserRight {
  int part = 0;
  int permission = 0;
  friend bool operator==(const UserRight&, const UserRight&) = default;
  friend auto operator<=>(const UserRight&, const UserRight&) = default;
};

struct CompanyUser {
  std::int64_t code = 0;  // given by Add
  std::string login;
  std::string name;
  bool everyRight = false;  // with it, rights and seesPrices mean nothing: everything is allowed
  bool seesPrices = true;
  std::vector<UserRight> rights;  // sorted, each once
};

// Shortest password that a user may be given, in characters.
inline constexpr std::size_t kShortestPassword = 8;

// The users of an open company. Who may change them is for the caller to ask. Failures throw CompanyError: a
// login that is taken or cannot be one, a password that is too short or the login itself, no such user, a
// company that cannot be written, and whatever would leave the company without a user of every right.
// Nothing is then changed. One object is used by one thread at a time.
class IUsers {
 public:
  virtual ~IUsers();
  // By code.
  virtual std::vector<CompanyUser> List() = 0;
  // Returns the new user's code.
  virtual std::int64_t Add(const CompanyUser& user, std::string_view password) = 0;
  // Name, every right, prices and rights of the user of that code; the login stays.
  virtual void Change(const CompanyUser& user) = 0;
  virtual void Remove(std::int64_t code) = 0;
  virtual void SetPassword(std::int64_t code, std::string_view password) = 0;
};

}  // namespace goods
