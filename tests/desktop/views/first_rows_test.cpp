// The rows of a statement that is still running, painted under the waiting indicator.
#include "host/data/first_rows.h"

#include <QImage>
#include <QScrollBar>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "desktop/views/grid_view.h"
#include "host/components/grid_groups.h"
#include "host/data/blocking_work.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

constexpr std::size_t kRowsThatCame = 100;

// Its driver gives a hundred rows and then blocks until it is let go.
class HalfReadConnection : public IConnection {
 public:
  void Open(std::string_view statement, RowStore& into, IStatementProgress* progress) override {
    struct Job {
      RowStore rows;
      FirstRowsRelay firstRows;
      BlockingWork::Rows count = std::make_shared<std::atomic<std::size_t>>(0);
    };
    class Passing : public IStatementProgress {
     public:
      Passing(Job& job, IStatementProgress& inner) : job_(job), inner_(inner) {}
      bool Progress(std::size_t rows) override {
        job_.firstRows.Pass(inner_, rows);
        return inner_.Progress(rows);
      }

     private:
      Job& job_;
      IStatementProgress& inner_;
    };
    const auto job = std::make_shared<Job>();
    const std::shared_ptr<std::atomic<bool>> letGo = letGo_;
    letGo->store(false);
    Passing passing(*job, *progress);
    const WorkOutcome outcome = BlockingWork::Run(
        &passing, job->count,
        [job, letGo] {
          MadeUpConnection().Open("rows " + std::to_string(kRowsThatCame), job->rows, nullptr);
          job->firstRows.Offer(job->rows);
          job->count->store(job->rows.Count());
          while (!letGo->load()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
        },
        [letGo] { letGo->store(true); });
    if (outcome != WorkOutcome::Ended) throw StatementCancelled("cancelled", std::string(statement));
    into = std::move(job->rows);
  }
  void Execute(std::string_view /*statement*/, IStatementProgress* /*progress*/) override {}
  void LetGo() { letGo_->store(true); }

 private:
  std::shared_ptr<std::atomic<bool>> letGo_ = std::make_shared<std::atomic<bool>>(false);
};

class FirstRowsTest : public ::testing::Test {
 protected:
  FirstRowsTest() {
    query.SetSQL("Exec srKardex");
    form.Kardex_DS.SetDataSet(&query);
    form.Kardex_GRD.OnDrawColumnCell = [this](std::size_t row, const TGridColumn&, TCellStyle&) {
      painted.insert(row);
    };
  }

  // Opens the query in a shown window; looks at it while a hundred rows have come and the driver blocks.
  void OpenAndLook(const std::function<void()>& look) {
    QTimer::singleShot(0, qApp, [this, look] {
      painted.clear();
      QTimer::singleShot(400, qApp, look);
      try {
        query.Open();
      } catch (const StatementCancelled&) {
        cancelled = true;
      }
      if (after) after();
      form.Close();
    });
    form.ShowModal();
  }
  GridWidget& Table() { return dynamic_cast<GridWidget&>(*host.windows.WidgetOf(form.Kardex_GRD)); }
  QImage Rows(std::size_t from, std::size_t to) {
    const TGridColumn& column = *form.Kardex_GRD.VisibleColumns().front();
    const QRect first = Table().CellRect(from, column);
    const QRect last = Table().CellRect(to, column);
    return Table()
        .viewport()
        ->grab(QRect(0, first.top(), Table().viewport()->width(), last.bottom() - first.top()))
        .toImage();
  }

  TestHost host;
  HalfReadConnection half;
  WaitingConnection connection{half, host.waiting};
  TCard_FRM form{host};
  TADOQuery query{&form, "HalfRead_QRY", connection};
  std::set<std::size_t> painted;
  std::function<void()> after;
  bool cancelled = false;
};

TEST_F(FirstRowsTest, ThatHaveComeArePaintedUnderTheWaitingPanel) {
  std::set<std::size_t> paintedDuring;
  bool panel = false;
  OpenAndLook([&] {
    paintedDuring = painted;
    panel = host.waiting.PanelVisible();
    if (const QByteArray folder = qgetenv("GOODS_PICTURES"); !folder.isEmpty())
      host.windows.ViewOf(form)->grab().save(QString::fromLocal8Bit(folder) + "/first_rows.png");
    half.LetGo();
  });
  EXPECT_FALSE(cancelled);
  EXPECT_TRUE(panel);
  EXPECT_GE(paintedDuring.size(), 5U);
  EXPECT_EQ(query.RecordCount(), kRowsThatCame);
}

// Asked twice, so that the table has its place for the scroll bar both times.
TEST_F(FirstRowsTest, LookAsTheyDoWhenAllHaveCome) {
  QImage whole;
  QImage during;
  after = [&] {
    whole = Rows(1, 4);
    QTimer::singleShot(400, qApp, [&] {
      during = Rows(1, 4);
      half.LetGo();
    });
    query.Open();
  };
  OpenAndLook([&] { half.LetGo(); });
  ASSERT_FALSE(whole.isNull());
  EXPECT_EQ(during, whole);
}

TEST_F(FirstRowsTest, CannotBeTouchedAndEscStopsTheStatementAsEver) {
  int opened = 0;
  form.Kardex_GRD.OnDblClick = [&] { ++opened; };
  bool open = true;
  std::string footer = "?";
  OpenAndLook([&] {
    QWidget* viewport = Table().viewport();
    const QPoint cell = Table().CellRect(3, *form.Kardex_GRD.VisibleColumns().front()).center();
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, cell);
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, cell);
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier,
                      Table().TitleRect(*form.Kardex_GRD.VisibleColumns().front()).center());
    QTest::keyClick(viewport, Qt::Key_Down, Qt::ShiftModifier);
    open = query.Active();
    footer = form.Kardex_GRD.FooterText(*form.Kardex_GRD.FindColumn("Tedad_Varde"));
    EXPECT_FALSE(query.RecNo().has_value());
    EXPECT_TRUE(form.Kardex_GRD.Selection().empty());
    EXPECT_TRUE(form.Kardex_GRD.SortKeys().empty());
    QTest::keyClick(viewport, Qt::Key_Escape);
  });
  EXPECT_FALSE(open);
  EXPECT_EQ(footer, "");
  EXPECT_EQ(opened, 0);
  EXPECT_TRUE(cancelled);
  EXPECT_FALSE(query.Active());
  EXPECT_TRUE(query.Stopped());
  EXPECT_TRUE(form.Kardex_GRD.SortKeys().empty());
  painted.clear();
  form.Kardex_GRD.Changed();
  EXPECT_TRUE(painted.empty());  // nothing is left of them
}

// Groups are folded at first: of rows in groups none would be painted.
TEST_F(FirstRowsTest, StandFromTheTopAndWithoutGroupsWhateverWasThereBefore) {
  MadeUpConnection made;
  WaitingConnection quick(made, host.waiting);
  TADOQuery before(&form, "Before_QRY", quick);
  before.SetSQL("rows 5000");
  before.Open();
  form.Kardex_DS.SetDataSet(&before);
  std::set<std::size_t> seen;
  form.Kardex_GRD.Groups().Set(form.Kardex_GRD.FindColumn("Anbar"));
  QTimer::singleShot(0, qApp, [&] {
    Table().verticalScrollBar()->setValue(40);
    form.Kardex_DS.SetDataSet(&query);
    Settle();
    painted.clear();
    QTimer::singleShot(400, qApp, [&] {
      seen = painted;
      half.LetGo();
    });
    query.Open();
    form.Close();
  });
  form.ShowModal();
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(*seen.begin(), 0U);
  EXPECT_EQ(*seen.rbegin(), seen.size() - 1);
}

}  // namespace
}  // namespace goods::testing
