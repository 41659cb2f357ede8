#include "desktop/print/desktop_printing.h"

#include <QApplication>
#include <QFileDialog>

#include "desktop/print/export.h"
#include "desktop/print/page_layout.h"
#include "desktop/print/preview_window.h"
#include "desktop/views/shown_text.h"
#include "host/services/windows.h"

namespace goods {
namespace {

QString AskForFile(QWidget* window, const char* title, const QString& name, const char* filter) {
  return QFileDialog::getSaveFileName(window, QString::fromUtf8(title), name, QString::fromUtf8(filter));
}

}  // namespace

void DesktopPrinting::Preview(const PrintJob& job) {
  const PageLayout layout(job, windows_.NowDate());
  PreviewWindow preview(layout, QApplication::activeWindow());
  preview.exec();
}

std::vector<GridCommand> DesktopPrinting::GridCommands(IMessages& messages) {
  const auto exporting = [&messages](const std::function<void()>& write) {
    try {
      write();
    } catch (const ExportError& error) {
      messages.ShowSmartMessage(error.what(), "", MessageIcon::Error);
    }
  };
  const auto csv = [exporting](TSmartDBGrid_QRT& grid, QWidget* window) {
    const QString path = AskForFile(window, "خروجی CSV", window->windowTitle() + ".csv", "CSV (*.csv)");
    if (!path.isEmpty()) exporting([&] { WriteCsv(grid.Table(), FromQt(path)); });
  };
  const auto xlsx = [exporting](TSmartDBGrid_QRT& grid, QWidget* window) {
    const QString path =
        AskForFile(window, "خروجی صفحه گسترده", window->windowTitle() + ".xlsx", "XLSX (*.xlsx)");
    if (!path.isEmpty()) exporting([&] { WriteXlsx(grid, FromQt(path), FromQt(window->windowTitle())); });
  };
  const auto print = [this](TSmartDBGrid_QRT& grid, QWidget* window) {
    PrintJob job;
    job.title = FromQt(window->windowTitle());
    job.table = &grid.Table();
    Preview(job);
  };
  return {{"خروجی CSV…", csv}, {"خروجی صفحه گسترده (XLSX)…", xlsx}, {"چاپ…", print}};
}

}  // namespace goods
