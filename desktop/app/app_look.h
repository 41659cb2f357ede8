// What the application's own windows share in looks.
#pragma once

#include <QKeySequence>
#include <QLabel>
#include <QPixmap>
#include <QString>
#include <functional>

class QPushButton;

namespace goods {

inline constexpr const char* kProgramTitle = "گزارش‌های گردش کالا";

// A title line, a line of less weight, and a line that says what is wrong (hidden until it has a text).
QLabel* TitleLabel(const QString& text, QWidget* parent);
QLabel* MutedLabel(const QString& text, QWidget* parent);
QLabel* ProblemLabel(QWidget* parent);
// Gives a label of another kind the look of MutedLabel.
void MakeMuted(QLabel& label);

// A button of a window that its key presses, too, from everywhere in the window.
QPushButton* ButtonWithKey(const char* name, const QString& text, const QKeySequence& key, QWidget& window,
                           std::function<void()> action);

// Shows a message with one button, over the active window.
void Tell(const QString& text);

// The sign of the program, for windows and the about box.
QWidget* ProgramSign(int size, QWidget* parent);
QPixmap ProgramIcon(int size);

}  // namespace goods
