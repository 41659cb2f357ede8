#include "desktop/windows/waiting_panel.h"

#include <QPainter>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kCardWidth = 360;
constexpr int kCardHeight = 126;
constexpr int kBarMargin = 28;
constexpr int kSweepMs = 1400;
constexpr double kBarShare = 0.3;

}  // namespace

WaitingPanel::WaitingPanel(QWidget* over) : QWidget(over->window()) {
  setObjectName("WaitingPanel");
  setAccessibleName("در حال انجام کار");
  setGeometry(window()->rect());
  clock_.start();
}

void WaitingPanel::Show(const QString& text, const QString& rows) {
  text_ = text;
  rows_ = rows;
  setAccessibleDescription(text + ' ' + rows);
  setGeometry(parentWidget()->rect());
  show();
  raise();
  update();
}

void WaitingPanel::paintEvent(QPaintEvent* /*event*/) {
  const Theme& theme = CurrentTheme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor veil = theme.window;
  veil.setAlpha(170);
  painter.fillRect(rect(), veil);
  QRectF card(0, 0, std::min(Scaled(kCardWidth, *this), width() - 16), Scaled(kCardHeight, *this));
  card.moveCenter(QRectF(rect()).center());
  painter.setPen(theme.border);
  painter.setBrush(theme.surface);
  painter.drawRoundedRect(card, 10, 10);
  painter.setLayoutDirection(Qt::RightToLeft);
  const int line = LineHeight(font()) + 6;
  QRectF box(card.left() + 16, card.top() + 14, card.width() - 32, line);
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(theme.text);
  painter.drawText(box, Qt::AlignCenter,
                   painter.fontMetrics().elidedText(text_, Qt::ElideRight, qRound(box.width())));
  painter.setFont(font());
  painter.setPen(theme.mutedText);
  box.translate(0, line);
  painter.drawText(box, Qt::AlignCenter, rows_);
  const QRectF groove(card.left() + kBarMargin, box.bottom() + 8, card.width() - 2 * kBarMargin, 5);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.header);
  painter.drawRoundedRect(groove, 2.5, 2.5);
  const double phase = static_cast<double>(clock_.elapsed() % kSweepMs) / kSweepMs;
  QRectF bar(groove);
  bar.setWidth(groove.width() * kBarShare);
  bar.moveRight(groove.right() - (groove.width() - bar.width()) * phase);  // in reading direction
  painter.setBrush(theme.accent);
  painter.drawRoundedRect(bar, 2.5, 2.5);
  painter.setPen(theme.mutedText);
  box.moveTop(groove.bottom() + 8);
  painter.drawText(box, Qt::AlignCenter, QString::fromUtf8("لغو: Esc"));
}

}  // namespace goods
