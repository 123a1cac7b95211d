// Pocketing & Profiling Parameters: what it shows, what enables what, what Accept stores.
#include "toolpath/dlgPocketingPrm.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/failure_of.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::RecordedCam;

// Shows the dialog and lets the operator work it.
void work(RecordedCam& c, const std::function<void(dlgPocketingPrm&)>& operate) {
  c.test.recording.prompts.onForm = [&](Form& form) {
    operate(dynamic_cast<dlgPocketingPrm&>(form));
  };
  mnuCAMPocketSpecs_Click(c.cam);
}

void acceptUnchanged(RecordedCam& c) {
  work(c, [](dlgPocketingPrm& dialog) { dialog.cmdAccept.press(); });
}

struct CaptionCase {
  const char* control;
  int index;  // of a control array; 0 none
  const char* caption;
};

const CaptionCase kCaptions[] = {
    {"fraCuttingDepths", 0, "Cutting Depths :"},
    {"Label1", 0, "Start Depth :"},
    {"Label2", 0, "Final Depth :"},
    {"Label3", 0, "Depth Per Pass :"},
    {"Label4", 0, "Z :"},
    {"Label5", 0, "Rough Cut Clearance :"},
    {"Label7", 0, "Z :"},
    {"Label9", 0, "X && Y :"},
    {"Label10", 0, "Aperture (tolerance) :"},
    {"Frame1", 0, " Milling Direction "},
    {"optCutMode", 1, "Conventional Milling only"},
    {"optCutMode", 2, "Climb Milling only"},
    {"optCutMode", 3, "Bidirectional"},
    {"Frame2", 0, " Pocketing Style "},
    {"optPocketingStyle", 1, "Horizontal Only"},
    {"optPocketingStyle", 2, "Vertical Only"},
    {"optPocketingStyle", 3, "Parallel Spiral"},
    {"lblDistFrCenter", 0, "Spiral Start Distance from Pocket Center :"},
    {"Frame3", 0, " Step Over Amount "},
    {"OptCutWidth", 1, "Percentage :"},
    {"OptCutWidth", 2, "Distance :"},
    {"Frame4", 0, " Feed Rates "},
    {"Label11", 0, "Rough Cut :"},
    {"Label12", 0, "Finishing Cut :"},
    {"Label13", 0, "Z-Axis Plunge :"},
    {"Frame5", 0, " Lead In/Out Paths "},
    {"chkLeadIn", 0, "Lead In/Out Paths"},
    {"optLines", 0, "Lines"},
    {"optArcs", 0, "Arcs"},
    {"Label6", 0, "Entry/Exit Length :"},
    {"Label8", 0, "Entry/Exit Angle :"},
    {"chkConnectPocketPaths", 0, "Connect Pocket Paths"},
    {"chkGougeAvoidance", 0, "Apply Gouge Avoidance"},
    {"chkPlaceFinishPath", 0, "Auto Place Finish Path"},
    {"chkLathePocketing", 0, "Lathe Style Pocketing"},
    {"chkTruePaths", 0, "True Paths"},
    {"cmdAccept", 0, "&Accept"},
    {"cmdCancel", 0, "&Cancel"},
};

TEST(PocketingParameters, CaptionsStandAsTheOperatorReadsThem) {
  RecordedCam c;
  const dlgPocketingPrm dialog(c.store);
  EXPECT_EQ(dialog.caption(), "Pocketing & Profiling Parameters");
  EXPECT_EQ(dialog.txtTolerance.text(), "0.0001");
  for (const CaptionCase& test : kCaptions) {
    SCOPED_TRACE(test.control);
    const Control* const control =
        test.index == 0 ? dialog.control(test.control) : dialog.control(test.control, test.index);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->caption(), test.caption);
  }
}

struct NumberCase {
  const char* box;
  float DrawingSettings::*setting;
};

const NumberCase kNumbers[] = {
    {"txtstartdepth", &DrawingSettings::cfg_start_depth},
    {"txtfinaldepth", &DrawingSettings::cfg_final_depth},
    {"txtzcutperpass", &DrawingSettings::cfg_z_cut_per_pass},
    {"txtminzfinish", &DrawingSettings::cfg_min_z_finish},
    {"txtminroughclear", &DrawingSettings::cfg_min_rough_clearance},
    {"txtTolerance", &DrawingSettings::cfg_tolerance},
    {"txtDistFrCenter", &DrawingSettings::cfg_pocket_dist_from_center},
    {"txtroughfeedrate", &DrawingSettings::cfg_rough_feedrate},
    {"txtfinishfeedrate", &DrawingSettings::cfg_finish_feedrate},
    {"txtZPlungeRate", &DrawingSettings::cfg_z_plunge_rate},
    {"txtLeadInLength", &DrawingSettings::cfg_lead_in_length},
};

TEST(PocketingParameters, EachNumberIsShownAndStored) {
  for (const NumberCase& test : kNumbers) {
    SCOPED_TRACE(test.box);
    RecordedCam c;
    c.store.*test.setting = 0.375F;
    work(c, [&](dlgPocketingPrm& dialog) {
      EXPECT_EQ(dialog.control(test.box)->text(), "0.375");
      dialog.control(test.box)->setText("-1.25");
      dialog.cmdAccept.press();
    });
    EXPECT_EQ(c.store.*test.setting, -1.25F);
  }
}

TEST(PocketingParameters, ATextThatIsNoNumberCountsAsItsLeadingDigits) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.txtstartdepth.setText("0.5in");
    dialog.txtfinaldepth.setText("rubbish");
    dialog.cmdAccept.press();
  });
  EXPECT_EQ(c.store.cfg_start_depth, 0.5F);
  EXPECT_EQ(c.store.cfg_final_depth, 0);
}

TEST(PocketingParameters, AcceptMarksTheSetupAsChangedAndCancelDoesNot) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) { dialog.cmdCancel.press(); });
  EXPECT_FALSE(c.store.setupchanged);
  acceptUnchanged(c);
  EXPECT_TRUE(c.store.setupchanged);
  EXPECT_EQ(c.test.recording.prompts.formNames,
            (std::vector<std::string>{"dlgPocketingPrm", "dlgPocketingPrm"}));
}

TEST(PocketingParameters, CancelAfterAChangeOfTheToleranceLeavesItAlone) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.txtTolerance.setText("0.5");
    dialog.optPocketingStyle[3].press();
    dialog.cmdCancel.press();
  });
  EXPECT_EQ(c.store.cfg_tolerance, 0.001F);
  EXPECT_EQ(c.store.cfg_pocketing_style, 1);
}

TEST(PocketingParameters, AcceptUnchangedStoresWhatThereWas) {
  RecordedCam c;
  c.store.cfg_cutting_mode = 3;
  c.store.cfg_pocketing_style = 2;
  c.store.cfg_cut_width_type = 2;
  c.store.cfg_tool_spacing_distance = 0.125F;
  c.store.cfg_auto_place_finish_path = true;
  c.store.cfg_gouge_avoidance = true;
  c.store.cfg_connect_pocketing_paths = true;
  c.store.cfg_lead_in_arc = true;
  c.store.cfg_lead_in_length = 0.5F;
  c.store.cfg_lead_in_angle = 45;
  acceptUnchanged(c);
  EXPECT_EQ(c.store.cfg_cutting_mode, 3);
  EXPECT_EQ(c.store.cfg_pocketing_style, 2);
  EXPECT_EQ(c.store.cfg_cut_width_type, 2);
  EXPECT_EQ(c.store.cfg_tool_spacing_distance, 0.125F);
  EXPECT_EQ(c.store.cfg_tool_spacing, 25);
  EXPECT_TRUE(c.store.cfg_auto_place_finish_path);
  EXPECT_TRUE(c.store.cfg_gouge_avoidance);
  EXPECT_TRUE(c.store.cfg_connect_pocketing_paths);
  EXPECT_TRUE(c.store.cfg_lead_in_arc);
  EXPECT_FALSE(c.store.cfg_lead_in_path);
  EXPECT_EQ(c.store.cfg_lead_in_length, 0.5F);
  EXPECT_EQ(c.store.cfg_lead_in_angle, 45);
}

TEST(PocketingParameters, ChoicesAreStored) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.optCutMode[2].press();
    dialog.optPocketingStyle[2].press();
    dialog.OptCutWidth[2].press();
    dialog.chkPlaceFinishPath.press();
    dialog.chkGougeAvoidance.press();
    dialog.chkConnectPocketPaths.press();
    dialog.cmdAccept.press();
  });
  EXPECT_EQ(c.store.cfg_cutting_mode, 2);
  EXPECT_EQ(c.store.cfg_pocketing_style, 2);
  EXPECT_EQ(c.store.cfg_cut_width_type, 2);
  EXPECT_TRUE(c.store.cfg_auto_place_finish_path);
  EXPECT_TRUE(c.store.cfg_gouge_avoidance);
  EXPECT_TRUE(c.store.cfg_connect_pocketing_paths);
  EXPECT_FALSE(c.store.cfg_lathe_style_pocketing);
}

TEST(PocketingParameters, TruePathsAreShownAndStored) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_FALSE(dialog.chkTruePaths.isChecked());
    dialog.chkTruePaths.press();
    dialog.cmdCancel.press();
  });
  EXPECT_FALSE(c.store.cfg_true_paths);
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.chkTruePaths.press();
    dialog.cmdAccept.press();
  });
  EXPECT_TRUE(c.store.cfg_true_paths);
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_TRUE(dialog.chkTruePaths.isChecked());
    dialog.chkTruePaths.press();
    dialog.cmdAccept.press();
  });
  EXPECT_FALSE(c.store.cfg_true_paths);
}

TEST(PocketingParameters, ACheckBoxThatIsNeitherCountsAsOff) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.chkGougeAvoidance.setValue(2);
    dialog.chkConnectPocketPaths.setValue(2);
    dialog.cmdAccept.press();
  });
  EXPECT_FALSE(c.store.cfg_gouge_avoidance);
  EXPECT_FALSE(c.store.cfg_connect_pocketing_paths);
}

TEST(PocketingParameters, ChoicesThatWereNeverMadeAreTheFirstOnesAtOnce) {
  RecordedCam c;
  c.store.cfg_cutting_mode = 0;
  c.store.cfg_pocketing_style = 0;
  c.store.cfg_cut_width_type = 0;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_TRUE(dialog.optCutMode[1].value());
    EXPECT_TRUE(dialog.optPocketingStyle[1].value());
    EXPECT_TRUE(dialog.OptCutWidth[1].value());
    dialog.cmdCancel.press();
  });
  EXPECT_EQ(c.store.cfg_cutting_mode, 1);
  EXPECT_EQ(c.store.cfg_pocketing_style, 1);
  EXPECT_EQ(c.store.cfg_cut_width_type, 1);
}

TEST(PocketingParameters, ASetupWithAChoiceThatThereIsNoneOfOpensAtTheFirst) {
  RecordedCam c;
  c.store.cfg_cutting_mode = 7;
  c.store.cfg_pocketing_style = -1;
  c.store.cfg_cut_width_type = 4;
  acceptUnchanged(c);
  EXPECT_EQ(c.store.cfg_cutting_mode, 1);
  EXPECT_EQ(c.store.cfg_pocketing_style, 1);
  EXPECT_EQ(c.store.cfg_cut_width_type, 1);
}

// ---- Styles

TEST(PocketingParameters, TheSpiralEnablesItsDistanceAndDisablesTheLatheBox) {
  RecordedCam c;
  c.store.cfg_pocketing_style = 3;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_TRUE(dialog.lblDistFrCenter.isEnabled());
    EXPECT_TRUE(dialog.txtDistFrCenter.isEnabled());
    EXPECT_FALSE(dialog.chkLathePocketing.isEnabled());
    dialog.optPocketingStyle[1].press();
    EXPECT_FALSE(dialog.lblDistFrCenter.isEnabled());
    EXPECT_FALSE(dialog.txtDistFrCenter.isEnabled());
    EXPECT_TRUE(dialog.chkLathePocketing.isEnabled());
  });
}

TEST(PocketingParameters, TheVerticalStyleDisablesTheLatheBoxAndItsOwnDistanceStaysOff) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_TRUE(dialog.chkLathePocketing.isEnabled());
    dialog.optPocketingStyle[2].press();
    EXPECT_FALSE(dialog.chkLathePocketing.isEnabled());
    EXPECT_FALSE(dialog.txtDistFrCenter.isEnabled());
  });
}

// The options of the other styles are out of the operator's reach then, but not of a script's.
TEST(PocketingParameters, AnotherStyleClearsTheLatheBox) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.chkLathePocketing.press();
    dialog.optPocketingStyle[2].setValue(true);
    EXPECT_FALSE(dialog.chkLathePocketing.isChecked());
    EXPECT_FALSE(dialog.chkLathePocketing.isEnabled());
    EXPECT_TRUE(dialog.Frame4.isEnabled());
    dialog.cmdAccept.press();
  });
  EXPECT_FALSE(c.store.cfg_lathe_style_pocketing);
}

std::vector<Control*> millingOnly(dlgPocketingPrm& dialog) {
  return {&dialog.optPocketingStyle[3],
          &dialog.optPocketingStyle[2],
          &dialog.chkPlaceFinishPath,
          &dialog.Frame4,
          &dialog.Label4,
          &dialog.Label7,
          &dialog.txtzcutperpass,
          &dialog.txtminzfinish,
          &dialog.Frame5,
          &dialog.chkLeadIn,
          &dialog.optLines,
          &dialog.optArcs,
          &dialog.txtLeadInAngle,
          &dialog.txtLeadInLength,
          &dialog.Label6,
          &dialog.Label8};
}

TEST(PocketingParameters, TheLatheBoxDisablesWhatOnlyMillingHas) {
  RecordedCam c;
  c.store.cfg_lead_in_path = true;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.chkLathePocketing.press();
    for (const Control* control : millingOnly(dialog)) {
      EXPECT_FALSE(control->isEnabled()) << control->name();
    }
    EXPECT_FALSE(dialog.chkLeadIn.isChecked());
    EXPECT_TRUE(dialog.optPocketingStyle[1].isEnabled());
    EXPECT_TRUE(dialog.txtminroughclear.isEnabled());
    dialog.chkLathePocketing.press();
    for (const Control* control : millingOnly(dialog)) {
      EXPECT_TRUE(control->isEnabled()) << control->name();
    }
    EXPECT_FALSE(dialog.chkLeadIn.isChecked()) << "it keeps its state";
  });
}

TEST(PocketingParameters, WithLatheStyleBothLeadsAreStoredAsOff) {
  RecordedCam c;
  c.store.cfg_lead_in_path = true;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.chkLathePocketing.press();
    EXPECT_FALSE(dialog.optPocketingStyle[3].isEnabled());
    EXPECT_FALSE(dialog.optPocketingStyle[2].isEnabled());
    dialog.cmdAccept.press();
  });
  EXPECT_TRUE(c.store.cfg_lathe_style_pocketing);
  EXPECT_FALSE(c.store.cfg_lead_in_path);
  EXPECT_FALSE(c.store.cfg_lead_in_arc);
}

TEST(PocketingParameters, AStoredLatheStyleDisablesAtOnce) {
  RecordedCam c;
  c.store.cfg_lathe_style_pocketing = true;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_TRUE(dialog.chkLathePocketing.isChecked());
    EXPECT_FALSE(dialog.Frame5.isEnabled());
    dialog.cmdAccept.press();
  });
  EXPECT_TRUE(c.store.cfg_lathe_style_pocketing);
}

// ---- Step-over

TEST(PocketingParameters, PercentAndDistanceFollowEachOtherByTheToolsDiameter) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_EQ(dialog.txtToolSpacingPercent.text(), "50");
    EXPECT_EQ(dialog.txtToolSpacingDistance.text(), "0.25");
    dialog.txtToolSpacingPercent.setText("33.333333");
    EXPECT_EQ(dialog.txtToolSpacingDistance.text(), "0.1667");
    EXPECT_EQ(dialog.txtToolSpacingPercent.text(), "33.333333");
    dialog.txtToolSpacingDistance.setText("0.1");
    EXPECT_EQ(dialog.txtToolSpacingPercent.text(), "20");
    dialog.txtToolSpacingDistance.setText("nothing");
    EXPECT_EQ(dialog.txtToolSpacingPercent.text(), "0");
  });
}

TEST(PocketingParameters, TheChosenStepOverAloneCanBeEdited) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_TRUE(dialog.txtToolSpacingPercent.isEnabled());
    EXPECT_FALSE(dialog.txtToolSpacingDistance.isEnabled());
    dialog.OptCutWidth[2].press();
    EXPECT_FALSE(dialog.txtToolSpacingPercent.isEnabled());
    EXPECT_TRUE(dialog.txtToolSpacingDistance.isEnabled());
  });
}

// It is the style that says which setting is shown.
TEST(PocketingParameters, StylesButTheFirstShowTheStoredDistance) {
  for (const auto& [style, percent, distance] :
       {std::tuple{1, "50", "0.25"}, {2, "20", "0.1"}, {3, "20", "0.1"}}) {
    SCOPED_TRACE(style);
    RecordedCam c;
    c.store.cfg_pocketing_style = style;
    c.store.cfg_tool_spacing_distance = 0.1F;
    work(c, [percent = percent, distance = distance](dlgPocketingPrm& dialog) {
      EXPECT_EQ(dialog.txtToolSpacingPercent.text(), percent);
      EXPECT_EQ(dialog.txtToolSpacingDistance.text(), distance);
    });
  }
}

TEST(PocketingParameters, WithoutADiameterTheShareStaysAsItIs) {
  RecordedCam c;
  c.store.toolradius[0] = 0;
  c.store.cfg_cut_width_type = 2;
  c.store.cfg_tool_spacing_distance = 0.1F;
  c.store.cfg_pocketing_style = 2;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_EQ(dialog.txtToolSpacingPercent.text(), "50");
    EXPECT_EQ(dialog.txtToolSpacingDistance.text(), "0.1");
  });
}

// ---- Feeds and notes

TEST(PocketingParameters, APlungeRateOfZeroShowsOneAndAcceptStoresIt) {
  RecordedCam c;
  c.store.cfg_z_plunge_rate = 0;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_EQ(dialog.txtZPlungeRate.text(), "1");
    dialog.cmdAccept.press();
  });
  EXPECT_EQ(c.store.cfg_z_plunge_rate, 1);
}

TEST(PocketingParameters, NotesTellToolFeedAndMaterial) {
  RecordedCam c;
  c.store.selectedtool = 4;
  c.store.toolradius[4] = 0.5F;
  c.store.toolfeedrate[4] = "  12.5 ";
  c.store.partmaterial = "Aluminium";
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_EQ(dialog.lblRecommendedFeedRate.caption(), "Recommended : 12.5");
    EXPECT_EQ(dialog.lblUsingTool.caption(), "using Tool # 5");
    EXPECT_EQ(dialog.lblMaterial.caption(), "Aluminium");
  });
}

TEST(PocketingParameters, NotesTellWhatIsMissing) {
  RecordedCam c;
  c.store.toolfeedrate[0] = "   ";
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_EQ(dialog.lblRecommendedFeedRate.caption(), "<No Recommended Feed Rate>");
  });
  c.store.selectedtool = -1;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_EQ(dialog.lblUsingTool.caption(), "<No Tool Selected>");
    EXPECT_EQ(dialog.lblRecommendedFeedRate.caption(), "<No Recommended Feed Rate>");
  });
}

// ---- Leads

TEST(PocketingParameters, AStoredLeadOfZeroOpensAsATenthAndThirtyDegrees) {
  RecordedCam c;
  c.store.cfg_lead_in_length = 0;
  c.store.cfg_lead_in_angle = 0;
  work(c, [](dlgPocketingPrm& dialog) {
    EXPECT_EQ(dialog.txtLeadInLength.text(), "0.1");
    EXPECT_EQ(dialog.txtLeadInAngle.text(), "30");
    dialog.cmdAccept.press();
  });
  EXPECT_EQ(c.store.cfg_lead_in_length, 0.1F);
  EXPECT_EQ(c.store.cfg_lead_in_angle, 30);
}

struct LeadCase {
  const char* name;
  bool path, arc;
  bool checked, lines, arcs;
};

const LeadCase kLeads[] = {
    {"none", false, false, false, false, false},
    {"lines", true, false, true, true, false},
    {"arcs", false, true, true, false, true},
    {"both show as arcs", true, true, true, false, true},
};

TEST(PocketingParameters, StoredLeadsShowAsOneChoice) {
  for (const LeadCase& test : kLeads) {
    SCOPED_TRACE(test.name);
    RecordedCam c;
    c.store.cfg_lead_in_path = test.path;
    c.store.cfg_lead_in_arc = test.arc;
    work(c, [&test](dlgPocketingPrm& dialog) {
      EXPECT_EQ(dialog.chkLeadIn.isChecked(), test.checked);
      EXPECT_EQ(dialog.optLines.value(), test.lines);
      EXPECT_EQ(dialog.optArcs.value(), test.arcs);
      dialog.cmdAccept.press();
    });
    EXPECT_EQ(c.store.cfg_lead_in_path, test.lines);
    EXPECT_EQ(c.store.cfg_lead_in_arc, test.arcs);
  }
}

TEST(PocketingParameters, LeadsWithoutAShapeAreLines) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.chkLeadIn.press();
    EXPECT_TRUE(dialog.optLines.value());
    dialog.optArcs.press();
    dialog.chkLeadIn.press();
    dialog.chkLeadIn.press();
    EXPECT_TRUE(dialog.optArcs.value()) << "a shape once chosen stays";
    dialog.chkLeadIn.press();
    dialog.cmdAccept.press();
  });
  EXPECT_FALSE(c.store.cfg_lead_in_path);
  EXPECT_FALSE(c.store.cfg_lead_in_arc);
}

struct RefusalCase {
  const char* name;
  const char* length;
  const char* angle;
  FailureNumber number;
};

const RefusalCase kRefusals[] = {
    {"length", "short", "30", FailureNumber::TypeMismatch},
    {"length with a unit", "0.5in", "30", FailureNumber::TypeMismatch},
    {"no length", "", "30", FailureNumber::TypeMismatch},
    {"angle", "0.5", "steep", FailureNumber::TypeMismatch},
    {"no angle", "0.5", "", FailureNumber::TypeMismatch},
    {"angle too wide", "0.5", "40000", FailureNumber::Overflow},
};

TEST(PocketingParameters, ALeadThatIsNoNumberFailsAndStoresNothing) {
  for (const RefusalCase& test : kRefusals) {
    SCOPED_TRACE(test.name);
    RecordedCam c;
    c.store.cfg_lead_in_length = 0.75F;
    dlgPocketingPrm dialog(c.store);
    dialog.open(Modality::Modal);
    dialog.txtstartdepth.setText("3");
    dialog.txtLeadInLength.setText(test.length);
    dialog.txtLeadInAngle.setText(test.angle);
    EXPECT_EQ(testing::numberOfFailure([&] { dialog.cmdAccept.press(); }), test.number);
    EXPECT_TRUE(dialog.isShown());
    EXPECT_EQ(c.store.cfg_start_depth, 0);
    EXPECT_EQ(c.store.cfg_lead_in_length, 0.75F);
    EXPECT_FALSE(c.store.setupchanged);
  }
}

TEST(PocketingParameters, LeadNumbersMayStandAmongBlanksAndAnglesRoundToWholeDegrees) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.txtLeadInLength.setText(" 0.5 ");
    dialog.txtLeadInAngle.setText(" 44.6");
    dialog.cmdAccept.press();
  });
  EXPECT_EQ(c.store.cfg_lead_in_length, 0.5F);
  EXPECT_EQ(c.store.cfg_lead_in_angle, 45);
}

TEST(PocketingParameters, BoxesSelectTheirWholeTextWithTheFocus) {
  RecordedCam c;
  work(c, [](dlgPocketingPrm& dialog) {
    dialog.txtminroughclear.focus();
    EXPECT_TRUE(dialog.txtminroughclear.isAllSelected());
  });
}

}  // namespace
}  // namespace tess
