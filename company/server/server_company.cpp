#include "company/server/server_company.h"

#include <memory>
#include <utility>

#include "company/embedded/password.h"
#include "company/embedded/users.h"
#include "company/kit/look_ups.h"
#include "company/kit/statement_company.h"
#include "company/server/deploy.h"
#include "company/server/server_address.h"
#include "company/server/server_connection.h"
#include "company/server/server_session.h"
#include "company/server/server_users.h"
#include "host/core/text.h"

namespace goods {

namespace {

class ServerCompany : public StatementCompany {
 public:
  explicit ServerCompany(const ServerAddress& address)
      : connectionString_(address.ConnectionString()), users_(connectionString_) {
    ServerSession session(connectionString_);
    title_ = session.AskText("SELECT DB_NAME()");
    if (session.AskInteger("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_NAME = N'Meta'") == 0)
      return;
    const RowStore meta = session.Ask("SELECT [Key], Value FROM dbo.Meta");
    for (std::size_t row = 0; row < meta.Count(); ++row) {
      const std::string key = meta.Cell(row, 0).AsText();
      if (key == "Title") title_ = meta.Cell(row, 1).AsText();
      if (key != "SchemaVersion") continue;
      const std::int64_t version = meta.Cell(row, 1).AsInteger();
      if (version > kServerSchemaVersion) {
        throw CompanyError("این شرکت با نسخه تازه تری از برنامه ساخته شده است و با این نسخه باز نمی شود.");
      }
      if (version < kServerSchemaVersion) {
        throw CompanyError(
            "این شرکت با نسخه قدیمی تری از برنامه ساخته شده است؛ نخست با goods-company deploy به نسخه تازه "
            "برده شود.");
      }
    }
  }

  std::string Title() const override { return title_; }

  std::unique_ptr<IConnection> OpenConnection() override {
    return std::make_unique<ServerConnection>(connectionString_, ServerTimeouts{}, prices_);
  }

  std::optional<UserRecord> SignIn(std::string_view login, std::string_view password) override {
    return guard_.SignIn(login, [&] { return FindUser(login, password); });
  }

  IUsers& Users() override { return users_; }

  bool HasRight(const UserRecord& user, int softwarePart, int permission) override {
    return Asked([&](LookUps& lookUps) {
      const std::string code = std::to_string(user.code);
      if (lookUps.Ask("SELECT e.Code FROM UserLookUp_VW e WHERE e.EveryRight <> 0 AND e.Code = " + code)
              .Count() != 0) {
        return true;
      }
      return lookUps
                 .Ask("SELECT TOP 1 e.UserCode FROM UserRightLookUp_VW e WHERE e.UserCode = " + code +
                      " AND e.Part = " + std::to_string(softwarePart) +
                      " AND e.Permission = " + std::to_string(permission))
                 .Count() != 0;
    });
  }

 private:
  std::optional<UserRecord> FindUser(std::string_view login, std::string_view password) {
    return Asked([&](LookUps& lookUps) -> std::optional<UserRecord> {
      const LookUpRows user = lookUps.Ask(
          "SELECT e.Code, e.Login, e.Name, e.EveryRight, e.PasswordHash, e.SeesPrices FROM UserLookUp_VW e "
          "WHERE e.Login = " +
          TextLiteral(login));
      const bool known = user.Count() == 1 && user.Text(0, 1) == login;
      if (!(known ? VerifyPassword(password, user.Text(0, 4)) : VerifyNothing(password))) return std::nullopt;
      UserRecord record;
      record.code = user.Integer(0, 0);
      record.login = user.Text(0, 1);
      record.name = user.Text(0, 2);
      record.everyRight = user.Integer(0, 3) != 0;
      record.seesPrices = record.everyRight || user.Integer(0, 5) != 0;
      return record;
    });
  }

  std::string connectionString_;
  std::shared_ptr<PreparedPrices> prices_ = std::make_shared<PreparedPrices>();
  ServerUsers users_;
  SignInGuard guard_;
  std::string title_;
};

}  // namespace

std::unique_ptr<ICompany> OpenServerCompany(std::string_view address, std::string_view password) {
  ServerAddress where(address);
  if (!password.empty()) where.Set("PWD", password);
  return std::make_unique<ServerCompany>(where);
}

}  // namespace goods
