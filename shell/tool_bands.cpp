// The menus and tool bars as tables.
#include "shell/tool_bands.h"

#include <string_view>
#include <vector>

#include "core/session.h"

namespace tess {
namespace {

// clang-format off
constexpr ToolText kTools[] = {
    // File
    {"miNew",                  "&New", ""},
    {"miOpen",                 "&Open...", ""},
    {"miReverttoSaved",        "&Revert to Saved", ""},
    {"miImportDXFfile",        "&Import DXF File...", ""},
    {"miSave",                 "&Save", ""},
    {"miSaveAs",               "Save &As...", ""},
    {"miDeleteFile",           "&Delete File...", ""},
    {"miPrintPicture",         "&Print Picture...", ""},
    {"miPrintPreview",         "Print Pre&view", ""},
    {"miExit",                 "E&xit", ""},
    // Edit
    {"miUndo",                 "&Undo", ""},
    {"miRedo",                 "&Redo", ""},
    {"miEditSegsOrPaths",      "Edit &Tool Paths", ""},
    {"miDelete",               "&Delete", "Del"},
    {"miCut",                  "Cu&t", ""},
    {"miCopy",                 "&Copy", "C"},
    {"miPaste",                "&Paste", "P"},
    {"miFlipArc",              "&Flip Arc", "F"},
    {"miRevArcDir",            "Reverse Arc Direct&ion", "D"},
    {"miJoinEndpoints",        "&Join Endpoints", "J"},
    {"miMoveEndpoints",        "Mo&ve Endpoints", "V"},
    {"miBreakSegment",         "&Break Segment", "B"},
    {"miJoinEndPtsArc",        "Join Endpoints with &Arc", ""},
    {"miDeleteVertex",         "Delete Verte&x", ""},
    {"miChangeRadius",         "C&hange Radius...", ""},
    {"miMoveProfile",          "&Move Profile", "M"},
    {"miAddFillet",            "Add Fi&llet...", ""},
    {"miSetOrigin",            "Set &Origin", ""},
    {"miTrimEntity",           "Trim &Entity", "T"},
    {"miEnterPosition",        "Enter Positio&n...", "E"},
    {"miEntityInfo",           "Entity &Info", "Tab"},
    {"miScaleDrawing",         "&Scale Drawing...", "S"},
    {"miMirror",               "Mirr&or...", ""},
    {"miRotate",               "Rota&te...", ""},
    {"miRevPath",              "Reverse Path Se&gment", ""},
    // Draw
    {"miLine",                 "&Line", "L"},
    {"miRectangle",            "&Rectangle", "R"},
    {"miArc3P",                "&Arc, 3 Points", "A"},
    {"miArcC+2P",              "Arc, Center + 2 &Points", ""},
    {"miCircle3P",             "&Circle, 3 Points", ""},
    {"miCircleC+1P",           "Circle, Center + &1 Point", ""},
    {"miBoltCircle",           "&Bolt Circle...", ""},
    {"miText",                 "&Text...", ""},
    {"miToolChest",            "T&ool Chest...", ""},
    {"miMeasureDist",          "&Measure Distance", ""},
    {"miSelect",               "&Select", ""},
    {"miUnselect",             "&Unselect", ""},
    {"miSelectContiguous",     "Select Co&ntiguous", ""},
    {"miUnselectContiguous",   "Unselect Conti&guous", ""},
    {"miSelectAll",            "S&elect All", ""},
    {"miUnselectAll",          "Unselect All", ""},
    // View
    {"miReDraw",               "&Redraw", "Ctrl+R"},
    {"miCenter",               "&Center on Marker", ""},
    {"miZoomIn",               "Zoom &In", "I"},
    {"miZoomOut",              "Zoom &Out", "O"},
    {"miZoomWindow",           "Zoom &Window", ""},
    {"miZoomExtents",          "Zoom &Extents", ""},
    {"miFullView",             "&Full View", ""},
    {"miPan",                  "&Pan", ""},
    {"miShowPartTemplate",     "Show Part &Template", ""},
    {"miShowEndMarkers",       "Show End &Markers", ""},
    {"miShowToolPaths",        "Show Tool Pat&hs", ""},
    {"miToolRadiusOutline",    "Tool Ra&dius Outline", ""},
    {"miShowStatistics",       "&Statistics", ""},
    // Options
    {"miDrawingTitleBlock",    "Drawing &Title Block...", ""},
    {"miG-codeControlSetup",   "&G-code Control Setup...", ""},
    {"miGrid/SnapSelections",  "Grid / S&nap Selections...", ""},
    {"miPrinterOptions",       "&Printer Options...", ""},
    {"miSaveAsDefault",        "Save as &Default", ""},
    {"miReverttoSavedDefaults", "&Revert to Saved Defaults", ""},
    {"miLoadSetup",            "&Load Setup...", ""},
    {"miSaveSetup",            "&Save Setup", ""},
    {"miSaveSetupAs",          "Save Setup &As...", ""},
    {"miLoadLayout",           "Load La&yout...", ""},
    {"miSaveLayoutAs",         "Save Layout As...", ""},
    {"miCustomize",            "&Customize...", ""},
    // CAM
    {"miSelectTool",           "Select &Tool...", ""},
    {"miPocketingSpecs",       "Pocketing &Specifications...", ""},
    {"miVerify/AcceptPocket",  "&Verify/Accept Pocket", ""},
    {"miVerify/AcceptIsland",  "Verify/Accept &Island", ""},
    {"miRoughCutPocket",       "&Rough Cut Pocket", ""},
    {"miPlaceFinishPath",      "Place &Finish Path...", ""},
    {"miPlaceOnePathSegment",  "Place &One Path Segment", ""},
    {"miQuickPlace",           "&Quick Place", ""},
    {"miAddMachineCycle",      "A&dd Machine Cycle...", ""},
    {"miUndoLastPlace",        "&Undo Last Place", ""},
    {"miGougeAvoidance",       "Apply &Gouge Avoidance", ""},
    {"miEditPath/Cycle",       "&Edit Path/Cycle...", ""},
    {"miVisible",              "Ma&ke Paths Visible", ""},
    {"miInvisible",            "Make Paths I&nvisible", ""},
    {"miCleanupDrawing",       "&Cleanup Drawing...", ""},
    {"miClearAllPaths",        "Clear &All Paths", ""},
    {"miMakeCNCFile",          "Make CNC &Mill File", "Ctrl+M"},
    {"miMakeCNCLatheFile",     "Make CNC &Lathe File", "Ctrl+L"},
    {"miBrowseCNCFile",        "&Browse CNC File...", ""},
    // Help
    {"miContents",             "&Contents", "F1"},
    {"miSearchforHelpon",      "&Search for Help on...", ""},
    {"miAboutTessimoMill",     "&About Tessimo Mill...", ""},
    // Toggles and their menu
    {"VGrid",                  "Visual Grid", "G"},
    {"CGrid",                  "Cursor Grid", "G"},
    {"OSnap",                  "Object Snap", ""},
    {"miOSnapEndpoints",       "  Endpoints", "", 1},
    {"miOSnapCenter",          "  Center", "", 2},
    {"miOSnapMidpoint",        "  Midpoint", "", 3},
    {"miOSnapQuadrant",        "  Quadrant", "", 4},
    {"miOSnapPerpendicular",   "  Perpendicular", "", 5},
    {"miOSnapEndpointsSingle", "Endpoint once", "", 1},
    {"miOSnapCenterSingle",    "Center once", "", 2},
    {"miOSnapMidpointSingle",  "Midpoint once", "", 3},
    {"miOSnapQuadrantSingle",  "Quadrant once", "", 4},
    {"miOSnapPerpendicularSingle", "Perpendicular once", "", 5},
};
// clang-format on

constexpr const char kSeparator[] = "";

struct BandRow {
  const char* name;
  const char* caption;
  BandKind kind;
  std::vector<std::string> tools;
};

std::vector<BandRow> menuRows() {
  return {
      {"miFile",
       "&File",
       BandKind::Menu,
       {"miNew",          "miOpen",        "miReverttoSaved", "miImportDXFfile", kSeparator,
        "miSave",         "miSaveAs",      "miDeleteFile",    kSeparator,        "miPrintPicture",
        "miPrintPreview", kSeparator,      "miRecentFile1",   "miRecentFile2",   "miRecentFile3",
        "miRecentFile4",  "miRecentFile5", "miRecentFile6",   "miRecentFile7",   "miRecentFile8",
        "miRecentFile9",  kSeparator,      "miExit"}},
      {"miEdit",
       "&Edit",
       BandKind::Menu,
       {"miUndo",         "miRedo",      "miEditSegsOrPaths", kSeparator,        "miCut",
        "miCopy",         "miPaste",     "miDelete",          kSeparator,        "miBreakSegment",
        "miTrimEntity",   "miAddFillet", "miJoinEndpoints",   "miJoinEndPtsArc", "miMoveEndpoints",
        "miDeleteVertex", kSeparator,    "miFlipArc",         "miRevArcDir",     "miChangeRadius",
        "miRevPath",      kSeparator,    "miMoveProfile",     "miScaleDrawing",  "miMirror",
        "miRotate",       "miSetOrigin", kSeparator,          "miEnterPosition", "miEntityInfo"}},
      {"miDraw",
       "&Draw",
       BandKind::Menu,
       {"miLine", "miRectangle", "miArc3P", "miArcC+2P", "miCircle3P", "miCircleC+1P", kSeparator,
        "miBoltCircle", "miText", "miMeasureDist", kSeparator, "miSelect", "miUnselect",
        "miSelectContiguous", "miUnselectContiguous", "miSelectAll", "miUnselectAll", kSeparator,
        "miToolChest"}},
      {"miView",
       "&View",
       BandKind::Menu,
       {"miReDraw", "miCenter", "miZoomIn", "miZoomOut", "miZoomWindow", "miZoomExtents",
        "miFullView", "miPan", kSeparator, "miShowPartTemplate", "miShowEndMarkers",
        "miShowToolPaths", "miToolRadiusOutline", kSeparator, "miShowStatistics"}},
      {"miOptions",
       "&Options",
       BandKind::Menu,
       {"miDrawingTitleBlock", "miG-codeControlSetup", "miGrid/SnapSelections", "miPrinterOptions",
        kSeparator, "miSaveAsDefault", "miReverttoSavedDefaults", "miLoadSetup", "miSaveSetup",
        "miSaveSetupAs", kSeparator, "miLoadLayout", "miSaveLayoutAs", "miCustomize"}},
      {"miCAM",
       "&CAM",
       BandKind::Menu,
       {"miSelectTool",          "miPocketingSpecs",  kSeparator,          "miVerify/AcceptPocket",
        "miVerify/AcceptIsland", "miRoughCutPocket",  "miPlaceFinishPath", "miPlaceOnePathSegment",
        "miQuickPlace",          "miAddMachineCycle", "miUndoLastPlace",   kSeparator,
        "miGougeAvoidance",      "miEditPath/Cycle",  "miVisible",         "miInvisible",
        "miCleanupDrawing",      "miClearAllPaths",   kSeparator,          "miMakeCNCFile",
        "miMakeCNCLatheFile",    "miBrowseCNCFile"}},
      {"miHelp",
       "&Help",
       BandKind::Menu,
       {"miContents", "miSearchforHelpon", kSeparator, "miAboutTessimoMill"}},
  };
}

std::vector<BandRow> barRows() {
  return {
      {"barFile", "File", BandKind::ToolBar, {"miNew", "miOpen", "miSave", "miPrintPicture"}},
      {"barEdit",
       "Edit",
       BandKind::ToolBar,
       {"miUndo", "miRedo", kSeparator, "miDelete", "miBreakSegment", "miTrimEntity", "miAddFillet",
        "miJoinEndpoints", "miMoveEndpoints", "miEditSegsOrPaths"}},
      {"barDraw",
       "Draw",
       BandKind::ToolBar,
       {"miSelect", "miUnselect", "miSelectContiguous", "miSelectAll", "miUnselectAll", kSeparator,
        "miLine", "miRectangle", "miArc3P", "miArcC+2P", "miCircle3P", "miCircleC+1P",
        "miBoltCircle", "miText", "miMeasureDist"}},
      {"barView",
       "View",
       BandKind::ToolBar,
       {"miZoomIn", "miZoomOut", "miZoomWindow", "miZoomExtents", "miFullView", "miPan", "miCenter",
        "miReDraw", kSeparator, "miShowPartTemplate", "miShowEndMarkers", "miShowToolPaths",
        "miToolRadiusOutline"}},
      {"barCAM",
       "CAM",
       BandKind::ToolBar,
       {"miSelectTool", "miPocketingSpecs", kSeparator, "miVerify/AcceptPocket",
        "miVerify/AcceptIsland", "miRoughCutPocket", "miPlaceFinishPath", "miAddMachineCycle",
        "miUndoLastPlace", "miEditPath/Cycle", kSeparator, "miMakeCNCFile", "miMakeCNCLatheFile"}},
      {"Options", "Grids and Snap", BandKind::ToolBar, {"OSnap", "VGrid", "CGrid"}},
      {"OSnapMenu",
       "Object Snap",
       BandKind::PopUp,
       {"miOSnapEndpoints", "miOSnapCenter", "miOSnapMidpoint", "miOSnapQuadrant",
        "miOSnapPerpendicular", kSeparator, "miOSnapEndpointsSingle", "miOSnapCenterSingle",
        "miOSnapMidpointSingle", "miOSnapQuadrantSingle", "miOSnapPerpendicularSingle"}},
      {"barText", "Text", BandKind::Panel, {}},
      {"barStatistics", "Statistics", BandKind::Panel, {}},
      {"barProperties", "Properties", BandKind::Panel, {}},
  };
}

std::string plainCaption(std::string_view caption) {
  std::string text(caption);
  std::erase(text, '&');
  return text;
}

Tool toolOf(const ToolText& text) {
  Tool tool;
  tool.name = text.name;
  tool.caption = text.caption;
  tool.hint = plainCaption(text.caption);
  if (*text.key != '\0') tool.hint += std::string(" (") + text.key + ")";
  if (tool.name == "OSnap") tool.popUp = "OSnapMenu";
  if (text.tag != 0) tool.tag = std::to_string(text.tag);
  return tool;
}

void addBands(ToolHost& tools, const std::vector<BandRow>& rows) {
  for (const BandRow& row : rows) {
    const bool open = row.kind == BandKind::ToolBar;
    tools.addBand({.name = row.name,
                   .caption = row.caption,
                   .kind = row.kind,
                   .tools = row.tools,
                   .open = open});
  }
}

}  // namespace

std::span<const ToolText> toolTexts() {
  return kTools;
}

void fillToolHost(ToolHost& tools) {
  for (const ToolText& text : kTools) tools.addTool(toolOf(text));
  for (int number = 1; number <= kRecentFiles; ++number) {
    Tool recent;
    recent.name = recentTool(number);
    recent.visible = false;
    tools.addTool(recent);
  }
  addBands(tools, menuRows());
  addBands(tools, barRows());
}

std::string recentTool(int number) {
  return "miRecentFile" + std::to_string(number);
}

}  // namespace tess
