// The services of the screenless host that need no more than a terminal.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

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

// Whoever may read the company's file may have all of its reports: nobody signs in here.
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

// The defaults; nothing is kept.
class FixedSettings : public ISettings {
 public:
  TSettings& Settings() override { return settings_; }
  void SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                       std::string_view text) override;
  std::string GetSettingFilePath() const override { return {}; }

 private:
  TSettings settings_;
};

// Hands each print job to a function instead of showing it.
class PrintToFunction : public IPrinting {
 public:
  explicit PrintToFunction(std::function<void(const PrintJob&)> print) : print_(std::move(print)) {}
  bool Printed() const { return printed_; }
  void Preview(const PrintJob& job) override;

 private:
  std::function<void(const PrintJob&)> print_;
  bool printed_ = false;
};

}  // namespace goods
