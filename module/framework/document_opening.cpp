#include "module/framework/document_opening.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "module/framework/texts.h"

namespace goods {
namespace {

constexpr int kReadOnly = 1;
constexpr int kReturnMode = 2;
constexpr int kVoucherMode = 3;
constexpr int kOpeningStock = 3;

// One kind of document. Left out: no module test, no right asked, no busy test.
struct DocumentRow {
  std::vector<std::int64_t> types;
  std::optional<DocumentModule> module;
  std::optional<int> softwarePart;
  bool (IDocuments::*isBusy)() const = nullptr;
  std::string_view label;
  void (*open)(IDocuments& documents, std::int64_t code, int type) = nullptr;
};

const std::vector<DocumentRow>& DocumentTable() {
  using D = IDocuments;
  using M = DocumentModule;
  static const std::vector<DocumentRow> kTable = {
      {{0, 10},
       M::FixProduce,
       kPartFixProduce,
       &D::IsFixProduceFormShow,
       "تولید آنالیز ثابت",
       [](D& d, std::int64_t code, int) { d.Call_FixProduce(code, kReadOnly); }},
      {{1, 12, 13},
       M::Sale,
       kPartSale,
       &D::IsSellFormShow,
       "فاکتور فروش",
       [](D& d, std::int64_t code, int) { d.Call_SaleInvoice(code, kReadOnly); }},
      {{2},
       M::Buy,
       kPartBuy,
       &D::IsBuyFormShow,
       "خرید",
       [](D& d, std::int64_t code, int) { d.Call_BuyFactor(code, kReadOnly); }},
      {{kOpeningStock},
       std::nullopt,
       kPartGoods,
       nullptr,
       "",
       [](D& d, std::int64_t code, int) { d.Call_GoodGet(code, kReadOnly); }},
      // A return from sale asks no right, unlike a return from purchase.
      {{4},
       M::Returns,
       std::nullopt,
       &D::IsReturnFormShow,
       "برگشت از فروش",
       [](D& d, std::int64_t code, int type) { d.Call_InvoiceReturns(code, type, kReturnMode); }},
      {{5},
       M::Returns,
       kPartBuyReturn,
       &D::IsReturnFormShow,
       "برگشت از خريد",
       [](D& d, std::int64_t code, int type) { d.Call_InvoiceReturns(code, type, kReturnMode); }},
      {{6, 7},
       M::Transfer,
       std::nullopt,
       nullptr,
       "",
       [](D& d, std::int64_t code, int) { d.Call_WarehouseTransfer(code, kReadOnly); }},
      {{8, 9},
       M::VarProduce,
       kPartVarProduce,
       &D::IsVarProduceFormShow,
       "تولید آنالیز متغیر",
       [](D& d, std::int64_t code, int) { d.Call_VarProduce(code, kReadOnly); }},
      // Both kinds of note ask for the right on the plain note, and open under their own part.
      {{21},
       M::GoodAssignment,
       kPartGoodAssignment,
       &D::IsGoodAssignmentRecieptFormShow,
       "حواله انبار",
       [](D& d, std::int64_t code, int) { d.Call_GoodAssignment(kPartGoodAssignment, code, kReadOnly); }},
      {{11},
       M::GoodAssignment,
       kPartGoodAssignment,
       &D::IsGoodAssignmentRecieptFormShow,
       "حواله انبار",
       [](D& d, std::int64_t code, int) { d.Call_GoodAssignment(kPartExpense, code, kReadOnly); }},
      {{14, 15, 16, 17},
       M::Voucher,
       kPartVoucher,
       &D::IsVoucherShow,
       "سند حسابداری",
       [](D& d, std::int64_t code, int) { d.Open_Voucher(code, kVoucherMode); }},
      {{18, 19, 20},
       M::AdvancedProduce,
       kPartAdvancedProduce,
       &D::IsAdvancedProduceFormShow,
       "تولید آنالیز ثابت پیشرفته",
       [](D& d, std::int64_t code, int) { d.Call_AdvancedProduce(code, kReadOnly); }},
      {{22},
       M::GoodReciept,
       kPartGoodReciept,
       &D::IsGoodAssignmentRecieptFormShow,
       "رسید انبار",
       [](D& d, std::int64_t code, int) { d.Call_GoodReciept(kPartGoodReciept, code, kReadOnly); }},
      {{23},
       M::GoodReciept,
       kPartGoodReciept,
       &D::IsGoodAssignmentRecieptFormShow,
       "رسید انبار",
       [](D& d, std::int64_t code, int) { d.Call_GoodReciept(kPartRevenue, code, kReadOnly); }},
  };
  return kTable;
}

// A detail split has no document of its own.
bool IsDetailSplit(std::int64_t type) { return type == 24 || type == 25; }

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

DocumentOutcome OpenDocument(THost& host, std::int64_t type, std::int64_t operationCode) {
  if (IsDetailSplit(type)) {
    host.Messages().ShowSmartMessage(kMessageNotPossibleBecause, kNotPosted);
    return DocumentOutcome::NotOpened;
  }
  const auto& table = DocumentTable();
  const auto row = std::find_if(table.begin(), table.end(), [type](const DocumentRow& each) {
    return std::find(each.types.begin(), each.types.end(), type) != each.types.end();
  });
  if (row == table.end() || !MayOpen(host, *row)) return DocumentOutcome::NotOpened;
  row->open(host.Documents(), operationCode, static_cast<int>(type));
  return DocumentOutcome::Opened;
}

bool ChangesStockCard(std::int64_t type) { return type == kOpeningStock; }

}  // namespace goods
