// The file commands of scripts: `open`, `save`, `import_dxf` and `make_cnc` with the file named,
// and `extents`.
#include <algorithm>
#include <iterator>

#include "cnc/cnc_program.h"
#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/text.h"
#include "display/drawing_extents.h"
#include "import/frmDXF.h"
#include "shell/automation/bindings.h"
#include "shell/automation/lua_routines.h"

namespace tess {
namespace {

using std::string;
using std::string_view;

constexpr char kDefaultExtension[] = "CDM";
constexpr const char* kImportOptions[] = {"connect_points", "auto_align", "exact_geometry"};

// A file by its folder and name, as the program keeps them.
struct FileName {
  string folder;
  string name;
};

// Where a file with a bare name belongs.
using FolderRule = string (*)(const Script& script, const string& name);

string drawingFolder(const Script& script, const string& /*name*/) {
  return script.application.store.drawingpath;
}

// A drawing to be read is the first of its name, of those that the script may use, in the drawing
// folder, beside the script and in the working folder.
string folderHolding(const Script& script, const string& name) {
  const string drawings = script.application.store.drawingpath;
  string working;
  splitPath(working, fullPath(name), kDefaultExtension);
  for (const string& folder : {drawings, script.folder, working}) {
    if (fileExists(folder + name) && !script.folders.refusal(folder + name)) return folder;
  }
  return drawings;
}

FileName fileNamed(const Script& script, lua_State* L, const string& path, const char* extension,
                   FolderRule folderOfBareName) {
  requireSensiblePath(path);
  FileName file{.folder = {}, .name = {}};
  file.name = splitPath(file.folder, path, extension);
  if (file.name.empty()) raise(L, "'" + path + "' names no file");
  file.folder = file.folder.empty() ? folderOfBareName(script, file.name)
                                    : withSeparator(fullPath(file.folder));
  return file;
}

FileName fileToRead(const Script& script, lua_State* L, const char* extension) {
  FileName file = fileNamed(script, L, valueAt<string>(L, 1), extension, folderHolding);
  requireAllowed(script.folders, file.folder + file.name);
  return file;
}

FileName fileToWrite(Script& script, lua_State* L, int at, const char* extension, FileKind kind) {
  FileName file = fileNamed(script, L, valueAt<string>(L, at), extension, drawingFolder);
  requireWritable(script, file.folder + file.name, kind);
  return file;
}

int openDrawing(Script& script, lua_State* L) {
  const FileName file = fileToRead(script, L, kDefaultExtension);
  runReported(script, "load_Drawing", [&] {
    Session& session = script.application.session;
    session.selectedfolder = file.folder;
    session.selectedname = file.name;
    session.lastfilename = file.folder + file.name;
    load_Drawing(session);
  });
  script.hand.settle();
  return 0;
}

int saveDrawing(Script& script, lua_State* L) {
  const FileName file = fileToWrite(script, L, 1, kDefaultExtension, FileKind::Drawing);
  runReported(script, "save_Drawing", [&] {
    Session& session = script.application.session;
    session.store.drawingpath = session.selectedfolder = file.folder;
    session.store.drawingname = session.selectedname = file.name;
    save_Drawing(session);
  });
  return 0;
}

bool flagIn(lua_State* L, int table, const char* name) {
  lua_getfield(L, table, name);
  const bool set = lua_toboolean(L, -1) != 0;
  lua_pop(L, 1);
  return set;
}

// Raises a script error for a name that is no option: a misspelt one would do nothing.
void requireImportOptions(lua_State* L, int table) {
  for (lua_pushnil(L); lua_next(L, table) != 0; lua_pop(L, 1)) {
    // A copy is turned into text: the key itself leads to the next one.
    lua_pushvalue(L, -2);
    const string name = luaL_tolstring(L, -1, nullptr);
    lua_pop(L, 2);
    const auto& known = kImportOptions;
    if (std::find(std::begin(known), std::end(known), name) == std::end(known)) {
      raise(L, "import_dxf has no option '" + name + "'");
    }
  }
}

// The import form without its window; what it would ask goes to the script's handlers. Options that
// are not given are off, whatever an operator chose last.
int importDxfFile(Script& script, lua_State* L) {
  const FileName file = fileToRead(script, L, "DXF");
  if (!equalIgnoringCase(string_view(file.name).substr(file.name.rfind('.')), ".DXF")) {
    raise(L, "import_dxf reads files named .DXF, not '" + file.name + "'");
  }
  const bool hasOptions = lua_istable(L, 2);
  if (hasOptions) requireImportOptions(L, 2);
  const int before = script.application.store.NumSegments;
  runReported(script, "import_dxf", [&] {
    frmDXF form(script.application.interaction.context);
    form.isWorkedByHand = false;
    form.chkConnectPoints.setChecked(hasOptions && flagIn(L, 2, kImportOptions[0]));
    form.chkAutoAlign.setChecked(hasOptions && flagIn(L, 2, kImportOptions[1]));
    form.chkExactGeometry.setChecked(hasOptions && flagIn(L, 2, kImportOptions[2]));
    form.chkFitStock.setChecked(false);
    form.chkFileUnits.setChecked(false);
    form.OpenDXFFile(file.folder, file.name);
    form.cmdImport2TESS_Click();
  });
  script.hand.settle();
  push(L, script.application.store.NumSegments - before);
  return 1;
}

CncMode modeAt(lua_State* L, int at) {
  const string word = valueAt<string>(L, at);
  if (equalIgnoringCase(word, "mill")) return CncMode::Mill;
  if (equalIgnoringCase(word, "lathe")) return CncMode::Lathe;
  raise(L, "a program is for \"mill\" or \"lathe\", not for '" + word + "'");
}

// The command as the operator gives it; the program lands where its rules put it.
bool makeByRules(Application& application, CncMode mode) {
  Session& session = application.session;
  application.cnc.cncfilename.clear();
  const auto command =
      mode == CncMode::Mill ? mnuCAMMakeCNCFile_Click : mnuCAMMakeCNCLatheFile_Click;
  command(session, application.definition, application.cnc, application.viewer);
  return !application.cnc.cncfilename.empty();
}

bool makeInto(Application& application, CncMode mode, const string& file) {
  if (application.store.NumPathSegments == 0) return makeByRules(application, mode);
  application.session.listener.clearUndoMenu();
  return make_cnc(application.session, application.definition, application.cnc, mode,
                  {.path = file});
}

int makeCnc(Script& script, lua_State* L) {
  Application& application = script.application;
  const CncMode mode = modeAt(L, 1);
  // The question about unsaved work may save the drawing where it is.
  const string& drawing = application.store.drawingname;
  if (!drawing.empty()) {
    requireAllowed(script.folders, application.store.drawingpath + drawing);
  }
  string path;
  if (lua_isnoneornil(L, 2)) {
    requireAllowed(script.folders, programFile(application.store));
  } else {
    const FileName file = fileToWrite(script, L, 2, "CNC", FileKind::Program);
    path = file.folder + file.name;
  }
  bool made = false;
  runReported(script, "make_cnc", [&] {
    made = path.empty() ? makeByRules(application, mode) : makeInto(application, mode, path);
  });
  push(L, made);
  return 1;
}

int extents(Script& script, lua_State* L) {
  const auto box = GetDrawingExtents(script.application.store);
  if (!box) return 0;
  for (const float edge : {box->minx, box->miny, box->maxx, box->maxy}) push(L, edge);
  return 4;
}

}  // namespace

void bindFileCommands(lua_State* L) {
  setGlobal(L, {"open", guarded<openDrawing>});
  setGlobal(L, {"save", guarded<saveDrawing>});
  setGlobal(L, {"import_dxf", guarded<importDxfFile>});
  setGlobal(L, {"make_cnc", guarded<makeCnc>});
  setGlobal(L, {"extents", guarded<extents>});
}

}  // namespace tess
