#include "desktop/views/group_title.h"

#include <QPainter>
#include <QStyle>

#include "desktop/views/style.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kArrowRoom = 22;
constexpr int kTitlePadding = 6;

}  // namespace

GroupTitle::GroupTitle(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::NoFocus);  // the keyboard folds by the accelerator and by the window's own keys
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAttribute(Qt::WA_Hover);
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
}

void GroupTitle::Show(const QString& caption, bool foldable, bool folded) {
  if (text() == caption && foldable_ == foldable && folded_ == folded) return;
  setText(caption);
  foldable_ = foldable;
  folded_ = folded;
  setEnabled(true);
  setCursor(foldable ? Qt::PointingHandCursor : Qt::ArrowCursor);
  updateGeometry();
  update();
}

QSize GroupTitle::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(text()) + Scaled(kArrowRoom + 2 * kTitlePadding, *this),
          LineHeight(font()) + Scaled(8, *this)};
}

void GroupTitle::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Theme& theme = CurrentTheme();
  QRect box = rect();
  if (foldable_ && underMouse()) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.buttonHover);
    painter.drawRoundedRect(box, 5, 5);
  }
  box.adjust(Scaled(kTitlePadding, *this), 0, -Scaled(kTitlePadding, *this), 0);
  if (foldable_) {
    const int room = Scaled(kArrowRoom, *this);
    const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
    const QRect arrow(rightToLeft ? box.right() - room + 1 : box.left(), box.top(), room, box.height());
    const double side = Scaled(8, *this);
    const QPointF center = QRectF(arrow).center();
    const int degrees = !folded_ ? 0 : rightToLeft ? 90 : -90;
    DrawArrow(painter, QRectF(center.x() - side / 2, center.y() - side / 2, side, side), theme.accent,
              degrees);
    box = rightToLeft ? box.adjusted(0, 0, -room, 0) : box.adjusted(room, 0, 0, 0);
  }
  const bool marked = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
  const int marks = marked ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
  // Absolute, since the style and the painter would each turn a leading alignment round.
  const int side = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(box, Qt::AlignVCenter | side | Qt::AlignAbsolute | Qt::TextSingleLine | marks, text());
}

}  // namespace goods
