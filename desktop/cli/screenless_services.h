// The services of the screenless host that need no more than a terminal.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include "desktop/app/services/company_rights.h"
#include "host/services/documents.h"
#include "host/services/messages.h"
#include "host/services/printing.h"
#include "host/services/rights.h"
#include "host/services/settings.h"
#include "host/services/waiting.h"

namespace goods {

// Messages go to a stream, a line each. Whatever a report has to say ends its run without success.
class StreamMessages : public IMessages {
 public:
  explicit StreamMessages(std::ostream& out) : out_(out) {}
  bool AnySaid() const { return anySaid_; }
  void Forget() { anySaid_ = false; }

  void ShowSmartMessage(std::string_view text, std::string_view caption, MessageIcon icon) override;
  void ShowSmartMessage(int number, std::string_view inserted) override;
  void OpenOther(std::string_view text, std::string_view name) override;
  void MsgWithoutGardesh(std::string_view name) override;
  void MsgRequiredField(std::string_view name) override;
  void ShowTooltipMessage(const TControl& beside, std::string_view text, int width) override;
  void ShowError(const std::exception& error) override;

 private:
  void Say(const std::string& text);

  std::ostream& out_;
  bool anySaid_ = false;
};

// The signed-in user's rights as on the desktop. What the reports ask with a message is told as a note; a
// report that may not be opened or printed is kept as a refusal.
class ScreenlessRights : public CompanyRights {
 public:
  ScreenlessRights(ICompany& company, UserRecord user, IMessages& notes)
      : CompanyRights(company, std::move(user), notes) {}
  bool HavePermission(const TUserInfo& user, int softwarePart, int permission, bool showMessage, bool logged,
                      std::string_view text) override;
  // Why the last run was refused; empty when it was not.
  const std::string& Refusal() const { return refusal_; }
  void ForgetRefusal() { refusal_.clear(); }

 private:
  std::string refusal_;
};

// Every right, for describing a report: there is no company and no row to see.
class EveryRight : public IRights {
 public:
  const TUserInfo& UserInfo() const override { return user_; }
  bool HavePermission(const TUserInfo&, int, int, bool, bool, std::string_view) override { return true; }
  void SetUserEvent(int, int, std::int64_t) override {}

 private:
  TUserInfo user_;
};

class NoWaiting : public IWaiting {
 public:
  void ShowWaitting(TForm* owner, std::string_view text) override;
  void HideWaitting(TForm* owner, int reserved) override;
};

// The settings record as it was given, and given again to each run; nothing is kept.
class FixedSettings : public ISettings {
 public:
  explicit FixedSettings(TSettings settings = {}) : given_(settings), settings_(settings) {}
  void Restore() { settings_ = given_; }
  TSettings& Settings() override { return settings_; }
  void SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                       std::string_view text) override;
  std::string GetSettingFilePath() const override { return {}; }

 private:
  TSettings given_;
  TSettings settings_;
};

// Lists go to files, not through the report's own preview.
class NoPrinting : public IPrinting {
 public:
  void Preview(const PrintJob& job) override;
};

}  // namespace goods
