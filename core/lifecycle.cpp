// The order of the start, of a new drawing and of the end, and the questions between.
#include "core/lifecycle.h"

#include <algorithm>
#include <optional>

#include "core/core_commands.h"
#include "core/date_text.h"
#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/recent_files.h"
#include "core/setup_file.h"
#include "core/text.h"
#include "core/units.h"

namespace tess {
namespace {

constexpr char kNotSaved[] = "Drawing not saved! Save now?";
constexpr char kDrawingExtension[] = ".CDM";
constexpr char kDxfExtension[] = ".DXF";

std::string_view withoutQuotes(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

// Asks with `drawingsaved` cleared: only a save that works sets it again.
int askToSave(Session& session) {
  session.store.drawingsaved = false;
  int answer = 0;
  askUser(session, kNotSaved, kAskYesNoCancel, answer);
  return answer;
}

void takeFolders(Session& session, std::string_view programFolder) {
  session.appfolder = withSeparator(programFolder);
  session.store.drawingpath = withSeparator(session.appfolder + "CNC");
  session.selectedfolder = session.store.drawingpath;
}

void putMarkerAtOrigin(DrawingStore& store) {
  store.markerx = 0;
  store.markery = 0;
}

void select(Session& session, const std::string& path) {
  session.selectedname = splitPath(session.selectedfolder, path, "CDM");
}

// The drawing that the command line means, whatever extension it gives: a bare name is looked for
// in the working folder first and then among the drawings.
std::optional<std::string> drawingOfCommandLine(const Session& session) {
  std::string folder;
  const std::string name = splitPath(folder, session.cmdline, kDrawingExtension);
  if (name.empty()) return std::nullopt;
  if (fileExists(folder + name)) return fullPath(folder + name);
  const std::string amongDrawings = session.store.drawingpath + name;
  if (folder.empty() && fileExists(amongDrawings)) return fullPath(amongDrawings);
  return std::nullopt;
}

// A drawing that fails half-way is reported, and the program starts all the same.
void loadOrReport(Session& session, const std::string& path) {
  select(session, path);
  try {
    load_Drawing(session);
    showDrawingName(session);
  } catch (const RuntimeFailure& failure) {
    session.host.failures.report(failure);
  }
}

// Fixed: any extension becomes .CDM and a missing file is silence; shortcuts of shops rely on it.
void loadFromCommandLine(Session& session) {
  if (session.cmdline.size() <= 1) return;
  if (const auto path = drawingOfCommandLine(session)) {
    loadOrReport(session, *path);
  } else {
    session.store.drawingname.clear();
  }
  session.cmdline.clear();
}

void fallBackToStandardMaterial(DrawingStore& store) {
  if (!store.defaults.partmaterial.empty() || !store.materialcategory.empty()) return;
  // Fixed: the category is spelled so; setups and drawings hold it.
  store.materialcategory = "Alluminum Alloys";
  store.defaults.partmaterial = "Wrought Aluminum Alloys 5000 6000 7000 Series";
  store.parthardness.clear();
  store.materialcondition = "Cold Drawn";
  store.setupchanged = true;
}

bool isDxf(std::string_view name) {
  return upperCased(name).ends_with(kDxfExtension);
}

// Tells what fails, and goes on: whatever comes behind it is to be saved too.
template <typename Step>
void reportingFailure(Session& session, Step step) {
  try {
    step();
  } catch (const RuntimeFailure& failure) {
    session.host.failures.report(failure);
  }
}

bool wantsSetupSaved(Session& session) {
  return session.host.prompts.showMessage({.text = "  System parameters have changed!  Save now ? ",
                                           .title = {},
                                           .icon = MessageIcon::Question,
                                           .buttons = MessageButtons::YesNo}) == Answer::Yes;
}

// A setup that could not be written is asked about again: there may be room by then.
void offerToSaveSetup(Session& session) {
  while (session.store.setupchanged && wantsSetupSaved(session)) {
    reportingFailure(session, [&] { SetupTESS(session, "S"); });
  }
}

struct AskForm {
  MessageIcon icon;
  MessageButtons buttons;
};

AskForm askForm(int kind) {
  switch (kind) {
    case kAskOk:
      return {MessageIcon::None, MessageButtons::Ok};
    case kAskOkCancel:
      return {MessageIcon::None, MessageButtons::OkCancel};
    case kAskYesNoCancel:
      return {MessageIcon::Question, MessageButtons::YesNoCancel};
    default:
      throw RuntimeFailure(FailureNumber::InvalidProcedureCall, "askUser kind");
  }
}

int answerNumber(Answer answer, int kind) {
  switch (answer) {
    case Answer::Ok:
    case Answer::Yes:
      return kAnswerYes;
    case Answer::No:
      return kAnswerNo;
    case Answer::Cancel:
      break;
  }
  return kind == kAskYesNoCancel ? kAnswerCancel : kAnswerNotOk;
}

// To the trash where there is one; a file that it does not take stays.
void deleteDrawing(Session& session, const std::string& path) {
  const FilePlace place = FilePlace::ofEntry(session.host.guard, path, FileKind::Drawing);
  switch (session.host.surroundings.moveToTrash(place.path())) {
    case Trash::Taken:
      return;
    case Trash::None:
      return removeFile(session.host.guard, path, FileKind::Drawing);
    case Trash::Failed:
      session.host.prompts.showMessage(
          {.text = "The trash does not take " + path + ".\n\nThe file has not been deleted.",
           .title = "Delete File",
           .icon = MessageIcon::Warning,
           .buttons = MessageButtons::Ok});
  }
}

}  // namespace

void Main(Session& session, std::string_view commandLine, std::string_view programFolder) {
  const Procedure here("Main()");
  session.formats = {};
  session.store = DrawingStore();
  session.opened = {};
  session.starttime = session.host.clock.elapsedMilliseconds();
  session.cmdline = withoutQuotes(commandLine);
  session.startupdone = false;
  takeFolders(session, programFolder);
  load_defaults(session);
  applydefaults(session);
  readcfg(session);
  session.listener.recover();
  new_drawing(session);
  set_num_formats(session);
  putMarkerAtOrigin(session.store);
  session.listener.recover();
  session.startupdone = true;
  session.listener.resetPendingAction();
  session.listener.Update_menu_checks();
  session.listener.clearUndoMenu();
  session.listener.Clear_Paste();
  session.listener.resetUndoState();
  loadFromCommandLine(session);
}

void loadMainWindow(Session& session, std::string_view commandLine,
                    std::string_view programFolder) {
  const Procedure here("frmMain.Form_Load()");
  Main(session, commandLine, programFolder);
  session.listener.loadLayout();
  session.listener.readPressedTools();
  readRecent(session);
  // Main has blanked its own command line; what was given at the start counts here.
  if (!commandLine.empty()) {
    addRecent(session, session.store.drawingpath + session.store.drawingname);
  }
  updateStatusDisplay(session);
}

void new_drawing(Session& session) {
  const Procedure here("new_drawing()");
  DrawingStore& store = session.store;
  SessionListener& listener = session.listener;
  listener.clearUndoMenu();
  listener.UnselectAll();
  listener.Clear_Paste();
  listener.Update_menu_checks();
  store.NumSegments = 0;
  store.drawingname.clear();
  session.opened = {};
  ensureSegmentCapacity(store, 2);
  store.drawingsaved = true;
  store.savedpaths = 0;
  applydefaults(session);
  listener.moveMarker(0, 0);
  putMarkerAtOrigin(store);
  store.NumPathSegments = 0;
  store.pathgroupname.fill({});
  session.pathJobs.clear();
  listener.resetUndoState();
  listener.SetUpdatePropertyFlag(true);
  listener.UpdatePropertyWindow();
  listener.drawingReplaced();
}

void applydefaults(Session& session) {
  const Procedure here("applydefaults()");
  DrawingStore& store = session.store;
  const DrawingSettings& defaults = store.defaults;
  store.visualgrid = defaults.visualgrid;
  store.visualgridf = defaults.visualgridf;
  store.cursorgrid = defaults.cursorgrid;
  store.cursorgridf = defaults.cursorgridf;
  session.listener.UpdateGridButtons();
  store.units = defaults.units;
  store.xorigin = defaults.xorigin;
  store.yorigin = defaults.yorigin;
  store.zorigin = -1;
  store.drawingtitle = defaults.drawingtitle;
  store.designername = defaults.designername;
  store.drawingrevision = defaults.drawingrevision;
  store.creationdate = dateText(session.host.clock.now());
  fallBackToStandardMaterial(store);
  store.partmaterial = defaults.partmaterial;
  store.partdimx = defaults.partdimx;
  store.partdimy = defaults.partdimy;
  store.partdimz = partHeightOr(defaults.partdimz);
  set_num_formats(session);
}

bool isUnsaved(const Session& session) {
  const DrawingStore& store = session.store;
  return !store.drawingsaved ||
         (store.NumSegments > 0 && store.NumSegments != store.savedsegments) ||
         (store.NumPathSegments > 0 && store.NumPathSegments != store.savedpaths);
}

void countAsSaved(Session& session) {
  session.store.drawingsaved = true;
}

// Fixed: after a Yes the drawing goes even when it was not saved; scripts go on with an empty one.
void smart_New(Session& session) {
  const Procedure here("smart_New()");
  const int answer = isUnsaved(session) ? askToSave(session) : kAnswerNo;
  if (answer == kAnswerCancel) return;
  if (answer == kAnswerYes) smart_save(session);
  new_drawing(session);
  updateStatusDisplay(session);
}

// Fixed: a Yes on the way to another drawing saves and stops; operators choose Open again.
bool safe_EXIT(Session& session, bool frmunloading) {
  const Procedure here("safe_EXIT(frmunloading)");
  if (!isUnsaved(session)) {
    if (frmunloading) file_EXIT(session);
    return true;
  }
  const int answer = askToSave(session);
  if (answer != kAnswerYes) return answer == kAnswerNo;
  smart_save(session);
  return session.store.drawingsaved && frmunloading;
}

void file_EXIT(Session& session) {
  session.listener.closeMainWindow();
}

void App_EXIT(Session& session, std::string_view siblingName) {
  const Procedure here("App_EXIT(siblingName)");
  const std::string sibling = session.appfolder + std::string(siblingName) + ".exe";
  if (!fileExists(sibling)) {
    int answer = 0;
    askUser(session, "Program not found", kAskOk, answer);
    return;
  }
  const std::string drawing = session.store.drawingpath + session.store.drawingname;
  writeFile(session.host.guard, session.appfolder + "swaptmp.dat", FileKind::Record,
            onOneLine(sibling) + "\r\n" + onOneLine(drawing) + "\r\n");
  file_EXIT(session);
}

void showDrawingName(Session& session) {
  const std::string& name = session.store.drawingname;
  session.listener.DisplayedFilename("Drawing:" + (name.empty() ? "<Untitled>" : upperCased(name)));
}

void updateStatusDisplay(Session& session) {
  showDrawingName(session);
  session.listener.updateStatusDisplay();
}

void askUser(Session& session, const std::string& text, int kind, int& answer) {
  const Procedure here("askUser(text,kind,answer)");
  const AskForm form = askForm(kind);
  const Answer given = session.host.prompts.showMessage(
      {.text = text, .title = {}, .icon = form.icon, .buttons = form.buttons});
  answer = answerNumber(given, kind);
}

void mnuFileOpen_Click(Session& session) {
  const Procedure here("mnuFileOpen_Click()");
  if (safe_EXIT(session, false) && select_file(session)) load_Drawing(session);
}

// Fixed: unsaved work is not asked about; scripts would stop at the question.
void openRecentFile(Session& session, std::string_view toolName) {
  const Procedure here("openRecentFile(toolName)");
  const int slot = toolName.empty() ? 0 : toolName.back() - '0';
  if (slot < 1 || slot > kRecentFiles) return;
  const std::string path = session.recentfiles[static_cast<std::size_t>(slot - 1)];
  if (trimmed(path).empty()) return;
  select(session, path);
  load_Drawing(session);
}

// The first of the names that is a file, given its kind's extension.
std::optional<std::string> droppedFile(std::span<const std::string> names) {
  for (const std::string& dropped : names) {
    std::string folder;
    const std::string name =
        splitPath(folder, dropped, isDxf(trimmed(dropped)) ? kDxfExtension : kDrawingExtension);
    if (fileExists(folder + name)) return fullPath(folder + name);
  }
  return std::nullopt;
}

void dropFiles(Session& session, std::span<const std::string> names) {
  const Procedure here("dropFiles(names)");
  if (!safe_EXIT(session, false)) return;
  const auto path = droppedFile(names);
  if (!path) return;
  if (isDxf(*path)) {
    session.listener.importDxf(*path);
    return;
  }
  select(session, *path);
  load_Drawing(session);
  showDrawingName(session);
}

// Fixed: only the .CDM goes; who deletes by mistake still has the paths.
void mnuFileDelete_Click(Session& session) {
  const Procedure here("mnuFileDelete_Click()");
  const std::string drawingname = session.store.drawingname;
  if (select_file(session, "&Delete")) {
    deleteDrawing(session, session.selectedfolder + session.selectedname);
  }
  session.store.drawingname = drawingname;
}

void Form_Unload(Session& session) {
  const Procedure here("frmMain.Form_Unload()");
  reportingFailure(session, [&] { session.listener.saveLayout(); });
  offerToSaveSetup(session);
  session.listener.unloadOtherWindows();
  writeRecent(session);
}

// ---- Descriptors

constexpr SessionCommand kNewCommand{
    .info = {.tool = "miNew",
             .caption = "&New",
             .menu = {"miFile", 110},
             .bar = {"barFile", 110},
             .touches = TouchedFiles::Drawing},
    .run = smart_New,
};

constexpr SessionCommand kOpenCommand{
    .info = {.tool = "miOpen",
             .caption = "&Open...",
             .menu = {"miFile", 120},
             .bar = {"barFile", 120},
             .touches = TouchedFiles::Drawing},
    .run = mnuFileOpen_Click,
};

constexpr SessionCommand kDeleteFileCommand{
    .info = {.tool = "miDeleteFile", .caption = "&Delete File...", .menu = {"miFile", 230}},
    .run = mnuFileDelete_Click,
};

constexpr SessionCommand kExitCommand{
    .info = {.tool = "miExit",
             .caption = "E&xit",
             .menu = {"miFile", 510},
             .touches = TouchedFiles::Drawing},
    .run = file_EXIT,
};

}  // namespace tess
