// The text panel: what it reads, how the hover begins and ends, the wheel, and placing.
#include "import/frmText.h"

#include "gtest/gtest.h"

#include "drafting/change_log.h"
#include "drafting/entity_creation.h"
#include "drafting/segment_name.h"
#include "drafting/undo.h"
#include "tests/import/square_glyphs.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::numberOfFailure;
using testing::RecordedDrafting;
using testing::segmentTexts;
using testing::SquareFonts;
using Texts = std::vector<std::string>;

class Panel : public ::testing::Test, public RecordedDrafting {
 protected:
  Panel() {
    form.open(Modality::Modeless);
    form.cboFont.setText("square");
  }

  // DraftingListener
  void textPointerMoved(int button, int shift, float x, float y) override {
    form.Drawing_MouseMove(button, shift, x, y);
  }
  void textPointerReleased(int button, int shift, float x, float y) override {
    form.Drawing_MouseUp(button, shift, x, y);
  }
  void textWheel(int steps, int shift) override { form.Drawing_MouseWheel(steps, shift); }
  void textPlacementEnded() override { form.placementEnded(); }

  // A text hovers at the origin.
  void hover(const std::string& text) {
    form.txtText.setText(text);
    form.cmdPlaceText.press();
    move(0, 0, 0);
  }
  void wheel(int steps, int shift = 0) {
    pass(100);
    MouseWheel1_MouseWheel(context, steps, shift);
  }
  bool isHovering() const { return context.hoverLines.shown; }
  // Where the letters' squares begin, of those that hover and of those that were placed.
  std::string firstHovering() const {
    const WorldBox& line = context.hoverLines.lines.at(0);
    return testing::recordedPoint(line.x0, line.y0);
  }

  SquareFonts fonts;
  frmText form{context, fonts};
};

// ---- What it offers

TEST_F(Panel, BeginsWithItsDefaults) {
  frmText fresh(context, fonts);
  fresh.load();
  EXPECT_EQ(fresh.cboFont.text(), "");
  EXPECT_EQ(fresh.cboStyle.text(), "Regular");
  EXPECT_EQ(fresh.cboFontSize.text(), "72");
  EXPECT_EQ(fresh.cboOrientation.text(), "0");
  EXPECT_EQ(fresh.cboResolution.text(), "0.001");
  EXPECT_EQ(fresh.cboCurvature.text(), "Straight");
  EXPECT_EQ(fresh.txtTrackingDelta.text(), "0");
  EXPECT_FALSE(fresh.chkUnite.isChecked());
  EXPECT_FALSE(fresh.chkKerning.isChecked());
}

TEST_F(Panel, ItsListsAreThese) {
  EXPECT_EQ(form.cboStyle.items(), (Texts{"Regular", "Italic", "Bold", "Bold Italic"}));
  EXPECT_EQ(form.cboFontSize.items().front(), "6");
  EXPECT_EQ(form.cboFontSize.items().back(), "288");
  EXPECT_EQ(form.cboOrientation.count(), 24);
  EXPECT_EQ(form.cboOrientation.items()[1], "15");
  EXPECT_EQ(form.cboOrientation.items().back(), "345");
  EXPECT_EQ(form.cboResolution.items(),
            (Texts{"0.0005", "0.001", "0.002", "0.005", "0.010", "0.020", "0.050", "0.100"}));
}

TEST_F(Panel, FontsAreSortedWithoutRegardToCase) {
  EXPECT_EQ(form.cboFont.items(), (Texts{"Aslant", "Round", "square"}));
}

TEST_F(Panel, ItsTextsAndHintsAreThese) {
  const auto captions = [](std::initializer_list<const Control*> controls) {
    Texts texts;
    for (const Control* const control : controls) texts.push_back(control->caption());
    return texts;
  };
  EXPECT_EQ(captions({&form.lblFont, &form.lblStyle, &form.lblFontSize, &form.lblOrientation,
                      &form.lblResolution, &form.lblCurvature, &form.lblTrackingDelta}),
            (Texts{"&Font Name:", "Font St&yle:", "Font &Size:", "&Orientation:", "&Resolution:",
                   "&Curvature (in):", "Extra &Tracking:"}));
  EXPECT_EQ(captions({&form.chkMirrorX, &form.chkMirrorY, &form.cmdPlaceText, &form.cmdCancel}),
            (Texts{"Mirror &X", "Mirror &Y", "&Hover Text", "&Clear"}));
  EXPECT_EQ(form.fraWheel.caption(), " Mouse Scrollwheel ");
  EXPECT_EQ(captions({&form.lblWheelTracking, &form.lblWheelCurvature, &form.lblWheelOrientation,
                      &form.lblWheelSize}),
            (Texts{"Use the Mouse Scrollwheel to change the text spacing.",
                   "Combine with:  <Shift> tochange the curvature of the text.",
                   "<Ctrl> to change the orientation of the text.",
                   "<Shift> + <Ctrl> to change the size of the text."}));
  EXPECT_EQ(form.cboFontSize.hint(), "Font size in points");
  EXPECT_EQ(form.cboOrientation.hint(), "Angle of orientation in degress, CCW from the right");
  EXPECT_EQ(form.cboResolution.hint(), "Maximum error for spline curve approximation in inches");
  EXPECT_EQ(form.cboCurvature.hint(), "Radius of curvature in drawing units");
  EXPECT_EQ(form.txtTrackingDelta.hint(), "Delta from normal character spacing in points");
}

TEST_F(Panel, AFontThatIsGoneWhenThePanelOpensAgainIsNotChosenAnyMore) {
  form.close();
  fonts.names = {"Round", "New"};
  form.open(Modality::Modeless);
  EXPECT_EQ(form.cboFont.items(), (Texts{"New", "Round"}));
  EXPECT_EQ(form.cboFont.text(), "");
}

TEST_F(Panel, LiesDownOrStands) {
  EXPECT_FALSE(form.liesDown());
  form.LayoutHorizontally();
  EXPECT_TRUE(form.liesDown());
  EXPECT_GT(form.DockedHorzWidth(), form.DockedHorzHeight());
  form.LayoutVertically();
  EXPECT_FALSE(form.liesDown());
  EXPECT_GT(form.DockedVertHeight(), form.DockedVertWidth());
}

// ---- The radius

class PanelRadius : public Panel {
 protected:
  PanelRadius() {
    addLine(0, 0, 1, 0);
    add({.type = kCircle, .x0 = 3, .y0 = 0, .x1 = 3, .y1 = 0, .xc = 1, .yc = 0});
    add({.type = kClockwiseArc, .x0 = 0, .y0 = 5, .x1 = 5, .y1 = 0, .xc = 0, .yc = 0});
  }
};

TEST_F(PanelRadius, StraightAndZeroAreTheSame) {
  EXPECT_EQ(form.RadiusFromText("Straight"), 0);
  EXPECT_EQ(form.RadiusFromText("0"), 0);
  EXPECT_EQ(frmText::TextFromRadius(0), "Straight");
  EXPECT_EQ(form.RadiusFromText("something"), 0);
}

TEST_F(PanelRadius, ANumberIsItsValue) {
  EXPECT_EQ(form.RadiusFromText(" -2.5 "), -2.5);
  EXPECT_EQ(frmText::TextFromRadius(4.9), "4.9");
  EXPECT_EQ(frmText::TextFromRadius(-0.5), "-0.5");
}

TEST_F(PanelRadius, ARowGivesItsRadiusWithSignAndOffset) {
  EXPECT_EQ(form.RadiusFromText("+[Entity 2-Circle]+0"), 2);
  EXPECT_EQ(form.RadiusFromText("-[Entity 2-Circle]-0"), -2);
  EXPECT_EQ(form.RadiusFromText("[entity 3-arc]+0.25"), 5.25);
  EXPECT_EQ(form.RadiusFromText("+[Entity 3-Arc]-0.5"), 4.5);
  EXPECT_EQ(form.RadiusFromText("-[Entity 3-Arc]-0.5"), -5.5);
}

TEST_F(PanelRadius, ADeletedRowOrOneWithoutARadiusGivesOne) {
  EXPECT_EQ(form.RadiusFromText("+[Entity 9-Circle]+0"), 1);
  EXPECT_EQ(form.RadiusFromText("+[Entity 1-Line]+0"), 1);
  EXPECT_EQ(form.RadiusFromText("+[Entity -4-Circle]+0"), 1);
  EXPECT_EQ(form.RadiusFromText("+[nobody]+0"), 1);
  EXPECT_EQ(form.RadiusFromText("+[]+0"), 1);
}

TEST_F(PanelRadius, BracketsThatDoNotCloseAreStraight) {
  EXPECT_EQ(form.RadiusFromText("+[Entity 2-Circle"), 0);
  EXPECT_EQ(form.RadiusFromText("]Entity 2-Circle["), 0);
}

TEST_F(PanelRadius, TheListOffersTheSelectedRoundRowsBothWays) {
  context.state.Selected.fill(3);
  form.cboCurvature.open();
  const Texts& items = form.cboCurvature.items();
  ASSERT_EQ(items.size(), 5U);
  EXPECT_EQ(items[0], "Straight");
  EXPECT_EQ(items[1], "+[" + segmentName(2, kCircle) + "]+0");
  EXPECT_EQ(items[2], "-[" + segmentName(2, kCircle) + "]-0");
  EXPECT_EQ(items[3], "+[" + segmentName(3, kClockwiseArc) + "]+0");
  context.state.Selected.clear();
  form.cboCurvature.open();
  EXPECT_EQ(form.cboCurvature.items(), Texts{"Straight"});
}

TEST_F(PanelRadius, LeavingTheFieldWritesTheRadiusThatWasMeant) {
  form.cboCurvature.focus();
  form.cboCurvature.type("-[Entity 3-Arc]-0.5");
  form.cmdPlaceText.focus();
  EXPECT_EQ(form.cboCurvature.text(), "-5.5");
  form.cboCurvature.focus();
  form.cboCurvature.type("0");
  form.cmdPlaceText.focus();
  EXPECT_EQ(form.cboCurvature.text(), "Straight");
}

// ---- The hover begins

TEST_F(Panel, TheTextHoversUnderThePointer) {
  form.txtText.setText("a");
  form.cmdPlaceText.press();
  EXPECT_EQ(pending(), 30);
  EXPECT_EQ(prompt(), "Click spot to place text.");
  EXPECT_FALSE(isHovering());
  move(0, 1, 2);
  EXPECT_TRUE(isHovering());
  EXPECT_EQ(firstHovering(), "(1, 2)");
}

TEST_F(Panel, ABlankTextDoesNotHover) {
  for (const char* const blank : {"", "  ", "\r\n\t"}) {
    form.txtText.setText(blank);
    form.cmdPlaceText.press();
    EXPECT_EQ(pending(), 0);
  }
}

TEST_F(Panel, ATextThatBecomesBlankHoversNoMore) {
  hover("a");
  form.txtText.setText("");
  form.Update();
  EXPECT_EQ(pending(), 0);
  EXPECT_FALSE(isHovering());
}

TEST_F(Panel, LeavingAFieldWithATextStartsTheHover) {
  form.txtText.focus();
  form.txtText.type("a");
  EXPECT_EQ(pending(), 0);
  form.cboStyle.focus();
  EXPECT_EQ(pending(), 30);
}

TEST_F(Panel, WithoutAFontThatOfTheConsoleIsTaken) {
  form.cboFont.setIndex(-1);
  hover("a");
  EXPECT_EQ(fonts.opened.back().name, "Square Mono");
  EXPECT_TRUE(isHovering());
}

TEST_F(Panel, TheStyleSaysBoldAndItalic) {
  form.cboStyle.setText("Bold Italic");
  hover("a");
  EXPECT_EQ(fonts.opened.back(), (FontRequest{"square", true, true}));
  form.cboStyle.setText("Italic");
  EXPECT_EQ(fonts.opened.back(), (FontRequest{"square", false, true}));
  form.cboStyle.setText("Bold");
  EXPECT_EQ(fonts.opened.back(), (FontRequest{"square", true, false}));
}

TEST_F(Panel, TheBoundsAreLaidOutBeforeTheLines) {
  std::vector<bool> runs;
  const auto placed = form.TextCanvas.onDrawTextDone;
  form.TextCanvas.onDrawTextDone = [&](bool BoundsOnly) {
    runs.push_back(BoundsOnly);
    placed(BoundsOnly);
  };
  hover("a");
  EXPECT_EQ((std::vector<bool>{runs.begin(), runs.begin() + 2}), (std::vector<bool>{true, false}));
}

TEST_F(Panel, TheDrawingModeStays) {
  context.state.setDrawMode(2);
  hover("a");
  EXPECT_EQ(mode(), 2);
  click(1, 1);
  EXPECT_EQ(mode(), 2);
}

// ---- And ends

TEST_F(Panel, TypingEndsTheHover) {
  hover("a");
  form.txtText.focus();
  move(0, 0, 0);
  form.txtText.type("ab");
  EXPECT_EQ(pending(), 0);
  EXPECT_FALSE(isHovering());
}

TEST_F(Panel, OpeningAListEndsTheHover) {
  for (ComboBox* const combo : {&form.cboFont, &form.cboStyle, &form.cboFontSize,
                                &form.cboOrientation, &form.cboResolution, &form.cboCurvature}) {
    hover("a");
    combo->open();
    EXPECT_EQ(pending(), 0) << combo->name();
    EXPECT_FALSE(isHovering()) << combo->name();
  }
}

TEST_F(Panel, ClearEndsTheHover) {
  hover("a");
  form.cmdCancel.press();
  EXPECT_EQ(pending(), 0);
  EXPECT_FALSE(isHovering());
  form.txtText.focus();
  EXPECT_EQ(pending(), 0) << "leaving the button started it anew";
}

TEST_F(Panel, EscEndsTheHover) {
  hover("a");
  Handle_esc(context);
  EXPECT_EQ(pending(), 0);
  EXPECT_FALSE(form.isPlacing());
  EXPECT_FALSE(isHovering());
}

TEST_F(Panel, TheRightButtonEndsTheHover) {
  hover("a");
  rightClick(1, 1);
  EXPECT_EQ(pending(), 0);
  EXPECT_FALSE(form.isPlacing());
  EXPECT_FALSE(isHovering());
}

TEST_F(Panel, AnotherCommandEndsTheHover) {
  hover("a");
  arm(context, PendingAction::Select);
  EXPECT_FALSE(form.isPlacing());
  EXPECT_FALSE(isHovering());
  hover("a");
  mnuDrawLine_Click(context);
  EXPECT_FALSE(form.isPlacing());
  EXPECT_FALSE(isHovering());
}

TEST_F(Panel, ClosingThePanelEndsTheHover) {
  hover("a");
  form.close();
  EXPECT_EQ(pending(), 0);
  EXPECT_FALSE(isHovering());
}

TEST_F(Panel, WhatWasPaintedForTheHoverIsGoneAfterIt) {
  form.txtText.setText("a");
  form.cmdPlaceText.press();
  log.take();
  move(0, 1, 1);
  const int shown = log.count("line");
  EXPECT_GT(shown, 0);
  form.CancelPlacement();
  EXPECT_EQ(log.count("line"), 2 * shown);
}

TEST_F(Panel, CancellingActsOnlyWhileATextIsPlaced) {
  arm(context, PendingAction::Select);
  form.CancelPlacement();
  EXPECT_EQ(pending(), static_cast<int>(PendingAction::Select));
}

TEST_F(Panel, ARedrawLeavesTheHoverWhereItIs) {
  hover("a");
  redraw.redrawscreen();
  EXPECT_TRUE(isHovering());
  log.take();
  move(0, 1, 1);
  EXPECT_TRUE(isHovering());
  EXPECT_EQ(log.count("line") % 2, 0) << "the old outline is taken off and the new one painted";
}

TEST_F(Panel, TheZoomKeysAreDeadWhileATextHovers) {
  hover("a");
  const float span = view.viewspan;
  viewCommands.mnuViewZoomIn_Click();
  viewCommands.mnuViewZoomOut_Click();
  EXPECT_EQ(view.viewspan, span);
}

// ---- Placing

TEST_F(Panel, AClickTurnsTheTextIntoLines) {
  hover("a");
  click(1, 2);
  EXPECT_EQ(segmentTexts(store), (Texts{"1 (1, 2)-(1.5, 2)", "1 (1.5, 2)-(1.5, 2.5)",
                                        "1 (1.5, 2.5)-(1, 2.5)", "1 (1, 2.5)-(1, 2)"}));
  EXPECT_EQ(pending(), 0);
  EXPECT_FALSE(form.isPlacing());
  EXPECT_FALSE(isHovering());
  EXPECT_FALSE(store.drawingsaved);
  EXPECT_TRUE(tools.isEnabled("miUndo"));
}

TEST_F(Panel, OneUndoTakesTheWholeTextBack) {
  addLine(0, 0, 1, 0);
  hover("ab\ncd");
  click(0, 0);
  EXPECT_EQ(store.NumSegments, 17);
  Undo_Last_Change(context);
  EXPECT_EQ(store.NumSegments, 1);
}

TEST_F(Panel, PlacingTakesOneRedraw) {
  hover("ab");
  int cleared = 0;
  const auto onCleared = redraw.onCleared;
  redraw.onCleared = [&] {
    ++cleared;
    onCleared();
  };
  click(0, 0);
  EXPECT_EQ(cleared, 1);
  redraw.onCleared = onCleared;
}

TEST_F(Panel, TheTextLandsAtTheSnappedPosition) {
  store.cursorgridf = 1;
  store.cursorgrid = 0.5F;
  hover("a");
  move(0, 1.1F, 0.9F);
  EXPECT_EQ(firstHovering(), "(1, 1)");
  click(1.1F, 0.9F);
  EXPECT_EQ(segmentTexts(store)[0], "1 (1, 1)-(1.5, 1)");
}

TEST_F(Panel, LinesStackOnACurveByTheirRadius) {
  form.cboCurvature.setText("4");
  hover("a\nb");
  click(0, 0);
  EXPECT_EQ(segmentTexts(store)[0], "1 (0, 0)-(0.5, 0)");
  EXPECT_EQ(segmentTexts(store)[4], "1 (0, -1)-(0.5, -1)");
}

TEST_F(Panel, AnglesAreCounterClockwise) {
  form.cboOrientation.setText("90");
  hover("ab");
  click(0, 0);
  EXPECT_EQ(segmentTexts(store)[4], "1 (0, 1)-(0, 1.5)");
}

TEST_F(Panel, SizesOfAMetricDrawingAreThoseOnPaper) {
  store.units = "M";
  form.cboCurvature.setText("254");
  form.txtTrackingDelta.setText("36");
  hover("ab");
  click(0, 0);
  EXPECT_EQ(segmentTexts(store)[0], "1 (0, 0)-(12.7, 0)");
  // An em and a half further along an arc of 254 mm.
  EXPECT_NEAR(store.x0[5], 254 * std::sin(38.1 / 254), 1e-3);
}

TEST_F(Panel, OverlappingLettersAreUnitedWhenAskedTo) {
  form.chkUnite.setChecked(true);
  hover("a^");
  click(0, 0);
  EXPECT_EQ(store.NumSegments, 4);
}

TEST_F(Panel, LettersThatLieOnOneAnotherWithoutEndAreNotUnited) {
  form.chkUnite.setChecked(true);
  form.txtTrackingDelta.setText("-71.9");
  hover(std::string(800, 'a'));
  EXPECT_EQ(prompt(), "The contours cross too often to be united.");
  click(0, 0);
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_TRUE(form.isPlacing());
}

TEST_F(Panel, PairsAreMovedTogetherWhenAskedTo) {
  form.chkKerning.setChecked(true);
  hover("AV");
  click(0, 0);
  EXPECT_EQ(segmentTexts(store)[4], "1 (0.75, 0)-(1.25, 0)");
}

TEST_F(Panel, WithoutAPreviewTheClickStillPlaces) {
  hover("a");
  endHoverLines(context);
  click(0, 0);
  EXPECT_EQ(store.NumSegments, 4);
}

// ---- Bad input

TEST_F(Panel, ASizeThatIsNotAboveZeroLeavesTheHoverArmedAndAddsNothing) {
  for (const char* const size : {"0", "-5", "no size", ""}) {
    form.cboFontSize.setText(size);
    hover("a");
    click(0, 0);
    EXPECT_EQ(store.NumSegments, 0) << size;
    EXPECT_EQ(pending(), 30) << size;
  }
}

TEST_F(Panel, AResolutionThatIsNoneIsTheUsualOne) {
  for (const char* const resolution : {"0", "-1", "fine", "", "1e30"}) {
    form.cboResolution.setText(resolution);
    hover("a");
    click(0, 0);
    EXPECT_EQ(store.NumSegments, 4) << resolution;
    Undo_Last_Change(context);
  }
}

TEST_F(Panel, ASizeBeyondAllMeasureIsToldAndAddsNothing) {
  form.cboFontSize.setText("1e30");
  hover("a");
  EXPECT_EQ(prompt(), "The text is too long or too large: a drawing holds at most 32767 lines.");
  EXPECT_EQ(numberOfFailure([&] { click(0, 0); }), FailureNumber::Overflow);
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_TRUE(form.isPlacing());
}

TEST_F(Panel, ATextOfAHundredThousandLettersIsToldAndAddsNothing) {
  hover(std::string(100000, 'a'));
  EXPECT_EQ(prompt(), "The text is too long or too large: a drawing holds at most 32767 lines.");
  EXPECT_EQ(numberOfFailure([&] { click(0, 0); }), FailureNumber::Overflow);
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_FALSE(isHovering());
}

TEST_F(Panel, ATextThatDoesNotFitInTheTableAddsNothing) {
  store.NumSegments = 32760;
  hover("ab");
  EXPECT_EQ(numberOfFailure([&] { click(0, 0); }), FailureNumber::Overflow);
  EXPECT_EQ(store.NumSegments, 32760);
  EXPECT_TRUE(form.isPlacing());
  form.txtText.setText("a");
  form.Update();
  click(0, 0);
  EXPECT_EQ(store.NumSegments, 32764);
}

TEST_F(Panel, AngleTrackingAndRadiusBeyondAllMeasureDoNoHarm) {
  for (ComboBox* const combo : {&form.cboOrientation, &form.cboCurvature}) {
    combo->setText("1e300");
    hover("ab");
    click(0, 0);
    EXPECT_EQ(store.NumSegments, 8) << combo->name();
    Undo_Last_Change(context);
    combo->setText("0");
  }
  form.txtTrackingDelta.setText("1e30");
  hover("ab");
  EXPECT_EQ(numberOfFailure([&] { click(0, 0); }), FailureNumber::Overflow);
}

TEST_F(Panel, ADamagedFontIsToldOnceAndThePanelStaysUsable) {
  hover("a!b");
  EXPECT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(prompt(), "Win32 GetCharABCWidths() returned error 0x14");
  hover("ab");
  click(0, 0);
  EXPECT_EQ(store.NumSegments, 8);
}

TEST_F(Panel, AFontThatWasRemovedMeanwhileIsToldAndThePanelStaysUsable) {
  fonts.names = {"Round"};
  hover("a");
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].description(), "The font is not installed: square");
  form.cboFont.setText("Round");
  move(0, 0, 0);
  click(0, 0);
  EXPECT_EQ(store.NumSegments, 4);
}

TEST_F(Panel, ACharacterThatTheFontHasNotIsToldInTheStatusLine) {
  hover("a?");
  EXPECT_EQ(prompt(), "\"?\" is not in square and leaves a blank.");
  form.txtText.setText("ab");
  form.Update();
  EXPECT_EQ(prompt(), "Click spot to place text.");
}

// ---- The wheel

TEST_F(Panel, TheWheelChangesTheSpacing) {
  hover("ab");
  wheel(1);
  EXPECT_EQ(form.txtTrackingDelta.text(), "1");
  wheel(5);
  EXPECT_EQ(form.txtTrackingDelta.text(), "2");
  wheel(-1);
  wheel(-1);
  wheel(-1);
  EXPECT_EQ(form.txtTrackingDelta.text(), "0");
  form.txtTrackingDelta.setText("32000");
  wheel(1);
  EXPECT_EQ(form.txtTrackingDelta.text(), "0");
}

TEST_F(Panel, WithShiftTheWheelChangesTheCurvature) {
  hover("ab");
  wheel(1, kShiftKey);
  EXPECT_EQ(form.cboCurvature.text(), "Straight");
  wheel(-1, kShiftKey);
  EXPECT_EQ(form.cboCurvature.text(), "10");
  wheel(-1, kShiftKey);
  EXPECT_EQ(form.cboCurvature.text(), "9.9");
  wheel(1, kShiftKey);
  wheel(1, kShiftKey);
  EXPECT_EQ(form.cboCurvature.text(), "Straight");
  form.cboCurvature.setText("5");
  wheel(-1, kShiftKey);
  EXPECT_EQ(form.cboCurvature.text(), "4.9");
  form.cboCurvature.setText("0.2");
  wheel(-1, kShiftKey);
  EXPECT_EQ(form.cboCurvature.text(), "0.1");
  wheel(-1, kShiftKey);
  EXPECT_EQ(form.cboCurvature.text(), "0.1");
  form.cboCurvature.setText("-3");
  wheel(1, kShiftKey);
  EXPECT_EQ(form.cboCurvature.text(), "0.1");
}

TEST_F(Panel, TheWholeWayOfTheCurvatureIsInTenths) {
  hover("ab");
  wheel(-1, kShiftKey);
  for (int step = 99; step >= 1; --step) {
    wheel(-1, kShiftKey);
    const std::string tenths = std::to_string(step / 10) + "." + std::to_string(step % 10);
    EXPECT_EQ(form.cboCurvature.text(), step % 10 == 0 ? std::to_string(step / 10) : tenths);
  }
}

TEST_F(Panel, WithControlTheWheelTurnsTheText) {
  hover("ab");
  wheel(-1, kControlKey);
  EXPECT_EQ(form.cboOrientation.text(), "355");
  wheel(1, kControlKey);
  EXPECT_EQ(form.cboOrientation.text(), "0");
  wheel(1, kControlKey);
  EXPECT_EQ(form.cboOrientation.text(), "5");
}

TEST_F(Panel, WithBothTheWheelChangesTheSize) {
  hover("ab");
  wheel(1, kShiftKey | kControlKey);
  EXPECT_EQ(form.cboFontSize.text(), "73");
  wheel(-3, kShiftKey | kControlKey);
  EXPECT_EQ(form.cboFontSize.text(), "72");
}

TEST_F(Panel, AStepOfTheWheelShowsAtOnce) {
  hover("ab");
  wheel(1, kShiftKey | kControlKey);
  EXPECT_TRUE(isHovering());
  EXPECT_NEAR(context.hoverLines.lines.at(0).x1, 0.5 * 73 / 72, 1e-5);
}

TEST_F(Panel, AWheelEventWithinATwentiethOfASecondIsDropped) {
  hover("ab");
  wheel(1);
  pass(49);
  MouseWheel1_MouseWheel(context, 1, 0);
  EXPECT_EQ(form.txtTrackingDelta.text(), "1");
  pass(1);
  MouseWheel1_MouseWheel(context, 1, 0);
  EXPECT_EQ(form.txtTrackingDelta.text(), "2");
}

TEST_F(Panel, WithoutAHoverTheWheelDoesNothing) {
  form.txtText.setText("ab");
  form.Drawing_MouseWheel(1, 0);
  EXPECT_EQ(form.txtTrackingDelta.text(), "0");
  EXPECT_EQ(pending(), 0);
}

// ---- The command

TEST_F(Panel, TheCommandOpensThePanel) {
  tools.addBand({.name = "barText", .caption = "Text", .kind = BandKind::Panel, .tools = {}});
  miText_Click(context);
  EXPECT_TRUE(tools.band("barText")->open);
}

}  // namespace
}  // namespace tess
