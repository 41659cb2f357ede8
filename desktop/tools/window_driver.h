// Driving windows by program: waits, keys, and steps for the modal window that is about to open.
#pragma once

#include <QImage>
#include <QKeySequence>
#include <QSize>
#include <QString>
#include <functional>

class QWidget;

namespace goods {

// The screen of a program that runs without one, in its own pixels, and the factor that everything is shown
// at. To be called before the application is made; without it the screen has 800 x 800 pixels.
void UseOffscreenScreen(QSize pixels, double scale = 1);

// Lets the message loop run for that long.
void Wait(int milliseconds);
// Lets it run until the condition holds; false after the patience.
bool WaitUntil(const std::function<bool()>& condition, int patience = 10'000);

// Steps for the next modal window, which must open within ten seconds; after them the window is closed where
// it is still open. Nests: steps may open windows and drive them the same way. Throws nothing: what fails in
// the steps is rethrown by the next RethrowFailure.
void WhileModal(std::function<void(QWidget& window)> steps);
void RethrowFailure();

// A key to the widget of that name (the window itself where it is empty), or to the window's focus widget.
void PressKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void TypeText(QWidget& window, const QString& objectName, const QString& text);

// The visible child of that object name; throws std::runtime_error when there is none.
QWidget& Child(QWidget& window, const QString& objectName);

// At twice the resolution, so that the documentation shows it sharp.
QImage PictureOf(QWidget& window);

}  // namespace goods
