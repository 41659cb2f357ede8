// Who is signed in, and what that user may do.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace goods {

// The signed-in user's record.
struct TUserInfo {
  std::int64_t Code = 0;
  std::string Name;
};

// Software parts: what a right is given on.
enum SoftwarePart : int {
  kPartGoods = 102,
  kPartSale = 201,
  kPartBuy = 204,
  kPartBuyReturn = 205,
  kPartFixProduce = 210,
  kPartVarProduce = 211,
  kPartGoodAssignment = 212,
  kPartGoodReciept = 213,
  kPartExpense = 302,
  kPartRevenue = 310,
  kPartVoucher = 401,
  kPartAmountAsset = 501,
  kPartCashAsset = 502,
  kPartStockCard = 509,
  kPartStockCardSearch = 510,
  kPartGoodDetail = 513,
  kPartOverallTurnover = 528,
  kPartStoreAsset = 531,
  kPartAdvancedProduce = 1101,
};

enum Permission : int {
  kPermissionOpenDocument = 2,
  kPermissionOpenReport = 6,
  kPermissionStockCardFromList = 7,
  kPermissionPrintList = 23,
  kPermissionStockValues = 24,
  kPermissionSelectedLists = 34,
  kPermissionAmounts = 5021,
};

class IRights {
 public:
  virtual ~IRights();
  virtual const TUserInfo& UserInfo() const = 0;
  // Whether the user holds the permission on the part. On a refusal with showMessage the host tells the user;
  // logged says whether the question goes into the host's log of user actions; text is added to that message
  // or log.
  virtual bool HavePermission(const TUserInfo& user, int softwarePart, int permission, bool showMessage,
                              bool logged, std::string_view text) = 0;
  // Records that the user did what the permission allows, on the thing with the given code.
  virtual void SetUserEvent(int softwarePart, int permission, std::int64_t code) = 0;
  // Whether the user sees prices and amounts. No report asks: windows withhold what their forms declare as
  // money (TControl::SetMoney, TGridColumn::SetMoney).
  virtual bool SeesPrices() const { return true; }
};

// How a right is asked for: whether a refusal is told to the user, and the question logged.
enum class RightQuestion { ToldAndLogged, Logged, Silent };

// Whether the signed-in user holds the permission on the part.
bool IsAllowed(IRights& rights, int softwarePart, int permission,
               RightQuestion question = RightQuestion::ToldAndLogged);

}  // namespace goods
