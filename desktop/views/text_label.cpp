#include "desktop/views/text_label.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

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

QSize TextLabel::minimumSizeHint() const {
  QSize size = QLabel::minimumSizeHint();
  if (shrinkable_) size.setWidth(fontMetrics().averageCharWidth() * 4);
  return size;
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
  const QString cut = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
  style()->drawItemText(&painter, contentsRect(), Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter,
                        palette(), isEnabled(), cut, foregroundRole());
}

void TextLabel::mouseReleaseEvent(QMouseEvent* event) {
  QLabel::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && rect().contains(event->pos()) && OnClicked) OnClicked();
}

bool TextLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && Cut()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
  }
  return QLabel::event(event);
}

}  // namespace goods
