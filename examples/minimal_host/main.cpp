// The smallest host: one object is every service. It attaches to the report library, opens the stock card of
// good 12 over a row that it makes up, prints what the card shows, and detaches.
#include <iostream>

#include "goods_transaction_qrt.h"
#include "host/components/form.h"
#include "host/components/grid.h"
#include "host/services/host.h"

using namespace goods;
using Text = std::string_view;
using Code = std::int64_t;
using Fields = std::optional<std::vector<std::string>>;

struct KeptSettings : ISettings {
  TSettings& Settings() override { return record; }
  void SaveSettingItem(int, int, bool, Code, Text) override {}
  std::string GetSettingFilePath() const override { return {}; }
  TSettings record;
};

struct Host : THost, IConnection, IRights, IMessages, IWaiting, IPrinting, NoDocuments, ILookups, IWindows {
  IConnection& Connection() override { return *this; }
  IRights& Rights() override { return *this; }
  IMessages& Messages() override { return *this; }
  IWaiting& Waiting() override { return *this; }
  ISettings& Settings() override { return settings; }
  IPrinting& Printing() override { return *this; }
  IDocuments& Documents() override { return *this; }
  ILookups& Lookups() override { return *this; }
  IWindows& Windows() override { return *this; }
  void Open(Text statement, RowStore& into, IStatementProgress*) override {
    if (statement != "Exec Kardex_Proc 12") throw DatabaseError("not known here", std::string(statement));
    into.Define({{"Date"}, {"Bagh", ColumnType::Decimal}});
    into.ColumnAt(0).AppendText("1402/01/05");
    into.ColumnAt(1).AppendDecimal(20);
    into.EndRow();
  }
  void Execute(Text, IStatementProgress*) override {}
  const TUserInfo& UserInfo() const override { return user; }
  bool HavePermission(const TUserInfo&, int, int, bool, bool, Text) override { return true; }
  void SetUserEvent(int, int, Code) override {}
  void ShowSmartMessage(Text text, Text, MessageIcon) override { std::cout << text << '\n'; }
  void ShowSmartMessage(int, Text inserted) override { std::cout << inserted << '\n'; }
  void OpenOther(Text text, Text) override { std::cout << text << '\n'; }
  void MsgWithoutGardesh(Text name) override { std::cout << name << '\n'; }
  void MsgRequiredField(Text name) override { std::cout << name << '\n'; }
  void ShowTooltipMessage(const TControl&, Text text, int) override { std::cout << text << '\n'; }
  void ShowError(const std::exception& error) override { std::cout << error.what() << '\n'; }
  void ShowWaitting(TForm*, Text) override {}
  void HideWaitting(TForm*, int) override {}
  void Preview(const PrintJob&) override {}
  Fields LookupDBs(EntityType, Code, Text) override { return {{"پیچ", "", ""}}; }
  std::optional<Code> SelectEntity(TForm*, EntityType, Code, Text) override { return std::nullopt; }
  std::string ReturnCategoryName(Text) override { return {}; }
  void RunModal(TForm& form) override {
    const auto& grid = dynamic_cast<TSmartDBGrid_QRT&>(*form.FindComponent("Kardex_GRD"));
    for (const TGridColumn* column : grid.VisibleColumns())
      std::cout << column->Caption() << ": " << grid.CellText(0, *column) << '\n';
    form.Close();
  }
  void PostMessage(TForm&, int) override {}
  void ProcessMessages(const std::function<bool()>&) override {}
  std::uint64_t TickCount() const override { return 0; }
  TForm* ActiveWindow() const override { return nullptr; }
  void ActivateKeyboardLayout(Text) override {}
  std::string NowDate() const override { return "1402/06/01"; }
  KeptSettings settings;
  TUserInfo user{1, "user"};
};

int main() {
  Host host;
  Goods_AttachHost(GOODS_HOST_VERSION, reinterpret_cast<goods_host*>(static_cast<THost*>(&host)));
  Open_Kardex(12, 0, u"", u"");
  return Goods_DetachHost() == 1 ? 0 : 1;  // 0: it had not attached
}
