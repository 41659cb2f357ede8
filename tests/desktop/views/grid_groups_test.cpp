// Groups in the view of a table: keys, mouse, menu, chip, paper, files.
#include "host/components/grid_groups.h"

#include <QContextMenuEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include "company/files/input_file.h"
#include "desktop/print/export.h"
#include "desktop/print/page_layout.h"
#include "desktop/print/page_painter.h"
#include "desktop/views/grid_menu.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/shown_text.h"
#include "tests/desktop/views/grid_fixture.h"

namespace goods::testing {
namespace {

class GridGroupsView : public GridTest {
 protected:
  GridGroups& Groups() { return form.Kardex_GRD.Groups(); }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&Table(), static_cast<Qt::Key>(key), modifiers);
    Settle();
  }
  void ClickCell(std::size_t row, const char* field) {
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().CellRect(row, Column(field)).center());
    Settle();
  }
  std::size_t Current() { return form.Kardex_QRY.RecNo().value_or(999'999); }
  void GroupByPerson() {
    ClickCell(0, "PerName");
    Key(Qt::Key_G, Qt::ControlModifier);
    ASSERT_TRUE(Groups().Active());
  }
};

TEST_F(GridGroupsView, CtrlGGroupsByTheColumnThatKeysMeanAndLiftsItAgain) {
  Open(400);
  GroupByPerson();
  EXPECT_EQ(Groups().GroupCount(), 4U);
  EXPECT_EQ(Groups().LineCount(), 4U);
  auto* chip = Table().findChild<QToolButton*>("GroupChip");
  ASSERT_NE(chip, nullptr);
  EXPECT_TRUE(chip->isVisible());
  EXPECT_TRUE(chip->text().startsWith("گروه‌بندی: نام شخص"));
  Key(Qt::Key_G, Qt::ControlModifier);
  EXPECT_FALSE(Groups().Active());
  GroupByPerson();
  QTest::mouseClick(Table().findChild<QToolButton*>("GroupChip"), Qt::LeftButton);
  Settle();
  EXPECT_FALSE(Groups().Active());
}

TEST_F(GridGroupsView, PlusAndMinusFoldTheGroupAndWithCtrlAll) {
  Open(400);
  GroupByPerson();
  const std::size_t group = Groups().GroupOf(Current());
  Key(Qt::Key_Plus);
  EXPECT_FALSE(Groups().Folded(group));
  EXPECT_EQ(Groups().LineCount(), 104U);
  EXPECT_FALSE(Table().CellRect(Current(), Column("PerName")).isEmpty());
  Key(Qt::Key_Minus);
  EXPECT_TRUE(Groups().Folded(group));
  Key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(Groups().LineCount(), 404U);
  Key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(Groups().LineCount(), 4U);
  EXPECT_TRUE(Table().CellRect(0, Column("PerName")).isEmpty());
}

TEST_F(GridGroupsView, TheArrowsGoFromHeadToHeadAndThroughOpenGroups) {
  Open(400);
  GroupByPerson();
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(Groups().GroupOf(Current()), 0U);
  Key(Qt::Key_Down);
  EXPECT_EQ(Current(), Groups().FirstRow(1));
  Key(Qt::Key_Plus);
  Key(Qt::Key_Down);
  EXPECT_EQ(Current(), Groups().FirstRow(1) + 1);
  Key(Qt::Key_Up);
  Key(Qt::Key_Up);
  EXPECT_EQ(Groups().GroupOf(Current()), 0U);
  Key(Qt::Key_Down);
  EXPECT_EQ(Current(), Groups().FirstRow(1));  // over the head of the open group
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Groups().GroupOf(Current()), 3U);
  Key(Qt::Key_Down);
  EXPECT_EQ(Groups().GroupOf(Current()), 3U);
}

TEST_F(GridGroupsView, AClickOnAHeadOpensItAndTheMenuGroupsByTheColumnUnderTheMouse) {
  Open(400);
  GroupByPerson();
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().HeadRect(1).center());
  Settle();
  EXPECT_FALSE(Groups().Folded(1));
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().HeadRect(1).center());
  Settle();
  EXPECT_TRUE(Groups().Folded(1));
  bool chosen = false;
  QTimer::singleShot(0, [&] {
    auto* menu = view.findChild<QMenu*>("GridMenu");
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->findChild<QMenu*>("GridGroupMenu")->actions()) {
      if (chosen || action->text() != "بر پایه انبار") continue;
      chosen = true;
      action->trigger();
    }
    menu->close();
  });
  const QPoint title = Table().TitleRect(Column("Anbar")).center();
  QContextMenuEvent event(QContextMenuEvent::Mouse, title, Table().viewport()->mapToGlobal(title));
  QApplication::sendEvent(Table().viewport(), &event);
  Settle();
  EXPECT_TRUE(chosen);
  EXPECT_EQ(Groups().GroupCount(), 6U);
}

TEST_F(GridGroupsView, DatesGoByMonthThenByDayThenNot) {
  const_cast<TGridColumn&>(Column("Date")).SetKind(CellKind::Date);
  Open(400);
  ClickCell(0, "Date");
  Key(Qt::Key_G, Qt::ControlModifier);
  EXPECT_TRUE(Groups().ByMonth());
  EXPECT_EQ(Groups().GroupCount(), 12U);
  EXPECT_EQ(Groups().Title(0), "فروردین 1403");
  Key(Qt::Key_G, Qt::ControlModifier);
  EXPECT_TRUE(Groups().Active());
  EXPECT_FALSE(Groups().ByMonth());
  Key(Qt::Key_G, Qt::ControlModifier);
  EXPECT_FALSE(Groups().Active());
}

TEST_F(GridGroupsView, WhatIsFoundIsUnfoldedAndRowsAreCopiedAsRows) {
  Open(400);
  GroupByPerson();
  Key(Qt::Key_Home, Qt::ControlModifier);
  Table().Find();
  Settle();
  TypeLetters(Table().findChild<QWidget*>("Find_EDT"), "مرکزی");
  auto* count = Table().findChild<QLabel*>("FindCount_LBL");
  ASSERT_TRUE(QTest::qWaitFor([&] { return count->text() == ShownDigits("100 ردیف"); }, 5'000));
  QTest::keyClick(Table().findChild<QWidget*>("Find_EDT"), Qt::Key_Return);
  Settle();
  EXPECT_FALSE(Groups().Folded(Groups().GroupOf(Current())));
  EXPECT_FALSE(Table().CellRect(Current(), Column("PerName")).isEmpty());
  EXPECT_EQ(CopiedText(form.Kardex_GRD).split('\n').size(), 3);
}

TEST_F(GridGroupsView, PaperAndFilesHaveHeadsWithTotals) {
  Open(40);
  GroupByPerson();
  const std::size_t open = Groups().GroupOf(Current());
  Key(Qt::Key_Plus);
  const auto table = form.Kardex_GRD.Table();
  PrintJob job;
  job.title = "کاردکس";
  job.table = table.get();
  job.lines = form.PrintLines();
  EXPECT_EQ(job.lines, std::vector<std::string>{"گروه‌بندی: نام شخص"});
  ASSERT_EQ(table->RowCount(), 14U);
  const PageLayout layout(job, "1403/05/12");
  ASSERT_EQ(layout.Pages().size(), 1U);
  EXPECT_EQ(layout.Pages().front().rows, 14U);
  QImage page(layout.PaperSize().toSize() * 2, QImage::Format_RGB32);
  page.fill(Qt::white);
  QPainter painter(&page);
  painter.scale(2, 2);
  PaintPage(painter, layout, 0);
  painter.end();
  if (qEnvironmentVariableIsSet("GOODS_PICTURES"))
    page.save(qEnvironmentVariable("GOODS_PICTURES") + "/groups-page.png");
  const QTemporaryDir folder;
  const std::string path = FromQt(folder.filePath("a.json"));
  WriteReport(job, FileFormat::Json, path, {});
  const QJsonObject json =
      QJsonDocument::fromJson(QByteArray::fromStdString(ReadInputFile(path, 1 << 20))).object();
  const QJsonArray lines = json["lines"].toArray();
  const QJsonArray rows = json["rows"].toArray();
  ASSERT_EQ(lines.size(), 14);
  EXPECT_EQ(lines[0].toString(), "group");
  EXPECT_EQ(lines[static_cast<int>(open) + 1].toString(), "row");
  EXPECT_EQ(rows[static_cast<int>(open)].toArray()[0].toString(), ToQt(Groups().Title(open)) + " (10)");
  EXPECT_TRUE(rows[static_cast<int>(open)].toArray()[4].isDouble());
  for (const FileFormat format : {FileFormat::Csv, FileFormat::Text, FileFormat::Xlsx, FileFormat::Pdf}) {
    const std::string other = FromQt(folder.filePath("b")) + std::string(EndingOf(format));
    EXPECT_NO_THROW(WriteReport(job, format, other, {}));
  }
}

TEST_F(GridGroupsView, AWindowThatIsShownAgainHasNoGroups) {
  Open(40);
  GroupByPerson();
  form.FormClose();
  EXPECT_FALSE(Groups().Active());
  EXPECT_EQ(form.Kardex_GRD.GetSort(), "");
}

TEST_F(GridGroupsView, AScreenReaderHearsTheHeadThatStandsForItsRows) {
  Open(400);
  GroupByPerson();
  Key(Qt::Key_Down);
  const QString heard = Table().accessibleDescription();
  EXPECT_TRUE(heard.startsWith(ShownText(Groups().Title(Groups().GroupOf(Current()))))) << FromQt(heard);
  EXPECT_TRUE(heard.contains("بسته"));
}

}  // namespace
}  // namespace goods::testing
