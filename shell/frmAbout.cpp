// About and splash.
#include "shell/frmAbout.h"

#include <string>

#include "core/version.h"

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

frmAbout::frmAbout(const Session& session) : Form("frmAbout", "About " + session.productname) {
  lblProduct.setCaption(session.productname);
  lblVersion.setCaption(versionLine());
  lblCompany.setCaption(session.companyname);
  lblFolder.setCaption("Program folder: " + session.appfolder);
  lblHershey.setCaption(kHersheyAcknowledgement);
  cmdOK.setCaption("&OK");
  setDefaultButton(cmdOK);
  setCancelButton(cmdOK);
  cmdOK.onClick = [this] { accept(); };
}

frmSplash::frmSplash(const Session& session) : Form("frmSplash", session.productname) {
  lblProduct.setCaption(session.productname);
  lblVersion.setCaption(versionLine());
  lblCompany.setCaption(session.companyname);
}

}  // namespace tess
