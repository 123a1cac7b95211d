// Help: one line each.
#include "shell/help_commands.h"

#include "shell/application.h"
#include "shell/frmAbout.h"

namespace tess {

void mnuHelpContents_Click(Application& application) {
  const Procedure here("mnuHelpContents_Click()");
  application.help.prepareContents();
  application.interaction.forms.show(application.help);
}

void mnuHelpIndex_Click(Application& application) {
  const Procedure here("mnuHelpIndex_Click()");
  application.help.prepareSearch();
  application.interaction.forms.show(application.help);
}

void mnuHelpAbout_Click(Application& application) {
  const Procedure here("mnuHelpAbout_Click()");
  frmAbout about(application.session);
  application.session.host.prompts.showModal(about);
}

}  // namespace tess
