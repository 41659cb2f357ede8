#include "desktop/cli/screenless_services.h"

#include <ostream>

#include "host/data/connection.h"
#include "host/services/error_text.h"

namespace goods {

void StreamMessages::Say(const std::string& text) {
  anySaid_ = true;
  out_ << text << std::endl;
}

void StreamMessages::ShowSmartMessage(std::string_view text, std::string_view /*caption*/,
                                      MessageIcon /*icon*/) {
  Say(std::string(text));
}

void StreamMessages::ShowSmartMessage(int number, std::string_view inserted) {
  Say("پیام " + std::to_string(number) + ": " + std::string(inserted));
}

void StreamMessages::OpenOther(std::string_view text, std::string_view name) {
  Say(std::string(text) + " " + std::string(name));
}

void StreamMessages::MsgWithoutGardesh(std::string_view name) { Say(std::string(name) + " گردش ندارد."); }
void StreamMessages::MsgRequiredField(std::string_view name) { Say(std::string(name) + " را وارد کنید."); }

void StreamMessages::ShowTooltipMessage(const TControl& /*beside*/, std::string_view text, int /*width*/) {
  Say(std::string(text));
}

void StreamMessages::ShowError(const std::exception& error) {
  if (dynamic_cast<const StatementCancelled*>(&error) != nullptr) return;
  Say(ErrorText(error));
}

void NoWaiting::ShowWaitting(TForm* /*owner*/, std::string_view /*text*/) {}
void NoWaiting::HideWaitting(TForm* /*owner*/, int /*reserved*/) {}

void FixedSettings::SaveSettingItem(int /*softwarePart*/, int /*item*/, bool /*on*/, std::int64_t /*number*/,
                                    std::string_view /*text*/) {}

void NoPrinting::Preview(const PrintJob& /*job*/) {}

bool ScreenlessRights::HavePermission(const TUserInfo& user, int softwarePart, int permission,
                                      bool showMessage, bool logged, std::string_view text) {
  const bool decides = permission == kPermissionOpenReport || permission == kPermissionPrintList;
  if (CompanyRights::HavePermission(user, softwarePart, permission, showMessage && !decides, logged, text)) {
    return true;
  }
  if (decides && showMessage) refusal_ = MissingRightText(softwarePart, permission);
  return false;
}

}  // namespace goods
