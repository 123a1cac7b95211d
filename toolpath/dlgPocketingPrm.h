// Pocketing & Profiling Parameters: how roughing and finishing behave.
// Owns: dlgPocketingPrm, mnuCAMPocketSpecs_Click.
#pragma once

#include "core/controls.h"
#include "core/form.h"
#include "core/pocketing_choices.h"
#include "toolpath/cam_context.h"
#include "toolpath/entry_fields.h"
#include "toolpath/step_over_fields.h"

namespace tess {

struct DrawingSettings;

// Accept stores what the boxes hold, without looking at ranges, and marks the setup as changed.
// Raises Type mismatch, and stores nothing, when the lead length or angle, the engagement limit, or
// a number of the entry, is none.
class dlgPocketingPrm : public Form {
 public:
  explicit dlgPocketingPrm(DrawingStore& store);

  Frame fraCuttingDepths{*this, "fraCuttingDepths"};
  Label Label1{*this, "Label1", fraCuttingDepths};
  TextBox txtstartdepth{*this, "txtstartdepth", fraCuttingDepths};
  Label Label2{*this, "Label2", fraCuttingDepths};
  TextBox txtfinaldepth{*this, "txtfinaldepth", fraCuttingDepths};
  Label Label3{*this, "Label3", fraCuttingDepths};
  Label Label4{*this, "Label4", fraCuttingDepths};
  TextBox txtzcutperpass{*this, "txtzcutperpass", fraCuttingDepths};
  Label Label5{*this, "Label5", fraCuttingDepths};
  Label Label7{*this, "Label7", fraCuttingDepths};
  TextBox txtminzfinish{*this, "txtminzfinish", fraCuttingDepths};
  Label Label9{*this, "Label9", fraCuttingDepths};
  TextBox txtminroughclear{*this, "txtminroughclear", fraCuttingDepths};
  Label Label10{*this, "Label10", fraCuttingDepths};
  TextBox txtTolerance{*this, "txtTolerance", fraCuttingDepths};
  Frame Frame1{*this, "Frame1"};
  ControlArray<Option> optCutMode{*this, "optCutMode", {1, 2, 3}, Frame1};
  Frame Frame2{*this, "Frame2"};
  ControlArray<Option> optPocketingStyle{*this, "optPocketingStyle", {1, 2, 3}, Frame2};
  Label lblDistFrCenter{*this, "lblDistFrCenter", Frame2};
  TextBox txtDistFrCenter{*this, "txtDistFrCenter", Frame2};
  Frame Frame3{*this, "Frame3"};
  ControlArray<Option> OptCutWidth{*this, "OptCutWidth", {1, 2}, Frame3};
  TextBox txtToolSpacingPercent{*this, "txtToolSpacingPercent", Frame3};
  TextBox txtToolSpacingDistance{*this, "txtToolSpacingDistance", Frame3};
  Label lblEngagementLimit{*this, "lblEngagementLimit", Frame3};
  TextBox txtEngagementLimit{*this, "txtEngagementLimit", Frame3};
  Frame Frame4{*this, "Frame4"};
  Label Label11{*this, "Label11", Frame4};
  TextBox txtroughfeedrate{*this, "txtroughfeedrate", Frame4};
  Label Label12{*this, "Label12", Frame4};
  TextBox txtfinishfeedrate{*this, "txtfinishfeedrate", Frame4};
  Label Label13{*this, "Label13", Frame4};
  TextBox txtZPlungeRate{*this, "txtZPlungeRate", Frame4};
  Label lblMaterial{*this, "lblMaterial", Frame4};
  Label lblUsingTool{*this, "lblUsingTool", Frame4};
  Label lblRecommendedFeedRate{*this, "lblRecommendedFeedRate", Frame4};
  Frame Frame5{*this, "Frame5"};
  CheckBox chkLeadIn{*this, "chkLeadIn", Frame5};
  Option optLines{*this, "optLines", Frame5};
  Option optArcs{*this, "optArcs", Frame5};
  Label Label6{*this, "Label6", Frame5};
  TextBox txtLeadInLength{*this, "txtLeadInLength", Frame5};
  Label Label8{*this, "Label8", Frame5};
  TextBox txtLeadInAngle{*this, "txtLeadInAngle", Frame5};
  CheckBox chkConnectPocketPaths{*this, "chkConnectPocketPaths"};
  CheckBox chkGougeAvoidance{*this, "chkGougeAvoidance"};
  CheckBox chkPlaceFinishPath{*this, "chkPlaceFinishPath"};
  CheckBox chkLathePocketing{*this, "chkLathePocketing"};
  CheckBox chkTruePaths{*this, "chkTruePaths"};
  Frame fraEntry{*this, "fraEntry"};
  ControlArray<Option> optEntry{*this, "optEntry", {0, 1, 2, 3, 4}, fraEntry};
  Label lblEntryAngle{*this, "lblEntryAngle", fraEntry};
  TextBox txtEntryAngle{*this, "txtEntryAngle", fraEntry};
  Label lblEntryRadius{*this, "lblEntryRadius", fraEntry};
  TextBox txtEntryRadius{*this, "txtEntryRadius", fraEntry};
  Label lblEntryFeed{*this, "lblEntryFeed", fraEntry};
  TextBox txtEntryFeed{*this, "txtEntryFeed", fraEntry};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  // A box that shows a setting as it stands and stores it by the lenient parse.
  struct NumberField {
    TextBox& box;
    float DrawingSettings::*setting;
  };

  Option& styleOption(PocketingStyle style);

  void nameFrames();
  void nameFields();
  void nameChoices();
  void wire();

  void fill();
  void fillChoices();
  void fillStepOver();
  void fillLeads();
  void fillToolNotes();

  void styleChosen(PocketingStyle style);
  void latheChosen();
  void enableLimit();
  void leadChosen();

  void takeOver();
  void takeOverLeads();
  void takeOverNumbers();
  void takeOverChoices();

  DrawingStore& store_;
  StepOverFields stepOver_;
  EntryFields entry_;
  // What the clicks have chosen.
  CuttingMode cuttingMode_{};
  PocketingStyle pocketingStyle_{};
  bool lathePocketing_ = false;
  bool placeFinishPath_ = false;
  const std::vector<NumberField> numbers_;
};

void mnuCAMPocketSpecs_Click(CamContext& cam);

}  // namespace tess
