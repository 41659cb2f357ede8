#include "desktop/app/services/company_rights.h"

#include <array>
#include <utility>

namespace goods {
namespace {

struct NumberName {
  int number;
  const char* name;
};

constexpr std::array<NumberName, 19> kParts{{
    {kPartGoods, "کالا"},
    {kPartSale, "فاکتور فروش"},
    {kPartBuy, "فاکتور خرید"},
    {kPartBuyReturn, "برگشت از خرید"},
    {kPartFixProduce, "تولید آنالیز ثابت"},
    {kPartVarProduce, "تولید آنالیز متغیر"},
    {kPartGoodAssignment, "حواله انبار"},
    {kPartGoodReciept, "رسید انبار"},
    {kPartExpense, "کالای هزینه شده"},
    {kPartRevenue, "کالای درآمد شده"},
    {kPartVoucher, "سند حسابداری"},
    {kPartAmountAsset, "موجودی کالا"},
    {kPartCashAsset, "موجودی ریالی"},
    {kPartStockCard, "کاردکس کالا"},
    {kPartStockCardSearch, "جستجو در کاردکس"},
    {kPartGoodDetail, "گردش جزئیات کالا"},
    {kPartOverallTurnover, "گردش کلی کالا"},
    {kPartStoreAsset, "موجودی کالا به تفکیک انبار"},
    {kPartAdvancedProduce, "تولید آنالیز ثابت پیشرفته"},
}};

constexpr std::array<NumberName, 7> kPermissions{{
    {kPermissionOpenDocument, "باز کردن سند در"},
    {kPermissionOpenReport, "باز کردن گزارش"},
    {kPermissionStockCardFromList, "باز کردن کاردکس از فهرست در"},
    {kPermissionPrintList, "چاپ لیست در"},
    {kPermissionStockValues, "دیدن مبلغ موجودی در"},
    {kPermissionSelectedLists, "استفاده از لیست‌های انتخابی در"},
    {kPermissionAmounts, "دیدن مبالغ در"},
}};

template <std::size_t N>
std::string NameOf(const std::array<NumberName, N>& names, int number, const char* otherwise) {
  for (const auto& [candidate, name] : names) {
    if (candidate == number) return name;
  }
  return otherwise + std::to_string(number);
}

}  // namespace

std::string MissingRightText(int softwarePart, int permission) {
  return "شما مجوز " + NameOf(kPermissions, permission, "شماره ") + " «" +
         NameOf(kParts, softwarePart, "بخش ") + "» را ندارید.";
}

CompanyRights::CompanyRights(ICompany& company, UserRecord user, IMessages& messages)
    : company_(company), user_(std::move(user)), info_{user_.code, user_.name}, messages_(messages) {}

bool CompanyRights::HavePermission(const TUserInfo& /*user*/, int softwarePart, int permission,
                                   bool showMessage, bool /*logged*/, std::string_view text) {
  if (company_.HasRight(user_, softwarePart, permission)) return true;
  if (showMessage) TellRefusal(softwarePart, permission, text);
  return false;
}

void CompanyRights::TellRefusal(int softwarePart, int permission, std::string_view text) {
  std::string message = MissingRightText(softwarePart, permission);
  if (!text.empty()) message.append("\n").append(text);
  messages_.ShowSmartMessage(message, "", MessageIcon::Warning);
}

void CompanyRights::SetUserEvent(int /*softwarePart*/, int /*permission*/, std::int64_t /*code*/) {}

}  // namespace goods
