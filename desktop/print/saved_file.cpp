#include "desktop/print/saved_file.h"

#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kSavedWidth = 420;

QLabel* SavedLabel(const QString& text, const char* name, QDialog& dialog) {
  auto* label = new QLabel(&dialog);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setWordWrap(true);
  return label;
}

}  // namespace

void TellSaved(QWidget* parent, const QString& path, const QString& note) {
  QDialog dialog(parent);
  dialog.setObjectName("Saved_DLG");
  dialog.setWindowTitle("پرونده نوشته شد");
  dialog.setLayoutDirection(Qt::RightToLeft);
  const QFileInfo file(path);
  auto* name = SavedLabel(file.fileName(), "File_LBL", dialog);
  QFont bold = name->font();
  bold.setBold(true);
  name->setFont(bold);
  // A path reads from left to right whatever its folders are called.
  auto* folder = SavedLabel(QChar(0x2066) + file.absolutePath() + QChar(0x2069), "Folder_LBL", dialog);
  folder->setForegroundRole(QPalette::PlaceholderText);
  auto* problem =
      SavedLabel("برنامه‌ای برای باز کردن آن پیدا نشد.", "Problem_LBL", dialog);
  problem->setStyleSheet("color: " + CurrentTheme().warning.name());
  problem->hide();

  auto* buttons = new QDialogButtonBox(&dialog);
  const auto add = [&](const QString& text, const char* button, const QString& target) {
    auto* made = buttons->addButton(text, QDialogButtonBox::ActionRole);
    made->setObjectName(button);
    made->setAutoDefault(false);
    QObject::connect(made, &QPushButton::clicked, &dialog, [&dialog, problem, target] {
      if (QDesktopServices::openUrl(QUrl::fromLocalFile(target))) return dialog.accept();
      problem->show();
      dialog.adjustSize();
    });
  };
  add("باز کردن &پرونده", "OpenFile_BTN", file.absoluteFilePath());
  add("باز کردن پو&شه", "OpenFolder_BTN", file.absolutePath());
  auto* close = buttons->addButton("بستن  Esc", QDialogButtonBox::RejectRole);
  close->setObjectName("Exit_BTN");
  close->setDefault(true);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

  auto* layout = new QVBoxLayout(&dialog);
  const int margin = Scaled(16, dialog);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(Scaled(8, dialog));
  layout->addWidget(name);
  layout->addWidget(folder);
  if (!note.isEmpty()) layout->addWidget(SavedLabel(note, "Note_LBL", dialog));
  layout->addWidget(problem);
  layout->addSpacing(Scaled(8, dialog));
  layout->addWidget(buttons);
  dialog.setMinimumWidth(Scaled(kSavedWidth, dialog));
  close->setFocus();
  dialog.exec();
}

}  // namespace goods
