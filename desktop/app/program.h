// DesktopProgram: from the start to the end: the module, the company, the user, the main window, and round
// again.
#pragma once

#include <memory>
#include <optional>

#include "company/company.h"
#include "desktop/app/company_chooser.h"
#include "desktop/app/main_window.h"
#include "desktop/app/services/desktop_settings.h"
#include "desktop/app/services/module_library.h"
#include "desktop/app/services/statement_log.h"

namespace goods {

// What the command line says; empty for what it does not.
struct StartOptions {
  std::string company;       // the file to open
  bool demo = false;         // the demo company, without asking
  std::string user;          // signs in with this name and the password below, without asking
  std::string passwordFile;  // its first line
  std::string statementLog;
  std::string module;
  std::string settingsFolder;
  std::string dataFolder;  // where the demo company lies
};

// Everybody may change the own password, users with every right manage the others. company must outlive the
// actions.
AccountActions AccountActionsFor(ICompany& company, const UserRecord& user);

class DesktopProgram {
 public:
  explicit DesktopProgram(StartOptions options);
  ~DesktopProgram();

  // Returns the exit code: 1 when the program could not start, after telling why.
  int Run();

 private:
  void StartLog();
  bool ChooseCompany();
  std::optional<UserRecord> SignIn();
  std::optional<UserRecord> SignInFromOptions();
  MainOutcome Work(const UserRecord& user);
  QString DemoFolder() const;

  StartOptions options_;
  DesktopSettings settings_;
  std::unique_ptr<StatementLog> log_;
  std::unique_ptr<ModuleLibrary> module_;
  OpenedCompany company_;
};

}  // namespace goods
