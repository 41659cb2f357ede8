#include <QScrollBar>
#include <QTableView>

#include "desktop/documents/desktop_documents.h"
#include "desktop/documents/document_window.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

using Documents = DesktopTest;

TEST_F(Documents, ADocumentThatIsNotThereIsTold) {
  DesktopHost& host = HostFor("admin");
  host.Messages().SetUnattended([](const ShownMessage&) { return true; });
  host.Documents().Call_SaleInvoice(98765432, 1);
  ASSERT_EQ(host.Messages().Shown().size(), 1U);
  EXPECT_EQ(host.Messages().Shown().front().text, "سندی با شماره 98765432 پیدا نشد.");
  EXPECT_FALSE(host.Documents().IsSellFormShow());
}

TEST_F(Documents, NoModuleIsMarkedUntilItIsSet) {
  DesktopHost& host = HostFor("admin");
  EXPECT_FALSE(host.Documents().LoadedDLLs(DocumentModule::Sale));
  host.Documents().SetLoadedDLLs(DocumentModule::Sale, true);
  EXPECT_TRUE(host.Documents().LoadedDLLs(DocumentModule::Sale));
  EXPECT_FALSE(host.Documents().LoadedDLLs(DocumentModule::Buy));
  host.Documents().SetLoadedDLLs(DocumentModule::Sale, false);
  EXPECT_FALSE(host.Documents().LoadedDLLs(DocumentModule::Sale));
}

TEST_F(Documents, CopyGivesTheCaptionsAndTheRowsWithTabs) {
  DocumentView view;
  view.title = "فاکتور";
  view.columns = {{"کالا", false}, {"مقدار", true}};
  view.rows = {{"برنج", "12.5"}, {"روغن", "3-"}};
  DocumentWindow window(view, 7, nullptr);
  SetPersianDigits(false);
  const QString copied = window.CopiedText();
  SetPersianDigits(true);
  EXPECT_EQ(copied, "کالا\tمقدار\nبرنج\t12.5\nروغن\t3-\n");
}

TEST_F(Documents, ColumnsHaveTheRoomThatTheyNeedWhereTheScreenHasIt) {
  DocumentView view;
  view.title = "فاکتور";
  for (const char* caption : {"ردیف", "کد کالا", "نام کالا", "انبار", "نوع", "مقدار", "واحد", "فی", "مبلغ"})
    view.columns.push_back({caption, false});
  view.rows = {{"1", "12345", "روغن آفتابگردان سرخ کردنی مدل دو", "انبار مرکزی شهرستان", "برگشت از فروش",
                "12,345.678", "کیلوگرم", "123,456,789.25", "123,456,789,012.25"}};
  DocumentWindow window(view, 7, nullptr);
  window.show();
  Wait(50);
  const auto& table = dynamic_cast<QTableView&>(Child(window, "Rows_GRD"));
  EXPECT_EQ(table.horizontalScrollBar()->maximum(), 0);
  const QFontMetrics metrics(table.font());
  for (int column = 0; column < table.model()->columnCount(); ++column) {
    const QString text = table.model()->index(0, column).data().toString();
    EXPECT_GT(table.columnWidth(column), metrics.horizontalAdvance(text)) << FromQt(text);
  }
}

TEST_F(Documents, TheHostOpensTheStockCardForAnotherReport) {
  DesktopHost& host = HostFor("admin");
  const std::int64_t good = BusiestGood(Company());
  std::size_t rows = 0;
  WhileModal([&](QWidget& window) { rows = RowCount(window); });
  host.Documents().Call_KardexKala(good, 0, "", "");
  EXPECT_EQ(static_cast<std::int64_t>(rows), Company().ListBusyGoods(1).at(0).movements);
}

TEST_F(Documents, NoVouchersWaitUntilItIsSaid) {
  DesktopHost& host = HostFor("admin");
  EXPECT_FALSE(host.Documents().DontSavedVouchers("3"));
  host.Documents().SetDontSavedVouchers("3", true);
  EXPECT_TRUE(host.Documents().DontSavedVouchers("3"));
  EXPECT_FALSE(host.Documents().DontSavedVouchers("1"));
  host.Documents().SetDontSavedVouchers("3", false);
  EXPECT_FALSE(host.Documents().DontSavedVouchers("3"));
}

TEST_F(Documents, GoodDetailsAreOpenedWhereTheLibraryHasTheReportAndToldAboutElsewhere) {
  DesktopHost& host = HostFor("admin");
  host.Messages().SetUnattended([](const ShownMessage&) { return true; });
  std::vector<DetailTransactionsCall> calls;
  const ReportOpeners with{.stockCard = {},
                           .detailTransactions = [&](const auto& call) { calls.push_back(call); }};
  DesktopDocuments able(Company(), host.Messages(), host.Rights(), with, [] { return nullptr; });
  able.Call_GoodDetailTransactions(7, true, 2, false, "1403/01/01", "1403/12/30", true, ",3,", false, "5");
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].good, 7);
  EXPECT_TRUE(calls[0].storeGiven);
  EXPECT_EQ(calls[0].store, 2);
  EXPECT_FALSE(calls[0].datesGiven);
  EXPECT_EQ(calls[0].to, "1403/12/30");
  EXPECT_TRUE(calls[0].tagsGiven);
  EXPECT_EQ(calls[0].tags, ",3,");
  EXPECT_FALSE(calls[0].categoryGiven);
  EXPECT_EQ(calls[0].category, "5");
  EXPECT_TRUE(host.Messages().Shown().empty());
  DesktopDocuments without(Company(), host.Messages(), host.Rights(), {}, [] { return nullptr; });
  without.Call_GoodDetailTransactions(7, false, 0, false, "", "", false, "", false, "");
  EXPECT_EQ(host.Messages().Shown().size(), 1U);
}

}  // namespace
}  // namespace goods
