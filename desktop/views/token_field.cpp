#include "desktop/views/token_field.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <algorithm>

#include "desktop/views/line_edit.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/style.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kMargin = 4;
constexpr int kTokenGap = 5;
constexpr int kChipPadding = 9;
constexpr int kCrossRoom = 18;
constexpr int kTokenEditWidth = 80;
constexpr int kNaturalWidth = 180;

}  // namespace

TokenField::TokenField(QWidget* parent) : QWidget(parent), line_(new LineEdit(this)) {
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setFocusProxy(line_);
  line_->setFrame(false);
  line_->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
  line_->setAttribute(Qt::WA_MacShowFocusRect, false);
  line_->setStyleSheet("QLineEdit { border: none; background: transparent; padding: 0; }");
}

int TokenField::ChipHeight() const { return LineHeight(font()) + Scaled(4, *this); }

void TokenField::Show(const std::vector<TToken>& tokens, bool readOnly) {
  const auto same = [](const Chip& chip, const TToken& token) {
    return chip.token.Code == token.Code && chip.token.Text == token.Text &&
           chip.token.Background == token.Background;
  };
  if (readOnly == readOnly_ && chips_.size() == tokens.size() &&
      std::equal(chips_.begin(), chips_.end(), tokens.begin(), same))
    return;
  readOnly_ = readOnly;
  chips_.clear();
  for (const TToken& token : tokens) chips_.push_back({token, {}});
  hovered_.reset();
  line_->setReadOnly(readOnly);
  line_->setCursor(readOnly ? Qt::ArrowCursor : Qt::IBeamCursor);
  LayOut();
  update();
}

void TokenField::LayOut() {
  const int margin = Scaled(kMargin, *this);
  const int gap = Scaled(kTokenGap, *this);
  const int height = ChipHeight();
  const int room = std::max(1, width() - 2 * margin);
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  int start = 0;  // in reading direction
  int top = margin;
  const auto place = [&](int length) {
    if (start > 0 && start + length > room) {
      start = 0;
      top += height + gap;
    }
    const int left = rightToLeft ? width() - margin - start - length : margin + start;
    start += length + gap;
    return QRect(left, top, length, height);
  };
  const int around = 2 * Scaled(kChipPadding, *this) + (readOnly_ ? 0 : Scaled(kCrossRoom, *this));
  for (Chip& chip : chips_) {
    const int text = fontMetrics().horizontalAdvance(ShownText(chip.token.Text));
    chip.place = place(std::min(room, text + around));
  }
  if (readOnly_) {
    // Only there to have the keyboard.
    line_->setGeometry(rightToLeft ? margin : width() - margin - 1, top, 1, height);
  } else {
    QRect edit = place(std::min(room, Scaled(kTokenEditWidth, *this)));
    if (rightToLeft) {
      edit.setLeft(margin);
    } else {
      edit.setRight(width() - margin);
    }
    line_->setGeometry(edit);
  }
  const int needed = std::max(top + height + margin, LineHeight(font()) + Scaled(12, *this));
  if (minimumHeight() != needed || maximumHeight() != needed) setFixedHeight(needed);
}

QSize TokenField::sizeHint() const { return {Scaled(kNaturalWidth, *this), minimumHeight()}; }
QSize TokenField::minimumSizeHint() const { return {Scaled(kTokenEditWidth, *this), minimumHeight()}; }

QRect TokenField::CrossRect(std::size_t index) const {
  if (readOnly_) return {};
  const QRect& place = chips_[index].place;
  const int room = Scaled(kCrossRoom, *this) + Scaled(kChipPadding, *this) / 2;
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  return {rightToLeft ? place.left() : place.right() + 1 - room, place.top(), room, place.height()};
}

void TokenField::PaintChip(QPainter& painter, std::size_t index) const {
  const Theme& theme = CurrentTheme();
  const Chip& chip = chips_[index];
  const QColor fill = chip.token.Background ? QColor::fromRgb(*chip.token.Background) : theme.accentSoft;
  const QColor ink = ReadableOn(fill);
  const double radius = chip.place.height() / 2.0;
  painter.setPen(Mixed(fill, theme.text, 0.3));
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(chip.place).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  const int padding = Scaled(kChipPadding, *this);
  const int far = readOnly_ ? padding : Scaled(kCrossRoom, *this) + padding / 2;
  const QRect box =
      rightToLeft ? chip.place.adjusted(far, 0, -padding, 0) : chip.place.adjusted(padding, 0, -far, 0);
  painter.setPen(ink);
  DrawCell(painter, box, ShownText(chip.token.Text), TextAlign::Start, rightToLeft);
  if (readOnly_) return;
  const QPointF center = QRectF(CrossRect(index)).center();
  const double half = 3.5 * Scaled(100, *this) / 100;
  if (hovered_ == index) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Mixed(fill, ink, 0.22));
    painter.drawEllipse(center, half * 2, half * 2);
  }
  painter.setPen(QPen(ink, 1.4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(center - QPointF(half, half), center + QPointF(half, half));
  painter.drawLine(center - QPointF(half, -half), center + QPointF(half, -half));
}

// One that only shows has no frame of a field, except the mark that it has the keyboard.
void TokenField::PaintFrame(QPainter& painter) {
  if (readOnly_) {
    if (!line_->hasFocus()) return;
    painter.setPen(CurrentTheme().accent);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    return;
  }
  QStyleOptionFrame option;
  option.initFrom(this);
  option.state.setFlag(QStyle::State_HasFocus, line_->hasFocus());
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
}

void TokenField::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintFrame(painter);
  painter.setOpacity(isEnabled() ? 1 : 0.5);
  for (std::size_t i = 0; i < chips_.size(); ++i) PaintChip(painter, i);
}

void TokenField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down && OnDown) return OnDown();
  QWidget::keyPressEvent(event);
}

void TokenField::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
}

void TokenField::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange) LayOut();
}

std::optional<std::size_t> TokenField::ChipAt(const QPoint& point) const {
  for (std::size_t i = 0; i < chips_.size(); ++i) {
    if (chips_[i].place.contains(point)) return i;
  }
  return std::nullopt;
}

void TokenField::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  line_->setFocus(Qt::MouseFocusReason);
  const auto chip = ChipAt(event->pos());
  if (!chip && OnPressed) OnPressed();
  if (!chip || readOnly_ || !CrossRect(*chip).contains(event->pos()) || !OnRemove) return;
  const std::string code = chips_[*chip].token.Code;
  OnRemove(code);
}

void TokenField::mouseMoveEvent(QMouseEvent* event) {
  const auto chip = ChipAt(event->pos());
  const auto now = chip && CrossRect(*chip).contains(event->pos()) ? chip : std::nullopt;
  if (now == hovered_) return;
  hovered_ = now;
  setCursor(now ? Qt::PointingHandCursor : Qt::ArrowCursor);
  update();
}

bool TokenField::Cut(const Chip& chip) const {
  return chip.place.width() >= width() - 2 * Scaled(kMargin, *this);
}

bool TokenField::event(QEvent* event) {
  if (event->type() == QEvent::Leave && hovered_) {
    hovered_.reset();
    update();
  } else if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const auto chip = ChipAt(help->pos()); chip && Cut(chips_[*chip])) {
      QToolTip::showText(help->globalPos(), ShownText(chips_[*chip].token.Text), this);
      return true;
    }
  }
  return QWidget::event(event);
}

}  // namespace goods
