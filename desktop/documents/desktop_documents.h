// DesktopDocuments: the host's openers, each a window to read the document in.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "company/company.h"
#include "host/services/documents.h"
#include "host/services/messages.h"
#include "host/services/rights.h"

class QWidget;

namespace goods {

// What Call_GoodDetailTransactions was asked for.
struct DetailTransactionsCall {
  std::int64_t good = 0;
  bool storeGiven = false;
  std::int64_t store = 0;
  bool datesGiven = false;
  std::string_view from;
  std::string_view to;
  bool tagsGiven = false;
  std::string_view tags;
  bool categoryGiven = false;
  std::string_view category;
};

// The reports that the host opens on behalf of another report.
struct ReportOpeners {
  std::function<void(std::int64_t good, std::int64_t store, std::string_view from, std::string_view to)>
      stockCard;
  // Null where the library has no such report.
  std::function<void(const DetailTransactionsCall& call)> detailTransactions = {};
};

// Documents of the application's own; what is null is the viewers' alone.
struct OwnDocuments {
  // Shows the document; false where the viewer is to show it.
  std::function<bool(DocumentKind kind, std::int64_t code, int mode)> open = {};
  std::function<bool(DocumentModule module)> isBusy = {};
  std::function<bool(DocumentModule module)> isShown = {};
  std::function<bool(std::string_view kind)> unsavedVouchers = {};
};

class DesktopDocuments : public IDocuments {
 public:
  // company and messages must outlive it. parent gives the window that documents open over.
  // rights says whether prices are shown.
  DesktopDocuments(ICompany& company, IMessages& messages, const IRights& rights, ReportOpeners reports,
                   std::function<QWidget*()> parent);

  void SetOwnDocuments(OwnDocuments own) { own_ = std::move(own); }

  // Whether another part of the program works with the module. Nothing here does by itself.
  void SetLoadedDLLs(DocumentModule module, bool loaded);

  // Whether vouchers of that kind wait for being saved. This host makes none by itself: none wait unless it
  // is said here.
  void SetDontSavedVouchers(std::string_view kind, bool waiting);
  bool DontSavedVouchers(std::string_view kind) override {
    return waitingVouchers_.contains(kind) || (own_.unsavedVouchers && own_.unsavedVouchers(kind));
  }

  bool LoadedDLLs(DocumentModule module) const override {
    return loaded_.contains(module) || (own_.isBusy && own_.isBusy(module));
  }
  bool IsSellFormShow() const override { return Shows(DocumentModule::Sale); }
  bool IsBuyFormShow() const override { return Shows(DocumentModule::Buy); }
  bool IsReturnFormShow() const override { return Shows(DocumentModule::Returns); }
  bool IsFixProduceFormShow() const override { return Shows(DocumentModule::FixProduce); }
  bool IsVarProduceFormShow() const override { return Shows(DocumentModule::VarProduce); }
  bool IsAdvancedProduceFormShow() const override { return Shows(DocumentModule::AdvancedProduce); }
  // Issue and receipt notes share one flag.
  bool IsGoodAssignmentRecieptFormShow() const override {
    return Shows(DocumentModule::GoodAssignment) || Shows(DocumentModule::GoodReciept);
  }
  bool IsVoucherShow() const override { return Shows(DocumentModule::Voucher); }

  void Call_SaleInvoice(std::int64_t code, int mode) override;
  void Call_BuyFactor(std::int64_t code, int mode) override;
  void Call_InvoiceReturns(std::int64_t code, int movementType, int mode) override;
  void Call_WarehouseTransfer(std::int64_t code, int mode) override;
  void Call_FixProduce(std::int64_t code, int mode) override;
  void Call_VarProduce(std::int64_t code, int mode) override;
  void Call_AdvancedProduce(std::int64_t code, int mode) override;
  void Call_GoodAssignment(int softwarePart, std::int64_t code, int mode) override;
  void Call_GoodReciept(int softwarePart, std::int64_t code, int mode) override;
  void Call_GoodGet(std::int64_t code, int mode) override;
  void Open_Voucher(std::int64_t code, int mode) override;
  void Call_KardexKala(std::int64_t good, std::int64_t store, std::string_view from,
                       std::string_view to) override;
  void Call_GoodDetailTransactions(std::int64_t good, bool storeGiven, std::int64_t store, bool datesGiven,
                                   std::string_view from, std::string_view to, bool tagsGiven,
                                   std::string_view tags, bool categoryGiven,
                                   std::string_view category) override;

 private:
  bool Shows(DocumentModule module) const {
    return shown_.contains(module) || (own_.isShown && own_.isShown(module));
  }
  // Shows the document and returns when its window is closed; module's flag is set meanwhile.
  void Show(DocumentKind kind, std::int64_t code, int mode, DocumentModule module);
  void ShowWindow(DocumentKind kind, std::int64_t code, int mode);

  ICompany& company_;
  IMessages& messages_;
  const IRights& rights_;
  ReportOpeners reports_;
  std::function<QWidget*()> parent_;
  OwnDocuments own_;
  std::set<DocumentModule> loaded_;
  std::multiset<DocumentModule> shown_;
  std::set<std::string, std::less<>> waitingVouchers_;
};

}  // namespace goods
