#include "desktop/print/desktop_printing.h"

#include <QApplication>
#include <QProgressDialog>
#include <utility>

#include "desktop/print/file_name.h"
#include "desktop/print/preview_window.h"
#include "desktop/print/printed_document.h"
#include "desktop/print/saved_file.h"
#include "desktop/views/file_dialogs.h"
#include "desktop/views/shown_text.h"
#include "host/base/base_dock.h"
#include "host/components/grid_filter.h"
#include "host/core/text.h"
#include "host/services/windows.h"

namespace goods {
void DesktopPrinting::Preview(const PrintJob& job) {
  // A report that shares its window with another has the window's caption, and a title of its own.
  PrintJob named = job;
  const auto* report = dynamic_cast<const TBaseDock_FRM*>(windows_.ActiveWindow());
  if (report != nullptr && Trim(PlainCaption(report->Caption())) == Trim(PlainCaption(job.title)))
    named.title = report->HostTitle();
  PreviewAll({std::move(named)}, report == nullptr ? Paper() : PaperOf(*report));
}

Paper DesktopPrinting::PaperOf(const TBaseDock_FRM& report) {
  // Reports of one window have different rights.
  return {&report.Host().Settings(),
          "Paper-" + report.Name() + "-" + std::to_string(report.PrintOption.SoftwarePart)};
}

void DesktopPrinting::PreviewAll(std::vector<PrintedJob> jobs, const Paper& paper) {
  ISettings* settings = paper.settings;
  const PageOptions options =
      settings == nullptr ? PageOptions() : PageOptionsOf(settings->ReadSection(paper.section));
  PrintedDocument document(std::move(jobs), windows_.NowDate(), options);
  PreviewWindow preview(document, QApplication::activeWindow(), forbidden_);
  if (settings != nullptr) {
    preview.OnOptions = [&](const PageOptions& chosen) {
      settings->WriteSection(paper.section, TextOf(chosen));
    };
  }
  preview.exec();
}

// What the window would print, so that a file has the same title and criteria; of a grid that its window does
// not print, the window's caption alone.
PrintJob DesktopPrinting::JobOf(TSmartDBGrid_QRT& grid) const {
  PrintJob job;
  TForm* form = grid.Form();
  if (form == nullptr) return job;
  auto* window = dynamic_cast<TBaseDock_FRM*>(form);
  job.title = window != nullptr ? window->HostTitle() : std::string(Trim(PlainCaption(form->Caption())));
  if (window != nullptr && window->PrintedGrid() == &grid) {
    job.lines = window->PrintLines();
  } else if (std::string narrowing = NarrowingLine(grid); !narrowing.empty()) {
    job.lines.push_back(std::move(narrowing));
  }
  return job;
}

bool DesktopPrinting::MayTakeAway(const TSmartDBGrid_QRT& grid) {
  const auto* window = dynamic_cast<const TBaseDock_FRM*>(grid.Form());
  if (window == nullptr || window->PrintOption.SoftwarePart == 0) return true;
  IRights& rights = window->Host().Rights();
  return rights.HavePermission(rights.UserInfo(), window->PrintOption.SoftwarePart, kPermissionPrintList,
                               true, true, "");
}

void DesktopPrinting::Export(TSmartDBGrid_QRT& grid, QWidget* window, FileFormat format, const char* caption,
                             IMessages& messages) {
  if (!MayTakeAway(grid)) return;
  const QString ending = QString::fromLatin1(EndingOf(format).data());
  const std::string title = grid.Form() == nullptr ? std::string() : PlainCaption(grid.Form()->Caption());
  const std::string name = ProposedFileName(title, windows_.NowDate(), EndingOf(format));
  const QString path = AskForFileToSave(window, QString::fromUtf8(caption), ToQt(name),
                                        ending.toUpper() + " (*." + ending + ")", ending);
  if (path.isEmpty()) return;
  const std::unique_ptr<IReportTable> table = grid.Table();
  PrintJob job = JobOf(grid);
  job.table = table.get();
  QProgressDialog progress("در حال نوشتن پرونده…", "توقف", 0,
                           static_cast<int>(table->RowCount() + grid.RowCount()), window);
  progress.setWindowModality(Qt::WindowModal);
  WritingOptions options;
  options.today = windows_.NowDate();
  options.forbidden = forbidden_;
  options.progress = [&](std::size_t row) {
    progress.setValue(static_cast<int>(row));
    return !progress.wasCanceled();
  };
  try {
    const std::string note = NoteOf(WriteReport(job, format, FromQt(path), options));
    progress.reset();
    TellSaved(window, path, ShownText(note));
  } catch (const ExportStopped&) {
    // The user knows.
  } catch (const ExportError& error) {
    progress.reset();
    messages.ShowSmartMessage(error.what(), "", MessageIcon::Error);
  }
}

std::vector<GridCommand> DesktopPrinting::GridCommands(IMessages& messages) {
  const auto exporting = [this, &messages](FileFormat format, const char* caption) {
    return GridCommand{std::string(caption) + "…",
                       [this, &messages, format, caption](TSmartDBGrid_QRT& grid, QWidget* window) {
                         Export(grid, window, format, caption, messages);
                       }};
  };
  const auto print = [this](TSmartDBGrid_QRT& grid, QWidget* /*window*/) {
    if (!MayTakeAway(grid)) return;
    const std::unique_ptr<IReportTable> table = grid.Table();
    PrintJob job = JobOf(grid);
    job.table = table.get();
    Preview(job);
  };
  return {exporting(FileFormat::Csv, "خروجی CSV"),
          exporting(FileFormat::Xlsx, "خروجی صفحه گسترده (XLSX)"),
          exporting(FileFormat::Json, "خروجی JSON"),
          exporting(FileFormat::Text, "خروجی متن"),
          {"چاپ…", print}};
}

}  // namespace goods
