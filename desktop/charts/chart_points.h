// What of a line can be seen on so many pixels.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace goods {

// The indices of the points that a line over [from, to] needs, rising, where that stretch is drawn on so many
// columns of pixels: of each column the first point, the lowest, the highest and the last, so that the drawn
// line covers exactly the pixels that the whole one would; and the nearest point on either side of the
// stretch, where the line leaves it. At most 4 * columns + 2 of them; fewer points than that are all given.
// places rise; values that are no number are left out. places and values are of equal length.
std::vector<std::size_t> PointsForPixels(std::span<const double> places, std::span<const double> values,
                                         double from, double to, std::size_t columns);

// The point whose place is nearest; places rise and there is at least one.
std::size_t NearestPlace(std::span<const double> places, double place);

}  // namespace goods
