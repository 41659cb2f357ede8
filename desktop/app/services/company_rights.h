// CompanyRights: what the signed-in user may do, as the company's user records say.
#pragma once

#include <string>

#include "company/company.h"
#include "host/services/messages.h"
#include "host/services/rights.h"

namespace goods {

// What the user is told of a right that is missing: "شما مجوز ... ندارید."
std::string MissingRightText(int softwarePart, int permission);

// This host keeps no log of user actions: the flag for it, and SetUserEvent, do nothing.
class CompanyRights : public IRights {
 public:
  // company and messages must outlive it.
  CompanyRights(ICompany& company, UserRecord user, IMessages& messages);

  const TUserInfo& UserInfo() const override { return info_; }
  bool HavePermission(const TUserInfo& user, int softwarePart, int permission, bool showMessage, bool logged,
                      std::string_view text) override;
  // Tells the user that the right is missing; text is added to the message.
  void TellRefusal(int softwarePart, int permission, std::string_view text);
  void SetUserEvent(int softwarePart, int permission, std::int64_t code) override;
  // As the user's record said at signing in.
  bool SeesPrices() const override { return user_.seesPrices; }

 private:
  ICompany& company_;
  UserRecord user_;
  TUserInfo info_;
  IMessages& messages_;
};

}  // namespace goods
