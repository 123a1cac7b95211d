// Loading, saving and choosing drawings.
#include "core/drawing_file.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "core/core_commands.h"
#include "core/count_text.h"
#include "core/drawing_pair.h"
#include "core/drawing_result.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/number_text.h"
#include "core/path_job_file.h"
#include "core/recent_files.h"
#include "core/save_pair.h"
#include "core/save_record.h"
#include "core/units.h"

namespace tess {
namespace {

constexpr char kDefaultExtension[] = "CDM";
constexpr char kNotReverted[] = "Couldn't revert to saved drawing.\n\n";
// Fixed: the tildes stand in the text; scripts compare messages word for word.
constexpr char kOlderVersion[] =
    "Drawing was created with older version of this software! ~~You may need to adjust the grid "
    "selections.~~(To avoid this message at loading, you should save now!)~";

void noteSavedCounts(DrawingStore& store) {
  store.savedsegments = store.NumSegments;
  store.savedpaths = store.NumPathSegments;
}

void tell(Session& session, const std::string& text) {
  session.host.prompts.showMessage(
      {.text = text, .title = {}, .icon = MessageIcon::Warning, .buttons = MessageButtons::Ok});
}

// A save that was completed is the last one from now on.
void noteCompleted(Session& session, const Recovery& recovery) {
  if (recovery.settled.outcome != Settlement::Completed) return;
  PairState state;
  for (std::size_t at = 0; at < std::min(state.size(), recovery.settled.contents.size()); ++at) {
    if (const auto& content = recovery.settled.contents[at]) {
      state[at].checksum = checksumOf(*content);
    }
  }
  noteSave(session, recovery.drawing, state);
}

void tellRecoveries(Session& session, const std::vector<Recovery>& recoveries) {
  for (const Recovery& recovery : recoveries) {
    noteCompleted(session, recovery);
    tell(session, recoveryText(recovery));
  }
}

// ---- Loading

std::optional<PairContent> openDrawing(Session& session, const std::vector<std::string>& paths) {
  std::vector<Recovery> recoveries =
      recoverFolder(session.host.guard, session.selectedfolder, session.selectedname);
  try {
    PairContent pair = readPair(session.host.guard, paths, recoveries);
    tellRecoveries(session, recoveries);
    return pair;
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    tellRecoveries(session, recoveries);
    tell(session, kNotReverted + failure.description());
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
  session.pathJobs.clear();
  store.xorigin = 1;
  store.yorigin = 1;
  store.zorigin = -1;
}

// A number that the end of the file cuts off is a number all the same, but another one.
void noteCutNumber(const FieldReader& fields, std::vector<std::string>& notes) {
  if (!fields.endsInField()) return;
  notes.push_back(fields.place() +
                  ": the file ends within this line, and its last number may be cut off.");
}

void readPathFile(Session& session, PairContent& pair, std::vector<std::string>& notes) {
  if (pair.pathsFailure) throw RuntimeFailure(*pair.pathsFailure);
  if (!pair.paths) return;
  FieldReader fields(session.selectedfolder + pathFileName(session.selectedname),
                     std::move(*pair.paths));
  readPaths(session.store, fields);
  noteCutNumber(fields, notes);
}

// What was read stays, but it is no file's content: it has no name, and nothing of it is saved.
void standUntitled(Session& session) {
  DrawingStore& store = session.store;
  store.drawingname.clear();
  session.opened = {};
  store.savedsegments = 0;
  store.savedpaths = 0;
  store.drawingsaved = store.NumSegments == 0 && store.NumPathSegments == 0;
  set_num_formats(session);
  updateStatusDisplay(session);
  session.listener.UpdateGridButtons();
  session.listener.Update_menu_checks();
  session.listener.drawingReplaced();
}

HeaderNotes readDrawing(Session& session, PairContent& pair, std::vector<std::string>& notes) {
  DrawingStore& store = session.store;
  try {
    clearForLoading(session);
    FieldReader fields(session.selectedfolder + session.selectedname, std::move(pair.drawing));
    const HeaderNotes header = readfileheader(store, fields);
    readSegments(store, fields);
    noteCutNumber(fields, notes);
    store.drawingsaved = true;
    readPathFile(session, pair, notes);
    return header;
  } catch (...) {
    standUntitled(session);
    throw;
  }
}

constexpr char kWithoutJobs[] =
    " It says what the tool path was placed for; without it the path proof goes by the rows.";

// What the rows were placed for, as far as that was saved with these very files.
void readPathJobs(Session& session, const PairState& state, std::vector<std::string>& notes) {
  const std::string path = jobPath(session.selectedfolder, session.selectedname);
  if (!state[1].checksum || !fileExists(path)) return;
  try {
    FieldReader fields = FieldReader::open(path, kLargestDrawing);
    const auto jobs =
        readJobFile(fields, {.drawing = state[0].checksum, .paths = state[1].checksum});
    if (!jobs) return;
    for (const PathJob& job : *jobs) session.pathJobs.add(job);
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    notes.push_back(failure.source() + ": " + failure.description() + "." + kWithoutJobs);
  }
}

bool hasRows(const DrawingStore& store) {
  return store.NumSegments > 0 || store.NumPathSegments > 0;
}

void noteOpened(Session& session, const std::string& path, const PairState& state) {
  session.opened.path = path;
  session.opened.state = state;
  session.opened.hasRows = hasRows(session.store);
}

// Another process that has the drawing open. From now on others learn that it is open here.
void notePresence(Session& session, std::vector<std::string>& notes) {
  const std::string& path = session.opened.path;
  const auto other =
      session.opensToRead ? DrawingPresence::elsewhere(path) : session.opened.presence.hold(path);
  if (!other) return;
  const std::string process = *other > 0 ? " (" + std::to_string(*other) + ")" : "";
  notes.push_back(path + " is open in another process" + process +
                  ": what is not saved there is missing here.");
}

// The files against what was saved here last. What has been told once is known from then on.
void noteDamage(Session& session, std::vector<std::string>& notes) {
  const std::string& path = session.opened.path;
  const PairState& state = session.opened.state;
  const auto saved = lastSave(session, path);
  if (!saved) return;
  if (saved->drawing == state[0].checksum && saved->paths == state[1].checksum) return;
  notes.push_back(path + (saved->drawing == state[0].checksum ? ": its path file" : "") +
                  " is not as it was saved here last, on " + saved->when +
                  ". If nobody has changed it since, it is damaged.");
  if (!session.opensToRead) noteSave(session, path, state);
}

void takeOverNames(Session& session, const std::string& cncoutputpath) {
  DrawingStore& store = session.store;
  store.drawingpath = session.selectedfolder;
  store.drawingname = session.selectedname;
  session.lastfilename = store.drawingpath + store.drawingname;
  store.cncoutputpath = folderExists(cncoutputpath) ? cncoutputpath : store.drawingpath;
}

// Fixed: only an older version is told of; newer files are read as if they were of this one.
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

// The drawing that is selected; false when it does not open, which leaves all as it is.
bool loadSelected(Session& session) {
  const Procedure here("load_Drawing()");
  DrawingStore& store = session.store;
  const std::string folder = session.selectedfolder;
  const std::string name = session.selectedname;
  const std::vector<std::string> paths = pairPaths(folder, name);
  auto pair = openDrawing(session, paths);
  if (!pair) return false;
  // Whoever answered a message meanwhile may have selected something else.
  session.selectedfolder = folder;
  session.selectedname = name;
  std::vector<std::string> notes;
  const HeaderNotes header = readDrawing(session, *pair, notes);
  takeOverNames(session, header.cncoutputpath);
  noteOpened(session, paths[0], pair->state);
  readPathJobs(session, pair->state, notes);
  noteSavedCounts(store);
  set_num_formats(session);
  updateStatusDisplay(session);
  warnOfOlderVersion(session, header.version);
  session.listener.UpdateGridButtons();
  addRecent(session, session.lastfilename);
  store.showpaths = 1;
  session.listener.Update_menu_checks();
  session.listener.drawingReplaced();
  if (!pair->recovered) noteDamage(session, notes);
  notePresence(session, notes);
  for (const std::string& note : notes) tell(session, note);
  tellDrawing(session, "Opened");
  return true;
}

// ---- Saving

enum class SaveResult {
  Done,
  UnderOtherName,  // the operator wants another name
  Cancelled,
};

// What an answer means for the save that it was asked about; nothing: go on with it.
std::optional<SaveResult> resultOf(int answer, int goOn, int otherName) {
  if (answer == goOn) return std::nullopt;
  return answer == otherName ? SaveResult::UnderOtherName : SaveResult::Cancelled;
}

std::string rows(int count) {
  return countText(count, "row");
}

// A name without a path file loses the paths of the drawing.
std::optional<SaveResult> askAboutLostPaths(Session& session) {
  const DrawingStore& store = session.store;
  if (store.NumPathSegments == 0 || !pathFileName(store.drawingname).empty()) return std::nullopt;
  int answer = 0;
  askUser(session,
          store.drawingname + " will be saved without its tool path of " +
              rows(store.NumPathSegments) +
              ": only drawings named *.cdm keep one.\n\nSave it all the same? No asks for another "
              "name.",
          kAskYesNoCancel, answer);
  return resultOf(answer, kAnswerYes, kAnswerNo);
}

std::optional<SaveResult> askAboutChanges(Session& session, const std::string& path) {
  int answer = 0;
  askUser(session,
          path +
              " has been changed on the disk since it was opened.\n\nSave under another name? "
              "No replaces it, and what is there now becomes the backup.",
          kAskYesNoCancel, answer);
  return resultOf(answer, kAnswerNo, kAnswerYes);
}

std::string drawingFile(const DrawingStore& store) {
  return store.drawingpath + store.drawingname;
}

// Writes the files, asking as often as they have changed since. Nothing: they are written.
std::optional<SaveResult> writeAsking(Session& session, bool agreed) {
  const std::string drawing = drawingFile(session.store);
  for (;;) {
    const PairSave save = savePair(session, agreed);
    tellRecoveries(session, save.recoveries);
    if (save.trouble) session.host.failures.report(*save.trouble);
    if (save.written) return std::nullopt;
    if (const auto result = askAboutChanges(session, drawing)) return result;
    // Whoever answered may have opened something else, which nobody has asked to be saved.
    if (drawingFile(session.store) != drawing) return SaveResult::Cancelled;
    session.opened.state = save.state;
    session.opened.hasRows.reset();
  }
}

SaveResult saveAsking(Session& session, bool agreed) {
  DrawingStore& store = session.store;
  if (const auto result = askAboutLostPaths(session)) return *result;
  if (store.NumSegments > 0) roundall(store);
  session.listener.rowsRewritten();
  if (const auto result = writeAsking(session, agreed)) return *result;
  noteSavedCounts(store);
  session.lastfilename = store.drawingpath + store.drawingname;
  addRecent(session, session.lastfilename);
  store.drawingsaved = true;
  showDrawingName(session);
  tellDrawing(session, "Saved");
  return SaveResult::Done;
}

void nameDrawing(Session& session, const ChosenFile& file) {
  session.store.drawingpath = session.selectedfolder = file.folder;
  session.store.drawingname = session.selectedname = file.name;
}

// A drawing that is not saved after all, for whatever reason, keeps the name that it had.
class NameKept {
 public:
  explicit NameKept(DrawingStore& store)
      : store_(store), before_{store.drawingpath, store.drawingname} {}
  ~NameKept() {
    if (isSaved) return;
    std::swap(store_.drawingpath, before_.folder);
    std::swap(store_.drawingname, before_.name);
  }
  NameKept(const NameKept&) = delete;
  NameKept& operator=(const NameKept&) = delete;

  bool isSaved = false;

 private:
  DrawingStore& store_;
  ChosenFile before_;
};

void saveUnderOtherNames(Session& session) {
  NameKept name(session.store);
  SaveResult result = SaveResult::UnderOtherName;
  while (result == SaveResult::UnderOtherName) {
    const auto chosen = askForName(session);
    if (!chosen || chosen->name.empty()) return;
    nameDrawing(session, *chosen);
    result = saveAsking(session, /*agreed=*/true);
  }
  name.isSaved = result == SaveResult::Done;
}

// The folders of the drawings used last, each once.
std::vector<std::string> recentFolders(const Session& session) {
  std::vector<std::string> folders;
  for (const std::string& path : session.recentfiles) {
    std::string folder;
    splitPath(folder, path, "");
    const bool known = std::find(folders.begin(), folders.end(), folder) != folders.end();
    if (!folder.empty() && !known) folders.push_back(folder);
  }
  return folders;
}

}  // namespace

void save_Drawing(Session& session) {
  const Procedure here("save_Drawing()");
  if (session.store.drawingname.empty()) return;
  const SaveResult result = saveAsking(session, /*agreed=*/false);
  if (result == SaveResult::UnderOtherName) saveUnderOtherNames(session);
}

void load_Drawing(Session& session) {
  loadSelected(session);
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
  saveUnderOtherNames(session);
}

bool select_file(Session& session, const char* okCaption) {
  const Procedure here("select_file()");
  const std::string& folder = session.store.drawingpath;
  const auto path =
      session.host.prompts.chooseFile({.title = "Drawing File Selector",
                                       .pattern = "*.CDM",
                                       .folder = folderExists(folder) ? folder : session.appfolder,
                                       .name = {},
                                       .okCaption = okCaption,
                                       .places = recentFolders(session),
                                       .showsDrawings = true});
  if (!path || path->empty()) return false;
  session.selectedname = splitPath(session.selectedfolder, *path, kDefaultExtension);
  session.lastfilename = session.selectedfolder + session.selectedname;
  return !session.selectedname.empty();
}

// Fixed: unsaved work is not asked about; scripts would stop at the question.
void mnuFileRevert_Click(Session& session) {
  const Procedure here("mnuFileRevert_Click()");
  std::string& name = session.store.drawingname;
  const std::string before = name;
  name = splitPath(session.selectedfolder, session.lastfilename, kDefaultExtension);
  session.selectedname = name;
  if (name.empty()) return;
  // A file that does not open leaves the drawing, and with it the name.
  if (!loadSelected(session)) name = before;
}

// ---- Descriptors

constexpr SessionCommand kRevertCommand{
    .info = {.tool = "miReverttoSaved",
             .caption = "&Revert to Saved",
             .menu = {"miFile", 130},
             .touches = TouchedFiles::ChosenDrawing},
    .run = mnuFileRevert_Click,
};

constexpr SessionCommand kSaveCommand{
    .info = {.tool = "miSave",
             .caption = "&Save",
             .menu = {"miFile", 210},
             .bar = {"barFile", 130},
             .touches = TouchedFiles::Drawing},
    .run = smart_save,
};

constexpr SessionCommand kSaveAsCommand{
    .info = {.tool = "miSaveAs", .caption = "Save &As...", .menu = {"miFile", 220}},
    .run = save_file_As,
};

}  // namespace tess
