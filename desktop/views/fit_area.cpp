#include "desktop/views/fit_area.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr QSize kLeastSize{120, 80};

}  // namespace

FitArea::FitArea(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  viewport()->setAutoFillBackground(false);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*before*/, QWidget* now) {
    if (now != nullptr && widget() != nullptr && now->window() == window() && widget()->isAncestorOf(now))
      ensureWidgetVisible(now);
  });
}

FitArea* FitArea::Of(const QWidget& window) {
  for (QScrollArea* each : window.findChildren<QScrollArea*>()) {
    auto* area = dynamic_cast<FitArea*>(each);
    if (area != nullptr && area->window() == &window) return area;
  }
  return nullptr;
}

void FitArea::SetContents(QWidget* contents) {
  setWidget(contents);
  contents->setAutoFillBackground(false);
  contents->installEventFilter(this);
}

QSize FitArea::NaturalMinimum() const {
  return widget() == nullptr ? QSize() : widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
}

QSize FitArea::sizeHint() const { return widget() == nullptr ? QSize() : widget()->sizeHint(); }

QSize FitArea::minimumSizeHint() const {
  return QSize(Scaled(kLeastSize.width(), *this), Scaled(kLeastSize.height(), *this))
      .boundedTo(NaturalMinimum());
}

bool FitArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::eventFilter(watched, event);
}

// Keys belong to what has the focus, and then to the window.
void FitArea::keyPressEvent(QKeyEvent* event) { event->ignore(); }

}  // namespace goods
