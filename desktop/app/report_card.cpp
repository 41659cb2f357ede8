#include "desktop/app/report_card.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/app/app_look.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr int kLeastWidth = 280;
constexpr int kBestWidth = 350;
constexpr int kHeight = 96;

// What a report is about, in lines as wide as the card. The card gives the width, so the label does not look
// for one that suits it, which would lay out the text several times.
class AboutLabel : public QLabel {
 public:
  AboutLabel(const QString& text, QWidget* parent) : QLabel(text, parent) { MakeMuted(*this); }
  QSize sizeHint() const override { return {kLeastWidth / 2, fontMetrics().height()}; }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace

ReportCard::ReportCard(const CardTexts& texts, QWidget* parent) : QPushButton(parent), width_(kBestWidth) {
  const QString& reason = texts.reason;
  const bool allowed = reason.isEmpty();
  setObjectName(texts.name);
  setAccessibleName(texts.title);
  setAccessibleDescription(allowed ? texts.about : reason);
  setEnabled(allowed);
  setCursor(allowed ? Qt::PointingHandCursor : Qt::ArrowCursor);
  if (!allowed) setToolTip(reason);

  auto* title = new QLabel(texts.title, this);
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.15);
  font.setWeight(QFont::DemiBold);
  title->setFont(font);
  auto* shortcut = new QLabel(texts.key, this);
  shortcut->setForegroundRole(QPalette::PlaceholderText);
  if (!allowed) shortcut->hide();
  auto* about = new AboutLabel(texts.about, this);

  auto* head = new QHBoxLayout;
  head->addWidget(title);
  head->addStretch(1);
  head->addWidget(shortcut);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(18, 12, 20, 12);
  layout->setSpacing(4);
  layout->addLayout(head);
  layout->addWidget(about);
  if (!allowed) {
    auto* why = new QLabel(reason, this);
    why->setObjectName("Reason_LBL");
    why->setWordWrap(true);
    why->setStyleSheet("color: " + CurrentTheme().warning.name());
    layout->addWidget(why);
  }
  layout->addStretch(1);
  for (QLabel* label : findChildren<QLabel*>()) label->setAttribute(Qt::WA_TransparentForMouseEvents);
}

int ReportCard::LeastWidth() { return kLeastWidth; }

int ReportCard::BestWidth() { return kBestWidth; }

void ReportCard::SetCardWidth(int width) {
  if (width == width_) return;
  width_ = width;
  height_.reset();
  updateGeometry();
}

bool ReportCard::event(QEvent* event) {
  // Another text, font or style inside.
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::StyleChange ||
      event->type() == QEvent::FontChange)
    height_.reset();
  return QPushButton::event(event);
}

QSize ReportCard::sizeHint() const {
  if (!height_) height_ = std::max(kHeight, layout()->totalHeightForWidth(width_));
  return {width_, *height_};
}
QSize ReportCard::minimumSizeHint() const { return sizeHint(); }

void ReportCard::paintEvent(QPaintEvent* /*event*/) {
  const Theme& theme = CurrentTheme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool live = isEnabled();
  const QRectF box = QRectF(rect()).adjusted(1, 1, -1, -1);
  painter.setBrush(!live          ? theme.window
                   : isDown()     ? theme.accentSoft
                   : underMouse() ? theme.buttonHover
                                  : theme.surface);
  painter.setPen(QPen(hasFocus() ? theme.accent : theme.border, hasFocus() ? 2 : 1));
  painter.drawRoundedRect(box, 8, 8);
  // A stripe at the side where reading starts.
  painter.setPen(Qt::NoPen);
  painter.setBrush(live ? theme.accent : theme.border);
  const double right = layoutDirection() == Qt::RightToLeft ? box.right() - 8 : box.left() + 4;
  painter.drawRoundedRect(QRectF(right, box.top() + 14, 4, box.height() - 28), 2, 2);
}

}  // namespace goods
