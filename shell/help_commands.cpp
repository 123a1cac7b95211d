// Help: one line each.
#include "shell/help_commands.h"

#include "shell/application.h"
#include "shell/frmAbout.h"
#include "shell/shell_commands.h"

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

// ---- Descriptors

constexpr ShellCommand kContentsCommand{
    .info = {.tool = "miContents", .caption = "&Contents", .key = "F1", .menu = {"miHelp", 110}},
    .run = mnuHelpContents_Click,
};

constexpr ShellCommand kSearchCommand{
    .info = {.tool = "miSearchforHelpon",
             .caption = "&Search for Help on...",
             .menu = {"miHelp", 120}},
    .run = mnuHelpIndex_Click,
};

constexpr ShellCommand kAboutCommand{
    .info = {.tool = "miAboutTessimoMill",
             .caption = "&About Tessimo Mill...",
             .menu = {"miHelp", 210}},
    .run = mnuHelpAbout_Click,
};

}  // namespace tess
