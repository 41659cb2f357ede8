// goods-desktop: the command line of the desktop, which is in libgoods_desktop.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <cstdint>
#include <cstdio>
#include <string>

#include "company/system/program.h"
#include "goods_desktop.h"

// Only a mistake in the options' own declarations is thrown out of it.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  QApplication application(argc, argv);
  QApplication::setOrganizationName("goods");
  QApplication::setApplicationName("goods-desktop");

  std::string companyName;
  bool demo = false;
  std::string login;
  std::string passwordFile;
  std::string statementLog;
  std::string module;
  std::string settingsFolder;
  std::string dataFolder;
  CLI::App commandLine("The goods reports on a desktop.");
  commandLine.allow_windows_style_options(false);  // "/..." is a path on every system
  auto* company = commandLine.add_option("FILE,--company", companyName, "Open this company file");
  std::string server;
  commandLine
      .add_option("--server", server,
                  "Open this company on a server: HOST[:PORT]/DATABASE, or an ODBC connection string")
      ->excludes(company);
  commandLine.add_flag("--demo", demo, "Open the demo company, made on first use")->excludes(company);
  auto* user = commandLine.add_option("--user", login, "Sign in as this user");
  commandLine.add_option("--password-file", passwordFile, "The first line is the user's password")
      ->needs(user);
  commandLine.add_option("--statement-log", statementLog,
                         "Append each statement with its milliseconds and row count to this file");
  commandLine.add_option("--module", module, "The report library, instead of the one beside the program");
  commandLine.add_option("--settings", settingsFolder, "Folder of the settings");
  commandLine.add_option("--data", dataFolder, "Folder of the demo company");
  goods::ProgramArguments arguments(argc, argv);
  CLI11_PARSE(commandLine, arguments.Count(), arguments.Values());

  if (!server.empty()) companyName = "server:" + server;
  goods_desktop_program program{};
  program.struct_size = sizeof program;
  program.demo = demo ? 1 : 0;
  program.company = companyName.c_str();
  program.user = login.c_str();
  program.password_file = passwordFile.c_str();
  program.statement_log = statementLog.c_str();
  program.module = module.c_str();
  program.settings_folder = settingsFolder.c_str();
  program.data_folder = dataFolder.c_str();
  std::int32_t exitCode = 1;
  if (GoodsDesktop_RunProgram(&program, &exitCode) != GOODS_DESKTOP_DONE)
    std::fprintf(stderr, "%s\n", static_cast<const char*>(GoodsDesktop_Problem(GOODS_DESKTOP_UTF8)));
  return exitCode;
}
