// Machine cycles: their dialog, and their rows at the marker, at a click and at selected circles.
#include "toolpath/cycles.h"

#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/repeat_key.h"
#include "drafting/undo.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/dlgSelectCycle.h"

namespace tess {
namespace {

using testing::pathTexts;
using testing::RecordedCam;
using Texts = std::vector<std::string>;
using Work = std::function<void(dlgSelectCycle&)>;

struct Template {
  const char* text;
  float finalDepth, incrementDepth, dwell, feed;
};

constexpr Template kDrill = {"G81 drill", -0.5F, 0, 0, 5};
constexpr Template kPeck = {"G83 peck", -0.75F, 0.125F, 0, 4};
constexpr Template kDwell = {"G82 spot", -0.25F, 0, 1.5F, 3};
constexpr Template kSlot = {"G79 slot", -0.5F, 0.25F, 0, 6};

struct CycleContext : RecordedCam {
  explicit CycleContext(const std::vector<Template>& templates) {
    store.NumCycles = templates.size();
    resizeCycles(store, store.NumCycles);
    for (int cycle = 0; cycle < store.NumCycles; ++cycle) {
      const Template& row = templates[static_cast<std::size_t>(cycle)];
      store.cycletext[cycle] = row.text;
      store.cyclefinaldepth[cycle] = row.finalDepth;
      store.cycleincrdepth[cycle] = row.incrementDepth;
      store.cycledwell[cycle] = row.dwell;
      store.cyclefeedrate[cycle] = row.feed;
    }
  }

  // What the operator does in the dialog the next time it is shown.
  void atDialog(const Work& work) {
    test.recording.prompts.onForm = [work](Form& form) {
      work(dynamic_cast<dlgSelectCycle&>(form));
    };
  }
  void acceptAtDialog(int cycle) {
    atDialog([cycle](dlgSelectCycle& dialog) {
      dialog.List1.pick(cycle);
      dialog.cmdAccept.press();
    });
  }
  void addCircle(int type, Point on, Point end, Point center, int attr = 30008) {
    add({type, attr, on.x, on.y, end.x, end.y, center.x, center.y});
  }
};

// Undo gives back the rows before the last step, redo those after it.
void expectTakenBack(RecordedCam& d, const Texts& before) {
  const Texts after = pathTexts(d.store);
  Undo_Last_Change(d.context);
  EXPECT_EQ(pathTexts(d.store), before);
  RedoLastChange(d.context);
  EXPECT_EQ(pathTexts(d.store), after);
}

TEST(CycleNumber, IsReadFromTheSecondAndThirdCharacter) {
  struct NumberCase {
    const char* text;
    int number;
  };
  constexpr NumberCase kCases[] = {
      {"G81 drill", 81}, {"G81", 81},  {"g83", 83}, {"G8", 8}, {"G8 1", 8},
      {"G 81", 8},       {"drill", 0}, {"G", 0},    {"", 0},   {"G812", 81},
  };
  for (const NumberCase& row : kCases) EXPECT_EQ(cycleNumber(row.text), row.number) << row.text;
}

// ---- The dialog

// A hole that is drilled with the end mill still in use breaks it, so the form names the tool.
TEST(SelectCycle, NamesTheToolThatCuts) {
  CycleContext d({kDrill});
  d.store.toolname[3] = "5 mm drill";
  d.store.toolradius[3] = 0.125F;
  d.store.selectedtool = 3;
  std::string named;
  d.atDialog([&](dlgSelectCycle& dialog) { named = dialog.lblTool.caption(); });
  chooseCycle(d.cam);
  EXPECT_EQ(named, "Cuts with Tool 4: 5 mm drill, 0.2500 in");
}

TEST(SelectCycle, ShowsTheTemplates) {
  CycleContext d({kDrill, kPeck});
  bool shown = false;
  d.atDialog([&](dlgSelectCycle& dialog) {
    shown = true;
    EXPECT_EQ(dialog.caption(), "Cycle Select & Definition");
    EXPECT_EQ(dialog.List1.items(), (Texts{"G81 drill", "G83 peck"}));
    EXPECT_EQ(dialog.List1.index(), 0);
    EXPECT_EQ(dialog.txtcyclefinaldepth.text(), "-0.5000");
    EXPECT_EQ(dialog.txtcycleincrdepth.text(), "0.0000");
    EXPECT_EQ(dialog.txtcycledwell.text(), "0");
    EXPECT_EQ(dialog.txtcyclefeedrate.text(), "5");
    EXPECT_FALSE(dialog.chkSelectedCircles.isChecked());
    dialog.List1.pick(1);
    EXPECT_EQ(dialog.txtcyclefinaldepth.text(), "-0.7500");
    EXPECT_EQ(dialog.txtcycleincrdepth.text(), "0.1250");
    EXPECT_EQ(dialog.txtcyclefeedrate.text(), "4");
  });
  EXPECT_EQ(chooseCycle(d.cam), std::nullopt);
  EXPECT_TRUE(shown);
}

TEST(SelectCycle, EnablesWhatTheCycleUses) {
  struct EnableCase {
    const char* text;
    bool increment, dwell;
  };
  constexpr EnableCase kCases[] = {
      {"G81 drill", false, false}, {"G82 spot", false, true}, {"G83 peck", true, false},
      {"G85 bore", false, true},   {"G87 back", true, false}, {"G89 bore", false, true},
      {"G79 slot", true, false},   {"G84 tap", true, true},   {"G8", true, true},
      {"drill", true, true},       {"", true, true},
  };
  for (const EnableCase& row : kCases) {
    CycleContext d({{"G81 first", 0, 0, 0, 0}, {row.text, 0, 0, 0, 0}});
    d.atDialog([&](dlgSelectCycle& dialog) {
      EXPECT_FALSE(dialog.txtcycleincrdepth.isEnabled());
      EXPECT_FALSE(dialog.txtcycledwell.isEnabled());
      dialog.List1.pick(1);
      EXPECT_EQ(dialog.txtcycleincrdepth.isEnabled(), row.increment) << row.text;
      EXPECT_EQ(dialog.txtcycledwell.isEnabled(), row.dwell) << row.text;
      EXPECT_TRUE(dialog.txtcyclefinaldepth.isEnabled()) << row.text;
      EXPECT_TRUE(dialog.txtcyclefeedrate.isEnabled()) << row.text;
    });
    chooseCycle(d.cam);
  }
}

TEST(SelectCycle, DrillingNeedsNeitherIncrementNorDwell) {
  CycleContext d({kDrill});
  d.acceptAtDialog(0);
  mnuCAMAddMachCycle_Click(d.cam);
  EXPECT_EQ(d.store.pstype[1], 81);
  d.atDialog([](dlgSelectCycle& dialog) {
    EXPECT_FALSE(dialog.txtcycleincrdepth.isEnabled());
    EXPECT_FALSE(dialog.txtcycledwell.isEnabled());
  });
  chooseCycle(d.cam);
}

TEST(SelectCycle, PeckingNeedsTheIncrementAndSpottingTheDwell) {
  CycleContext d({kPeck, kDwell});
  d.atDialog([](dlgSelectCycle& dialog) {
    EXPECT_TRUE(dialog.txtcycleincrdepth.isEnabled());
    EXPECT_FALSE(dialog.txtcycledwell.isEnabled());
    dialog.List1.pick(1);
    EXPECT_FALSE(dialog.txtcycleincrdepth.isEnabled());
    EXPECT_TRUE(dialog.txtcycledwell.isEnabled());
  });
  chooseCycle(d.cam);
}

TEST(SelectCycle, WritesAFieldWhenItIsLeft) {
  CycleContext d({kDrill, kPeck});
  d.atDialog([&](dlgSelectCycle& dialog) {
    dialog.List1.pick(1);
    dialog.txtcycleincrdepth.type(".2 inch");
    EXPECT_EQ(d.store.cycleincrdepth[1], 0.125F);
    dialog.txtcyclefinaldepth.type("-1.25");
    EXPECT_EQ(d.store.cycleincrdepth[1], 0.2F);
    EXPECT_EQ(dialog.txtcycleincrdepth.text(), "0.2000");
    dialog.txtcyclefeedrate.type("7.50");
    EXPECT_EQ(d.store.cyclefinaldepth[1], -1.25F);
    EXPECT_EQ(dialog.txtcyclefinaldepth.text(), "-1.2500");
    dialog.txtcyclefeedrate.leave();
    EXPECT_EQ(d.store.cyclefeedrate[1], 7.5F);
    EXPECT_EQ(dialog.txtcyclefeedrate.text(), "7.5");
    dialog.txtcyclefeedrate.type("none");
    dialog.cmdAccept.press();
    EXPECT_EQ(d.store.cyclefeedrate[1], 0);
  });
  EXPECT_EQ(chooseCycle(d.cam), 1);
  EXPECT_EQ(d.store.cyclefinaldepth[0], -0.5F);
}

TEST(SelectCycle, CancelKeepsTheEdit) {
  CycleContext d({kDrill});
  d.atDialog([](dlgSelectCycle& dialog) {
    dialog.txtcyclefinaldepth.type("-2");
    dialog.cmdCancel.press();
  });
  EXPECT_EQ(chooseCycle(d.cam), std::nullopt);
  EXPECT_EQ(d.store.cyclefinaldepth[0], -2);
}

TEST(SelectCycle, SelectsAFieldsTextOnFocus) {
  CycleContext d({kDwell});
  d.atDialog([](dlgSelectCycle& dialog) {
    for (TextBox* const box :
         {&dialog.txtcyclefinaldepth, &dialog.txtcycledwell, &dialog.txtcyclefeedrate}) {
      box->focus();
      EXPECT_TRUE(box->isAllSelected()) << box->name();
    }
  });
  chooseCycle(d.cam);
}

TEST(SelectCycle, WithoutTemplatesGivesNone) {
  CycleContext d({});
  d.addCircle(kCircle, {1, 0}, {1, 0}, {0, 0});
  d.atDialog([](dlgSelectCycle& dialog) {
    EXPECT_EQ(dialog.List1.count(), 0);
    EXPECT_EQ(dialog.txtcyclefinaldepth.text(), "0");
    EXPECT_EQ(dialog.txtcycleincrdepth.text(), "0");
    EXPECT_EQ(dialog.txtcycledwell.text(), "");
    EXPECT_EQ(dialog.txtcyclefeedrate.text(), "0");
    dialog.txtcyclefeedrate.type("5");
    dialog.chkSelectedCircles.setChecked(true);
    dialog.cmdAccept.press();
  });
  mnuCAMAddMachCycle_Click(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 0);
  EXPECT_EQ(d.test.recording.prompts.modalForms, 1);
}

TEST(SelectCycle, OpensWithTheTemplateChosenLast) {
  CycleContext d({kDrill, kPeck});
  d.acceptAtDialog(1);
  CAMAddMachCycleDeferred(d.cam);
  d.atDialog([](dlgSelectCycle& dialog) { EXPECT_EQ(dialog.List1.index(), 1); });
  CAMAddMachCycleDeferred(d.cam);
  EXPECT_EQ(d.cam.selectedCycle, std::nullopt);
}

// ---- At the marker

TEST(AddMachCycleAtMarker, PlacesOneRowOfANewGroup) {
  CycleContext d({kDrill, kPeck});
  d.addPathLine(0, 0, 1, 0, 304);
  d.store.markerx = 1.5F;
  d.store.markery = -2;
  d.store.selectedtool = 7;
  d.store.showpaths = 0;
  d.store.drawingsaved = true;
  const Texts before = pathTexts(d.store);
  d.acceptAtDialog(1);
  mnuCAMAddMachCycle_Click(d.cam);
  EXPECT_EQ(pathTexts(d.store)[1], "83 (1.5, -2)-(1.5, -2) c (0.125, 0) @407 z -0.75 f 4");
  EXPECT_EQ(d.store.currentpathgroup, 4);
  EXPECT_EQ(d.store.showpaths, 1);
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.test.listener.take(), Texts{"Update_menu_checks"});
  EXPECT_EQ(d.pending(), 0);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  expectTakenBack(d, before);
}

TEST(AddMachCycleAtMarker, PutsASlotsBothEndsThere) {
  CycleContext d({kSlot});
  d.store.markerx = 1;
  d.store.markery = 2;
  d.acceptAtDialog(0);
  mnuCAMAddMachCycle_Click(d.cam);
  EXPECT_EQ(pathTexts(d.store), Texts{"79 (1, 2)-(1, 2) c (0.25, 0) @100 z -0.5 f 6"});
}

TEST(AddMachCycleAtMarker, OfATextWithoutDigitsIsARowOfTypeZero) {
  CycleContext d({{"drill", -1, 0, 0, 5}});
  d.acceptAtDialog(0);
  mnuCAMAddMachCycle_Click(d.cam);
  EXPECT_EQ(pathTexts(d.store), Texts{"0 (0, 0)-(0, 0) @100 z -1 f 5"});
}

TEST(AddMachCycleAtMarker, CancelledPlacesNothing) {
  CycleContext d({kDrill});
  mnuCAMAddMachCycle_Click(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

// ---- At a click

TEST(AddMachCycleByClick, ArmsThePlacingClick) {
  CycleContext d({kDrill, kPeck});
  d.acceptAtDialog(1);
  CAMAddMachCycleDeferred(d.cam);
  EXPECT_EQ(d.pending(), 33);
  EXPECT_EQ(d.mode(), -1);
  EXPECT_EQ(d.prompt(), "Click spot to place machine cycle.");
  EXPECT_EQ(d.store.NumPathSegments, 0);
  EXPECT_EQ(d.cam.selectedCycle, 1);
  d.click(1, 2);
  EXPECT_EQ(pathTexts(d.store), Texts{"83 (1, 2)-(1, 2) c (0.125, 0) @100 z -0.75 f 4"});
  EXPECT_EQ(d.store.showpaths, 1);
  EXPECT_EQ(d.test.listener.take(), Texts{"Update_menu_checks"});
  EXPECT_EQ(d.pending(), 0);
  expectTakenBack(d, {});
}

TEST(AddMachCycleByClick, CancelledArmsNothing) {
  CycleContext d({kDrill});
  CAMAddMachCycleDeferred(d.cam);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.cam.selectedCycle, std::nullopt);
}

TEST(AddMachCycleByClick, RunsASlotFromTheMarkerToTheClick) {
  CycleContext d({kSlot});
  d.store.markerx = 1;
  d.acceptAtDialog(0);
  CAMAddMachCycleDeferred(d.cam);
  d.click(3, 2);
  EXPECT_EQ(pathTexts(d.store), Texts{"79 (1, 0)-(3, 2) c (0.25, 0) @100 z -0.5 f 6"});
}

TEST(AddMachCycleByClick, TakesANewGroupForEachClickWhenRepeated) {
  CycleContext d({kDrill, kPeck});
  d.acceptAtDialog(1);
  CAMAddMachCycleDeferred(d.cam);
  d.click(1, 2);
  repeatLastCommand(d.context);
  EXPECT_EQ(d.pending(), 33);
  EXPECT_EQ(d.test.recording.prompts.modalForms, 1);
  d.click(2, 2);
  EXPECT_EQ(pathTexts(d.store), (Texts{"83 (1, 2)-(1, 2) c (0.125, 0) @100 z -0.75 f 4",
                                       "83 (2, 2)-(2, 2) c (0.125, 0) @200 z -0.75 f 4"}));
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.store.NumPathSegments, 1);
}

TEST(AddMachCycleByClick, OfTheFirstTemplateIsNotRepeated) {
  CycleContext d({kDrill, kPeck});
  d.acceptAtDialog(0);
  CAMAddMachCycleDeferred(d.cam);
  d.click(1, 2);
  repeatLastCommand(d.context);
  EXPECT_EQ(d.pending(), 0);
}

TEST(AddMachCycleByClick, WithTheTemplateGoneMeanwhilePlacesNothing) {
  CycleContext d({kDrill, kPeck});
  d.acceptAtDialog(1);
  CAMAddMachCycleDeferred(d.cam);
  d.store.NumCycles = 1;
  resizeCycles(d.store, 1);
  d.click(1, 2);
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

// ---- At selected circles

TEST(AddMachCycleAtCircles, PlacesThreeRowsInOneGroupAndNoOther) {
  CycleContext d({kDrill});
  d.addPathLine(0, 0, 1, 0, 200);
  d.addCircle(kCircle, {1, 0}, {1, 0}, {0, 0});
  d.addCircle(kClockwiseArc, {3, 0}, {3, 0}, {2, 0}, 30108);
  d.addCircle(kCircle, {1, 3}, {1, 3}, {0, 3}, 8);  // not selected
  d.addCircle(kCounterClockwiseArc, {5, 1}, {5, 1}, {4, 1});
  d.addLine(7, 7, 7, 7);
  const Texts before = pathTexts(d.store);
  d.atDialog([&](dlgSelectCycle& dialog) {
    dialog.chkSelectedCircles.setChecked(true);
    dialog.cmdAccept.press();
    EXPECT_FALSE(dialog.chkSelectedCircles.isChecked());
    EXPECT_EQ(dialog.result(), std::nullopt);
  });
  CAMAddMachCycleDeferred(d.cam);
  EXPECT_EQ(d.statistics.substr(0, 4), "5 4 ");
  EXPECT_EQ(d.pending(), 0);
  Texts expected = before;
  expected.insert(expected.end(),
                  {"81 (0, 0)-(0, 0) @300 z -0.5 f 5", "81 (2, 0)-(2, 0) @300 z -0.5 f 5",
                   "81 (4, 1)-(4, 1) @300 z -0.5 f 5"});
  EXPECT_EQ(pathTexts(d.store), expected);
  EXPECT_EQ(d.store.showpaths, 1);
  expectTakenBack(d, before);
}

TEST(AddMachCycleAtCircles, PassesOverOpenArcs) {
  CycleContext d({kDrill});
  d.addCircle(kClockwiseArc, {1, 0}, {0, 1}, {0, 0});
  d.addCircle(kClockwiseArc, {1, 0}, {1, 0.00001F}, {0, 0});  // closed only within the tolerance
  placeCyclesAtSelectedCircles(d.cam, 0);
  EXPECT_EQ(d.store.NumPathSegments, 0);
  EXPECT_EQ(d.store.currentpathgroup, 0);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

}  // namespace
}  // namespace tess
