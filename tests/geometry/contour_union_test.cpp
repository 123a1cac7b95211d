// The union of contours.
#include "geometry/contour_union.h"

#include <cmath>
#include <random>

#include "gtest/gtest.h"

namespace tess {
namespace {

using Lines = std::vector<ContourLine>;
using Corners = std::vector<PlanePoint>;

void append(Lines& lines, const Corners& corners) {
  for (std::size_t at = 0; at < corners.size(); ++at) {
    lines.push_back({corners[at], corners[(at + 1) % corners.size()]});
  }
}

Lines contours(const std::vector<Corners>& all) {
  Lines lines;
  for (const Corners& corners : all) append(lines, corners);
  return lines;
}

Corners square(double left, double bottom, double side) {
  return {
      {left, bottom}, {left + side, bottom}, {left + side, bottom + side}, {left, bottom + side}};
}

Corners reversed(Corners corners) {
  return {corners.rbegin(), corners.rend()};
}

Lines united(std::span<const ContourLine> lines) {
  const auto result = unitedContours(lines);
  EXPECT_TRUE(result.has_value());
  return result.value_or(Lines());
}

double areaOf(const Lines& lines) {
  double area = 0;
  for (const ContourLine& line : lines) area += cross(line.from, line.to) / 2;
  return area;
}

int contoursIn(const Lines& lines) {
  int count = 0;
  PlanePoint first;
  bool goesOn = false;
  for (const ContourLine& line : lines) {
    if (!goesOn) {
      first = line.from;
      ++count;
    }
    goesOn = !(line.to == first);
  }
  EXPECT_FALSE(goesOn);
  return count;
}

// Turns of a set of contours about a place that lies on none of them.
int turnsAbout(PlanePoint place, const Lines& lines) {
  double angle = 0;
  for (const ContourLine& line : lines) {
    const PlanePoint a = line.from - place;
    const PlanePoint b = line.to - place;
    angle += std::atan2(cross(a, b), dot(a, b));
  }
  return static_cast<int>(std::lround(angle / 6.283185307179586));
}

TEST(ContourUnion, OfNothingIsNothing) {
  EXPECT_TRUE(united({}).empty());
}

TEST(ContourUnion, OneContourStaysAsItIs) {
  const Lines result = united(contours({square(0, 0, 100)}));
  EXPECT_EQ(result.size(), 4U);
  EXPECT_EQ(areaOf(result), 10000);
}

TEST(ContourUnion, AContourTheOtherWayRoundIsTurned) {
  EXPECT_EQ(areaOf(united(contours({reversed(square(0, 0, 100))}))), 10000);
}

TEST(ContourUnion, CrossingContoursBecomeOne) {
  const Lines result = united(contours({square(0, 0, 100), square(50, 50, 100)}));
  EXPECT_EQ(result.size(), 8U);
  EXPECT_EQ(contoursIn(result), 1);
  EXPECT_EQ(areaOf(result), 17500);
}

TEST(ContourUnion, AHoleStays) {
  const Lines result = united(contours({square(0, 0, 100), reversed(square(25, 25, 50))}));
  EXPECT_EQ(contoursIn(result), 2);
  EXPECT_EQ(areaOf(result), 7500);
}

TEST(ContourUnion, WhatLiesInsideGoes) {
  const Lines result = united(contours({square(0, 0, 100), square(25, 25, 50)}));
  EXPECT_EQ(result.size(), 4U);
  EXPECT_EQ(areaOf(result), 10000);
}

TEST(ContourUnion, ContoursThatShareASideBecomeOne) {
  const Lines result = united(contours({square(0, 0, 100), square(100, 0, 100)}));
  EXPECT_EQ(result.size(), 4U);
  EXPECT_EQ(areaOf(result), 20000);
}

TEST(ContourUnion, ContoursThatShareAPartOfASideBecomeOne) {
  const Lines result = united(contours({square(0, 0, 100), square(100, 50, 100)}));
  EXPECT_EQ(contoursIn(result), 1);
  EXPECT_EQ(areaOf(result), 20000);
}

TEST(ContourUnion, ContoursThatTouchInACornerStayTwo) {
  const Lines result = united(contours({square(0, 0, 100), square(100, 100, 100)}));
  EXPECT_EQ(contoursIn(result), 2);
  EXPECT_EQ(areaOf(result), 20000);
}

TEST(ContourUnion, TheSameContourTwiceIsOne) {
  EXPECT_EQ(united(contours({square(0, 0, 100), square(0, 0, 100)})).size(), 4U);
}

TEST(ContourUnion, ContoursThatCancelOutLeaveNothing) {
  EXPECT_TRUE(united(contours({square(0, 0, 100), reversed(square(0, 0, 100))})).empty());
}

TEST(ContourUnion, AContourThatCrossesItselfIsUnited) {
  // A loop run twice about its middle.
  const Corners star{{0, 0},   {100, 0}, {100, 100}, {20, 100},
                     {20, 20}, {80, 20}, {80, 120},  {0, 120}};
  const Lines result = united(contours({star}));
  EXPECT_EQ(contoursIn(result), 1);
  EXPECT_EQ(areaOf(result), 100 * 100 + 80 * 20);
}

TEST(ContourUnion, OpenLinesStayAsTheyAre) {
  const Lines stroke{{{0.25, 0}, {50, 0.5}}, {{50, 0.5}, {90, 10}}};
  Lines all = contours({square(0, 0, 100)});
  all.insert(all.end(), stroke.begin(), stroke.end());
  const Lines result = united(all);
  ASSERT_EQ(result.size(), 6U);
  EXPECT_EQ(result[0], stroke[0]);
  EXPECT_EQ(result[1], stroke[1]);
}

TEST(ContourUnion, ATallArrangementIsNoOtherThanAWideOne) {
  const Lines result = united(contours({square(0, 0, 100), square(50, 50, 100), square(0, 900, 100),
                                        reversed(square(20, 920, 30))}));
  EXPECT_EQ(contoursIn(result), 3);
  EXPECT_EQ(areaOf(result), 17500 + 10000 - 900);
}

// A thousand long triangles through one another: the answer would hold millions of lines.
TEST(ContourUnion, ContoursThatCrossWithoutEndAreGivenUp) {
  std::mt19937 random(3);
  std::uniform_int_distribution<int> place(0, 100000000);
  Lines lines;
  for (int count = 0; count < 3000; ++count) {
    append(lines, {{1.0 * place(random), 1.0 * place(random)},
                   {1.0 * place(random), 1.0 * place(random)},
                   {1.0 * place(random), 1.0 * place(random)}});
  }
  EXPECT_FALSE(unitedContours(lines).has_value());
}

// Random triangles: inside the union is what the triangles turn about, and nothing is turned about
// twice.
TEST(ContourUnion, TurnsOnceAboutWhatTheContoursTurnAbout) {
  std::mt19937 random(7);
  for (int trial = 0; trial < 40; ++trial) {
    const int range = trial % 2 == 0 ? 30 : 3000;  // of few places many coincide
    std::uniform_int_distribution<int> place(0, range);
    Lines lines;
    for (int count = 0; count < 12; ++count) {
      append(lines, {{1.0 * place(random), 1.0 * place(random)},
                     {1.0 * place(random), 1.0 * place(random)},
                     {1.0 * place(random), 1.0 * place(random)}});
    }
    // Whole places, so that a small range is magnified to leave room for rounding.
    for (ContourLine& line : lines) {
      line.from = 1000.0 * line.from;
      line.to = 1000.0 * line.to;
    }
    const Lines result = united(lines);
    for (int probe = 0; probe < 200; ++probe) {
      const PlanePoint at{1000.0 * place(random) + 311, 1000.0 * place(random) + 173};
      double nearest = 1e9;
      for (const ContourLine& line : lines) {
        const PlanePoint along = line.to - line.from;
        if (along == PlanePoint{}) continue;
        nearest = std::min(nearest, std::abs(cross(along, at - line.from)) / lengthOf(along));
      }
      if (nearest < 5) continue;  // beside a line: rounding may have moved it
      EXPECT_EQ(turnsAbout(at, result), turnsAbout(at, lines) != 0 ? 1 : 0) << trial;
    }
  }
}

}  // namespace
}  // namespace tess
