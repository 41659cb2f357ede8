// Creating, opening and destroying: what is refused, with which code and which sentence.
#include <array>
#include <cstring>
#include <thread>

#include "host/core/text.h"
#include "tests/desktop/library/library_kit.h"

namespace goods {
namespace {

class Session : public LibraryTest {};

TEST_F(Session, TheVersionIsTheProjects) {
  EXPECT_STREQ(GoodsDesktop_Version(), GOODS_VERSION_OF_THE_PROJECT);
}

TEST_F(Session, AnOpenedReportShowsTheCompanysRowsAndDestroyingLetsGo) {
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  ASSERT_NE(session_, nullptr);
  const auto company = OpenCompany(SmallCompany());
  const BusyGood busiest = company->ListBusyGoods(1).at(0);
  std::size_t rows = 0;
  EXPECT_EQ(OpenCard(static_cast<int32_t>(busiest.code), [&](QWidget& window) { rows = RowCount(window); }),
            GOODS_DESKTOP_DONE);
  EXPECT_EQ(static_cast<std::int64_t>(rows), busiest.movements);
  EXPECT_EQ(GoodsDesktop_Destroy(session_), GOODS_DESKTOP_DONE);
  EXPECT_EQ(GoodsDesktop_Destroy(session_), GOODS_DESKTOP_WRONG_CALL) << "its address is no longer valid";
  session_ = nullptr;
  EXPECT_EQ(GoodsDesktop_Destroy(nullptr), GOODS_DESKTOP_DONE);
  EXPECT_EQ(Create(), GOODS_DESKTOP_DONE) << "and again";
}

TEST_F(Session, ThereIsOneAtATime) {
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE);
  goods_desktop* second = session_;
  EXPECT_EQ(GoodsDesktop_Create(&options_, &second), GOODS_DESKTOP_BUSY);
  EXPECT_EQ(second, nullptr);
  EXPECT_EQ(ProblemOf(), "نشست دیگری باز است.");
  auto program = Sized<goods_desktop_program>();
  int32_t exitCode = 0;
  EXPECT_EQ(GoodsDesktop_RunProgram(&program, &exitCode), GOODS_DESKTOP_BUSY);
  EXPECT_EQ(exitCode, 1);
}

TEST_F(Session, WhileAReportIsShownItCannotBeDestroyedAndItsReportsCanBeClosed) {
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE);
  EXPECT_EQ(OpenCard(1,
                     [&](QWidget& window) {
                       EXPECT_EQ(GoodsDesktop_Destroy(session_), GOODS_DESKTOP_BUSY);
                       EXPECT_TRUE(window.isModal());
                       EXPECT_EQ(GoodsDesktop_CloseReports(session_), GOODS_DESKTOP_DONE);
                       EXPECT_NE(FormOf(window).ModalResult(), kModalNone);
                     }),
            GOODS_DESKTOP_DONE);
  EXPECT_EQ(GoodsDesktop_Destroy(session_), GOODS_DESKTOP_DONE);
  session_ = nullptr;
}

TEST_F(Session, AWrongPasswordAMissingCompanyAndAMissingLibraryHaveACodeAndASentence) {
  options_.password = "nonsense";
  EXPECT_EQ(Create(), GOODS_DESKTOP_NOT_SIGNED_IN);
  EXPECT_EQ(session_, nullptr);
  EXPECT_EQ(ProblemOf(), "نام کاربر یا گذرواژه درست نیست: admin");
  const auto* wide = static_cast<const char16_t*>(GoodsDesktop_Problem(GOODS_DESKTOP_UTF16));
  EXPECT_EQ(FromUtf16(wide), ProblemOf());

  options_.password = "admin";
  options_.company = "file:/nowhere/company.goods";
  EXPECT_EQ(Create(), GOODS_DESKTOP_NO_COMPANY);
  EXPECT_NE(ProblemOf(), "");
  options_.company = company_.c_str();
  options_.module = "/nowhere/module.so";
  EXPECT_EQ(Create(), GOODS_DESKTOP_NO_MODULE);
  EXPECT_NE(ProblemOf().find("/nowhere/module.so"), std::string::npos);
  options_.module = GOODS_MODULE_FILE;
  EXPECT_EQ(Create(), GOODS_DESKTOP_DONE) << "what failed left nothing behind";
}

TEST_F(Session, CallsThatDoNotFitTogetherAreRefused) {
  const auto refused = [this](const char* why) {
    EXPECT_EQ(Create(), GOODS_DESKTOP_WRONG_CALL) << why;
    EXPECT_NE(ProblemOf(), "") << why;
  };
  EXPECT_EQ(GoodsDesktop_Create(nullptr, &session_), GOODS_DESKTOP_WRONG_CALL);
  EXPECT_EQ(GoodsDesktop_Create(&options_, nullptr), GOODS_DESKTOP_WRONG_CALL);
  const goods_desktop_options good = options_;
  options_.encoding = 2;
  refused("an encoding that there is not");
  options_ = good;
  options_.company = nullptr;
  refused("no company and no connection");
  options_ = good;
  options_.user_name = "ali";
  refused("two users");
  options_.login = nullptr;
  refused("a user of the program's own without rights");
  options_.rights = &rights_;
  refused("rights that cannot be asked");
  options_ = good;
  connection_.open = [](void*, goods_desktop_text, goods_desktop_rows*) -> int32_t { return 0; };
  options_.connection = &connection_;
  refused("half a connection");
  options_ = good;
  options_.struct_size = 4;
  refused("a struct without its fields");
  options_ = good;
  EXPECT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
}

TEST_F(Session, AStructMayBeOlderOrNewerThanTheLibrary) {
  // Newer, and what is new is not used.
  struct {
    goods_desktop_rights known;
    std::array<char, 16> further;
  } newer{Sized<goods_desktop_rights>(), {}};
  newer.known.struct_size = sizeof newer;
  options_.rights = &newer.known;
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  ASSERT_EQ(GoodsDesktop_Destroy(session_), GOODS_DESKTOP_DONE);
  newer.further[3] = 1;
  EXPECT_EQ(Create(), GOODS_DESKTOP_WRONG_CALL) << "what is new is asked for";
  // Older: what it does not have is not read.
  goods_desktop_messages older{};
  older.struct_size = offsetof(goods_desktop_messages, show);
  older.show = [](void*, int32_t, goods_desktop_text, goods_desktop_text, goods_desktop_text,
                  int32_t) -> int32_t { std::abort(); };
  options_.rights = nullptr;
  options_.messages = &older;
  options_.login = "guest";
  options_.password = "guest";
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  bool told = false;
  WhileModal([&](QWidget& window) { told = window.objectName() == "MessageDialog"; });
  auto report = Sized<goods_desktop_report>();
  report.name = "Open_GoodKardex";
  EXPECT_EQ(GoodsDesktop_Open(session_, &report), GOODS_DESKTOP_DONE);
  EXPECT_TRUE(told);
}

TEST_F(Session, EveryExportCanBeOpenedAndNothingElse) {
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE);
  auto report = Sized<goods_desktop_report>();
  for (const char* name : {"Goods_DetachHost", "Open_Nothing", ""}) {
    report.name = name;
    EXPECT_EQ(GoodsDesktop_Open(session_, &report), GOODS_DESKTOP_NO_REPORT) << name;
  }
  report.name = nullptr;
  EXPECT_EQ(GoodsDesktop_Open(session_, &report), GOODS_DESKTOP_NO_REPORT);
  EXPECT_EQ(GoodsDesktop_Open(session_, nullptr), GOODS_DESKTOP_WRONG_CALL);

  const std::vector<std::pair<const char*, const char*>> windows{
      {"Open_GoodKardex", "Kardex_FRM"},
      {"Open_Kardex", "Kardex_FRM"},
      {"Open_KardexSearch", "KardexSearch_FRM"},
      {"Open_KardexNegativ", "KardexSearch_FRM"},
      {"Open_GarKala", "GoodTransaction_FRM"},
      {"Open_GoodAmountAsset", "GoodTransaction_FRM"},
      {"Open_GoodCashAsset", "GoodTransaction_FRM"},
      {"Open_GoodTrans_Overall", "GoodTrans_Overall_FRM"},
      {"Open_GoodsAsset_Store", "GoodsAsset_Store_FRM"},
      {"Open_DetailTransactions", "GoodDetailTransaction_FRM"},
      {"Open_GoodDetailTransactions", "GoodDetailTransaction_FRM"},
      {"Open_SearchInDetailTransactions", "AllGoodDetailTransaction_FRM"},
      {"Open_DetailKardexAsset_Dismatch", "GoodDetailKardexDismatch_FRM"},
  };
  for (const auto& [name, window] : windows) {
    QString shown;
    WhileModal([&](QWidget& front) {
      // A report may begin with its criteria; the report is behind them.
      const QWidget* outer = &front;
      while (outer->parentWidget() != nullptr) outer = outer->parentWidget();
      shown = outer->objectName();
      front.close();
      GoodsDesktop_CloseReports(session_);
    });
    report = Sized<goods_desktop_report>();
    report.name = name;
    report.good = 1;
    report.software_part = 501;
    EXPECT_EQ(GoodsDesktop_Open(session_, &report), GOODS_DESKTOP_DONE) << name;
    EXPECT_EQ(shown, QString(window)) << name;
  }
  report.name = "Open_StoreExistance";
  EXPECT_EQ(GoodsDesktop_Open(session_, &report), GOODS_DESKTOP_DONE) << "does nothing";
}

TEST_F(Session, AnotherThreadIsRefusedWithASentenceOfItsOwn) {
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE);
  auto report = Sized<goods_desktop_report>();
  report.name = "Open_GoodKardex";
  int32_t code = 0;
  std::string problem;
  std::thread([&] {
    code = GoodsDesktop_Open(session_, &report);
    problem = ProblemOf();
  }).join();
  EXPECT_EQ(code, GOODS_DESKTOP_WRONG_THREAD);
  EXPECT_EQ(problem, "این کار تنها در رشته نشست شدنی است.");
  EXPECT_NE(ProblemOf(), problem) << "each thread has its own";
}

TEST_F(Session, TextsMayBeUtf16) {
  const std::u16string company = ToUtf16(company_);
  const std::u16string folder = ToUtf16(settingsFolder_);
  const std::u16string module = ToUtf16(GOODS_MODULE_FILE);
  options_.encoding = GOODS_DESKTOP_UTF16;
  options_.company = company.c_str();
  options_.settings_folder = folder.c_str();
  options_.module = module.c_str();
  options_.login = u"admin";
  options_.password = u"admin";
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  auto report = Sized<goods_desktop_report>();
  report.name = "Open_Kardex";
  report.good = 1;
  report.from = u"1402/01/01";
  report.to = u"1402/12/29";
  bool shown = false;
  WhileModal([&](QWidget& window) { shown = window.objectName() == "Kardex_FRM"; });
  EXPECT_EQ(GoodsDesktop_Open(session_, &report), GOODS_DESKTOP_DONE);
  EXPECT_TRUE(shown);
}

TEST_F(Session, WithoutAUserTheSignInWindowIsShownAndMayBeGivenUp) {
  options_.login = nullptr;
  bool shown = false;
  WhileModal([&](QWidget& window) { shown = window.objectName() == "SignIn_FRM"; });
  EXPECT_EQ(Create(), GOODS_DESKTOP_GIVEN_UP);
  EXPECT_TRUE(shown);
}

}  // namespace
}  // namespace goods
