// The bolt circle form: what it computes, shows, refuses and creates.
#include "toolpath/BoltCircle.h"

#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/form_preview.h"
#include "tests/support/back_and_forth.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/dlgSelectCycle.h"

namespace tess {
namespace {

using testing::expectBackAndForth;
using testing::pathTexts;
using testing::RecordedCam;
using testing::segmentTexts;
using testing::TableBits;
using Texts = std::vector<std::string>;

// Templates of a drilling and a pecking cycle. `cycle` works the choice among them, unless it is
// cancelled.
struct BoltContext : RecordedCam {
  BoltContext() {
    store.NumCycles = 2;
    resizeCycles(store, 2);
    store.cycletext[0] = "G81 drill";
    store.cycletext[1] = "G83 peck";
    store.cyclefinaldepth[1] = -0.5F;
    store.cycleincrdepth[1] = 0.1F;
    store.cycledwell[1] = 2;
    store.cyclefeedrate[1] = 7;
    store.showpaths = 0;
    store.selectedtool = 3;
    store.drawingsaved = true;
  }

  void open(const std::function<void(BoltCircle&)>& work) {
    test.recording.prompts.onForm = [this, work](Form& form) {
      if (auto* const choice = dynamic_cast<dlgSelectCycle*>(&form)) {
        if (chooseCycle) chooseCycle(*choice);
      } else {
        work(dynamic_cast<BoltCircle&>(form));
      }
    };
    mnuDrawBoltCircle_Click(cam);
  }

  std::function<void(dlgSelectCycle&)> chooseCycle = [](dlgSelectCycle& form) {
    form.List1.setIndex(1);
    form.cmdAccept.click();
  };
};

void fill(BoltCircle& form, const char* holes, const char* circle, const char* hole) {
  form.txtNumberOfHoles.setText(holes);
  form.txtBoltCircleDiameter.setText(circle);
  form.txtBoltHoleDiameter.setText(hole);
}

TEST(BoltCircleForm, OpensAtTheMarker) {
  BoltContext d;
  d.rightClick(1.25F, -2);
  d.open([](BoltCircle& form) {
    EXPECT_EQ(form.name(), "BoltCircle");
    EXPECT_EQ(form.caption(), "Bolt Circle");
    EXPECT_EQ(form.txtOrigX.text(), "1.25");
    EXPECT_EQ(form.txtOrigY.text(), "-2");
    EXPECT_EQ(form.lblOrigin.caption(), "Origin (marker: X=1.25, Y=-2)");
    EXPECT_EQ(form.txtDegreesOffset.text(), "0");
    EXPECT_EQ(form.txtNumberOfHoles.text(), "");
    EXPECT_EQ(form.lstBoltHoleResults.count(), 0);
    EXPECT_EQ(form.lblDistanceBetweenHoleCenters.caption(), "");
    EXPECT_FALSE(form.chkDisplayCoordinates.isChecked());
    EXPECT_EQ(form.focused(), &form.txtNumberOfHoles);
  });
}

TEST(BoltCircleForm, ListsTheHolesAndTheirDistances) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "6", " 8 ", "1");
    form.cmdCompute.click();
    EXPECT_EQ(form.lstBoltHoleResults.items(),
              (Texts{"1 - X=0, Y=4", "2 - X=3.4641, Y=2", "3 - X=3.4641, Y=-2", "4 - X=0, Y=-4",
                     "5 - X=-3.4641, Y=-2", "6 - X=-3.4641, Y=2"}));
    EXPECT_EQ(form.lblDistanceBetweenHoleCenters.caption(), "4");
    EXPECT_EQ(form.lblDistanceBetweenHoleEdges.caption(), "3");
    EXPECT_EQ(form.lblCoordinates.caption(), "");
    form.lstBoltHoleResults.setIndex(2);
    EXPECT_EQ(form.lblCoordinates.caption(), "3 - X=3.4641, Y=-2");
    EXPECT_TRUE(form.isShown());
  });
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(d.store.NumPathSegments, 0);
  EXPECT_EQ(d.store.NumSegments, 0);
}

TEST(BoltCircleForm, OfOneHoleHasNoDistances) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "2", "2", "0.5");
    form.cmdCompute.click();
    EXPECT_EQ(form.lblDistanceBetweenHoleCenters.caption(), "2");
    EXPECT_EQ(form.lblDistanceBetweenHoleEdges.caption(), "1.5");
    form.txtNumberOfHoles.setText("1");
    form.cmdCompute.click();
    EXPECT_EQ(form.lstBoltHoleResults.items(), Texts{"1 - X=0, Y=1"});
    EXPECT_EQ(form.lblDistanceBetweenHoleCenters.caption(), "");
    EXPECT_EQ(form.lblDistanceBetweenHoleEdges.caption(), "");
  });
}

TEST(BoltCircleForm, RoundsTheNumberOfHolesToTheNearest) {
  const std::pair<const char*, int> cases[] = {{"1.4", 1}, {"2.6", 3}, {"999", 999}};
  for (const auto& [text, holes] : cases) {
    BoltContext d;
    d.open([&, text = text, holes = holes](BoltCircle& form) {
      fill(form, text, "2", "0.5");
      form.cmdCompute.click();
      EXPECT_EQ(form.lstBoltHoleResults.count(), holes);
    });
  }
}

TEST(BoltCircleForm, OfAnOffsetOf360IsThatOf0) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "5", "2", "0.5");
    form.cmdCompute.click();
    const Texts items = form.lstBoltHoleResults.items();
    form.txtDegreesOffset.setText("360");
    form.cmdCompute.click();
    EXPECT_EQ(form.lstBoltHoleResults.items(), items);
  });
  EXPECT_TRUE(d.messages().empty());
}

struct Complaint {
  const char* holes;
  const char* offset;
  const char* circle;
  const char* hole;
  const char* x;
  const char* y;
  const char* text;
};

TEST(BoltCircleForm, TellsEachFaultInItsWords) {
  const Complaint complaints[] = {
      {"", "0", "2", "1", "0", "0", "Number of Bolt Holes is required and must be numeric.\n"},
      {"six", "0", "2", "1", "0", "0", "Number of Bolt Holes is required and must be numeric.\n"},
      {"0", "0", "2", "1", "0", "0", "Number of Bolt Holes must be between 1 and 999.\n"},
      {"-3", "0", "2", "1", "0", "0", "Number of Bolt Holes must be between 1 and 999.\n"},
      {"999.4", "0", "2", "1", "0", "0", "Number of Bolt Holes must be between 1 and 999.\n"},
      {"1e30", "0", "2", "1", "0", "0", "Number of Bolt Holes must be between 1 and 999.\n"},
      {"6", "", "2", "1", "0", "0", "Degrees Offset must be numeric.\n"},
      {"6", "-1", "2", "1", "0", "0", "Number of Bolt Holes must be between 0 and 360.\n"},
      {"6", "360.5", "2", "1", "0", "0", "Number of Bolt Holes must be between 0 and 360.\n"},
      {"6", "0", "", "1", "0", "0", "Bolt Circle Diameter is required and must be numeric.\n"},
      {"6", "0", "0", "-1", "0", "0", "Bolt Circle diameter must be between greater than 0.\n"},
      {"6", "0", "2", "", "0", "0", "Bolt Hole Diameter is required and must be numeric.\n"},
      {"6", "0", "2", "2", "0", "0",
       "Bolt Hole Diameter must be less than Bolt Circle Diameter.\n"},
      {"6", "0", "2", "1e30", "0", "0",
       "Bolt Hole Diameter must be less than Bolt Circle Diameter.\n"},
      {"6", "0", "2", "1", "", "0",
       "Initial X and Y coordinates are required and must be numeric.\n"},
      {"6", "0", "2", "1", "0", "y",
       "Initial X and Y coordinates are required and must be numeric.\n"},
  };
  for (const Complaint& row : complaints) {
    SCOPED_TRACE(row.text);
    BoltContext d;
    d.open([&row](BoltCircle& form) {
      fill(form, row.holes, row.circle, row.hole);
      form.txtDegreesOffset.setText(row.offset);
      form.txtOrigX.setText(row.x);
      form.txtOrigY.setText(row.y);
      form.cmdCompute.click();
      EXPECT_EQ(form.lstBoltHoleResults.count(), 0);
      EXPECT_TRUE(form.isShown());
    });
    ASSERT_EQ(d.messages().size(), 1U);
    EXPECT_EQ(d.messages()[0].text, row.text);
    EXPECT_EQ(d.messages()[0].title, "Bolt Circle");
    EXPECT_EQ(d.messages()[0].icon, MessageIcon::Warning);
  }
}

// What is compared has to be a number: the hole is not compared with a circle that is none.
TEST(BoltCircleForm, TellsAllFaultsInOneBoxInTheOrderOfTheFields) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "x", "x", "5");
    form.txtDegreesOffset.setText("400");
    form.txtOrigX.setText("x");
    form.cmdCompute.click();
    form.txtDegreesOffset.setText("x");
    fill(form, "0", "-1", "5");
    form.cmdCompute.click();
  });
  ASSERT_EQ(d.messages().size(), 2U);
  EXPECT_EQ(d.messages()[0].text,
            "Number of Bolt Holes is required and must be numeric.\n"
            "Number of Bolt Holes must be between 0 and 360.\n"
            "Bolt Circle Diameter is required and must be numeric.\n"
            "Initial X and Y coordinates are required and must be numeric.\n");
  EXPECT_EQ(d.messages()[1].text,
            "Number of Bolt Holes must be between 1 and 999.\n"
            "Degrees Offset must be numeric.\n"
            "Bolt Circle diameter must be between greater than 0.\n"
            "Bolt Hole Diameter must be less than Bolt Circle Diameter.\n"
            "Initial X and Y coordinates are required and must be numeric.\n");
}

TEST(BoltCircleForm, AFaultLeavesTheListThatStands) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "2", "2", "0.5");
    form.cmdCompute.click();
    form.txtNumberOfHoles.setText("x");
    form.cmdCompute.click();
    EXPECT_EQ(form.lstBoltHoleResults.count(), 2);
  });
}

TEST(BoltCircleForm, ClearIsAsItOpened) {
  BoltContext d;
  d.open([&d](BoltCircle& form) {
    fill(form, "2", "2", "0.5");
    form.txtDegreesOffset.setText("10");
    form.txtOrigX.setText("9");
    form.cmdCompute.click();
    form.lstBoltHoleResults.setIndex(1);
    form.cmdClear.click();
    EXPECT_EQ(form.txtNumberOfHoles.text(), "");
    EXPECT_EQ(form.txtDegreesOffset.text(), "0");
    EXPECT_EQ(form.txtBoltCircleDiameter.text(), "");
    EXPECT_EQ(form.txtBoltHoleDiameter.text(), "");
    EXPECT_EQ(form.txtOrigX.text(), "0");
    EXPECT_EQ(form.lstBoltHoleResults.count(), 0);
    EXPECT_EQ(form.lblCoordinates.caption(), "");
    EXPECT_EQ(form.lblDistanceBetweenHoleCenters.caption(), "");
    EXPECT_TRUE(form.Picture1.marks().empty());
    EXPECT_TRUE(d.context.formPreview.rows.empty());
  });
}

// ---- Previews

TEST(BoltCircleForm, PreviewsTheHolesInItsPicture) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "2", "8", "2");
    form.cmdCompute.click();
    ASSERT_EQ(form.Picture1.marks().size(), 2U);
    EXPECT_NEAR(form.Picture1.marks()[0].y, 1800, 1e-9);
    EXPECT_NEAR(form.Picture1.marks()[1].y, -1800, 1e-9);
    EXPECT_EQ(form.Picture1.marks()[0].radius, 450);
    EXPECT_EQ(form.Picture1.marks()[1].text, "");
    form.chkDisplayCoordinates.setChecked(true);
    EXPECT_EQ(form.Picture1.marks()[1].text, "0, -4");
    form.chkDisplayCoordinates.setChecked(false);
    EXPECT_EQ(form.Picture1.marks()[1].text, "");
  });
}

TEST(BoltCircleForm, ShowsTheHolesInTheDrawingWhileItIsOpen) {
  BoltContext d;
  d.open([&d](BoltCircle& form) {
    EXPECT_FALSE(d.context.formPreview.shown);
    fill(form, "2", "2", "0.5");
    form.cmdCompute.click();
    EXPECT_TRUE(d.context.formPreview.shown);
    ASSERT_EQ(d.context.formPreview.rows.size(), 2U);
    EXPECT_EQ(testing::segmentText(d.context.formPreview.rows[1]),
              "5 (0.25, -1)-(0.25, -1) c (0, -1)");
    d.context.redraw.redrawscreen();
    EXPECT_TRUE(d.context.formPreview.shown);
  });
  EXPECT_FALSE(d.context.formPreview.shown);
  EXPECT_TRUE(d.context.formPreview.rows.empty());
  EXPECT_EQ(d.store.NumSegments, 0);
}

// ---- Create

TEST(BoltCircleForm, CreatesOneCycleForEachHoleInOneNewGroupAndStep) {
  BoltContext d;
  d.addPathLine(0, 0, 1, 0, 401);
  d.rightClick(5, 5);
  const TableBits before(d.store);
  d.open([](BoltCircle& form) {
    fill(form, "3", "2", "0.5");
    form.cmdCompute.click();
    form.cmdCreateSegments.click();
    EXPECT_TRUE(form.isShown());
  });
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0) @401 z 0", "83 (5, 6)-(5, 6) c (0.1, 2) @503 z -0.5 f 7",
                   "83 (5.866, 4.5)-(5.866, 4.5) c (0.1, 2) @503 z -0.5 f 7",
                   "83 (4.134, 4.5)-(4.134, 4.5) c (0.1, 2) @503 z -0.5 f 7"}));
  EXPECT_EQ(d.store.currentpathgroup, 5);
  EXPECT_EQ(d.store.showpaths, 1);
  EXPECT_EQ(d.store.NumSegments, 0) << "no drawing rows, in spite of the button's name";
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.context.changelog.changecount, 3);
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
  EXPECT_FALSE(d.context.changelog.record(1).StartOfSegment);
  EXPECT_EQ(d.statistics.substr(0, 4), "0 4 ");
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  expectBackAndForth(d, before);
}

TEST(BoltCircleForm, ASecondCreateIsAnotherGroupAndStep) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "1", "2", "0.5");
    form.cmdCompute.click();
    form.cmdCreateSegments.click();
    form.cmdCreateSegments.click();
  });
  EXPECT_EQ(pathTexts(d.store), (Texts{"83 (0, 1)-(0, 1) c (0.1, 2) @103 z -0.5 f 7",
                                       "83 (0, 1)-(0, 1) c (0.1, 2) @203 z -0.5 f 7"}));
  EXPECT_TRUE(d.context.changelog.record(1).StartOfSegment);
}

TEST(BoltCircleForm, CreatesNothingWithoutAComputedList) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "3", "2", "0.5");
    form.cmdCreateSegments.click();
  });
  EXPECT_EQ(d.test.recording.prompts.formNames, Texts{"BoltCircle"}) << "no cycle is asked for";
  EXPECT_EQ(d.store.NumPathSegments, 0);
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_TRUE(d.messages().empty());
}

TEST(BoltCircleForm, CreatesNothingWhenNoCycleIsChosen) {
  BoltContext d;
  d.chooseCycle = nullptr;
  d.open([](BoltCircle& form) {
    fill(form, "3", "2", "0.5");
    form.cmdCompute.click();
    form.cmdCreateSegments.click();
  });
  EXPECT_EQ(d.test.recording.prompts.formNames, (Texts{"BoltCircle", "dlgSelectCycle"}));
  EXPECT_EQ(d.store.NumPathSegments, 0);
  EXPECT_EQ(d.store.showpaths, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(BoltCircleForm, CreatesNothingWithoutTemplates) {
  BoltContext d;
  d.store.NumCycles = 0;
  d.chooseCycle = [](dlgSelectCycle& form) { form.cmdAccept.click(); };
  d.open([](BoltCircle& form) {
    fill(form, "3", "2", "0.5");
    form.cmdCompute.click();
    form.cmdCreateSegments.click();
  });
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

// The choice of the cycle offers the circles that are drawn instead of the list.
TEST(BoltCircleForm, CreatesCyclesAtTheSelectedCirclesOfTheDrawing) {
  BoltContext d;
  d.add({.type = 5, .attr = 30008, .x0 = 2, .y0 = 2, .x1 = 2, .y1 = 2, .xc = 1, .yc = 2});
  d.add({.type = 2, .attr = 30008, .x0 = 3, .y0 = 0, .x1 = 3, .y1 = 0, .xc = 2, .yc = 0});
  d.chooseCycle = [](dlgSelectCycle& form) {
    form.chkSelectedCircles.setChecked(true);
    form.cmdAccept.click();
  };
  const TableBits before(d.store);
  d.open([](BoltCircle& form) {
    fill(form, "3", "2", "0.5");
    form.cmdCompute.click();
    form.cmdCreateSegments.click();
  });
  EXPECT_EQ(pathTexts(d.store), (Texts{"81 (1, 2)-(1, 2) @103 z 0", "81 (2, 0)-(2, 0) @103 z 0"}));
  expectBackAndForth(d, before);
}

TEST(BoltCircleForm, CreatesWhatTheListSays) {
  BoltContext d;
  d.open([](BoltCircle& form) {
    fill(form, "2", "2", "0.5");
    form.cmdCompute.click();
    form.lstBoltHoleResults.setItems({"1 - X=-3.5, Y=7", "2 - X=1, Y=2"});
    form.cmdCreateSegments.click();
  });
  EXPECT_EQ(pathTexts(d.store), (Texts{"83 (-3.5, 7)-(-3.5, 7) c (0.1, 2) @103 z -0.5 f 7",
                                       "83 (1, 2)-(1, 2) c (0.1, 2) @103 z -0.5 f 7"}));
}

TEST(BoltCircleForm, CreatesNothingInATableThatIsFull) {
  BoltContext d;
  for (int row = 0; row < 32766; ++row) d.addPathLine(0, 0, static_cast<float>(row), 1);
  d.store.drawingsaved = true;
  bool failed = false;
  d.open([&failed](BoltCircle& form) {
    fill(form, "2", "2", "0.5");
    form.cmdCompute.click();
    try {
      form.cmdCreateSegments.click();
    } catch (const RuntimeFailure& failure) {
      takeCallChain();
      failed = failure.number() == FailureNumber::Overflow;
    }
  });
  EXPECT_TRUE(failed);
  EXPECT_EQ(d.store.NumPathSegments, 32766);
  EXPECT_EQ(d.store.currentpathgroup, 0);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

}  // namespace
}  // namespace tess
