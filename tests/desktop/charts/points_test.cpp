// What of a line can be seen on so many pixels.
#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "desktop/charts/chart_points.h"

namespace goods {
namespace {

struct Line {
  std::vector<double> places;
  std::vector<double> values;
};

Line RandomLine(unsigned seed, std::size_t points) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> step(0, 2);
  std::normal_distribution<double> jump(0, 10);
  Line line;
  double place = 0;
  double value = 0;
  for (std::size_t i = 0; i < points; ++i) {
    line.places.push_back(place += step(random));
    line.values.push_back(random() % 50 == 0 ? std::nan("") : value += jump(random));
  }
  return line;
}

struct Reach {
  double low = INFINITY;
  double high = -INFINITY;
  void Add(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  bool operator==(const Reach&) const = default;
};

// What a line reaches in each of so many columns of pixels, by the points given.
template <typename Indices>
std::vector<Reach> Reaches(const Line& line, double from, double to, std::size_t columns,
                           const Indices& points) {
  std::vector<Reach> reaches(columns);
  for (const std::size_t i : points) {
    const double place = line.places[i];
    if (place < from || place > to || std::isnan(line.values[i])) continue;
    const auto column = static_cast<std::size_t>((place - from) / (to - from) * static_cast<double>(columns));
    reaches[std::min(column, columns - 1)].Add(line.values[i]);
  }
  return reaches;
}

std::vector<std::size_t> AllPoints(const Line& line) {
  std::vector<std::size_t> all(line.places.size());
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
  return all;
}

TEST(PointsForPixels, KeepTheLowestAndHighestOfEachColumnWhateverTheLine) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    const Line line = RandomLine(seed, 1 + seed * 37);
    const double end = line.places.back();
    const double from = seed % 3 == 0 ? end / 5 : line.places.front();
    const double to = seed % 4 == 0 ? end / 2 : end;
    const std::size_t columns = 1 + seed % 90;
    if (!(to > from)) continue;
    const auto points = PointsForPixels(line.places, line.values, from, to, columns);
    EXPECT_LE(points.size(), 4 * columns + 2) << seed;
    EXPECT_TRUE(std::is_sorted(points.begin(), points.end())) << seed;
    EXPECT_EQ(std::adjacent_find(points.begin(), points.end()), points.end()) << seed;
    EXPECT_EQ(Reaches(line, from, to, columns, points), Reaches(line, from, to, columns, AllPoints(line)))
        << seed;
    for (const std::size_t i : points) EXPECT_FALSE(std::isnan(line.values[i])) << seed;
  }
}

TEST(PointsForPixels, TakeTheLineToWhereItLeavesTheStretchOnBothSides) {
  const std::vector<double> places{1, 2, 3, 4, 5, 6};
  const std::vector<double> values{10, std::nan(""), 30, 40, 50, 60};
  using Points = std::vector<std::size_t>;
  EXPECT_EQ(PointsForPixels(places, values, 2.5, 4.5, 100), (Points{0, 2, 3, 4}));
  EXPECT_EQ(PointsForPixels(places, values, 0, 7, 100), (Points{0, 2, 3, 4, 5}));
  EXPECT_EQ(PointsForPixels(places, values, 3.2, 3.8, 100), (Points{2, 3}));
  EXPECT_EQ(PointsForPixels(places, values, 8, 9, 100), (Points{5}));
}

TEST(PointsForPixels, GiveEveryPointWhereThereAreFew) {
  const Line line = RandomLine(7, 300);
  std::vector<std::size_t> sound;
  for (const std::size_t i : AllPoints(line)) {
    if (!std::isnan(line.values[i])) sound.push_back(i);
  }
  EXPECT_EQ(PointsForPixels(line.places, line.values, line.places.front(), line.places.back(), 100), sound);
}

TEST(PointsForPixels, StandNoPointOnePointAndManyAtOnePlace) {
  using Points = std::vector<std::size_t>;
  EXPECT_EQ(PointsForPixels({}, {}, 0, 1, 10), Points{});
  const std::vector<double> one{5};
  EXPECT_EQ(PointsForPixels(one, one, 5, 5, 10), Points{0});
  const std::vector<double> none{std::nan("")};
  EXPECT_EQ(PointsForPixels(one, none, 4, 6, 10), Points{});
  const std::vector<double> same(1000, 5.0);
  std::vector<double> values(1000, 1.0);
  values[400] = -3;
  values[600] = 9;
  EXPECT_EQ(PointsForPixels(same, values, 4, 6, 10), (Points{0, 400, 600, 999}));
}

TEST(PointsForPixels, AMillionPointsBecomeFourAColumnAtMost) {
  const Line line = RandomLine(3, 1'000'000);
  const auto points =
      PointsForPixels(line.places, line.values, line.places.front(), line.places.back(), 1000);
  EXPECT_LE(points.size(), 4002U);
  EXPECT_GE(points.size(), 2000U);
}

TEST(NearestPlace, IsTheNearerOfTheTwoBesideIt) {
  const std::vector<double> places{1, 2, 4, 8};
  EXPECT_EQ(NearestPlace(places, -5), 0U);
  EXPECT_EQ(NearestPlace(places, 2.9), 1U);
  EXPECT_EQ(NearestPlace(places, 3.1), 2U);
  EXPECT_EQ(NearestPlace(places, 99), 3U);
}

}  // namespace
}  // namespace goods
