#include "desktop/views/text_label.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <climits>

#include "desktop/views/shown_text.h"

namespace goods {

TextLabel::TextLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
}

void TextLabel::SetShrinkable(bool shrinkable) {
  if (shrinkable == shrinkable_) return;
  shrinkable_ = shrinkable;
  setSizePolicy(shrinkable ? QSizePolicy::Ignored : QSizePolicy::Preferred, QSizePolicy::Preferred);
  updateGeometry();
}

void TextLabel::SetWrapping(bool wrapping) {
  if (wrapping == wrapping_) return;
  wrapping_ = wrapping;
  updateGeometry();
}

int TextLabel::WrappedHeight() const {
  const QRect room(0, 0, contentsRect().width(), INT_MAX / 2);
  return fontMetrics().boundingRect(room, Qt::AlignRight | Qt::TextWordWrap, text()).height();
}

QSize TextLabel::minimumSizeHint() const {
  QSize size = QLabel::minimumSizeHint();
  if (shrinkable_ || wrapping_) size.setWidth(std::min(size.width(), fontMetrics().averageCharWidth() * 4));
  if (wrapping_ && Cut()) size.setHeight(std::max(size.height(), WrappedHeight()));
  return size;
}

void TextLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (wrapping_ && event->size().width() != event->oldSize().width()) updateGeometry();
}

bool TextLabel::Cut() const {
  return buddy() == nullptr && fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void TextLabel::paintEvent(QPaintEvent* event) {
  if (!Cut()) {
    QLabel::paintEvent(event);
    return;
  }
  QPainter painter(this);
  if (wrapping_) {
    style()->drawItemText(&painter, contentsRect(), Qt::AlignRight | Qt::AlignAbsolute | Qt::TextWordWrap,
                          palette(), isEnabled(), text(), foregroundRole());
    return;
  }
  const QString cut = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
  style()->drawItemText(&painter, contentsRect(), Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter,
                        palette(), isEnabled(), cut, foregroundRole());
}

void TextLabel::mouseReleaseEvent(QMouseEvent* event) {
  QLabel::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && rect().contains(event->pos()) && OnClicked) OnClicked();
}

bool TextLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && !wrapping_ && Cut()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
  }
  return QLabel::event(event);
}

}  // namespace goods
