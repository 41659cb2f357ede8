// What the desktop tests stand on: a connection that makes its rows up, a host of the desktop's services, and
// a window with every kind of component.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/print/desktop_printing.h"
#include "desktop/windows/desktop_messages.h"
#include "desktop/windows/desktop_waiting.h"
#include "desktop/windows/desktop_windows.h"
#include "host/base/base_dock.h"
#include "host/components/edit.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/select_entity_search_frame.h"

namespace goods::testing {

// "rows N" gives N rows of a stock card; "slow N" takes 4 ms a block of them.
class MadeUpConnection : public IConnection {
 public:
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override;
  void Execute(std::string_view statement, IStatementProgress* progress) override;
};

class TestRights : public IRights {
 public:
  const TUserInfo& UserInfo() const override { return user_; }
  bool HavePermission(const TUserInfo&, int, int, bool, bool, std::string_view) override { return true; }
  void SetUserEvent(int, int, std::int64_t) override {}
  bool SeesPrices() const override { return seesPrices; }

  bool seesPrices = true;

 private:
  TUserInfo user_{1, "آزمون"};
};

class TestSettings : public ISettings {
 public:
  TSettings& Settings() override { return settings_; }
  void SaveSettingItem(int, int, bool, std::int64_t, std::string_view) override {}
  std::string GetSettingFilePath() const override { return {}; }

 private:
  TSettings settings_;
};

class TestLookups : public ILookups {
 public:
  std::optional<std::vector<std::string>> LookupDBs(EntityType, std::int64_t code,
                                                    std::string_view) override {
    if (code > 100) return std::nullopt;
    return std::vector<std::string>{"انبار شماره " + std::to_string(code)};
  }
  std::optional<std::int64_t> SelectEntity(TForm*, EntityType, std::int64_t, std::string_view) override {
    return 7;
  }
  std::string ReturnCategoryName(std::string_view) override { return {}; }
};

class TestHost : public THost {
 public:
  TestHost();
  IConnection& Connection() override { return connection; }
  IRights& Rights() override { return rights; }
  IMessages& Messages() override { return messages; }
  IWaiting& Waiting() override { return waiting; }
  ISettings& Settings() override { return settings; }
  IPrinting& Printing() override { return printing; }
  IDocuments& Documents() override;
  ILookups& Lookups() override { return lookups; }
  IWindows& Windows() override { return windows; }

  DesktopWindows windows;
  DesktopMessages messages{windows};
  DesktopWaiting waiting{windows};
  MadeUpConnection made;
  WaitingConnection connection{made, waiting};
  DesktopPrinting printing{windows};
  TestRights rights;
  TestSettings settings;
  TestLookups lookups;
};

// A small stock card.
class TCard_FRM : public TBaseDock_FRM {
 public:
  explicit TCard_FRM(THost& host);
  void FormKeyDown(TKey& key) override;
  void WindowMessage(int code) override { messages.push_back(code); }
  void FormShow() override {
    if (OnShow) OnShow();
  }
  void Fill(std::size_t rows, const std::string& kind = "rows");

  std::function<void()> OnShow;
  std::vector<int> messages;
  int folds = 0;
  int documents = 0;

  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Column, "معیارهای &جستجو"};
  TSelect_Entity_Frame Good_SEF{this, "Good_SEF"};
  TLabel Good_LBL{this, "Good_LBL", "&کالا :"};
  TPanel Good_PNL{this, "Good_PNL", Flow::Row};
  TSelectEntity_Search_Frame Store_SESF{this, "Store_SESF", "&انبار"};
  TRange_Date_Search_Frame Date_RDSF{this, "Date_RDSF", "بازه &زمانی"};
  TPanel More_PNL{this, "More_PNL", Flow::Row};
  TLabel Kind_LBL{this, "Kind_LBL", "نوع :"};
  TComboBox Kind_CMB{this, "Kind_CMB"};
  TComboBox Typing_CMB{this, "Typing_CMB"};
  TEdit Search_EDT{this, "Search_EDT"};
  TEdit Amount_EDT{this, "Amount_EDT", InputKind::Amount};
  TCheckBox Stock_CHK{this, "Stock_CHK", "فقط &موجودی‌دار"};
  TPanel Figures_PNL{this, "Figures_PNL", Flow::Row, "[ پیش از بازه زمانی ]"};
  TLabel In_LBL{this, "In_LBL", "وارده :"};
  TLabel InValue_LBL{this, "InValue_LBL", "1,250.5"};
  TLabel Remain_LBL{this, "Remain_LBL", "باقیمانده :"};
  TLabel RemainValue_LBL{this, "RemainValue_LBL", "320-"};
  TSmartDBGrid_QRT Kardex_GRD{this, "Kardex_GRD"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton PrintList_BTN{this, "PrintList_BTN", "پیش نمایش ليست F9"};
  TButton OpenInfo_BTN{this, "OpenInfo_BTN", "بازکردن اطلاعات F2"};
  TButton Exit_BTN{this, "Exit_BTN", "خروج Esc"};
  TADOQuery Kardex_QRY;
  TDataSource Kardex_DS{this, "Kardex_DS", &Kardex_QRY};

 private:
  void LayOut();
  void AddColumns();
};

// Letters of any script, key by key; QTest's own takes those of ASCII alone.
inline void TypeLetters(QWidget* widget, const QString& text) {
  for (const QChar letter : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
    QApplication::sendEvent(widget, &press);
  }
}

// Runs the message loop until what was queued is done.
inline void Settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

}  // namespace goods::testing
