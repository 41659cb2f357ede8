#include "desktop/app/program.h"

#include <QApplication>
#include <QSettings>
#include <QTimer>
#include <exception>
#include <utility>

#include "company/system/password_input.h"
#include "desktop/app/app_look.h"
#include "desktop/app/demo_company.h"
#include "desktop/app/desktop_session.h"
#include "desktop/app/password_dialog.h"
#include "desktop/app/sign_in.h"
#include "desktop/app/users_dialog.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

QString FolderOr(const std::string& given, const QString& otherwise) {
  return given.empty() ? otherwise : ToQt(given);
}

}  // namespace

DesktopProgram::DesktopProgram(StartOptions options)
    : options_(std::move(options)),
      settings_(FolderOr(options_.settingsFolder, DesktopSettings::DefaultFolder())) {
  // The places of report windows are kept in the same folder.
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                     FolderOr(options_.settingsFolder, DesktopSettings::DefaultFolder()));
  settings_.OnFailure = [](const QString& text) { QTimer::singleShot(0, qApp, [text] { Tell(text); }); };
  ApplyLook(settings_.Options());
}

DesktopProgram::~DesktopProgram() = default;

QString DesktopProgram::DemoFolder() const { return FolderOr(options_.dataFolder, DataFolder()); }

int DesktopProgram::Run() {
  // Windows come and go between sign-ins; the program ends only here.
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    if (!options_.statementLog.empty()) StartLog();
    module_ = LoadModule(options_.module);
    while (company_.company != nullptr || ChooseCompany()) {
      const auto user = SignIn();
      const MainOutcome outcome = user ? Work(*user) : MainOutcome::SwitchCompany;
      if (outcome == MainOutcome::Quit) return 0;
      if (outcome == MainOutcome::SwitchCompany) company_ = {};
    }
    return 0;
  } catch (const std::exception& error) {
    Tell(ToQt(error.what()));
    return 1;
  }
}

void DesktopProgram::StartLog() {
  log_ = std::make_unique<StatementLog>(options_.statementLog);
  // Once the statement is through: a message waits for its reader.
  log_->OnFailure = [](const std::exception& error) {
    QTimer::singleShot(0, qApp, [text = ToQt(error.what())] { Tell(text); });
  };
}

bool DesktopProgram::ChooseCompany() {
  CompanyChooser chooser(settings_, [this, &chooser] { return EnsureDemoCompany(DemoFolder(), &chooser); });
  // What the command line names is tried first and once; what fails is told in the chooser.
  const std::string file = std::exchange(options_.company, {});
  const bool demo = std::exchange(options_.demo, false);
  if (!file.empty()) {
    chooser.OpenFile(ToQt(file));
  } else if (demo) {
    chooser.OpenDemo();
  }
  company_ = chooser.Choose();
  if (company_.company != nullptr && log_ != nullptr) log_->Forbid({FromQt(company_.path)});
  return company_.company != nullptr;
}

std::optional<UserRecord> DesktopProgram::SignInFromOptions() {
  const std::string login = std::exchange(options_.user, {});
  if (login.empty() || options_.passwordFile.empty()) {
    if (!login.empty()) settings_.SetLastLogin(ToQt(login));
    return std::nullopt;
  }
  auto user = company_.company->SignIn(login, PasswordFromFile(options_.passwordFile));
  if (!user) throw CompanyError("نام کاربر یا گذرواژه درست نیست: " + login);
  return user;
}

std::optional<UserRecord> DesktopProgram::SignIn() {
  if (auto user = SignInFromOptions()) return user;
  SignInDialog dialog(*company_.company, settings_.LastLogin(), company_.demo ? kDemoUsersHint : QString());
  auto user = dialog.Ask();
  if (user) settings_.SetLastLogin(ToQt(user->login));
  return user;
}

AccountActions AccountActionsFor(ICompany& company, const UserRecord& user) {
  AccountActions actions;
  if (user.everyRight) {
    actions.manageUsers = [&company, user](QWidget* parent) {
      UsersDialog(company.Users(), user.code, parent).exec();
    };
  }
  actions.changePassword = [&company, user](QWidget* parent) {
    const auto take = [&](const std::string& old, const std::string& password) {
      if (!company.SignIn(user.login, old)) throw CompanyError("گذرواژه کنونی درست نیست.");
      company.Users().SetPassword(user.code, password);
    };
    PasswordDialog(ToQt(user.login), true, take, parent).exec();
  };
  return actions;
}

MainOutcome DesktopProgram::Work(const UserRecord& user) {
  DesktopSession session(*company_.company, user, settings_, *module_, log_.get());
  session.Host().Printing().Protect(FromQt(company_.path));
  MainWindow window(session.Host(), *module_, settings_, ToQt(company_.company->Title()), company_.path,
                    AccountActionsFor(*company_.company, user), &session.Host().Views());
  return window.Run();
}

}  // namespace goods
