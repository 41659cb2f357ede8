// The host's document and report windows. Each call returns when the window that it opened is closed.
#pragma once

#include <cstdint>
#include <string_view>

namespace goods {

// The modules that own document windows, as members of the set LoadedDLLs.
enum class DocumentModule {
  Sale,
  Buy,
  Returns,
  Transfer,
  FixProduce,
  VarProduce,
  AdvancedProduce,
  GoodAssignment,
  GoodReciept,
  Voucher,
};

class IDocuments {
 public:
  virtual ~IDocuments();

  // Whether another part of the program works with that module now, so that none of its documents may open.
  virtual bool LoadedDLLs(DocumentModule module) const = 0;

  // Whether a window of that kind is open.
  virtual bool IsSellFormShow() const = 0;
  virtual bool IsBuyFormShow() const = 0;
  virtual bool IsReturnFormShow() const = 0;
  virtual bool IsFixProduceFormShow() const = 0;
  virtual bool IsVarProduceFormShow() const = 0;
  virtual bool IsAdvancedProduceFormShow() const = 0;
  virtual bool IsGoodAssignmentRecieptFormShow() const = 0;
  virtual bool IsVoucherShow() const = 0;

  // Whether vouchers that the program made by itself wait for being saved; kind "3" are those of stock.
  // The base has none.
  virtual bool DontSavedVouchers(std::string_view kind);

  // code is the document's number (the row's OperationCode); mode 1 opens it for reading.
  virtual void Call_SaleInvoice(std::int64_t code, int mode) = 0;
  virtual void Call_BuyFactor(std::int64_t code, int mode) = 0;
  // movementType 4 is a return from sale, 5 a return from purchase.
  virtual void Call_InvoiceReturns(std::int64_t code, int movementType, int mode) = 0;
  virtual void Call_WarehouseTransfer(std::int64_t code, int mode) = 0;
  virtual void Call_FixProduce(std::int64_t code, int mode) = 0;
  virtual void Call_VarProduce(std::int64_t code, int mode) = 0;
  virtual void Call_AdvancedProduce(std::int64_t code, int mode) = 0;
  // softwarePart tells the kind of note: 212 or 302 for an issue, 213 or 310 for a receipt.
  virtual void Call_GoodAssignment(int softwarePart, std::int64_t code, int mode) = 0;
  virtual void Call_GoodReciept(int softwarePart, std::int64_t code, int mode) = 0;
  // The good's own record; code is the good's.
  virtual void Call_GoodGet(std::int64_t code, int mode) = 0;
  virtual void Open_Voucher(std::int64_t code, int mode) = 0;

  // Reports of this module, opened through the host so that its own rules hold. Store 0 is every store; two
  // empty dates are no date range.
  virtual void Call_KardexKala(std::int64_t good, std::int64_t store, std::string_view from,
                               std::string_view to) = 0;
  virtual void Call_GoodDetailTransactions(std::int64_t good, bool storeGiven, std::int64_t store,
                                           bool datesGiven, std::string_view from, std::string_view to,
                                           bool tagsGiven, std::string_view tags, bool categoryGiven,
                                           std::string_view category) = 0;
};

// Opens nothing: the base of a host that has no document windows, or some of them.
class NoDocuments : public IDocuments {
 public:
  bool LoadedDLLs(DocumentModule module) const override;
  bool IsSellFormShow() const override { return false; }
  bool IsBuyFormShow() const override { return false; }
  bool IsReturnFormShow() const override { return false; }
  bool IsFixProduceFormShow() const override { return false; }
  bool IsVarProduceFormShow() const override { return false; }
  bool IsAdvancedProduceFormShow() const override { return false; }
  bool IsGoodAssignmentRecieptFormShow() const override { return false; }
  bool IsVoucherShow() const override { return false; }
  void Call_SaleInvoice(std::int64_t, int) override {}
  void Call_BuyFactor(std::int64_t, int) override {}
  void Call_InvoiceReturns(std::int64_t, int, int) override {}
  void Call_WarehouseTransfer(std::int64_t, int) override {}
  void Call_FixProduce(std::int64_t, int) override {}
  void Call_VarProduce(std::int64_t, int) override {}
  void Call_AdvancedProduce(std::int64_t, int) override {}
  void Call_GoodAssignment(int, std::int64_t, int) override {}
  void Call_GoodReciept(int, std::int64_t, int) override {}
  void Call_GoodGet(std::int64_t, int) override {}
  void Open_Voucher(std::int64_t, int) override {}
  void Call_KardexKala(std::int64_t, std::int64_t, std::string_view, std::string_view) override {}
  void Call_GoodDetailTransactions(std::int64_t, bool, std::int64_t, bool, std::string_view, std::string_view,
                                   bool, std::string_view, bool, std::string_view) override {}
};

}  // namespace goods
