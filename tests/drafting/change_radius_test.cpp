// Changing the radius of an arc or a circle, and the dialog that asks for it.
#include "drafting/change_radius.h"

#include "gtest/gtest.h"

#include "drafting/dlgEditRadius.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/edit_checks.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

// What the dialog showed, and what it is answered.
struct RadiusContext : RecordedDrafting {
  RadiusContext() {
    test.session.formats.coordfmt = "0.0000";
    test.recording.prompts.onForm = [this](Form& form) {
      auto& dialog = dynamic_cast<dlgEditRadius&>(form);
      shown = {dialog.txtradius.text(), dialog.txtminradius.text()};
      if (!answer.empty()) dialog.txtradius.setText(answer);
      accepts ? dialog.cmdAccept.click() : dialog.cmdCancel.click();
    };
  }
  void change(const std::string& radius, Point at = {0, 3}) {
    answer = radius;
    mnuChangeRad_Click(context);
    click(at.x, at.y);
  }
  Texts shown;
  std::string answer;
  bool accepts = true;
};

// Half a circle of radius 1 over the origin.
struct ArcContext : RadiusContext {
  ArcContext() { add({.type = 3, .attr = 10, .x0 = 1, .y0 = 0, .x1 = -1, .y1 = 0}); }
};

TEST(ChangeRadius, ShowsTheRadiusAndTheSmallestOne) {
  RadiusContext d;
  d.add({.type = 3, .x0 = 1, .y0 = 0, .x1 = 0, .y1 = 1});
  d.change("2");
  EXPECT_EQ(d.shown, (Texts{"1.0000", "0.7071"}));
}

TEST(ChangeRadius, OfAnArcKeepsItsEndsAndTakesTheNearerCenter) {
  RadiusContext d;
  d.add({.type = 2, .attr = 10, .x0 = -3, .y0 = 0, .x1 = 3, .y1 = 0, .xc = 0, .yc = -4});
  mnuChangeRad_Click(d.context);
  EXPECT_EQ(d.prompt(), "Click near arc to change radius.");
  d.answer = "3.4";
  expectOneStep(d, [&d] { d.click(0, 3); });
  EXPECT_EQ(d.store.NumSegments, 1);
  EXPECT_NEAR(d.store.centery[1], -1.6, 1e-5);
  EXPECT_NEAR(d.store.centerx[1], 0, 1e-6);
  EXPECT_EQ(d.store.x0[1], -3);
  EXPECT_EQ(d.store.segtype[1], 2);
  EXPECT_EQ(d.store.segattr[1], 10);
  EXPECT_EQ(d.context.changelog.changecount, 2);
  EXPECT_EQ(d.pending(), 0);
}

TEST(ChangeRadius, OnATieTakesTheFirstCenter) {
  ArcContext d;
  d.change("1.25");
  EXPECT_EQ(segmentTexts(d.store), (Texts{"3 (1, 0)-(-1, 0) c (0, 0.75) @10"}));
}

TEST(ChangeRadius, OfACircleStartsItLeftOfItsCenter) {
  RadiusContext d;
  d.add({.type = 5, .x0 = 2, .y0 = 1, .x1 = 2, .y1 = 1, .xc = 1, .yc = 1});
  expectOneStep(d, [&d] { d.change("0.5"); });
  EXPECT_EQ(d.shown, (Texts{"1.0000", ""}));
  EXPECT_EQ(segmentTexts(d.store), (Texts{"5 (0.5, 1)-(0.5, 1) c (1, 1)"}));
}

TEST(ChangeRadius, OfADrawnCircleKeepsItsStart) {
  RadiusContext d;
  d.add({.type = 2, .x0 = 1, .y0 = 0, .x1 = 1, .y1 = 0});
  expectOneStep(d, [&d] { d.change("0.25"); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"2 (1, 0)-(1, 0) c (0.75, 0)"}));
}

TEST(ChangeRadius, ThatIsTooSmallTellsSoAndChangesNothing) {
  for (const char* const radius : {"0.5", "0", "-2", "nonsense", ""}) {
    ArcContext d;
    d.test.recording.prompts.onForm = [radius](Form& form) {
      dynamic_cast<dlgEditRadius&>(form).txtradius.setText(radius);
      form.pressDefault();
    };
    mnuChangeRad_Click(d.context);
    expectNoStep(d, [&d] { d.click(0, 3); });
    ASSERT_EQ(d.messages().size(), 1U) << radius;
    EXPECT_EQ(d.messages()[0].text, "Radius too small!");
    EXPECT_EQ(d.messages()[0].icon, MessageIcon::Warning);
    EXPECT_EQ(d.messages()[0].buttons, MessageButtons::Ok);
    EXPECT_EQ(d.pending(), 0);
  }
}

TEST(ChangeRadius, OfACircleToNothingTellsSoToo) {
  for (const char* const radius : {"0", "-1"}) {
    RadiusContext d;
    d.add({.type = 5, .x0 = 2, .x1 = 2});
    expectNoStep(d, [&] { d.change(radius); });
    ASSERT_EQ(d.messages().size(), 1U);
    EXPECT_EQ(d.messages()[0].text, "Radius too small!");
  }
}

TEST(ChangeRadius, BeyondWhatAClickFindsBeeps) {
  ArcContext d;
  expectNoStep(d, [&d] { d.change("1e30"); });
  EXPECT_EQ(d.beeps(), 1);
  EXPECT_TRUE(d.messages().empty());
}

TEST(ChangeRadius, ThatIsNoNumberOfTheTablesLeavesTheDialogOpen) {
  ArcContext d;
  EXPECT_EQ(testing::numberOfFailure([&d] { d.change("1e39"); }), FailureNumber::Overflow);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(ChangeRadius, CancelledOrTheSameChangesNothing) {
  ArcContext d;
  d.accepts = false;
  expectNoStep(d, [&d] { d.change("2"); });
  d.accepts = true;
  expectNoStep(d, [&d] { d.change("1"); });
  RadiusContext odd;  // its radius has more digits than the dialog shows
  odd.add({.type = 3, .x0 = 1, .y0 = 0, .x1 = 0, .y1 = 1, .xc = -0.125F, .yc = -0.125F});
  expectNoStep(odd, [&odd] { odd.change(""); });
  EXPECT_EQ(d.beeps() + odd.beeps(), 0);
  EXPECT_TRUE(d.messages().empty() && odd.messages().empty());
}

TEST(ChangeRadius, WithoutARoundRowEndsSilently) {
  RadiusContext d;
  d.addLine(0, 0, 1, 1);
  expectNoStep(d, [&d] { d.change("2"); });
  EXPECT_TRUE(d.shown.empty());
  EXPECT_EQ(d.pending(), 0);
}

TEST(ChangeRadius, LeavesARowAloneThatWentWhileTheDialogWasOpen) {
  ArcContext d;
  d.test.recording.prompts.onForm = [&d](Form& form) {
    Change change(d.context.changes);
    change.segments.erase(1);
    change.keep();
    dynamic_cast<dlgEditRadius&>(form).txtradius.setText("2");
    form.pressDefault();
  };
  d.change("2");
  EXPECT_EQ(d.store.NumSegments, 0);
  EXPECT_EQ(d.context.changelog.changecount, 1);
}

TEST(ChangeRadius, OfAPathArcKeepsAllElse) {
  RadiusContext d;
  addPathSegment(d.store, {.type = 3, .x0 = 1, .x1 = -1, .z = -1, .feed = 5, .code = 201});
  d.context.command.EditPaths = true;
  expectOneStep(d, [&d] { d.change("1.25"); });
  EXPECT_EQ(pathTexts(d.store), (Texts{"3 (1, 0)-(-1, 0) c (0, 0.75) @201 z -1 f 5"}));
}

TEST(EditRadius, ShowsTheSmallestAsItIsAndNoneAtZero) {
  RadiusContext d;
  d.test.session.formats.coordfmt = "0.########";
  const auto minimum = [&d](float radius) {
    dlgEditRadius dialog(d.context, 2, radius);
    dialog.load();
    return dialog.txtminradius.text();
  };
  EXPECT_EQ(minimum(0.12345678F), "0.12345678") << "rounding would only blur it";
  EXPECT_EQ(minimum(0), "");
  EXPECT_EQ(minimum(-1), "");
}

}  // namespace
}  // namespace tess
