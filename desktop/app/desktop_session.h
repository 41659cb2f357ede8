// DesktopSession: one user at work with one company: the host that the reports are attached to.
#pragma once

#include <memory>
#include <string>

#include "desktop/app/desktop_host.h"

namespace goods {

// Loads the report library at given, or, when that is empty, the one beside this code (the library or program
// that it was linked into) or the program. Throws ModuleError.
std::unique_ptr<ModuleLibrary> LoadModule(const std::string& given);

class DesktopSession {
 public:
  // All must outlive the session; log may be null. Connects to the company and attaches: throws CompanyError
  // and ModuleError.
  DesktopSession(ICompany& company, const UserRecord& user, DesktopSettings& settings, ModuleLibrary& module,
                 StatementLog* log, OwnServices own = {});
  DesktopSession(const DesktopSession&) = delete;
  DesktopSession& operator=(const DesktopSession&) = delete;
  // No report may be shown. The kept windows go before the host that they were made with.
  ~DesktopSession();

  DesktopHost& Host() { return host_; }

 private:
  ModuleLibrary& module_;
  DesktopHost host_;
};

}  // namespace goods
