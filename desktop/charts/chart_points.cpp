#include "desktop/charts/chart_points.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace goods {
namespace {

// The points of one column of pixels, as far as they were looked at.
struct PixelColumn {
  std::size_t first;
  std::size_t lowest;
  std::size_t highest;
  std::size_t last;

  void Give(std::vector<std::size_t>& points) const {
    std::array<std::size_t, 4> seen{first, lowest, highest, last};
    std::sort(seen.begin(), seen.end());
    points.insert(points.end(), seen.begin(), std::unique(seen.begin(), seen.end()));
  }
};

std::size_t IndexOf(std::span<const double> places, std::span<const double>::iterator at) {
  return static_cast<std::size_t>(at - places.begin());
}

}  // namespace

std::vector<std::size_t> PointsForPixels(std::span<const double> places, std::span<const double> values,
                                         double from, double to, std::size_t columns) {
  std::vector<std::size_t> points;
  const auto has = [&](std::size_t i) { return !std::isnan(values[i]); };
  const std::size_t begin = IndexOf(places, std::lower_bound(places.begin(), places.end(), from));
  const std::size_t end = IndexOf(places, std::upper_bound(places.begin(), places.end(), to));
  std::size_t before = begin;
  while (before > 0 && !has(before - 1)) --before;
  if (before > 0) points.push_back(before - 1);

  const bool all = end - begin <= 4 * columns || !(to > from);
  const double scale = static_cast<double>(columns) / (to - from);
  PixelColumn seen{};
  double limit = 0;  // the place at which the column being looked at ends
  bool open = false;
  for (std::size_t i = begin; i < end; ++i) {
    if (!has(i)) continue;
    if (all) {
      points.push_back(i);
      continue;
    }
    if (open && places[i] < limit) {
      if (values[i] < values[seen.lowest]) seen.lowest = i;
      if (values[i] > values[seen.highest]) seen.highest = i;
      seen.last = i;
      continue;
    }
    if (open) seen.Give(points);
    open = true;
    seen = {i, i, i, i};
    // The point at the far end belongs to the last column.
    const double column = std::min(std::floor((places[i] - from) * scale), static_cast<double>(columns) - 1);
    limit = column + 1 >= static_cast<double>(columns) ? std::nextafter(to, INFINITY)
                                                       : from + (column + 1) / scale;
  }
  if (open) seen.Give(points);

  std::size_t after = end;
  while (after < places.size() && !has(after)) ++after;
  if (after < places.size()) points.push_back(after);
  return points;
}

std::size_t NearestPlace(std::span<const double> places, double place) {
  const std::size_t above = IndexOf(places, std::lower_bound(places.begin(), places.end(), place));
  if (above == 0) return 0;
  if (above == places.size()) return places.size() - 1;
  return place - places[above - 1] <= places[above] - place ? above - 1 : above;
}

}  // namespace goods
