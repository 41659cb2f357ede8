#include "desktop/charts/chart_scene.h"

#include <QAreaSeries>
#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QFontMetricsF>
#include <QGraphicsLayout>
#include <QHorizontalStackedBarSeries>
#include <QLineSeries>
#include <QValueAxis>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/charts/chart_frame.h"
#include "desktop/charts/chart_points.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/core/jalali.h"
#include "host/data/display_format.h"

namespace goods {
namespace {

constexpr double kPixelsPerTick = 48;
constexpr double kPixelsPerColumn = 24;
constexpr double kLineWidth = 1.8;
constexpr double kMostLabelShare = 0.3;  // of the width, for names beside bars
constexpr int kFilledOpacity = 60;

double FigureAt(const ChartSeries& series, std::size_t point) {
  return point < series.values.size() ? series.values[point] : kNoFigure;
}

Decimal NearestDecimal(double figure) {
  constexpr double kBillionths = 1e9;
  constexpr double kMost = 1e28;
  return Decimal::FromUnits(static_cast<Int128>(std::clamp(std::round(figure * kBillionths), -kMost, kMost)));
}

}  // namespace

ChartScene::ChartScene(const Chart& chart, ChartTexts texts, ChartLook look)
    : chart_(chart),
      texts_(std::move(texts)),
      look_(std::move(look)),
      frame_(new ChartFrame(*this)),
      count_(chart.Points()) {
  setBackgroundBrush(look_.background);
  addItem(frame_);
}

ChartScene::~ChartScene() = default;

QColor ChartScene::ColorOf(std::size_t series) const { return look_.series[series % look_.series.size()]; }

bool ChartScene::HasSecondAxis() const {
  return std::any_of(chart_.series.begin(), chart_.series.end(),
                     [](const ChartSeries& each) { return each.secondAxis; });
}

// How many bars or columns there is room for; of lines all points are seen.
std::size_t ChartScene::Room() const {
  if (IsLines()) return count_;
  const double each = chart_.shape == ChartShape::Bars ? LineHeight(look_.font) * 1.5 : kPixelsPerColumn;
  const double length = chart_.shape == ChartShape::Bars ? plot_.height() : plot_.width();
  return static_cast<std::size_t>(std::max(1.0, length / each));  // a small picture leaves a length below 0
}

void ChartScene::BringIntoView() {
  const std::size_t points = chart_.Points();
  if (!IsLines()) count_ = std::min(points, Room());
  if (mark_ && *mark_ < first_) first_ = *mark_;
  if (mark_ && *mark_ >= first_ + count_) first_ = *mark_ + 1 - count_;
  first_ = std::min(first_, points - std::min(points, count_));
}

void ChartScene::Show(std::size_t first, std::size_t count) {
  const std::size_t points = chart_.Points();
  count_ = std::clamp<std::size_t>(count, std::min<std::size_t>(1, points), points);
  first_ = std::min(first, points - count_);
  Draw(size_);
}

void ChartScene::SetMark(std::optional<std::size_t> point) {
  if (point && *point >= chart_.Points()) point.reset();
  mark_ = point;
  const std::size_t before = first_;
  BringIntoView();
  if (first_ != before) {
    Draw(size_);
  } else {
    static_cast<ChartFrame*>(frame_)->Changed();
  }
}

// The lowest and highest of what is seen; bars add up to either side of zero.
NumberAxis ChartScene::AxisOf(bool second) const {
  double low = INFINITY;
  double high = -INFINITY;
  const auto reach = [&](double figure) {
    low = std::min(low, figure);
    high = std::max(high, figure);
  };
  const std::size_t end = first_ + count_;
  for (const ChartSeries& series : chart_.series) {
    if (IsLines() && series.secondAxis != second) continue;
    if (series.fromZero) reach(0);
    if (chart_.shape == ChartShape::Bars) continue;
    for (std::size_t i = first_; i < std::min(end, series.values.size()); ++i) {
      if (!std::isnan(series.values[i])) reach(series.values[i]);
    }
  }
  for (std::size_t i = first_; chart_.shape == ChartShape::Bars && i < end; ++i) {
    double below = 0;
    double above = 0;
    for (const ChartSeries& series : chart_.series) {
      const double figure = FigureAt(series, i);
      if (!std::isnan(figure)) (figure < 0 ? below : above) += figure;
    }
    reach(below);
    reach(above);
  }
  const double length = chart_.shape == ChartShape::Bars ? plot_.width() / 2.5 : plot_.height();
  return AxisFor(low, high, static_cast<int>(length / kPixelsPerTick));
}

double ChartScene::LabelWidth() const {
  const QFontMetricsF metrics(look_.font);
  double width = 0;
  if (chart_.shape == ChartShape::Bars) {
    for (std::size_t i = first_; i < first_ + count_; ++i)
      width = std::max(width, metrics.horizontalAdvance(NameOf(i)));
    return std::min(width + 2, size_.width() * kMostLabelShare);
  }
  for (const double tick : TicksOf(firstAxis_))
    width = std::max(width, metrics.horizontalAdvance(ShownText(TickText(tick, firstAxis_))));
  return width;
}

// The plot's place hangs on the widths of the axes' texts, those on what is seen, and that on the place.
void ChartScene::Measure() {
  const QFontMetricsF metrics(look_.font);
  const double pad = LineHeight(look_.font) / 2.0;
  const double header = static_cast<ChartFrame*>(frame_)->HeaderHeight(size_.width() - 2 * pad);
  header_ = QRectF(pad, pad, size_.width() - 2 * pad, header);
  plot_ = QRectF(2 * pad, header_.bottom() + pad, size_.width() - 4 * pad,
                 size_.height() - header_.bottom() - 2 * pad - LineHeight(look_.font) * 1.6);
  for (int pass = 0; pass < 2; ++pass) {
    BringIntoView();
    firstAxis_ = AxisOf(false);
    double left = 2 * pad;
    if (HasSecondAxis()) {
      secondAxis_ = AxisOf(true);
      double width = 0;
      for (const double tick : TicksOf(secondAxis_))
        width = std::max(width, metrics.horizontalAdvance(ShownText(TickText(tick, secondAxis_))));
      left = pad * 1.5 + width;
    }
    plot_.setLeft(left);
    plot_.setRight(size_.width() - pad * 1.5 - LabelWidth());
  }
  // A window that is hardly there has nothing to draw in.
  if (plot_.width() < 1) plot_.setWidth(1);
  if (plot_.height() < 1) plot_.setHeight(1);
  if (!IsLines() || chart_.places.empty()) return;
  from_ = chart_.places[first_];
  to_ = chart_.places[first_ + count_ - 1];
  // The last step has a width, too; ranks end where the last good does.
  if (chart_.placesAre == ChartPlaces::Ranks) {
    from_ -= 1;
  } else if (from_ == to_) {
    from_ -= 0.5;
    to_ += 0.5;
  } else {
    to_ += (to_ - from_) / 100;
  }
}

void ChartScene::MakePlot() {
  plotted_ = new QChart;
  plotted_->setBackgroundVisible(false);
  plotted_->setAnimationOptions(QChart::NoAnimation);
  plotted_->legend()->hide();
  plotted_->setMargins({});
  plotted_->layout()->setContentsMargins(0, 0, 0, 0);
  plotted_->setLayoutDirection(Qt::LeftToRight);  // directions are this scene's own
  addItem(plotted_);
  plotted_->setGeometry(sceneRect());
  plotted_->setPlotArea(plot_);
}

void ChartScene::Draw(QSizeF size) {
  size_ = size;
  setSceneRect(QRectF({0, 0}, size));
  pointsDrawn_ = 0;
  Measure();
  // A chart anew: one that loses its axes goes on showing their lines.
  delete plotted_;
  plotted_ = nullptr;
  if (!Empty()) {
    MakePlot();
    IsLines() ? DrawLines() : DrawBars();
  }
  static_cast<ChartFrame*>(frame_)->Changed();
}

namespace {

// Its texts are the frame's.
QValueAxis* PlotAxis(QChart& chart, double low, double high, Qt::Alignment side, const QColor& line) {
  auto* axis = new QValueAxis;
  axis->setRange(low, high);
  axis->setLabelsVisible(false);
  axis->setGridLineVisible(false);
  axis->setLinePenColor(line);
  // One mark at the end alone, until it is told of steps.
  axis->setTickType(QValueAxis::TicksDynamic);
  axis->setTickAnchor(low);
  axis->setTickInterval((high - low) * 2);
  chart.addAxis(axis, side);
  return axis;
}

void ShowSteps(QValueAxis& axis, const NumberAxis& steps, const QColor& line) {
  axis.setTickInterval(steps.step);
  axis.setGridLineVisible(true);
  axis.setGridLineColor(line);
}

}  // namespace

void ChartScene::AddLine(const ChartSeries& series, const QColor& color) {
  const NumberAxis& measure = series.secondAxis ? secondAxis_ : firstAxis_;
  const auto columns = static_cast<std::size_t>(std::max(1.0, plot_.width()));
  const std::vector<std::size_t> points = PointsForPixels(chart_.places, series.values, from_, to_, columns);
  pointsDrawn_ += points.size();
  const bool ranks = chart_.placesAre == ChartPlaces::Ranks;
  QList<QPointF> drawn;
  for (const std::size_t i : points) {
    // A figure holds until the next one; that of a rank over the width of the rank.
    const double x = chart_.places[i] - (ranks ? 1 : 0);
    if (!drawn.isEmpty()) drawn << QPointF(-x, drawn.back().y());
    drawn << QPointF(-x, series.values[i]);
  }
  if (!drawn.isEmpty()) drawn << QPointF(-to_, drawn.back().y());
  auto* line = new QLineSeries;
  line->replace(drawn);
  QPen pen(color, kLineWidth);
  pen.setJoinStyle(Qt::MiterJoin);
  if (look_.hairlines && points.size() > columns / 2) {
    pen.setWidthF(1);
    pen.setCosmetic(true);
  }
  line->setPen(pen);
  QAbstractSeries* added = line;
  if (series.filled) {
    auto* ground = new QLineSeries;
    const double level = std::clamp(0.0, measure.low, measure.high);
    if (!drawn.isEmpty()) ground->replace({{drawn.front().x(), level}, {drawn.back().x(), level}});
    auto* area = new QAreaSeries(line, ground);
    line->setParent(area);
    ground->setParent(area);
    area->setPen(pen);
    QColor soft = color;
    soft.setAlpha(kFilledOpacity);
    area->setBrush(soft);
    added = area;
  }
  plotted_->addSeries(added);
  for (QAbstractAxis* axis : plotted_->axes(Qt::Horizontal)) added->attachAxis(axis);
  const QList<QAbstractAxis*> sides = plotted_->axes(Qt::Vertical);
  added->attachAxis(series.secondAxis ? sides.back() : sides.front());
}

void ChartScene::DrawLines() {
  PlotAxis(*plotted_, -to_, -from_, Qt::AlignBottom, look_.muted);
  ShowSteps(*PlotAxis(*plotted_, firstAxis_.low, firstAxis_.high, Qt::AlignRight, look_.muted), firstAxis_,
            look_.grid);
  if (HasSecondAxis()) {
    PlotAxis(*plotted_, secondAxis_.low, secondAxis_.high, Qt::AlignLeft, look_.muted)
        ->setTickInterval(secondAxis_.step);
  }
  for (std::size_t i = 0; i < chart_.series.size(); ++i) AddLine(chart_.series[i], ColorOf(i));
}

void ChartScene::DrawBars() {
  const bool lying = chart_.shape == ChartShape::Bars;
  auto* bars = lying ? static_cast<QAbstractBarSeries*>(new QHorizontalStackedBarSeries)
                     : static_cast<QAbstractBarSeries*>(new QBarSeries);
  bars->setBarWidth(lying ? 0.66 : 0.8);
  std::vector<std::size_t> order(chart_.series.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = lying ? i : order.size() - 1 - i;
  for (const std::size_t s : order) {
    auto* set = new QBarSet(QString());
    // Downwards the first bar is the topmost; to the left the first column is the rightmost.
    for (std::size_t i = count_; i-- > 0;) {
      const double figure = FigureAt(chart_.series[s], first_ + i);
      const double value = std::isnan(figure) ? 0 : figure;
      set->append(lying ? -value : value);
    }
    pointsDrawn_ += count_;
    set->setColor(ColorOf(s));
    set->setPen(Qt::NoPen);
    bars->append(set);
  }
  plotted_->addSeries(bars);
  const double end = static_cast<double>(count_) - 0.5;
  QAbstractAxis* names =
      PlotAxis(*plotted_, -0.5, end, lying ? Qt::AlignRight : Qt::AlignBottom, look_.muted);
  QValueAxis* figures =
      lying ? PlotAxis(*plotted_, -firstAxis_.high, -firstAxis_.low, Qt::AlignBottom, look_.muted)
            : PlotAxis(*plotted_, firstAxis_.low, firstAxis_.high, Qt::AlignRight, look_.muted);
  ShowSteps(*figures, firstAxis_, look_.grid);
  bars->attachAxis(names);
  bars->attachAxis(figures);
}

double ChartScene::XOf(double place) const {
  return plot_.right() - (place - from_) / (to_ - from_) * plot_.width();
}

double ChartScene::YOf(double value, bool second) const {
  const NumberAxis& axis = second ? secondAxis_ : firstAxis_;
  return plot_.bottom() - (value - axis.low) / (axis.high - axis.low) * plot_.height();
}

// The strip of the plot that belongs to a bar or column.
QRectF ChartScene::BandOf(std::size_t point) const {
  const double at = static_cast<double>(point - first_);
  if (chart_.shape == ChartShape::Bars) {
    const double each = plot_.height() / static_cast<double>(count_);
    return {plot_.left(), plot_.top() + at * each, plot_.width(), each};
  }
  const double each = plot_.width() / static_cast<double>(count_);
  return {plot_.right() - (at + 1) * each, plot_.top(), each, plot_.height()};
}

std::optional<std::size_t> ChartScene::PointAt(QPointF position) const {
  if (Empty()) return std::nullopt;
  // The names beside bars belong to them.
  QRectF area = plot_;
  if (chart_.shape == ChartShape::Bars) area.setRight(size_.width());
  if (!area.contains(position)) return std::nullopt;
  if (IsLines()) {
    const double place = from_ + (plot_.right() - position.x()) / plot_.width() * (to_ - from_);
    // Within a rank's width the rank; among days the nearest movement.
    const double wanted = chart_.placesAre == ChartPlaces::Ranks ? std::ceil(place) : place;
    return std::clamp(NearestPlace(chart_.places, wanted), first_, first_ + count_ - 1);
  }
  const double share = chart_.shape == ChartShape::Bars ? (position.y() - plot_.top()) / plot_.height()
                                                        : (plot_.right() - position.x()) / plot_.width();
  const auto at = static_cast<std::size_t>(std::max(0.0, share * static_cast<double>(count_)));
  return first_ + std::min(at, count_ - 1);
}

QPointF ChartScene::PositionOf(std::size_t point) const {
  if (!IsLines()) return BandOf(point).center();
  const double middle = chart_.placesAre == ChartPlaces::Ranks ? -0.5 : 0;
  for (const ChartSeries& series : chart_.series) {
    const double figure = FigureAt(series, point);
    if (!std::isnan(figure)) return {XOf(chart_.places[point] + middle), YOf(figure, series.secondAxis)};
  }
  return {XOf(chart_.places[point] + middle), plot_.bottom()};
}

QString ChartScene::NameOf(std::size_t point) const {
  if (point < chart_.labels.size()) return ShownText(chart_.labels[point]);
  if (chart_.placesAre != ChartPlaces::Days) return {};
  const auto day = static_cast<std::int64_t>(std::floor(chart_.places[point]));
  return ShownText(FormatJalali(JalaliFromDays(day)));
}

QString ChartScene::PartText() const {
  const std::size_t points = chart_.Points();
  if (Empty() || count_ == points) return {};
  return ShownText(std::to_string(first_ + 1) + " تا " + std::to_string(first_ + count_) + " از " +
                   std::to_string(points));
}

QString ChartScene::PointText(std::size_t point) const {
  QStringList parts{NameOf(point)};
  for (const ChartSeries& series : chart_.series) {
    const double figure = FigureAt(series, point);
    if (std::isnan(figure) || (chart_.shape == ChartShape::Bars && figure == 0)) continue;
    const std::string text = DisplayFormat(series.format).Format(NearestDecimal(figure));
    parts << ShownText(series.name) + ": " + ShownNumber(ToQt(text));
  }
  return parts.join("  ·  ");
}

}  // namespace goods
