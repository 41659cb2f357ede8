#include "desktop/cli/report_run.h"

#include <memory>
#include <ostream>
#include <stdexcept>

#include "company/company.h"
#include "desktop/app/services/company_lookups.h"
#include "desktop/app/services/logging_connection.h"
#include "desktop/app/services/module_library.h"
#include "desktop/app/services/statement_log.h"
#include "desktop/cli/screenless_services.h"
#include "desktop/cli/screenless_windows.h"
#include "desktop/print/export.h"
#include "host/core/jalali.h"
#include "host/services/host.h"

namespace goods {
namespace {

class ScreenlessHost : public THost {
 public:
  ScreenlessHost(ICompany& company, StatementLog* log, std::function<void(const PrintJob&)> print,
                 std::ostream& messages)
      : messages_(messages),
        windows_(*this),
        connection_([&company] { return company.OpenConnection(); }, log),
        lookups_(company),
        printing_(std::move(print)) {}

  IConnection& Connection() override { return connection_; }
  IRights& Rights() override { return rights_; }
  StreamMessages& Messages() override { return messages_; }
  IWaiting& Waiting() override { return waiting_; }
  ISettings& Settings() override { return settings_; }
  PrintToFunction& Printing() override { return printing_; }
  IDocuments& Documents() override { return documents_; }
  ILookups& Lookups() override { return lookups_; }
  ScreenlessWindows& Windows() override { return windows_; }

 private:
  StreamMessages messages_;
  ScreenlessWindows windows_;
  LoggingConnection connection_;
  EveryRight rights_;
  CompanyLookups lookups_;
  PrintToFunction printing_;
  NoWaiting waiting_;
  FixedSettings settings_;
  NoDocuments documents_;
};

void CheckDate(const std::string& date) {
  if (!date.empty() && !IsValidJalali(date)) throw std::runtime_error("این تاریخ وجود ندارد: " + date);
}

std::int64_t GoodOf(const ReportRun& run, ICompany& company) {
  if (run.good == 0) {
    const auto busiest = company.ListBusyGoods(1);
    if (busiest.empty()) throw std::runtime_error("این شرکت هیچ گردشی ندارد.");
    return busiest.front().code;
  }
  if (!company.FindEntity(EntityKind::Good, run.good)) {
    throw std::runtime_error("کالایی با این کد وجود ندارد: " + std::to_string(run.good));
  }
  return run.good;
}

void Check(const ReportRun& run, ICompany& company) {
  if (run.report != "kardex") throw std::runtime_error("گزارشی با این نام نیست: " + run.report);
  if (run.pdf.empty() && run.text.empty()) {
    throw std::runtime_error("بگویید گزارش در کدام پرونده نوشته شود: --pdf یا --text");
  }
  CheckDate(run.from);
  CheckDate(run.to);
  if (run.from.empty() && !run.to.empty())
    throw std::runtime_error("تاریخ پایان بدون تاریخ آغاز معنی ندارد.");
  if (run.store != 0 && !company.FindEntity(EntityKind::Store, run.store)) {
    throw std::runtime_error("انباری با این کد وجود ندارد: " + std::to_string(run.store));
  }
}

}  // namespace

bool RunReport(const ReportRun& run, const std::string& programFolder, std::ostream& messages) {
  const auto company = OpenCompany(run.company);
  Check(run, *company);
  const std::int64_t good = GoodOf(run, *company);
  std::unique_ptr<StatementLog> log;
  if (!run.statementLog.empty())
    log = std::make_unique<StatementLog>(run.statementLog, std::vector{run.company});
  if (log != nullptr)
    log->OnFailure = [&](const std::exception& error) { messages << error.what() << std::endl; };

  ScreenlessHost* asked = nullptr;
  ScreenlessHost host(
      *company, log.get(),
      [&](const PrintJob& job) {
        if (!run.pdf.empty()) WritePdf(job, run.pdf, asked->Windows().NowDate());
        if (!run.text.empty()) WriteText(job, run.text);
      },
      messages);
  asked = &host;
  // Declared after the host, so that it is let go while the host lives.
  ModuleLibrary module(ModuleLibrary::Find(run.module, programFolder));
  module.Attach(host);
  module.OpenKardex(good, run.store, run.from, run.to);
  return host.Printing().Printed() && !host.Messages().AnySaid();
}

}  // namespace goods
