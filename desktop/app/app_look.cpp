#include "desktop/app/app_look.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QShortcut>
#include <utility>

#include "desktop/views/letter_keys.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "desktop/windows/message_dialog.h"

namespace goods {

QLabel* TitleLabel(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 1.5);
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
  label->setWordWrap(true);
  return label;
}

void MakeMuted(QLabel& label) {
  label.setTextFormat(Qt::PlainText);
  label.setForegroundRole(QPalette::PlaceholderText);
  label.setWordWrap(true);
}

QLabel* MutedLabel(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  MakeMuted(*label);
  return label;
}

QLabel* ProblemLabel(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName("Problem_LBL");
  label->setTextFormat(Qt::PlainText);
  label->setForegroundRole(QPalette::BrightText);
  label->setWordWrap(true);
  label->hide();
  return label;
}

QPushButton* ButtonWithKey(const char* name, const QString& text, const QKeySequence& key, QWidget& window,
                           std::function<void()> action) {
  auto* button = new QPushButton(text, &window);
  button->setObjectName(name);
  button->setAutoDefault(false);
  QObject::connect(button, &QPushButton::clicked, &window, std::move(action));
  auto* shortcut = new QShortcut(&window);
  shortcut->setKeys(OnBothLayouts(key));
  QObject::connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
  return button;
}

void Tell(const QString& text) {
  ShownMessage message;
  message.caption = kProgramTitle;
  message.text = FromQt(text);
  message.icon = MessageIcon::Error;
  MessageDialog(message, QApplication::activeWindow()).exec();
}

namespace {

void PaintProgramSign(QPainter& painter, double size) {
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme& theme = CurrentTheme();
  const double unit = size / 16.0;
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.accent);
  painter.drawRoundedRect(QRectF(0, 0, size, size), 3.2 * unit, 3.2 * unit);
  // A card: its head, and rows that run from the right.
  painter.setBrush(theme.accentText);
  painter.drawRoundedRect(QRectF(3.5 * unit, 3.5 * unit, 9 * unit, 1.8 * unit), unit * 0.6, unit * 0.6);
  painter.setOpacity(0.85);
  double top = 6.8;
  for (const double length : {9.0, 6.5, 4.0}) {
    painter.drawRoundedRect(QRectF((12.5 - length) * unit, top * unit, length * unit, 1.1 * unit), unit * 0.5,
                            unit * 0.5);
    top += 2.1;
  }
}

class ProgramSignView : public QWidget {
 public:
  ProgramSignView(int size, QWidget* parent) : QWidget(parent) { setFixedSize(size, size); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PaintProgramSign(painter, width());
  }
};

}  // namespace

QWidget* ProgramSign(int size, QWidget* parent) { return new ProgramSignView(size, parent); }

QPixmap ProgramIcon(int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  PaintProgramSign(painter, size);
  return pixmap;
}

}  // namespace goods
