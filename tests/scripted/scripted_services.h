// The small services of the scripted host: each keeps its calls in the log and answers as it was told.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/services/host.h"
#include "tests/scripted/call_log.h"

namespace goods {

// Every right is granted but those that were refused.
class ScriptedRights : public IRights {
 public:
  explicit ScriptedRights(CallLog& log) : log_(log) {}
  void SetUser(TUserInfo user) { user_ = std::move(user); }
  void SetAll(bool granted);
  void Set(int softwarePart, int permission, bool granted);

  const TUserInfo& UserInfo() const override { return user_; }
  bool HavePermission(const TUserInfo& user, int softwarePart, int permission, bool showMessage, bool logged,
                      std::string_view text) override;
  void SetUserEvent(int softwarePart, int permission, std::int64_t code) override;
  void SetSeesPrices(bool sees) { seesPrices_ = sees; }
  bool SeesPrices() const override { return seesPrices_; }

 private:
  CallLog& log_;
  TUserInfo user_{1, "کاربر"};
  bool all_ = true;
  bool seesPrices_ = true;
  std::map<std::pair<int, int>, bool> rights_;
};

class ScriptedMessages : public IMessages {
 public:
  explicit ScriptedMessages(CallLog& log) : log_(log) {}
  void ShowSmartMessage(std::string_view text, std::string_view caption, MessageIcon icon) override;
  void ShowSmartMessage(int number, std::string_view inserted) override;
  void OpenOther(std::string_view text, std::string_view name) override;
  void MsgWithoutGardesh(std::string_view name) override;
  void MsgRequiredField(std::string_view name) override;
  void ShowTooltipMessage(const TControl& beside, std::string_view text, int width) override;
  void ShowError(const std::exception& error) override;

 private:
  CallLog& log_;
};

// Knows whether the indicator is shown, by whom, and whether a test has seen that it still is.
class ScriptedWaiting : public IWaiting {
 public:
  explicit ScriptedWaiting(CallLog& log) : log_(log) {}
  void ShowWaitting(TForm* owner, std::string_view text) override;
  void HideWaitting(TForm* owner, int reserved) override;

  bool Shown() const { return shown_; }
  const std::string& Text() const { return text_; }
  bool Acknowledged = false;

 private:
  CallLog& log_;
  bool shown_ = false;
  const TForm* owner_ = nullptr;
  std::string text_;
};

class ScriptedSettings : public ISettings {
 public:
  explicit ScriptedSettings(CallLog& log) : log_(log) {}
  TSettings& Settings() override { return settings_; }
  void SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                       std::string_view text) override;
  std::string ReadSection(std::string_view section) const override;
  void WriteSection(std::string_view section, std::string_view text) override;
  std::string GetSettingFilePath() const override { return Folder; }
  std::string Folder;
  // By name, without regard to letter case.
  void GiveSection(std::string_view section, std::string text);
  // None when it was neither given nor written.
  std::optional<std::string> FindSection(std::string_view section) const;

 private:
  CallLog& log_;
  TSettings settings_;
  std::map<std::string, std::string> sections_;
};

// A print job as it was when it was previewed.
struct PrintedReport {
  std::string title;
  std::vector<std::string> lines;
  std::vector<std::string> parameters;
  int options = 0;
  std::vector<std::string> columns;
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> footers;  // empty where the table has none
  bool rowNumbers = false;
};

class ScriptedPrinting : public IPrinting {
 public:
  explicit ScriptedPrinting(CallLog& log) : log_(log) {}
  void Preview(const PrintJob& job) override;
  std::deque<PrintedReport> Jobs;
  // Called while the preview is open.
  std::function<void()> WhileOpen;

 private:
  CallLog& log_;
};

class ScriptedDocuments : public IDocuments {
 public:
  explicit ScriptedDocuments(CallLog& log) : log_(log) {}
  std::set<DocumentModule> Loaded;
  // The names of the flags that are set, such as "IsSellFormShow".
  std::set<std::string, std::less<>> Flags;
  // The kinds of vouchers that wait for being saved, such as "3".
  std::set<std::string, std::less<>> UnsavedVouchers;
  // Called while the document's window is open; what it throws comes out of the call.
  std::function<void()> WhileOpen;

  bool LoadedDLLs(DocumentModule module) const override { return Loaded.contains(module); }
  bool IsSellFormShow() const override { return Flags.contains("IsSellFormShow"); }
  bool IsBuyFormShow() const override { return Flags.contains("IsBuyFormShow"); }
  bool IsReturnFormShow() const override { return Flags.contains("IsReturnFormShow"); }
  bool IsFixProduceFormShow() const override { return Flags.contains("IsFixProduceFormShow"); }
  bool IsVarProduceFormShow() const override { return Flags.contains("IsVarProduceFormShow"); }
  bool IsAdvancedProduceFormShow() const override { return Flags.contains("IsAdvancedProduceFormShow"); }
  bool IsGoodAssignmentRecieptFormShow() const override {
    return Flags.contains("IsGoodAssignmentRecieptFormShow");
  }
  bool IsVoucherShow() const override { return Flags.contains("IsVoucherShow"); }
  bool DontSavedVouchers(std::string_view kind) override;

  void Call_SaleInvoice(std::int64_t code, int mode) override { Opened("Call_SaleInvoice", code, mode); }
  void Call_BuyFactor(std::int64_t code, int mode) override { Opened("Call_BuyFactor", code, mode); }
  void Call_InvoiceReturns(std::int64_t code, int movementType, int mode) override {
    Opened("Call_InvoiceReturns", code, movementType, mode);
  }
  void Call_WarehouseTransfer(std::int64_t code, int mode) override {
    Opened("Call_WarehouseTransfer", code, mode);
  }
  void Call_FixProduce(std::int64_t code, int mode) override { Opened("Call_FixProduce", code, mode); }
  void Call_VarProduce(std::int64_t code, int mode) override { Opened("Call_VarProduce", code, mode); }
  void Call_AdvancedProduce(std::int64_t code, int mode) override {
    Opened("Call_AdvancedProduce", code, mode);
  }
  void Call_GoodAssignment(int softwarePart, std::int64_t code, int mode) override {
    Opened("Call_GoodAssignment", softwarePart, code, mode);
  }
  void Call_GoodReciept(int softwarePart, std::int64_t code, int mode) override {
    Opened("Call_GoodReciept", softwarePart, code, mode);
  }
  void Call_GoodGet(std::int64_t code, int mode) override { Opened("Call_GoodGet", code, mode); }
  void Open_Voucher(std::int64_t code, int mode) override { Opened("Open_Voucher", code, mode); }
  void Call_KardexKala(std::int64_t good, std::int64_t store, std::string_view from,
                       std::string_view to) override {
    Opened("Call_KardexKala", good, store, from, to);
  }
  void Call_GoodDetailTransactions(std::int64_t good, bool storeGiven, std::int64_t store, bool datesGiven,
                                   std::string_view from, std::string_view to, bool tagsGiven,
                                   std::string_view tags, bool categoryGiven,
                                   std::string_view category) override {
    Opened("Call_GoodDetailTransactions", good, storeGiven, store, datesGiven, from, to, tagsGiven, tags,
           categoryGiven, category);
  }

 private:
  template <typename... Arguments>
  void Opened(std::string_view name, const Arguments&... arguments) {
    log_.Add(CallKind::Document, CallText(name, arguments...));
    if (WhileOpen) WhileOpen();
  }

  CallLog& log_;
};

// Entities are those that were given; the picker answers what was told.
class ScriptedLookups : public ILookups {
 public:
  using Entity = std::map<std::string, std::string, std::less<>>;  // field name, text

  explicit ScriptedLookups(CallLog& log) : log_(log) {}
  void Give(EntityType type, std::int64_t code, Entity entity);
  // Tags and categories come in the order in which they were given; one of the same code is replaced.
  void GiveTag(TTag tag);
  void GiveCategory(TCategory category);
  void FailNext(std::string message) { failure_ = std::move(message); }
  // The n-th look-up from the beginning on fails with the message, once.
  void FailAt(std::size_t number, std::string message) {
    failAt_ = number;
    failAtMessage_ = std::move(message);
  }
  std::size_t AskedCount() const { return asked_; }
  // What the next picker answers: a code, or none when the user gives up.
  void AnswerPicker(std::optional<std::int64_t> code) { picks_.push_back(code); }
  // The same for the next category tree.
  void AnswerCategoryTree(std::optional<std::vector<std::string>> codes) {
    treePicks_.push_back(std::move(codes));
  }
  // Something was said about a next look-up, picker or tree, and it never came.
  bool StillWaits() const { return failure_.has_value() || !picks_.empty() || !treePicks_.empty(); }
  // Asked for an entity that was not given; none: there is no such entity.
  std::function<std::optional<Entity>(EntityType type, std::int64_t code)> Otherwise;

  std::optional<std::vector<std::string>> LookupDBs(EntityType type, std::int64_t code,
                                                    std::string_view fields) override;
  std::optional<std::int64_t> SelectEntity(TForm* owner, EntityType type, std::int64_t current,
                                           std::string_view filter) override;
  std::string ReturnCategoryName(std::string_view categoryCode) override;
  std::vector<TTag> Tags() override;
  std::vector<TCategory> Categories() override;
  std::optional<std::vector<std::string>> SelectCategories(TForm* owner,
                                                           const std::vector<std::string>& chosen) override;

 private:
  void FailIfTold(const std::string& call);

  CallLog& log_;
  std::map<std::pair<EntityType, std::int64_t>, Entity> entities_;
  std::vector<TTag> tags_;
  std::vector<TCategory> categories_;
  std::optional<std::string> failure_;
  std::size_t asked_ = 0;
  std::size_t failAt_ = 0;
  std::string failAtMessage_;
  std::deque<std::optional<std::int64_t>> picks_;
  std::deque<std::optional<std::vector<std::string>>> treePicks_;
};

// "Good", "Store" and so on; "EntityType 7" for a number without a name.
std::string EntityName(EntityType type);

}  // namespace goods
