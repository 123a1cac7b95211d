// Help: one line each.
#include "shell/help_commands.h"

#include <string>
#include <string_view>

#include "shell/application.h"
#include "shell/command_table.h"
#include "shell/frmAbout.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

void showManualOn(Application& application, std::string_view topic) {
  application.help.prepareContents();
  application.interaction.forms.show(application.help);
  application.help.showTopic(topic);
}

void mnuHelpKeys_Click(Application& application) {
  const Procedure here("mnuHelpKeys_Click()");
  showManualOn(application, kKeysTopic);
}

std::string topicOfArmed(const Application& application) {
  const CState& state = application.interaction.state;
  const CommandEntry* const armed = armedCommand(state.pendingaction(), state.DrawMode());
  return armed == nullptr ? std::string() : helpTopic(armed->info->tool);
}

}  // namespace

void mnuHelpContents_Click(Application& application) {
  const Procedure here("mnuHelpContents_Click()");
  showManualOn(application, topicOfArmed(application));
}

void mnuHelpIndex_Click(Application& application) {
  const Procedure here("mnuHelpIndex_Click()");
  application.help.prepareSearch();
  application.interaction.forms.show(application.help);
}

void mnuHelpAbout_Click(Application& application) {
  const Procedure here("mnuHelpAbout_Click()");
  frmAbout about(application.session, application.describeSystem());
  about.onCopyText = application.onCopyText;
  application.session.host.prompts.showModal(about);
}

void helpOnForm(Application& application, const Form& form) {
  const Procedure here("helpOnForm(form)");
  const std::string topic = helpTopic(form.name());
  frmPDFHelp& help = application.help;
  if (&form == &help) return help.showTopic(topic);
  if (form.modality() == Modality::Modeless) return showManualOn(application, topic);
  if (help.isShown()) help.close();
  help.prepareContents();
  help.load();
  help.showTopic(topic);
  application.session.host.prompts.showModal(help);
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

constexpr ShellCommand kKeysCommand{
    .info = {.tool = "miKeys", .caption = "&Keys", .menu = {"miHelp", 130}},
    .run = mnuHelpKeys_Click,
};

constexpr ShellCommand kAboutCommand{
    .info = {.tool = "miAboutTessimoMill",
             .caption = "&About Tessimo Mill...",
             .menu = {"miHelp", 210}},
    .run = mnuHelpAbout_Click,
};

}  // namespace tess
