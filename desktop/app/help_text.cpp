#include "desktop/app/help_text.h"

#include <QImage>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>
#include <algorithm>

namespace goods {
namespace {

constexpr int kWidestPicture = 880;
constexpr int kNarrowestPicture = 240;
constexpr int kPageMargin = 18;
constexpr int kScrollBarRoom = 24;
constexpr int kCellPadding = 5;
constexpr int kSettleMs = 150;

// The other ways of writing a letter or digit.
QString Variants(QChar letter) {
  static const QStringList kSame{"یيى", "کك", "هة", "اآأإ"};
  for (const QString& group : kSame) {
    if (group.contains(letter)) return group;
  }
  const int digit = letter.digitValue();
  if (digit < 0) return letter;
  return QString(QChar('0' + digit)) + QChar(0x06F0 + digit) + QChar(0x0660 + digit);
}

QRegularExpression Reading(const QString& text) {
  QString pattern;
  for (const QChar letter : text.trimmed()) {
    if (letter.isSpace() || letter == QChar(0x200C)) {
      pattern += "[\\s\\x{200C}]+";
    } else {
      const QString variants = Variants(letter);
      // A zero-width non-joiner that was not typed is no difference.
      pattern +=
          (variants.size() > 1 ? '[' + variants + ']' : QRegularExpression::escape(variants)) + "\\x{200C}?";
    }
  }
  return QRegularExpression(
      pattern, QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
}

// A table of Qt's has its first column at the left, whatever the direction of its text.
QByteArray FirstColumnLast(const QByteArray& page) {
  QList<QByteArray> lines = page.split('\n');
  for (QByteArray& line : lines) {
    if (!line.startsWith('|')) continue;
    QList<QByteArray> cells = line.mid(1, line.lastIndexOf('|') - 1).split('|');
    std::reverse(cells.begin(), cells.end());
    line = '|' + cells.join('|') + '|';
  }
  return lines.join('\n');
}

}  // namespace

HelpText::HelpText(QWidget* parent) : QTextBrowser(parent) {
  setLayoutDirection(Qt::RightToLeft);
  setOpenExternalLinks(false);
  document()->setDocumentMargin(kPageMargin);
  resized_.setSingleShot(true);
  resized_.setInterval(kSettleMs);
  connect(&resized_, &QTimer::timeout, this, [this] {
    if (PictureWidth() == pictureWidth_ || source().isEmpty()) return;
    const int at = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(at);
  });
}

int HelpText::PictureWidth() const {
  return std::clamp(viewport()->width() - 2 * kPageMargin - kScrollBarRoom, kNarrowestPicture,
                    kWidestPicture);
}

QVariant HelpText::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource)
    return FirstColumnLast(QTextBrowser::loadResource(type, name).toByteArray());
  const QUrl full = name.isRelative() ? source().resolved(name) : name;
  QImage picture(":" + full.path());
  if (picture.isNull()) return {};
  pictureWidth_ = PictureWidth();
  const double sharpness = devicePixelRatioF();
  const int width = std::min(static_cast<int>(pictureWidth_ * sharpness), picture.width());
  picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
  picture.setDevicePixelRatio(sharpness);
  return picture;
}

void HelpText::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  QTextBrowser::doSetSource(name, type);
  Arrange();
}

void HelpText::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  resized_.start();
}

// A line that begins with the name of a key would read from left to right, and tables stand that way by
// default.
void HelpText::Arrange() {
  QTextOption option = document()->defaultTextOption();
  option.setTextDirection(Qt::RightToLeft);
  document()->setDefaultTextOption(option);
  QTextCursor all(document());
  all.select(QTextCursor::Document);
  QTextBlockFormat rightToLeft;
  rightToLeft.setLayoutDirection(Qt::RightToLeft);
  all.mergeBlockFormat(rightToLeft);
  for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorder(1);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    format.setBorderBrush(palette().mid());
    format.setCellPadding(kCellPadding);
    format.setCellSpacing(0);
    table->setFormat(format);
  }
  moveCursor(QTextCursor::Start);
}

bool HelpText::Find(const QString& text, bool backwards, bool stay) {
  if (text.trimmed().isEmpty()) return true;
  const QRegularExpression reading = Reading(text);
  QTextDocument::FindFlags flags;
  if (backwards) flags |= QTextDocument::FindBackward;
  QTextCursor from = textCursor();
  if (stay) from.setPosition(from.selectionStart());
  QTextCursor found = document()->find(reading, from, flags);
  if (found.isNull()) {
    QTextCursor edge(document());
    if (backwards) edge.movePosition(QTextCursor::End);
    found = document()->find(reading, edge, flags);
  }
  if (found.isNull()) return false;
  setTextCursor(found);
  ensureCursorVisible();
  return true;
}

}  // namespace goods
