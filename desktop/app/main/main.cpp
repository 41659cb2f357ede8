// goods-desktop: the desktop application.
#include <CLI/CLI.hpp>
#include <QApplication>

#include "desktop/app/program.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName("goods");
  QApplication::setApplicationName("goods-desktop");

  goods::StartOptions options;
  CLI::App commandLine("The goods reports on a desktop.");
  auto* company = commandLine.add_option("--company", options.company, "Open this company file");
  std::string server;
  commandLine
      .add_option("--server", server,
                  "Open this company on a server: HOST[:PORT]/DATABASE, or an ODBC connection string")
      ->excludes(company);
  commandLine.add_flag("--demo", options.demo, "Open the demo company, made on first use")->excludes(company);
  auto* user = commandLine.add_option("--user", options.user, "Sign in as this user");
  commandLine.add_option("--password-file", options.passwordFile, "The first line is the user's password")
      ->needs(user);
  commandLine.add_option("--statement-log", options.statementLog,
                         "Append each statement with its milliseconds and row count to this file");
  commandLine.add_option("--module", options.module,
                         "The report library, instead of the one beside the program");
  commandLine.add_option("--settings", options.settingsFolder, "Folder of the settings");
  commandLine.add_option("--data", options.dataFolder, "Folder of the demo company");
  CLI11_PARSE(commandLine, argc, argv);

  if (!server.empty()) options.company = "server:" + server;
  return goods::DesktopProgram(std::move(options)).Run();
}
