// Commands are named by the Latin letter of a key. They hold on the Persian layout too, where the same key
// gives another letter, and digits another script.
#pragma once

#include <QKeyEvent>
#include <QKeySequence>
#include <QList>

namespace goods {

// The Latin letter or digit on the key that gives this one; any other key as it is.
int LatinKey(int key);
// The event as a Latin layout would have it, where Ctrl is held; others, which may be typing, as they are.
QKeyEvent OnLatinLayout(const QKeyEvent& event);
// Whether the event is that command of the toolkit, such as QKeySequence::Copy, on either layout.
bool IsCommand(const QKeyEvent& event, QKeySequence::StandardKey command);
// For a shortcut: the keys, and behind them what the Persian layout gives for the same ones.
QList<QKeySequence> OnBothLayouts(const QKeySequence& keys);
QList<QKeySequence> OnBothLayouts(const QList<QKeySequence>& keys);

}  // namespace goods
