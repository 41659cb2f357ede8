// A user without prices goes through everything that the desktop shows, in a company where every number from
// 100,000,000 up is an amount, and none may be found. A user with prices finds them wherever they are.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <map>
#include <memory>
#include <set>

#include "company/embedded/sqlite.h"
#include "company/right_names.h"
#include "desktop/print/export.h"
#include "desktop/views/column_chooser.h"
#include "host/components/edit.h"
#include "host/components/tabs.h"
#include "host/frames/adv_search_frame.h"
#include "tests/desktop/app/kit.h"
#include "tests/end_to_end/text_recorder.h"

namespace goods {
namespace {

constexpr const char* kPassword = "Amounts-hidden-1";
constexpr int kRowsLookedAt = 200;  // of each list and grid

// Digits in whatever script, separators and marks of direction left out.
bool HoldsAmount(const QString& text) {
  QString plain;
  for (const QChar c : text) {
    if (c.isDigit()) {
      plain += QChar('0' + c.digitValue());
    } else if (c != ',' && c != QChar(0x066C) && c.category() != QChar::Other_Format) {
      plain += c;
    }
  }
  static const QRegularExpression kAmount(QStringLiteral("[0-9]{9}"));
  return kAmount.match(plain).hasMatch();
}

// Captions that stand over prices and amounts.
bool NamesMoney(const QString& text) {
  static const QRegularExpression kWords("مبلغ|قیمت|قيمت|ریالی|بهای|فی وارده|فی صادره");
  return kWords.match(text).hasMatch();
}

// The cells of a CSV text: what stands between separators that are not quoted.
QStringList CellsOf(const QString& csv) {
  QStringList cells{QString()};
  bool quoted = false;
  for (const QChar c : csv) {
    if (c == '"') quoted = !quoted;
    if (!quoted && (c == ',' || c == '\n')) {
      cells << QString();
    } else {
      cells.last() += c;
    }
  }
  return cells;
}

class Prices : public ::testing::Test {
 protected:
  Prices() : settings_(folder_.filePath("settings")), path_(FromQt(folder_.filePath("prices.goods"))) {
    std::filesystem::copy_file(SmallCompany(), path_);
    Database db(path_, SQLITE_OPEN_READWRITE);
    // 987,654,321 in billionths; no code, quantity or bar code is as large.
    db.Run(
        "UPDATE Kardex SET Gheymat = 987654321000000000, Fi = 987654321000000000, Miangin = "
        "987654321000000000;"
        "UPDATE GoodStock SET gheymat_miangin = 987654321000000000, Jam_Kol = dec_mul(Mogodi, "
        "987654321000000000);"
        "UPDATE CostLevelPrices SET BuyPrice = 987654321000000000, SellPrice = 987654321000000000;"
        "UPDATE GoodInf SET ConsumerPrice = 987654321000000000, CostBgPrd = 987654321000000000, AbbName = '';"
        "UPDATE Persons SET Phone = ''");
    company_ = OpenCompany(path_);
    detailGood_ = db.AskInteger("SELECT Kala FROM DetailKardex GROUP BY Kala ORDER BY count(*) DESC LIMIT 1");
  }
  ~Prices() override {
    if (module_ != nullptr) module_->Detach();
  }
  void SetUp() override { SetPersianDigits(false); }
  void TearDown() override {
    SetPersianDigits(true);
    EXPECT_NO_THROW(RethrowFailure());
  }

  // Every right that has a name, and prices or not.
  void SignInWithEveryNamedRight(bool prices) {
    CompanyUser user;
    user.login = "clerk";
    user.name = "clerk";
    user.seesPrices = prices;
    for (const NamedRight& right : NamedRights()) user.rights.push_back(right.right);
    company_->Users().Add(user, kPassword);
    SignIn("clerk", kPassword);
  }
  void SignIn(const char* login, const char* password) {
    const auto user = company_->SignIn(login, password);
    ASSERT_TRUE(user);
    settings_.Settings().GoodsDetail = true;
    settings_.Settings().SecondUnit = true;
    // A price basis that somebody else chose at this computer.
    settings_.Settings().PriceHistory = true;
    settings_.Settings().PriceBasis = 3;
    module_ = std::make_unique<ModuleLibrary>(GOODS_MODULE_FILE);
    host_ = std::make_unique<DesktopHost>(*company_, *user, settings_, *module_, nullptr);
    host_->Messages().SetUnattended([this](const ShownMessage& message) {
      Found("message", ToQt(message.text) + ToQt(message.details));
      return true;
    });
    module_->Attach(*host_);
  }

  void Found(const QString& where, const QString& text) {
    ++looked_;
    if (HoldsAmount(text)) amounts_[FromQt(where)].insert(FromQt(text.left(120)));
  }
  void Named(const QString& where, const QString& caption) {
    Found(where, caption);
    if (NamesMoney(caption)) words_[FromQt(where)].insert(FromQt(caption));
  }

  void LookAtItems(const QString& where, const QAbstractItemModel& model, const QModelIndex& parent = {}) {
    for (int row = 0; row < std::min(model.rowCount(parent), kRowsLookedAt); ++row) {
      for (int column = 0; column < model.columnCount(parent); ++column) {
        const QModelIndex index = model.index(row, column, parent);
        for (const int role : {Qt::DisplayRole, Qt::ToolTipRole}) Found(where, index.data(role).toString());
        if (column == 0) LookAtItems(where, model, index);
      }
    }
    for (int column = 0; column < model.columnCount(parent); ++column) {
      Found(where, model.headerData(column, Qt::Horizontal).toString());
    }
  }

  // What the widgets hold, shown or not, and what is painted.
  void LookAtWidgets(const QString& where, QWidget& window) {
    Found(where, window.windowTitle());
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      Found(where, widget->toolTip() + '\n' + widget->accessibleName());
      if (const auto* label = qobject_cast<const QLabel*>(widget)) Named(where, label->text());
      if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) Named(where, button->text());
      if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) Found(where, edit->text());
      if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
        for (int item = 0; item < combo->count(); ++item) Named(where, combo->itemText(item));
      }
      if (const auto* view = qobject_cast<const QAbstractItemView*>(widget);
          view != nullptr && view->model()) {
        LookAtItems(where, *view->model());
      }
    }
    for (const QString& line : PaintedText(window).split('\n')) Found(where + " (painted)", line);
  }

  // What grids print, copy and export, row for row; and what the column chooser offers.
  void LookAtGrids(const QString& where, FormView& view) {
    for (TSmartDBGrid_QRT* grid : GridsOf(view.Form())) {
      const std::unique_ptr<IReportTable> made = grid->Table();
      const IReportTable& table = *made;
      const QString name = where + "." + ToQt(grid->Name());
      const auto columns = table.Columns();
      for (std::size_t column = 0; column < columns.size(); ++column) {
        Named(name, ToQt(columns[column].caption));
        if (table.HasFooter()) Found(name, ToQt(table.FooterText(column)));
        for (std::size_t row = 0; row < std::min<std::size_t>(table.RowCount(), kRowsLookedAt); ++row) {
          Found(name, ToQt(table.CellText(row, column)));
        }
      }
      const std::string file = FromQt(folder_.filePath("exported.csv"));
      PrintJob job;
      job.table = &table;
      WritingOptions shown;
      shown.csvShown = true;
      WriteReport(job, FileFormat::Csv, file, shown);
      QFile exported(ToQt(file));
      ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
      for (const QString& cell : CellsOf(QString::fromUtf8(exported.readAll()))) Found(name + " (csv)", cell);
      QDialog* chooser = ShowColumnChooser(view, *grid);
      for (const auto* tree : chooser->findChildren<QAbstractItemView*>()) {
        for (int row = 0; row < tree->model()->rowCount(); ++row) {
          Named(name + " (chooser)", tree->model()->index(row, 0).data().toString());
        }
      }
      delete chooser;
    }
  }

  static void CollectGrids(TControl& control, std::vector<TSmartDBGrid_QRT*>& grids) {
    if (!control.Visible()) return;
    if (auto* grid = dynamic_cast<TSmartDBGrid_QRT*>(&control)) grids.push_back(grid);
    for (TControl* inner : control.Controls()) CollectGrids(*inner, grids);
  }
  static std::vector<TSmartDBGrid_QRT*> GridsOf(TForm& form) {
    std::vector<TSmartDBGrid_QRT*> grids;
    CollectGrids(form, grids);
    return grids;
  }

  // Runs act; where it opens a modal window over the one in front, the steps see it, and it is closed.
  bool Opens(const std::function<void()>& act, const std::function<void(QWidget&)>& steps) {
    const QWidget* before = QApplication::activeModalWidget();
    bool opened = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
      QPointer<QWidget> front = QApplication::activeModalWidget();
      if (front == nullptr || front == before) return;
      poll.stop();
      opened = true;
      Wait(30);
      try {
        steps(*front);
      } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
      }
      for (int tries = 0; tries < 3 && front != nullptr && front->isVisible(); ++tries) {
        PressKey(*front, Qt::Key_Escape);
        Wait(20);
      }
      if (front != nullptr && front->isVisible()) front->close();
    });
    poll.start(10);
    act();
    return opened;
  }

  // The window, what its keys open (two windows deep), and what it copies.
  void Visit(QWidget& window, int depth = 0) {
    auto* view = dynamic_cast<FormView*>(&window);
    const QString name = view == nullptr ? window.objectName() : ToQt(view->Form().Name());
    visited_.insert(FromQt(name));
    window.resize(1500, 860);
    Wait(60);
    LookAtWidgets(name, window);
    if (view == nullptr) {
      QApplication::clipboard()->clear();
      PressKey(window, Qt::Key_C, Qt::ControlModifier);
      Found(name + " (copied)", QApplication::clipboard()->text());
      const auto* charts = window.findChild<QComboBox*>("Charts_CMB");
      for (int chart = 1; charts != nullptr && chart < charts->count(); ++chart) {
        PressKey(window, Qt::Key_Tab, Qt::ControlModifier);
        LookAtWidgets(name, window);
      }
      return;
    }
    LookAtGrids(name, *view);
    for (TSmartDBGrid_QRT* grid : GridsOf(view->Form())) {
      if (QWidget* widget = view->WidgetOf(*grid)) {
        widget->setFocus();
        QApplication::clipboard()->clear();
        PressKey(window, Qt::Key_C, Qt::ControlModifier);
        Found(name + " (copied)", QApplication::clipboard()->text());
      }
    }
    if (depth > 2) return;
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
      Opens([&] { PressKey(window, key, modifiers); }, [&](QWidget& opened) { Visit(opened, depth + 1); });
    };
    press(Qt::Key_F2);
    press(Qt::Key_F9);
    press(Qt::Key_F10, Qt::ControlModifier);
    Opens(
        [&] {
          PressKey(window, Qt::Key_F11);
          Wait(60);
        },
        [&](QWidget& charts) { Visit(charts, depth + 1); });
    Opens([&] { PressKey(window, Qt::Key_F12, Qt::ControlModifier); },
          [&](QWidget& dialog) {
            Component<TEdit>(dialog, "Date1_EDT").SetText("1402/01/01");
            Component<TEdit>(dialog, "Date2_EDT").SetText("1403/06/31");
            WhenShown("PeriodComparison_FRM", [&](QWidget& compared) { Visit(compared, depth + 1); });
            PressKey(dialog, Qt::Key_F3);
          });
    for (TControl* each : view->Form().Controls()) VisitPages(*each, name, *view);
  }

  void VisitPages(TControl& control, const QString& name, FormView& view) {
    if (auto* pages = dynamic_cast<TPageControl*>(&control)) {
      for (int page = 0; page < static_cast<int>(pages->Pages().size()); ++page) {
        view.Run([&] { pages->SetActivePageIndex(page); });
        Wait(40);
        LookAtWidgets(name, view);
        LookAtGrids(name, view);
      }
    }
    for (TControl* inner : control.Controls()) VisitPages(*inner, name, view);
  }

  void OpenReport(const std::function<void()>& open, const std::function<void(QWidget&)>& fill = {}) {
    Opens(open, [&](QWidget& window) {
      if (fill) fill(window);
      Visit(window);
    });
  }

  void GoThroughEverything();

  QTemporaryDir folder_;
  DesktopSettings settings_;
  std::string path_;
  std::unique_ptr<ICompany> company_;
  std::unique_ptr<ModuleLibrary> module_;
  std::unique_ptr<DesktopHost> host_;
  std::int64_t detailGood_ = 0;
  std::map<std::string, std::set<std::string>> amounts_;
  std::map<std::string, std::set<std::string>> words_;
  std::set<std::string> visited_;
  std::size_t looked_ = 0;
};

void Prices::GoThroughEverything() {
  const std::int64_t good = BusiestGood(*company_);
  const auto plain = [&](const char* name) { return [this, name] { module_->Call(name); }; };
  const auto run = [](QWidget& window) {
    PressKey(window, Qt::Key_F2, Qt::ControlModifier);
    Wait(60);
  };
  OpenReport(plain("Open_GoodKardex"), [&](QWidget& window) {
    Opens([&] { PressKey(window, Qt::Key_F4); }, [&](QWidget& picker) { Visit(picker); });
    TypeGood(window, good);
  });
  OpenReport([&] { module_->OpenKardex(good, 1, "1402/01/01", "1403/12/29"); },
             [](QWidget& window) {
               PressKey(window, Qt::Key_2, Qt::AltModifier);
               Wait(60);
             });
  OpenReport(plain("Open_KardexSearch"), run);
  OpenReport([&] { module_->OpenKardexNegativ("1", "0", "0"); });
  OpenReport(plain("Open_GoodAmountAsset"));
  OpenReport(plain("Open_GoodCashAsset"));
  OpenReport(plain("Open_GoodTrans_Overall"), run);
  OpenReport(plain("Open_GoodsAsset_Store"), run);
  OpenReport(plain("Open_DetailTransactions"));
  OpenReport(plain("Open_SearchInDetailTransactions"));
  OpenReport(plain("Open_DetailKardexAsset_Dismatch"));
  OpenReport([&] {
    module_->OpenGoodDetailTransactions(detailGood_, false, 0, false, "", "", false, "", false, "");
  });
  // Every kind of document by its opener, whatever rights the reports ask before.
  DesktopDocuments& documents = host_->Documents();
  const std::function<void()> openers[] = {
      [&] { documents.Call_SaleInvoice(1, 1); },         [&] { documents.Call_BuyFactor(1, 1); },
      [&] { documents.Call_InvoiceReturns(1, 4, 1); },   [&] { documents.Call_InvoiceReturns(1, 5, 1); },
      [&] { documents.Call_WarehouseTransfer(1, 1); },   [&] { documents.Call_FixProduce(1, 1); },
      [&] { documents.Call_VarProduce(1, 1); },          [&] { documents.Call_AdvancedProduce(1, 1); },
      [&] { documents.Call_GoodAssignment(302, 1, 1); }, [&] { documents.Call_GoodAssignment(212, 1, 1); },
      [&] { documents.Call_GoodReciept(310, 1, 1); },    [&] { documents.Call_GoodReciept(213, 1, 1); },
      [&] { documents.Call_GoodGet(good, 1); },          [&] { documents.Open_Voucher(1, 1); }};
  for (const auto& open : openers) OpenReport(open);
}

std::string Listed(const std::map<std::string, std::set<std::string>>& found) {
  std::string text;
  for (const auto& [where, texts] : found) text += where + ": " + *texts.begin() + "\n";
  return text;
}

const std::set<std::string> kEveryWindow{"Kardex_FRM",
                                         "KardexSearch_FRM",
                                         "KardexSearch_AdvSearch_FRM",
                                         "GoodTransaction_FRM",
                                         "GoodTransactionSearch_FRM",
                                         "GoodTrans_Overall_FRM",
                                         "GoodsAsset_Store_FRM",
                                         "GoodDetailTransaction_FRM",
                                         "AllGoodDetailTransaction_FRM",
                                         "AllGoodDetailTransactionSearch_FRM",
                                         "OneGoodDetailTransaction_FRM",
                                         "OneGoodDetailTransactionSearch_FRM",
                                         "GoodDetailKardexDismatch_FRM",
                                         "GoodDetailOperationDismatch_FRM",
                                         "GoodDetailOperationDismatchSearch_FRM",
                                         "Document_FRM",
                                         "ChartWindow",
                                         "PeriodComparison_FRM",
                                         "SelectEntity_FRM"};

std::set<std::string> Missing(const std::set<std::string>& wanted, const std::set<std::string>& there) {
  std::set<std::string> missing;
  for (const std::string& each : wanted) {
    if (!there.contains(each)) missing.insert(each);
  }
  return missing;
}

TEST_F(Prices, AUserWithPricesFindsThemWhereverTheyAre) {
  SignInWithEveryNamedRight(true);
  GoThroughEverything();
  EXPECT_EQ(Missing(kEveryWindow, visited_), std::set<std::string>{});
  std::set<std::string> places;
  for (const auto& [where, texts] : amounts_) places.insert(where);
  // The components, the paint, the export and the copy each show them, or the walk would prove nothing.
  EXPECT_EQ(Missing({"Kardex_FRM (painted)", "Kardex_FRM (copied)", "Kardex_FRM.Kardex_GRD",
                     "Kardex_FRM.Kardex_GRD (csv)", "KardexSearch_FRM.KardexSearch_GRD",
                     "GoodTransaction_FRM.GoodTransactin_List_GRD", "GoodTransaction_FRM (painted)",
                     "GoodTrans_Overall_FRM.money_Overall_List_GRD", "GoodTrans_Overall_FRM (painted)",
                     "GoodsAsset_Store_FRM.GoodsAsset_Store_GRD", "GoodsAsset_Store_FRM (painted)",
                     "AllGoodDetailTransaction_FRM.AllGoodDetailTrans_List_GRD",
                     "OneGoodDetailTransaction_FRM.GoodDetailTransaction_GRD", "Document_FRM",
                     "Document_FRM (painted)", "Document_FRM (copied)", "ChartWindow (painted)",
                     "PeriodComparison_FRM.Comparison_GRD", "PeriodComparison_FRM (painted)"},
                    places),
            std::set<std::string>{})
      << Listed(amounts_);
  EXPECT_TRUE(words_.contains("Kardex_FRM.Kardex_GRD (chooser)")) << Listed(words_);
}

TEST_F(Prices, AUserOfEveryOtherRightFindsNotOneAmount) {
  SignInWithEveryNamedRight(false);
  GoThroughEverything();
  EXPECT_EQ(Missing(kEveryWindow, visited_), std::set<std::string>{});
  EXPECT_EQ(Listed(amounts_), "");
  EXPECT_EQ(Listed(words_), "");
  EXPECT_GT(looked_, 10'000U);
}

TEST_F(Prices, TheDemosStorekeeperFindsNotOneAmount) {
  SignIn("anbar", "anbar");
  GoThroughEverything();
  EXPECT_TRUE(visited_.contains("Kardex_FRM"));
  EXPECT_TRUE(visited_.contains("GoodTransaction_FRM"));
  EXPECT_EQ(Listed(amounts_), "");
  EXPECT_EQ(Listed(words_), "");
}

}  // namespace
}  // namespace goods

int main(int argc, char** argv) {
  goods::UseOffscreenScreen(QSize(1920, 1080));
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
