// The tables of functions: what is asked of the program, and what the library does with the answers.
#include <QApplication>
#include <QPointer>
#include <QTabWidget>
#include <QTimer>
#include <algorithm>
#include <map>

#include "desktop/windows/message_dialog.h"
#include "tests/desktop/library/library_kit.h"

namespace goods {
namespace {

class Tables : public LibraryTest {
 protected:
  // Everything that the user is told goes into told_ instead of a box.
  void CollectMessages() {
    messages_.context = this;
    messages_.show = [](void* test, int32_t, goods_desktop_text, goods_desktop_text text,
                        goods_desktop_text details, int32_t) -> int32_t {
      auto& self = *static_cast<Tables*>(test);
      self.told_.push_back(Utf8Of(text));
      self.details_.push_back(Utf8Of(details));
      return 1;
    };
    options_.messages = &messages_;
  }

  goods_desktop_messages messages_ = Sized<goods_desktop_messages>();
  std::vector<std::string> told_;
  std::vector<std::string> details_;
};

const TSmartDBGrid_QRT& CardGrid(QWidget& window) {
  return Component<TSmartDBGrid_QRT>(window, "Kardex_GRD");
}

std::string CellOf(QWidget& window, std::size_t row, std::string_view field) {
  const TSmartDBGrid_QRT& grid = CardGrid(window);
  for (const TGridColumn* column : grid.VisibleColumns()) {
    if (column->FieldName() == field) return grid.CellText(row, *column);
  }
  return "no column " + std::string(field);
}

TEST_F(Tables, RowsOfTheProgramsConnectionComeCellByCell) {
  rights_.sees_prices = [](void*) -> int32_t { return 1; };
  UseOwnConnection([](const std::string& statement, goods_desktop_rows* rows) -> int32_t {
    if (statement != "Exec Kardex_Proc 12") return GOODS_DESKTOP_DONE;
    EXPECT_EQ(GoodsDesktop_AddColumn(rows, "Date", GOODS_DESKTOP_TEXT), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_AddColumn(rows, "Anbar", GOODS_DESKTOP_INTEGER), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_AddColumn(rows, "Tedad_Varde", GOODS_DESKTOP_DECIMAL), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_AddColumn(rows, "Bagh", GOODS_DESKTOP_DECIMAL), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_AddColumn(rows, "Miangin", GOODS_DESKTOP_DECIMAL), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_AddText(rows, "1402/01/05"), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_AddInteger(rows, 3), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_AddDecimal(rows, -12345, 2), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_AddInteger(rows, 20), GOODS_DESKTOP_DONE) << "an integer fits a decimal column";
    EXPECT_EQ(GoodsDesktop_AddText(rows, "7.25"), GOODS_DESKTOP_DONE) << "and a text that is a number";
    EXPECT_EQ(GoodsDesktop_EndRow(rows), GOODS_DESKTOP_DONE);
    for (int cell = 0; cell < 5; ++cell) EXPECT_EQ(GoodsDesktop_AddNull(rows), GOODS_DESKTOP_DONE);
    EXPECT_EQ(GoodsDesktop_EndRow(rows), GOODS_DESKTOP_DONE);
    return GOODS_DESKTOP_DONE;
  });
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  OpenCard(12, [](QWidget& window) {
    EXPECT_EQ(RowCount(window), 2U);
    EXPECT_EQ(CellOf(window, 0, "Date"), "1402/01/05");
    EXPECT_EQ(CellOf(window, 0, "Anbar"), "3");
    EXPECT_EQ(CellOf(window, 0, "Tedad_Varde"), "123.45-");
    EXPECT_EQ(CellOf(window, 0, "Bagh"), "20");
    EXPECT_EQ(CellOf(window, 0, "Miangin"), "7.25");
    EXPECT_EQ(CellOf(window, 1, "Bagh"), "");
  });
  EXPECT_NE(std::find(statements_.begin(), statements_.end(), "Exec Kardex_Proc 12"), statements_.end());
}

TEST_F(Tables, WhatDoesNotFitTheColumnsFailsTheStatementWithASentence) {
  CollectMessages();
  int32_t code = GOODS_DESKTOP_DONE;
  std::function<void(goods_desktop_rows*)> mistake;
  UseOwnConnection([&](const std::string& statement, goods_desktop_rows* rows) -> int32_t {
    if (statement != "Exec Kardex_Proc 12") return GOODS_DESKTOP_DONE;
    GoodsDesktop_AddColumn(rows, "Date", GOODS_DESKTOP_TEXT);
    GoodsDesktop_AddColumn(rows, "Bagh", GOODS_DESKTOP_DECIMAL);
    mistake(rows);
    return GOODS_DESKTOP_DONE;  // not heeded
  });
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  const std::vector<std::function<void(goods_desktop_rows*)>> mistakes{
      [&](goods_desktop_rows* rows) { code = GoodsDesktop_AddInteger(rows, 1); },
      [&](goods_desktop_rows* rows) {
        GoodsDesktop_AddNull(rows);
        code = GoodsDesktop_AddText(rows, "twelve");
      },
      [&](goods_desktop_rows* rows) {
        GoodsDesktop_AddNull(rows);
        code = GoodsDesktop_EndRow(rows);
      },
      [&](goods_desktop_rows* rows) {
        GoodsDesktop_AddNull(rows);
        GoodsDesktop_AddNull(rows);
        code = GoodsDesktop_AddNull(rows);
      },
      [&](goods_desktop_rows* rows) {
        GoodsDesktop_AddNull(rows);
        code = GoodsDesktop_AddColumn(rows, "Late", GOODS_DESKTOP_TEXT);
      },
      [&](goods_desktop_rows* rows) { code = GoodsDesktop_AddColumn(rows, "Odd", 9); },
  };
  for (std::size_t i = 0; i < mistakes.size(); ++i) {
    mistake = mistakes[i];
    told_.clear();
    std::size_t rows = 1;
    OpenCard(12, [&](QWidget& window) { rows = RowCount(window); });
    EXPECT_EQ(code, GOODS_DESKTOP_WRONG_CALL) << i;
    ASSERT_EQ(told_.size(), 1U) << i;
    EXPECT_EQ(rows, 0U) << i;
  }
  EXPECT_EQ(GoodsDesktop_AddNull(nullptr), GOODS_DESKTOP_WRONG_CALL);
  EXPECT_EQ(GoodsDesktop_GoOn(nullptr), GOODS_DESKTOP_WRONG_CALL);
}

TEST_F(Tables, TheDatabasesMessageReachesTheUserWithTheStatement) {
  CollectMessages();
  int32_t answer = GOODS_DESKTOP_FAILED;
  UseOwnConnection([&](const std::string& statement, goods_desktop_rows* rows) -> int32_t {
    if (statement != "Exec Kardex_Proc 12") return GOODS_DESKTOP_DONE;
    GoodsDesktop_SayWhy(rows, "جدول قفل است");
    return answer;
  });
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  OpenCard(12, [](QWidget&) {});
  ASSERT_EQ(told_.size(), 1U);
  EXPECT_EQ(told_[0], "پایگاه داده این درخواست را انجام نداد:\nجدول قفل است");
  EXPECT_EQ(details_[0], "Exec Kardex_Proc 12");
  answer = GOODS_DESKTOP_CONNECTION_LOST;
  OpenCard(12, [](QWidget&) {});
  ASSERT_EQ(told_.size(), 2U);
  EXPECT_EQ(told_[1].rfind("ارتباط با پایگاه داده قطع شده است.", 0), 0U);
  answer = GOODS_DESKTOP_STOPPED;
  OpenCard(12, [](QWidget&) {});
  EXPECT_EQ(told_.size(), 2U) << "who stops a statement knows it";
}

TEST_F(Tables, TheWaitingIndicatorIsTheProgramsAndStopsALongStatement) {
  struct Seen {
    int shown = 0;
    int hidden = 0;
    std::uint64_t rows = 0;
    std::string text;
  } seen;
  auto waiting = Sized<goods_desktop_waiting>();
  waiting.context = &seen;
  waiting.show = [](void* context, goods_desktop_text text, std::uint64_t rows) -> int32_t {
    auto& into = *static_cast<Seen*>(context);
    into.text = Utf8Of(text);
    into.rows = rows;
    return ++into.shown < 3 ? 1 : 0;
  };
  waiting.hide = [](void* context) { ++static_cast<Seen*>(context)->hidden; };
  options_.waiting = &waiting;
  int32_t last = GOODS_DESKTOP_DONE;
  UseOwnConnection([&](const std::string& statement, goods_desktop_rows* rows) -> int32_t {
    if (statement != "Exec Kardex_Proc 12") return GOODS_DESKTOP_DONE;
    GoodsDesktop_AddColumn(rows, "Date", GOODS_DESKTOP_TEXT);
    while (last == GOODS_DESKTOP_DONE) {
      GoodsDesktop_AddNull(rows);
      last = GoodsDesktop_EndRow(rows);
    }
    return last;
  });
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  std::size_t rows = 1;
  OpenCard(12, [&](QWidget& window) { rows = RowCount(window); });
  EXPECT_EQ(last, GOODS_DESKTOP_STOPPED);
  EXPECT_EQ(seen.shown, 3);
  EXPECT_EQ(seen.hidden, 1);
  EXPECT_GT(seen.rows, 0U);
  EXPECT_NE(seen.text, "");
  EXPECT_EQ(rows, 0U) << "nothing of a stopped statement is kept";
}

TEST_F(Tables, RightsAreTheProgramsAndARefusalIsToldOnce) {
  CollectMessages();
  struct Asked {
    int32_t answer = 0;
    std::vector<std::string> questions;
  } asked;
  rights_.context = &asked;
  UseOwnUser();
  rights_.have_permission = [](void* context, int64_t user, int32_t part, int32_t permission, int32_t,
                               int32_t, goods_desktop_text) {
    auto& into = *static_cast<Asked*>(context);
    into.questions.push_back(std::to_string(user) + " " + std::to_string(part) + " " +
                             std::to_string(permission));
    return into.answer;
  };
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  auto report = Sized<goods_desktop_report>();
  report.name = "Open_GoodKardex";
  EXPECT_EQ(GoodsDesktop_Open(session_, &report), GOODS_DESKTOP_DONE);
  EXPECT_EQ(asked.questions, std::vector<std::string>{"7 509 6"});
  EXPECT_EQ(told_.size(), 1U) << "the library tells";
  asked.answer = 2;
  EXPECT_EQ(GoodsDesktop_Open(session_, &report), GOODS_DESKTOP_DONE);
  EXPECT_EQ(told_.size(), 1U) << "the program has told";
  // Without a function for it, a user of the program's own sees no prices.
  asked.answer = 1;
  OpenCard(1, [](QWidget& window) {
    for (const TGridColumn* column : CardGrid(window).VisibleColumns())
      EXPECT_NE(column->FieldName(), "Miangin");
  });
}

TEST_F(Tables, ADocumentIsTheProgramsOrTheViewers) {
  struct Opened {
    bool own = true;
    std::vector<int32_t> kinds;
  } opened;
  auto documents = Sized<goods_desktop_documents>();
  documents.context = &opened;
  documents.open = [](void* context, int32_t kind, int64_t, int32_t) -> int32_t {
    auto& into = *static_cast<Opened*>(context);
    into.kinds.push_back(kind);
    return into.own ? 1 : 0;
  };
  options_.documents = &documents;
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  OpenCard(1, [](QWidget& window) {
    PressKey(window, Qt::Key_F2);
    Wait(50);
  });
  ASSERT_EQ(opened.kinds.size(), 1U);
  EXPECT_GE(opened.kinds[0], GOODS_DESKTOP_FIX_PRODUCTION);
  EXPECT_LE(opened.kinds[0], GOODS_DESKTOP_REVENUE_NOTE);
  opened.own = false;
  bool viewed = false;
  OpenCard(1, [&](QWidget& window) {
    WhileModal([&](QWidget& viewer) { viewed = dynamic_cast<MessageDialog*>(&viewer) == nullptr; });
    PressKey(window, Qt::Key_F2);
    Wait(50);
  });
  EXPECT_TRUE(viewed);
}

TEST_F(Tables, SettingsComeFromTheProgramAndGoBackToIt) {
  struct Kept {
    std::map<std::string, std::string> texts;
    std::string handed;
  } kept;
  auto settings = Sized<goods_desktop_settings>();
  settings.context = &kept;
  settings.load = [](void*, goods_desktop_record* record) { record->quantity_decimals = 0; };
  settings.read = [](void* context, int32_t kind, goods_desktop_text name) -> goods_desktop_text {
    auto& from = *static_cast<Kept*>(context);
    const auto found = from.texts.find(std::to_string(kind) + Utf8Of(name));
    if (found == from.texts.end()) return nullptr;
    from.handed = found->second;
    return from.handed.c_str();
  };
  settings.write = [](void* context, int32_t kind, goods_desktop_text name,
                      goods_desktop_text text) -> int32_t {
    static_cast<Kept*>(context)->texts[std::to_string(kind) + Utf8Of(name)] = Utf8Of(text);
    return 1;
  };
  options_.settings = &settings;
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  QSize size;
  OpenCard(1, [&](QWidget& window) {
    EXPECT_EQ(CellOf(window, 0, "Bagh").find('.'), std::string::npos);
    window.resize(window.size() - QSize(60, 40));
    size = window.size();
  });
  EXPECT_FALSE(kept.texts.empty());
  EXPECT_TRUE(kept.texts.contains("0Place.windows/Kardex_FRM")) << "places are kept with the program, too";
  OpenCard(1, [&](QWidget& window) { EXPECT_EQ(window.size(), size); });
}

TEST_F(Tables, WrongDecimalsOfTheProgramsSettingsAreRefused) {
  auto settings = Sized<goods_desktop_settings>();
  settings.load = [](void*, goods_desktop_record* record) { record->amount_decimals = 10; };
  options_.settings = &settings;
  EXPECT_EQ(Create(), GOODS_DESKTOP_WRONG_CALL);
}

class Placed : public Tables {
 protected:
  void PlaceInTabs() {
    windows_.context = &tabs_;
    windows_.show = [](void* context, void* widget, goods_desktop_text title) -> int32_t {
      auto& tabs = **static_cast<std::unique_ptr<QTabWidget>*>(context);
      tabs.addTab(static_cast<QWidget*>(widget), QString::fromUtf8(static_cast<const char*>(title)));
      return 1;
    };
    windows_.hide = [](void* context, void* widget) {
      auto& tabs = **static_cast<std::unique_ptr<QTabWidget>*>(context);
      tabs.removeTab(tabs.indexOf(static_cast<QWidget*>(widget)));
    };
    options_.windows = &windows_;
    tabs_->resize(900, 600);
    tabs_->show();
  }
  // Steps for the report in the tab, soon.
  void Soon(std::function<void(QWidget&)> steps) {
    QTimer::singleShot(200, tabs_.get(), [this, steps = std::move(steps)] {
      ASSERT_EQ(tabs_->count(), 1);
      steps(*tabs_->widget(0));
    });
  }
  int32_t OpenInTab() {
    auto report = Sized<goods_desktop_report>();
    report.name = "Open_Kardex";
    report.good = 1;
    return GoodsDesktop_Open(session_, &report);
  }

  std::unique_ptr<QTabWidget> tabs_ = std::make_unique<QTabWidget>();
  goods_desktop_windows windows_ = Sized<goods_desktop_windows>();
};

TEST_F(Placed, AReportInATabIsNotModalAndLeavesItWhenItIsClosed) {
  PlaceInTabs();
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  bool seen = false;
  Soon([&](QWidget& report) {
    seen = true;
    EXPECT_FALSE(report.isWindow());
    EXPECT_TRUE(report.isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_GT(RowCount(report), 0U);
    EXPECT_FALSE(tabs_->tabText(0).isEmpty());
    report.close();
  });
  EXPECT_EQ(OpenInTab(), GOODS_DESKTOP_DONE);
  EXPECT_TRUE(seen);
  EXPECT_EQ(tabs_->count(), 0);
  EXPECT_EQ(GoodsDesktop_Destroy(session_), GOODS_DESKTOP_DONE);
  session_ = nullptr;
}

TEST_F(Placed, ALayoutThatGoesAwayTakesTheReportWithIt) {
  PlaceInTabs();
  ASSERT_EQ(Create(), GOODS_DESKTOP_DONE) << ProblemOf();
  bool gone = false;
  QTimer::singleShot(200, qApp, [&] {
    tabs_.reset();
    gone = true;
  });
  EXPECT_EQ(OpenInTab(), GOODS_DESKTOP_DONE);
  EXPECT_TRUE(gone);
  EXPECT_EQ(GoodsDesktop_Destroy(session_), GOODS_DESKTOP_DONE);
  session_ = nullptr;
}

}  // namespace
}  // namespace goods
