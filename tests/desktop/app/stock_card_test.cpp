// The stock card on the desktop: the real library, the real windows, a real company.
#include <QTableView>

#include "desktop/documents/document_window.h"
#include "host/components/edit.h"
#include "host/components/standard.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

class StockCard : public DesktopTest {
 protected:
  // Opens the card through the export that lets the user choose the good.
  void Open(std::function<void(QWidget&)> steps) {
    WhileModal(std::move(steps));
    Module().Call("Open_GoodKardex");
  }
};

TEST_F(StockCard, ATypedGoodShowsItsRowsAndTheStatementIsLogged) {
  HostFor("admin");
  const std::int64_t good = BusiestGood(Company());
  std::size_t rows = 0;
  Open([&](QWidget& window) {
    EXPECT_EQ(RowCount(window), 0U);
    TypeGood(window, good);
    rows = RowCount(window);
  });
  EXPECT_EQ(static_cast<std::int64_t>(rows), Company().ListBusyGoods(1).at(0).movements);
  const std::string log = Written(Path("statements.log"));
  EXPECT_NE(log.find("\trows " + std::to_string(rows) + "\tExec Kardex_Proc " + std::to_string(good) + "\n"),
            std::string::npos);
}

TEST_F(StockCard, StoreAndDatesNarrowTheRowsWithoutAskingTheDatabaseForThemAgain) {
  HostFor("admin");
  Open([&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    const std::size_t all = RowCount(window);
    PressKey(window, Qt::Key_2, Qt::AltModifier);
    Wait(50);
    TypeText(window, "Store_SESF.TSelect_Entity_Frame1.Code_EDT", "1");
    PressKey(window, Qt::Key_Return);
    const std::size_t inStore = RowCount(window);
    EXPECT_GT(inStore, 0U);
    EXPECT_LT(inStore, all);
    EXPECT_TRUE(Component<TCheckBox>(window, "Store_SESF.SelectEntity_CHK").Checked());

    TypeText(window, "Date_RDSF.RangeDate_From_EDT", "14020101");
    PressKey(window, Qt::Key_Return);
    TypeText(window, "Date_RDSF.RangeDate_To_EDT", "14021229");
    PressKey(window, Qt::Key_Return);
    auto& dates = Component<TCheckBox>(window, "Date_RDSF.RangeDate_CHK");
    if (!dates.Checked()) dates.SetChecked(true);
    Wait(50);
    EXPECT_GT(RowCount(window), 0U);
    EXPECT_LT(RowCount(window), inStore);
    EXPECT_TRUE(Child(window, "PreTime_PNL").isVisible());
  });
  const std::string log = Written(Path("statements.log"));
  EXPECT_EQ(log.find("Exec Kardex_Proc"), log.rfind("Exec Kardex_Proc"));
}

TEST_F(StockCard, F2OpensTheDocumentOfTheRowAndSetsItsFlagMeanwhile) {
  DesktopHost& host = HostFor("admin");
  bool opened = false;
  bool flagged = false;
  Open([&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    auto* query = Component<TSmartDBGrid_QRT>(window, "Kardex_GRD").DataSet();
    const Value purchase(std::int64_t{2});
    ASSERT_TRUE(query->Locate("Type", std::span(&purchase, 1)));
    WhileModal([&](QWidget& document) {
      opened = dynamic_cast<DocumentWindow*>(&document) != nullptr;
      flagged = host.Documents().IsBuyFormShow();
      EXPECT_GT(dynamic_cast<QTableView&>(Child(document, "Rows_GRD")).model()->rowCount(), 0);
      PressKey(document, Qt::Key_Escape);
    });
    PressKey(window, Qt::Key_F2);
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_TRUE(opened);
  EXPECT_TRUE(flagged);
  EXPECT_FALSE(host.Documents().IsBuyFormShow());
}

TEST_F(StockCard, F9OpensThePreviewAndEscClosesItAlone) {
  HostFor("admin");
  bool previewed = false;
  Open([&](QWidget& window) {
    TypeGood(window, BusiestGood(Company()));
    WhileModal([&](QWidget& preview) {
      previewed = &preview != &window;
      PressKey(preview, Qt::Key_Escape);
    });
    PressKey(window, Qt::Key_F9);
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_TRUE(previewed);
}

TEST_F(StockCard, TheListButtonOffersTheGoods) {
  HostFor("admin");
  Open([&](QWidget& window) {
    WhileModal([](QWidget& picker) {
      EXPECT_EQ(picker.objectName(), "SelectEntity_FRM");
      PressKey(picker, Qt::Key_Return);
    });
    Child(window, "Good_SEF.Code_EDT").setFocus();
    PressKey(window, Qt::Key_F4);
    Wait(50);
    EXPECT_EQ(Component<TEdit>(window, "Good_SEF.Code_EDT").Text(), "1");
  });
}

TEST_F(StockCard, TheSecondUnitOfTheSettingsShowsAtTheNextOpening) {
  HostFor("admin");
  const auto shows = [&] {
    bool visible = false;
    Open([&](QWidget& window) {
      visible = Component<TSmartDBGrid_QRT>(window, "Kardex_GRD").FindColumn("Meghdar2")->Visible();
    });
    return visible;
  };
  EXPECT_FALSE(shows());
  Settings().Settings().SecondUnit = true;
  EXPECT_TRUE(shows());
}

// Breaks off in the middle of the rows of the statement that begins with the given text, once.
class BreakingConnection : public IConnection {
 public:
  explicit BreakingConnection(std::unique_ptr<IConnection> inner) : inner_(std::move(inner)) {}
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override {
    if (broken_ || !statement.starts_with("Exec Kardex_Proc")) {
      inner_->Open(statement, into, progress);
      return;
    }
    broken_ = true;
    into.Define({{"Date", ColumnType::Text}});
    into.ColumnAt(0).AppendText("1402/01/01");
    into.EndRow();
    throw DatabaseError("خواندن ردیف‌ها ناتمام ماند.", std::string(statement));
  }
  void Execute(std::string_view statement, IStatementProgress* progress) override {
    inner_->Execute(statement, progress);
  }

 private:
  std::unique_ptr<IConnection> inner_;
  bool broken_ = false;
};

TEST_F(StockCard, AStatementThatFailsMidwayIsToldAndTheWindowGoesOn) {
  DesktopHost& host =
      HostFor("admin", [](auto inner) { return std::make_unique<BreakingConnection>(std::move(inner)); });
  host.Messages().SetUnattended([](const ShownMessage&) { return true; });
  const std::int64_t good = BusiestGood(Company());
  Open([&](QWidget& window) {
    TypeGood(window, good);
    EXPECT_EQ(RowCount(window), 0U);
    ASSERT_EQ(host.Messages().Shown().size(), 1U);
    EXPECT_NE(
        host.Messages().Shown().front().text.find("خواندن ردیف‌ها ناتمام ماند."),
        std::string::npos);
    EXPECT_FALSE(host.Waiting().PanelVisible());
    TypeGood(window, 1);
    TypeGood(window, good);
    EXPECT_GT(RowCount(window), 0U);
  });
  EXPECT_NE(
      Written(Path("statements.log")).find("\terror: خواندن ردیف‌ها ناتمام ماند.\t"),
      std::string::npos);
}

TEST_F(StockCard, WhatTheUserMayNotOpenIsRefusedWithTheRightsName) {
  DesktopHost& host = HostFor("guest");
  host.Messages().SetUnattended([](const ShownMessage&) { return true; });
  Module().Call("Open_GoodKardex");
  ASSERT_EQ(host.Messages().Shown().size(), 1U);
  EXPECT_EQ(host.Messages().Shown().front().text, "شما مجوز باز کردن گزارش «کاردکس کالا» را ندارید.");
}

TEST_F(StockCard, TheTablesMenuOffersTheHostsExports) {
  HostFor("admin");
  Open([&](QWidget& window) { EXPECT_FALSE(dynamic_cast<FormView&>(window).GridCommands().empty()); });
}

TEST_F(StockCard, AReportThatIsShownKeepsTheLibrary) {
  HostFor("admin");
  Open([&](QWidget&) { EXPECT_FALSE(Module().Detach()); });
  EXPECT_TRUE(Module().Detach());
}

}  // namespace
}  // namespace goods
