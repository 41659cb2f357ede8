#include "module/framework/document_opening.h"

#include <array>
#include <optional>
#include <string_view>

#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr int kReadOnly = 1;
constexpr int kReturnMode = 2;
constexpr int kVoucherMode = 3;

// How a kind of document opens. Left out: no module test, no right asked, no busy test.
struct DocumentRow {
  DocumentKind kind{};
  std::optional<DocumentModule> module;
  std::optional<int> softwarePart;
  bool (IDocuments::*isBusy)() const = nullptr;
  std::string_view label{};
  void (*open)(IDocuments& documents, std::int64_t code, MovementType type) = nullptr;
};

using D = IDocuments;
using M = DocumentModule;
using K = DocumentKind;
using T = MovementType;

constexpr std::array<DocumentRow, kDocumentKinds> kDocuments{{
    {K::FixedProduction, M::FixProduce, kPartFixProduce, &D::IsFixProduceFormShow, "تولید آنالیز ثابت",
     [](D& d, std::int64_t code, T) { d.Call_FixProduce(code, kReadOnly); }},
    {K::SaleInvoice, M::Sale, kPartSale, &D::IsSellFormShow, "فاکتور فروش",
     [](D& d, std::int64_t code, T) { d.Call_SaleInvoice(code, kReadOnly); }},
    {K::PurchaseInvoice, M::Buy, kPartBuy, &D::IsBuyFormShow, "خرید",
     [](D& d, std::int64_t code, T) { d.Call_BuyFactor(code, kReadOnly); }},
    {K::GoodRecord, std::nullopt, kPartGoods, nullptr, "",
     [](D& d, std::int64_t code, T) { d.Call_GoodGet(code, kReadOnly); }},
    // A return from sale asks no right, unlike a return from purchase.
    {K::SaleReturn, M::Returns, std::nullopt, &D::IsReturnFormShow, "برگشت از فروش",
     [](D& d, std::int64_t code, T type) {
       d.Call_InvoiceReturns(code, static_cast<int>(type), kReturnMode);
     }},
    {K::PurchaseReturn, M::Returns, kPartBuyReturn, &D::IsReturnFormShow, "برگشت از خريد",
     [](D& d, std::int64_t code, T type) {
       d.Call_InvoiceReturns(code, static_cast<int>(type), kReturnMode);
     }},
    {K::Transfer, M::Transfer, std::nullopt, nullptr, "",
     [](D& d, std::int64_t code, T) { d.Call_WarehouseTransfer(code, kReadOnly); }},
    {K::VariableProduction, M::VarProduce, kPartVarProduce, &D::IsVarProduceFormShow, "تولید آنالیز متغیر",
     [](D& d, std::int64_t code, T) { d.Call_VarProduce(code, kReadOnly); }},
    {K::AdvancedProduction, M::AdvancedProduce, kPartAdvancedProduce, &D::IsAdvancedProduceFormShow,
     "تولید آنالیز ثابت پیشرفته",
     [](D& d, std::int64_t code, T) { d.Call_AdvancedProduce(code, kReadOnly); }},
    // Both kinds of note ask for the right on the plain note, and open under their own part.
    {K::IssueNote, M::GoodAssignment, kPartGoodAssignment, &D::IsGoodAssignmentRecieptFormShow, "حواله انبار",
     [](D& d, std::int64_t code, T) { d.Call_GoodAssignment(kPartGoodAssignment, code, kReadOnly); }},
    {K::ExpenseNote, M::GoodAssignment, kPartGoodAssignment, &D::IsGoodAssignmentRecieptFormShow,
     "حواله انبار", [](D& d, std::int64_t code, T) { d.Call_GoodAssignment(kPartExpense, code, kReadOnly); }},
    {K::ReceiptNote, M::GoodReciept, kPartGoodReciept, &D::IsGoodAssignmentRecieptFormShow, "رسید انبار",
     [](D& d, std::int64_t code, T) { d.Call_GoodReciept(kPartGoodReciept, code, kReadOnly); }},
    {K::RevenueNote, M::GoodReciept, kPartGoodReciept, &D::IsGoodAssignmentRecieptFormShow, "رسید انبار",
     [](D& d, std::int64_t code, T) { d.Call_GoodReciept(kPartRevenue, code, kReadOnly); }},
    {K::Voucher, M::Voucher, kPartVoucher, &D::IsVoucherShow, "سند حسابداری",
     [](D& d, std::int64_t code, T) { d.Open_Voucher(code, kVoucherMode); }},
    {K::None, std::nullopt, std::nullopt, nullptr, "", nullptr},
}};

static_assert(
    [] {
      for (std::size_t place = 0; place < kDocuments.size(); ++place) {
        if (kDocuments[place].kind != static_cast<DocumentKind>(place)) return false;
        if ((kDocuments[place].open == nullptr) != (kDocuments[place].kind == K::None)) return false;
      }
      return true;
    }(),
    "each kind of document has its row, and all but the missing one open");

bool MayOpen(THost& host, const DocumentRow& row) {
  IMessages& messages = host.Messages();
  if (row.module && host.Documents().LoadedDLLs(*row.module)) {
    messages.OpenOther("فايل مورد نظر توسط بخش", "بخش مشابه");
    return false;
  }
  if (row.softwarePart &&
      !IsAllowed(host.Rights(), *row.softwarePart, kPermissionOpenDocument, RightQuestion::Logged)) {
    return false;
  }
  if (row.isBusy != nullptr && (host.Documents().*row.isBusy)()) {
    messages.OpenOther(row.label, row.label);
    return false;
  }
  return true;
}

}  // namespace

std::string_view DocumentName(DocumentKind kind) { return kDocuments[static_cast<std::size_t>(kind)].label; }

DocumentOutcome OpenDocument(THost& host, const Value& type, std::int64_t operationCode) {
  const auto movement = MovementTypeOf(type);
  if (!movement) return DocumentOutcome::NotOpened;
  const DocumentRow& row = kDocuments[static_cast<std::size_t>(DocumentOf(*movement))];
  if (row.open == nullptr) {
    host.Messages().ShowSmartMessage(kMessageNotPossibleBecause, kNotPosted);
    return DocumentOutcome::NotOpened;
  }
  if (!MayOpen(host, row)) return DocumentOutcome::NotOpened;
  row.open(host.Documents(), operationCode, *movement);
  return DocumentOutcome::Opened;
}

bool ChangesStockCard(const Value& type) { return MovementTypeOf(type) == MovementType::OpeningStock; }

}  // namespace goods
