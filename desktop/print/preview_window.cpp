#include "desktop/print/preview_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/print/export.h"
#include "desktop/print/file_name.h"
#include "desktop/print/page_setup_dialog.h"
#include "desktop/print/page_view.h"
#include "desktop/print/saved_file.h"
#include "desktop/views/file_dialogs.h"
#include "desktop/views/letter_keys.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr double kZoomStep = 1.2;

void SetUpPaper(QPrinter& printer, const PrintedDocument& document) {
  printer.setFullPage(true);
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(document.Landscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer.setPageMargins(QMarginsF(0, 0, 0, 0));
}

}  // namespace

PreviewWindow::PreviewWindow(PrintedDocument& document, QWidget* parent, std::vector<std::string> forbidden)
    : QDialog(parent), document_(document), forbidden_(std::move(forbidden)) {
  setObjectName("PreviewWindow");
  setLayoutDirection(Qt::RightToLeft);
  setWindowTitle(QString::fromUtf8("پیش نمایش: ") + ShownText(document.Title()));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  resize(Scaled(1000, *this), Scaled(740, *this));
  auto* outer = new QVBoxLayout(this);
  auto* bar = new QHBoxLayout;
  bar->setSpacing(Scaled(6, *this));
  AddButton(*bar, "چاپ", "Print", &PreviewWindow::Print)->setDefault(true);
  AddButton(*bar, "ذخیره PDF", "SavePdf", &PreviewWindow::AskAndSave);
  AddButton(*bar, "تنظیم صفحه", "PageSetup", &PreviewWindow::SetUpPage)
      ->setToolTip("اندازه نوشته، جهت کاغذ و پهنای ستون‌ها (Ctrl+E)");
  bar->addSpacing(Scaled(16, *this));
  AddButton(*bar, "صفحه قبل", "Previous", &PreviewWindow::Previous);
  page_ = new QLabel(this);
  page_->setObjectName("Page");
  page_->setMinimumWidth(Scaled(90, *this));
  page_->setAlignment(Qt::AlignCenter);
  bar->addWidget(page_);
  AddButton(*bar, "صفحه بعد", "Next", &PreviewWindow::Next);
  bar->addSpacing(Scaled(16, *this));
  AddButton(*bar, "+", "ZoomIn", &PreviewWindow::ZoomIn)->setAccessibleName("بزرگ‌تر");
  AddButton(*bar, "−", "ZoomOut", &PreviewWindow::ZoomOut)->setAccessibleName("کوچک‌تر");
  AddButton(*bar, "عرض صفحه", "FitWidth", &PreviewWindow::FitWidth);
  AddButton(*bar, "تمام صفحه", "FitPage", &PreviewWindow::FitPage);
  bar->addStretch();
  AddButton(*bar, "بستن Esc", "Close", &PreviewWindow::Leave);
  outer->addLayout(bar);
  preview_ = new PageView(document_, this);
  preview_->setAccessibleName("صفحه‌ها");
  outer->addWidget(preview_, 1);
  preview_->OnScrolled = [this] { UpdatePageNumber(); };
  preview_->setFocus();
  UpdatePageNumber();
}

QPushButton* PreviewWindow::AddButton(QLayout& bar, const QString& text, const char* name,
                                      void (PreviewWindow::*action)()) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(name);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, action);
  bar.addWidget(button);
  return button;
}

void PreviewWindow::PaintOn(QPrinter& printer) const {
  QPainter painter;
  if (!painter.begin(&printer)) return;
  const double scale = printer.resolution() / kPointsPerInch;
  painter.scale(scale, scale);
  const int last = static_cast<int>(document_.PageCount());
  const int from = printer.fromPage() == 0 ? 1 : std::clamp(printer.fromPage(), 1, last);
  const int to = printer.toPage() == 0 ? last : std::clamp(printer.toPage(), from, last);
  for (int page = from; page <= to; ++page) {
    if (page > from) printer.newPage();
    document_.Paint(painter, static_cast<std::size_t>(page - 1));
  }
}

void PreviewWindow::Print() {
  QPrinter paper(QPrinter::HighResolution);
  SetUpPaper(paper, document_);
  QPrintDialog dialog(&paper, this);
  dialog.setMinMax(1, static_cast<int>(document_.PageCount()));
  if (dialog.exec() == QDialog::Accepted) PaintOn(paper);
}

bool PreviewWindow::SaveAsPdf(const QString& path) {
  try {
    WritingOptions options;
    options.forbidden = forbidden_;
    WriteDocument(document_, FromQt(path), options);
    return true;
  } catch (const ExportError& error) {
    QMessageBox::warning(this, windowTitle(), ToQt(error.what()));
    return false;
  }
}

std::string PreviewWindow::ProposedName() const {
  return ProposedFileName(document_.Title(), document_.Today(), EndingOf(FileFormat::Pdf));
}

void PreviewWindow::AskAndSave() {
  const QString path = AskForFileToSave(this, "ذخیره PDF", ToQt(ProposedName()), "PDF (*.pdf)", "pdf");
  if (!path.isEmpty() && SaveAsPdf(path)) TellSaved(this, path);
}

// The pages behind the dialog follow each choice; what is not taken is given back.
void PreviewWindow::SetUpPage() {
  const PageOptions before = document_.Options();
  const IReportTable* table = document_.Jobs().front().job.table;
  PageSetupDialog dialog(before, table == nullptr ? std::vector<ReportColumn>() : table->Columns(), this);
  dialog.OnChange = [&] { Apply(dialog.Options()); };
  if (dialog.exec() != QDialog::Accepted) return Apply(before);
  Apply(dialog.Options());
  if (OnOptions && document_.Options() != before) OnOptions(document_.Options());
}

void PreviewWindow::Apply(PageOptions options) {
  if (options == document_.Options()) return;
  document_.SetOptions(std::move(options));
  preview_->DocumentChanged();
  UpdatePageNumber();
}

int PreviewWindow::CurrentPage() const { return preview_->CurrentPage(); }

void PreviewWindow::GoToPage(int page) {
  preview_->GoToPage(page);
  UpdatePageNumber();
}

void PreviewWindow::UpdatePageNumber() {
  const std::string text =
      std::to_string(std::max(1, CurrentPage())) + " از " + std::to_string(document_.PageCount());
  page_->setText(ShownText(text));
}

void PreviewWindow::ZoomIn() { preview_->SetZoom(preview_->Zoom() * kZoomStep); }
void PreviewWindow::ZoomOut() { preview_->SetZoom(preview_->Zoom() / kZoomStep); }
void PreviewWindow::FitWidth() { preview_->FitWidth(); }
void PreviewWindow::FitPage() { preview_->FitPage(); }

void PreviewWindow::keyPressEvent(QKeyEvent* event) {
  const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
  if (event->key() == Qt::Key_PageDown) return Next();
  if (event->key() == Qt::Key_PageUp) return Previous();
  const int letter = ctrl ? LatinKey(event->key()) : 0;
  if (letter == Qt::Key_P) return Print();
  if (letter == Qt::Key_S) return AskAndSave();
  if (letter == Qt::Key_E) return SetUpPage();
  if (ctrl && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)) return ZoomIn();
  if (ctrl && event->key() == Qt::Key_Minus) return ZoomOut();
  QDialog::keyPressEvent(event);
}

}  // namespace goods
