#include "desktop/app/desktop_host.h"

#include <utility>

#include "desktop/charts/chart_command.h"
#include "desktop/comparison/comparison_command.h"
#include "desktop/views/shown_text.h"
#include "goods_reports.h"

namespace goods {
namespace {

ReportOpeners OpenersOf(ModuleLibrary& module) {
  ReportOpeners openers{
      .stockCard = [&module](std::int64_t good, std::int64_t store, std::string_view from,
                             std::string_view to) { module.OpenKardex(good, store, from, to); }};
  if (module.Has(Describe(ReportId::StockByDetails).callerExport)) {
    openers.detailTransactions = [&module](const DetailTransactionsCall& call) {
      module.OpenGoodDetailTransactions(call.good, call.storeGiven, call.store, call.datesGiven, call.from,
                                        call.to, call.tagsGiven, call.tags, call.categoryGiven,
                                        call.category);
    };
  }
  return openers;
}

// What the menu of the main window offers.
std::vector<DesktopWindows::Offered> OfferedBeside(THost& host, ModuleLibrary& module) {
  std::vector<DesktopWindows::Offered> offered;
  for (const ReportDescription& report : MenuReports()) {
    if (!module.Has(report.exportName)) continue;
    const bool allowed =
        IsAllowed(host.Rights(), report.softwarePart, report.permission, RightQuestion::Silent);
    offered.push_back({ToQt(report.title),
                       allowed ? QString() : ToQt(MissingRightText(report.softwarePart, report.permission)),
                       [&host, &module, &report] { RunUserAction(host, [&] { module.Open(report); }); }});
  }
  return offered;
}

LoggingConnection::Connect ConnectTo(ICompany& company, DesktopHost::ConnectionWrapper wrap) {
  return [&company, wrap = std::move(wrap)] {
    auto connection = company.OpenConnection();
    return wrap ? wrap(std::move(connection)) : std::move(connection);
  };
}

}  // namespace

DesktopHost::DesktopHost(ICompany& company, const UserRecord& user, DesktopSettings& settings,
                         ModuleLibrary& module, StatementLog* log, ConnectionWrapper wrap, OwnServices own)
    : settings_(settings),
      messages_(windows_),
      waiting_(windows_),
      printing_(windows_),
      cards_(windows_, messages_, printing_),
      logged_(ConnectTo(company, std::move(wrap)), log),
      connection_(logged_, waiting_),
      companyRights_(company, user, messages_),
      ownRights_(own.rights ? own.rights(companyRights_) : nullptr),
      rights_(ownRights_ == nullptr ? &companyRights_ : ownRights_.get()),
      lookups_(company, [this] { return windows_.DialogParent(); }),
      documents_(company, messages_, *rights_, OpenersOf(module), [this] { return windows_.DialogParent(); }),
      views_(windows_, messages_, settings, company.Title(), user.code) {
  std::vector<GridCommand> commands{ChartCommand(printing_, windows_, messages_), ComparisonCommand()};
  for (GridCommand& each : printing_.GridCommands(messages_)) commands.push_back(std::move(each));
  commands.push_back(cards_.Command());
  windows_.SetGridCommands(std::move(commands));
  windows_.SetOffered([this, &module] { return OfferedBeside(*this, module); });
  windows_.SetPlace(std::move(own.windows));
  windows_.SetPlaceStore(std::move(own.places));
  messages_.SetTeller(std::move(own.messages));
  waiting_.SetIndicator(std::move(own.waiting));
  documents_.SetOwnDocuments(std::move(own.documents));
}

DesktopHost::~DesktopHost() = default;

}  // namespace goods
