// The search in all goods' detail movements on the desktop, driven by keys: the real library, windows and
// company.
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <chrono>
#include <thread>

#include "host/components/edit.h"
#include "host/components/standard.h"
#include "tests/desktop/app/kit.h"

namespace goods {
namespace {

constexpr const char* kExport = "Open_SearchInDetailTransactions";
constexpr const char* kSearchEdit = "GoodDetailSearch_EDT";
constexpr const char* kList = "AllGoodDetailTrans_List_GRD";
constexpr std::string_view kSearch = " EXEC AllGoodDetailTransaction @Title";  // the run on opening has none

class DetailSearch : public DesktopTest {
 protected:
  void Open(std::function<void(QWidget&)> steps) {
    WhileModal(std::move(steps));
    Module().Call(kExport);
  }
  // The searches so far.
  std::vector<std::string> Runs() const {
    std::vector<std::string> runs;
    const std::string log = Written(Path("statements.log"));
    for (std::size_t at = log.find(kSearch); at != std::string::npos; at = log.find(kSearch, at + 1)) {
      runs.push_back(log.substr(at, log.find('\n', at) - at));
    }
    return runs;
  }
};

QLineEdit& Line(QWidget& window) { return dynamic_cast<QLineEdit&>(Child(window, kSearchEdit)); }

// What a user does, one thing each 20 ms, from the message loop: also while the window waits in a loop of its
// own for the typing to end.
class Typist {
 public:
  explicit Typist(QWidget& window) : window_(window) {}
  Typist& Do(std::function<void()> action) {
    QTimer::singleShot(at_ += 20, &window_, [this, action = std::move(action)] {
      action();
      ++done_;
    });
    ++planned_;
    return *this;
  }
  Typist& Type(const QString& word) {
    for (const QChar letter : word) {
      Do([this, letter] {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
        QCoreApplication::sendEvent(&Line(window_), &press);
      });
    }
    return *this;
  }
  void Finish() {
    ASSERT_TRUE(WaitUntil([this] { return done_ == planned_; }));
  }

 private:
  QWidget& window_;
  int at_ = 0;
  int planned_ = 0;
  int done_ = 0;
};

bool Contains(const std::string& statement, const char* text) {
  return statement.find(text) != std::string::npos;
}

TEST_F(DetailSearch, AWordTypedAt20MsAKeyRunsOneStatementAndTheCaretStaysInTheMiddle) {
  HostFor("admin");
  Open([&](QWidget& window) {
    ASSERT_EQ(window.focusWidget(), &Line(window));
    Typist typist(window);
    typist.Type("بنج").Do([&] { Line(window).setCursorPosition(1); }).Type("ر").Finish();
    ASSERT_TRUE(WaitUntil([&] { return !Runs().empty(); }));
    Wait(600);
    ASSERT_EQ(Runs().size(), 1U);
    EXPECT_TRUE(Contains(Runs()[0], "'برنج'")) << Runs()[0];
    EXPECT_EQ(window.focusWidget(), &Line(window));
    EXPECT_EQ(Line(window).cursorPosition(), 2);
    EXPECT_EQ(Component<TEdit>(window, kSearchEdit).Caret(), 2);
    EXPECT_GT(Component<TSmartDBGrid_QRT>(window, kList).RowCount(), 0U);
  });
}

TEST_F(DetailSearch, WhatIsSelectedInTheSearchTextStaysSelectedThroughARun) {
  HostFor("admin");
  Open([&](QWidget& window) {
    Typist typist(window);
    typist.Type("برنج").Do([&] { Line(window).setSelection(1, 2); }).Finish();
    ASSERT_TRUE(WaitUntil([&] { return !Runs().empty(); }));
    Wait(100);
    EXPECT_EQ(Line(window).selectedText(), "رن");
    EXPECT_EQ(window.focusWidget(), &Line(window));
    typist.Type("ا").Finish();
    EXPECT_EQ(Line(window).text(), "باج");
    EXPECT_EQ(Line(window).cursorPosition(), 2);
  });
}

// A key of the user's comes while the first search runs.
class InterruptedConnection : public IConnection {
 public:
  InterruptedConnection(std::unique_ptr<IConnection> inner, QString letters)
      : inner_(std::move(inner)), letters_(std::move(letters)) {}
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override {
    if (statement.starts_with(kSearch)) {
      for (const QChar letter : std::exchange(letters_, {})) {
        QCoreApplication::postEvent(QApplication::activeModalWidget()->focusWidget(),
                                    new QKeyEvent(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter)));
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
      }
    }
    inner_->Open(statement, into, progress);
  }
  void Execute(std::string_view statement, IStatementProgress* progress) override {
    inner_->Execute(statement, progress);
  }

 private:
  std::unique_ptr<IConnection> inner_;
  QString letters_;
};

TEST_F(DetailSearch, KeysInTheMiddleOfARunAreNotLostAndMakeOneFurtherRun) {
  HostFor("admin",
          [](auto inner) { return std::make_unique<InterruptedConnection>(std::move(inner), "نج"); });
  Open([&](QWidget& window) {
    Typist(window).Type("بر").Finish();
    ASSERT_TRUE(WaitUntil([&] { return Runs().size() == 2; }));
    Wait(600);
    ASSERT_EQ(Runs().size(), 2U);
    EXPECT_TRUE(Contains(Runs()[0], "'بر'")) << Runs()[0];
    EXPECT_TRUE(Contains(Runs()[1], "'برنج'")) << Runs()[1];
    EXPECT_EQ(Line(window).text(), "برنج");
    EXPECT_EQ(Line(window).cursorPosition(), 4);
    EXPECT_EQ(window.focusWidget(), &Line(window));
  });
}

TEST_F(DetailSearch, ClosingTheWindowWhileASearchWaitsRunsNothing) {
  HostFor("admin");
  bool closed = false;
  Open([&](QWidget& window) {
    Typist(window).Type("برنج").Do([&] { PressKey(window, Qt::Key_Escape); }).Finish();
    closed = FormOf(window).ModalResult() != kModalNone;
  });
  EXPECT_TRUE(closed);
  Wait(600);
  EXPECT_TRUE(Runs().empty());
}

TEST_F(DetailSearch, EnterEndsTheWaitAndArrowsGoToTheRows) {
  HostFor("admin");
  Open([&](QWidget& window) {
    QElapsedTimer clock;
    qint64 waited = 0;
    Typist typist(window);
    typist.Type("برنج").Do([&] {
      clock.start();
      PressKey(window, Qt::Key_Return);
    });
    typist.Finish();
    EXPECT_TRUE(WaitUntil([&] { return !Runs().empty(); }));
    waited = clock.elapsed();
    EXPECT_LT(waited, 350);
    Wait(600);
    EXPECT_EQ(Runs().size(), 1U);
    auto& grid = Component<TSmartDBGrid_QRT>(window, kList);
    ASSERT_GT(grid.RowCount(), 2U);
    Component<TEdit>(window, kSearchEdit).SetFocus();
    Wait(50);
    PressKey(window, Qt::Key_Down);
    Wait(50);
    EXPECT_TRUE(grid.Focused());
    const std::size_t before = grid.DataSet()->RecNo().value();
    PressKey(window, Qt::Key_Down);
    EXPECT_EQ(grid.DataSet()->RecNo(), before + 1);
    PressKey(window, Qt::Key_Up);
    EXPECT_EQ(grid.DataSet()->RecNo(), before);
  });
}

TEST_F(DetailSearch, F10GoesToTheSearchColumnsAndCtrlF10OpensTheCriteria) {
  HostFor("admin");
  std::string caption;
  Open([&](QWidget& window) {
    Component<TSmartDBGrid_QRT>(window, kList).SetFocus();
    Wait(50);
    PressKey(window, Qt::Key_F10);
    Wait(50);
    EXPECT_TRUE(Component<TComboBox>(window, "GoodDetailSearch_CMB").Focused());
    EXPECT_EQ(window.focusWidget()->objectName(), "GoodDetailSearch_CMB");
    WhileModal([&](QWidget& dialog) { caption = FormOf(dialog).Caption(); });
    PressKey(window, Qt::Key_F10, Qt::ControlModifier);
    Wait(50);
    EXPECT_EQ(QApplication::activeModalWidget(), &window);
  });
  EXPECT_EQ(caption, "جستجوی پیشرفته در جزئیات کالا");
}

}  // namespace
}  // namespace goods
