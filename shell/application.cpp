// The composition of the program.
#include "shell/application.h"

#include <utility>

#include "cnc/copy_program.h"
#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "core/tool_text.h"
#include "core/version.h"
#include "drafting/copy_paste.h"
#include "drafting/grids.h"
#include "drafting/hover_preview.h"
#include "drafting/object_snap.h"
#include "drafting/scale_drawing.h"
#include "drafting/typed_position.h"
#include "drafting/undo.h"
#include "import/frmDXF.h"
#include "shell/commands.h"
#include "shell/layouts.h"
#include "shell/picture.h"
#include "shell/printing.h"
#include "shell/recovery.h"
#include "tools/dlgColor.h"
#include "tools/speeds_feeds.h"

namespace tess {
namespace {

void callIfSet(const std::function<void()>& effect) {
  if (effect) effect();
}

}  // namespace

std::unique_ptr<Timer> GuardedTimers::create(const TimerSpec& spec, std::function<void()> tick) {
  return timers_.create(spec, [this, name = spec.name + "_Timer()", tick = std::move(tick)] {
    reporting_.guarded("frmMain." + name, tick);
  });
}

Application::Application(const Platform& platform)
    : ownStore_(std::make_unique<DrawingStore>()),
      ownFeeds_(std::make_unique<SpeedsFeeds>(platform.jetReader)),
      ownColors_(std::make_unique<FormColorDialog>(platform.host.prompts)),
      colors(platform.colors != nullptr ? *platform.colors : *ownColors_),
      paper(platform.paper),
      helpFiles(platform.help),
      reporting_(platform.reporting),
      timers_(platform.screen.timers, platform.reporting),
      session(store, platform.host, listener_),
      interaction(session, {platform.screen.picDrawing, platform.screen.pointer, timers_,
                            platform.screen.clientArea, platform.paper}),
      handOver{session, platform.others != nullptr ? *platform.others : noPrograms_,
               platform.userfolder, freeSpaceIn},
      viewer(handOver, interaction.forms, interaction.context, cnc) {
  wireTools();
  wireProof();
  if (paper != nullptr) wirePaper();
}

Application::~Application() = default;

// With the setup's consent alone: other setups make their programs as ever.
void Application::wireProof() {
  cnc.objections = [this] {
    return store.cfg_true_paths ? worstFindings(proofWatch.prove()) : std::string();
  };
}

// Where nothing is on show, the screen's picture is one that is painted for the purpose.
void Application::wirePaper() {
  paper->onDocument = [this](PrintOutput output) { deliverDocument(*this, output); };
  paper->takeScreenShot = [this] {
    const SurfaceArea area = interaction.ScreenProxy.surface().area();
    return paper->bitmapOf({area.width, area.height}, [this](DrawingSurface& surface) {
      paintPicture(*this, surface, /*onPaper=*/true);
    });
  };
}

void Application::wireTools() {
  interaction.tools.onToolClick = [this](const std::string& tool) {
    guarded("frmMain.abMain_ToolClick(tool)", [&] { abMain_ToolClick(*this, tool); });
  };
  interaction.tools.onBandOpen = [this](const std::string& band) {
    if (band == "OSnapMenu") OSnap_ButtonClick_ButtonDropDown(interaction.context);
    if (band == "barStatistics") interaction.forms.show(interaction.frmStatistics);
    if (band == "barProperties") interaction.forms.show(interaction.properties);
    if (band == "barPathProof") interaction.forms.show(interaction.frmPathProof);
    if (band == "barBackplot") interaction.forms.show(interaction.frmBackplot);
    if (band == "barText") interaction.forms.show(interaction.text);
  };
  interaction.tools.onBandClose = [this](const std::string& band) {
    if (band == "barStatistics") interaction.frmStatistics.close();
    if (band == "barProperties") interaction.properties.close();
    if (band == "barPathProof") interaction.frmPathProof.close();
    if (band == "barBackplot") interaction.frmBackplot.close();
    if (band == "barText") interaction.text.close();
  };
  interaction.tools.onClientAreaChanged = [this] {
    guarded("frmMain.abMain_Resize()",
            [this] { interaction.viewCommands.fitview(/*keepview=*/true); });
  };
}

void Application::start(std::string_view drawing, std::string_view appfolder) {
  interaction.tools.openBand("barStatistics");
  Main(session, drawing, appfolder);
  showFigures();
}

void Application::load(std::string_view drawing, std::string_view appfolder) {
  guarded("frmMain.Form_Load()", [&] { loadMainWindow(session, drawing, appfolder); });
}

// Whatever begins takes off the screen what hovered before it.
bool Application::guarded(std::string_view entry, const std::function<void()>& run) {
  return enter(entry, [&] {
    endHoverPreview(interaction.context);
    run();
  });
}

bool Application::enter(std::string_view entry, const std::function<void()>& run) {
  const bool done = reporting_.guarded(entry, run);
  showPropertiesAndTool();
  viewer.settle();
  settleJournal();
  callIfSet(onSettled);
  return done;
}

// Commands, dialogs and scripts change rows and tools; whichever did is done now.
void Application::showPropertiesAndTool() {
  if (interaction.properties.isLoaded()) {
    reporting_.guarded("frmMain.UpdatePropertyWindow()",
                       [this] { interaction.UpdatePropertyWindow(); });
  }
  showFigures();
  reporting_.guarded("frmMain.renewPathProof()", [this] { proofWatch.afterCommand(); });
}

void Application::showFigures() {
  interaction.statusBar.setPanel(StatusPanel::Tool, toolInUseText(session));
  pathTotals.settle();
  backplot.settle();
  keyHints_.settle();
  guide.settle();
}

void Application::keepJournal() {
  journal_ = std::make_unique<EditJournal>(session, interaction.context.changes, timers_);
  guarded("frmMain.offerUnsavedWork()", [this] { offerUnsavedWork(*this); });
}

void Application::settleJournal() {
  if (journal_) journal_->afterCommand();
}

void Application::continueJournal(const std::string& path) {
  if (journal_) journal_->continueIn(path);
}

bool Application::clickTool(std::string_view tool) {
  return interaction.tools.click(tool);
}

bool Application::key(const KeyStroke& key) {
  return guarded("frmMain.picDrawing_KeyDown(KeyCode,Shift)", [&] { handleKey(*this, key); });
}

bool Application::press(const PointerEvent& event) {
  return guarded("frmMain.picDrawing_MouseDown(Button,Shift,X,Y)",
                 [&] { picDrawing_MouseDown(interaction.context, event); });
}

bool Application::move(const PointerEvent& event) {
  return enter("frmMain.picDrawing_MouseMove(Button,Shift,X,Y)",
               [&] { picDrawing_MouseMove(interaction.context, event); });
}

bool Application::release(const PointerEvent& event) {
  return guarded("frmMain.picDrawing_MouseUp(Button,Shift,X,Y)",
                 [&] { picDrawing_MouseUp(interaction.context, event); });
}

bool Application::wheel(int steps, int shift) {
  return guarded("frmMain.MouseWheel1_MouseWheel(Scroll,Button,Shift,X,Y)",
                 [&] { MouseWheel1_MouseWheel(interaction.context, steps, shift); });
}

bool Application::wheelAt(int steps, int shift, Point at) {
  if (!interaction.navigation.wheelZooms()) return wheel(steps, shift);
  return guarded("frmMain.MouseWheel1_MouseWheel(Scroll,Button,Shift,X,Y)",
                 [&] { interaction.navigation.turnWheel(steps, at); });
}

bool Application::beginPan(Point at) {
  return guarded("frmMain.picDrawing_MouseDown(Button,Shift,X,Y)",
                 [&] { interaction.navigation.beginPan(at); });
}

bool Application::movePan(Point at) {
  return guarded("frmMain.picDrawing_MouseMove(Button,Shift,X,Y)",
                 [&] { interaction.navigation.movePan(at); });
}

bool Application::endPan(Point at) {
  return guarded("frmMain.picDrawing_MouseUp(Button,Shift,X,Y)",
                 [&] { interaction.navigation.endPan(at); });
}

void Application::leave() {
  guarded("frmMain.picDrawing_MouseLeave()", [] {});
}

std::string Application::typePosition(std::string_view text, int button) {
  std::string trouble;
  guarded("frmMain.typePosition(text,button)",
          [&] { trouble = tess::typePosition(interaction.context, text, button); });
  return trouble;
}

bool Application::mayClose() {
  bool may = false;
  guarded("frmMain.Form_QueryUnload(Cancel,UnloadMode)",
          [&] { may = safe_EXIT(session, /*frmunloading=*/true); });
  interaction.redraw.redrawabort = may;
  return may;
}

void Application::unload() {
  guarded("frmMain.Form_Unload(Cancel)", [this] { Form_Unload(session); });
  if (journal_) journal_->close();
}

void Application::customizeTools() {
  callIfSet(onCustomize);
}

std::string Application::caption() const {
  return session.productname + " - Version " + kVersionText;
}

void Application::Listener::clearUndoMenu() {
  tess::clearUndoMenu(application_.interaction.context);
}

void Application::Listener::resetUndoState() {
  tess::resetUndoState(application_.interaction.context);
}

void Application::Listener::Clear_Paste() {
  tess::Clear_Paste(application_.interaction.context);
}

void Application::Listener::scaleDrawing(float factor) {
  convertDrawing(application_.interaction.context, factor);
}

void Application::Listener::UnselectAll() {
  application_.interaction.context.state.Selected.clear();
}

void Application::Listener::Update_menu_checks() {
  application_.interaction.Update_menu_checks();
}

void Application::Listener::UpdateGridButtons() {
  tess::UpdateGridButtons(application_.interaction.context);
}

void Application::Listener::SetUpdatePropertyFlag(bool update) {
  application_.interaction.context.state.updateProperties = update;
}

void Application::Listener::UpdatePropertyWindow() {
  application_.interaction.UpdatePropertyWindow();
}

void Application::Listener::resetObjectSnap() {
  application_.interaction.context.state.resetObjectSnap();
}

void Application::Listener::moveMarker(float x, float y) {
  application_.interaction.moveMarker(x, y);
}

void Application::Listener::recover() {
  application_.interaction.viewCommands.recover();
}

void Application::Listener::resetPendingAction() {
  application_.interaction.resetPendingAction();
}

void Application::Listener::DisplayedFilename(const std::string& text) {
  application_.interaction.statusBar.setPanel(StatusPanel::FileName, text);
}

void Application::Listener::updateStatusDisplay() {
  application_.interaction.updateStatusDisplay();
}

void Application::Listener::rowsRewritten() {
  application_.interaction.context.changes.tellRewritten();
}

void Application::Listener::drawingReplaced() {
  rowsRewritten();
  application_.viewer.drawingReplaced();
  application_.interaction.showWholeDrawing();
}

void Application::Listener::recentFilesChanged() {
  application_.interaction.showRecentFiles();
}

void Application::Listener::brandingRead() {
  callIfSet(application_.onCaptionChanged);
}

void Application::Listener::load_xsetup() {
  tess::load_xsetup(application_.session, application_.definition);
  application_.pathTotals.markStale();
  application_.backplot.markStale();
}

void Application::Listener::setupChosen() {
  application_.interaction.showWholeDrawing();
}

void Application::Listener::closeMainWindow() {
  callIfSet(application_.onCloseMainWindow);
}

void Application::Listener::importDxf(const std::string& path) {
  importDroppedDxf(application_.interaction.context, path);
}

void Application::Listener::loadLayout() {
  loadProgramLayout(application_);
}

void Application::Listener::saveLayout() {
  saveProgramLayout(application_);
}

void Application::Listener::readPressedTools() {
  application_.interaction.readPressedTools();
}

void Application::Listener::unloadOtherWindows() {
  application_.interaction.forms.closeAll();
  callIfSet(application_.onUnloadOtherWindows);
}

}  // namespace tess
