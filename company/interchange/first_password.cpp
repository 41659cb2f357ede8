#include "company/interchange/first_password.h"

#include "company/embedded/password.h"
#include "company/embedded/users.h"

namespace goods {

void SetFirstPassword(Database& db, const std::string& password, ImportCounts& counts) {
  if (db.AskInteger("SELECT count(*) FROM Users WHERE EveryRight <> 0") == 0) {
    db.Run(
        "INSERT INTO Users(Code, Login, Name, PasswordHash, EveryRight)"
        " SELECT ifnull(max(Code), 0) + 1, 'admin', 'مدیر', '', 1 FROM Users");
  }
  if (db.AskInteger("SELECT count(*) FROM Users WHERE EveryRight <> 0 AND PasswordHash <> ''") == 0) {
    counts.firstLogin = db.AskText("SELECT Login FROM Users WHERE EveryRight <> 0 ORDER BY Code LIMIT 1");
    if (!password.empty()) CheckPassword(counts.firstLogin, password);
    if (password.empty()) counts.firstPassword = MakePassword();
    Statement set = db.Prepare("UPDATE Users SET PasswordHash = ?2 WHERE Login = ?1");
    set.Bind(1, std::string_view(counts.firstLogin));
    set.Bind(2, std::string_view(HashPassword(password.empty() ? counts.firstPassword : password)));
    set.Run();
  }
  Statement without = db.Prepare("SELECT Login FROM Users WHERE PasswordHash = '' ORDER BY Code");
  while (without.Step()) counts.withoutPassword.emplace_back(without.Text(0));
}

}  // namespace goods
