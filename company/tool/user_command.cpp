// goods-company user: who may use a company, and what each may open and see.
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "command.h"
#include "company/company.h"
#include "company/embedded/password.h"
#include "company/right_names.h"
#include "password_input.h"

namespace goods {

namespace {

constexpr const char* kAll = "all";
constexpr const char* kPrices = "prices";

struct UserLine {
  std::string file;
  std::string login;
  std::string name;
  std::string passwordFile;
  std::vector<std::string> rights;
  bool all = false;
  bool prices = false;
};

CompanyUser FindUser(IUsers& users, const std::string& login) {
  for (CompanyUser& user : users.List()) {
    if (user.login == login) return std::move(user);
  }
  throw CompanyError("کاربری با نام «" + login + "» نیست.");
}

std::string KnownRights() {
  std::string known = std::string(kAll) + ", " + kPrices;
  for (const NamedRight& right : NamedRights()) known += ", " + std::string(right.key);
  return known;
}

// Gives the user the named rights, or takes them away.
void SetRights(CompanyUser& user, const std::vector<std::string>& names, bool given) {
  for (const std::string& name : names) {
    if (name == kAll) {
      user.everyRight = given;
      if (!given) user.rights.clear();
    } else if (name == kPrices) {
      user.seesPrices = given;
    } else {
      const auto right = ParseRight(name);
      if (!right) throw CompanyError("مجوزی با نام «" + name + "» نیست. نام ها: " + KnownRights());
      std::erase(user.rights, *right);
      if (given) user.rights.push_back(*right);
    }
  }
}

// Typed, read from a file, or made here and shown this once.
std::string PasswordFor(const UserLine& line, bool& made) {
  std::string password = NewPassword(line.passwordFile, line.login);
  made = password.empty();
  return made ? MakePassword() : password;
}

void ShowOnce(const std::string& login, const std::string& password) {
  std::cout << "password of " << login << ": " << password
            << "\n(shown this once; change it after signing in)\n";
}

int AddUser(const UserLine& line) {
  const auto company = OpenCompany(line.file);
  CompanyUser user;
  user.login = line.login;
  user.name = line.name.empty() ? line.login : line.name;
  user.everyRight = line.all;
  user.seesPrices = line.prices || line.all;
  SetRights(user, line.rights, true);
  bool made = false;
  const std::string password = PasswordFor(line, made);
  company->Users().Add(user, password);
  if (made) ShowOnce(line.login, password);
  return kDone;
}

int ChangePassword(const UserLine& line) {
  const auto company = OpenCompany(line.file);
  const CompanyUser user = FindUser(company->Users(), line.login);
  bool made = false;
  const std::string password = PasswordFor(line, made);
  company->Users().SetPassword(user.code, password);
  if (made) ShowOnce(line.login, password);
  return kDone;
}

int ChangeRights(const UserLine& line, bool given) {
  const auto company = OpenCompany(line.file);
  CompanyUser user = FindUser(company->Users(), line.login);
  SetRights(user, line.rights, given);
  company->Users().Change(user);
  return kDone;
}

void List(const CompanyUser& user) {
  std::cout << user.login << "\t" << user.name << "\t";
  if (user.everyRight) {
    std::cout << kAll << "\n";
    return;
  }
  std::cout << (user.seesPrices ? "prices" : "no prices") << "\n";
  for (const UserRight& right : user.rights) {
    const NamedRight* named = FindRight(right);
    std::cout << "  " << RightKey(right);
    if (named != nullptr) std::cout << "\t" << named->group << ": " << named->text;
    std::cout << "\n";
  }
}

int ListUsers(const UserLine& line) {
  const auto company = OpenCompany(line.file);
  for (const CompanyUser& user : company->Users().List()) List(user);
  return kDone;
}

}  // namespace

Command MakeUserCommand(CLI::App& program) {
  const auto line = std::make_shared<UserLine>();
  CLI::App* user =
      program.add_subcommand("user", "Users of a company, their rights and passwords; see docs/security.md");
  user->require_subcommand(1);
  const auto command = [&](const char* name, const char* what) {
    CLI::App* made = user->add_subcommand(name, what);
    made->add_option("FILE", line->file, "The company file")->required();
    return made;
  };
  const auto ofUser = [&](const char* name, const char* what) {
    CLI::App* made = command(name, what);
    made->add_option("LOGIN", line->login, "The name that the user signs in with")->required();
    return made;
  };
  const auto takesPassword = [&](CLI::App* made) {
    made->add_option(
        "--password-file", line->passwordFile,
        "The first line is the password, - is the standard input; asked for when not given, and made "
        "at random when nothing is typed");
  };
  const auto takesRights = [&](CLI::App* made) {
    made->add_option("RIGHT", line->rights, "all, prices, or a right as user list names it")->required();
  };
  CLI::App* list = command("list", "Everybody, with what each may do");
  CLI::App* add = ofUser("add", "A new user");
  add->add_option("--name", line->name, "The name that is shown; the login when not given");
  add->add_flag("--all", line->all, "Every right");
  add->add_flag("--prices", line->prices, "The user sees prices and amounts");
  add->add_option("--right", line->rights, "A right; may be given several times");
  takesPassword(add);
  ofUser("remove", "Take a user away");
  CLI::App* passwd = ofUser("passwd", "Another password");
  takesPassword(passwd);
  CLI::App* grant = ofUser("grant", "Give rights");
  takesRights(grant);
  CLI::App* revoke = ofUser("revoke", "Take rights away");
  takesRights(revoke);
  CLI::App* rights = user->add_subcommand("rights", "The names of all rights");

  return {user, [=] {
            if (rights->parsed()) {
              for (const NamedRight& each : NamedRights()) {
                std::cout << each.key << "\t" << each.group << ": " << each.text << "\n";
              }
              return kDone;
            }
            if (list->parsed()) return ListUsers(*line);
            if (add->parsed()) return AddUser(*line);
            if (passwd->parsed()) return ChangePassword(*line);
            if (grant->parsed()) return ChangeRights(*line, true);
            if (revoke->parsed()) return ChangeRights(*line, false);
            const auto company = OpenCompany(line->file);
            company->Users().Remove(FindUser(company->Users(), line->login).code);
            return kDone;
          }};
}

}  // namespace goods
