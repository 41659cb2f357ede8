// HostStyle: the widget style of the desktop host. Vector-painted, so that it is sharp at any resolution.
#pragma once

#include <QIcon>
#include <QProxyStyle>

namespace goods {

// A dynamic property on a line edit: true where its text cannot be used.
inline constexpr const char* kProblemProperty = "problem";

class HostStyle : public QProxyStyle {
 public:
  HostStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;
  // Of texts that go on in further lines each line begins at the edge, whatever blank ends it.
  void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette, bool enabled,
                    const QString& text, QPalette::ColorRole role) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  // The mark of a bar that has more than it shows is drawn; every other is the toolkit's picture.
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
  // Marks of keyboard accelerators are shown while Alt is held.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool altHeld_ = false;
};

// The small arrow of combo boxes, folds and sort marks, centred in box. degrees: 0 points down.
void DrawArrow(QPainter& painter, const QRectF& box, const QColor& color, int degrees);

}  // namespace goods
