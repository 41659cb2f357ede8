#include "desktop/views/window_overlay.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kShadow = 8;
constexpr int kFrame = 1;
constexpr int kOverlayGap = 2;
constexpr double kOverlayRadius = 6;

}  // namespace

WindowOverlay::WindowOverlay(QWidget& anchor, QWidget& window)
    : QWidget(&window), anchor_(anchor), area_(new QScrollArea(this)) {
  hide();
  setFocusPolicy(Qt::NoFocus);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setWidgetResizable(true);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->viewport()->setAutoFillBackground(false);
}

WindowOverlay::~WindowOverlay() { qApp->removeEventFilter(this); }

void WindowOverlay::SetContents(QWidget* contents) {
  area_->setWidget(contents);
  contents->setAutoFillBackground(false);
}

void WindowOverlay::Open() {
  if (!IsOpen()) {
    qApp->installEventFilter(this);
    show();
  }
  PlaceBesideAnchor();
  raise();
}

void WindowOverlay::Close() {
  if (!IsOpen()) return;
  qApp->removeEventFilter(this);
  hide();
}

void WindowOverlay::PlaceBesideAnchor() {
  QWidget* contents = area_->widget();
  if (contents == nullptr) return;
  if (contents->layout() != nullptr) contents->layout()->activate();
  const int border = Scaled(kShadow, *this) + kFrame;
  const QRect room = parentWidget()->rect().adjusted(kOverlayGap, kOverlayGap, -kOverlayGap, -kOverlayGap);
  const QRect anchor(anchor_.mapTo(parentWidget(), QPoint(0, 0)), anchor_.size());
  QSize size = contents->sizeHint().expandedTo(contents->minimumSizeHint());
  size = size.expandedTo(contents->minimumSize()) + QSize(2 * kFrame, 2 * kFrame);
  if (AtLeastAnchorWidth) size.setWidth(std::max(size.width(), anchor.width()));
  const int below = room.bottom() - anchor.bottom() - kOverlayGap;
  const int above = anchor.top() - room.top() - kOverlayGap;
  // Where neither side is high enough, over the anchor rather than cut.
  const bool fits = size.height() <= std::max(below, above);
  if (size.height() > room.height()) {
    size.setHeight(room.height());
    size.rwidth() += area_->verticalScrollBar()->sizeHint().width();
  }
  size.setWidth(std::min(size.width(), room.width()));
  const int top = size.height() <= below ? anchor.bottom() + 1 + kOverlayGap
                  : fits                 ? anchor.top() - kOverlayGap - size.height()
                                         : room.bottom() + 1 - size.height();
  const bool rightToLeft = parentWidget()->layoutDirection() == Qt::RightToLeft;
  const int wanted = rightToLeft ? anchor.right() + 1 - size.width() : anchor.left();
  const int left = std::clamp(wanted, room.left(), room.right() + 1 - size.width());
  const int shadow = border - kFrame;
  const QRect place = QRect(QPoint(left, top), size).adjusted(-shadow, -shadow, shadow, shadow);
  if (geometry() != place) setGeometry(place);
  area_->setGeometry(rect().adjusted(border, border, -border, -border));
}

bool WindowOverlay::Holds(const QObject* object) const {
  const auto* widget = qobject_cast<const QWidget*>(object);
  while (widget != nullptr && widget != this && widget != &anchor_) {
    // What hangs from something inside counts as inside.
    const auto* hanging = dynamic_cast<const WindowOverlay*>(widget);
    widget = hanging != nullptr ? &hanging->anchor_ : widget->parentWidget();
  }
  return widget != nullptr;
}

bool WindowOverlay::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress: {
      const auto* widget = qobject_cast<QWidget*>(watched);
      if (widget != nullptr && widget->window() == window() && !Holds(widget) && OnPressOutside)
        OnPressOutside();
      break;
    }
    case QEvent::LayoutRequest:
    case QEvent::Resize:
    case QEvent::Move:
      if (watched == area_->widget() ? event->type() == QEvent::LayoutRequest
                                     : watched == parentWidget() || watched == &anchor_)
        QMetaObject::invokeMethod(
            this,
            [this] {
              if (IsOpen()) PlaceBesideAnchor();
            },
            Qt::QueuedConnection);
      break;
    default:
      break;
  }
  return false;
}

void WindowOverlay::mousePressEvent(QMouseEvent* event) { event->accept(); }

void WindowOverlay::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int shadow = Scaled(kShadow, *this);
  const QRectF box = QRectF(rect()).adjusted(shadow, shadow, -shadow, -shadow);
  painter.setPen(Qt::NoPen);
  for (int step = shadow; step > 0; --step) {
    painter.setBrush(QColor(0, 0, 0, CurrentTheme().dark ? 14 : 6));
    painter.drawRoundedRect(box.adjusted(-step, 2 - step, step, step), kOverlayRadius + step,
                            kOverlayRadius + step);
  }
  painter.setPen(CurrentTheme().border);
  painter.setBrush(CurrentTheme().surface);
  painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), kOverlayRadius, kOverlayRadius);
}

}  // namespace goods
