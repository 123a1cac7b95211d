// Control and Units: for which control the programs are, and in which units drawings begin.
// Owns: frmControl.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"
#include "core/form.h"
#include "shell/controls_list.h"

namespace tess {

class frmControl : public Form {
 public:
  // `controls` is not empty and outlives the form. The one that has `setup`, a file name, is chosen
  // at first, else the first of them.
  frmControl(const std::vector<ControlChoice>& controls, std::string setup);

  Label lblExplanation{*this, "lblExplanation"};
  ListBox lstControl{*this, "lstControl"};
  Frame fraUnits{*this, "fraUnits"};
  ControlArray<Option> optUnits{*this, "optUnits", {0, 1}, fraUnits};  // inch, millimetre
  Label lblSetup{*this, "lblSetup"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

  // The file name of the setup for what is chosen.
  const std::string& setup() const;

 private:
  void fill();
  void enableUnits();
  void showSetup();
  const ControlChoice& control() const;

  const std::vector<ControlChoice>& controls_;
  std::string before_;
};

}  // namespace tess
