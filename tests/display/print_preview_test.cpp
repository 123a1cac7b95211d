// The proxy that gives paper the shape of the surface.
#include "display/print_preview.h"

#include "gtest/gtest.h"

#include "core/runtime_failure.h"
#include "tests/support/recorded_paper.h"

namespace tess {
namespace {

struct PaperProxy : ::testing::Test {
  PaperProxy() { SetScale(/*left=*/-5, /*bottom=*/-4, /*right=*/5, /*top=*/4, page); }
  testing::RecordedPaper paper;
  PrintPreviewProxy page{paper};
};

TEST_F(PaperProxy, SpansThePageBetweenItsMargins) {
  EXPECT_FLOAT_EQ(page.MapX(-5), 720);
  EXPECT_FLOAT_EQ(page.MapX(5), 12000 - 720);
  EXPECT_FLOAT_EQ(page.MapX(0), 6000);
  EXPECT_FLOAT_EQ(page.MapY(4), 720);
  EXPECT_FLOAT_EQ(page.MapY(-4), 16000 - 720);
}

TEST_F(PaperProxy, IsNoScreenAndKeepsItsPen) {
  EXPECT_EQ(page.screen(), nullptr);
  page.setDrawMode(PenMode::NotXor);
  page.setDrawStyle(PenStyle::Dash);
  EXPECT_EQ(page.DrawMode(), PenMode::Copy);
  EXPECT_EQ(page.DrawStyle(), PenStyle::Solid);
}

TEST_F(PaperProxy, WhatMakesNoSenseOnPaperChangesNothing) {
  page.setWidth(1);
  page.setHeight(1);
  page.setScaleMode(ScaleUnit::Pixels);
  page.Cls();
  EXPECT_EQ(page.Width(), 12000);
  EXPECT_EQ(page.Height(), 16000);
  EXPECT_EQ(page.ScaleMode(), ScaleUnit::User);
  EXPECT_EQ(paper.log.take(), "");
}

TEST_F(PaperProxy, KeepsAUserScaleOfItsOwn) {
  EXPECT_EQ(page.ScaleLeft(), -5);
  EXPECT_EQ(page.ScaleTop(), 4);
  EXPECT_EQ(page.ScaleWidth(), 10);
  EXPECT_EQ(page.ScaleHeight(), -8);
  EXPECT_FLOAT_EQ(page.ScaleX(1056, ScaleUnit::Pixels, ScaleUnit::User), 1);
  EXPECT_FLOAT_EQ(page.ScaleY(1820, ScaleUnit::Pixels, ScaleUnit::User), -1);
}

TEST_F(PaperProxy, DrawsLinesBoxesAndCircles) {
  page.TraceLine({-5, 4, 5, -4}, 0x0000FF);
  page.TraceLine({-5, 4, 5, -4}, 0, kOutlineBox);
  page.TraceLine({0, 0, 5, -4}, 0, kFilledBox);
  page.TraceCircle(0, 0, 2.5F);
  page.TraceCircle(0, 0, 2.5F, 0, 0.0F, 1.0F);
  page.TraceCircle(0, 0, 0);
  EXPECT_EQ(paper.log.take(),
            "line (720, 720)-(11280, 15280) #FF0000\n"
            "box (720, 720)-(11280, 15280) #000000\n"
            "filled box (6000, 8000)-(11280, 15280) #000000\n"
            "circle (6000, 8000) r 2640 #000000\n"
            "arc (6000, 8000) r 2640 #000000\n");
}

TEST_F(PaperProxy, RefusesAnotherBox) {
  EXPECT_THROW(page.TraceLine({0, 0, 1, 1}, 0, 3), RuntimeFailure);
  takeCallChain();
}

}  // namespace
}  // namespace tess
