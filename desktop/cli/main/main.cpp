// goods-report: writes reports of a company to files, without a screen.
#include <QGuiApplication>
#include <QLoggingCategory>
#include <iostream>

#include "company/system/program.h"
#include "desktop/cli/command_line.h"
#include "desktop/cli/report_run.h"

namespace goods {
namespace {

UserRecord SignIn(ICompany& company, const CommandLine& line) {
  if (line.user.empty()) throw UsageError("بگویید چه کسی وارد می‌شود: --user");
  if (auto user = company.SignIn(line.user, AskPassword(line))) return *user;
  throw RefusedByRights("نام کاربر یا گذرواژه درست نیست.");
}

std::unique_ptr<ICompany> OpenAsked(const CommandLine& line) {
  if (line.session.company.empty()) throw UsageError("بگویید کدام شرکت: --company");
  return OpenCompany(line.session.company);
}

// Carries a step out; what it throws becomes the exit code, with its message behind where.
template <typename Step>
int Guarded(const std::string& where, Step&& step) {
  try {
    return step();
  } catch (const UsageError& error) {
    std::cerr << where << error.what() << std::endl;
    return kExitUsage;
  } catch (const RefusedByRights& error) {
    std::cerr << where << error.what() << std::endl;
    return kExitRefused;
  } catch (const std::exception& error) {
    std::cerr << where << error.what() << std::endl;
    return kExitError;
  }
}

int WriteOne(ReportRunner& runner, const ReportRequest& request, const std::string& where, bool quiet) {
  const RunOutcome outcome = runner.Run(request);
  if (!quiet) {
    std::cout << where << outcome.rows << " ردیف";
    for (const std::string& file : outcome.files) std::cout << " " << file;
    std::cout << std::endl;
  }
  return request.failIfRows && outcome.rows > 0 ? kExitRowsFound : kExitWritten;
}

int Write(CommandLine& line) {
  const auto company = OpenAsked(line);
  const UserRecord user = SignIn(*company, line);
  ReportRunner runner(*company, user, line.session, std::cerr);
  TakeViewFile(line.request, std::cerr);
  CheckRequest(line.request, runner.Today());
  return WriteOne(runner, line.request, "", true);
}

// What the command line says counts before what the file says.
void TakeFrom(CommandLine& line, const CommandLine& file) {
  const auto take = [](std::string& given, const std::string& other) {
    if (given.empty()) given = other;
  };
  take(line.session.company, file.session.company);
  take(line.user, file.user);
  take(line.passwordFile, file.passwordFile);
  take(line.session.settings, file.session.settings);
  take(line.session.module, file.session.module);
  take(line.session.statementLog, file.session.statementLog);
  line.session.quiet = line.session.quiet || file.session.quiet;
}

// One failing job does not stop the others; the worst of their codes is the end's.
int RunJobs(CommandLine& line) {
  JobsFile file = ReadJobs(line.jobs, line.request);
  TakeFrom(line, file.session);
  const auto company = OpenAsked(line);
  const UserRecord user = SignIn(*company, line);
  ReportRunner runner(*company, user, line.session, std::cerr);
  int worst = kExitWritten;
  const auto weight = [](int code) { return code == kExitRowsFound ? 1 : code == kExitWritten ? 0 : 2; };
  for (ReportJob& job : file.jobs) {
    const std::string where = job.name + ": ";
    const int code = Guarded(where, [&] {
      if (!job.problem.empty()) throw UsageError(job.problem);
      TakeViewFile(job.request, std::cerr);
      CheckRequest(job.request, runner.Today());
      return WriteOne(runner, job.request, where, line.session.quiet);
    });
    if (weight(code) > weight(worst)) worst = code;
  }
  return worst;
}

int ListReports() {
  for (const ReportSpec& report : ReportSpecs()) {
    std::cout << report.Name() << "  " << report.description->title << ": " << report.description->about
              << "\n";
  }
  return kExitWritten;
}

int Describe(const CommandLine& line) {
  const ReportSpec* report = FindSpec(line.described);
  if (report == nullptr) throw UsageError("گزارشی با این نام نیست: " + line.described);
  DescribeReport(*report, line.session, std::cout);
  return kExitWritten;
}

int Carry(CommandLine& line) {
  switch (line.command) {
    case ReportCommand::List:
      return ListReports();
    case ReportCommand::Describe:
      return Describe(line);
    case ReportCommand::Run:
      return RunJobs(line);
    case ReportCommand::Write:
      break;
  }
  return Write(line);
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::PrepareTerminalOutput();
  goods::ProgramArguments arguments(argc, argv);
  goods::CommandLine line;
  const goods::ParseResult parsed = goods::ParseCommandLine(arguments.Count(), arguments.Values(), line);
  if (!parsed.ok) return parsed.exitCode;
  // Fonts and PDF come from the toolkit, which otherwise looks for a display.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QLoggingCategory::setFilterRules("*.warning=false");
  QGuiApplication application(argc, argv);
  line.session.programFolder = QGuiApplication::applicationDirPath().toStdString();
  line.session.progress = goods::ErrorsAreTerminal() && !line.session.quiet;
  return goods::Guarded("", [&] { return goods::Carry(line); });
}
