// How texts of components become what the user sees: Qt strings, Persian digits, numbers that keep their
// order.
#pragma once

#include <QRect>
#include <QString>
#include <QStringList>
#include <string>
#include <string_view>

#include "host/services/printing.h"

class QFontMetricsF;
class QPainter;
class QRectF;

namespace goods {

QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

// Whether digits are shown as Persian ones. On unless switched off; touches only what is painted, never a
// component's text, the clipboard or an export.
void SetPersianDigits(bool on);
bool PersianDigits();

// A text as it is shown: the digits by the switch, and each number with its minus behind kept in one piece
// inside right-to-left text.
QString ShownText(std::string_view text);
QString ShownText(const QString& text);
inline QString ShownText(const char* text) { return ShownText(std::string_view(text)); }
// The digits alone, so that every character stays at its place: for texts with a caret.
QString ShownDigits(QString text);
// A number of a cell or footer, with the separators that belong to the digits.
QString ShownNumber(QString text);

// Digits, separators and signs only, with at least one digit: reads from left to right wherever it stands.
bool IsNumberLike(const QString& text);
bool HasRightToLeft(const QString& text);

// Draws one line of a table cell: elided where it is too long, numbers never reordered. rightToLeft says
// where TextAlign::Start is. Gives back whether the text was cut.
bool DrawCell(QPainter& painter, const QRect& box, const QString& text, TextAlign align, bool rightToLeft);
// A title in lines of at most width, broken between words; what is too long for the last line stays on it.
QStringList WrappedWords(const QString& text, const QFontMetricsF& metrics, double width, int mostLines);
// Draws lines centred in box, cut where they are too long.
void DrawLines(QPainter& painter, const QRectF& box, const QStringList& lines, double lineHeight);
// What DrawCell is given for a cell.
QString ShownCell(std::string_view text, bool isNumber);

}  // namespace goods
