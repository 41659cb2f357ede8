#include "desktop/cli/report_run.h"

#include <QDir>
#include <QString>
#include <exception>
#include <filesystem>
#include <iostream>
#include <ostream>
#include <stdexcept>
#include <utility>

#include "company/files/file_path.h"
#include "desktop/app/services/company_lookups.h"
#include "desktop/app/services/desktop_settings.h"
#include "desktop/app/services/logging_connection.h"
#include "desktop/app/services/module_library.h"
#include "desktop/app/services/statement_log.h"
#include "desktop/cli/screenless_services.h"
#include "desktop/cli/screenless_windows.h"
#include "desktop/requests/criteria_driver.h"
#include "desktop/requests/file_names.h"
#include "host/base/base_dock.h"
#include "host/base/base_search.h"
#include "host/core/text.h"
#include "host/services/host.h"

namespace goods {
namespace {

constexpr const char* kDialogButton = "ADVSearch_Fram1.ADVSearch_BTN";

TSettings SettingsIn(const std::string& folder) {
  if (folder.empty()) return {};
  if (!std::filesystem::is_directory(PathOf(folder))) throw std::runtime_error("این پوشه نیست: " + folder);
  return DesktopSettings(QString::fromStdString(folder)).Settings();
}

// Tells how a statement gets on, on one line of a terminal.
class ProgressConnection : public IConnection, private IStatementProgress {
 public:
  ProgressConnection(IConnection& inner, std::ostream* out) : inner_(inner), out_(out) {}
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override {
    inner_.Open(statement, into, progress == nullptr && out_ != nullptr ? this : progress);
    if (std::exchange(told_, false)) *out_ << "\r\033[K" << std::flush;
  }
  void Execute(std::string_view statement, IStatementProgress* progress) override {
    inner_.Execute(statement, progress);
  }

 private:
  bool Progress(std::size_t rows) override {
    *out_ << "\r" << rows << " ردیف خوانده شد" << std::flush;
    told_ = true;
    return true;
  }

  IConnection& inner_;
  std::ostream* out_;
  bool told_ = false;
};

class ScreenlessHost : public THost {
 public:
  ScreenlessHost(ICompany& company, const UserRecord& user, StatementLog* log, const SessionOptions& options,
                 std::ostream& messages)
      : messages_(messages),
        notes_(messages),
        windows_(*this),
        logged_([&company] { return company.OpenConnection(); }, log),
        connection_(logged_, options.progress ? &messages : nullptr),
        rights_(company, user, notes_),
        lookups_(company),
        settings_(SettingsIn(options.settings)) {}

  IConnection& Connection() override { return connection_; }
  ScreenlessRights& Rights() override { return rights_; }
  StreamMessages& Messages() override { return messages_; }
  IWaiting& Waiting() override { return waiting_; }
  FixedSettings& Settings() override { return settings_; }
  IPrinting& Printing() override { return printing_; }
  IDocuments& Documents() override { return documents_; }
  CompanyLookups& Lookups() override { return lookups_; }
  ScreenlessWindows& Windows() override { return windows_; }

 private:
  StreamMessages messages_;
  StreamMessages notes_;
  ScreenlessWindows windows_;
  LoggingConnection logged_;
  ProgressConnection connection_;
  ScreenlessRights rights_;
  CompanyLookups lookups_;
  NoPrinting printing_;
  NoWaiting waiting_;
  FixedSettings settings_;
  NoDocuments documents_;
};

class StandardOutput : public ByteSink {
 public:
  void Write(std::string_view bytes) override {
    std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    Check();
  }
  void Finish() {
    std::cout.flush();
    Check();
  }

 private:
  static void Check() {
    if (!std::cout) throw ExportError("به خروجی استاندارد نوشته نشد.");
  }
};

// The file that a company's description names; empty for one on a server.
std::string CompanyFile(const std::string& description) {
  constexpr std::string_view kFile = "file:";
  if (IsOnServer(description)) return {};
  return description.starts_with(kFile) ? description.substr(kFile.size()) : description;
}

EntityKind EntityOf(const std::string& each) {
  return each == "good" ? EntityKind::Good : each == "store" ? EntityKind::Store : EntityKind::GoodGroup;
}

std::string Given(const ReportRequest& request, const char* option) {
  const auto found = request.criteria.find(option);
  return found == request.criteria.end() ? std::string() : found->second.front();
}

// Calls the export that opens the report's outer window.
void CallExport(ModuleLibrary& module, const ReportSpec& report, const ReportRequest& request) {
  const std::string from = Given(request, "from");
  const std::string to = Given(request, "to");
  // The negative card's period is part of the call: both ends or none; an end that is left out is open.
  if (report.IsNegativeCard() && !(from.empty() && to.empty())) {
    return module.OpenKardexNegativ("1", from, to);
  }
  module.Open(Describe(report.outer));
}

}  // namespace

struct ReportRunner::Impl {
  Impl(ICompany& givenCompany, const UserRecord& user, SessionOptions givenOptions, std::ostream& givenOut)
      : company(givenCompany),
        options(std::move(givenOptions)),
        out(givenOut),
        log(options.statementLog.empty()
                ? nullptr
                : std::make_unique<StatementLog>(options.statementLog,
                                                 std::vector{CompanyFile(options.company)})),
        host(company, user, log.get(), options, out),
        module(ModuleLibrary::Find(options.module, options.programFolder)) {
    if (log != nullptr)
      log->OnFailure = [this](const std::exception& failure) { out << failure.what() << std::endl; };
  }

  void RunOnce(const ReportRequest& request, std::int64_t code, const std::string& name);
  void Shown(TForm& form);
  void FillDialog(TForm& form);
  void Drive(TBaseDock_FRM& window);
  void Arrange(TSmartDBGrid_QRT& grid) const;
  void Write(TBaseDock_FRM& window);

  ICompany& company;
  SessionOptions options;
  std::ostream& out;
  std::unique_ptr<StatementLog> log;
  ScreenlessHost host;
  // Declared after the host, so that it is let go while the host lives.
  ModuleLibrary module;

  // Of the run that is under way.
  const ReportSpec* report = nullptr;
  const ReportRequest* request = nullptr;
  FileNameValues names;
  CriterionPlace dialog = CriterionPlace::Dialog;
  bool reached = false;  // its window was shown
  bool written = false;
  std::exception_ptr error;
  RunOutcome outcome;
};

// What fails here must not end as a message of a window: it is kept, and thrown when the export has returned.
void ReportRunner::Impl::Shown(TForm& form) {
  if (error) return;
  try {
    if (dynamic_cast<TBaseSearch_FRM*>(&form) != nullptr) {
      FillDialog(form);
    } else if (auto* window = dynamic_cast<TBaseDock_FRM*>(&form)) {
      Drive(*window);
    }
  } catch (...) {
    error = std::current_exception();
  }
}

void ReportRunner::Impl::FillDialog(TForm& form) {
  SetCriteria(form, *report, *request, dialog);
  ClickButton(form, "Select_BTN");
}

void ReportRunner::Impl::Arrange(TSmartDBGrid_QRT& grid) const {
  if (request->table) ApplyLayout(grid, *request->table);
  ShowColumns(grid, request->columns);
  SortBy(grid, request->sort);
}

void ReportRunner::Impl::Drive(TBaseDock_FRM& window) {
  const bool inner = window.Name() == report->Window();
  const auto place = inner ? CriterionPlace::Window : CriterionPlace::Outer;
  dialog = inner ? CriterionPlace::Dialog : CriterionPlace::OuterDialog;
  if (inner) {
    reached = true;
    // Some reports ask the database for what the shown columns need.
    if (TSmartDBGrid_QRT* grid = window.PrintedGrid()) Arrange(*grid);
  }
  SetCriteria(window, *report, *request, place);
  host.Windows().DeliverAll();
  if (AsksIn(*report, *request, dialog)) ClickButton(window, kDialogButton);
  if (error) return;
  host.Windows().DeliverAll();
  if (inner) {
    // An accepted dialog of the row search has run the report already.
    const bool ran = AsksIn(*report, *request, dialog) && report->description->id == ReportId::RowSearch;
    if (!report->run.empty() && !ran) ClickButton(window, report->run);
    host.Windows().DeliverAll();
    return Write(window);
  }
  TSmartDBGrid_QRT* grid = window.PrintedGrid();
  if (grid == nullptr || grid->RowCount() == 0) {
    reached = written = true;  // nothing to open: no rows, and no file
    out << "ردیفی با این شرایط نیست." << std::endl;
    return;
  }
  if (grid->RowCount() > 1) {
    throw std::runtime_error("بیش از یک ردیف با این شرایط هست؛ شرایط را محدودتر کنید.");
  }
  grid->MoveTo(0);
  ClickButton(window, report->through);
}

void ReportRunner::Impl::Write(TBaseDock_FRM& window) {
  IRights& rights = host.Rights();
  if (window.PrintOption.SoftwarePart != 0 &&
      !rights.HavePermission(rights.UserInfo(), window.PrintOption.SoftwarePart, kPermissionPrintList, true,
                             true, "")) {
    return;
  }
  TSmartDBGrid_QRT* grid = window.PrintedGrid();
  if (grid == nullptr) throw std::runtime_error("این پنجره فهرستی ندارد: " + window.Name());
  // Another tab is another grid.
  Arrange(*grid);
  if (request->table) ApplyConditions(*grid, *request->table);
  // What a report could not do it has told; a list that is not what was asked for is not written.
  if (host.Messages().AnySaid()) return;
  written = true;
  outcome.rows += grid->RowCount();
  if (request->skipEmpty && grid->RowCount() == 0) return;
  const std::unique_ptr<IReportTable> table = grid->Table();
  PrintJob job;
  job.title = window.HostTitle();
  job.lines = window.PrintLines();
  job.table = table.get();
  WritingOptions exporting;
  exporting.today = host.Windows().NowDate();
  exporting.csvShown = request->csvShown;
  exporting.csvMark = request->csvMark;
  exporting.isoDates = request->isoDates;
  exporting.forbidden = {CompanyFile(options.company), options.statementLog};
  for (const OutputFile& output : request->outputs) {
    if (output.ToStandardOutput()) {
      StandardOutput standard;
      StreamReport(job, output.format, standard, exporting);
      standard.Finish();
      continue;
    }
    const std::string path = FileNameFor(output.path, names);
    if (options.progress) {
      exporting.progress = [&](std::size_t row) {
        out << "\r" << path << ": " << row << std::flush;
        return true;
      };
    }
    const std::string note = NoteOf(WriteReport(job, output.format, path, exporting));
    if (options.progress) out << "\r\033[K" << std::flush;
    if (!note.empty()) out << path << ": " << note << std::endl;
    outcome.files.push_back(path);
  }
}

void ReportRunner::Impl::RunOnce(const ReportRequest& asked, std::int64_t code, const std::string& name) {
  request = &asked;
  report = FindSpec(asked.name);
  names = {host.Windows().NowDate(), std::string(report->Name()), code, name};
  reached = written = false;
  error = nullptr;
  host.Rights().ForgetRefusal();
  host.Messages().Forget();
  host.Settings().Restore();
  // A library attached anew has no window of the run before.
  module.Attach(host);
  struct Detach {
    ModuleLibrary& module;
    ~Detach() { module.Detach(); }
  } const scope{module};
  CallExport(module, *report, asked);
  if (error) std::rethrow_exception(error);
  if (!written && !host.Rights().Refusal().empty()) throw RefusedByRights(host.Rights().Refusal());
  if (!written) throw std::runtime_error("گزارش نوشته نشد: " + std::string(report->Name()));
}

ReportRunner::ReportRunner(ICompany& company, const UserRecord& user, const SessionOptions& options,
                           std::ostream& messages)
    : impl_(std::make_unique<Impl>(company, user, options, messages)) {
  impl_->host.Windows().OnShown = [impl = impl_.get()](TForm& form) { impl->Shown(form); };
}

ReportRunner::~ReportRunner() = default;

std::string ReportRunner::Today() const { return impl_->host.Windows().NowDate(); }

RunOutcome ReportRunner::Run(const ReportRequest& request) {
  impl_->outcome = {};
  if (request.each.empty()) {
    ReportRequest one = request;
    // The stock card of no good is empty: the busiest one shows what there is.
    if (FindSpec(one.name)->description->id == ReportId::StockCard && !one.criteria.contains("good")) {
      const auto busiest = impl_->company.ListBusyGoods(1);
      if (busiest.empty()) throw std::runtime_error("این شرکت هیچ گردشی ندارد.");
      one.criteria["good"] = {std::to_string(busiest.front().code)};
    }
    impl_->RunOnce(one, 0, "");
    return std::move(impl_->outcome);
  }
  const EntityKind kind = EntityOf(request.each);
  std::vector<EntityRecord> entities;
  if (request.among.empty()) {
    entities = impl_->company.SearchEntities(kind, "", SIZE_MAX);
  } else {
    for (const std::int64_t code : request.among) {
      auto entity = impl_->company.FindEntity(kind, code);
      if (!entity) throw std::runtime_error("--among: چنین کدی نیست: " + std::to_string(code));
      entities.push_back(std::move(*entity));
    }
  }
  for (const EntityRecord& entity : entities) {
    ReportRequest one = request;
    one.criteria[request.each] = {std::to_string(entity.code)};
    impl_->RunOnce(one, entity.code, entity.name);
  }
  return std::move(impl_->outcome);
}

}  // namespace goods
