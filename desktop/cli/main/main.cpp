// goods-report: writes a report of a company to files, without a screen.
#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <iostream>

#include "desktop/cli/report_run.h"

int main(int argc, char** argv) {
  goods::ReportRun run;
  CLI::App commandLine("Writes a report of a company to files, without a screen.");
  commandLine.add_option("--company", run.company, "The company file")->required();
  commandLine.add_option("--report", run.report, "Which report: kardex, the stock card of one good")
      ->capture_default_str();
  commandLine.add_option("--good", run.good, "The good's code; by itself the good with the most movements");
  commandLine.add_option("--store", run.store, "One store only");
  commandLine.add_option("--from", run.from, "First day, as yyyy/mm/dd of the Jalali calendar");
  commandLine.add_option("--to", run.to, "Last day");
  commandLine.add_option("--pdf", run.pdf, "Write it as PDF to this file");
  commandLine.add_option("--text", run.text, "Write it as UTF-8 text to this file");
  commandLine.add_option("--module", run.module, "The report library, instead of the one beside the program");
  commandLine.add_option("--statement-log", run.statementLog,
                         "Append each statement with its milliseconds and row count to this file");
  CLI11_PARSE(commandLine, argc, argv);

  // Fonts and PDF come from the toolkit, which otherwise looks for a display.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QLoggingCategory::setFilterRules("*.warning=false");
  QGuiApplication application(argc, argv);
  try {
    return goods::RunReport(run, QGuiApplication::applicationDirPath().toStdString(), std::cerr) ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
