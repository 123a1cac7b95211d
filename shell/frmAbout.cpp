// About and splash.
#include "shell/frmAbout.h"

#include <string>

#include "core/version.h"
#include "shell/licences.h"

namespace tess {
namespace {

std::string versionLine() {
  return std::string("Version ") + kVersionText;
}

// The terms of the fonts ask for these two sentences wherever the fonts go.
constexpr char kHersheyAcknowledgement[] =
    "The Hershey Fonts were originally created by Dr. A. V. Hershey while working at the U. S. "
    "National Bureau of Standards. The format of the Font data in this distribution was originally "
    "created by James Hurt, Cognition, Inc., 900 Technology Park Drive, Billerica, MA 01821 "
    "(mit-eddie!ci-dandelion!hurt).";

}  // namespace

frmAbout::frmAbout(const Session& session, const std::string& system)
    : Form("frmAbout", "About " + session.productname) {
  lblProduct.setCaption(session.productname);
  lblVersion.setCaption(versionLine());
  lblCompany.setCaption(session.companyname);
  lblFolder.setCaption("Program folder: " + session.appfolder);
  lblSystem.setCaption(system);
  lblSystem.setVisible(!system.empty());
  txtLicences.multiLine = true;
  txtLicences.readOnly = true;
  txtLicences.setText(licenceText());
  lblHershey.setCaption(kHersheyAcknowledgement);
  cmdOK.setCaption("&OK");
  setDefaultButton(cmdOK);
  setCancelButton(cmdOK);
  cmdCopyDetails.setCaption("&Copy Details");
  cmdCopyDetails.onClick = [this] {
    if (onCopyText) onCopyText(details());
  };
  cmdOK.onClick = [this] { accept(); };
}

std::string frmAbout::details() const {
  std::string text =
      lblProduct.caption() + ", " + lblVersion.caption() + "\n" + lblFolder.caption() + "\n";
  if (!lblSystem.caption().empty()) text += lblSystem.caption() + "\n";
  return text + "\n" + txtLicences.text() + "\n" + lblHershey.caption() + "\n";
}

frmSplash::frmSplash(const Session& session) : Form("frmSplash", session.productname) {
  lblProduct.setCaption(session.productname);
  lblVersion.setCaption(versionLine());
  lblCompany.setCaption(session.companyname);
}

}  // namespace tess
