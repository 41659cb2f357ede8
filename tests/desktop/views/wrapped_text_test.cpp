// Labels whose text goes on in further lines, from right to left.
#include <QImage>
#include <QLabel>
#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/views/style.h"
#include "desktop/views/text_label.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

constexpr QRgb kPaper = qRgb(255, 255, 255);

// Where the ink of each line begins, from the right edge, in pixels.
std::vector<int> Beginnings(QLabel& label) {
  QImage image(label.size(), QImage::Format_RGB32);
  image.fill(kPaper);
  label.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
  std::vector<int> beginnings;
  bool inLine = false;
  for (int y = 0; y < image.height(); ++y) {
    int x = image.width() - 1;
    while (x >= 0 && image.pixel(x, y) == kPaper) --x;
    if (x < 0) {
      inLine = false;
      continue;
    }
    const int margin = image.width() - 1 - x;
    if (!inLine) beginnings.push_back(margin);
    beginnings.back() = std::min(beginnings.back(), margin);
    inLine = true;
  }
  return beginnings;
}

// Words without dots and tails, so that lines have paper between them, and each begins with the same letter.
template <typename Label>
void ExpectLinesAtTheEdge(Label& label) {
  HostStyle style;
  label.setStyle(&style);
  QFont font = label.font();
  font.setPixelSize(40);
  label.setFont(font);
  label.setText("کلام کلام کلام کلام کلام کلام کلام");
  for (int width = 180; width < 480; width += 7) {
    label.resize(width, 1000);
    const std::vector<int> beginnings = Beginnings(label);
    ASSERT_GE(beginnings.size(), 2U) << width;
    for (const int each : beginnings) {
      EXPECT_EQ(each, beginnings.front()) << "at " << width;
      EXPECT_LT(each, 8) << "at " << width;
    }
  }
}

TEST(WrappedTexts, EachLineOfALabelBeginsAtTheEdge) {
  QLabel label;
  label.setLayoutDirection(Qt::RightToLeft);
  label.setWordWrap(true);
  ExpectLinesAtTheEdge(label);
}

TEST(WrappedTexts, EachLineOfAWindowsOwnLabelToo) {
  TextLabel label(nullptr);
  label.setLayoutDirection(Qt::RightToLeft);
  label.SetWrapping(true);
  ExpectLinesAtTheEdge(label);
}

}  // namespace
}  // namespace goods::testing
