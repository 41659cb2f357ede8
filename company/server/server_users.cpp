#include "company/server/server_users.h"

#include "company/company.h"
#include "company/embedded/password.h"
#include "company/embedded/users.h"
#include "company/server/server_session.h"
#include "host/core/text.h"

namespace goods {

namespace {

std::string Flag(bool set) { return set ? "1" : "0"; }

std::string LoginOf(ServerSession& session, std::int64_t code) {
  const RowStore user = session.Ask("SELECT Login FROM dbo.Users WHERE Code = " + std::to_string(code));
  if (user.Count() == 0) throw CompanyError("چنین کاربری نیست.");
  return user.Cell(0, 0).AsText();
}

void WriteRights(ServerSession& session, std::int64_t code, const std::vector<UserRight>& rights) {
  session.Run("DELETE FROM dbo.UserRights WHERE UserCode = " + std::to_string(code));
  for (const UserRight& right : rights) {
    session.Run("INSERT INTO dbo.UserRights(UserCode, Part, Permission) VALUES(" + std::to_string(code) +
                ", " + std::to_string(right.part) + ", " + std::to_string(right.permission) + ")");
  }
}

void RequireAdministrator(ServerSession& session) {
  CheckAdministratorsLeft(session.AskInteger("SELECT COUNT(*) FROM dbo.Users WHERE EveryRight <> 0"));
}

}  // namespace

std::vector<CompanyUser> ServerUsers::List() {
  ServerSession session(connectionString_);
  const RowStore users = session.Ask(
      "SELECT e.Code, e.Login, e.Name, e.EveryRight, e.SeesPrices FROM dbo.UserLookUp_VW e ORDER BY e.Code");
  std::vector<CompanyUser> found;
  for (std::size_t row = 0; row < users.Count(); ++row) {
    const bool everyRight = users.Cell(row, 3).AsInteger() != 0;
    CompanyUser user{users.Cell(row, 0).AsInteger(),
                     users.Cell(row, 1).AsText(),
                     users.Cell(row, 2).AsText(),
                     everyRight,
                     everyRight || users.Cell(row, 4).AsInteger() != 0,
                     {}};
    const RowStore rights =
        session.Ask("SELECT e.Part, e.Permission FROM dbo.UserRightLookUp_VW e WHERE e.UserCode = " +
                    std::to_string(user.code) + " ORDER BY e.Part, e.Permission");
    for (std::size_t at = 0; at < rights.Count(); ++at) {
      user.rights.push_back({static_cast<int>(rights.Cell(at, 0).AsInteger()),
                             static_cast<int>(rights.Cell(at, 1).AsInteger())});
    }
    found.push_back(std::move(user));
  }
  return found;
}

std::int64_t ServerUsers::Add(const CompanyUser& user, std::string_view password) {
  CheckLogin(user.login);
  CheckUserName(user.name);
  CheckPassword(user.login, password);
  const std::string hash = HashPassword(password);
  ServerSession session(connectionString_);
  ServerTransaction transaction(session);
  if (session.AskInteger("SELECT COUNT(*) FROM dbo.Users WHERE Login = " + ServerText(user.login)) != 0) {
    throw CompanyError("کاربری با نام «" + user.login + "» هست.");
  }
  const std::int64_t code = session.AskInteger("SELECT ISNULL(MAX(Code), 0) + 1 FROM dbo.Users");
  session.Run("INSERT INTO dbo.Users(Code, Login, Name, PasswordHash, EveryRight, SeesPrices) VALUES(" +
              std::to_string(code) + ", " + ServerText(user.login) + ", " + ServerText(Trim(user.name)) +
              ", " + ServerText(hash) + ", " + Flag(user.everyRight) + ", " + Flag(user.seesPrices) + ")");
  WriteRights(session, code, user.rights);
  transaction.Commit();
  return code;
}

void ServerUsers::Change(const CompanyUser& user) {
  CheckUserName(user.name);
  ServerSession session(connectionString_);
  ServerTransaction transaction(session);
  LoginOf(session, user.code);
  session.Run("UPDATE dbo.Users SET Name = " + ServerText(Trim(user.name)) +
              ", EveryRight = " + Flag(user.everyRight) + ", SeesPrices = " + Flag(user.seesPrices) +
              " WHERE Code = " + std::to_string(user.code));
  WriteRights(session, user.code, user.rights);
  RequireAdministrator(session);
  transaction.Commit();
}

void ServerUsers::Remove(std::int64_t code) {
  ServerSession session(connectionString_);
  ServerTransaction transaction(session);
  LoginOf(session, code);
  session.Run("DELETE FROM dbo.UserRights WHERE UserCode = " + std::to_string(code));
  session.Run("DELETE FROM dbo.Users WHERE Code = " + std::to_string(code));
  RequireAdministrator(session);
  transaction.Commit();
}

void ServerUsers::SetPassword(std::int64_t code, std::string_view password) {
  ServerSession session(connectionString_);
  CheckPassword(LoginOf(session, code), password);
  session.Run("UPDATE dbo.Users SET PasswordHash = " + ServerText(HashPassword(password)) +
              " WHERE Code = " + std::to_string(code));
}

}  // namespace goods
