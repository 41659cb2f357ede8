#include "desktop/documents/desktop_documents.h"

#include <utility>

#include "desktop/documents/document_window.h"
#include "host/services/rights.h"

namespace goods {

DesktopDocuments::DesktopDocuments(ICompany& company, IMessages& messages, const IRights& rights,
                                   ReportOpeners reports, std::function<QWidget*()> parent)
    : company_(company),
      messages_(messages),
      rights_(rights),
      reports_(std::move(reports)),
      parent_(std::move(parent)) {}

void DesktopDocuments::SetLoadedDLLs(DocumentModule module, bool loaded) {
  if (loaded) {
    loaded_.insert(module);
  } else {
    loaded_.erase(module);
  }
}

void DesktopDocuments::SetDontSavedVouchers(std::string_view kind, bool waiting) {
  if (waiting) {
    waitingVouchers_.emplace(kind);
  } else {
    waitingVouchers_.erase(std::string(kind));
  }
}

void DesktopDocuments::Show(DocumentKind kind, std::int64_t code, int mode, DocumentModule module) {
  // Cleared also when showing throws.
  struct ShownScope {
    std::multiset<DocumentModule>& shown;
    std::multiset<DocumentModule>::iterator place;
    ~ShownScope() { shown.erase(place); }
  } const scope{shown_, shown_.insert(module)};
  ShowWindow(kind, code, mode);
}

void DesktopDocuments::ShowWindow(DocumentKind kind, std::int64_t code, int mode) {
  if (own_.open && own_.open(kind, code, mode)) return;
  auto view = company_.Document(kind, code);
  if (!view) {
    messages_.ShowSmartMessage("سندی با شماره " + std::to_string(code) + " پیدا نشد.", "",
                               MessageIcon::Warning);
    return;
  }
  if (!rights_.SeesPrices()) view = WithoutPrices(*std::move(view));
  DocumentWindow window(*view, code, parent_());
  window.exec();
}

void DesktopDocuments::Call_SaleInvoice(std::int64_t code, int mode) {
  Show(DocumentKind::SaleInvoice, code, mode, DocumentModule::Sale);
}

void DesktopDocuments::Call_BuyFactor(std::int64_t code, int mode) {
  Show(DocumentKind::PurchaseInvoice, code, mode, DocumentModule::Buy);
}

void DesktopDocuments::Call_InvoiceReturns(std::int64_t code, int movementType, int mode) {
  constexpr int kReturnFromPurchase = 5;
  const bool purchase = movementType == kReturnFromPurchase;
  Show(purchase ? DocumentKind::PurchaseReturn : DocumentKind::SaleReturn, code, mode,
       DocumentModule::Returns);
}

void DesktopDocuments::Call_WarehouseTransfer(std::int64_t code, int mode) {
  Show(DocumentKind::Transfer, code, mode, DocumentModule::Transfer);
}

void DesktopDocuments::Call_FixProduce(std::int64_t code, int mode) {
  Show(DocumentKind::FixProduction, code, mode, DocumentModule::FixProduce);
}

void DesktopDocuments::Call_VarProduce(std::int64_t code, int mode) {
  Show(DocumentKind::VarProduction, code, mode, DocumentModule::VarProduce);
}

void DesktopDocuments::Call_AdvancedProduce(std::int64_t code, int mode) {
  Show(DocumentKind::AdvancedProduction, code, mode, DocumentModule::AdvancedProduce);
}

void DesktopDocuments::Call_GoodAssignment(int softwarePart, std::int64_t code, int mode) {
  const bool expense = softwarePart == kPartExpense;
  Show(expense ? DocumentKind::ExpenseNote : DocumentKind::IssueNote, code, mode,
       DocumentModule::GoodAssignment);
}

void DesktopDocuments::Call_GoodReciept(int softwarePart, std::int64_t code, int mode) {
  const bool revenue = softwarePart == kPartRevenue;
  Show(revenue ? DocumentKind::RevenueNote : DocumentKind::ReceiptNote, code, mode,
       DocumentModule::GoodReciept);
}

void DesktopDocuments::Call_GoodGet(std::int64_t code, int mode) {
  // The good's record belongs to no document module: it has no flag.
  ShowWindow(DocumentKind::GoodRecord, code, mode);
}

void DesktopDocuments::Open_Voucher(std::int64_t code, int mode) {
  Show(DocumentKind::Voucher, code, mode, DocumentModule::Voucher);
}

void DesktopDocuments::Call_KardexKala(std::int64_t good, std::int64_t store, std::string_view from,
                                       std::string_view to) {
  reports_.stockCard(good, store, from, to);
}

void DesktopDocuments::Call_GoodDetailTransactions(std::int64_t good, bool storeGiven, std::int64_t store,
                                                   bool datesGiven, std::string_view from,
                                                   std::string_view to, bool tagsGiven, std::string_view tags,
                                                   bool categoryGiven, std::string_view category) {
  if (reports_.detailTransactions) {
    reports_.detailTransactions(
        {good, storeGiven, store, datesGiven, from, to, tagsGiven, tags, categoryGiven, category});
    return;
  }
  messages_.ShowSmartMessage(
      "گزارش گردش جزئیات کالا در کتابخانه گزارش‌ها نیست.", "",
      MessageIcon::Information);
}

}  // namespace goods
