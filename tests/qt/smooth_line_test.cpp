// Smooth lines: how much ink they leave, and that none of it leaves the picture.
#include "shell/qt/smooth_line.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

#include "shell/qt/raster_surface.h"

namespace tess {
namespace {

constexpr QRgb kInk = 0xFF000000;

void blendLine(QImage& picture, const QLineF& line, double width, QRgb ink) {
  SmoothLines lines(picture);
  lines.add(line, width, ink);
  lines.finish();
}

QImage whitePicture() {
  QImage picture(100, 80, QImage::Format_RGB32);
  picture.fill(Qt::white);
  return picture;
}

// In whole pixels of black.
double inkOn(const QImage& picture) {
  double ink = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ink += (255 - qGray(picture.pixel(x, y))) / 255.0;
  }
  return ink;
}

std::vector<QLineF> everyDirection(double length) {
  std::vector<QLineF> lines;
  for (double angle = 0; angle < 360; angle += 7.3) {
    QLineF line(50.4, 40.7, 51, 41);
    line.setAngle(angle);
    line.setLength(length);
    lines.push_back(line);
  }
  return lines;
}

TEST(SmoothLine, LeavesTheInkOfItsLengthAndWidth) {
  for (const double width : {1.0, 2.0}) {
    for (const double length : {0.4, 3.0, 30.0}) {
      for (const QLineF& line : everyDirection(length)) {
        QImage picture = whitePicture();
        blendLine(picture, line, width, kInk);
        const double expected = (length + width) * width;
        EXPECT_NEAR(inkOn(picture), expected, 0.03 * expected + 0.05)
            << width << " wide, " << length << " long, at " << line.angle();
      }
    }
  }
}

TEST(SmoothLine, IsTheSameFromEitherEnd) {
  for (const QLineF& line : everyDirection(25)) {
    QImage there = whitePicture();
    QImage back = whitePicture();
    blendLine(there, line, 1, kInk);
    blendLine(back, QLineF(line.p2(), line.p1()), 1, kInk);
    EXPECT_EQ(there, back) << line.angle();
  }
}

TEST(SmoothLine, APixelUnderTheMiddleTakesTheInkWhole) {
  QImage picture = whitePicture();
  blendLine(picture, {10.5, 20.5, 30.5, 20.5}, 1, 0xFF123456);
  EXPECT_EQ(picture.pixel(10, 20), 0xFF123456);
  EXPECT_EQ(picture.pixel(30, 20), 0xFF123456);
  EXPECT_EQ(picture.pixel(9, 20), 0xFFFFFFFF);
  EXPECT_EQ(picture.pixel(20, 21), 0xFFFFFFFF);
}

// The picture is a part of a larger one, whose rest would show what went astray.
TEST(SmoothLine, IsCutOffAtTheEdgesOfThePicture) {
  constexpr int kFrame = 10;
  for (const double width : {1.0, 2.0}) {
    for (const QLineF& line : everyDirection(70)) {
      QImage around = whitePicture();
      auto* corner = reinterpret_cast<QRgb*>(around.scanLine(kFrame)) + kFrame;
      QImage picture(reinterpret_cast<uchar*>(corner), 80, 60, around.bytesPerLine(),
                     QImage::Format_RGB32);
      blendLine(picture, line.translated(-kFrame, -kFrame), width, kInk);
      EXPECT_GT(inkOn(picture), 5);
      EXPECT_NEAR(inkOn(around), inkOn(picture), 1e-9) << line.angle();
    }
  }
}

TEST(SmoothLine, WaitingChangesNothing) {
  QImage together = whitePicture();
  QImage alone = whitePicture();
  SmoothLines lines(together);
  int added = 0;
  for (const double length : {20.0, 33.0, 2.5}) {
    for (const QLineF& line : everyDirection(length)) {
      const QRgb ink = 0xFF000000U | static_cast<QRgb>(7919 * ++added);
      lines.add(line, 1, ink);
      blendLine(alone, line, 1, ink);
    }
  }
  EXPECT_NE(together, alone) << "the last ones have not waited";
  lines.finish();
  EXPECT_EQ(together, alone);
  lines.finish();
  EXPECT_EQ(together, alone);
}

TEST(SmoothLine, ARowLooksTheSameHoweverOftenItIsCopied) {
  RasterSurface once({0, 0, 200, 100});
  RasterSurface twice({0, 0, 200, 100});
  const WorldBox ends{3, 4, 150, 77};
  once.line(ends, 0x0000FF);
  twice.line(ends, 0x0000FF);
  twice.line(ends, 0x0000FF);
  EXPECT_EQ(once.picture(), twice.picture());
  once.setDrawMode(PenMode::NotXor);
  const QImage before = once.picture().copy();
  once.line(ends, 0x0000FF);
  EXPECT_NE(once.picture(), before) << "an inverting line is never left out";
  once.line(ends, 0x0000FF);
  EXPECT_EQ(once.picture(), before);
}

}  // namespace
}  // namespace tess
