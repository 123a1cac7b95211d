// What the program is called, its version and where its files lie; and the picture that greets at
// the start.
// Owns: frmAbout, frmSplash.
#pragma once

#include <functional>
#include <string>

#include "core/controls.h"
#include "core/form.h"
#include "core/session.h"

namespace tess {

class frmAbout : public Form {
 public:
  // `system` tells of toolkit and system, in lines; "" where nobody knows.
  frmAbout(const Session& session, const std::string& system);

  // What Copy Details hands on.
  std::string details() const;
  std::function<void(const std::string& text)> onCopyText;

  Label lblProduct{*this, "lblProduct"};
  Label lblVersion{*this, "lblVersion"};
  Label lblCompany{*this, "lblCompany"};
  Label lblFolder{*this, "lblFolder"};
  Label lblSystem{*this, "lblSystem"};
  TextBox txtLicences{*this, "txtLicences"};
  Label lblHershey{*this, "lblHershey"};  // what the terms of the single-stroke fonts ask for
  Button cmdCopyDetails{*this, "cmdCopyDetails"};
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
