// Files of commands, as their descriptors tell.
#include "shell/automation/tool_files.h"

#include "cnc/cnc_program.h"
#include "core/drawing_store.h"
#include "shell/commands.h"
#include "shell/tool_bands.h"

namespace tess {
namespace {

using Files = std::vector<std::string>;

Files drawingFile(const Application& application) {
  const DrawingStore& store = application.store;
  if (store.drawingname.empty()) return {};
  return {store.drawingpath + store.drawingname};
}

Files programAndDrawing(const Application& application) {
  Files files = drawingFile(application);
  files.push_back(programFile(application.store));
  return files;
}

Files chosenFile(const Application& application) {
  const std::string& chosen = application.session.lastfilename;
  return chosen.empty() ? Files{} : Files{chosen};
}

Files setupFile(const Application& application) {
  return {application.session.appfolder + application.session.setupname};
}

// What a question about unsaved work saves counts too.
Files touchedFiles(const Application& application, TouchedFiles touches) {
  switch (touches) {
    case TouchedFiles::None:
      return {};
    case TouchedFiles::Drawing:
      return drawingFile(application);
    case TouchedFiles::ChosenDrawing:
      return chosenFile(application);
    case TouchedFiles::Setup:
      return setupFile(application);
    case TouchedFiles::DrawingAndProgram:
      return programAndDrawing(application);
  }
  return {};
}

Files recentFile(const Application& application, std::string_view tool) {
  for (int number = 1; number <= kRecentFiles; ++number) {
    const std::string& path = application.session.recentfiles[static_cast<std::size_t>(number) - 1];
    if (tool == recentTool(number) && !path.empty()) return {path};
  }
  return {};
}

}  // namespace

std::vector<std::string> filesOfTool(const Application& application, std::string_view tool) {
  for (const CommandEntry& command : commands()) {
    if (tool == command.info->tool) return touchedFiles(application, command.info->touches);
  }
  return recentFile(application, tool);
}

std::vector<std::string> filesOfKey(const Application& application, const KeyStroke& key) {
  const CommandEntry* const command = commandOfKey(key);
  return command == nullptr ? Files{} : touchedFiles(application, command->info->touches);
}

}  // namespace tess
