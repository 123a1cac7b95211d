// The form, and the setup that comes of it.
#include "shell/control_choice.h"

#include <optional>
#include <string>

#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "core/setup_file.h"
#include "shell/application.h"
#include "shell/frmControl.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

// The file name of a setup; nothing when the operator cancels or there is nothing to choose.
std::optional<std::string> chosenSetup(Session& session,
                                       const std::vector<ControlChoice>& controls) {
  if (controls.empty()) return std::nullopt;
  frmControl form(controls, session.setupname);
  session.host.prompts.showModal(form);
  if (!form.accepted()) return std::nullopt;
  return form.setup();
}

// A drawing keeps the settings that it holds; an untitled one has none of its own yet.
void beginAgain(Session& session) {
  const DrawingStore& store = session.store;
  if (store.drawingname.empty()) return new_drawing(session);
  session.selectedfolder = store.drawingpath;
  session.selectedname = store.drawingname;
  load_Drawing(session);
}

void takeSetup(Session& session, const std::string& setup) {
  changeSetup(session, session.appfolder + setup);
  save_defaults(session);
  beginAgain(session);
  updateStatusDisplay(session);
}

void tellThatNoneAreListed(Session& session) {
  session.host.prompts.showMessage(
      {.text = "There are no controls to choose from: " + session.appfolder + kControlsName +
               " is not there, or names no setup of that folder.",
       .title = {},
       .icon = MessageIcon::Warning});
}

}  // namespace

void chooseControl(Application& application) {
  const Procedure here("chooseControl()");
  Session& session = application.session;
  const std::vector<ControlChoice> controls = availableControls(session.appfolder);
  if (controls.empty()) return tellThatNoneAreListed(session);
  if (!saveBeforeSetup(session)) return;
  const auto setup = chosenSetup(session, controls);
  if (!setup) return;
  takeSetup(session, *setup);
}

void askForControl(Application& application) {
  const Procedure here("askForControl()");
  Session& session = application.session;
  const auto setup = chosenSetup(session, availableControls(session.appfolder));
  if (!setup) return;
  takeSetup(session, *setup);
}

// ---- Descriptors

constexpr ShellCommand kChooseControlCommand{
    .info = {.tool = "miControl",
             .caption = "C&ontrol and Units...",
             .menu = {"miOptions", 225},
             .touches = TouchedFiles::Setup},
    .run = chooseControl,
};

}  // namespace tess
