// The picture of the drawing surface: mapping, pens, and exact erasure.
#include "shell/qt/raster_surface.h"

#include <QPainter>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

#include "geometry/float_constants.h"
#include "tests/qt/desktop_test_support.h"

namespace tess {
namespace {

constexpr Rgb kBlack = 0x000000;
constexpr Rgb kWhite = 0xFFFFFF;
constexpr Rgb kRed = 0x0000FF;  // red is the lowest byte
constexpr Rgb kGrey = 0x808080;
constexpr Rgb kGreen = 0x00FF00;

// 200 by 100 pixels that show x from -10 to 10 and y from -5 to 5.
void fitScale(RasterSurface& surface) {
  surface.setScaleMode(ScaleUnit::User);
  surface.setScaleLeft(-10);
  surface.setScaleWidth(20);
  surface.setScaleTop(5);
  surface.setScaleHeight(-10);
}

int countPixels(const QImage& picture, QRgb color) {
  int found = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if ((picture.pixel(x, y) & 0xFFFFFF) == color) ++found;
    }
  }
  return found;
}

// A picture of everything, so that inverting meets every kind of pixel.
void paintGround(RasterSurface& surface, Rgb background) {
  surface.setBackColor(background);
  surface.Cls();
  surface.box({-8, -4, 0, 4}, 0x800000, /*filled=*/true);
  surface.line({-9, -4.5F, 9, 3.1F}, kRed);
  surface.arc({.x = 2, .y = 0, .radius = 3}, 0x00FFFF);
  surface.text(3, 3, "X", kRed);
}

TEST(RasterSurface, PictureHasTheDensityOfTheScreen) {
  RasterSurface surface({0, 0, 200, 100}, 2);
  EXPECT_EQ(surface.picture().size(), QSize(400, 200));
  surface.Move({0, 0, 50, 40});
  EXPECT_EQ(surface.picture().size(), QSize(100, 80));
  surface.setDensity(1.5);
  EXPECT_EQ(surface.picture().size(), QSize(75, 60));
}

TEST(RasterSurface, AFilledBoxCoversItsPixelsWithYUpward) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.Cls();
  surface.box({0, 0, 1, 2}, kRed, /*filled=*/true);  // 10 by 20 pixels up from the middle
  const QImage& picture = surface.picture();
  EXPECT_EQ(picture.pixelColor(100, 50), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(110, 30), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(111, 30), QColor(Qt::white));
  EXPECT_EQ(picture.pixelColor(100, 51), QColor(Qt::white));
  EXPECT_EQ(countPixels(picture, 0xFF0000), 11 * 21);
}

TEST(RasterSurface, ThingsLieUponEachOtherInTheirOrder) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.Cls();
  surface.line({-3, -3, 3, 2.9F}, kRed);  // sloped, through the middle
  surface.box({-1, -1, 1, 1}, kGreen, /*filled=*/true);
  EXPECT_EQ(surface.picture().pixelColor(100, 50), QColor(0, 255, 0));
  surface.line({-3, -3, 3, 2.9F}, kRed);
  surface.line({-1, 0, 1, 0}, kGreen);
  EXPECT_EQ(surface.picture().pixelColor(100, 50), QColor(0, 255, 0));
  surface.line({-3, -3, 3, 3}, kBlack);
  EXPECT_EQ(surface.picture().pixelColor(100, 50), QColor(0, 0, 0));
}

TEST(RasterSurface, IsEmptyUntilSomethingIsPaintedOrThePictureIsWanted) {
  RasterSurface painted({0, 0, 200, 100});
  painted.Move({0, 0, 300, 200});
  EXPECT_TRUE(painted.isEmpty());
  painted.line({3, 4, 150, 77}, kRed);
  EXPECT_FALSE(painted.isEmpty());
  RasterSurface wanted({0, 0, 200, 100});
  EXPECT_TRUE(wanted.isEmpty());
  EXPECT_EQ(countPixels(wanted.picture(), 0xFFFFFF), 200 * 100);
  EXPECT_FALSE(wanted.isEmpty());
}

TEST(RasterSurface, ALineOnAPixelLiesUnderThePointerThatReportsIt) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.Cls();
  const Point from = surface.toWorld(20, 30);
  const Point to = surface.toWorld(60, 30);
  surface.line({from.x, from.y, to.x, to.y}, kBlack);
  EXPECT_EQ(surface.picture().pixelColor(20, 30), QColor(Qt::black));
  EXPECT_EQ(surface.picture().pixelColor(60, 30), QColor(Qt::black));
  EXPECT_EQ(countPixels(surface.picture(), 0), 41);
}

TEST(RasterSurface, PensAreAsWideAsTheScreenIsDense) {
  RasterSurface surface({0, 0, 200, 100}, 2);
  fitScale(surface);
  surface.Cls();
  surface.setDrawWidth(2);
  surface.line({-5, 0, 5, 0}, kBlack);
  int rows = 0;
  for (int y = 0; y < 200; ++y) {
    if (surface.picture().pixelColor(200, y) == QColor(Qt::black)) ++rows;
  }
  EXPECT_EQ(rows, 4);
}

TEST(RasterSurface, ALineWithoutLengthPaintsNothing) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.Cls();
  surface.line({0, 0, 0, 0}, kRed);
  EXPECT_EQ(countPixels(surface.picture(), 0xFFFFFF), 200 * 100);
}

TEST(RasterSurface, FarEndsAreCutOffWhereTheyCannotBeSeen) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.Cls();
  surface.line({-1e6F, 0, 1e6F, 0}, kBlack);
  EXPECT_EQ(countPixels(surface.picture(), 0), 200);
  surface.Cls();
  surface.box({-1e6F, -1e6F, 1e6F, 1e6F}, kRed, /*filled=*/true);
  EXPECT_EQ(countPixels(surface.picture(), 0xFF0000), 200 * 100);
  surface.Cls();
  surface.box({-1e6F, -1e6F, 1e6F, 1e6F}, kRed, /*filled=*/false);
  EXPECT_EQ(countPixels(surface.picture(), 0xFFFFFF), 200 * 100);
}

TEST(RasterSurface, AHugeCircleStaysWhereItIsSeen) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.Cls();
  surface.arc({.x = 1e5F, .y = 0, .radius = 1e5F}, kBlack);  // passes through 0, 0
  EXPECT_LT(surface.picture().pixelColor(100, 50).lightness(), 60);
  EXPECT_EQ(surface.picture().pixelColor(110, 50), QColor(Qt::white));
}

struct ArcCase {
  const char* name;
  double start, end;
  bool right, top, left, bottom;  // quadrant points that it passes
};

TEST(RasterSurface, ArcsRunCounterClockwiseFromStartToEnd) {
  const ArcCase cases[] = {
      {"first quadrant", -0.1, 1.7, true, true, false, false},
      {"upper half", -0.1, 3.3, true, true, true, false},
      {"lower half", 3.0, 6.4, true, false, true, true},
      {"over zero", 4.5, 0.1, true, false, false, true},
      {"end a full turn on", 1, 1 + kTwoPi, true, true, true, true},
      {"ends alike", 2, 2, true, true, true, true},
  };
  for (const ArcCase& row : cases) {
    SCOPED_TRACE(row.name);
    RasterSurface surface({0, 0, 200, 100});
    fitScale(surface);
    surface.Cls();
    surface.arc({.x = 0,
                 .y = 0,
                 .radius = 4,
                 .start = static_cast<float>(row.start),
                 .end = static_cast<float>(row.end),
                 .whole = false},
                kBlack);
    const auto painted = [&](int x, int y) {
      return surface.picture().pixelColor(x, y).lightness() < 128;
    };
    EXPECT_EQ(painted(140, 50), row.right);
    EXPECT_EQ(painted(100, 10), row.top);
    EXPECT_EQ(painted(60, 50), row.left);
    EXPECT_EQ(painted(100, 90), row.bottom);
  }
}

TEST(RasterSurface, OnlyAWholeCircleIsFilled) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.setFillStyle(FillMode::Solid);
  surface.setFillColor(kRed);
  surface.Cls();
  surface.arc({.x = 0, .y = 0, .radius = 4, .start = 0, .end = 3, .whole = false}, kBlack);
  EXPECT_EQ(surface.picture().pixelColor(100, 40), QColor(Qt::white));
  surface.arc({.x = 0, .y = 0, .radius = 4}, kBlack);
  EXPECT_EQ(surface.picture().pixelColor(100, 40), QColor(255, 0, 0));
}

TEST(RasterSurface, DottedLinesLeaveGaps) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.Cls();
  surface.setDrawStyle(PenStyle::Dot);
  surface.line({-10, 0, 10, 0}, kBlack);
  const int dots = countPixels(surface.picture(), 0);
  EXPECT_GT(dots, 30);
  EXPECT_LT(dots, 100);
}

TEST(RasterSurface, DotsAlongTheAxesAreThoseOfTheToolkitsPen) {
  const QSize size(60, 40);
  for (const QLine& line : {QLine(3, 5, 50, 5), QLine(50, 5, 3, 5), QLine(7, 2, 7, 33),
                            QLine(7, 33, 7, 2), QLine(4, 9, 6, 9), QLine(10, 30, 90, 30)}) {
    QImage expected(size, QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPen pen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap);
    pen.setDashPattern({1, 3});
    QPainter brush(&expected);
    brush.setPen(pen);
    brush.drawLine(line);
    brush.end();

    RasterSurface surface({0, 0, 60, 40});
    surface.setScaleMode(ScaleUnit::Pixels);
    surface.setDrawStyle(PenStyle::Dot);
    surface.line({narrow(line.x1()), narrow(line.y1()), narrow(line.x2()), narrow(line.y2())},
                 kBlack);
    EXPECT_EQ(surface.picture(), expected) << line.x1() << ' ' << line.y1();
  }
}

// Letters are smoothed: between black and white any grey may be a letter.
TEST(RasterSurface, TextCoversItsGroundOnlyWhenAsked) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.setBackColor(kGreen);
  surface.Cls();
  surface.box({-10, -5, 10, 5}, kWhite, /*filled=*/true);
  surface.text(0, 0, "XY", kBlack);
  EXPECT_EQ(countPixels(surface.picture(), kGreen), 0);
  surface.setFontTransparent(false);
  surface.text(0, 0, "XY", kBlack);
  EXPECT_GT(countPixels(surface.picture(), kGreen), 20);
}

// Inverting

struct Shape {
  const char* name;
  std::function<void(RasterSurface&)> draw;
};

std::vector<Shape> shapes() {
  return {
      {"flat line",
       [](RasterSurface& s) {
         s.line({-9, 1, 9, 1}, kBlack);
       }},
      {"slanted line",
       [](RasterSurface& s) {
         s.line({-9.3F, -4.2F, 9.1F, 4.4F}, kRed);
       }},
      {"line out of sight",
       [](RasterSurface& s) {
         s.line({-50, -20, 60, 30}, kBlack);
       }},
      {"outline",
       [](RasterSurface& s) {
         s.box({-3, -2, 7.3F, 4}, kBlack, false);
       }},
      {"flat outline",
       [](RasterSurface& s) {
         s.box({-3, 2, 7, 2}, kBlack, false);
       }},
      {"filled box",
       [](RasterSurface& s) {
         s.box({-3, -2, 7.3F, 4}, kRed, true);
       }},
      {"circle", [](RasterSurface& s) { s.arc({.x = 1, .y = 0.3F, .radius = 3.7F}, kBlack); }},
      {"arc",
       [](RasterSurface& s) {
         s.arc({.x = 1, .y = 0, .radius = 4, .start = 1, .end = 5, .whole = false}, kRed);
       }},
      {"letters", [](RasterSurface& s) { s.text(-2, 2, "Xy", kBlack); }},
  };
}

class Inverting : public ::testing::TestWithParam<double> {};

TEST_P(Inverting, DrawnTwiceLeavesNoTrace) {
  for (const PenStyle style : {PenStyle::Solid, PenStyle::Dash, PenStyle::Dot}) {
    for (const Shape& shape : shapes()) {
      SCOPED_TRACE(std::string(shape.name) + ", style " + std::to_string(static_cast<int>(style)));
      RasterSurface surface({0, 0, 200, 100}, GetParam());
      fitScale(surface);
      paintGround(surface, kBlack);
      const QImage before = surface.picture().copy();
      surface.setDrawMode(PenMode::NotXor);
      surface.setDrawStyle(style);
      shape.draw(surface);
      EXPECT_NE(surface.picture(), before) << "it shows";
      shape.draw(surface);
      EXPECT_EQ(surface.picture(), before) << "it is gone";
    }
  }
}

// Lines that hover cross one another in pixels that are inverted once.
TEST_P(Inverting, WhatHoversTwiceLeavesNoTrace) {
  RasterSurface surface({0, 0, 200, 100}, GetParam());
  fitScale(surface);
  paintGround(surface, 0x301040);
  const QImage before = surface.picture().copy();
  const WorldBox lines[] = {{-12, -3, 12, 3}, {-6, 3, 6, -3},  {6, -3, -6, 3},
                            {2, 2, 2, 2},     {2, 0, 40, 300}, {-6, 3, -6.1F, 3.1F}};
  ASSERT_TRUE(surface.reserveHover(200, 100));
  surface.hover(lines, kRed);
  EXPECT_NE(surface.picture(), before);
  surface.line({-9, 4, -5, 4}, kGreen);
  surface.hover(lines, kRed);
  surface.hover(lines, kRed);
  surface.hover(lines, kRed);
  QImage plain = before;
  {
    RasterSurface other({0, 0, 200, 100}, GetParam());
    fitScale(other);
    paintGround(other, 0x301040);
    other.line({-9, 4, -5, 4}, kGreen);
    plain = other.picture().copy();
  }
  EXPECT_EQ(surface.picture(), plain);
}

INSTANTIATE_TEST_SUITE_P(Densities, Inverting, ::testing::Values(1.0, 1.25, 2.0));

TEST(RasterSurface, APixelUnderSeveralLinesThatHoverIsInvertedOnce) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.setBackColor(kBlack);
  surface.Cls();
  const WorldBox pieces[] = {{-5, 0, 0, 0}, {0, 0, 5, 0}, {5, 0, 0, 0}};
  surface.hover(pieces, kBlack);
  EXPECT_EQ(countPixels(surface.picture(), 0xFFFFFF), 101);
}

TEST(RasterSurface, WhatHoversAfterTheSurfaceBecameLargerReachesItsNewParts) {
  RasterSurface surface({0, 0, 100, 100});
  ASSERT_TRUE(surface.reserveHover(100, 100));
  surface.Move({0, 0, 200, 100});
  fitScale(surface);
  surface.setBackColor(kBlack);
  surface.Cls();
  const WorldBox line[] = {{5, 0, 9, 0}};
  surface.hover(line, kBlack);
  EXPECT_EQ(countPixels(surface.picture(), 0xFFFFFF), 41);
}

TEST(RasterSurface, AThousandRubberBandsLeaveNoTrace) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  paintGround(surface, kWhite);
  const QImage before = surface.picture().copy();
  surface.setDrawMode(PenMode::NotXor);
  std::mt19937 random(7);
  std::uniform_real_distribution<float> place(-12, 12);
  WorldBox shown{0, 0, 1, 1};
  surface.line(shown, kBlack);
  for (int move = 0; move < 1000; ++move) {
    surface.line(shown, kBlack);
    shown = {0, 0, place(random), place(random)};
    surface.line(shown, kBlack);
  }
  surface.line(shown, kBlack);
  EXPECT_EQ(surface.picture(), before);
}

TEST(RasterSurface, AnInvertingPenShowsOnItsBackgroundWhateverItsColor) {
  for (const Rgb background : {kBlack, kWhite, kGrey, kRed}) {
    for (const Rgb pen : {kBlack, kWhite, kGrey, kRed}) {
      RasterSurface surface({0, 0, 200, 100});
      fitScale(surface);
      surface.setBackColor(background);
      surface.Cls();
      const int ground = qGray(surface.picture().pixel(100, 50));
      surface.setDrawMode(PenMode::NotXor);
      surface.line({-9, 0, 9, 0}, pen);
      EXPECT_GE(std::abs(qGray(surface.picture().pixel(100, 50)) - ground), 50)
          << "pen " << pen << " on " << background;
    }
  }
}

// Showing

TEST(RasterSurface, NothingIsShownWhileRepaintingIsOff) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  surface.Cls();
  int refreshed = 0;
  int painted = 0;
  surface.onRefresh = [&] { ++refreshed; };
  surface.onPainted = [&](const QRect&) { ++painted; };
  surface.setRepaint(false);
  surface.box({-10, -5, 10, 5}, kRed, /*filled=*/true);
  surface.Refresh();
  EXPECT_EQ(surface.picture().pixelColor(100, 50), QColor(Qt::white));
  EXPECT_EQ(refreshed, 0);
  EXPECT_EQ(painted, 0);
  surface.setRepaint(true);
  surface.Refresh();
  EXPECT_EQ(surface.picture().pixelColor(100, 50), QColor(255, 0, 0));
  EXPECT_EQ(refreshed, 1);
  EXPECT_EQ(painted, 1);
}

// A redraw may come before the first view is fitted, when the scale is no number.
TEST(RasterSurface, PlacesThatAreNoNumbersAreNotDrawn) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  const QImage before = surface.picture();
  constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
  surface.box({kNone, kNone, 1, 1}, kRed, /*filled=*/true);
  surface.box({0, 0, kNone, 1}, kRed, /*filled=*/false);
  surface.line({kNone, 0, 1, 1}, kRed);
  surface.arc({.x = kNone, .radius = 1}, kRed);
  surface.arc({.radius = kNone}, kRed);
  surface.text(kNone, 0, "X", kRed);
  EXPECT_EQ(surface.picture(), before);
}

TEST(RasterSurface, TellsWhichPixelsWerePainted) {
  RasterSurface surface({0, 0, 200, 100});
  fitScale(surface);
  QRect reached;
  surface.onPainted = [&](const QRect& box) { reached |= box; };
  surface.box({0, 0, 1, 1}, kRed, /*filled=*/true);
  EXPECT_TRUE(reached.contains(QRect(100, 40, 11, 11)));
  EXPECT_LT(reached.width(), 25);
  EXPECT_LT(reached.height(), 25);
}

}  // namespace
}  // namespace tess
