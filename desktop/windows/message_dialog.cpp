#include "desktop/windows/message_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kIconSide = 38;
constexpr int kTextWidth = 360;
constexpr int kDetailsHeight = 110;

QPixmap IconOf(MessageIcon icon, const QWidget& device) {
  const Theme& theme = CurrentTheme();
  const double ratio = device.devicePixelRatioF();
  const int side = Scaled(kIconSide, device);
  QPixmap pixmap(qRound(side * ratio), qRound(side * ratio));
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor color = icon == MessageIcon::Error     ? theme.problem
                       : icon == MessageIcon::Warning ? theme.warning
                                                      : theme.accent;
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(QRectF(1, 1, side - 2, side - 2));
  painter.setPen(QPen(theme.dark ? theme.window : Qt::white, side / 11.0, Qt::SolidLine, Qt::RoundCap));
  const double middle = side / 2.0;
  const double reach = side / 6.0;
  if (icon == MessageIcon::Error) {
    painter.drawLine(QPointF(middle - reach, middle - reach), QPointF(middle + reach, middle + reach));
    painter.drawLine(QPointF(middle + reach, middle - reach), QPointF(middle - reach, middle + reach));
  } else {
    const int turn = icon == MessageIcon::Warning ? 1 : -1;  // "!", and the same upside down for "i"
    painter.drawLine(QPointF(middle, middle - turn * side * 0.24),
                     QPointF(middle, middle + turn * side * 0.06));
    painter.drawPoint(QPointF(middle, middle + turn * side * 0.23));
  }
  return pixmap;
}

}  // namespace

MessageDialog::MessageDialog(const ShownMessage& message, QWidget* parent) : QDialog(parent) {
  setObjectName("MessageDialog");
  setLayoutDirection(Qt::RightToLeft);
  setWindowTitle(ToQt(message.caption));
  auto* layout = new QVBoxLayout(this);
  const int margin = Scaled(16, *this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  auto* top = new QHBoxLayout;
  top->setSpacing(margin);
  if (message.icon != MessageIcon::None) {
    auto* icon = new QLabel(this);
    icon->setPixmap(IconOf(message.icon, *this));
    top->addWidget(icon, 0, Qt::AlignTop);
  }
  auto* text = new QLabel(ShownText(message.text), this);
  text->setObjectName("Text");
  text->setTextFormat(Qt::PlainText);
  text->setWordWrap(true);
  text->setMinimumWidth(Scaled(kTextWidth, *this));
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  top->addWidget(text, 1);
  layout->addLayout(top);
  auto* details = new QPlainTextEdit(ToQt(message.details), this);
  details->setReadOnly(true);
  details->setLayoutDirection(Qt::LeftToRight);
  details->setFixedHeight(Scaled(kDetailsHeight, *this));
  details->hide();
  layout->addWidget(details);
  auto* buttons = new QHBoxLayout;
  auto* accept = new QPushButton(message.question ? "&بله" : "&تأیید", this);
  accept->setObjectName("Accept");
  accept->setDefault(true);
  accept->setMinimumWidth(Scaled(84, *this));
  connect(accept, &QPushButton::clicked, this, &QDialog::accept);
  buttons->addWidget(accept);
  if (message.question) {
    auto* reject = new QPushButton("&خیر", this);
    reject->setObjectName("Reject");
    reject->setMinimumWidth(Scaled(84, *this));
    connect(reject, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(reject);
  }
  buttons->addStretch();
  if (!message.details.empty()) {
    auto* more = new QPushButton("&جزئیات", this);
    more->setCheckable(true);
    more->setAutoDefault(false);
    connect(more, &QPushButton::toggled, details, &QWidget::setVisible);
    buttons->addWidget(more);
  }
  layout->addLayout(buttons);
}

}  // namespace goods
