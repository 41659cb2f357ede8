// Pictures for a person to look at: written into the folder that GOODS_PICTURES names.
#include <QDir>
#include <QPixmap>

#include <gtest/gtest.h>

#include "desktop/views/date_edit_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/theme.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

TEST(Pictures, AWindowIsPaintedInBothPalettes) {
  TestHost host;
  for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
    ApplyTheme(*qApp, mode);
    TCard_FRM form(host);
    form.Fill(2000);
    form.Store_SESF.SetCode(3);
    form.Date_RDSF.SetRange("1402/01/01", "1402/12/29");
    form.Good_SEF.SetCode(500);
    form.Kardex_GRD.SetSortKeys({{"Date", false}, {"Bagh", true}});
    form.Kardex_GRD.OnDrawColumnCell = [](std::size_t row, const TGridColumn& column, TCellStyle& style) {
      if (row == 4 && column.FieldName() == "PerName") style.Brush = 0xC8F0C8;
      if (row == 5) style.Bold = true;
    };
    FormView view(form, host.printing.GridCommands(host.messages));
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.activateWindow();
    form.Kardex_GRD.MoveTo(6);
    form.Search_EDT.SetFocus();
    form.Kardex_GRD.SetSelection({2, 3});
    Settle();
    const QPixmap picture = view.grab();
    EXPECT_GE(picture.width(), 1000);
    const QColor corner = picture.toImage().pixelColor(3, 3);
    EXPECT_EQ(corner.lightness() < 128, mode == ThemeMode::Dark);
    const QByteArray folder = qgetenv("GOODS_PICTURES");
    if (folder.isEmpty()) continue;
    const QString name = mode == ThemeMode::Dark ? "dark" : "light";
    picture.save(QDir(folder).filePath("card_" + name + ".png"));
    static_cast<DateEditView*>(view.ViewOf(form.Date_RDSF.RangeDate_From_EDT))->DropDown();
    Settle();
    if (QWidget* popup = QApplication::activePopupWidget()) {
      popup->grab().save(QDir(folder).filePath("calendar_" + name + ".png"));
      popup->close();
    }
  }
  ApplyTheme(*qApp, ThemeMode::Light);
}

}  // namespace
}  // namespace goods::testing
