// Send To: the program that the operator has files sent to.
// Owns: dlgSendProgram.
#pragma once

#include "cnc/hand_over.h"
#include "core/controls.h"
#include "core/form.h"

namespace tess {

class dlgSendProgram : public Form {
 public:
  explicit dlgSendProgram(const HandOver& handOver);

  Label lblProgram{*this, "lblProgram"};
  TextBox txtProgram{*this, "txtProgram"};
  Button cmdBrowse{*this, "cmdBrowse"};
  Label lblNotice{*this, "lblNotice"};  // why a path was not taken
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void browse();
  void take();

  const HandOver& handOver_;
};

}  // namespace tess
