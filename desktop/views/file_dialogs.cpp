#include "desktop/views/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace goods {
namespace {

// For as long as the program runs.
QString& LastFolder() {
  static QString folder;
  if (folder.isEmpty() || !QFileInfo(folder).isDir())
    folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (!QFileInfo(folder).isDir()) folder = QDir::homePath();
  return folder;
}

void BeginAt(QFileDialog& dialog, const QString& start) {
  const QFileInfo info(QDir(LastFolder()), start);
  if (start.isEmpty() || !info.dir().exists()) {
    dialog.setDirectory(LastFolder());
    if (!start.isEmpty()) dialog.selectFile(info.fileName());
  } else if (info.isDir()) {
    dialog.setDirectory(info.absoluteFilePath());
  } else {
    dialog.setDirectory(info.absolutePath());
    dialog.selectFile(info.fileName());
  }
}

void SetUp(QFileDialog& dialog, const QString& title) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setObjectName("File_DLG");
  dialog.setLayoutDirection(Qt::RightToLeft);
  dialog.setWindowTitle(title);
}

QString Answer(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  LastFolder() = dialog.directory().absolutePath();
  return dialog.selectedFiles().front();
}

}  // namespace

QString AskForFileToOpen(QWidget* parent, const QString& title, const QString& start, const QString& filter) {
  QFileDialog dialog(parent);
  SetUp(dialog, title);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilter(filter);
  BeginAt(dialog, start);
  return Answer(dialog);
}

QString AskForFolder(QWidget* parent, const QString& title, const QString& start) {
  QFileDialog dialog(parent);
  SetUp(dialog, title);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  BeginAt(dialog, start);
  return Answer(dialog);
}

QString AskForFileToSave(QWidget* parent, const QString& title, const QString& start, const QString& filter,
                         const QString& ending, Replacing replacing) {
  QFileDialog dialog(parent);
  SetUp(dialog, title);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilter(filter);
  dialog.setDefaultSuffix(ending);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, replacing == Replacing::LeftToCaller);
  BeginAt(dialog, start);
  return Answer(dialog);
}

}  // namespace goods
