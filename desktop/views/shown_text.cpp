#include "desktop/views/shown_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "desktop/views/thousands.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr char16_t kIsolateLeftToRight = 0x2066;
constexpr char16_t kPopIsolate = 0x2069;
constexpr char16_t kFirstPersianDigit = 0x06F0;
constexpr std::size_t kLongestShown = 2000;  // characters of a cell, caption or hint

bool g_persianDigits = true;

bool IsAsciiDigit(QChar c) { return c >= u'0' && c <= u'9'; }

bool IsLatinLetter(QChar c) { return c.isLetter() && c < u'\x80'; }

// Whether a number at that place belongs to a Latin name, such as that of the keys F2 and Alt+2.
bool EndsKeyName(const QString& text, qsizetype at) {
  if (at > 1 && text[at - 1] == u'+') --at;
  return at > 0 && IsLatinLetter(text[at - 1]);
}

// What a file brings may be of any length; measuring and drawing a text takes time with its length.
QString Shortened(std::string_view text) {
  if (text.size() <= kLongestShown) return ToQt(text);
  const std::string_view first = FirstChars(text, kLongestShown);
  return first.size() == text.size() ? ToQt(text) : ToQt(first) + QChar(0x2026);
}

bool IsInsideNumber(QChar c) { return IsAsciiDigit(c) || c == u',' || c == u'.'; }

}  // namespace

QString ToQt(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<int>(text.size())); }

std::string FromQt(const QString& text) { return text.toStdString(); }

void SetPersianDigits(bool on) { g_persianDigits = on; }
bool PersianDigits() { return g_persianDigits; }

QString ShownDigits(QString text) {
  if (!g_persianDigits) return text;
  for (QChar& c : text) {
    if (IsAsciiDigit(c)) c = QChar(static_cast<char16_t>(kFirstPersianDigit + (c.unicode() - u'0')));
  }
  return text;
}

QString ShownNumber(QString text) {
  if (!g_persianDigits) return text;
  // The Unicode separators of Persian look like zeros and like each other at the size of a cell; the slash is
  // what Persian books are printed with.
  if (text.count(u'.') == 1) text.replace(u'.', u'/');
  return ShownDigits(std::move(text));
}

QString ShownText(std::string_view text) { return ShownText(Shortened(text)); }

QString ShownText(const QString& text) {
  QString out;
  out.reserve(text.size() + 2);
  for (qsizetype i = 0; i < text.size();) {
    qsizetype end = i;
    while (end < text.size() && IsInsideNumber(text[end])) ++end;
    const bool number = end > i && IsAsciiDigit(text[i]) && IsAsciiDigit(text[end - 1]);
    if (!number) {
      const qsizetype stop = end > i ? end : i + 1;
      out += text.mid(i, stop - i);
      i = stop;
      continue;
    }
    const bool partOfName = EndsKeyName(text, i);
    const QString shown = partOfName ? text.mid(i, end - i) : ShownNumber(text.mid(i, end - i));
    const bool minusBehind = end < text.size() && text[end] == u'-' &&
                             (end + 1 == text.size() || !text[end + 1].isLetterOrNumber());
    if (minusBehind) {
      out += QChar(kIsolateLeftToRight) + shown + u'-' + QChar(kPopIsolate);
      ++end;
    } else {
      out += shown;
    }
    i = end;
  }
  return out;
}

bool IsNumberLike(const QString& text) {
  const bool anyDigit = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
  return anyDigit && std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

bool HasRightToLeft(const QString& text) {
  return std::any_of(text.begin(), text.end(),
                     [](QChar c) { return c.direction() == QChar::DirR || c.direction() == QChar::DirAL; });
}

QString ShownCell(std::string_view text, bool isNumber) {
  QString shown = Shortened(text);
  if (isNumber) return ShownNumber(ThousandsSeparators() ? InThousands(std::move(shown)) : std::move(shown));
  return IsNumberLike(shown) ? ShownDigits(std::move(shown)) : ShownText(shown);
}

QStringList WrappedWords(const QString& text, const QFontMetricsF& metrics, double width, int mostLines) {
  QStringList lines;
  for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
    const bool fits = !lines.isEmpty() && metrics.horizontalAdvance(lines.back() + ' ' + word) <= width;
    if (fits || lines.size() == mostLines) {
      lines.back() += ' ' + word;
    } else {
      lines << word;
    }
  }
  return lines;
}

void DrawLines(QPainter& painter, const QRectF& box, const QStringList& lines, double lineHeight) {
  painter.setLayoutDirection(Qt::RightToLeft);
  const QFontMetricsF metrics(painter.font());
  double top = box.center().y() - lineHeight * static_cast<double>(lines.size()) / 2;
  for (const QString& line : lines) {
    const QString shown = metrics.elidedText(line, Qt::ElideRight, box.width());
    painter.drawText(QRectF(box.left(), top, box.width(), lineHeight), Qt::AlignCenter | Qt::TextDontClip,
                     shown);
    top += lineHeight;
  }
}

bool DrawCell(QPainter& painter, const QRect& box, const QString& text, TextAlign align, bool rightToLeft) {
  if (text.isEmpty() || box.width() <= 0) return false;
  const bool atRight = (align == TextAlign::Start) == rightToLeft;
  const int horizontal = align == TextAlign::Center ? Qt::AlignHCenter
                         : atRight                  ? Qt::AlignRight
                                                    : Qt::AlignLeft;
  const int flags = horizontal | Qt::AlignVCenter | Qt::AlignAbsolute | Qt::TextSingleLine | Qt::TextDontClip;
  painter.setLayoutDirection(HasRightToLeft(text) ? Qt::RightToLeft : Qt::LeftToRight);
  const QFontMetrics metrics = painter.fontMetrics();
  if (metrics.horizontalAdvance(text) <= box.width()) {
    painter.drawText(box, flags, text);
    return false;
  }
  painter.drawText(box, flags, metrics.elidedText(text, Qt::ElideRight, box.width()));
  return true;
}

}  // namespace goods
