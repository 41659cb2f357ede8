// Groups in the view of a table: keys, mouse, menu, chip, paper, files.
#include "host/components/grid_groups.h"

#include <QContextMenuEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QXmlStreamReader>
#include <set>

#include <gtest/gtest.h>

#include "company/files/input_file.h"
#include "desktop/print/export.h"
#include "desktop/print/page_layout.h"
#include "desktop/print/page_painter.h"
#include "desktop/views/filter_chips.h"
#include "desktop/views/grid_menu.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/keyboard_marks.h"
#include "desktop/views/shown_text.h"
#include "host/services/detailed_table.h"
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
  // By keys from wherever the mark of the column stands.
  void GroupWithin(const char* field) {
    for (int i = 0; i < 20; ++i) Key(Qt::Key_Right, Qt::ControlModifier);
    for (int i = 0; i < 20 && Table().CurrentColumn() != &Column(field); ++i)
      Key(Qt::Key_Left, Qt::ControlModifier);
    ASSERT_EQ(Table().CurrentColumn(), &Column(field));
    Key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
  }
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
      if (chosen || WithoutMark(action->text()) != "بر پایه انبار") continue;
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
  EXPECT_TRUE(Groups().Levels().front().byMonth);
  EXPECT_EQ(Groups().GroupCount(), 12U);
  EXPECT_EQ(Groups().Title(0), "فروردین 1403");
  Key(Qt::Key_G, Qt::ControlModifier);
  EXPECT_TRUE(Groups().Active());
  EXPECT_FALSE(Groups().Levels().front().byMonth);
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

// In a line of a given size nothing but the chips themselves can place those that come.
TEST_F(GridGroupsView, ChipsThatTakeThePlaceOfOthersInALineOfTheSameSizeStandBesideEachOther) {
  Open(40);
  FilterChips line(form.Kardex_GRD, nullptr);
  line.resize(900, 40);
  Groups().SetLevels({{"PerName", false}});
  ASSERT_TRUE(line.Follow());
  Settle();
  Groups().SetLevels({{"PerName", false}, {"Anbar", false}});
  ASSERT_TRUE(line.Follow());
  ASSERT_FALSE(line.Follow());
  Settle();
  ASSERT_EQ(line.size(), QSize(900, 40));
  const auto* outer = line.findChild<QToolButton*>("GroupChip");
  const auto* inner = line.findChild<QToolButton*>("GroupChip_1");
  ASSERT_NE(outer, nullptr);
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(outer->size(), outer->sizeHint());
  EXPECT_GT(outer->geometry().right(), 880);
  EXPECT_LT(inner->geometry().right(), outer->geometry().left());
  EXPECT_GT(inner->geometry().right(), outer->geometry().left() - 20);
}

TEST_F(GridGroupsView, CtrlShiftGGroupsWithinTheGroupsAndAChipLiftsOneLevel) {
  Open(400);
  GroupByPerson();
  GroupWithin("Anbar");
  ASSERT_EQ(Groups().Levels().size(), 2U);
  EXPECT_EQ(Groups().Caption(), "گروه‌بندی: نام شخص، سپس انبار");
  EXPECT_EQ(Groups().LevelsOpen(), 1U);
  const std::size_t heads = Groups().LineCount();
  EXPECT_EQ(heads, Groups().GroupCount());  // each person open, each store folded
  EXPECT_GT(heads, 8U);
  auto* inner = Table().findChild<QToolButton*>("GroupChip_1");
  ASSERT_NE(inner, nullptr);
  EXPECT_TRUE(inner->text().startsWith("سپس: انبار"));
  QTest::mouseClick(inner, Qt::LeftButton);
  Settle();
  EXPECT_EQ(Groups().Caption(), "گروه‌بندی: نام شخص");
  GroupWithin("Anbar");
  Key(Qt::Key_G, Qt::ControlModifier);  // on a column that groups: no longer
  EXPECT_EQ(Groups().Caption(), "گروه‌بندی: نام شخص");
  // A date within goes by month, then by day, then not; a fourth level is none.
  const_cast<TGridColumn&>(Column("Date")).SetKind(CellKind::Date);
  GroupWithin("Date");
  ASSERT_EQ(Groups().Levels().size(), 2U);
  EXPECT_TRUE(Groups().Levels()[1].byMonth);
  Key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_FALSE(Groups().Levels()[1].byMonth);
  GroupWithin("Anbar");
  GroupWithin("Comment");
  EXPECT_EQ(Groups().Levels().size(), GridGroups::kMostLevels);
  EXPECT_EQ(Groups().LevelOf(Column("Comment")), nullptr);
  EXPECT_TRUE(QToolTip::text().contains("لایه"));
  QToolTip::hideText();
}

TEST_F(GridGroupsView, KeysFoldAGroupItsSurroundingALevelAndAll) {
  Open(400);
  GroupByPerson();
  GroupWithin("Anbar");
  Key(Qt::Key_Home, Qt::ControlModifier);
  const std::size_t inner = Groups().GroupOf(Current());
  EXPECT_EQ(Groups().LevelOf(inner), 1U);
  const std::size_t outer = *Groups().Around(inner);
  Key(Qt::Key_Plus);
  EXPECT_FALSE(Groups().Folded(inner));
  EXPECT_FALSE(Table().CellRect(Current(), Column("PerName")).isEmpty());
  Key(Qt::Key_Minus);
  EXPECT_TRUE(Groups().Folded(inner));
  EXPECT_FALSE(Groups().Folded(outer));
  Key(Qt::Key_Minus);
  EXPECT_TRUE(Groups().Folded(outer));
  EXPECT_TRUE(Table().HeadRect(inner).isEmpty());
  EXPECT_FALSE(Table().HeadRect(outer).isEmpty());
  Key(Qt::Key_Plus);
  EXPECT_FALSE(Groups().Folded(outer));
  Key(Qt::Key_Minus, Qt::AltModifier);
  EXPECT_EQ(Groups().LineCount(), 4U);
  Key(Qt::Key_Plus, Qt::AltModifier);
  EXPECT_EQ(Groups().LineCount(), Groups().GroupCount());
  Key(Qt::Key_Plus, Qt::AltModifier);
  EXPECT_EQ(Groups().LineCount(), Groups().GroupCount() + 400);
  Key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(Groups().LineCount(), 4U);
  Key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(Groups().LineCount(), Groups().GroupCount() + 400);
}

TEST_F(GridGroupsView, ArrowsFindAndTheScreenReaderKnowTheGroupsAroundARow) {
  Open(400);
  GroupByPerson();
  GroupWithin("Anbar");
  Key(Qt::Key_Home, Qt::ControlModifier);
  Key(Qt::Key_Down);
  const std::size_t second = Groups().GroupOf(Current());
  EXPECT_EQ(second, 2U);  // the second store of the first person
  const QString heard = Table().accessibleDescription();
  EXPECT_TRUE(heard.startsWith(ShownText(Groups().Title(0)))) << FromQt(heard);
  EXPECT_TRUE(heard.contains("، " + ShownText(Groups().Title(second)) + " (")) << FromQt(heard);
  EXPECT_TRUE(heard.contains("بسته"));
  Key(Qt::Key_Minus, Qt::ControlModifier);
  Table().Find();
  Settle();
  TypeLetters(Table().findChild<QWidget*>("Find_EDT"), "بهاران");
  auto* count = Table().findChild<QLabel*>("FindCount_LBL");
  ASSERT_TRUE(QTest::qWaitFor([&] { return count->text() == ShownDigits("100 ردیف"); }, 5'000));
  QTest::keyClick(Table().findChild<QWidget*>("Find_EDT"), Qt::Key_Return);
  Settle();
  EXPECT_TRUE(Groups().InView(Current()));
}

// One part of a spreadsheet.
QByteArray PartOf(const std::string& path, const char* name) {
  QProcess unzip;
  unzip.start("unzip", {"-p", ToQt(path), name});
  EXPECT_TRUE(unzip.waitForFinished());
  return unzip.readAllStandardOutput();
}

TEST_F(GridGroupsView, ASpreadsheetFoldsAsTheTableDoesAndKeepsItsRows) {
  Open(40);
  GroupByPerson();
  GroupWithin("Anbar");
  Key(Qt::Key_Home, Qt::ControlModifier);
  Key(Qt::Key_Plus);
  const auto table = form.Kardex_GRD.Table();
  const auto whole = DetailsOf(table.get())->Unfolded();
  ASSERT_NE(whole, nullptr);
  PrintJob job;
  job.title = "کاردکس";
  job.table = table.get();
  const QTemporaryDir folder;
  const std::string path = FromQt(folder.filePath("a.xlsx"));
  WriteReport(job, FileFormat::Xlsx, path, {});
  const QByteArray sheet = PartOf(path, "xl/worksheets/sheet1.xml");
  EXPECT_TRUE(sheet.contains("<outlinePr summaryBelow=\"0\"/><pageSetUpPr"));
  EXPECT_TRUE(sheet.contains(" outlineLevelRow=\"2\"/>"));
  EXPECT_FALSE(sheet.contains("autoFilter"));
  EXPECT_FALSE(sheet.contains("<f>"));
  QXmlStreamReader xml(sheet);
  std::size_t at = 0;
  std::set<QString> headStyles;
  std::set<QString> rowStyles;
  int hidden = 0;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"row") continue;
    const int line = xml.attributes().value("r").toInt();
    if (line < 5) continue;  // title, blank line, captions
    const auto attribute = [&](const char* name) { return xml.attributes().value(name).toInt(); };
    if (at == whole->RowCount()) break;
    const std::size_t row = at++;
    EXPECT_EQ(attribute("outlineLevel"), static_cast<int>(whole->Level(row))) << line;
    EXPECT_EQ(attribute("hidden"), whole->Hidden(row) ? 1 : 0) << line;
    hidden += attribute("hidden");
    const bool head = whole->Role(row) == RowRole::GroupHead;
    EXPECT_EQ(attribute("collapsed"), head && whole->Folded(row) ? 1 : 0) << line;
    while (xml.readNextStartElement()) {
      if (xml.name() == u"c") (head ? headStyles : rowStyles).insert(xml.attributes().value("s").toString());
      xml.skipCurrentElement();
    }
  }
  EXPECT_EQ(at, whole->RowCount());
  EXPECT_EQ(static_cast<std::size_t>(hidden), whole->RowCount() - table->RowCount());
  // Every style of a head is bold.
  const QByteArray styles = PartOf(path, "xl/styles.xml");
  const QList<QByteArray> fonts = styles.mid(styles.indexOf("<fonts")).split('/');
  EXPECT_TRUE(QString::fromUtf8(styles).contains("<b/>"));
  QXmlStreamReader read(styles);
  QList<bool> bold;
  QList<int> fontOf;
  bool cells = false;
  while (!read.atEnd()) {
    read.readNext();
    if (!read.isStartElement()) continue;
    if (read.name() == u"font") bold.append(false);
    if (read.name() == u"b") bold.back() = true;
    if (read.name() == u"cellXfs") cells = true;
    if (read.name() == u"cellStyles") cells = false;
    if (cells && read.name() == u"xf") fontOf.append(read.attributes().value("fontId").toInt());
  }
  ASSERT_FALSE(headStyles.empty());
  for (const QString& style : headStyles) EXPECT_TRUE(bold[fontOf[style.toInt()]]) << FromQt(style);
  for (const QString& style : rowStyles) EXPECT_FALSE(bold[fontOf[style.toInt()]]) << FromQt(style);
}

TEST_F(GridGroupsView, NestedGroupsStandOnPaperAndInTextAndJson) {
  Open(40);
  GroupByPerson();
  GroupWithin("Anbar");
  Key(Qt::Key_Home, Qt::ControlModifier);
  Key(Qt::Key_Plus);
  const auto table = form.Kardex_GRD.Table();
  PrintJob job;
  job.title = "کاردکس";
  job.table = table.get();
  job.lines = form.PrintLines();
  EXPECT_EQ(job.lines, std::vector<std::string>{"گروه‌بندی: نام شخص، سپس انبار"});
  const QTemporaryDir folder;
  const std::string path = FromQt(folder.filePath("a.json"));
  WriteReport(job, FileFormat::Json, path, {});
  const QJsonObject json =
      QJsonDocument::fromJson(QByteArray::fromStdString(ReadInputFile(path, 1 << 20))).object();
  const QJsonArray lines = json["lines"].toArray();
  const QJsonArray levels = json["levels"].toArray();
  ASSERT_EQ(lines.size(), static_cast<qsizetype>(table->RowCount()));
  ASSERT_EQ(levels.size(), lines.size());
  std::vector<double> sums(2);
  for (int i = 0; i < lines.size(); ++i) {
    const double in = json["rows"].toArray()[i].toArray()[4].toDouble();
    if (lines[i] == "group") sums[static_cast<std::size_t>(levels[i].toInt())] += in;
    if (lines[i] == "row") {
      EXPECT_EQ(levels[i].toInt(), 2);
    }
  }
  EXPECT_EQ(sums[0], json["totals"].toArray()[4].toDouble());
  EXPECT_EQ(sums[1], sums[0]) << "the inner groups come to what the outer ones do";
  const std::string text = FromQt(folder.filePath("a.txt"));
  WriteReport(job, FileFormat::Text, text, {});
  const std::string title = Groups().Title(1);
  EXPECT_NE(ReadInputFile(text, 1 << 20).find("\n  " + title + " ("), std::string::npos);
  const auto picture = [&](const IReportTable& of) {
    PrintJob each = job;
    each.table = &of;
    const PageLayout layout(each, "1403/05/12");
    QImage page(layout.PaperSize().toSize() * 2, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.scale(2, 2);
    PaintPage(painter, layout, 0);
    return page;
  };
  const QImage page = picture(*table);
  if (qEnvironmentVariableIsSet("GOODS_PICTURES"))
    page.save(qEnvironmentVariable("GOODS_PICTURES") + "/nested-groups-page.png");
  // Heads of the inner groups stand in.
  const PageLayout layout(job, "1403/05/12");
  const auto inkAtTheEdge = [&](std::size_t row) {
    const double top = layout.Body().top() + layout.HeadHeight() + layout.HeaderHeight() +
                       layout.RowHeight() * static_cast<double>(row);
    int ink = 0;
    for (int y = static_cast<int>(2 * top) + 4; y < static_cast<int>(2 * (top + layout.RowHeight())) - 4; ++y)
      for (int x = static_cast<int>(2 * layout.Body().right()) - 26; x < 2 * layout.Body().right() - 2; ++x)
        ink += qGray(page.pixel(x, y)) < 120 ? 1 : 0;
    return ink;
  };
  EXPECT_GT(inkAtTheEdge(0), 10);
  EXPECT_EQ(inkAtTheEdge(1), 0);
}

TEST_F(GridGroupsView, TheMenuGroupsWithinAndLiftsOneLevel) {
  Open(40);
  GroupByPerson();
  const auto choose = [&](const QString& text) {
    bool chosen = false;
    QTimer::singleShot(0, [&] {
      auto* menu = view.findChild<QMenu*>("GridMenu");
      ASSERT_NE(menu, nullptr);
      for (QAction* action : menu->findChild<QMenu*>("GridGroupMenu")->actions()) {
        if (chosen || !WithoutMark(action->text()).startsWith(text) || !action->isEnabled()) continue;
        chosen = true;
        action->trigger();
      }
      menu->close();
    });
    const QPoint title = Table().TitleRect(Column("Anbar")).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, title, Table().viewport()->mapToGlobal(title));
    QApplication::sendEvent(Table().viewport(), &event);
    Settle();
    return chosen;
  };
  EXPECT_TRUE(choose("درون گروه‌ها، بر پایه انبار"));
  EXPECT_EQ(Groups().Columns().size(), 2U);
  EXPECT_TRUE(choose("باز کردن یک لایه"));
  EXPECT_EQ(Groups().LevelsOpen(), 2U);
  EXPECT_FALSE(choose("باز کردن یک لایه"));
  EXPECT_TRUE(choose("بستن یک لایه"));
  EXPECT_TRUE(choose("نه بر پایه انبار"));
  EXPECT_EQ(Groups().Caption(), "گروه‌بندی: نام شخص");
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
