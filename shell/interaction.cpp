// The interactive half of the program, wired together.
#include "shell/interaction.h"

#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "core/recent_files.h"
#include "display/display_commands.h"
#include "drafting/drafting_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/grids.h"
#include "drafting/pending_actions.h"
#include "import/import_commands.h"
#include "shell/tool_bands.h"

namespace tess {

Interaction::Interaction(Session& session, const ScreenPorts& ports)
    : session_(session),
      ScreenProxy(ports.picDrawing),
      renderer(session.store, session.host.prompts, session.host.surroundings),
      redraw({session.store, view, renderer, ScreenProxy, ports.pointer, session.host.surroundings,
              ports.timers, *this}),
      printer(session, ScreenProxy, ports.PrintPreview1),
      state(ScreenProxy),
      viewCommands({session.store, view, redraw, ScreenProxy, ports.pointer,
                    session.host.surroundings, *this, state}),
      navigation(viewCommands),
      context({session, view, renderer, redraw, state, viewCommands, ScreenProxy, ports.pointer,
               ports.timers, tools, statusBar, *this}),
      cam(context),
      properties(context),
      text(context, fonts) {
  for (const DraftingCommand* const command : importCommands())
    context.addCommand(context, *command);
  fillToolHost(tools);
  tools.setPanel("barText", &text);
  tools.setClientArea(ports.clientArea);
  // The marker is drawn before the first view is fitted, and needs a scale by then.
  ports.picDrawing.Move(clientArea());
}

Interaction::~Interaction() = default;

void Interaction::readPressedTools() {
  context.state.OSnapOn = tools.isChecked(kObjectSnapCommand.info.tool);
  context.state.RevertOSnapFeatures();
  session_.store.visualgridf = tools.isChecked(kVisualGridCommand.info.tool) ? 1 : 0;
  session_.store.cursorgridf = tools.isChecked(kCursorGridCommand.info.tool) ? 1 : 0;
  context.command.EditPaths = tools.isChecked(kEditPathsCommand.info.tool);
}

void Interaction::Update_menu_checks() {
  const DrawingStore& store = session_.store;
  tools.setChecked(kShowPartTemplateCommand.info.tool, store.parttemplate != 0);
  tools.setChecked(kShowEndMarkersCommand.info.tool, store.endmarkers != 0);
  tools.setChecked(kShowToolPathsCommand.info.tool, store.showpaths != 0);
  tools.setChecked(kToolRadiusOutlineCommand.info.tool, store.tooloutline != 0);
  tools.setChecked(kPathDirectionCommand.info.tool, store.pathdirection == 1);
  tools.setChecked(kPathColorsCommand.info.tool, store.pathcolors == 1);
  tools.setEnabled(kPasteCommand.info.tool, context.paste.pasteavailable);
}

void Interaction::showRecentFiles() {
  for (int number = 1; number <= kRecentFiles; ++number) {
    const std::string& path = session_.recentfiles[static_cast<std::size_t>(number) - 1];
    if (!path.empty()) tools.setCaption(recentTool(number), recentCaption(session_, number));
    tools.setVisible(recentTool(number), !path.empty());
  }
}

void Interaction::moveMarker(float x, float y) {
  tess::moveMarker(context, x, y);
}

void Interaction::resetPendingAction() {
  context.state.setPendingaction(0);
  context.state.setDrawMode(0);
}

SurfaceArea Interaction::clientArea() const {
  const Bounds& area = tools.clientArea();
  return {static_cast<float>(area.left), static_cast<float>(area.top),
          static_cast<float>(area.width), static_cast<float>(area.height)};
}

void Interaction::showDrawingName() {
  tess::showDrawingName(session_);
}

void Interaction::updateStatusDisplay() {
  refreshStatus(context);
}

void Interaction::PrintPreviewScreenShotWorkAround(DrawingTarget& target) {
  printer.PrintPreviewScreenShotWorkAround(target);
}

void Interaction::showStatistics(int segments, int paths, const std::string& zoom) {
  frmStatistics.show(segments, paths, zoom);
}

void Interaction::UpdatePropertyWindow() {
  properties.UpdatePropertyWindow();
}

void Interaction::selectEntity(int sg) {
  properties.SelectEntity(sg);
}

void Interaction::textPointerMoved(int button, int shift, float x, float y) {
  text.Drawing_MouseMove(button, shift, x, y);
}

void Interaction::textPointerReleased(int button, int shift, float x, float y) {
  text.Drawing_MouseUp(button, shift, x, y);
}

// A text follows the pointer with and without a button: there is no drag to forget.
void Interaction::textDragReset() {}

void Interaction::textWheel(int steps, int shift) {
  text.Drawing_MouseWheel(steps, shift);
}

void Interaction::textPlacementEnded() {
  text.placementEnded();
}

}  // namespace tess
