// EmbeddedUsers: the users of a company file. SignInGuard: who may sign in, and when.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "company/company.h"
#include "company/embedded/sqlite.h"
#include "company/users.h"

namespace goods {

// A new handle on the company's file. Throws CompanyError when it cannot be had.
using CompanyOpening = std::function<Database()>;

// Each change is a transaction on a handle of its own. For the errors see IUsers.
class EmbeddedUsers : public IUsers {
 public:
  EmbeddedUsers(CompanyOpening forReading, CompanyOpening forWriting)
      : forReading_(std::move(forReading)), forWriting_(std::move(forWriting)) {}

  std::vector<CompanyUser> List() override;
  std::int64_t Add(const CompanyUser& user, std::string_view password) override;
  void Change(const CompanyUser& user) override;
  void Remove(std::int64_t code) override;
  void SetPassword(std::int64_t code, std::string_view password) override;

 private:
  CompanyOpening forReading_;
  CompanyOpening forWriting_;
};

// Throws CompanyError when the text cannot be a login: 1 to 40 characters without blanks and without signs
// that steer the direction of a text.
void CheckLogin(std::string_view login);
// Throws CompanyError when a user of that login may not have the password.
void CheckPassword(std::string_view login, std::string_view password);

// Throws CompanyError for a shown name that is empty or longer than 100 characters.
void CheckUserName(std::string_view name);
// Throws CompanyError when no user with every right is left.
void CheckAdministratorsLeft(std::int64_t administrators);

// How long a login is refused after so many failed sign-ins in a row, in seconds: not at all before the
// fifth, then 5, 10, 20 and so on, never more than 300.
std::int64_t SignInDelay(std::int64_t failures);

// Checks logins and passwords. Failures are counted in the company's file, so that ending the program does
// not forget them; of a file that cannot be written, and of a company on a server, in this object. An unknown
// login costs what a known one does and is counted alike. At most 1,000 logins are kept, the latest ones.
class SignInGuard {
 public:
  using Clock = std::function<std::int64_t()>;  // seconds since 1970

  // Looks at a login's password; none when it is unknown or the password is not its own.
  using Check = std::function<std::optional<UserRecord>()>;

  // forWriting: empty for a company that keeps no failures.
  SignInGuard(CompanyOpening forWriting, Clock clock);
  // With the clock of the computer.
  explicit SignInGuard(CompanyOpening forWriting = {});

  // None when the login is unknown or the password is not its own. Throws SignInDelayed, without a look at
  // the password, while the login is refused; SqliteError when the company cannot be read.
  std::optional<UserRecord> SignIn(Database& db, std::string_view login, std::string_view password);
  // The same for users who are looked up otherwise, with failures counted in this object.
  std::optional<UserRecord> SignIn(std::string_view login, const Check& check);

 private:
  struct Failures {
    std::int64_t count = 0;
    std::int64_t last = 0;
  };
  std::optional<UserRecord> SignIn(const std::string& key, Failures failures, const Check& check);
  Failures FailuresOf(Database& db, const std::string& login) const;
  Failures Unwritten(const std::string& login) const;
  void Keep(const std::string& login, Failures failures);
  void Forget(const std::string& login);
  // Runs change on a handle that may write; false when the company cannot be written now.
  bool Write(const std::function<void(Database&)>& change) const;

  CompanyOpening forWriting_;
  Clock clock_;
  std::map<std::string, Failures, std::less<>> unwritten_;
};

}  // namespace goods
