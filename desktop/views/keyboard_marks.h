// The letters that choose something: with Alt in a window, by themselves in a menu. In a text "&" stands
// before one.
#pragma once

#include <QChar>
#include <QString>
#include <QStringList>
#include <set>

class QMenu;

namespace goods {

class TControl;
class TForm;

using Marks = std::set<QChar>;

// The letter that a text is marked by; a null character where it has no mark.
QChar MarkOf(const QString& text);
// As it is seen: without the mark, and without the key that stands behind a tab in an entry of a menu.
QString WithoutMark(const QString& text);
// What a company, a user or a report has named, as a text that has no mark.
QString AsPlain(QString text);
// Marks a text without a mark by one of its letters that is not taken, the first of a word before others; a
// text whose letters are all taken stays as it is. taken has the mark from then on.
QString Marked(const QString& text, Marks& taken);

// Marks the entries of a menu, and of the menus in it, each by a letter of its own; marks that are there
// stay. Menus inside get the names that readers say.
void MarkEntries(QMenu& menu);

// The captions of a strip's tabs, or of a page control's: those without a mark are marked by letters that
// nothing else in the window has. The component's own captions stay as they are.
QStringList TabCaptions(const TForm& form, const TControl& tabs);

}  // namespace goods
