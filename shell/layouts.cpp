// Tool-bar layouts in files.
#include "shell/layouts.h"

#include <optional>
#include <string>

#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/lifecycle.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

constexpr char kFilter[] = "Layout Files (*.tb3)|*.tb3|All Files (*.*)|*.*";

std::string programLayout(const Application& application) {
  return application.session.appfolder + "Layout.tb3";
}

std::optional<std::string> chooseLayout(Application& application, bool forSaving) {
  const std::optional<std::string> chosen = application.session.host.prompts.chooseFile(
      {.title = forSaving ? "Save Layout" : "Load Layout",
       .pattern = kFilter,
       .folder = application.session.appfolder,
       .name = "",
       .forSaving = forSaving});
  if (!chosen || chosen->empty()) return std::nullopt;
  std::string folder;
  const std::string name = splitPath(folder, *chosen, "tb3");
  return folder + name;
}

bool mayWrite(Session& session, const std::string& path) {
  if (!fileExists(path)) return true;
  int answer = 0;
  askUser(session, "File already exists! Overwrite?", kAskYesNoCancel, answer);
  return answer == kAnswerYes;
}

void loadFrom(Application& application, const std::string& path) {
  if (application.interaction.tools.loadLayoutText(readFile(path, kLargestSettings))) return;
  application.session.host.prompts.showMessage({.text = path + "\nis not a layout file.",
                                                .title = application.session.productname,
                                                .icon = MessageIcon::Warning});
}

}  // namespace

void loadProgramLayout(Application& application) {
  const Procedure here("loadProgramLayout()");
  const std::string path = programLayout(application);
  if (fileExists(path)) loadFrom(application, path);
}

void saveProgramLayout(Application& application) {
  const Procedure here("saveProgramLayout()");
  writeFile(application.session.host.guard, programLayout(application), FileKind::Record,
            application.interaction.tools.layoutText());
}

void miLoadLayout_Click(Application& application) {
  const Procedure here("miLoadLayout_Click()");
  if (const auto path = chooseLayout(application, /*forSaving=*/false)) {
    loadFrom(application, *path);
  }
}

void SaveLayoutAs(Application& application) {
  const Procedure here("SaveLayoutAs()");
  const auto path = chooseLayout(application, /*forSaving=*/true);
  if (!path || !mayWrite(application.session, *path)) return;
  writeFile(application.session.host.guard, *path, FileKind::Layout,
            application.interaction.tools.layoutText());
}

// ---- Descriptors

constexpr ShellCommand kLoadLayoutCommand{
    .info = {.tool = "miLoadLayout", .caption = "Load La&yout...", .menu = {"miOptions", 310}},
    .run = miLoadLayout_Click,
};

constexpr ShellCommand kSaveLayoutAsCommand{
    .info = {.tool = "miSaveLayoutAs", .caption = "Save Layout As...", .menu = {"miOptions", 320}},
    .run = SaveLayoutAs,
};

}  // namespace tess
