// Pictures for a person to look at: written into the folder that GOODS_PICTURES names.
#include <QDialog>
#include <QDir>
#include <QPixmap>

#include <gtest/gtest.h>

#include "desktop/print/export.h"
#include "desktop/views/column_chooser.h"
#include "desktop/views/date_edit_view.h"
#include "desktop/views/grid_view.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "desktop/windows/message_dialog.h"
#include "desktop/windows/waiting_panel.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

void WritePdfOf(const TCard_FRM& form, const QString& path) {
  PrintJob job;
  job.title = "کاردکس کالا: برنج ایرانی 10 کیلویی";
  job.lines = {"انبار: 3 و تاریخ از 1402/01/01 تا 1402/12/29"};
  const std::unique_ptr<IReportTable> table = form.Kardex_GRD.Table();
  job.table = table.get();
  WritingOptions options;
  options.today = "1403/05/12";
  WriteReport(job, FileFormat::Pdf, path.toStdString(), options);
}

void SaveDialogs(FormView& view, TCard_FRM& form, const QDir& folder, const QString& name) {
  MessageDialog message({"خطا", "پایگاه داده این درخواست را انجام نداد:\nInvalid object name 'Kardex'.",
                         "Exec Kardex_Proc 5", MessageIcon::Error, false, false},
                        &view);
  message.show();
  Settle();
  message.grab().save(folder.filePath("message_" + name + ".png"));
  message.hide();
  MessageDialog question({"پرسش", "آیا 3 سطر انتخاب شده حذف شود؟", "", MessageIcon::Warning, true, false},
                         &view);
  question.show();
  Settle();
  question.grab().save(folder.filePath("question_" + name + ".png"));
  question.hide();
  QDialog* chooser = ShowColumnChooser(view, form.Kardex_GRD);
  Settle();
  chooser->grab().save(folder.filePath("chooser_" + name + ".png"));
  chooser->close();
  WaitingPanel panel(&view);
  panel.Show("سیستم در حال تهیه گزارش می باشد.", ShownText("120,000 ردیف خوانده شد"));
  Settle();
  view.grab().save(folder.filePath("waiting_" + name + ".png"));
}

TEST(Pictures, AWindowIsPaintedInBothPalettes) {
  TestHost host;
  for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
    ApplyTheme(*qApp, mode);
    TCard_FRM form(host);
    form.Fill(90);
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
    form.Kardex_GRD.MoveTo(1);
    form.Search_EDT.SetFocus();
    form.Kardex_GRD.SetSelection({2, 3});
    Settle();
    const QPixmap picture = view.grab();
    EXPECT_GE(picture.width(), 1000);
    const QColor corner = picture.toImage().pixelColor(3, 3);
    EXPECT_EQ(corner.lightness() < 128, mode == ThemeMode::Dark);
    const QByteArray folder = qgetenv("GOODS_PICTURES");
    if (folder.isEmpty()) continue;
    if (mode == ThemeMode::Light) WritePdfOf(form, QDir(folder).filePath("card.pdf"));
    const QString name = mode == ThemeMode::Dark ? "dark" : "light";
    picture.save(QDir(folder).filePath("card_" + name + ".png"));
    SaveDialogs(view, form, QDir(folder), name);
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
