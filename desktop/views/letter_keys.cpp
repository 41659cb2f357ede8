#include "desktop/views/letter_keys.h"

#include <algorithm>
#include <array>

namespace goods {
namespace {

// From A to Z: the letter of each key on the Persian layout (ISIRI 9147, and the older one without its
// changes, which have the same letters here).
constexpr std::array<char16_t, 26> kPersianLetters{u'ش', u'ذ', u'ز', u'ی', u'ث', u'ب', u'ل', u'ا', u'ه',
                                                   u'ت', u'ن', u'م', u'ئ', u'د', u'خ', u'ح', u'ض', u'ق',
                                                   u'س', u'ف', u'ع', u'ر', u'ص', u'ط', u'غ', u'ظ'};
constexpr char16_t kArabicYehOfD = u'ي';
constexpr int kDigits = 10;
constexpr char16_t kPersianNought = u'۰';
constexpr char16_t kArabicNought = u'٠';

int PersianKey(int key) {
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return kPersianLetters[static_cast<std::size_t>(key - Qt::Key_A)];
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return key - Qt::Key_0 + kPersianNought;
  return key;
}

}  // namespace

int LatinKey(int key) {
  for (const char16_t nought : {kPersianNought, kArabicNought})
    if (key >= nought && key < nought + kDigits) return Qt::Key_0 + key - nought;
  if (key == kArabicYehOfD) return Qt::Key_D;
  const auto letter = std::find(kPersianLetters.begin(), kPersianLetters.end(), key);
  return letter == kPersianLetters.end() ? key
                                         : Qt::Key_A + static_cast<int>(letter - kPersianLetters.begin());
}

QKeyEvent OnLatinLayout(const QKeyEvent& event) {
  const bool command = event.modifiers().testFlag(Qt::ControlModifier);
  return {event.type(), command ? LatinKey(event.key()) : event.key(), event.modifiers(), event.text(),
          event.isAutoRepeat()};
}

bool IsCommand(const QKeyEvent& event, QKeySequence::StandardKey command) {
  return OnLatinLayout(event).matches(command);
}

QList<QKeySequence> OnBothLayouts(const QKeySequence& keys) { return OnBothLayouts(QList{keys}); }

QList<QKeySequence> OnBothLayouts(const QList<QKeySequence>& keys) {
  QList<QKeySequence> both = keys;
  for (const QKeySequence& each : keys) {
    if (each.count() != 1) continue;
    const QKeyCombination latin = each[0];
    const int persian = PersianKey(latin.key());
    if (persian != latin.key())
      both << QKeySequence(QKeyCombination(latin.keyboardModifiers(), static_cast<Qt::Key>(persian)));
  }
  return both;
}

}  // namespace goods
