// The toolkit's own dialogs: Persian, and from right to left.
#include "desktop/views/persian_texts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QTabBar>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "desktop/print/preview_window.h"
#include "desktop/tools/window_driver.h"
#include "desktop/views/file_dialogs.h"
#include "desktop/views/shown_text.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

// Every text that the dialog's own parts show or tell, but names of files and folders, and paper sizes.
QStringList TextsIn(const QWidget& dialog) {
  QStringList texts(dialog.windowTitle());
  const auto seen = [&dialog](const QWidget& widget) {
    return !widget.isHidden() && widget.window() == &dialog;
  };
  for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
    if (!seen(*widget)) continue;
    texts << widget->toolTip();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) texts << label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) texts << button->text();
    if (const auto* box = qobject_cast<const QGroupBox*>(widget)) texts << box->title();
    if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
      for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i);
    }
    if (const auto* header = qobject_cast<const QHeaderView*>(widget)) {
      for (int i = 0; header->model() != nullptr && i < header->count(); ++i)
        texts << header->model()->headerData(i, header->orientation()).toString();
    }
  }
  return texts;
}

void ExpectPersian(const QWidget& dialog) {
  EXPECT_EQ(dialog.layoutDirection(), Qt::RightToLeft);
  // Words of more than the name of a format or a key.
  static const QRegularExpression kLatin("[A-Za-z]{2,}");
  static const QRegularExpression kKnown("PDF|CSV|Esc|Enter|html|DOCTYPE");
  for (QString text : TextsIn(dialog)) {
    text.remove(kKnown);
    EXPECT_FALSE(kLatin.match(text).hasMatch()) << FromQt(dialog.objectName()) << ": " << FromQt(text);
  }
}

TEST(ToolkitTexts, FileDialogsArePersian) {
  for (const auto mode : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
    const QTemporaryDir folder;
    QFileDialog dialog(nullptr, "ذخیره", folder.path(), "PDF (*.pdf)");
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(mode);
    dialog.setViewMode(QFileDialog::Detail);
    dialog.show();
    Wait(50);
    ExpectPersian(dialog);
  }
}

TEST(ToolkitTexts, FilesAreAskedForInTheToolkitsOwnDialogs) {
  const QTemporaryDir folder;
  const auto named = [&](const std::function<QString()>& ask, const QString& typed) {
    bool seen = false;
    WhileModal([&](QWidget& window) {
      auto& dialog = dynamic_cast<QFileDialog&>(window);
      seen = true;
      EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
      ExpectPersian(dialog);
      auto& name = dynamic_cast<QLineEdit&>(Child(dialog, "fileNameEdit"));
      if (typed.isEmpty()) return PressKey(dialog, Qt::Key_Escape);
      name.setText(typed);
      name.setFocus();
      PressKey(dialog, Qt::Key_Return);
    });
    const QString answer = ask();
    EXPECT_TRUE(seen);
    RethrowFailure();
    return answer;
  };
  const auto save = [&] {
    return AskForFileToSave(nullptr, "ذخیره", folder.filePath("گزارش 1403-05-12.csv"), "CSV (*.csv)", "csv");
  };
  EXPECT_EQ(named(save, ""), "");
  EXPECT_EQ(named(save, "نام"), folder.filePath("نام.csv")) << "the ending is put behind";
  QFile file(folder.filePath("بود.csv"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  const auto open = [&] { return AskForFileToOpen(nullptr, "باز کردن", {}, "CSV (*.csv)"); };
  EXPECT_EQ(named(open, "بود.csv"), folder.filePath("بود.csv")) << "the folder that was used last";
  EXPECT_EQ(named([&] { return AskForFolder(nullptr, "پوشه", folder.path()); }, ""), "");
}

TEST(ToolkitTexts, PrintDialogsArePersian) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  QPrintDialog dialog(&printer);
  dialog.show();
  Wait(50);
  for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
    if (button->text().contains(">>")) button->click();  // its options unfold
  }
  Wait(50);
  ExpectPersian(dialog);
}

TEST(ToolkitTexts, MessagesArePersian) {
  QMessageBox box(QMessageBox::Question, "پیام", "متن",
                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  box.setDetailedText("جزئیات");
  box.show();
  Wait(20);
  ExpectPersian(box);
  EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), "انصراف");
}

TEST(ToolkitTexts, MenusOfEditsArePersian) {
  QLineEdit edit("متن");
  const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
  for (const QAction* action : menu->actions()) {
    if (action->isSeparator()) continue;
    const QString text = action->text().section('\t', 0, 0);
    EXPECT_TRUE(text.isEmpty() || HasRightToLeft(text)) << FromQt(text);
  }
}

TEST(ToolkitTexts, APdfIsProposedUnderTheReportsNameAndDay) {
  TestHost host;
  TCard_FRM form(host);
  form.Fill(3);
  PrintJob job;
  job.title = " کاردکس: کالا ";
  const auto table = form.Kardex_GRD.Table();
  job.table = table.get();
  PrintedDocument document({job}, "1403/05/12");
  EXPECT_EQ(PreviewWindow(document, nullptr).ProposedName(), "کاردکس کالا 1403-05-12.pdf");
}

}  // namespace
}  // namespace goods::testing
