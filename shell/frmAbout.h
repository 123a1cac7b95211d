// What the program is called, its version and where its files lie; and the picture that greets at
// the start.
// Owns: frmAbout, frmSplash.
#pragma once

#include "core/controls.h"
#include "core/form.h"
#include "core/session.h"

namespace tess {

class frmAbout : public Form {
 public:
  explicit frmAbout(const Session& session);

  Label lblProduct{*this, "lblProduct"};
  Label lblVersion{*this, "lblVersion"};
  Label lblCompany{*this, "lblCompany"};
  Label lblFolder{*this, "lblFolder"};
  Label lblHershey{*this, "lblHershey"};  // what the terms of the single-stroke fonts ask for
  Button cmdOK{*this, "cmdOK"};
};

class frmSplash : public Form {
 public:
  explicit frmSplash(const Session& session);

  Label lblProduct{*this, "lblProduct"};
  Label lblVersion{*this, "lblVersion"};
  Label lblCompany{*this, "lblCompany"};
};

}  // namespace tess
