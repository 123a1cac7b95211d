// The grids, their buttons and Grid Setup.
#include "drafting/grids.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/dlgSetGrids.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;

TEST(SnapToGrid, TakesTheNearestMultipleHalvesUpward) {
  EXPECT_EQ(snapToGrid(0.125F, 0.25F), 0.25F);
  EXPECT_EQ(snapToGrid(-0.125F, 0.25F), 0);
  EXPECT_EQ(snapToGrid(7, 2), 8);
  EXPECT_EQ(snapToGrid(1.3F, 0), 1.3F);
}

TEST(UpdateGridButtons, PressesTheToolsOfTheFlags) {
  RecordedDrafting d;
  d.store.visualgridf = 1;
  d.store.cursorgridf = 0;
  d.context.state.OSnapOn = true;
  d.tools.setChecked("CGrid", true);
  UpdateGridButtons(d.context);
  EXPECT_TRUE(d.tools.isChecked("VGrid"));
  EXPECT_FALSE(d.tools.isChecked("CGrid"));
  EXPECT_TRUE(d.tools.isChecked("OSnap"));
}

TEST(GridButtons, FlipTheirFlagAndTheVisualGridShows) {
  RecordedDrafting d;
  d.store.visualgrid = 1;
  d.log.take();
  Vgrid_ButtonClick(d.context);
  EXPECT_EQ(d.store.visualgridf, 1);
  EXPECT_TRUE(d.tools.isChecked("VGrid"));
  EXPECT_EQ(d.log.count("Cls"), 1);
  Cgrid_ButtonClick(d.context);
  EXPECT_EQ(d.store.cursorgridf, 1);
  EXPECT_TRUE(d.tools.isChecked("CGrid"));
  EXPECT_EQ(d.log.count("Cls"), 1);
}

TEST(FlipGrids, ReplacesEachFlagByOneMinusItself) {
  RecordedDrafting d;
  d.store.visualgridf = 1;
  d.store.cursorgridf = 0;
  d.log.take();
  flipGrids(d.context);
  EXPECT_EQ(d.store.visualgridf, 0);
  EXPECT_EQ(d.store.cursorgridf, 1);
  EXPECT_FALSE(d.tools.isChecked("VGrid"));
  EXPECT_TRUE(d.tools.isChecked("CGrid"));
  EXPECT_EQ(d.log.count("Cls"), 1);
}

// Shows Grid Setup and lets the operator work it.
void workGridSetup(RecordedDrafting& d, const std::function<void(dlgSetGrids&)>& work) {
  d.test.recording.prompts.onForm = [&](Form& form) { work(dynamic_cast<dlgSetGrids&>(form)); };
  d.log.take();
  mnuOptionsGridSelection_Click(d.context);
}

TEST(GridSetup, ShowsWhatIsInForce) {
  RecordedDrafting d;
  d.store.visualgrid = 0.5F;
  d.store.cursorgrid = 0.125F;
  d.store.visualgridf = 1;
  workGridSetup(d, [](dlgSetGrids& dialog) {
    EXPECT_EQ(dialog.caption(), "Grid Setup");
    EXPECT_EQ(dialog.txtvgrid.text(), "0.50000");
    EXPECT_EQ(dialog.txtcgrid.text(), "0.12500");
    EXPECT_TRUE(dialog.chkvgrid.isChecked());
    EXPECT_FALSE(dialog.chkcgrid.isChecked());
    EXPECT_FALSE(dialog.chkOSnap.isChecked());
    const bool features[] = {true, true, false, false, true};
    for (int kind = 1; kind <= 5; ++kind) {
      EXPECT_EQ(dialog.chkOSnapFeatures[kind].isChecked(), features[kind - 1]) << kind;
    }
  });
}

TEST(GridSetup, EnablesTheFeaturesOnlyWithObjectSnap) {
  RecordedDrafting d;
  workGridSetup(d, [](dlgSetGrids& dialog) {
    for (const bool on : {false, true, false}) {
      dialog.chkOSnap.setChecked(on);
      EXPECT_EQ(dialog.fraOSnapFeatures.isEnabled(), on);
      for (int kind = 1; kind <= 5; ++kind) {
        EXPECT_EQ(dialog.chkOSnapFeatures[kind].isEnabled(), on);
      }
    }
  });
}

TEST(GridSetup, AcceptedTakesEverythingOver) {
  RecordedDrafting d;
  workGridSetup(d, [](dlgSetGrids& dialog) {
    dialog.txtvgrid.setText("0.5 inch");
    dialog.txtcgrid.setText("0.25");
    dialog.chkvgrid.setChecked(true);
    dialog.chkOSnap.setChecked(true);
    dialog.chkOSnapFeatures[1].setChecked(false);
    dialog.chkOSnapFeatures[3].setChecked(true);
    dialog.cmdAccept.click();
  });
  EXPECT_EQ(d.store.visualgrid, 0.5F);
  EXPECT_EQ(d.store.cursorgrid, 0.25F);
  EXPECT_EQ(d.store.visualgridf, 1);
  EXPECT_EQ(d.store.cursorgridf, 0);
  EXPECT_TRUE(d.context.state.OSnapOn);
  const SnapSet features = {false, false, true, true, false, true, false};
  EXPECT_EQ(d.context.state.OSnapFeatures, features);
  EXPECT_EQ(d.context.state.OSnapActive, features);  // snap came on
  EXPECT_TRUE(d.tools.isChecked("VGrid"));
  EXPECT_TRUE(d.tools.isChecked("OSnap"));
  EXPECT_EQ(d.log.count("Cls"), 1);
}

TEST(GridSetup, CancelledChangesNothing) {
  RecordedDrafting d;
  d.store.visualgrid = 1;
  const SnapSet before = d.context.state.OSnapFeatures;
  workGridSetup(d, [](dlgSetGrids& dialog) {
    dialog.txtvgrid.setText("0.5");
    dialog.chkvgrid.setChecked(true);
    dialog.chkOSnap.setChecked(true);
    dialog.chkOSnapFeatures[1].setChecked(false);
    dialog.cmdCancel.click();
  });
  EXPECT_EQ(d.store.visualgrid, 1);
  EXPECT_EQ(d.store.visualgridf, 0);
  EXPECT_FALSE(d.context.state.OSnapOn);
  EXPECT_EQ(d.context.state.OSnapFeatures, before);
  EXPECT_EQ(d.log.count("Cls"), 0);
}

TEST(GridSetup, ATextWithoutANumberIsZero) {
  RecordedDrafting d;
  d.store.cursorgrid = 1;
  workGridSetup(d, [](dlgSetGrids& dialog) {
    dialog.txtcgrid.setText("fine");
    dialog.cmdAccept.click();
  });
  EXPECT_EQ(d.store.cursorgrid, 0);
}

TEST(GridSetup, RedrawsOnlyForANewVisualSpacing) {
  RecordedDrafting d;
  workGridSetup(d, [](dlgSetGrids& dialog) {
    dialog.txtcgrid.setText("3");
    dialog.chkvgrid.setChecked(true);
    dialog.cmdAccept.click();
  });
  EXPECT_EQ(d.log.count("Cls"), 0);
}

TEST(GridSetup, KeepsASingleUseOfSnapWhileTheFlagStays) {
  RecordedDrafting d;
  d.context.state.UpdateOSnapFeature(/*once=*/true, 4);
  workGridSetup(d, [](dlgSetGrids& dialog) { dialog.cmdAccept.click(); });
  EXPECT_TRUE(d.context.state.OSnapActive[4]);
}

struct ToolCase {
  bool vgrid, cgrid, before;
  bool expected;
};

TEST(GridSetup, PressesTheCursorGridsToolWhereThatGridIsAlone) {
  constexpr ToolCase kCases[] = {
      {false, true, false, true}, {false, true, true, true},  {false, false, true, false},
      {true, false, true, false}, {true, true, false, false}, {true, true, true, true},
  };
  for (const ToolCase& row : kCases) {
    RecordedDrafting d;
    d.tools.setChecked("CGrid", row.before);
    d.tools.setChecked("VGrid", !row.vgrid);
    workGridSetup(d, [&row](dlgSetGrids& dialog) {
      dialog.chkvgrid.setChecked(row.vgrid);
      dialog.chkcgrid.setChecked(row.cgrid);
      dialog.cmdAccept.click();
    });
    SCOPED_TRACE(::testing::Message() << row.vgrid << row.cgrid << row.before);
    EXPECT_EQ(d.tools.isChecked("VGrid"), row.vgrid);
    EXPECT_EQ(d.tools.isChecked("CGrid"), row.expected);
    EXPECT_EQ(d.store.cursorgridf, row.cgrid ? 1 : 0);
  }
}

}  // namespace
}  // namespace tess
