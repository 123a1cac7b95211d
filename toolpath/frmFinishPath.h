// Finishing Path Options: how many passes a finish path takes, and at which distances.
// Owns: frmFinishPath.
#pragma once

#include "core/form.h"
#include "toolpath/cam_context.h"
#include "toolpath/entry_fields.h"
#include "toolpath/step_over_fields.h"

namespace tess {

class frmFinishPath : public Form {
 public:
  explicit frmFinishPath(CamContext& cam);

  TextBox txtNumPasses{*this, "txtNumPasses"};
  Frame FraRoughCuts{*this, "FraRoughCuts"};
  TextBox txtminroughclear{*this, "txtminroughclear", FraRoughCuts};
  Frame FraStepOver{*this, "FraStepOver"};
  ControlArray<Option> OptCutWidth{*this, "OptCutWidth", {1, 2}, FraStepOver};
  TextBox txtToolSpacingPercent{*this, "txtToolSpacingPercent", FraStepOver};
  TextBox txtToolSpacingDistance{*this, "txtToolSpacingDistance", FraStepOver};
  CheckBox chkGougeAvoidance{*this, "chkGougeAvoidance"};
  CheckBox chkConnectPocketPaths{*this, "chkConnectPocketPaths"};
  CheckBox chkWhatIsLeft{*this, "chkWhatIsLeft"};
  CheckBox chkHoldingTabs{*this, "chkHoldingTabs"};
  CheckBox chkCornerOvercut{*this, "chkCornerOvercut"};
  Frame fraEntry{*this, "fraEntry"};
  ControlArray<Option> optEntry{*this, "optEntry", {0, 1, 2, 3, 4}, fraEntry};
  Label lblEntryAngle{*this, "lblEntryAngle", fraEntry};
  TextBox txtEntryAngle{*this, "txtEntryAngle", fraEntry};
  Label lblEntryRadius{*this, "lblEntryRadius", fraEntry};
  TextBox txtEntryRadius{*this, "txtEntryRadius", fraEntry};
  Label lblEntryFeed{*this, "lblEntryFeed", fraEntry};
  TextBox txtEntryFeed{*this, "txtEntryFeed", fraEntry};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void fill();
  void passesChanged();
  void takeOver();

  CamContext& cam_;
  StepOverFields stepOver_{cam_.store,
                           {OptCutWidth, txtToolSpacingPercent, txtToolSpacingDistance}};
  EntryFields entry_{cam_.store,
                     {fraEntry, optEntry, lblEntryAngle, txtEntryAngle, lblEntryRadius,
                      txtEntryRadius, lblEntryFeed, txtEntryFeed}};
  int passes_ = 1;
};

}  // namespace tess
