#include "desktop/charts/chart_look.h"

#include <QFontInfo>

#include "desktop/views/theme.h"

namespace goods {
namespace {

std::vector<QColor> SeriesOnLight() {
  return {QColor(0x1F6FB2), QColor(0xC56F16), QColor(0x2E8B57), QColor(0xA23B72), QColor(0x7A6FD0),
          QColor(0x8F7A00), QColor(0x008B9A), QColor(0xC0504D), QColor(0x6B4F3A), QColor(0x7C8998)};
}
std::vector<QColor> SeriesOnDark() {
  return {QColor(0x5AA7E6), QColor(0xF0A860), QColor(0x6CC995), QColor(0xDE80B2), QColor(0xA9A0F2),
          QColor(0xDCC64A), QColor(0x4FC3D0), QColor(0xEE8884), QColor(0xB89878), QColor(0x9AA7B7)};
}

// In pixels of the scene, so that paper and pictures of any resolution scale texts and lines alike.
QFont ChartFont() {
  QFont font = InterfaceFont();
  font.setPixelSize(QFontInfo(font).pixelSize());
  return font;
}

}  // namespace

ChartLook ScreenLook() {
  const Theme& theme = CurrentTheme();
  return {.background = theme.surface,
          .text = theme.text,
          .muted = theme.mutedText,
          .grid = theme.gridLine,
          .mark = theme.problem,
          .goal = theme.warning,
          .series = theme.dark ? SeriesOnDark() : SeriesOnLight(),
          .font = ChartFont(),
          .hairlines = true};
}

ChartLook PaperLook() {
  return {.background = Qt::white,
          .text = QColor(0x1C2530),
          .muted = QColor(0x5C6878),
          .grid = QColor(0xD5DCE4),
          .mark = QColor(0xC62F3B),
          .goal = QColor(0xB7791F),
          .series = SeriesOnLight(),
          .font = ChartFont()};
}

}  // namespace goods
