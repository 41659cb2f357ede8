// Chart: what a chart shows, as figures and texts. How it is drawn is ChartScene's.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace goods {

// A point without a figure.
inline constexpr double kNoFigure = std::numeric_limits<double>::quiet_NaN();
inline constexpr std::size_t kNoRow = std::numeric_limits<std::size_t>::max();
inline constexpr std::size_t kNoPoint = kNoRow;

struct ChartSeries {
  std::string name;
  std::vector<double> values{};  // one a point; kNoFigure where there is none
  std::string format{};          // display format of its figures (host/data/display_format.h)
  bool secondAxis = false;       // Lines only: measured by the axis on the far side
  bool filled = false;           // Lines only: the area down to zero
  bool fromZero = true;          // its axis begins at zero
};

enum class ChartShape {
  Lines,    // steps over places on an axis: each figure holds until the next
  Columns,  // side by side, upright, one group a point
  Bars,     // one upon another, lying, one bar a point, its label beside it
};

// How the places of Lines are written.
enum class ChartPlaces { Days, Ranks };

struct Chart {
  ChartShape shape = ChartShape::Lines;
  std::string title{};
  std::vector<ChartSeries> series{};
  // Lines: where each point stands, rising: days since 1970-01-01 with a part of the day, or ranks from 1.
  std::vector<double> places{};
  ChartPlaces placesAre = ChartPlaces::Ranks;
  // What each point is called; empty for points that are called by their day.
  std::vector<std::string> labels{};
  // The visible row that each point stands for, kNoRow for none; empty where no point has one.
  std::vector<std::size_t> rows{};
  // Points that stand for many rows: of each visible row its point, kNoPoint for none; empty where rows says
  // it.
  std::vector<std::size_t> pointOfRow{};
  // Each point is a group of the table, which stays folded when its point is gone to.
  bool ofGroups = false;
  std::vector<std::string> notes{};  // sentences above the chart
  // A level on the second axis that is marked, and the place where it is reached.
  std::optional<double> goal{};
  std::optional<double> goalPlace{};

  std::size_t Points() const { return shape == ChartShape::Lines ? places.size() : labels.size(); }
  // The point of a visible row; kNoPoint where none stands for it.
  std::size_t PointOf(std::size_t row) const;
  std::size_t RowOf(std::size_t point) const { return point < rows.size() ? rows[point] : kNoRow; }
};

inline std::size_t Chart::PointOf(std::size_t row) const {
  if (!pointOfRow.empty()) return row < pointOfRow.size() ? pointOfRow[row] : kNoPoint;
  const auto found = std::find(rows.begin(), rows.end(), row);
  return found == rows.end() ? kNoPoint : static_cast<std::size_t>(found - rows.begin());
}

}  // namespace goods
