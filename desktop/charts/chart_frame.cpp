#include "desktop/charts/chart_frame.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "desktop/charts/chart_scene.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"

namespace goods {
namespace {

constexpr double kTitleScale = 1.2;
constexpr double kDotRadius = 4;
constexpr int kMostHeadLines = 3;

QFont TitleFont(const QFont& font) {
  QFont title = font;
  title.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * kTitleScale)));
  title.setBold(true);
  return title;
}

}  // namespace

// Not the scene's rectangle, which is made of its items' own while it is empty.
QRectF ChartFrame::boundingRect() const { return {QPointF(), scene_.size_}; }

// Right to left, in as many lines as they need.
std::vector<ChartFrame::LegendEntry> ChartFrame::Legend(double width) const {
  std::vector<LegendEntry> entries;
  const QFontMetricsF metrics(scene_.look_.font);
  const double line = LineHeight(scene_.look_.font);
  const double side = line * 0.5;
  double right = width;
  double top = 0;
  for (std::size_t i = 0; i < scene_.chart_.series.size(); ++i) {
    const QString name = ShownText(scene_.chart_.series[i].name);
    const double text = std::min(metrics.horizontalAdvance(name) + 2, width - 2 * side);
    const double whole = side * 1.6 + text;
    if (right - whole < 0 && right < width) {
      right = width;
      top += line;
    }
    entries.push_back({QRectF(right - side, top + (line - side) / 2, side, side),
                       QRectF(right - side * 1.6 - text, top, text, line), name, scene_.ColorOf(i)});
    right -= whole + line;
  }
  return entries;
}

double ChartFrame::HeaderHeight(double width) const {
  const double line = LineHeight(scene_.look_.font);
  double height = line * kTitleScale;
  height += line * static_cast<double>(std::min<qsizetype>(kMostHeadLines, scene_.texts_.lines.size()));
  height += line * static_cast<double>(scene_.chart_.notes.size());
  const std::vector<LegendEntry> legend = Legend(width);
  if (!legend.empty()) height += legend.back().text.bottom() + line * 0.2;
  return height + line;  // the marked point's figures
}

void ChartFrame::PaintText(QPainter& painter, const QRectF& box, const QString& text,
                           Qt::Alignment align) const {
  const QFontMetricsF metrics(painter.font());
  painter.drawText(box, static_cast<int>(align) | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                   metrics.elidedText(text, Qt::ElideRight, box.width()));
}

void ChartFrame::PaintHeader(QPainter& painter) const {
  const ChartLook& look = scene_.look_;
  const double line = LineHeight(look.font);
  QRectF box = scene_.header_;
  const auto next = [&](double height) {
    const QRectF taken(box.left(), box.top(), box.width(), height);
    box.setTop(box.top() + height);
    return taken;
  };
  // Alignment is taken as it is meant: the painter's direction is right to left.
  QRectF head = next(line * kTitleScale);
  painter.setFont(look.font);
  painter.setPen(look.muted);
  const QString part = scene_.PartText();
  if (!part.isEmpty()) {
    PaintText(painter, head, part, Qt::AlignRight);
    head.setLeft(head.left() + QFontMetricsF(look.font).horizontalAdvance(part) + line);
  }
  painter.setPen(look.text);
  painter.setFont(TitleFont(look.font));
  PaintText(painter, head, scene_.texts_.title, Qt::AlignLeft);
  painter.setFont(look.font);
  painter.setPen(look.muted);
  const QStringList& lines = scene_.texts_.lines;
  for (int i = 0; i < std::min<qsizetype>(kMostHeadLines, lines.size()); ++i)
    PaintText(painter, next(line), lines[i], Qt::AlignLeft);
  painter.setPen(look.text);
  for (const std::string& note : scene_.chart_.notes)
    PaintText(painter, next(line), ShownText(note), Qt::AlignLeft);
  const QPointF origin = box.topLeft();
  double bottom = 0;
  for (const LegendEntry& entry : Legend(box.width())) {
    painter.fillRect(entry.swatch.translated(origin), entry.color);
    PaintText(painter, entry.text.translated(origin), entry.name, Qt::AlignLeft);
    bottom = entry.text.bottom() + line * 0.2;
  }
  next(bottom);
  if (!scene_.mark_ || scene_.Empty()) return;
  painter.setPen(look.mark);
  PaintText(painter, next(line), scene_.PointText(*scene_.mark_), Qt::AlignLeft);
}

void ChartFrame::PaintNumberAxis(QPainter& painter, bool second) const {
  const QRectF& plot = scene_.plot_;
  const NumberAxis& axis = second ? scene_.secondAxis_ : scene_.firstAxis_;
  const double line = LineHeight(scene_.look_.font);
  painter.setPen(scene_.look_.muted);
  for (const double tick : TicksOf(axis)) {
    const QString text = ShownText(TickText(tick, axis));
    if (scene_.chart_.shape == ChartShape::Bars) {
      const double x = plot.right() - (tick - axis.low) / (axis.high - axis.low) * plot.width();
      const double half = QFontMetricsF(painter.font()).horizontalAdvance(text) / 2 + 1;
      const double left = std::clamp(x - half, 0.0, std::max(0.0, scene_.size_.width() - 2 * half));
      PaintText(painter, QRectF(left, plot.bottom() + line * 0.2, 2 * half, line), text, Qt::AlignHCenter);
      continue;
    }
    const double y = scene_.YOf(tick, second);
    const double gap = line * 0.3;
    const QRectF box =
        second ? QRectF(0, y - line / 2, plot.left() - gap, line)
               : QRectF(plot.right() + gap, y - line / 2, scene_.size_.width() - plot.right() - gap, line);
    // Beside the plot on either side, as near to it as the other numbers.
    PaintText(painter, box, text, second ? Qt::AlignLeft : Qt::AlignRight);
  }
}

void ChartFrame::PaintPlaces(QPainter& painter) const {
  const QRectF& plot = scene_.plot_;
  const double line = LineHeight(scene_.look_.font);
  const QFontMetricsF metrics(painter.font());
  const auto write = [&](double x, const QString& text) {
    const double half = metrics.horizontalAdvance(text) / 2 + 1;
    const double left = std::clamp(x - half, 0.0, std::max(0.0, scene_.size_.width() - 2 * half));
    painter.setPen(scene_.look_.muted);
    painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + line * 0.2));
    PaintText(painter, QRectF(left, plot.bottom() + line * 0.3, 2 * half, line), text, Qt::AlignHCenter);
  };
  if (scene_.chart_.placesAre == ChartPlaces::Days) {
    const double each = metrics.horizontalAdvance(ShownText("1403/04/11")) * 1.4;
    const auto most = static_cast<std::size_t>(std::max(1.0, plot.width() / each));
    for (const DayTick& tick : DayTicks(scene_.from_, scene_.to_, most))
      write(scene_.XOf(tick.day), ShownText(tick.text));
    return;
  }
  const NumberAxis ranks =
      AxisFor(scene_.from_, scene_.to_, static_cast<int>(plot.width() / (2 * line * 1.5)));
  for (const double tick : TicksOf(ranks)) {
    if (tick <= scene_.from_ || tick > scene_.to_ || tick != std::floor(tick)) continue;
    write(scene_.XOf(tick - 0.5), ShownNumber(QString::number(tick, 'f', 0)));
  }
}

// Beside bars, below columns.
void ChartFrame::PaintNames(QPainter& painter) const {
  const QRectF& plot = scene_.plot_;
  const double line = LineHeight(scene_.look_.font);
  painter.setPen(scene_.look_.text);
  // Where columns are narrower than their names, not every one is named.
  const double name = QFontMetricsF(painter.font()).horizontalAdvance(scene_.NameOf(scene_.first_)) * 1.2;
  const double column = scene_.BandOf(scene_.first_).width();
  const bool lying = scene_.chart_.shape == ChartShape::Bars;
  const auto each = lying ? 1 : static_cast<std::size_t>(std::max(1.0, std::ceil(name / column)));
  for (std::size_t i = scene_.first_; i < scene_.first_ + scene_.count_; i += each) {
    const QRectF band = scene_.BandOf(i);
    if (scene_.chart_.shape == ChartShape::Bars) {
      const QRectF box(plot.right() + line * 0.3, band.center().y() - line / 2,
                       scene_.size_.width() - plot.right() - line * 0.6, line);
      PaintText(painter, box, scene_.NameOf(i), Qt::AlignLeft);
    } else {
      const double width = std::max(name, band.width());
      PaintText(painter, QRectF(band.center().x() - width / 2, plot.bottom() + line * 0.2, width, line),
                scene_.NameOf(i), Qt::AlignHCenter);
    }
  }
}

// Where figures are below zero, too, zero is a line of its own.
void ChartFrame::PaintZero(QPainter& painter) const {
  const NumberAxis& axis = scene_.firstAxis_;
  if (axis.low >= 0 || axis.high <= 0) return;
  const QRectF& plot = scene_.plot_;
  painter.setPen(QPen(scene_.look_.muted, 1));
  if (scene_.chart_.shape == ChartShape::Bars) {
    const double x = plot.right() + axis.low / (axis.high - axis.low) * plot.width();
    painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
  } else {
    const double y = scene_.YOf(0, false);
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
  }
}

void ChartFrame::PaintGoal(QPainter& painter) const {
  if (!scene_.chart_.goal || !scene_.HasSecondAxis()) return;
  const QRectF& plot = scene_.plot_;
  painter.setPen(QPen(scene_.look_.goal, 1.2, Qt::DashLine));
  const double y = scene_.YOf(*scene_.chart_.goal, true);
  painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
  const double place = scene_.chart_.goalPlace.value_or(scene_.to_ + 1);
  if (place < scene_.from_ || place > scene_.to_) return;
  const double x = scene_.XOf(place);
  painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
}

void ChartFrame::PaintMark(QPainter& painter) const {
  if (!scene_.mark_) return;
  const std::size_t mark = *scene_.mark_;
  if (mark < scene_.first_ || mark >= scene_.first_ + scene_.count_) return;
  const QRectF& plot = scene_.plot_;
  painter.setPen(QPen(scene_.look_.mark, 1.4));
  if (!scene_.IsLines()) {
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(scene_.BandOf(mark).adjusted(1, 1, -1, -1));
    return;
  }
  const QPointF at = scene_.PositionOf(mark);
  painter.drawLine(QPointF(at.x(), plot.top()), QPointF(at.x(), plot.bottom()));
  for (std::size_t i = 0; i < scene_.chart_.series.size(); ++i) {
    const ChartSeries& series = scene_.chart_.series[i];
    if (mark >= series.values.size() || std::isnan(series.values[mark])) continue;
    painter.setPen(QPen(scene_.look_.mark, 1.4));
    painter.setBrush(scene_.ColorOf(i));
    painter.drawEllipse(QPointF(at.x(), scene_.YOf(series.values[mark], series.secondAxis)), kDotRadius,
                        kDotRadius);
  }
}

void ChartFrame::paint(QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/) {
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setLayoutDirection(Qt::RightToLeft);
  painter->setFont(scene_.look_.font);
  PaintHeader(*painter);
  painter->setFont(scene_.look_.font);
  if (scene_.Empty()) {
    painter->setPen(scene_.look_.muted);
    PaintText(*painter, scene_.plot_, "ردیفی نیست که نمودار شود.", Qt::AlignHCenter);
    return;
  }
  PaintNumberAxis(*painter, false);
  if (scene_.HasSecondAxis()) PaintNumberAxis(*painter, true);
  scene_.IsLines() ? PaintPlaces(*painter) : PaintNames(*painter);
  PaintZero(*painter);
  PaintGoal(*painter);
  PaintMark(*painter);
}

}  // namespace goods
