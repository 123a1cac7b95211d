// G-code Control Setup: what programs start from and where they go.
// Owns: dlgGcodeGen, mnuOptionsGcodeSetup_Click.
#pragma once

#include <array>
#include <string>

#include "cnc/hand_over.h"
#include "core/controls.h"
#include "core/form.h"

namespace tess {

class dlgGcodeGen : public Form {
 public:
  explicit dlgGcodeGen(const HandOver& handOver);

  Label lblxstart{*this, "lblxstart"};
  TextBox txtxstart{*this, "txtxstart"};
  Label lblystart{*this, "lblystart"};
  TextBox txtystart{*this, "txtystart"};
  Label lblzstart{*this, "lblzstart"};
  TextBox txtzstart{*this, "txtzstart"};
  Label lblxchange{*this, "lblxchange"};
  TextBox txtxchange{*this, "txtxchange"};
  Label lblychange{*this, "lblychange"};
  TextBox txtychange{*this, "txtychange"};
  Label lblzchange{*this, "lblzchange"};
  TextBox txtzchange{*this, "txtzchange"};
  Label lblcncpath{*this, "lblcncpath"};
  TextBox txtcncpath{*this, "txtcncpath"};
  Label lblGTX_Path{*this, "lblGTX_Path"};
  TextBox txtGTX_Path{*this, "txtGTX_Path"};
  Button cmdBrowse{*this, "cmdBrowse"};
  CheckBox chkautocomment{*this, "chkautocomment"};
  CheckBox chkBuildCNCWithRParam{*this, "chkBuildCNCWithRParam"};
  Frame fraChuck{*this, "fraChuck"};
  ControlArray<Option> optChuck{*this, "optChuck", {0, 1}, fraChuck};
  Button cmdAccept{*this, "cmdAccept"};

 private:
  // A position and the box that shows it.
  struct Position {
    TextBox& box;
    float& value;
  };

  void setCaptions();
  void wire();
  void load();
  void browse();
  void take();
  void keepControlPath();

  const HandOver& handOver_;
  DrawingStore& store_;
  const std::array<Position, 6> positions_;
  std::string shownPath_;  // of the control, as it was filled in
};

void mnuOptionsGcodeSetup_Click(const HandOver& handOver);

}  // namespace tess
