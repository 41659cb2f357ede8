// A new company from files, the whole road: the chooser, the matching, the import, its problems, the company.
#include "desktop/app/import_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <filesystem>
#include <fstream>

#include <xlsxwriter.h>

#include "desktop/app/company_chooser.h"
#include "desktop/app/help_book.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

constexpr const char* kPassword = "a long password";

class ImportWindow : public DesktopTest {
 protected:
  ImportWindow() {
    std::filesystem::create_directories(Path("data"));
    Write("artikel.csv", "Nr;Bez;group;unit\nG-1;پیچ;ابزار;عدد\nG-2;مهره;ابزار;عدد\n");
    Write("movements.csv",
          "date;good;store;type;quantity;unit price\n2024-03-20;G-1;S1;Einkauf;10;500\n"
          "2024-03-21;G-1;S1;sale;4;900\n");
  }

  void Write(const char* file, const std::string& text) const {
    std::ofstream(Path("data") + "/" + file) << text;
  }
  std::string Target() const { return Path("new.goods"); }

  static QString Text(QWidget& window, const char* label) {
    return dynamic_cast<QLabel&>(Child(window, label)).text();
  }
  static QString NextText(QWidget& window) {
    return dynamic_cast<QPushButton&>(Child(window, "Next_BTN")).text();
  }
  static void Set(QWidget& window, const char* edit, const std::string& text) {
    dynamic_cast<QLineEdit&>(Child(window, edit)).setText(ToQt(text));
  }
  // Waits for the work to end.
  static void Settle(QWidget& window) {
    const auto* bar = window.findChild<QProgressBar*>("Progress_BAR");
    ASSERT_TRUE(WaitUntil([&] { return !bar->isVisible(); }, 30'000));
  }
  static void Read(QWidget& window, const std::string& from) {
    Set(window, "Source_EDT", from);
    PressKey(window, Qt::Key_Return);
    Settle(window);
  }
  static QListWidget& Tables(QWidget& window) {
    return dynamic_cast<QListWidget&>(Child(window, "Tables_LST"));
  }
  static void GoToTable(QWidget& window, const QString& title) {
    QListWidget& tables = Tables(window);
    for (int i = 0; i < tables.count(); ++i) {
      if (tables.item(i)->text().startsWith(title)) return tables.setCurrentRow(i);
    }
    throw std::runtime_error("no table " + FromQt(title));
  }
  // Chooses with the keyboard, as a user does: Down until the item is there.
  static void Choose(QWidget& window, const QString& box, const QString& item) {
    auto& combo = dynamic_cast<QComboBox&>(Child(window, box));
    combo.setFocus();
    const int index = combo.findText(item);
    ASSERT_GE(index, 0) << FromQt(item);
    while (combo.currentIndex() < index && combo.isVisible()) PressKey(window, Qt::Key_Down);
    while (combo.currentIndex() > index && combo.isVisible()) PressKey(window, Qt::Key_Up);
  }
  static QTableWidget& Grid(QWidget& window, const char* name) {
    return dynamic_cast<QTableWidget&>(Child(window, name));
  }
  // The matching of the two files that are called otherwise.
  static void Match(QWidget& window) {
    GoToTable(window, "کالاها");
    auto& file = dynamic_cast<QComboBox&>(Child(window, "File_CMB"));
    file.setCurrentIndex(file.findText("artikel.csv"));
    emit file.activated(file.currentIndex());
    ASSERT_TRUE(WaitUntil([&] { return window.findChild<QTableWidget*>("Matching_GRD")->rowCount() > 0; }));
    Settle(window);
    Choose(window, "Theirs1_CMB", "Nr");
    Choose(window, "Theirs2_CMB", "Bez");
    GoToTable(window, "نوع‌های ناشناخته");
    Choose(window, "Theirs1_CMB", "خرید");
  }
};

TEST_F(ImportWindow, FromTheChooserToTheOpenCompany) {
  CompanyChooser chooser(Settings(), [] { return QString(); });
  WhileModal([&](QWidget& choosing) {
    WhileModal([&](QWidget& window) {
      EXPECT_EQ(window.objectName(), "Import_FRM");
      EXPECT_LE(window.width(), 1024);
      EXPECT_LE(window.height(), 768);
      EXPECT_LE(window.minimumSizeHint().width(), 1024);
      EXPECT_LE(window.minimumSizeHint().height(), 740);
      Read(window, Path("data"));

      // The goods' file is not known by its name: the way on is refused and leads there.
      PressKey(window, Qt::Key_Return);
      EXPECT_TRUE(Text(window, "Problem_LBL").contains("کالاها"));
      EXPECT_TRUE(Tables(window).currentItem()->text().startsWith("کالاها"));
      Match(window);
      GoToTable(window, "نوع‌های ناشناخته");
      Choose(window, "Theirs1_CMB", "— نگفته —");
      GoToTable(window, "کالاها");
      PressKey(window, Qt::Key_Return);
      EXPECT_TRUE(Text(window, "Problem_LBL").contains("Einkauf"));
      Choose(window, "Theirs1_CMB", "خرید");
      GoToTable(window, "کالاها");
      EXPECT_EQ(Grid(window, "Rows_GRD").rowCount(), 2);
      EXPECT_EQ(Grid(window, "Rows_GRD").horizontalHeaderItem(0)->text(), "Nr\nکد");
      EXPECT_EQ(Grid(window, "Matching_GRD").item(1, 2)->text(), "پیچ");
      GoToTable(window, "گردش");
      EXPECT_TRUE(dynamic_cast<QCheckBox&>(Child(window, "Unsigned_CHK")).isChecked());
      PressKey(window, Qt::Key_Return);

      EXPECT_EQ(dynamic_cast<QLineEdit&>(Child(window, "Title_EDT")).text(), "data");
      Set(window, "Title_EDT", "شرکت من");
      Set(window, "Target_EDT", Target());
      Set(window, "NewPassword_EDT", kPassword);
      PressKey(window, Qt::Key_Return);
      EXPECT_FALSE(Text(window, "Problem_LBL").isEmpty());  // typed once
      Set(window, "Again_EDT", kPassword);
      PressKey(window, Qt::Key_Return);
      Settle(window);
      EXPECT_TRUE(NextText(window).startsWith("باز کردن")) << FromQt(Text(window, "Problem_LBL"));
      EXPECT_FALSE(window.findChild<QLineEdit*>("ShownPassword_EDT")->isVisible());
      PressKey(window, Qt::Key_Return);
    });
    PressKey(choosing, Qt::Key_F5);
  });
  const OpenedCompany opened = chooser.Choose();
  ASSERT_NE(opened.company, nullptr);
  EXPECT_EQ(opened.company->Title(), "شرکت من");
  EXPECT_TRUE(opened.company->SignIn("admin", kPassword));
  EXPECT_EQ(Settings().LastLogin(), "admin");
  EXPECT_EQ(Settings().RecentCompanies(), QStringList(ToQt(Target())));
  const auto connection = opened.company->OpenConnection();
  RowStore rows;
  connection->Open("select Mogodi from GoodInf_VW where Code = 1", rows, nullptr);
  EXPECT_EQ(rows.Cell(0, 0).AsText(), "6");
}

// One workbook, whose sheets are called and headed in Persian, in place of a folder.
TEST_F(ImportWindow, AWorkbookGoesTheSameRoad) {
  using Sheet = std::vector<std::vector<const char*>>;
  const std::string book = Path("data") + "/book.xlsx";
  lxw_workbook* const workbook = workbook_new(book.c_str());
  const auto add = [&](const char* name, const Sheet& rows) {
    lxw_worksheet* const sheet = workbook_add_worksheet(workbook, name);
    for (std::size_t row = 0; row < rows.size(); ++row) {
      for (std::size_t column = 0; column < rows[row].size(); ++column) {
        worksheet_write_string(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                               rows[row][column], nullptr);
      }
    }
  };
  add("کالاها", {{"کد کالا", "نام کالا", "گروه", "واحد"}, {"G-1", "پیچ", "ابزار", "عدد"}});
  add("movements", {{"تاریخ", "کد کالا", "انبار", "نوع گردش", "مقدار", "شرح خرید"},
                    {"1403/02/01", "G-1", "S1", "خرید", "12", "x"}});
  ASSERT_EQ(workbook_close(workbook), LXW_NO_ERROR);

  ImportDialog dialog(ToQt(Path(".")));
  WhileModal([&](QWidget& window) {
    Read(window, book);
    GoToTable(window, "گردش");
    EXPECT_EQ(Grid(window, "Rows_GRD").rowCount(), 1);
    EXPECT_EQ(Grid(window, "Rows_GRD").horizontalHeaderItem(1)->text(), "کد کالا\nکالا");
    EXPECT_EQ(Grid(window, "Rows_GRD").horizontalHeaderItem(5)->text(), "شرح خرید\n—");
    PressKey(window, Qt::Key_Return);
    Set(window, "Target_EDT", Target());
    Set(window, "NewPassword_EDT", kPassword);
    Set(window, "Again_EDT", kPassword);
    PressKey(window, Qt::Key_Return);
    Settle(window);
    EXPECT_TRUE(NextText(window).startsWith("باز کردن")) << FromQt(Text(window, "Problem_LBL"));
    PressKey(window, Qt::Key_Escape);
  });
  ASSERT_TRUE(dialog.Make());
  RowStore rows;
  OpenCompany(Target())->OpenConnection()->Open("select Mogodi from GoodInf_VW where Code = 1", rows,
                                                nullptr);
  EXPECT_EQ(rows.Cell(0, 0).AsText(), "12");
}

TEST_F(ImportWindow, ProblemsAreReadBesideTheirRowsAndMendedWithoutMatchingAnew) {
  Write("movements.csv",
        "date;good;store;type;quantity\n2024-03-20;G-1;S1;Einkauf;10\n2024-99-21;G-1;S1;sale;-4\n");
  ImportDialog dialog(ToQt(Path(".")));
  WhileModal([&](QWidget& window) {
    Read(window, Path("data"));
    Match(window);
    PressKey(window, Qt::Key_Return);
    Set(window, "Target_EDT", Target());
    PressKey(window, Qt::Key_Return);
    Settle(window);
    ASSERT_TRUE(NextText(window).startsWith("جفت ستون"));
    QTableWidget& problems = Grid(window, "Problems_GRD");
    ASSERT_EQ(problems.rowCount(), 1);
    EXPECT_EQ(problems.item(0, 0)->text(), "movements.csv");
    EXPECT_EQ(problems.item(0, 1)->text(), ShownText("3"));
    EXPECT_TRUE(problems.item(0, 2)->text().contains("تاریخ"));
    EXPECT_EQ(problems.item(0, 3)->text(), "2024-99-21 | G-1 | S1 | sale | -4");
    EXPECT_FALSE(std::filesystem::exists(Target()));

    Write("movements.csv", "date;good;store;type;quantity\n2024-03-20;G-1;S1;Einkauf;10\n");
    PressKey(window, Qt::Key_Return);
    Settle(window);
    PressKey(window, Qt::Key_Return);
    PressKey(window, Qt::Key_Return);
    Settle(window);
    EXPECT_TRUE(NextText(window).startsWith("باز کردن"));
    const QString shown = dynamic_cast<QLineEdit&>(Child(window, "ShownPassword_EDT")).text();
    EXPECT_TRUE(OpenCompany(Target())->SignIn("admin", FromQt(shown)));
    PressKey(window, Qt::Key_Escape);
  });
  const auto made = dialog.Make();
  ASSERT_TRUE(made);
  EXPECT_FALSE(made->open);
}

TEST_F(ImportWindow, EscStopsTheImportAndLeavesNothing) {
  std::string movements = "date;good;store;type;quantity\n";
  for (int i = 0; i < 200'000; ++i) movements += "2024-03-20;G-1;S1;purchase;10\n";
  Write("movements.csv", movements);
  Write("goods.csv", "code;name;group;unit\nG-1;پیچ;ابزار;عدد\n");
  ImportDialog dialog(ToQt(Path(".")));
  WhileModal([&](QWidget& window) {
    Read(window, Path("data"));
    PressKey(window, Qt::Key_Return);
    Set(window, "Target_EDT", Target());
    PressKey(window, Qt::Key_Return);
    // The window is alive while the import runs: it tells how far it is.
    ASSERT_TRUE(WaitUntil([&] { return Text(window, "Progress_LBL").contains("movements"); }));
    PressKey(window, Qt::Key_Escape);
    Settle(window);
    EXPECT_TRUE(NextText(window).startsWith("ساختن"));
    EXPECT_FALSE(Text(window, "Problem_LBL").isEmpty());
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path().toStdString())) {
      EXPECT_EQ(entry.path().filename().string().find("new.goods"), std::string::npos);
    }
    PressKey(window, Qt::Key_Escape);
    EXPECT_TRUE(NextText(window).startsWith("ادامه"));
    PressKey(window, Qt::Key_Escape);
    PressKey(window, Qt::Key_Escape);
  });
  EXPECT_FALSE(dialog.Make());
}

TEST_F(ImportWindow, AFileThatIsThereIsNotReplacedUnasked) {
  Write("movements.csv", "date;good;store;type;quantity\n2024-03-20;G-1;S1;purchase;10\n");
  Write("goods.csv", "code;name;group;unit\nG-1;پیچ;ابزار;عدد\n");
  std::ofstream(Target()) << "something";
  ImportDialog dialog(ToQt(Path(".")));
  WhileModal([&](QWidget& window) {
    Read(window, Path("data"));
    PressKey(window, Qt::Key_Return);
    Set(window, "Target_EDT", Target());
    PressKey(window, Qt::Key_Return);
    Settle(window);
    EXPECT_FALSE(Text(window, "Problem_LBL").isEmpty());
    EXPECT_EQ(Written(Target()), "something");
    PressKey(window, Qt::Key_Escape);
    PressKey(window, Qt::Key_Escape);
    PressKey(window, Qt::Key_Escape);
  });
  EXPECT_FALSE(dialog.Make());
}

TEST_F(ImportWindow, AFolderThatIsNotThereIsToldAtOnce) {
  ImportDialog dialog(ToQt(Path(".")));
  WhileModal([&](QWidget& window) {
    Read(window, Path("nowhere"));
    EXPECT_TRUE(Text(window, "Problem_LBL").contains("پیدا نشد"));
    EXPECT_EQ(HelpPageOf(window.objectName()), "import.md");
    PressKey(window, Qt::Key_Escape);
  });
  EXPECT_FALSE(dialog.Make());
}

}  // namespace
}  // namespace goods
