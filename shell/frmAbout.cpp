// About and splash.
#include "shell/frmAbout.h"

#include <string>

#include "core/version.h"

namespace tess {
namespace {

std::string versionLine() {
  return std::string("Version ") + kVersionText;
}

}  // namespace

frmAbout::frmAbout(const Session& session) : Form("frmAbout", "About " + session.productname) {
  lblProduct.setCaption(session.productname);
  lblVersion.setCaption(versionLine());
  lblCompany.setCaption(session.companyname);
  lblFolder.setCaption("Program folder: " + session.appfolder);
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
