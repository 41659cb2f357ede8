#include "desktop/views/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPaintDevice>
#include <QPalette>
#include <algorithm>
#include <cmath>
#include <set>

#include "desktop/views/persian_texts.h"
#include "desktop/views/plain_texts.h"
#include "desktop/views/screen_fit.h"
#include "desktop/views/style.h"

namespace goods {
namespace {

constexpr double kFontPoints = 10.5;
constexpr double kLineFactor = 1.45;
constexpr int kReferenceDpi = 96;

Theme LightTheme() {
  Theme theme;
  theme.window = QColor(0xF4F6F9);
  theme.surface = QColor(0xFFFFFF);
  theme.text = QColor(0x1C2530);
  theme.mutedText = QColor(0x5C6878);
  theme.border = QColor(0xCDD5DF);
  theme.accent = QColor(0x1F6FB2);
  theme.accentText = QColor(0xFFFFFF);
  theme.accentSoft = QColor(0xCFE3F5);
  theme.selection = QColor(0xE3EEF8);
  theme.header = QColor(0xE9EEF4);
  theme.band = QColor(0xF8FAFC);
  theme.hit = QColor(0xFFE08A);
  theme.gridLine = QColor(0xE3E8EE);
  theme.button = QColor(0xFFFFFF);
  theme.buttonHover = QColor(0xEDF3F9);
  theme.problem = QColor(0xC62F3B);
  theme.problemSoft = QColor(0xFDECEE);
  theme.warning = QColor(0xB7791F);
  theme.warningSoft = QColor(0xFDF3DC);
  return theme;
}

Theme DarkTheme() {
  Theme theme;
  theme.dark = true;
  theme.window = QColor(0x1B2129);
  theme.surface = QColor(0x232B35);
  theme.text = QColor(0xE6EBF1);
  theme.mutedText = QColor(0x9AA7B7);
  theme.border = QColor(0x3D4857);
  theme.accent = QColor(0x5AA7E6);
  theme.accentText = QColor(0x0E1720);
  theme.accentSoft = QColor(0x2C4C69);
  theme.selection = QColor(0x28394B);
  theme.header = QColor(0x2B3541);
  theme.band = QColor(0x262F3A);
  theme.hit = QColor(0x6B5714);
  theme.gridLine = QColor(0x323C49);
  theme.button = QColor(0x2D3744);
  theme.buttonHover = QColor(0x374455);
  theme.problem = QColor(0xF27781);
  theme.problemSoft = QColor(0x46282E);
  theme.warning = QColor(0xE0B252);
  theme.warningSoft = QColor(0x423619);
  return theme;
}

Theme g_theme = LightTheme();

QPalette PaletteOf(const Theme& theme) {
  QPalette palette;
  palette.setColor(QPalette::Window, theme.window);
  palette.setColor(QPalette::WindowText, theme.text);
  palette.setColor(QPalette::Base, theme.surface);
  palette.setColor(QPalette::AlternateBase, theme.band);
  palette.setColor(QPalette::Text, theme.text);
  palette.setColor(QPalette::PlaceholderText, theme.mutedText);
  palette.setColor(QPalette::Button, theme.button);
  palette.setColor(QPalette::ButtonText, theme.text);
  palette.setColor(QPalette::BrightText, theme.problem);
  palette.setColor(QPalette::Highlight, theme.accent);
  palette.setColor(QPalette::HighlightedText, theme.accentText);
  palette.setColor(QPalette::Link, theme.accent);
  palette.setColor(QPalette::ToolTipBase, theme.surface);
  palette.setColor(QPalette::ToolTipText, theme.text);
  palette.setColor(QPalette::Mid, theme.border);
  palette.setColor(QPalette::Midlight, theme.gridLine);
  palette.setColor(QPalette::Light, theme.surface);
  palette.setColor(QPalette::Dark, theme.border.darker(130));
  palette.setColor(QPalette::Shadow, QColor(0, 0, 0, 90));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    QColor faded = theme.text;
    faded.setAlphaF(0.42F);
    palette.setColor(QPalette::Disabled, role, faded);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, theme.window);
  return palette;
}

// Once for each reach: the theme may change many times.
void KeepTextsPlain(QApplication& application, PlainTextReach reach) {
  static std::set<PlainTextReach> kept;
  if (kept.insert(reach).second) ShowPlainTextsOnly(application, reach);
}

bool SystemIsDark() { return QPalette().color(QPalette::Window).lightness() < 128; }

}  // namespace

const Theme& CurrentTheme() { return g_theme; }

void ApplyTheme(QApplication& application, ThemeMode mode) {
  static const bool kSystemDark = SystemIsDark();  // asked before the first palette of ours is set
  const bool dark = mode == ThemeMode::Dark || (mode == ThemeMode::System && kSystemDark);
  g_theme = dark ? DarkTheme() : LightTheme();
  application.setLayoutDirection(Qt::RightToLeft);
  application.setFont(InterfaceFont());
  application.setStyle(new HostStyle);
  application.setPalette(PaletteOf(g_theme));
  KeepTextsPlain(application, PlainTextReach::Everywhere);
  static const bool kPersian = (UsePersianTexts(application), true);
  static_cast<void>(kPersian);
  KeepWindowsOnScreen(application);
}

void AdoptTheme(QApplication& application) {
  const QPalette palette = QApplication::palette();
  const QColor window = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  const QColor surface = palette.color(QPalette::Base);
  const QColor accent = palette.color(QPalette::Highlight);
  Theme theme = window.lightness() < 128 ? DarkTheme() : LightTheme();
  theme.window = window;
  theme.surface = surface;
  theme.text = palette.color(QPalette::Text);
  theme.mutedText = Mixed(text, window, 0.35);
  theme.border = Mixed(text, window, 0.75);
  theme.accent = accent;
  theme.accentText = palette.color(QPalette::HighlightedText);
  theme.accentSoft = Mixed(accent, surface, 0.75);
  theme.selection = Mixed(accent, surface, 0.88);
  theme.header = palette.color(QPalette::Button);
  theme.band = palette.color(QPalette::AlternateBase);
  theme.gridLine = Mixed(text, surface, 0.88);
  theme.button = palette.color(QPalette::Button);
  theme.buttonHover = Mixed(accent, theme.button, 0.88);
  g_theme = theme;
  KeepTextsPlain(application, PlainTextReach::Reports);
}

QFont InterfaceFont() {
  const QStringList installed = QFontDatabase::families();
  QStringList families;
  for (const char* family : {"Vazirmatn", "Noto Sans Arabic", "DejaVu Sans"}) {
    if (installed.contains(QLatin1String(family))) families << QLatin1String(family);
  }
  QFont font;
  if (!families.isEmpty()) font.setFamilies(families);
  font.setPointSizeF(kFontPoints);
  return font;
}

int LineHeight(const QFont& font) { return qRound(QFontInfo(font).pixelSize() * kLineFactor); }

int Scaled(int pixels, const QPaintDevice& device) {
  return qRound(static_cast<double>(pixels) * device.logicalDpiX() / kReferenceDpi);
}

int Unscaled(int pixels, const QPaintDevice& device) {
  return qRound(static_cast<double>(pixels) * kReferenceDpi / device.logicalDpiX());
}

double Contrast(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& color) {
    const auto linear = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
  };
  const double first = luminance(a) + 0.05;
  const double second = luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

QColor ReadableOn(const QColor& background) {
  const QColor dark(0x10171F);
  const QColor light(0xFFFFFF);
  return Contrast(background, dark) >= Contrast(background, light) ? dark : light;
}

QColor Mixed(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](int x, int y) { return qRound(x + (y - x) * share); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

}  // namespace goods
