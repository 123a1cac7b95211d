// Choosing a program.
#include "cnc/browse_program.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr char kProgramExtension[] = ".CNC";

// Beside a file of the same name in other letters the one that was chosen is meant.
std::string asChosen(const std::string& file, const std::string& chosen) {
  const bool otherCase = equalIgnoringCase(file, chosen) && !isSameFile(file, chosen);
  return otherCase && fileExists(chosen) ? chosen : file;
}

}  // namespace

void mnuCAMBrowseCNCFile_Click(Session& session, ProgramViewer& viewer) {
  const Procedure here("mnuCAMBrowseCNCFile_Click()");
  DrawingStore& store = session.store;
  const auto chosen = session.host.prompts.chooseFile(
      {.title = "CNC File Selector", .pattern = "*.CNC", .folder = store.drawingpath, .name = {}});
  if (!chosen || chosen->empty()) return;
  const std::string name = splitPath(store.cncoutputpath, *chosen, kProgramExtension);
  viewer.showFile(asChosen(store.cncoutputpath + name, *chosen), /*notice=*/"");
}

}  // namespace tess
