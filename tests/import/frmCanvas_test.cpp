// The text engine: its states, baselines straight and bent, lines of text, and what ends a run.
#include "import/frmCanvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "gtest/gtest.h"

#include "import/QLGlyph.h"
#include "tests/import/square_glyphs.h"
#include "tests/support/recording_session.h"
#include "tests/support/recording_target.h"

namespace tess {
namespace {

using std::numbers::pi;
using testing::LateGlyphs;
using testing::recordedPoint;
using testing::SquareFonts;
using testing::TestSession;
using Lines = std::vector<clsLineCoordinates>;
using Texts = std::vector<std::string>;

// An em is an inch, and an inch a thousand pixels.
TextRun runOf(const std::string& text) {
  TextRun run;
  run.text = text;
  run.Resolution = 0.001;
  run.FontName = "square";
  run.FontSize = 72;
  run.PixelsPerInchX = run.PixelsPerInchY = 1000;
  return run;
}

class Engine : public ::testing::Test {
 protected:
  Lines draw(const TextRun& run) {
    canvas.DrawText(run);
    return canvas.GetLines(0, 0);
  }

  // Where each letter's square begins.
  Texts cornersOf(const TextRun& run) {
    const Lines lines = draw(run);
    Texts corners;
    for (std::size_t at = 0; at < lines.size(); at += 4) {
      corners.push_back(recordedPoint(lines[at].x0, lines[at].y0));
    }
    return corners;
  }

  TestSession session;
  SquareFonts fonts;
  QLGlyph glyphs;
  frmCanvas canvas{session.session, fonts, glyphs, nullptr};
};

class LateEngine : public ::testing::Test {
 protected:
  LateEngine() {
    canvas.onDrawTextDone = [this](bool BoundsOnly) { done.push_back(BoundsOnly); };
  }

  TestSession session;
  SquareFonts fonts;
  LateGlyphs glyphs;
  frmCanvas canvas{session.session, fonts, glyphs, nullptr};
  std::vector<bool> done;
};

// ---- States

TEST_F(LateEngine, AnEmptyTextIsDoneAtOnceWithoutLines) {
  canvas.DrawText(runOf(""));
  EXPECT_EQ(done, std::vector<bool>{false});
  EXPECT_TRUE(glyphs.requests.empty());
  EXPECT_TRUE(canvas.GetLines(1, 1).empty());
}

TEST_F(LateEngine, AsksForOneCharacterAfterTheOther) {
  canvas.DrawText(runOf("ab"));
  ASSERT_EQ(glyphs.requests.size(), 1U);
  EXPECT_EQ(glyphs.requests[0].character, U'a');
  EXPECT_TRUE(done.empty());
  glyphs.finish(100);
  ASSERT_EQ(glyphs.requests.size(), 2U);
  EXPECT_EQ(glyphs.requests[1].character, U'b');
  EXPECT_GT(glyphs.requests[1].id, glyphs.requests[0].id);
  EXPECT_TRUE(done.empty());
  glyphs.finish(100);
  EXPECT_EQ(done, std::vector<bool>{false});
}

TEST_F(LateEngine, TellsWhetherARunWasOfTheBoundsOnly) {
  TextRun run = runOf("");
  run.BoundsOnly = true;
  canvas.DrawTextEx(run);
  canvas.DrawText(run);
  EXPECT_EQ(done, (std::vector<bool>{true, false}));
}

TEST_F(LateEngine, ALineOfAnAbortedRunChangesNothing) {
  canvas.DrawText(runOf("a"));
  const int id = glyphs.requests[0].id;
  glyphs.addLine(id, 0, 0, 1000, 0);
  canvas.Abort();
  glyphs.addLine(id, 1000, 0, 1000, 1000);
  glyphs.finish(100);
  EXPECT_EQ(canvas.GetLines(0, 0).size(), 1U);
  EXPECT_TRUE(done.empty());
}

TEST_F(LateEngine, ANewRunSupersedesTheOneInProgress) {
  canvas.DrawText(runOf("ab"));
  const int first = glyphs.requests[0].id;
  canvas.DrawText(runOf("c"));
  glyphs.addLine(first, 0, 0, 1000, 0);
  glyphs.addLine(glyphs.requests[1].id, 0, 0, 0, 1000);
  glyphs.finish(100);
  EXPECT_EQ(done, std::vector<bool>{false});
  EXPECT_EQ(canvas.GetLines(0, 0), (Lines{{0, 0, 0, -1}}));
}

TEST_F(LateEngine, ClosingTheFormAbortsTheRun) {
  canvas.load();
  canvas.DrawText(runOf("a"));
  canvas.close();
  glyphs.finish(100);
  EXPECT_TRUE(done.empty());
}

TEST_F(LateEngine, WaitingServesEventsUntilTheRunIsDone) {
  struct Serving : testing::RecordingSurroundings {
    void serveEvents() override {
      RecordingSurroundings::serveEvents();
      if (eventsServed == 3) glyphs->finish(100);
    }
    LateGlyphs* glyphs = nullptr;
  } surroundings;
  surroundings.glyphs = &glyphs;
  Host host{session.recording.prompts, session.recording.clock, surroundings,
            session.recording.failures, session.recording.guard};
  Session own(session.store, host, session.session.listener);
  frmCanvas waiting(own, fonts, glyphs, nullptr);
  waiting.DrawText(runOf("a"));
  waiting.DrawTextWaitAll();
  EXPECT_EQ(surroundings.eventsServed, 3);
}

TEST_F(LateEngine, TheTableGrowsBeyondAThousandLines) {
  canvas.DrawText(runOf("a"));
  for (int at = 0; at < 2500; ++at) glyphs.addLine(glyphs.requests[0].id, at, 0, at + 1, 0);
  glyphs.finish(100);
  const Lines lines = canvas.GetLines(0, 0);
  ASSERT_EQ(lines.size(), 2500U);
  EXPECT_EQ(lines.back(), (clsLineCoordinates{2.499, 0, 2.5, 0}));
}

TEST_F(LateEngine, CharactersAreCodePoints) {
  canvas.DrawText(runOf("\xC3\xA4\xF0\x9D\x94\xB8\xE4"));
  glyphs.finish(1);
  glyphs.finish(1);
  glyphs.finish(1);
  ASSERT_EQ(glyphs.requests.size(), 3U);
  EXPECT_EQ(glyphs.requests[0].character, 0xE4U);
  EXPECT_EQ(glyphs.requests[1].character, 0x1D538U);
  EXPECT_EQ(glyphs.requests[2].character, 0xE4U);  // a byte that is no UTF-8
}

// ---- A straight baseline

TEST_F(Engine, LettersFollowOneAnotherByTheirAdvance) {
  EXPECT_EQ(cornersOf(runOf("ab c")), (Texts{"(0, 0)", "(1, 0)", "(3, 0)"}));
}

TEST_F(Engine, PiecesRunHeadToTailAndCloseExactly) {
  EXPECT_EQ(draw(runOf("a")),
            (Lines{{0, 0, 0.5, 0}, {0.5, 0, 0.5, 0.5}, {0.5, 0.5, 0, 0.5}, {0, 0.5, 0, 0}}));
}

TEST_F(Engine, LinesAreShiftedByTheGivenPoint) {
  canvas.DrawText(runOf("a"));
  EXPECT_EQ(canvas.GetLines(10, 20)[0], (clsLineCoordinates{10, 20, 10.5, 20}));
}

TEST_F(Engine, TrackingIsInPoints) {
  TextRun run = runOf("aa");
  run.TrackingDelta = 18;
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(1.25, 0)"}));
}

TEST_F(Engine, AnEmIsItsPointsBySeventyTwo) {
  TextRun run = runOf("aa");
  run.FontSize = 144;
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(2, 0)"}));
}

TEST_F(Engine, TheNextLineLiesBelow) {
  EXPECT_EQ(cornersOf(runOf("a\nbb")), (Texts{"(0, 0)", "(0, -1)", "(1, -1)"}));
}

TEST_F(Engine, ALineBreakOfTwoCharactersCountsOnce) {
  EXPECT_EQ(cornersOf(runOf("a\r\nb\r\rc")), (Texts{"(0, 0)", "(0, -1)", "(1, -1)"}));
}

TEST_F(Engine, TheNextLineLiesBelowInTheTextsOwnFrame) {
  TextRun run = runOf("aa\nb");
  run.Orientation = -pi / 2;  // upward: the canvas turns the other way
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(0, 1)", "(1, 0)"}));
}

TEST_F(Engine, MirrorXReversesTheAdvance) {
  TextRun run = runOf("ab");
  run.MirrorX = true;
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(-1, 0)"}));
  EXPECT_EQ(draw(run)[0], (clsLineCoordinates{0, 0, -0.5, 0}));
}

TEST_F(Engine, MirrorYHangsTheLettersFromTheBaseline) {
  TextRun run = runOf("ab");
  run.MirrorY = true;
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(1, 0)"}));
  EXPECT_EQ(draw(run)[1], (clsLineCoordinates{0.5, 0, 0.5, -0.5}));
}

TEST_F(Engine, MirrorsBeforeItTurns) {
  TextRun run = runOf("ab");
  run.MirrorX = true;
  run.Orientation = -pi / 2;
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(0, -1)"}));
}

TEST_F(Engine, PairsAreSetCloserOnlyWhenAskedTo) {
  TextRun run = runOf("AVA");
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(1, 0)", "(2, 0)"}));
  run.Kerning = true;
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(0.75, 0)", "(1.75, 0)"}));
}

TEST_F(Engine, NoPairReachesOverALineBreak) {
  TextRun run = runOf("A\nV");
  run.Kerning = true;
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(0, -1)"}));
}

TEST_F(Engine, ControlAndInvisibleCharactersLeaveNothing) {
  EXPECT_EQ(cornersOf(runOf("a\x01\x7F\xE2\x80\x8B\xE2\x80\xAE"
                            "b")),
            (Texts{"(0, 0)", "(1, 0)"}));
}

TEST_F(Engine, ATabIsAsWideAsABlank) {
  EXPECT_EQ(cornersOf(runOf("a\tb")), (Texts{"(0, 0)", "(2, 0)"}));
}

TEST_F(Engine, RightToLeftLettersStandInTypedOrder) {
  EXPECT_EQ(cornersOf(runOf("\xD7\x90\xD7\x91")), (Texts{"(0, 0)", "(1, 0)"}));
}

// ---- A bent baseline

// Where a place lies as seen from the centre: its distance, and the angle counter-clockwise.
struct Seen {
  double distance, degrees;
};
Seen seenFrom(PlanePoint center, const clsLineCoordinates& line) {
  const PlanePoint d{line.x0 - center.x, line.y0 - center.y};
  return {lengthOf(d), std::atan2(d.y, d.x) * 180 / pi};
}

TEST_F(Engine, PositiveCurvatureHasItsCentreAboveAndLinesStackOutward) {
  TextRun run = runOf("aa\nbb");
  run.Curvature = 4;
  const Lines lines = draw(run);
  ASSERT_EQ(lines.size(), 16U);
  const PlanePoint center{0, 4};
  const auto letter = [&](int at) {
    return seenFrom(center, lines[static_cast<std::size_t>(at) * 4]);
  };
  EXPECT_NEAR(letter(0).distance, 4, 0.001);
  EXPECT_NEAR(letter(0).degrees, -90, 0.02);
  EXPECT_NEAR(letter(1).distance, 4, 0.001);
  EXPECT_NEAR(letter(1).degrees, -90 + 0.25 * 180 / pi, 0.02);
  EXPECT_NEAR(letter(2).distance, 5, 0.001);
  EXPECT_NEAR(letter(2).degrees, -90, 0.02);
  EXPECT_NEAR(letter(3).degrees, -90 + 0.2 * 180 / pi, 0.02);
}

TEST_F(Engine, NegativeCurvatureHasItsCentreBelowAndLinesStackInward) {
  TextRun run = runOf("aa\nbb");
  run.Curvature = -4;
  const Lines lines = draw(run);
  ASSERT_EQ(lines.size(), 16U);
  const PlanePoint center{0, -4};
  const auto letter = [&](int at) {
    return seenFrom(center, lines[static_cast<std::size_t>(at) * 4]);
  };
  EXPECT_NEAR(letter(0).distance, 4, 0.001);
  EXPECT_NEAR(letter(1).distance, 4, 0.001);
  EXPECT_NEAR(letter(1).degrees, 90 - 0.25 * 180 / pi, 0.02);
  EXPECT_NEAR(letter(2).distance, 3, 0.001);
  EXPECT_NEAR(letter(3).degrees, 90 - 180 / pi / 3, 0.02);
}

TEST_F(Engine, LettersOnACurveStandUprightOnTheirTangent) {
  TextRun run = runOf("aa");
  run.Curvature = 4;
  const Lines lines = draw(run);
  const clsLineCoordinates& base = lines[4];  // the second letter's lower side
  EXPECT_NEAR(std::atan2(base.y1 - base.y0, base.x1 - base.x0), 0.25, 0.001);
}

TEST_F(Engine, ACurveBeginsWhereTheOrientationSays) {
  TextRun run = runOf("aa");
  run.Curvature = 4;
  run.Orientation = -pi / 2;  // upward: the centre lies to the left
  const Lines lines = draw(run);
  EXPECT_NEAR(lines[0].x0, 0, 0.001);
  EXPECT_NEAR(lines[0].y0, 0, 0.001);
  EXPECT_NEAR(seenFrom({-4, 0}, lines[4]).distance, 4, 0.001);
  EXPECT_NEAR(seenFrom({-4, 0}, lines[4]).degrees, 0.25 * 180 / pi, 0.02);
}

TEST_F(Engine, ARadiusThatHasShrunkToNothingKeepsThePenStill) {
  TextRun run = runOf("a\nbb");
  run.Curvature = -1;
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(0, -1)", "(0, -1)"}));
}

TEST_F(Engine, ARadiusBeyondAllMeasureIsStraight) {
  for (const double radius : {1e30, -1e30, std::numeric_limits<double>::infinity(), std::nan("")}) {
    TextRun run = runOf("aa");
    run.Curvature = radius;
    EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(1, 0)"})) << radius;
  }
}

// ---- Sizes that are none

TEST_F(Engine, ASizeThatIsNotAboveZeroGivesNoLines) {
  for (const double size : {0.0, -72.0, std::nan("")}) {
    TextRun run = runOf("a");
    run.FontSize = size;
    EXPECT_TRUE(draw(run).empty()) << size;
    EXPECT_FALSE(canvas.isTooLong()) << size;
  }
}

TEST_F(Engine, ASizeBeyondTheCanvasIsTooLong) {
  for (const double size : {1e30, 1e300, std::numeric_limits<double>::infinity()}) {
    TextRun run = runOf("ab");
    run.FontSize = size;
    EXPECT_TRUE(draw(run).empty()) << size;
    EXPECT_TRUE(canvas.isTooLong()) << size;
  }
  draw(runOf("a"));
  EXPECT_FALSE(canvas.isTooLong());
}

TEST_F(Engine, AResolutionThatIsNotAboveZeroIsTheUsualOne) {
  for (const double resolution : {0.0, -1.0, std::nan("")}) {
    TextRun run = runOf("a");
    run.Resolution = resolution;
    EXPECT_EQ(draw(run).size(), 4U) << resolution;
  }
}

TEST_F(Engine, AResolutionLargerThanTheLetterLeavesItsCorners) {
  TextRun run = runOf("a");
  run.Resolution = 1e30;
  EXPECT_EQ(draw(run).size(), 4U);
}

TEST_F(Engine, AnAngleThatIsNoneIsZero) {
  TextRun run = runOf("aa");
  run.Orientation = std::numeric_limits<double>::infinity();
  EXPECT_EQ(cornersOf(run), (Texts{"(0, 0)", "(1, 0)"}));
}

// ---- Too much

TEST_F(Engine, ATextOfAHundredThousandLettersIsRefusedBeforeItIsDrawn) {
  fonts.opened.clear();
  EXPECT_TRUE(draw(runOf(std::string(100000, 'a'))).empty());
  EXPECT_TRUE(canvas.isTooLong());
  EXPECT_TRUE(fonts.opened.empty());
}

TEST_F(Engine, ATextOfMoreLinesThanADrawingHoldsEndsEmpty) {
  EXPECT_EQ(draw(runOf(std::string(8191, 'a'))).size(), 32764U);
  EXPECT_FALSE(canvas.isTooLong());
  EXPECT_TRUE(draw(runOf(std::string(8192, 'a'))).empty());
  EXPECT_TRUE(canvas.isTooLong());
}

// ---- Fonts that fail

TEST_F(Engine, ADamagedCharacterEndsTheRunWithWhatWasCollected) {
  EXPECT_EQ(draw(runOf("a!b")).size(), 4U);
  ASSERT_EQ(session.recording.failures.reported.size(), 1U);
  EXPECT_EQ(session.recording.failures.reported[0].description(),
            "Win32 GetCharABCWidths() returned error 0x14");
  EXPECT_EQ(canvas.failure(), "Win32 GetCharABCWidths() returned error 0x14");
  EXPECT_EQ(draw(runOf("ab")).size(), 8U);
  EXPECT_EQ(canvas.failure(), "");
}

TEST_F(Engine, TheSameFailureIsReportedOnceUntilARunSucceeds) {
  draw(runOf("a!"));
  draw(runOf("b!"));
  EXPECT_EQ(session.recording.failures.reported.size(), 1U);
  draw(runOf("a"));
  draw(runOf("a!"));
  EXPECT_EQ(session.recording.failures.reported.size(), 2U);
}

TEST_F(Engine, AFontThatIsGoneIsTold) {
  TextRun run = runOf("a");
  run.FontName = "Gone";
  EXPECT_TRUE(draw(run).empty());
  ASSERT_EQ(session.recording.failures.reported.size(), 1U);
  EXPECT_EQ(session.recording.failures.reported[0].description(),
            "The font is not installed: Gone");
  EXPECT_EQ(session.recording.failures.reported[0].number(), FailureNumber::PathFileAccess);
}

TEST_F(Engine, TheProbeFontFallsToOneOfFixedPitch) {
  TextRun run = runOf("a");
  run.FontName = "Lucida Console";
  EXPECT_EQ(draw(run).size(), 4U);
  EXPECT_EQ(fonts.opened.back().name, "Square Mono");
  fonts.names.emplace_back("Lucida Console");
  draw(run);
  EXPECT_EQ(fonts.opened.back().name, "Lucida Console");
}

// ---- United contours

TEST_F(Engine, OverlappingLettersStayAsTheyAreUnlessUnited) {
  TextRun run = runOf("a^");
  EXPECT_EQ(draw(run).size(), 8U);
  run.Unite = true;
  // Squares from 0 to 0.5 and from 0.25 to 0.75: one outline, counter-clockwise as the letters are.
  EXPECT_EQ(draw(run),
            (Lines{{0, 0, 0.75, 0}, {0.75, 0, 0.75, 0.5}, {0.75, 0.5, 0, 0.5}, {0, 0.5, 0, 0}}));
}

// ---- The preview

// A surface that has no memory for what hovers.
class FullSurface : public testing::RecordingSurface {
 public:
  using RecordingSurface::RecordingSurface;
  bool reserveHover(int /*width*/, int /*height*/) override { return false; }
};

TEST_F(Engine, WithoutMemoryTheTextComesWithoutItsPreview) {
  testing::CallLog log;
  FullSurface surface(log);
  surface.Move({0, 0, 640, 480});
  frmCanvas full(session.session, fonts, glyphs, &surface);
  full.DrawText(runOf("a"));
  ASSERT_EQ(session.recording.prompts.messages.size(), 1U);
  EXPECT_EQ(session.recording.prompts.messages[0].text,
            "Couldn't create bitmap of size 640x480\n"
            "The preview feature during text placement will not be available.");
  EXPECT_EQ(full.GetLines(0, 0).size(), 4U);
  EXPECT_TRUE(full.preview(0, 0).empty());
  full.DrawText(runOf("a"));
  EXPECT_EQ(session.recording.prompts.messages.size(), 1U);
}

class PreviewedEngine : public Engine {
 protected:
  // The corners of the boxes that a run of the bounds shows.
  Texts boxOf(TextRun run) {
    run.BoundsOnly = true;
    seen.DrawTextEx(run);
    Texts corners;
    for (const clsLineCoordinates& line : seen.preview(0, 0)) {
      corners.push_back(recordedPoint(line.x1, line.y1));
    }
    return corners;
  }

  testing::CallLog log;
  testing::RecordingSurface surface{log};
  frmCanvas seen{session.session, fonts, glyphs, &surface};
};

TEST_F(PreviewedEngine, TheBoxIsAsWideAsTheWidestLineAndCountsTheLastOne) {
  EXPECT_EQ(boxOf(runOf("a\nbbb\nc")), (Texts{"(0, 1)", "(3, 1)", "(3, -2)", "(0, -2)"}));
}

TEST_F(PreviewedEngine, TheBoxTurnsWithTheText) {
  TextRun run = runOf("aa");
  run.Orientation = -pi / 2;
  EXPECT_EQ(boxOf(run), (Texts{"(-1, 0)", "(-1, 2)", "(0, 2)", "(0, 0)"}));
}

TEST_F(PreviewedEngine, TheBoxOfAMirroredTextLiesOnItsOtherSide) {
  TextRun run = runOf("aa");
  run.MirrorX = true;
  run.MirrorY = true;
  EXPECT_EQ(boxOf(run), (Texts{"(-2, 0)", "(0, 0)", "(0, -1)", "(-2, -1)"}));
}

TEST_F(PreviewedEngine, TheBoxOfABentTextIsBent) {
  TextRun run = runOf("aa");
  run.Curvature = 4;
  run.BoundsOnly = true;
  seen.DrawTextEx(run);
  for (const clsLineCoordinates& line : seen.preview(0, 0)) {
    const double distance = seenFrom({0, 4}, line).distance;
    EXPECT_TRUE(std::abs(distance - 4) < 1e-6 || std::abs(distance - 3) < 1e-6) << distance;
  }
}

TEST_F(PreviewedEngine, TheFullRunShowsTheLettersTheBoxAndThatOfTheLines) {
  seen.DrawText(runOf("a"));
  const Lines shown = seen.preview(0, 0);
  ASSERT_EQ(shown.size(), 12U);
  EXPECT_EQ(shown[0], (clsLineCoordinates{0, 0, 0.5, 0}));
  EXPECT_EQ(recordedPoint(shown[9].x1, shown[9].y1), "(0.5, 0.5)");
}

}  // namespace
}  // namespace tess
