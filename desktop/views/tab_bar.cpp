#include "desktop/views/tab_bar.h"

#include <QPainter>
#include <QStyle>
#include <QWheelEvent>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kTabPadding = 14;
constexpr int kHeightExtra = 14;
constexpr double kMarkWidth = 3;

QFont ChosenFont(const QFont& font) {
  QFont chosen(font);
  chosen.setWeight(QFont::DemiBold);
  return chosen;
}

}  // namespace

TabBar::TabBar(QWidget* parent) : QTabBar(parent) {
  setDrawBase(false);
  setExpanding(false);
  setUsesScrollButtons(true);
  setElideMode(Qt::ElideNone);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize TabBar::tabSizeHint(int index) const {
  const QFontMetrics metrics(ChosenFont(font()));
  const int text = metrics.size(Qt::TextShowMnemonic, tabText(index)).width();
  return {text + 2 * Scaled(kTabPadding, *this), LineHeight(font()) + Scaled(kHeightExtra, *this)};
}

QSize TabBar::minimumTabSizeHint(int index) const { return tabSizeHint(index); }

void TabBar::PaintTab(QPainter& painter, int index, bool hovered) const {
  const Theme& theme = CurrentTheme();
  const QRect tab = tabRect(index);
  const bool chosen = index == currentIndex();
  const QRectF box = QRectF(tab).adjusted(1.5, 2.5, -1.5, -4.5);
  if ((hovered && !chosen) || (chosen && hasFocus())) {
    painter.setPen(chosen ? QPen(theme.accent, 1.4) : QPen(Qt::NoPen));
    painter.setBrush(chosen ? theme.accentSoft : theme.buttonHover);
    painter.drawRoundedRect(box, 5, 5);
  }
  if (chosen) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(isEnabled() ? theme.accent : theme.border);
    painter.drawRoundedRect(
        QRectF(tab.left() + 6, tab.bottom() + 1 - kMarkWidth, tab.width() - 12, kMarkWidth), 1.5, 1.5);
  }
  painter.setFont(chosen ? ChosenFont(font()) : font());
  const QColor muted = chosen || hovered ? theme.text : theme.mutedText;
  painter.setPen(isEnabled() && isTabEnabled(index) ? muted : theme.border);
  const bool marked = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
  const int marks = marked ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
  painter.drawText(tab.adjusted(0, 0, 0, -2), Qt::AlignCenter | Qt::TextSingleLine | marks, tabText(index));
}

void TabBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setLayoutDirection(layoutDirection());
  painter.fillRect(QRectF(0, height() - 1, width(), 1), CurrentTheme().border);
  const int under = underMouse() ? tabAt(mapFromGlobal(QCursor::pos())) : -1;
  for (int index = 0; index < count(); ++index) {
    if (isTabVisible(index)) PaintTab(painter, index, index == under);
  }
}

// The wheel does not turn a page in passing.
void TabBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace goods
