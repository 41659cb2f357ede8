#include "desktop/windows/balloon.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QTimer>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kShownMs = 5000;
constexpr int kNaturalWidth = 280;

class Balloon : public QLabel {
 public:
  Balloon(QWidget& beside, const QString& text)
      : QLabel(text, &beside, Qt::ToolTip | Qt::FramelessWindowHint) {
    setObjectName("Balloon");
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setTextFormat(Qt::PlainText);
    setLayoutDirection(Qt::RightToLeft);
    setWordWrap(true);
    setContentsMargins(12, 8, 12, 8);
    QTimer::singleShot(kShownMs, this, [this] { close(); });
    qApp->installEventFilter(this);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    const Theme& theme = CurrentTheme();
    painter.fillRect(rect(), theme.surface);
    painter.setPen(theme.warning);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.fillRect(width() - 4, 0, 4, height(), theme.warning);
    painter.end();
    QLabel::paintEvent(event);
  }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) close();
    return false;
  }
};

}  // namespace

void ShowBalloon(QWidget& beside, const QString& text, int width) {
  static QPointer<Balloon> shown;
  if (shown != nullptr) shown->close();
  auto* balloon = new Balloon(beside, text);
  shown = balloon;
  const int natural = balloon->fontMetrics().horizontalAdvance(text) + 30;
  const int most = Scaled(width > 0 ? width : kNaturalWidth, beside);
  balloon->setFixedWidth(width > 0 ? most : std::min(natural, most));
  balloon->adjustSize();
  QPoint at = beside.mapToGlobal(QPoint(beside.width() - balloon->width(), beside.height() + 4));
  const QRect screen = beside.screen()->availableGeometry();
  if (at.y() + balloon->height() > screen.bottom())
    at.setY(beside.mapToGlobal(QPoint(0, 0)).y() - balloon->height() - 4);
  at.setX(std::max(screen.left(), at.x()));
  balloon->move(at);
  balloon->show();
}

}  // namespace goods
