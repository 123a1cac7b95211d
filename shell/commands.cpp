// The name table and the key table of all commands.
#include "shell/commands.h"

#include <algorithm>
#include <cctype>

#include "core/drawing_file.h"
#include "core/lifecycle.h"
#include "core/setup_file.h"
#include "drafting/edit_commands.h"
#include "drafting/enter_position.h"
#include "drafting/entity_creation.h"
#include "drafting/frmCleanupDrawing.h"
#include "drafting/grids.h"
#include "drafting/measure.h"
#include "drafting/object_snap.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"
#include "drafting/repeat_key.h"
#include "drafting/selection.h"
#include "drafting/undo.h"
#include "import/frmDXF.h"
#include "shell/help_commands.h"
#include "shell/layouts.h"
#include "shell/tool_bands.h"
#include "toolpath/cycles.h"
#include "toolpath/dlgPocketingPrm.h"
#include "toolpath/finish_path.h"
#include "toolpath/gouge_avoidance.h"
#include "toolpath/path_placement.h"
#include "toolpath/path_visibility.h"
#include "toolpath/rough_pocket.h"
#include "toolpath/verification.h"

namespace tess {
namespace {

using Handler = void (*)(Application&);

// A command of the desk, the view or the session as a command of the application.
template <void (*command)(Desk&)>
void onDesk(Application& application) {
  command(application.interaction.desk);
}

template <void (*command)(CamDesk&)>
void onCam(Application& application) {
  command(application.interaction.cam);
}

template <void (ViewCommands::*command)()>
void onView(Application& application) {
  (application.interaction.viewCommands.*command)();
}

template <void (*command)(Session&)>
void onSession(Application& application) {
  command(application.session);
}

template <FeatureKind kind>
void toggleSnap(Application& application) {
  OSnapMenuClick(application.interaction.desk, kind);
}

template <FeatureKind kind>
void snapOnce(Application& application) {
  application.interaction.desk.state.UpdateOSnapFeature(/*once=*/true, static_cast<int>(kind));
}

void makeMillFile(Application& application) {
  mnuCAMMakeCNCFile_Click(application.session, application.definition, application.cnc,
                          application.viewer);
}

void makeLatheFile(Application& application) {
  mnuCAMMakeCNCLatheFile_Click(application.session, application.definition, application.cnc,
                               application.viewer);
}

void enterPosition(Application& application) {
  collect_Set_New_pos(application.interaction.desk);
}

void toggleStatistics(Application& application) {
  ToolHost& tools = application.interaction.tools;
  const Band* const band = tools.band("barStatistics");
  if (band != nullptr && band->open) {
    tools.closeBand("barStatistics");
  } else {
    tools.openBand("barStatistics");
  }
}

void customize(Application& application) {
  application.customizeTools();
}

struct CommandRow {
  const char* tool;
  Handler run;  // null while the command does not exist
};

// In the order of the comparison.
// clang-format off
constexpr CommandRow kCommands[] = {
    {"miNew",                  onSession<smart_New>},
    {"miOpen",                 onSession<mnuFileOpen_Click>},
    {"miReverttoSaved",        onSession<mnuFileRevert_Click>},
    {"miImportDXFfile",        onDesk<mnuFileImport_Click>},
    {"miSave",                 onSession<smart_save>},
    {"miSaveAs",               onSession<save_file_As>},
    {"miDeleteFile",           onSession<mnuFileDelete_Click>},
    {"miPrintPicture",         nullptr},
    {"miPrintPreview",         nullptr},
    {"miExit",                 onSession<file_EXIT>},

    {"miUndo",                 onDesk<Undo_Last_Change>},
    {"miEditSegsOrPaths",      onDesk<toggleEditPaths>},
    {"miRedo",                 onDesk<RedoLastChange>},
    {"miDelete",               onDesk<mnuEditDelete_Click>},
    {"miCut",                  nullptr},
    {"miCopy",                 onDesk<mnuEditCopy_Click>},
    {"miPaste",                nullptr},
    {"miFlipArc",              onDesk<mnuEditFlipArc_Click>},
    {"miRevArcDir",            onDesk<mnuEditRevArc_Click>},
    {"miJoinEndpoints",        onDesk<mnuEditJoinEnd_Click>},
    {"miMoveEndpoints",        onDesk<mnuEditMoveEnd_Click>},
    {"miBreakSegment",         onDesk<mnuEditBreakSeg_Click>},
    {"miJoinEndPtsArc",        onDesk<mnuEditJoinEndPtsArc>},
    {"miDeleteVertex",         onDesk<mnuDeleteVertex_Click>},
    {"miChangeRadius",         onDesk<mnuChangeRad_Click>},
    {"miMoveProfile",          onDesk<mnuEditMoveProf_Click>},
    {"miAddFillet",            onDesk<mnuAddFillet_Click>},
    {"miSetOrigin",            onDesk<SetOrigin>},
    {"miTrimEntity",           onDesk<mnuEditTrimEntity_Click>},
    {"miEnterPosition",        enterPosition},
    {"miEntityInfo",           onDesk<mnuEditEntityInfo_Click>},
    {"miScaleDrawing",         nullptr},
    {"miMirror",               nullptr},
    {"miRotate",               nullptr},
    {"miRevPath",              onDesk<mnuRevPathDir_Click>},

    {"miLine",                 onDesk<mnuDrawLine_Click>},
    {"miRectangle",            onDesk<mnuDrawRect_Click>},
    {"miArc3P",                onDesk<mnuDrawArc3P_Click>},
    {"miArcC+2P",              onDesk<mnuDrawArcC2P_Click>},
    {"miCircle3P",             onDesk<mnuDrawCircle3P_Click>},
    {"miCircleC+1P",           onDesk<mnuDrawCircleC1P_Click>},
    {"miBoltCircle",           nullptr},
    {"miText",                 nullptr},
    {"miToolChest",            nullptr},
    {"miMeasureDist",          onDesk<miMeasureDist_Click>},
    {"miSelect",               onDesk<mnuDrawSelect_Click>},
    {"miUnselect",             onDesk<mnuDrawUnselect_Click>},
    {"miSelectContiguous",     onDesk<mnuDrawSelectContiguous>},
    {"miUnselectContiguous",   onDesk<mnuDrawUnselectContiguous>},
    {"miSelectAll",            onDesk<mnuDrawSelectAll_Click>},
    {"miUnselectAll",          onDesk<mnuDrawUnselectAll_Click>},

    {"miReDraw",               onView<&ViewCommands::mnuViewReDraw_Click>},
    {"miCenter",               onView<&ViewCommands::mnuViewCenter_Click>},
    {"miZoomIn",               onView<&ViewCommands::mnuViewZoomIn_Click>},
    {"miZoomOut",              onView<&ViewCommands::mnuViewZoomOut_Click>},
    {"miZoomWindow",           onView<&ViewCommands::mnuViewZoomWindow_Click>},
    {"miZoomExtents",          onView<&ViewCommands::ZoomExtents>},
    {"miFullView",             onView<&ViewCommands::mnuViewFullView_Click>},
    {"miPan",                  onView<&ViewCommands::mnuViewPan_Click>},
    {"miShowPartTemplate",     onView<&ViewCommands::mnuViewShowPartTemp_Click>},
    {"miShowEndMarkers",       onView<&ViewCommands::mnuViewShowEndMark_Click>},
    {"miShowToolPaths",        onView<&ViewCommands::mnuViewShowToolPath_Click>},
    {"miToolRadiusOutline",    onView<&ViewCommands::mnuViewToolRadOutline_Click>},

    {"miDrawingTitleBlock",    nullptr},
    {"miG-codeControlSetup",   nullptr},
    {"miGrid/SnapSelections",  onDesk<mnuOptionsGridSelection_Click>},
    {"miPrinterOptions",       nullptr},
    {"miSaveAsDefault",        onSession<mnuOptionsSaveAsDefault_Click>},
    {"miReverttoSavedDefaults", onSession<mnuOptionsRevertSaved_Click>},
    {"miLoadSetup",            onSession<mnuOptionLoadSetup_Click>},
    {"miSaveSetup",            onSession<mnuOptionsSaveSetup_Click>},
    {"miSaveSetupAs",          onSession<mnuOptionsSaveSetupAs_Click>},
    {"miLoadLayout",           miLoadLayout_Click},
    {"miCustomize",            customize},
    {"miSaveLayoutAs",         SaveLayoutAs},

    {"miSelectTool",           nullptr},
    {"miPocketingSpecs",       onCam<mnuCAMPocketSpecs_Click>},
    {"miVerify/AcceptPocket",  onCam<mnuCAMVerifyAcceptPocket_Click>},
    {"miVerify/AcceptIsland",  onCam<mnuCAMVerifyAcceptIsland_Click>},
    {"miRoughCutPocket",       onCam<mnuCAMRoughCutPocket_Click>},
    {"miPlaceFinishPath",      onCam<mnuCAMPlaceFinishPath_Click>},
    {"miPlaceOnePathSegment",  onCam<mnuCAMPlace1PathSeg_Click>},
    {"miAddMachineCycle",      onCam<CAMAddMachCycleDeferred>},
    {"miUndoLastPlace",        onCam<mnuCAMUndoLastPlace_Click>},
    {"miEditPath/Cycle",       nullptr},
    {"miClearAllPaths",        onCam<mnuClearAllPaths_Click>},
    {"miMakeCNCFile",          makeMillFile},
    {"miMakeCNCLatheFile",     makeLatheFile},
    {"miBrowseCNCFile",        nullptr},
    {"miQuickPlace",           onCam<quickPlacePaths>},

    {"miContents",             mnuHelpContents_Click},
    {"miSearchforHelpon",      mnuHelpIndex_Click},
    {"miAboutTessimoMill",     mnuHelpAbout_Click},

    {"VGrid",                  onDesk<Vgrid_ButtonClick>},
    {"CGrid",                  onDesk<Cgrid_ButtonClick>},
    {"OSnap",                  onDesk<OSnap_ButtonClick>},

    {"miOSnapEndpoints",       toggleSnap<FeatureKind::EndPoint>},
    {"miOSnapCenter",          toggleSnap<FeatureKind::Center>},
    {"miOSnapMidpoint",        toggleSnap<FeatureKind::Midpoint>},
    {"miOSnapQuadrant",        toggleSnap<FeatureKind::Quadrant>},
    {"miOSnapPerpendicular",   toggleSnap<FeatureKind::Perpendicular>},
    {"miOSnapEndpointsSingle", snapOnce<FeatureKind::EndPoint>},
    {"miOSnapCenterSingle",    snapOnce<FeatureKind::Center>},
    {"miOSnapMidpointSingle",  snapOnce<FeatureKind::Midpoint>},
    {"miOSnapQuadrantSingle",  snapOnce<FeatureKind::Quadrant>},
    {"miOSnapPerpendicularSingle", snapOnce<FeatureKind::Perpendicular>},

    {"miGougeAvoidance",       onCam<miGougeAvoidance_Click>},
    {"miCleanupDrawing",       onDesk<mnuCleanupDrawing>},
    {"miVisible",              onCam<miVisible_Click>},
    {"miInvisible",            onCam<miInvisible_Click>},

    {"miShowStatistics",       toggleStatistics},
};
// clang-format on

bool isRecentTool(std::string_view tool) {
  return tool >= "miRecentFile1" && tool <= "miRecentFile9";
}

void zoomIn(Application& application) {
  application.interaction.viewCommands.Zoom_In(0, 0);
}
void zoomOut(Application& application) {
  application.interaction.viewCommands.Zoom_out(0, 0);
}

template <int key>
constexpr char controlKey() {
  return static_cast<char>(key - 'A' + 1);
}

struct KeyRow {
  char code;  // of the upper-case letter
  Handler run;
};

constexpr KeyRow kKeys[] = {
    {'A', onDesk<mnuDrawArc3P_Click>},
    {'B', onDesk<mnuEditBreakSeg_Click>},
    {'C', onDesk<mnuEditCopy_Click>},
    {'D', onDesk<mnuEditRevArc_Click>},
    {'E', enterPosition},
    {'F', onDesk<mnuEditFlipArc_Click>},
    {'G', onDesk<flipGrids>},
    {'I', zoomIn},
    {'J', onDesk<mnuEditJoinEnd_Click>},
    {'L', onDesk<mnuDrawLine_Click>},
    {'M', onDesk<mnuEditMoveProf_Click>},
    {'O', zoomOut},
    {'R', onDesk<mnuDrawRect_Click>},
    {'T', onDesk<mnuEditTrimEntity_Click>},
    {'V', onDesk<mnuEditMoveEnd_Click>},
    {'\t', onDesk<mnuEditEntityInfo_Click>},
    {controlKey<'L'>(), makeLatheFile},
    {controlKey<'M'>(), makeMillFile},
    {controlKey<'R'>(), onView<&ViewCommands::mnuViewReDraw_Click>},
    {'\x1b', onDesk<Handle_esc>},
};

template <int button>
void clickByKey(Application& application) {
  keyboardClick(application.interaction.desk, button);
}

template <int dx, int dy>
void nudge(Application& application) {
  nudgePointer(application.interaction.desk, dx, dy);
}

// With which modifiers held a key still acts.
enum class Modifiers { None, NotShift, Any };

struct SpecialKeyRow {
  SpecialKey key;
  Modifiers modifiers;
  Handler run;
};

// clang-format off
constexpr SpecialKeyRow kSpecialKeys[] = {
    {SpecialKey::F1,     Modifiers::None,     mnuHelpContents_Click},
    {SpecialKey::F3,     Modifiers::None,     onDesk<repeatLastCommand>},
    {SpecialKey::F12,    Modifiers::None,     onDesk<repeatLastCommand>},
    {SpecialKey::Enter,  Modifiers::Any,      clickByKey<kLeftButton>},
    {SpecialKey::Insert, Modifiers::NotShift, clickByKey<kRightButton>},
    {SpecialKey::Delete, Modifiers::Any,      onDesk<mnuEditDelete_Click>},
    {SpecialKey::Left,   Modifiers::Any,      nudge<-1, 0>},
    {SpecialKey::Right,  Modifiers::Any,      nudge<1, 0>},
    {SpecialKey::Up,     Modifiers::Any,      nudge<0, 1>},
    {SpecialKey::Down,   Modifiers::Any,      nudge<0, -1>},
};
// clang-format on

bool allows(Modifiers modifiers, const KeyStroke& key) {
  switch (modifiers) {
    case Modifiers::None:
      return !key.shift && !key.control;
    case Modifiers::NotShift:
      return !key.shift;
    case Modifiers::Any:
      return true;
  }
  return false;
}

}  // namespace

void abMain_ToolClick(Application& application, std::string_view tool) {
  const Procedure here("frmMain.abMain_ToolClick(tool)");
  const auto* const row =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [tool](const CommandRow& command) { return tool == command.tool; });
  if (row != std::end(kCommands)) {
    if (row->run != nullptr) row->run(application);
  } else if (isRecentTool(tool)) {
    openRecentFile(application.session, tool);
  }
}

std::vector<std::string> commandNames() {
  std::vector<std::string> names;
  for (const CommandRow& command : kCommands) names.emplace_back(command.tool);
  return names;
}

void disableIdleTools(Application& application) {
  for (const CommandRow& command : kCommands) {
    if (command.run == nullptr) application.interaction.tools.setEnabled(command.tool, false);
  }
}

void KeyPress(Application& application, char KeyAscii) {
  const Procedure here("frmMain.KeyPress(KeyAscii)");
  const char code =
      KeyAscii >= 'a' && KeyAscii <= 'z' ? static_cast<char>(KeyAscii - 'a' + 'A') : KeyAscii;
  for (const KeyRow& key : kKeys) {
    if (key.code == code) return key.run(application);
  }
}

void handleKey(Application& application, const KeyStroke& key) {
  if (key.special == SpecialKey::None) return KeyPress(application, key.ascii);
  for (const SpecialKeyRow& row : kSpecialKeys) {
    if (row.key == key.special && allows(row.modifiers, key)) return row.run(application);
  }
}

}  // namespace tess
