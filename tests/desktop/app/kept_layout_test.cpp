// What the user arranged in the table of a report is there after a restart, as far as the report's own rules
// do not set it.
#include <QApplication>
#include <QMouseEvent>
#include <QSettings>
#include <QSplitter>
#include <algorithm>
#include <map>

#include "host/components/grid_arrangement.h"
#include "host/core/text.h"
#include "tests/desktop/app/filled_windows.h"

namespace goods {
namespace {

// What a report's rules set of its columns each time, whatever was arranged. All else is the user's.
struct ColumnRules {
  std::vector<std::string> shown;  // these are shown and hidden by the rule
  std::string reason;
};
const std::map<std::string, ColumnRules>& RulesOfWindows() {
  static const ColumnRules kGoods{
      {"gheymat_miangin", "Stock", "varede", "sadere", "Mogodi2", "UnitName2", "Jam_Kol", "SumStock"},
      "the kind of the list, the second unit, the price basis and the rights show them"};
  static const std::map<std::string, ColumnRules> kRules{
      {"GoodTransaction_FRM", kGoods},
      {"GoodTrans_Overall_FRM",
       {{"sarjame_GhableDore"}, "shown with the box of the stock before the period"}},
      {"GoodsAsset_Store_FRM",
       {{"B0-1", "B0-2", "B0-3", "B0-Cost"}, "shown with the box of the stock before the period"}},
      {"GoodDetailTransaction_FRM", {{"Anbar", "AnbarName"}, "shown while stores are separated"}},
      {"GoodDetailKardexDismatch_FRM", {{"StoreCode", "StoreTitle"}, "shown while stores are separated"}},
  };
  return kRules;
}

bool IsRuled(const TForm& form, const std::string& column) {
  const auto rules = RulesOfWindows().find(form.Name());
  if (rules == RulesOfWindows().end()) return false;
  const auto& shown = rules->second.shown;
  return std::find(shown.begin(), shown.end(), column) != shown.end();
}

// The arrangement without what the rules set.
std::string OwnArrangement(const TForm& form, const TSmartDBGrid_QRT& grid) {
  std::string own;
  for (const std::string& line : Split(ArrangementOf(grid), '\n')) {
    const std::string column = line.substr(0, line.find('='));
    own += (IsRuled(form, column) ? line.substr(0, line.rfind(',')) : line) + "\n";
  }
  return own;
}

// All the other way round, each a little wider, every third that can be hidden, sorted by two. The result of
// it.
std::string Arrange(const TForm& form, TSmartDBGrid_QRT& grid) {
  const std::string before = OwnArrangement(form, grid);
  const std::size_t count = grid.Columns().size();
  for (std::size_t i = 0; i + 1 < count; ++i) grid.MoveColumn(count - 1, i);
  std::vector<TSortKey> sort;
  int place = 0;
  int free = 0;
  int hidden = 0;
  for (const auto& column : grid.Columns()) {
    ++place;
    column->SetWidth(column->Width() + place);
    if (!column->Visible() || IsRuled(form, column->Name())) continue;
    if (sort.size() < 2 && grid.DataSet()->FindField(column->FieldName())) {
      sort.push_back({column->FieldName(), sort.empty()});
    } else if (column->Customizable() && ++free % 3 == 2) {
      column->SetVisible(false);
      ++hidden;
    }
  }
  EXPECT_EQ(sort.size(), 2U);
  EXPECT_TRUE(hidden > 0 || free < 2);
  grid.SetSortKeys(sort);
  EXPECT_NE(OwnArrangement(form, grid), before);
  return OwnArrangement(form, grid);
}

void DragBorder(QSplitter& border, int by) {
  QWidget& handle = *border.handle(1);
  const QPoint way = border.orientation() == Qt::Horizontal ? QPoint(by, 0) : QPoint(0, by);
  const QPoint from = handle.rect().center();
  const auto mouse = [&](QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, handle.mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(&handle, &event);
  };
  mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
  mouse(QEvent::MouseMove, from + way, Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, from + way, Qt::NoButton);
  Wait(20);
}

// The sizes at the borders that a user can drag.
std::map<std::string, QList<int>> BordersIn(const QWidget& window) {
  std::map<std::string, QList<int>> sizes;
  for (const QSplitter* border : window.findChildren<QSplitter*>())
    if (border->isVisible()) sizes[FromQt(border->objectName())] = border->sizes();
  return sizes;
}

class KeptLayout : public FilledWindows {
 protected:
  KeptLayout() {
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.filePath("places"));
    QCoreApplication::setOrganizationName("test");
  }
  ~KeptLayout() override { QCoreApplication::setOrganizationName({}); }

  // Arranges what the window shows, in one program, and looks for it in the next.
  void ExpectKept(const Opener& opener) {
    SCOPED_TRACE(opener.name);
    std::string arranged;
    std::map<std::string, QList<int>> borders;
    int looks = 0;
    HostFor("admin");
    opener.open([&](QWidget& window) {
      ++looks;
      for (QSplitter* border : window.findChildren<QSplitter*>()) {
        if (border->isVisible() && border->count() > 1) DragBorder(*border, -40);
      }
      TSmartDBGrid_QRT& grid = PrintedTable(window);
      dynamic_cast<FormView&>(window).Run([&] { arranged = Arrange(FormOf(window), grid); });
      borders = BordersIn(window);
    });
    HostFor("admin");  // a program that was started anew
    opener.open([&](QWidget& window) {
      ++looks;
      EXPECT_EQ(OwnArrangement(FormOf(window), PrintedTable(window)), arranged);
      EXPECT_EQ(BordersIn(window), borders);
    });
    EXPECT_EQ(looks, 2) << "the window opened in both";
  }
};

// The comparisons, which begin sorted as the report's table, come before the reports that they are made from.
TEST_F(KeptLayout, WhatIsArrangedInEachWindowIsThereAfterARestart) {
  for (const Opener& window : EveryFilledWindow()) ExpectKept(window);
}

TEST_F(KeptLayout, TwoReportsOfOneKindOfWindowKeepEachItsOwn) {
  struct Pair {
    ReportId one;
    ReportId other;
    const char* column;
  };
  for (const Pair& pair : {Pair{ReportId::GoodsInQuantity, ReportId::GoodsInMoney, "OperationDate"},
                           Pair{ReportId::RowSearch, ReportId::NegativeCard, "PerName"}}) {
    SCOPED_TRACE(pair.column);
    HostFor("admin");
    const auto widthIn = [&](ReportId id, int given) {
      int width = 0;
      InReport(id, [&](QWidget& window) {
        TGridColumn& column = *PrintedTable(window).FindColumn(pair.column);
        width = column.Width();
        if (given > 0) column.SetWidth(given);
      });
      return width;
    };
    const int own = widthIn(pair.one, 151);
    EXPECT_EQ(widthIn(pair.other, 162), own);
    HostFor("admin");
    EXPECT_EQ(widthIn(pair.one, 0), 151);
    EXPECT_EQ(widthIn(pair.other, 0), 162);
  }
}

}  // namespace
}  // namespace goods
