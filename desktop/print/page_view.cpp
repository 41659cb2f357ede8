#include "desktop/print/page_view.h"

#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kGap = 18;
constexpr double kLeastZoom = 0.3;
constexpr double kMostZoom = 6;
constexpr double kWheelStep = 1.15;

}  // namespace

PageView::PageView(const PrintedDocument& document, QWidget* parent)
    : QAbstractScrollArea(parent), document_(document) {
  setLayoutDirection(Qt::LeftToRight);  // a sheet of paper is not mirrored
  setFocusPolicy(Qt::StrongFocus);
  verticalScrollBar()->setSingleStep(40);
  horizontalScrollBar()->setSingleStep(40);
}

QSize PageView::PageSize() const { return (document_.PaperSize() * zoom_).toSize(); }

int PageView::PageTop(int index) const { return kGap + index * (PageSize().height() + kGap); }

int PageView::CurrentPage() const {
  const int middle = verticalScrollBar()->value() + viewport()->height() / 2;
  const int page = (middle - kGap) / (PageSize().height() + kGap) + 1;
  return std::clamp(page, 1, static_cast<int>(document_.PageCount()));
}

void PageView::GoToPage(int page) {
  page = std::clamp(page, 1, static_cast<int>(document_.PageCount()));
  verticalScrollBar()->setValue(PageTop(page - 1) - kGap / 2);
}

void PageView::Arrange() {
  const QSizeF paper = document_.PaperSize();
  const double across = (viewport()->width() - 2 * kGap) / paper.width();
  const double down = (viewport()->height() - 2 * kGap) / paper.height();
  if (fit_ == Fit::Width) zoom_ = std::clamp(across, kLeastZoom, kMostZoom);
  if (fit_ == Fit::Page) zoom_ = std::clamp(std::min(across, down), kLeastZoom, kMostZoom);
  const QSize room = viewport()->size();
  const int height = PageTop(static_cast<int>(document_.PageCount()));
  verticalScrollBar()->setPageStep(room.height());
  verticalScrollBar()->setRange(0, std::max(0, height - room.height()));
  horizontalScrollBar()->setPageStep(room.width());
  horizontalScrollBar()->setRange(0, std::max(0, PageSize().width() + 2 * kGap - room.width()));
  viewport()->update();
}

void PageView::SetZoom(double zoom) {
  const int page = CurrentPage();
  fit_ = Fit::None;
  zoom_ = std::clamp(zoom, kLeastZoom, kMostZoom);
  Arrange();
  GoToPage(page);
}

void PageView::FitWidth() {
  const int page = CurrentPage();
  fit_ = Fit::Width;
  Arrange();
  GoToPage(page);
}

void PageView::FitPage() {
  const int page = CurrentPage();
  fit_ = Fit::Page;
  Arrange();
  GoToPage(page);
}

void PageView::DocumentChanged() {
  const int page = CurrentPage();
  Arrange();
  GoToPage(page);
}

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  Arrange();
}

void PageView::scrollContentsBy(int /*dx*/, int /*dy*/) {
  viewport()->update();
  if (OnScrolled) OnScrolled();
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  SetZoom(event->angleDelta().y() > 0 ? zoom_ * kWheelStep : zoom_ / kWheelStep);
}

void PageView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  const Theme& theme = CurrentTheme();
  painter.fillRect(viewport()->rect(), theme.header.darker(theme.dark ? 130 : 108));
  const QSize size = PageSize();
  const int left = std::max(kGap, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
  for (int page = 0; page < static_cast<int>(document_.PageCount()); ++page) {
    const QRect sheet(QPoint(left, PageTop(page) - verticalScrollBar()->value()), size);
    if (!sheet.intersects(viewport()->rect())) continue;
    painter.fillRect(sheet.translated(2, 3), QColor(0, 0, 0, 45));
    painter.fillRect(sheet, Qt::white);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(sheet.topLeft());
    painter.scale(zoom_, zoom_);
    document_.Paint(painter, static_cast<std::size_t>(page));
    painter.restore();
  }
}

}  // namespace goods
