// The fields of the current row, and borders that are dragged: what the user sees and what is written back.
#include <QScrollBar>
#include <QSplitter>

#include "desktop/views/field_list_view.h"
#include "desktop/views/theme.h"
#include "host/frames/list_detail_frame.h"
#include "tests/desktop/views/parts_kit.h"

namespace goods::testing {
namespace {

// A table with the fields of its current row below, the border between them to be dragged.
class TFields_FRM : public TBaseDock_FRM {
 public:
  explicit TFields_FRM(THost& host)
      : TBaseDock_FRM(host, "Fields_FRM", 1, ""), Rows_QRY(this, "Rows_QRY", host.Connection()) {
    PreferredWidth = 900;
    PreferredHeight = 500;
    Rows_GRD.AddColumn("Date", "تاریخ");
    Rows_GRD.SetDataSource(&Rows_DS);
    Detail_FRM.SetHeight(120);
    Detail_FRM.DetailFields_QRT1.SetFields({{"Radif", "ردیف", ""},
                                            {"Date", "تاریخ", ""},
                                            {"Anbar", "انبار", ""},
                                            {"Comment", "شرح", ""},
                                            {"PerName", "نام شخص", ""},
                                            {"Bagh", "باقیمانده", std::string(kQuantityFormat)}});
    Detail_FRM.DetailFields_QRT1.SetDataSource(&Rows_DS);
    Body_PNL.Splitter = true;
    Body_PNL.Place(Rows_GRD, 1);
    Body_PNL.Place(Detail_FRM);
    Place(Body_PNL, 1);
    Initialise();
    Rows_QRY.SetSQL("rows 20");
    Rows_QRY.Open();
  }

  TPanel Body_PNL{this, "Body_PNL"};
  TSmartDBGrid_QRT Rows_GRD{this, "Rows_GRD"};
  TListDetail_FRAME Detail_FRM{this, "Detail_FRM"};
  TADOQuery Rows_QRY;
  TDataSource Rows_DS{this, "Rows_DS", &Rows_QRY};
};

class Fields : public ::testing::Test {
 protected:
  void SetUp() override {
    view.show();
    Settle();
  }
  FieldListWidget& List() {
    return dynamic_cast<FieldListWidget&>(*view.WidgetOf(form.Detail_FRM.DetailFields_QRT1));
  }
  QSplitter& Border() { return *view.findChild<QSplitter*>("Body_PNL_Splitter"); }
  void Drag(int by) {
    QWidget& handle = *Border().handle(1);
    const QPoint from = handle.rect().center();
    QTest::mousePress(&handle, Qt::LeftButton, {}, from);
    QTest::mouseMove(&handle, from + QPoint(0, by));
    QTest::mouseRelease(&handle, Qt::LeftButton, {}, from + QPoint(0, by));
    Settle();
  }

  TestHost host;
  TFields_FRM form{host};
  FormView view{form};
};

TEST_F(Fields, CaptionsStandAtTheRightOfTheirTextsAndPairsRunFromTheRight) {
  EXPECT_GT(List().ShownColumns(), 1);
  EXPECT_GT(List().CaptionRect(0).left(), List().TextRect(0).right());
  EXPECT_GT(List().TextRect(0).left(), List().CaptionRect(1).right());
  EXPECT_EQ(List().CaptionRect(0).right(), List().viewport()->width() - 1);
  const auto last = static_cast<std::size_t>(List().ShownColumns() - 1);
  EXPECT_EQ(List().TextRect(last).left(), 0);
  EXPECT_GT(List().TextRect(last + 1).top(), List().TextRect(0).top());
}

TEST_F(Fields, TheChosenNumberOfColumnsSharesTheWidthAndZeroTakesAsManyAsFit) {
  for (const int columns : {1, 2, 3}) {
    form.Detail_FRM.View_CMB.SetItemIndex(columns);
    Settle();
    EXPECT_EQ(List().ShownColumns(), columns);
    EXPECT_GT(List().TextRect(0).width(), 900 / columns / 2);
  }
  form.Detail_FRM.View_CMB.SetItemIndex(0);
  Settle();
  const int wide = List().ShownColumns();
  view.resize(420, 500);
  Settle();
  EXPECT_LT(List().ShownColumns(), wide);
  EXPECT_GE(List().ShownColumns(), 1);
}

TEST_F(Fields, AnotherCurrentRowShowsItsTextsAndTellsThemToAScreenReader) {
  EXPECT_TRUE(List().accessibleDescription().startsWith("ردیف: 1،"));
  form.Rows_GRD.MoveTo(4);
  Settle();
  EXPECT_TRUE(List().accessibleDescription().startsWith("ردیف: 5،"));
  EXPECT_EQ(List().accessibleName(), "مشخصات ردیف جاری");
  const QImage before = List().grab().toImage();
  form.Rows_GRD.MoveTo(5);
  Settle();
  EXPECT_NE(List().grab().toImage(), before);
}

TEST_F(Fields, ATextWithTooLittleRoomIsCutAndScrollingReachesThePairsBelow) {
  form.Rows_GRD.MoveTo(3);  // a long comment
  form.Detail_FRM.View_CMB.SetItemIndex(1);
  Settle();
  EXPECT_FALSE(List().Cut(3));
  EXPECT_GT(List().verticalScrollBar()->maximum(), 0);
  const int below = List().TextRect(5).top();
  EXPECT_GE(below, List().viewport()->height());
  List().verticalScrollBar()->setValue(List().verticalScrollBar()->maximum());
  EXPECT_LT(List().TextRect(5).top(), List().viewport()->height());
  form.Detail_FRM.View_CMB.SetItemIndex(3);
  view.resize(520, 500);
  Settle();
  EXPECT_TRUE(List().Cut(3));
  EXPECT_FALSE(List().Cut(0));
}

TEST_F(Fields, ABorderBeginsWhereTheGivenSizeSaysAndEachPixelStaysInside) {
  QWidget& detail = *view.WidgetOf(form.Detail_FRM);
  EXPECT_EQ(Unscaled(detail.height(), detail), 120);
  EXPECT_EQ(detail.geometry().bottom(), Border().height() - 1);
  view.resize(900, 640);
  Settle();
  EXPECT_EQ(Unscaled(detail.height(), detail), 120);
}

TEST_F(Fields, DraggingABorderGivesTheControlItsNewSizeBothWays) {
  QWidget& detail = *view.WidgetOf(form.Detail_FRM);
  Drag(-60);
  const int larger = form.Detail_FRM.Height();
  EXPECT_GT(larger, 160);
  EXPECT_EQ(Unscaled(detail.height(), detail), larger);
  Drag(100);
  EXPECT_LT(form.Detail_FRM.Height(), larger - 60);
  EXPECT_EQ(Unscaled(detail.height(), detail), form.Detail_FRM.Height());
  const int kept = form.Detail_FRM.Height();
  form.Rows_QRY.Close();
  Settle();
  EXPECT_EQ(form.Detail_FRM.Height(), kept);
}

TEST_F(Fields, ASizeThatTheProgramGivesMovesTheBorder) {
  form.Detail_FRM.SetHeight(200);
  Settle();
  EXPECT_EQ(Unscaled(view.WidgetOf(form.Detail_FRM)->height(), view), 200);
}

TEST_F(Parts, AListBesideATableKeepsTheWidthThatItWasDraggedTo) {
  auto* splitter = view.findChild<QSplitter*>("Body_PNL_Splitter");
  QWidget& list = Widget(form.GoodGroup_DBG);
  EXPECT_EQ(list.geometry().right(), splitter->width() - 1);
  EXPECT_LE(Table().geometry().left(), 1);
  QWidget& handle = *splitter->handle(1);
  for (const int by : {-70, 40}) {
    const QPoint from = handle.rect().center();
    QTest::mousePress(&handle, Qt::LeftButton, {}, from);
    QTest::mouseMove(&handle, from + QPoint(by, 0));
    QTest::mouseRelease(&handle, Qt::LeftButton, {}, from + QPoint(by, 0));
    Settle();
    EXPECT_EQ(form.GoodGroup_DBG.Width(), Unscaled(list.width(), list));
    EXPECT_EQ(list.geometry().right(), splitter->width() - 1);
  }
}

}  // namespace
}  // namespace goods::testing
