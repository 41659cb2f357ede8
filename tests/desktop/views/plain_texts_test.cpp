// A company's texts are never markup.
#include <QApplication>
#include <QLabel>
#include <QToolTip>
#include <QWidget>

#include <gtest/gtest.h>

#include "desktop/views/theme.h"

namespace goods {
namespace {

const char* const kMarkup = "<img src=\"/dev/zero\"><b>کالا</b>";

QLabel* ShownTip() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->inherits("QTipLabel") && widget->isVisible()) return qobject_cast<QLabel*>(widget);
  }
  return nullptr;
}

TEST(PlainTexts, ALabelThatSaysNothingOfItsFormatShowsMarkupAsItIsWritten) {
  ApplyTheme(*qobject_cast<QApplication*>(QApplication::instance()), ThemeMode::Light);
  QWidget window;
  auto* label = new QLabel(kMarkup, &window);
  window.show();
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
  // As wide as what is written, not as the picture or the word alone.
  EXPECT_GE(label->sizeHint().width(), label->fontMetrics().horizontalAdvance(kMarkup));
}

TEST(PlainTexts, SoDoesATooltip) {
  ApplyTheme(*qobject_cast<QApplication*>(QApplication::instance()), ThemeMode::Light);
  QWidget window;
  window.show();
  QToolTip::showText(window.mapToGlobal(QPoint(1, 1)), kMarkup, &window);
  QLabel* tip = ShownTip();
  ASSERT_NE(tip, nullptr);
  EXPECT_EQ(tip->textFormat(), Qt::PlainText);
  // What is written is several times as wide as the word that markup would leave.
  EXPECT_GT(tip->sizeHint().width(), 2 * tip->fontMetrics().horizontalAdvance("کالا"));
  QToolTip::hideText();
}

}  // namespace
}  // namespace goods
