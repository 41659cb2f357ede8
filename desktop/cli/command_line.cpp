#include "desktop/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>
#include <sstream>
#include <utility>

#include "company/files/input_file.h"
#include "desktop/requests/saved_view.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::uint64_t kLongestJobsFile = 1 << 20;
constexpr const char* kOutputs = "Files";
constexpr const char* kCriteria = "Criteria (goods-report describe REPORT tells which of them a report has)";
constexpr const char* kTable = "Table";
constexpr const char* kCompany = "Company and user";
constexpr const char* kLimits = "One file each, monitors";

void AddOutput(CLI::App& app, CommandLine& line, const char* name, FileFormat format, const char* help) {
  app.add_option_function<std::vector<std::string>>(
         name,
         [&line, format](const std::vector<std::string>& paths) {
           for (const std::string& path : paths) line.request.outputs.push_back({format, path});
         },
         help)
      ->type_name("FILE")
      ->group(kOutputs);
}

void AddOutputs(CLI::App& app, CommandLine& line) {
  AddOutput(app, line, "--pdf", FileFormat::Pdf,
            "Write it as PDF to this file; several formats may be given at once");
  AddOutput(app, line, "--xlsx", FileFormat::Xlsx, "Write it as a spreadsheet");
  AddOutput(app, line, "--csv", FileFormat::Csv, "Write it as CSV with plain numbers, in UTF-8");
  AddOutput(app, line, "--json", FileFormat::Json, "Write it as JSON with typed rows");
  AddOutput(app, line, "--text", FileFormat::Text, "Write it as UTF-8 text in columns of characters");
  app.add_flag("--csv-shown", line.request.csvShown, "CSV cells as the window shows them")->group(kOutputs);
  app.add_flag("--csv-mark,!--no-csv-mark", line.request.csvMark,
               "A byte order mark in front of CSV, as spreadsheets want it (the default), or none")
      ->group(kOutputs);
  app.add_flag("--iso-dates", line.request.isoDates,
               "Dates of CSV, JSON and spreadsheets as days of the Gregorian calendar")
      ->group(kOutputs);
}

// Every criterion of every report: a job or a line of one report takes those that it has.
void AddCriteria(CLI::App& app, CommandLine& line) {
  for (const ReportCriterion& criterion : EveryCriterion()) {
    const std::string option(criterion.option);
    const std::string flag = "--" + option;
    if (criterion.kind == CriterionKind::Flag) {
      app.add_flag_callback(
             flag, [&line, option] { line.request.criteria[option] = {"1"}; }, std::string(criterion.help))
          ->group(kCriteria);
      continue;
    }
    auto* added = app.add_option_function<std::vector<std::string>>(
        flag,
        [&line, option](const std::vector<std::string>& values) { line.request.criteria[option] = values; },
        std::string(criterion.help));
    added->type_name(ValueName(criterion))->group(kCriteria)->allow_extra_args(false);
  }
  app.add_option_function<std::string>(
         "--to", [&line](const std::string& value) { line.request.criteria["to"] = {value}; }, "Last day")
      ->type_name("DAY")
      ->group(kCriteria);
  app.add_option(
         "--period", line.request.period,
         "Instead of --from and --to: today, yesterday, this-week, last-week, this-month, last-month, "
         "this-season, last-season, this-year or last-year")
      ->type_name("WORD")
      ->group(kCriteria);
  app.add_option_function<std::vector<std::string>>(
         "--exclude",
         [&line](const std::vector<std::string>& names) {
           line.request.exclude.insert(names.begin(), names.end());
         },
         "Turn these criteria round: --store 3 --exclude store is every store but 3")
      ->type_name("NAME,NAME...")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->group(kCriteria);
}

void AddTable(CLI::App& app, CommandLine& line) {
  app.add_option("--columns", line.request.columns,
                 "Show these columns alone, in this order, by the names that describe tells")
      ->type_name("NAME,NAME...")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->group(kTable);
  app.add_option("--sort", line.request.sort, "Sort by these columns; write --sort=-NAME for descending")
      ->type_name("NAME,NAME...")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->group(kTable);
}

void AddLimits(CLI::App& app, CommandLine& line) {
  app.add_option("--each", line.request.each,
                 "Write one file for each good, store or group; the names need {code}, and may have {name}")
      ->type_name("good|store|group")
      ->group(kLimits);
  app.add_option("--among", line.request.among, "With --each: these codes alone")
      ->type_name("CODE,CODE...")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->group(kLimits);
  app.add_flag("--skip-empty", line.request.skipEmpty, "Write no file where there are no rows")
      ->group(kLimits);
  app.add_flag("--fail-if-rows", line.request.failIfRows,
               "End with code 3 where there are rows, such as negative stock; no file need be named")
      ->group(kLimits);
}

void AddSession(CLI::App& app, CommandLine& line) {
  CLI::Option* company = app.add_option("--company", line.session.company,
                                        "The company: a file, or server:ADDRESS (docs/server.md)")
                             ->type_name("COMPANY")
                             ->group(kCompany);
  app.add_option_function<std::string>(
         "--server", [&line](const std::string& address) { line.session.company = "server:" + address; },
         "The company on this server: HOST[:PORT]/DATABASE, or an ODBC connection string")
      ->type_name("ADDRESS")
      ->excludes(company)
      ->group(kCompany);
  app.add_option("--user", line.user, "Who signs in; rights and prices are that user's")
      ->type_name("NAME")
      ->group(kCompany);
  app.add_option("--password-file", line.passwordFile,
                 "The file whose first line is the password; else the variable GOODS_PASSWORD, else a prompt")
      ->type_name("FILE")
      ->group(kCompany);
  app.add_option(
         "--settings", line.session.settings,
         "The desktop's settings folder: its units, decimals and price basis; nothing is written there")
      ->type_name("FOLDER")
      ->group(kCompany);
  app.add_option("--module", line.session.module, "The report library, instead of the one beside the program")
      ->type_name("FILE")
      ->group(kCompany);
  app.add_option("--statement-log", line.session.statementLog,
                 "Append each statement with its milliseconds and row count to this file")
      ->type_name("FILE")
      ->group(kCompany);
  app.add_flag("--quiet", line.session.quiet, "Do not tell which files were written")->group(kCompany);
}

void AddRequest(CLI::App& app, CommandLine& line) {
  app.add_option("--report", line.request.name, "Which report; goods-report list names them")
      ->type_name("NAME")
      ->capture_default_str();
  app.add_option(
         "--view", line.request.viewFile,
         "A view that was saved in a file: its report, criteria, columns, order and filter, as far as "
         "nothing else is asked for here")
      ->type_name("FILE");
  AddOutputs(app, line);
  AddCriteria(app, line);
  AddTable(app, line);
  AddLimits(app, line);
}

// A saved view is an object of JSON; a table of TOML never begins with a brace.
bool IsView(const std::string& contents) { return Trim(contents).starts_with('{'); }

std::string KeyOf(const CLI::ConfigItem& item) { return "--" + item.name; }

// A key of a jobs file as the option that it stands for.
void AddArgument(std::vector<std::string>& arguments, const CLI::ConfigItem& item) {
  const std::vector<std::string>& values = item.inputs;
  if (values.size() == 1 && (values.front() == "true" || values.front() == "false")) {
    arguments.push_back(KeyOf(item) + "=" + values.front());
    return;
  }
  for (const std::string& value : values) arguments.push_back(KeyOf(item) + "=" + value);
}

void ParseArguments(CLI::App& app, std::vector<std::string> arguments, const std::string& where) {
  // The parser takes them from the back.
  std::reverse(arguments.begin(), arguments.end());
  try {
    app.parse(arguments);
  } catch (const CLI::ParseError& error) {
    throw UsageError(where + ": " + error.what());
  }
}

}  // namespace

void DeclareOptions(CLI::App& app, CommandLine& line) {
  app.require_subcommand(0, 1);
  AddSession(app, line);
  AddRequest(app, line);
  app.footer(
      "Names of files may hold {date}, {year}, {month}, {day}, {report}, and with --each {code} and {name}.\n"
      "- instead of a name is the standard output.\n"
      "A file is written whole or not at all.\n"
      "Exit codes: 0 written, 1 error, 2 usage, 3 --fail-if-rows found rows, 4 refused by the user's "
      "rights.");
  app.add_subcommand("list", "Name the reports")->callback([&line] { line.command = ReportCommand::List; });
  auto* describe = app.add_subcommand("describe", "Tell a report's criteria and columns");
  describe->add_option("report", line.described, "The report")->required();
  describe->callback([&line] { line.command = ReportCommand::Describe; });
  auto* run =
      app.add_subcommand("run", "Write the reports of a jobs file, one after the other, or a saved view");
  run->add_option("jobs", line.jobs, "The jobs file, or the file of a saved view")->required();
  run->callback([&line] { line.command = ReportCommand::Run; });
}

ParseResult ParseCommandLine(int argc, char** argv, CommandLine& line) {
  CLI::App app("Writes reports of a company to files, without a screen.", "goods-report");
  app.allow_windows_style_options(false);  // "/..." is a path on every system
  DeclareOptions(app, line);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return {false, app.exit(error) == 0 ? kExitWritten : kExitUsage};
  }
  return {true, kExitWritten};
}

void TakeViewFile(ReportRequest& request, std::ostream& messages) {
  if (request.viewFile.empty()) return;
  const std::string path = std::exchange(request.viewFile, {});
  std::vector<std::string> ignored;
  try {
    PutUnder(request, ReadViewFile(path, ignored));
  } catch (const ViewError& error) {
    throw UsageError(path + ": " + error.what());
  }
  for (const std::string& each : ignored)
    messages << path << ": شناخته نشد و به کار نمی‌رود: " << each << std::endl;
}

JobsFile ReadJobs(const std::string& path, const ReportRequest& given) {
  std::vector<CLI::ConfigItem> items;
  const std::string contents = ReadInputFile(path, kLongestJobsFile);
  if (IsView(contents)) {
    JobsFile file;
    ReportJob job{path, given, ""};
    job.request.viewFile = path;
    file.jobs.push_back(std::move(job));
    return file;
  }
  try {
    std::istringstream text(contents);
    items = CLI::ConfigTOML().from_config(text);
  } catch (const CLI::Error& error) {
    throw UsageError(path + ": " + error.what());
  }
  JobsFile file;
  std::vector<std::string> top;
  std::vector<std::pair<std::string, std::vector<std::string>>> sections;
  for (const CLI::ConfigItem& item : items) {
    if (item.name == "++" || item.name == "--") continue;  // where a section begins and ends
    if (item.parents.empty()) {
      AddArgument(top, item);
      continue;
    }
    const std::string name = item.parents.front();
    if (sections.empty() || sections.back().first != name) sections.push_back({name, {}});
    AddArgument(sections.back().second, item);
  }
  CLI::App session;
  AddSession(session, file.session);
  ParseArguments(session, top, path);
  for (const auto& [name, arguments] : sections) {
    CommandLine job;
    CLI::App app;
    AddRequest(app, job);
    std::string problem;
    try {
      ParseArguments(app, arguments, path);
    } catch (const UsageError& error) {
      problem = error.what();
    }
    for (const OutputFile& output : job.request.outputs) {
      // The jobs' own lines go there.
      if (output.ToStandardOutput()) problem = "خروجی استاندارد در پرونده کارها پذیرفته نیست: -";
    }
    file.jobs.push_back({name, job.request, problem});
  }
  if (file.jobs.empty()) throw UsageError("در این پرونده هیچ گزارشی خواسته نشده است: " + path);
  return file;
}

}  // namespace goods
