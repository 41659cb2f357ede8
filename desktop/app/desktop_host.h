// DesktopHost: the host that reports are given on the desktop, for one company and one signed-in user.
#pragma once

#include <functional>
#include <memory>

#include "company/company.h"
#include "desktop/app/desktop_lookups.h"
#include "desktop/app/report_views.h"
#include "desktop/app/selected_cards.h"
#include "desktop/app/services/company_rights.h"
#include "desktop/app/services/desktop_settings.h"
#include "desktop/app/services/logging_connection.h"
#include "desktop/app/services/module_library.h"
#include "desktop/documents/desktop_documents.h"
#include "desktop/print/desktop_printing.h"
#include "desktop/windows/desktop_messages.h"
#include "desktop/windows/desktop_waiting.h"
#include "desktop/windows/desktop_windows.h"
#include "host/services/host.h"

namespace goods {

// What an application puts in the place of this host's own services; what is null is this host's.
struct OwnServices {
  // Asked instead of the company's rights, which are handed over.
  std::function<std::unique_ptr<IRights>(CompanyRights& standard)> rights = {};
  OwnDocuments documents = {};
  std::function<bool(const ShownMessage&)> messages = {};
  DesktopWaiting::Indicator waiting = {};
  DesktopWindows::Place windows = {};
  DesktopWindows::PlaceStore places = {};
};

class DesktopHost : public THost {
 public:
  using ConnectionWrapper = std::function<std::unique_ptr<IConnection>(std::unique_ptr<IConnection>)>;

  // All must outlive the host; log may be null. Opens the company's connection; throws CompanyError. wrap, if
  // given, may put something between the company's connection and the log.
  DesktopHost(ICompany& company, const UserRecord& user, DesktopSettings& settings, ModuleLibrary& module,
              StatementLog* log, ConnectionWrapper wrap = {}, OwnServices own = {});
  ~DesktopHost() override;

  IConnection& Connection() override { return connection_; }
  IRights& Rights() override { return *rights_; }
  DesktopMessages& Messages() override { return messages_; }
  DesktopWaiting& Waiting() override { return waiting_; }
  DesktopSettings& Settings() override { return settings_; }
  DesktopPrinting& Printing() override { return printing_; }
  DesktopDocuments& Documents() override { return documents_; }
  DesktopLookups& Lookups() override { return lookups_; }
  DesktopWindows& Windows() override { return windows_; }
  // The user's saved views of this company's reports.
  ReportViews& Views() { return views_; }

 private:
  DesktopSettings& settings_;
  DesktopWindows windows_;
  DesktopMessages messages_;
  DesktopWaiting waiting_;
  DesktopPrinting printing_;
  SelectedCards cards_;
  LoggingConnection logged_;
  WaitingConnection connection_;
  CompanyRights companyRights_;
  std::unique_ptr<IRights> ownRights_;
  IRights* rights_;
  DesktopLookups lookups_;
  DesktopDocuments documents_;
  ReportViews views_;
};

}  // namespace goods
