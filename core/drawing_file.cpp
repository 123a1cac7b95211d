// Loading, saving and choosing drawings.
#include "core/drawing_file.h"

#include <optional>
#include <utility>
#include <vector>

#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/number_text.h"
#include "core/recent_files.h"
#include "core/replace_files.h"
#include "core/units.h"

namespace tess {
namespace {

constexpr char kDefaultExtension[] = "CDM";
constexpr char kNotReverted[] = "Couldn't revert to saved drawing.\n\n";
constexpr char kOlderVersion[] =
    "Drawing was created with older version of this software! ~~You may need to adjust the grid "
    "selections.~~(To avoid this message at loading, you should save now!)~";

// Both files of the pair as they shall be.
std::vector<FileReplacement> pairToWrite(DrawingStore& store) {
  std::vector<FileReplacement> files(1);
  std::string drawing;
  writefileheader(store, drawing);
  appendSegments(drawing, store);
  files[0] = {.path = store.drawingpath + store.drawingname, .content = std::move(drawing)};

  const std::string pathname = pathFileName(store.drawingname);
  if (pathname.empty()) return files;
  // Without rows there shall be no path file: a stale one would come back at the next load.
  FileReplacement& paths = files.emplace_back(FileReplacement{store.drawingpath + pathname, {}});
  if (store.NumPathSegments > 0) appendPaths(paths.content.emplace(), store);
  return files;
}

void noteSavedCounts(DrawingStore& store) {
  store.savedsegments = store.NumSegments;
  store.savedpaths = store.NumPathSegments;
}

std::optional<FieldReader> openDrawing(Session& session, const std::string& path) {
  try {
    return FieldReader::open(path);
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    session.host.prompts.showMessage(
        {.text = kNotReverted + failure.description(), .title = {}, .icon = MessageIcon::Warning});
    return std::nullopt;
  }
}

void clearForLoading(Session& session) {
  session.listener.resetUndoState();
  session.listener.clearUndoMenu();
  session.listener.UnselectAll();
  session.listener.SetUpdatePropertyFlag(true);
  session.listener.UpdatePropertyWindow();
  session.listener.Clear_Paste();
  DrawingStore& store = session.store;
  store.NumSegments = 0;
  store.NumPathSegments = 0;
  store.pathgroupname.fill({});
  store.xorigin = 1;
  store.yorigin = 1;
  store.zorigin = -1;
}

void readPathFile(Session& session) {
  const std::string name = pathFileName(session.selectedname);
  const std::string path = session.selectedfolder + name;
  if (name.empty() || !fileExists(path)) return;
  FieldReader fields = FieldReader::open(path);
  readPaths(session.store, fields);
}

void takeOverNames(Session& session, const std::string& cncoutputpath) {
  DrawingStore& store = session.store;
  store.drawingpath = session.selectedfolder;
  store.drawingname = session.selectedname;
  session.lastfilename = store.drawingpath + store.drawingname;
  store.cncoutputpath = folderExists(cncoutputpath) ? cncoutputpath : store.drawingpath;
}

void warnOfOlderVersion(Session& session, const std::string& version) {
  if (Val(version) >= Val(kDrawingVersion)) return;
  int answer = 0;
  askUser(session, kOlderVersion, kAskOk, answer);
}

// An untitled drawing names none, and neither does one named by an import, which has no extension.
bool namesFile(std::string_view drawingname) {
  return drawingname.find('.') != std::string_view::npos;
}

std::string offeredName(const Session& session) {
  if (!session.store.drawingname.empty()) return session.store.drawingname;
  std::string folder;
  return splitPath(folder, session.lastfilename, kDefaultExtension);
}

FileRequest requestToSave(const Session& session) {
  return {.title = "Save As",
          .pattern = "Drawing Files (*.cdm)|*.cdm",
          .folder = session.store.drawingpath,
          .name = offeredName(session),
          .forSaving = true};
}

struct ChosenFile {
  std::string folder;
  std::string name;
};

// The name to save under; nothing when the operator gives none or will not overwrite.
std::optional<ChosenFile> askForName(Session& session) {
  while (true) {
    const auto path = session.host.prompts.chooseFile(requestToSave(session));
    if (!path || path->empty() || path->find('*') != std::string::npos) return std::nullopt;
    ChosenFile chosen{.folder = session.store.drawingpath, .name = {}};
    chosen.name = splitPath(chosen.folder, *path, kDefaultExtension);
    if (!fileExists(chosen.folder + chosen.name)) return chosen;
    int answer = 0;
    askUser(session, "File already exists! Overwrite?", kAskYesNoCancel, answer);
    if (answer == kAnswerYes) return chosen;
    if (answer == kAnswerCancel) return std::nullopt;
  }
}

}  // namespace

void save_Drawing(Session& session) {
  const Procedure here("save_Drawing()");
  DrawingStore& store = session.store;
  if (store.drawingname.empty()) return;
  if (store.NumSegments > 0) roundall(store);
  session.listener.rowsRewritten();
  replaceWithBackup(pairToWrite(store));
  noteSavedCounts(store);
  session.lastfilename = store.drawingpath + store.drawingname;
  addRecent(session, session.lastfilename);
  store.drawingsaved = true;
  showDrawingName(session);
}

void load_Drawing(Session& session) {
  const Procedure here("load_Drawing()");
  DrawingStore& store = session.store;
  auto fields = openDrawing(session, session.selectedfolder + session.selectedname);
  if (!fields) return;
  clearForLoading(session);
  const HeaderNotes notes = readfileheader(store, *fields);
  readSegments(store, *fields);
  store.drawingsaved = true;
  readPathFile(session);
  takeOverNames(session, notes.cncoutputpath);
  noteSavedCounts(store);
  set_num_formats(session);
  updateStatusDisplay(session);
  warnOfOlderVersion(session, notes.version);
  session.listener.UpdateGridButtons();
  addRecent(session, session.lastfilename);
  store.showpaths = 1;
  session.listener.Update_menu_checks();
  session.listener.drawingReplaced();
}

void smart_save(Session& session) {
  const Procedure here("smart_save()");
  if (!namesFile(session.store.drawingname)) {
    save_file_As(session);
  } else {
    save_Drawing(session);
  }
}

void save_file_As(Session& session) {
  const Procedure here("save_file_As()");
  const auto chosen = askForName(session);
  if (!chosen || chosen->name.empty()) return;
  session.store.drawingpath = session.selectedfolder = chosen->folder;
  session.store.drawingname = session.selectedname = chosen->name;
  save_Drawing(session);
}

bool select_file(Session& session) {
  const Procedure here("select_file()");
  const std::string& folder = session.store.drawingpath;
  const auto path =
      session.host.prompts.chooseFile({.title = "Drawing File Selector",
                                       .pattern = "*.CDM",
                                       .folder = folderExists(folder) ? folder : session.appfolder,
                                       .name = {}});
  if (!path || path->empty()) return false;
  session.selectedname = splitPath(session.selectedfolder, *path, kDefaultExtension);
  session.lastfilename = session.selectedfolder + session.selectedname;
  return !session.selectedname.empty();
}

void mnuFileRevert_Click(Session& session) {
  const Procedure here("mnuFileRevert_Click()");
  std::string& name = session.store.drawingname;
  name = splitPath(session.selectedfolder, session.lastfilename, kDefaultExtension);
  session.selectedname = name;
  if (!name.empty()) load_Drawing(session);
}

}  // namespace tess
