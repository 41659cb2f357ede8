// The look of the desktop host: colours, fonts and measures, light and dark.
#pragma once

#include <QColor>
#include <QFont>

class QApplication;
class QPaintDevice;

namespace goods {

enum class ThemeMode { System, Light, Dark };

struct Theme {
  bool dark = false;
  QColor window;   // behind everything
  QColor surface;  // edits, tables, cards
  QColor text;
  QColor mutedText;  // hints, captions of figures
  QColor border;
  QColor accent;      // focus, default actions, ticks
  QColor accentText;  // on the accent
  QColor accentSoft;  // the current row
  QColor selection;   // other selected rows
  QColor header;      // titles and footers of tables
  QColor band;        // every second row
  QColor hit;         // cells that hold what is looked for
  QColor gridLine;
  QColor button;
  QColor buttonHover;
  QColor problem;
  QColor problemSoft;
  QColor warning;
  QColor warningSoft;
};

// The theme in use; the light one before ApplyTheme.
const Theme& CurrentTheme();

// Gives the application its style, palette, font and right-to-left layout. System follows the desktop's own
// palette. May be called again to change the mode; open windows follow.
void ApplyTheme(QApplication& application, ThemeMode mode = ThemeMode::System);

// Leaves the application its style, font and palette, and takes the theme's colours from that palette.
void AdoptTheme(QApplication& application);

// The interface font: the first of Vazirmatn, Noto Sans Arabic and DejaVu Sans that is installed.
QFont InterfaceFont();

// The height of a line of text as the eye sees it. Arabic fonts claim far more for marks that Persian hardly
// uses.
int LineHeight(const QFont& font);

// Measures of the components are pixels at 96 dpi.
int Scaled(int pixels, const QPaintDevice& device);
int Unscaled(int pixels, const QPaintDevice& device);

// The font colour that can be read on a cell colour: of the dark and the light one the one with more
// contrast.
QColor ReadableOn(const QColor& background);
// How much lighter the lighter of two colours is, 1 to 21, as the accessibility guidelines count it.
double Contrast(const QColor& a, const QColor& b);
// A colour that far, 0 to 1, on the way from a to b.
QColor Mixed(const QColor& a, const QColor& b, double share);

}  // namespace goods
