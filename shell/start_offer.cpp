// The offer of an empty window.
#include "shell/start_offer.h"

#include <array>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/application.h"
#include "shell/tool_bands.h"

namespace tess {
namespace {

constexpr char kNewTool[] = "miNew";
constexpr std::array kTools{kNewTool, "miOpen", "miImportDXFfile", "miExamples"};
constexpr int kRecentOffered = 5;

}  // namespace

std::vector<StartOffer::Entry> StartOffer::entries() const {
  const ToolHost& tools = application_.interaction.tools;
  std::vector<Entry> entries;
  for (const char* const name : kTools) {
    const Tool* const tool = tools.tool(name);
    entries.push_back({name, tool->caption, tool->hint});
  }
  for (int number = 1; number <= kRecentOffered; ++number) {
    const std::string& path =
        application_.session.recentfiles[static_cast<std::size_t>(number - 1)];
    const std::string name = recentTool(number);
    if (!path.empty() && tools.isVisible(name)) {
      entries.push_back({name, std::string(fileNameOf(path)), path});
    }
  }
  return entries;
}

bool StartOffer::isEmpty() const {
  const DrawingStore& store = application_.store;
  return store.NumSegments == 0 && store.NumPathSegments == 0 && store.drawingname.empty();
}

bool StartOffer::isOpen() {
  if (!isEmpty()) begun_ = false;
  const CState& state = application_.interaction.state;
  return isEmpty() && !begun_ && state.pendingaction() == 0 && state.DrawMode() == kNoMode;
}

void StartOffer::choose(const std::string& tool) {
  if (tool == kNewTool) begun_ = true;
  application_.clickTool(tool);
}

}  // namespace tess
