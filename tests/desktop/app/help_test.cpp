// F1 and the help pages: the real library, the real windows, a real company.
#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>

#include "desktop/app/help_book.h"
#include "desktop/app/help_viewer.h"
#include "desktop/app/main_window.h"
#include "desktop/app/users_dialog.h"
#include "goods_reports.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

QByteArray PageText(const QString& file) {
  QFile page(":/help/fa/" + file);
  return page.open(QIODevice::ReadOnly) ? page.readAll() : QByteArray();
}

HelpViewer* ViewerOf(QWidget& window) {
  return window.findChild<HelpViewer*>("Help_FRM", Qt::FindDirectChildrenOnly);
}

QTextBrowser& TextOf(HelpViewer& viewer) { return *viewer.findChild<QTextBrowser*>("Page_TXT"); }

// F1 in the window; the page that shows, after Esc has closed it again and the window is as it was.
QString PageAtF1(QWidget& window) {
  const QWidget* focus = window.focusWidget();
  PressKey(window, Qt::Key_F1);
  HelpViewer* viewer = ViewerOf(window);
  if (viewer == nullptr || !viewer->isVisible()) return "no help";
  const QString page = viewer->Page();
  PressKey(*viewer, Qt::Key_Escape);
  EXPECT_FALSE(viewer->isVisible());
  EXPECT_TRUE(window.isVisible());
  Wait(30);
  EXPECT_EQ(window.focusWidget(), focus);
  return page;
}

class Help : public DesktopTest {
 protected:
  // A message would stand in the report's way: it fails the test instead.
  DesktopHost& QuietHost() {
    DesktopHost& host = HostFor("admin");
    host.Messages().SetUnattended([](const ShownMessage& message) {
      ADD_FAILURE() << message.text << '\n' << message.details;
      return true;
    });
    return host;
  }
  // The page at F1 in the report; more steps may follow.
  QString PageOfReport(MainWindow& main, const ReportDescription& report,
                       std::function<void(QWidget&)> more = {}) {
    QString page;
    WhileModal([&](QWidget& window) {
      page = PageAtF1(window);
      if (more) more(window);
    });
    main.OpenReport(report);
    RethrowFailure();
    return page;
  }
};

TEST_F(Help, F1ShowsThePageOfEachReportOfTheLibraryAndTheReportKeepsItsFocus) {
  DesktopHost& host = QuietHost();
  MainWindow main(host, Module(), Settings(), "شرکت", "");
  main.show();
  for (const ReportDescription& report : MenuReports()) {
    ASSERT_TRUE(Module().Has(report.exportName)) << report.exportName;
    EXPECT_EQ(PageOfReport(main, report), ToQt(report.HelpPage())) << report.exportName;
  }
}

TEST_F(Help, ADialogOfAReportShowsTheReportsPage) {
  DesktopHost& host = QuietHost();
  MainWindow main(host, Module(), Settings(), "شرکت", "");
  QString page;
  PageOfReport(main, Describe(ReportId::GoodsInQuantity), [&](QWidget& window) {
    WhileModal([&](QWidget& dialog) { page = PageAtF1(dialog); });
    PressKey(window, Qt::Key_F10, Qt::ControlModifier);
  });
  EXPECT_EQ(page, "turnover-list.md");
}

TEST_F(Help, AReportThatAReportOpensShowsItsOwnPage) {
  DesktopHost& host = QuietHost();
  MainWindow main(host, Module(), Settings(), "شرکت", "");
  QString page;
  const auto drillDown = [&](QWidget& window) {
    ASSERT_GT(FormOf(window).Name().size(), 0U);
    WhileModal([&](QWidget& opened) { page = PageAtF1(opened); });
    PressKey(window, Qt::Key_F2);
  };
  PageOfReport(main, Describe(ReportId::StockByDetails), drillDown);
  EXPECT_EQ(page, "one-good-detail.md");
  PageOfReport(main, Describe(ReportId::DetailMismatch), drillDown);
  EXPECT_EQ(page, "operation-mismatch.md");
}

TEST_F(Help, TheWindowsOfUsersHaveAPageOfTheirOwn) {
  DesktopHost& host = QuietHost();
  MainWindow main(host, Module(), Settings(), "شرکت", "");
  main.show();
  QString users;
  QString user;
  WhileModal([&](QWidget& window) {
    users = PageAtF1(window);
    WhileModal([&](QWidget& opened) { user = PageAtF1(opened); });
    dynamic_cast<QPushButton&>(Child(window, "Change_BTN")).click();
  });
  UsersDialog(Company().Users(), 1, &main).exec();
  EXPECT_EQ(users, "users.md");
  EXPECT_EQ(user, "users.md");
}

TEST_F(Help, OnTheMainWindowAndInTheHelpItselfItIsTheIndex) {
  DesktopHost& host = QuietHost();
  MainWindow main(host, Module(), Settings(), "شرکت", "");
  main.show();
  EXPECT_EQ(PageAtF1(main), kHelpIndex);
  HelpViewer* viewer = ViewerOf(main);
  main.findChild<QAction*>("Help_ACT")->trigger();
  EXPECT_TRUE(viewer->isVisible());
  viewer->ShowPage("stock-card.md");
  PressKey(*viewer, Qt::Key_F1);
  EXPECT_EQ(viewer->Page(), kHelpIndex);
  EXPECT_EQ(main.findChildren<HelpViewer*>().size(), 1);
}

TEST(HelpPagesTest, EachHasATitleLinksThatLeadToPagesAndPicturesThatAreThere) {
  // The index, the import and the users beside the reports.
  ASSERT_EQ(HelpPages().size(), kReports.size() + 3);
  static const QRegularExpression kTarget(R"(\]\(([^)#]+)\))");
  for (const HelpPage& page : HelpPages()) {
    const QString text = QString::fromUtf8(PageText(page.file));
    ASSERT_TRUE(text.startsWith("# " + page.title)) << FromQt(page.file);
    auto match = kTarget.globalMatch(text);
    while (match.hasNext()) {
      const QString target = HelpUrl(page.file).resolved(QUrl(match.next().captured(1))).path();
      EXPECT_TRUE(QFile::exists(":" + target)) << FromQt(page.file) << ": " << FromQt(target);
    }
  }
}

TEST(HelpPagesTest, EachReadsFromRightToLeftAsItIsShown) {
  HelpViewer viewer(nullptr);
  viewer.show();
  for (const HelpPage& page : HelpPages()) {
    viewer.ShowPage(page.file);
    const QTextDocument& shown = *TextOf(viewer).document();
    ASSERT_GT(shown.blockCount(), 5) << FromQt(page.file);
    for (QTextBlock block = shown.begin(); block.isValid(); block = block.next())
      ASSERT_EQ(block.textDirection(), Qt::RightToLeft) << FromQt(page.file + ": " + block.text());
  }
}

TEST(HelpPagesTest, TheFirstColumnOfATableStandsAtTheRight) {
  HelpViewer viewer(nullptr);
  viewer.show();
  viewer.ShowPage(kHelpIndex);
  for (const QTextFrame* frame : TextOf(viewer).document()->rootFrame()->childFrames()) {
    const auto* table = qobject_cast<const QTextTable*>(frame);
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->columns(), 2);
    const auto cell = [&](int column) {
      return table->cellAt(0, column).firstCursorPosition().block().text();
    };
    EXPECT_TRUE((QStringList{"پرسش", "کلید", "بخش", "گزارش"}.contains(cell(1)))) << FromQt(cell(1));
    EXPECT_TRUE((QStringList{"گزارش", "کار", "نمودار"}.contains(cell(0)))) << FromQt(cell(0));
  }
}

TEST(HelpPagesTest, TheListChoosesPagesAndFollowsLinks) {
  HelpViewer viewer(nullptr);
  viewer.show();
  auto& list = *viewer.findChild<QListWidget*>("Pages_LST");
  viewer.ShowPage(kHelpIndex);
  EXPECT_EQ(list.currentRow(), 0);
  list.setCurrentRow(1);
  EXPECT_EQ(viewer.Page(), "turnover-list.md");
  TextOf(viewer).setSource(QUrl("turnover-money.md"));
  EXPECT_EQ(viewer.Page(), "turnover-money.md");
  EXPECT_EQ(list.currentRow(), 2);
  EXPECT_TRUE(viewer.windowTitle().endsWith("موجودی ریالی"));
}

TEST(HelpPagesTest, NoPageIsWiderThanItsWindow) {
  for (const int width : {700, 1100}) {
    HelpViewer viewer(nullptr);
    viewer.resize(width, 600);
    viewer.show();
    const QTextBrowser& text = TextOf(viewer);
    for (const HelpPage& page : HelpPages()) {
      viewer.ShowPage(page.file);
      Wait(20);
      EXPECT_EQ(text.horizontalScrollBar()->maximum(), 0) << FromQt(page.file) << " at " << width;
    }
    // And when the window becomes narrower under a page.
    viewer.ShowPage("stock-card.md");
    viewer.resize(width - 150, 600);
    EXPECT_TRUE(WaitUntil([&] { return text.horizontalScrollBar()->maximum() == 0; }));
  }
}

TEST(HelpPagesTest, SearchFindsInEitherWayOfWritingAndTellsWhatIsNotThere) {
  HelpViewer viewer(nullptr);
  viewer.show();
  viewer.ShowPage("stock-card.md");
  auto& edit = *viewer.findChild<QLineEdit*>("Search_EDT");
  const auto found = [&] { return TextOf(viewer).textCursor().selectedText(); };
  edit.setText("ميانگين موزون متحرك");  // with the yeh and kaf of Arabic keyboards
  EXPECT_EQ(found(), "میانگین موزون متحرک");
  edit.setText("509");
  EXPECT_EQ(found(), "۵۰۹");
  const int first = TextOf(viewer).textCursor().position();
  PressKey(edit, Qt::Key_Return);
  EXPECT_EQ(found(), "۵۰۹");
  EXPECT_GT(TextOf(viewer).textCursor().position(), first);
  edit.setText("هواپیما");
  EXPECT_FALSE(viewer.findChild<QLabel*>()->text().isEmpty());
}

}  // namespace
}  // namespace goods
