// A host without a screen and without a database, for tests.
#pragma once

#include "tests/scripted/scripted_connection.h"
#include "tests/scripted/scripted_services.h"
#include "tests/scripted/scripted_windows.h"

namespace goods {

// Every service is open to the test under its own type.
class ScriptedHost : public THost {
 public:
  ScriptedHost();
  ~ScriptedHost() override;

  CallLog Log;

  ScriptedConnection& Connection() override { return connection_; }
  ScriptedRights& Rights() override { return rights_; }
  ScriptedMessages& Messages() override { return messages_; }
  ScriptedWaiting& Waiting() override { return waiting_; }
  ScriptedSettings& Settings() override { return settings_; }
  ScriptedPrinting& Printing() override { return printing_; }
  ScriptedDocuments& Documents() override { return documents_; }
  ScriptedLookups& Lookups() override { return lookups_; }
  ScriptedWindows& Windows() override { return windows_; }

 private:
  ScriptedConnection connection_{Log};
  ScriptedRights rights_{Log};
  ScriptedMessages messages_{Log};
  ScriptedWaiting waiting_{Log};
  ScriptedSettings settings_{Log};
  ScriptedPrinting printing_{Log};
  ScriptedDocuments documents_{Log};
  ScriptedLookups lookups_{Log};
  ScriptedWindows windows_{*this, Log};
};

}  // namespace goods
