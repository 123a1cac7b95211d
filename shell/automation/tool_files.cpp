// Files of commands by table.
#include "shell/automation/tool_files.h"

#include <algorithm>

#include "cnc/cnc_program.h"
#include "shell/commands.h"
#include "shell/tool_bands.h"

namespace tess {
namespace {

using Files = std::vector<std::string>;

// The question about unsaved work may save the drawing where it is.
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

struct ToolRow {
  const char* tool;
  Files (*files)(const Application& application);
};

constexpr ToolRow kTools[] = {
    {"miNew", drawingFile},
    {"miOpen", drawingFile},
    {"miReverttoSaved", chosenFile},
    {"miSave", drawingFile},
    {"miExit", drawingFile},
    {"miLoadSetup", drawingFile},
    {"miSaveAsDefault", setupFile},
    {"miSaveSetup", setupFile},
    {"miMakeCNCFile", programAndDrawing},
    {"miMakeCNCLatheFile", programAndDrawing},
};

struct KeyRow {
  char ascii;
  const char* tool;
};

constexpr KeyRow kKeys[] = {
    {'L' - 'A' + 1, "miMakeCNCLatheFile"},
    {'M' - 'A' + 1, "miMakeCNCFile"},
};

Files recentFile(const Application& application, std::string_view tool) {
  for (int number = 1; number <= kRecentFiles; ++number) {
    const std::string& path = application.session.recentfiles[static_cast<std::size_t>(number) - 1];
    if (tool == recentTool(number) && !path.empty()) return {path};
  }
  return {};
}

}  // namespace

std::vector<std::string> filesOfTool(const Application& application, std::string_view tool) {
  for (const ToolRow& row : kTools) {
    if (tool == row.tool) return row.files(application);
  }
  return recentFile(application, tool);
}

std::vector<std::string> filesOfKey(const Application& application, const KeyStroke& key) {
  for (const KeyRow& row : kKeys) {
    if (key.special == SpecialKey::None && key.ascii == row.ascii) {
      return filesOfTool(application, row.tool);
    }
  }
  return {};
}

}  // namespace tess
