#include "desktop/views/keyboard_marks.h"

#include <QAction>
#include <QMenu>
#include <functional>

#include "desktop/views/shown_text.h"
#include "host/components/form.h"
#include "host/components/tabs.h"

namespace goods {
namespace {

// Letters that a Persian keyboard does not give, though texts may hold them; and those of Latin names.
constexpr char16_t kArabicYeh = 0x064A;
constexpr char16_t kArabicKaf = 0x0643;
constexpr char16_t kBehindAscii = 0x80;

bool CanMark(QChar letter) {
  return letter.isLetter() && letter >= kBehindAscii && letter != kArabicYeh && letter != kArabicKaf;
}

qsizetype MarkPlace(const QString& text) {
  for (qsizetype at = text.indexOf('&'); at >= 0 && at + 1 < text.size(); at = text.indexOf('&', at + 2)) {
    if (text[at + 1] != '&') return at;
  }
  return -1;
}

void Visit(const TControl& control, const std::function<void(const TControl&)>& look) {
  look(control);
  for (const TControl* each : control.Controls()) Visit(*each, look);
}

QStringList OwnCaptions(const TControl& tabs) {
  QStringList captions;
  if (const auto* strip = dynamic_cast<const TTabControl*>(&tabs)) {
    for (const std::string& caption : strip->Tabs()) captions << ShownText(caption);
  } else if (const auto* pages = dynamic_cast<const TPageControl*>(&tabs)) {
    for (const TTabSheet* page : pages->Pages()) captions << ShownText(page->Caption());
  }
  return captions;
}

}  // namespace

QChar MarkOf(const QString& text) {
  const qsizetype at = MarkPlace(text);
  return at < 0 ? QChar() : text[at + 1].toUpper();
}

QString WithoutMark(const QString& text) {
  QString plain = text.section('\t', 0, 0);
  const qsizetype at = MarkPlace(plain);
  if (at >= 0) plain.remove(at, 1);
  return plain.replace("&&", "&");
}

QString AsPlain(QString text) { return text.replace('&', "&&"); }

QString Marked(const QString& text, Marks& taken) {
  if (MarkPlace(text) >= 0) return text;
  const qsizetype end = text.indexOf('\t') < 0 ? text.size() : text.indexOf('\t');
  for (const bool beginnings : {true, false}) {
    for (qsizetype at = 0; at < end; ++at) {
      const bool begins = at == 0 || !text[at - 1].isLetterOrNumber();
      if ((beginnings && !begins) || !CanMark(text[at]) || taken.contains(text[at].toUpper())) continue;
      taken.insert(text[at].toUpper());
      return QString(text).insert(at, '&');
    }
  }
  return text;
}

void MarkEntries(QMenu& menu) {
  Marks taken;
  for (const QAction* action : menu.actions()) taken.insert(MarkOf(action->text()));
  for (QAction* action : menu.actions()) {
    if (action->isSeparator()) continue;
    action->setText(Marked(action->text(), taken));
    if (QMenu* inside = action->menu()) {
      inside->setAccessibleName(WithoutMark(action->text()));
      MarkEntries(*inside);
    }
  }
}

QStringList TabCaptions(const TForm& form, const TControl& tabs) {
  Marks taken;
  Visit(form, [&taken](const TControl& control) {
    taken.insert(MarkOf(ToQt(control.Caption())));
    for (const QString& caption : OwnCaptions(control)) taken.insert(MarkOf(caption));
  });
  // Strips before this one have their letters first, so that each has the same every time.
  QStringList marked;
  Visit(form, [&](const TControl& control) {
    QStringList captions = OwnCaptions(control);
    for (QString& caption : captions) caption = Marked(caption, taken);
    if (&control == &tabs) marked = captions;
  });
  return marked;
}

}  // namespace goods
