// THost: everything that a report asks of the application that shows it.
#pragma once

#include "host/data/connection.h"
#include "host/services/documents.h"
#include "host/services/lookups.h"
#include "host/services/messages.h"
#include "host/services/printing.h"
#include "host/services/rights.h"
#include "host/services/settings.h"
#include "host/services/waiting.h"
#include "host/services/windows.h"

namespace goods {

// Each service lives as long as the host object and is used on the user-interface thread only.
class THost {
 public:
  virtual ~THost();
  // The open connection to the company database.
  virtual IConnection& Connection() = 0;
  virtual IRights& Rights() = 0;
  virtual IMessages& Messages() = 0;
  virtual IWaiting& Waiting() = 0;
  virtual ISettings& Settings() = 0;
  virtual IPrinting& Printing() = 0;
  virtual IDocuments& Documents() = 0;
  virtual ILookups& Lookups() = 0;
  virtual IWindows& Windows() = 0;
};

// Runs what a user's action causes. What escapes from it is shown to the user, and the program goes on. Every
// event of a view passes through here.
template <typename Action>
void RunUserAction(THost& host, Action&& action) {
  try {
    action();
  } catch (const std::exception& error) {
    host.Messages().ShowError(error);
  }
}

}  // namespace goods
