// Pictures of the parts for a person to look at: written into the folder that GOODS_PICTURES names.
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QPixmap>
#include <QScrollBar>

#include <gtest/gtest.h>

#include "desktop/views/column_chooser.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/theme.h"
#include "tests/desktop/views/parts_form.h"

namespace goods::testing {
namespace {

void Colour(TSmartDBGrid_QRT& grid) {
  grid.OnDrawColumnCell = [](std::size_t row, const TGridColumn& column, TCellStyle& style) {
    if (column.FieldName() != "Radif" || row % 3 != 1) return;
    style.Brush = row % 2 == 0 ? 0xFFC107 : 0x2E7D32;
    style.InsetTop = 4;
    style.InsetBottom = 4;
  };
}

TEST(Pictures, ThePartsArePaintedInBothPalettes) {
  TestHost host;
  const QByteArray folder = qgetenv("GOODS_PICTURES");
  for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
    ApplyTheme(*qApp, mode);
    const QString name = mode == ThemeMode::Dark ? "dark" : "light";
    TParts_FRM form(host);
    form.AddAmountColumns(40);
    Colour(form.Goods_GRD);
    form.Tags_FRM.Tags_EDT.SetCodes({"1", "2", "3", "4", "5", "6", "7"});
    form.TagSearch_FRM.Tags_EDT.SetCodes({"2", "4", "6"});
    form.Category_FRM.Category_EDT.SetCodes({"2"});
    FormView view(form);
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    const auto picture = [&](const char* what) {
      Settle();
      const QPixmap taken = view.grab();
      if (!folder.isEmpty()) taken.save(QDir(folder).filePath(QString("parts_%1_%2.png").arg(what, name)));
      return taken.toImage();
    };
    const QImage closed = picture("window");
    EXPECT_EQ(closed.pixelColor(3, 3).lightness() < 128, mode == ThemeMode::Dark);
    form.Level_CMB.SetDroppedDown(true);
    EXPECT_NE(picture("drop_down"), closed);
    form.Level_PGC.SetActivePageIndex(1);
    picture("second_page");
    form.Level_CMB.SetDroppedDown(false);
    form.TagSearch_FRM.Tags_EDT.SetFocus();
    Settle();
    QTest::keyClick(view.focusWidget(), Qt::Key_Down);
    picture("tag_list");
    QTest::keyClick(view.focusWidget(), Qt::Key_Escape);
    auto& table = dynamic_cast<GridWidget&>(*view.WidgetOf(form.Goods_GRD));
    table.horizontalScrollBar()->setValue(500);
    picture("scrolled");
    QDialog* chooser = ShowColumnChooser(view, form.Goods_GRD);
    Settle();
    if (!folder.isEmpty()) chooser->grab().save(QDir(folder).filePath("parts_chooser_" + name + ".png"));
    chooser->close();
    view.resize(560, 640);
    picture("narrow");
  }
  ApplyTheme(*qApp, ThemeMode::Light);
}

}  // namespace
}  // namespace goods::testing
