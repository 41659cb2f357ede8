#include "company/embedded/users.h"

#include <type_traits>
#include <utility>

#include "company/embedded/password.h"
#include "host/core/text.h"

namespace goods {

namespace {

constexpr std::size_t kLongestLogin = 40;
constexpr std::size_t kLongestName = 100;
constexpr std::size_t kLongestPassword = 200;

// Runs change in a transaction of its own on the file; what SQLite has to say is told in Persian.
template <typename Change>
auto Changed(const CompanyOpening& open, Change change) -> decltype(change(std::declval<Database&>())) {
  try {
    Database db = open();
    Transaction transaction(db);
    if constexpr (std::is_void_v<decltype(change(db))>) {
      change(db);
      transaction.Commit();
    } else {
      auto result = change(db);
      transaction.Commit();
      return result;
    }
  } catch (const SqliteError& error) {
    throw CompanyError(PersianMessage(error));
  }
}

std::string LoginOf(Database& db, std::int64_t code) {
  Statement user = db.Prepare("SELECT Login FROM Users WHERE Code = ?1");
  user.Bind(1, code);
  if (!user.Step()) throw CompanyError("چنین کاربری نیست.");
  return std::string(user.Text(0));
}

void WriteRights(Database& db, std::int64_t code, const std::vector<UserRight>& rights) {
  Statement none = db.Prepare("DELETE FROM UserRights WHERE UserCode = ?1");
  none.Bind(1, code);
  none.Run();
  Statement insert =
      db.Prepare("INSERT OR IGNORE INTO UserRights(UserCode, Part, Permission) VALUES(?1, ?2, ?3)");
  for (const UserRight& right : rights) {
    insert.Bind(1, code);
    insert.Bind(2, std::int64_t{right.part});
    insert.Bind(3, std::int64_t{right.permission});
    insert.Run();
  }
}

void RequireAdministrator(Database& db) {
  CheckAdministratorsLeft(db.AskInteger("SELECT count(*) FROM Users WHERE EveryRight <> 0"));
}

}  // namespace

IUsers::~IUsers() = default;

void CheckLogin(std::string_view login) {
  const auto fail = [] { throw CompanyError("نام کاربر برای ورود باید 1 تا 40 نویسه و بدون فاصله باشد."); };
  if (login.empty() || CharCount(login) > kLongestLogin) fail();
  for (const char c : login) {
    if (static_cast<unsigned char>(c) <= 0x20 || c == 0x7F) fail();
  }
  // Signs that steer the direction of a text would make two logins look alike.
  for (const std::string_view sign : {"\u200e", "\u200f", "\u202a", "\u202b", "\u202c", "\u202d", "\u202e",
                                      "\u2066", "\u2067", "\u2068", "\u2069", "\u00a0"}) {
    if (login.find(sign) != std::string_view::npos) fail();
  }
}

void CheckPassword(std::string_view login, std::string_view password) {
  const std::size_t length = CharCount(password);
  if (length < kShortestPassword) {
    throw CompanyError("گذرواژه باید دست کم " + std::to_string(kShortestPassword) + " نویسه باشد.");
  }
  if (length > kLongestPassword) throw CompanyError("گذرواژه از 200 نویسه بلندتر است.");
  if (SameText(login, password)) throw CompanyError("گذرواژه نباید همان نام کاربر باشد.");
}

void CheckUserName(std::string_view name) {
  if (Trim(name).empty()) throw CompanyError("نام کاربر را بنویسید.");
  if (CharCount(name) > kLongestName) throw CompanyError("نام کاربر از 100 نویسه بلندتر است.");
}

void CheckAdministratorsLeft(std::int64_t administrators) {
  if (administrators == 0) throw CompanyError("شرکت دست کم یک کاربر با همه مجوزها می خواهد.");
}

std::vector<CompanyUser> EmbeddedUsers::List() {
  try {
    Database db = forReading_();
    Statement users = db.Prepare("SELECT Code, Login, Name, EveryRight, SeesPrices FROM Users ORDER BY Code");
    std::vector<CompanyUser> found;
    while (users.Step()) {
      found.push_back({users.Integer(0),
                       std::string(users.Text(1)),
                       std::string(users.Text(2)),
                       users.Integer(3) != 0,
                       users.Integer(3) != 0 || users.Integer(4) != 0,
                       {}});
    }
    Statement rights =
        db.Prepare("SELECT Part, Permission FROM UserRights WHERE UserCode = ?1 ORDER BY Part, Permission");
    for (CompanyUser& user : found) {
      rights.Reset();
      rights.Bind(1, user.code);
      while (rights.Step()) {
        user.rights.push_back({static_cast<int>(rights.Integer(0)), static_cast<int>(rights.Integer(1))});
      }
    }
    return found;
  } catch (const SqliteError& error) {
    throw CompanyError(PersianMessage(error));
  }
}

std::int64_t EmbeddedUsers::Add(const CompanyUser& user, std::string_view password) {
  CheckLogin(user.login);
  CheckUserName(user.name);
  CheckPassword(user.login, password);
  const std::string hash = HashPassword(password);
  return Changed(forWriting_, [&](Database& db) {
    Statement taken = db.Prepare("SELECT 1 FROM Users WHERE Login = ?1");
    taken.Bind(1, std::string_view(user.login));
    if (taken.Step()) throw CompanyError("کاربری با نام «" + user.login + "» هست.");
    taken.Reset();
    const std::int64_t code = db.AskInteger("SELECT coalesce(max(Code), 0) + 1 FROM Users");
    Statement insert = db.Prepare(
        "INSERT INTO Users(Code, Login, Name, PasswordHash, EveryRight, SeesPrices) "
        "VALUES(?1, ?2, ?3, ?4, ?5, ?6)");
    insert.Bind(1, code);
    insert.Bind(2, std::string_view(user.login));
    insert.Bind(3, Trim(user.name));
    insert.Bind(4, std::string_view(hash));
    insert.Bind(5, std::int64_t{user.everyRight});
    insert.Bind(6, std::int64_t{user.seesPrices});
    insert.Run();
    WriteRights(db, code, user.rights);
    return code;
  });
}

void EmbeddedUsers::Change(const CompanyUser& user) {
  CheckUserName(user.name);
  Changed(forWriting_, [&](Database& db) {
    LoginOf(db, user.code);
    Statement update =
        db.Prepare("UPDATE Users SET Name = ?2, EveryRight = ?3, SeesPrices = ?4 WHERE Code = ?1");
    update.Bind(1, user.code);
    update.Bind(2, Trim(user.name));
    update.Bind(3, std::int64_t{user.everyRight});
    update.Bind(4, std::int64_t{user.seesPrices});
    update.Run();
    WriteRights(db, user.code, user.rights);
    RequireAdministrator(db);
  });
}

void EmbeddedUsers::Remove(std::int64_t code) {
  Changed(forWriting_, [&](Database& db) {
    LoginOf(db, code);
    for (const char* sql :
         {"DELETE FROM UserRights WHERE UserCode = ?1", "DELETE FROM Users WHERE Code = ?1"}) {
      Statement remove = db.Prepare(sql);
      remove.Bind(1, code);
      remove.Run();
    }
    RequireAdministrator(db);
  });
}

void EmbeddedUsers::SetPassword(std::int64_t code, std::string_view password) {
  Changed(forWriting_, [&](Database& db) {
    CheckPassword(LoginOf(db, code), password);
    Statement update = db.Prepare("UPDATE Users SET PasswordHash = ?2 WHERE Code = ?1");
    update.Bind(1, code);
    update.Bind(2, std::string_view(HashPassword(password)));
    update.Run();
  });
}

}  // namespace goods
