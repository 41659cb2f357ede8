#include "desktop/views/style.h"

#include <QApplication>
#include <QIconEngine>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QTextLayout>
#include <QWidget>

#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr double kRadius = 5;
constexpr int kEntryMargin = 10;
constexpr int kEntryWords = 30;  // behind the tick of an entry

bool Has(const QStyleOption* option, QStyle::StateFlag flag) { return option->state.testFlag(flag); }

void DrawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& border,
             double width = 1) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(border, width));
  painter.setBrush(fill);
  const double inset = width / 2;
  painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
  painter.restore();
}

void DrawField(QPainter& painter, const QStyleOption* option, const QWidget* widget) {
  const Theme& theme = CurrentTheme();
  const bool problem = widget != nullptr && widget->property(kProblemProperty).toBool();
  const bool enabled = Has(option, QStyle::State_Enabled);
  const bool focused = Has(option, QStyle::State_HasFocus) && enabled;
  const QColor fill = problem ? theme.problemSoft : enabled ? theme.surface : theme.window;
  const QColor border = problem ? theme.problem : focused ? theme.accent : theme.border;
  DrawBox(painter, option->rect, fill, border, focused || problem ? 1.6 : 1);
}

void DrawButton(QPainter& painter, const QStyleOption* option) {
  const Theme& theme = CurrentTheme();
  const bool enabled = Has(option, QStyle::State_Enabled);
  const bool down = Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On);
  const bool focused = Has(option, QStyle::State_HasFocus) && enabled;
  const bool hover = Has(option, QStyle::State_MouseOver) && enabled;
  const QColor fill = !enabled ? theme.window
                      : down   ? theme.accentSoft
                      : hover  ? theme.buttonHover
                               : theme.button;
  DrawBox(painter, option->rect, fill, focused ? theme.accent : theme.border, focused ? 1.6 : 1);
}

void DrawTick(QPainter& painter, const QStyleOption* option, bool round) {
  const Theme& theme = CurrentTheme();
  const bool enabled = Has(option, QStyle::State_Enabled);
  const bool on = Has(option, QStyle::State_On);
  const bool focused = Has(option, QStyle::State_HasFocus) && enabled;
  const QRectF box = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor fill = on        ? (enabled ? theme.accent : theme.mutedText)
                      : enabled ? theme.surface
                                : theme.window;
  painter.setBrush(fill);
  painter.setPen(QPen(on ? fill : focused ? theme.accent : theme.mutedText, focused ? 1.6 : 1));
  const double radius = round ? box.width() / 2 : 3.5;
  painter.drawRoundedRect(box, radius, radius);
  if (on && round) {
    painter.setBrush(theme.accentText);
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(box.center(), box.width() / 5, box.width() / 5);
  } else if (on) {
    const auto at = [&](double x, double y) {
      return QPointF(box.left() + box.width() * x, box.top() + box.height() * y);
    };
    painter.setPen(QPen(theme.accentText, box.width() / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.31)}));
  }
  if (focused && on) {
    painter.setPen(QPen(theme.accentSoft, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(-1.5, -1.5, 1.5, 1.5), radius + 1.5, radius + 1.5);
  }
  painter.restore();
}

void DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QRect& slider) {
  const Theme& theme = CurrentTheme();
  painter.fillRect(bar.rect, theme.window);
  if (bar.maximum <= bar.minimum) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  QColor color = theme.mutedText;
  const bool active = bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider) &&
                      bar.state.testFlag(QStyle::State_MouseOver);
  color.setAlphaF(bar.state.testFlag(QStyle::State_Sunken) || active ? 0.75F : 0.45F);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  const QRectF handle = bar.orientation == Qt::Vertical ? QRectF(slider).adjusted(3, 1, -3, -1)
                                                        : QRectF(slider).adjusted(1, 3, -1, -3);
  const double radius = std::min(handle.width(), handle.height()) / 2;
  painter.drawRoundedRect(handle, radius, radius);
  painter.restore();
}

// Up or down, as far as the number may still go there.
void DrawSpinArrow(QPainter& painter, const QStyleOptionSpinBox& spin, QStyle::SubControl part,
                   const QRect& button) {
  const bool up = part == QStyle::SC_SpinBoxUp;
  const bool there =
      spin.stepEnabled.testFlag(up ? QAbstractSpinBox::StepUpEnabled : QAbstractSpinBox::StepDownEnabled);
  const bool hover = there && spin.activeSubControls == part && Has(&spin, QStyle::State_MouseOver);
  const Theme& theme = CurrentTheme();
  const QColor color = !there || !Has(&spin, QStyle::State_Enabled) ? theme.border
                       : hover                                      ? theme.accent
                                                                    : theme.mutedText;
  const QPointF center = QRectF(button).center();
  DrawArrow(painter, QRectF(center.x() - 3.5, center.y() - 3.5, 7, 7), color, up ? 180 : 0);
}

// The words of an entry where reading begins, and what stands behind the tab at the far end; the style below
// puts both at the left, the latter on the menu's very border.
void DrawEntryTexts(QPainter& painter, const QStyleOptionMenuItem& entry, bool marks) {
  const Theme& theme = CurrentTheme();
  const bool enabled = Has(&entry, QStyle::State_Enabled);
  const bool chosen = enabled && Has(&entry, QStyle::State_Selected);
  const QColor light = entry.palette.color(QPalette::HighlightedText);
  const auto draw = [&](const QString& text, int side, const QColor& color) {
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.setPen(chosen ? light : enabled ? color : theme.border);
    painter.drawText(entry.rect.adjusted(kEntryMargin, 0, -kEntryWords, 0),
                     side | Qt::AlignVCenter | Qt::AlignAbsolute | Qt::TextSingleLine |
                         (marks ? Qt::TextShowMnemonic : Qt::TextHideMnemonic),
                     text);
  };
  painter.save();
  painter.setFont(entry.font);
  draw(entry.text.section('\t', 0, 0), Qt::AlignRight, theme.text);
  if (entry.text.contains('\t')) draw(entry.text.section('\t', 1), Qt::AlignLeft, theme.mutedText);
  painter.restore();
}

// A row of dots to take hold of, along the border.
void DrawSplitter(QPainter& painter, const QStyleOption* option) {
  constexpr int kDots = 5;
  constexpr double kDistance = 7;
  const Theme& theme = CurrentTheme();
  const QRectF box(option->rect);
  const bool upright = box.height() > box.width();
  const bool hover = Has(option, QStyle::State_MouseOver) || Has(option, QStyle::State_Sunken);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(hover ? theme.accent : theme.mutedText);
  if (!hover) painter.setOpacity(0.6);
  for (int dot = 0; dot < kDots; ++dot) {
    const double away = (dot - (kDots - 1) / 2.0) * kDistance;
    painter.drawEllipse(box.center() + (upright ? QPointF(0, away) : QPointF(away, 0)), 1.6, 1.6);
  }
  painter.restore();
}

}  // namespace

void DrawArrow(QPainter& painter, const QRectF& box, const QColor& color, int degrees) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(box.center());
  painter.rotate(degrees);
  const double half = std::min(box.width(), box.height()) / 2;
  painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(
      QPolygonF({QPointF(-half, -half / 2), QPointF(0, half / 2), QPointF(half, -half / 2)}));
  painter.restore();
}

// Drawn when it is shown. The toolkit's own is a file, for which it loads the readers of every kind of
// picture, at the start of the program already.
class MoreIcon : public QIconEngine {
 public:
  QIconEngine* clone() const override { return new MoreIcon(*this); }
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const Theme& theme = CurrentTheme();
    const double side = std::min(rect.width(), rect.height()) / 2.0;
    const QPointF corner = QRectF(rect).center() - QPointF(side / 2, side / 2);
    DrawArrow(*painter, QRectF(corner, QSizeF(side, side)),
              mode == QIcon::Disabled ? theme.border : theme.text, 0);
  }
  // What is drawn into has to be clear where nothing is.
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
};

// Where the toolkit breaks the text, each line without the blank that it was broken at.
QStringList WrappedLines(const QString& text, const QFont& font, int width) {
  QStringList lines;
  for (const QString& paragraph : text.split('\n')) {
    QTextLayout layout(paragraph, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(width);
      lines << paragraph.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    if (paragraph.isEmpty()) lines << QString();
  }
  return lines;
}

HostStyle::HostStyle() : QProxyStyle("Fusion") { qApp->installEventFilter(this); }

bool HostStyle::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::KeyPress;
  if (press || event->type() == QEvent::KeyRelease || event->type() == QEvent::ApplicationDeactivate) {
    const bool alt = event->type() != QEvent::ApplicationDeactivate &&
                     static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt;
    const bool held = alt ? press : altHeld_ && event->type() != QEvent::ApplicationDeactivate;
    if (held != altHeld_) {
      altHeld_ = held;
      for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->isVisible()) widget->update();
      }
    }
  }
  return QProxyStyle::eventFilter(watched, event);
}

void HostStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  switch (element) {
    case PE_PanelLineEdit:
      // A line edit inside a combo box or a spin box is framed by that.
      if (widget != nullptr && widget->parentWidget() != nullptr &&
          (widget->parentWidget()->inherits("QComboBox") ||
           widget->parentWidget()->inherits("QAbstractSpinBox"))) {
        return;
      }
      DrawField(*painter, option, widget);
      return;
    case PE_FrameLineEdit:
      return;
    case PE_PanelButtonCommand:
    case PE_PanelButtonTool:
      DrawButton(*painter, option);
      return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
      DrawTick(*painter, option, false);
      return;
    case PE_IndicatorRadioButton:
      DrawTick(*painter, option, true);
      return;
    case PE_Frame: {
      // Tables, lists and trees say by their frame that they have the keyboard.
      const bool focused = Has(option, State_HasFocus) && Has(option, State_Enabled);
      painter->setPen(focused ? CurrentTheme().accent : CurrentTheme().border);
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
      return;
    }
    case PE_PanelScrollAreaCorner:
      painter->fillRect(option->rect, CurrentTheme().window);
      return;
    case PE_FrameFocusRect:
      return;  // the focus shows in the control's own border
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void HostStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (element == CE_Splitter) {
    DrawSplitter(*painter, option);
  } else if (element == CE_MenuItem && entry != nullptr && entry->direction == Qt::RightToLeft &&
             entry->menuItemType != QStyleOptionMenuItem::Separator) {
    QStyleOptionMenuItem silent(*entry);
    silent.text.clear();
    QProxyStyle::drawControl(element, &silent, painter, widget);
    DrawEntryTexts(*painter, *entry, altHeld_);
  } else {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void HostStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  if (control == CC_ComboBox) {
    DrawField(*painter, option, widget);
    const QRect arrow = subControlRect(control, option, SC_ComboBoxArrow, widget);
    const Theme& theme = CurrentTheme();
    const QPointF center = QRectF(arrow).center();
    DrawArrow(*painter, QRectF(center.x() - 4, center.y() - 4, 8, 8),
              Has(option, State_Enabled) ? theme.mutedText : theme.border, 0);
  } else if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
             control == CC_SpinBox && spin != nullptr) {
    DrawField(*painter, option, widget);
    DrawSpinArrow(*painter, *spin, SC_SpinBoxUp, subControlRect(control, option, SC_SpinBoxUp, widget));
    DrawSpinArrow(*painter, *spin, SC_SpinBoxDown, subControlRect(control, option, SC_SpinBoxDown, widget));
  } else if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
             control == CC_ScrollBar && bar != nullptr) {
    DrawScrollBar(*bar, *painter, subControlRect(control, option, SC_ScrollBarSlider, widget));
  } else {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

QIcon HostStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
  if (icon == SP_ToolBarHorizontalExtensionButton) return QIcon(new MoreIcon);
  return QProxyStyle::standardIcon(icon, option, widget);
}

QRect HostStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
  if (control == CC_ScrollBar) {
    // No buttons at the ends: the whole bar is groove.
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (bar != nullptr) {
      if (part == SC_ScrollBarAddLine || part == SC_ScrollBarSubLine) return {};
      const bool vertical = bar->orientation == Qt::Vertical;
      const int room = vertical ? bar->rect.height() : bar->rect.width();
      const qint64 range = static_cast<qint64>(bar->maximum) - bar->minimum;
      int length = room;
      if (range > 0) {
        length = static_cast<int>(static_cast<qint64>(bar->pageStep) * room / (range + bar->pageStep));
        length = std::clamp(length, std::min(28, room), room);
      }
      const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                                room - length, bar->upsideDown);
      const auto stretch = [&](int from, int size) {
        return vertical ? QRect(bar->rect.left(), bar->rect.top() + from, bar->rect.width(), size)
                        : QRect(bar->rect.left() + from, bar->rect.top(), size, bar->rect.height());
      };
      if (part == SC_ScrollBarGroove) return bar->rect;
      if (part == SC_ScrollBarSlider) return stretch(start, length);
      if (part == SC_ScrollBarSubPage) return stretch(0, start);
      if (part == SC_ScrollBarAddPage) return stretch(start + length, room - start - length);
    }
  }
  return QProxyStyle::subControlRect(control, option, part, widget);
}

int HostStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_ScrollBarExtent:
      return 13;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return 17;
    case PM_CheckBoxLabelSpacing:
      return 7;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
      return 0;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int HostStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
  switch (hint) {
    case SH_ComboBox_Popup:  // a list below the box, not a menu over it
    case SH_ScrollBar_LeftClickAbsolutePosition:
      return 0;
    case SH_UnderlineShortcut:
      return altHeld_ ? 1 : 0;  // an underline tears the joined letters apart, so only on demand
    default:
      return QProxyStyle::styleHint(hint, option, widget, result);
  }
}

// The toolkit leaves room for the blank at the end of a line that runs from right to left, at the edge where
// the line begins, and cuts as much at the other.
void HostStyle::drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                             bool enabled, const QString& text, QPalette::ColorRole role) const {
  constexpr int kMarks = Qt::TextShowMnemonic | Qt::TextHideMnemonic;
  if ((flags & Qt::TextWordWrap) == 0 || (flags & kMarks) != 0 || !text.isRightToLeft())
    return QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, role);
  const QStringList lines = WrappedLines(text, painter->font(), rect.width());
  if (lines.size() < 2) return QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, role);
  const int spacing = painter->fontMetrics().lineSpacing();
  const int height = painter->fontMetrics().height() + spacing * static_cast<int>(lines.size() - 1);
  const int left = std::max(0, rect.height() - height);
  const int above = (flags & Qt::AlignVCenter) != 0 ? left / 2 : (flags & Qt::AlignBottom) != 0 ? left : 0;
  const int across =
      (flags & ~(Qt::TextWordWrap | Qt::AlignVertical_Mask)) | Qt::AlignTop | Qt::TextSingleLine;
  QRect line(rect.left(), rect.top() + above, rect.width(), painter->fontMetrics().height());
  for (const QString& each : lines) {
    QProxyStyle::drawItemText(painter, line, across, palette, enabled, each, role);
    line.translate(0, spacing);
  }
}

QSize HostStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
  QSize full = QProxyStyle::sizeFromContents(type, option, size, widget);
  const int height = LineHeight(widget == nullptr ? InterfaceFont() : widget->font()) + 12;
  if (type == CT_LineEdit || type == CT_ComboBox || type == CT_PushButton || type == CT_SpinBox)
    full.setHeight(height);
  if (type == CT_CheckBox || type == CT_RadioButton) full.setHeight(std::max(height - 8, 18));
  if (type == CT_PushButton) full.rwidth() = size.width() + 24;
  if (type == CT_ComboBox) full.rwidth() += 6;
  if (type == CT_MenuItem) full.rwidth() += 2 * kEntryMargin;
  return full;
}

}  // namespace goods
