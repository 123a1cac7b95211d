// Setup files, the file that names the one in force, and the branding file.
#include "core/setup_file.h"

#include <optional>

#include "core/core_commands.h"
#include "core/cut_width.h"
#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/lifecycle.h"
#include "core/number_text.h"
#include "core/settings.h"
#include "core/text.h"
#include "core/units.h"
#include "core/version.h"

namespace tess {
namespace {

constexpr char kDefaultsVersion[] = "1.0";
constexpr char kFirstSetupName[] = "Mill";
constexpr char kToolRow[] = "tool #";
constexpr char kCycleRow[] = "cycle #";
constexpr float kSmallestTolerance = 0.0001F;

std::string defaultsFile(const Session& session) {
  return session.appfolder + "tess.def";
}
std::string brandingFile(const Session& session) {
  return session.appfolder + "tess.cfg";
}
// Fixed: always beside the program, whatever folder was chosen; tess.def holds a bare name.
std::string setupFile(const Session& session) {
  return session.appfolder + session.setupname;
}

void nameSetup(Session& session, const std::string& path) {
  session.setuppath = path;
  session.setupname = fileNameOf(path);
}

void nameSetupIfBlank(Session& session) {
  const bool blank = trimmed(session.setuppath).empty();
  nameSetup(session, blank ? session.appfolder + kFirstSetupName : session.setuppath);
}

// Where an operator looks when the setup is not there.
std::string whereNamed(const Session& session) {
  return session.setupplace.empty() ? "looked for as " + setupFile(session)
                                    : "named in " + session.setupplace;
}

// An entry "key = value"; the key in lower case.
struct Entry {
  std::string key;
  std::string_view value;
};

std::optional<Entry> entryIn(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  return Entry{lowerCased(trimmed(text.substr(0, equals))), trimmed(text.substr(equals + 1))};
}

// The reading of one setup file: which tool and which cycle the entries belong to.
class SetupReading {
 public:
  explicit SetupReading(DrawingStore& store) : store_(store) {}

  // False for an unknown key.
  bool enter(const Entry& entry) {
    if (entry.key == kToolRow) return openTool(rowOf(entry.value));
    if (entry.key == kCycleRow) return openCycle(rowOf(entry.value));
    if (const SettingRow* setting = findSetting(entry.key)) {
      readSetting(store_, *setting, entry.value);
      return true;
    }
    return enterRow(toolSettings(), tool_, entry) || enterRow(cycleSettings(), cycle_, entry);
  }

 private:
  // Files count rows from 1.
  static int rowOf(std::string_view value) { return Int16(parseInteger(value)) - 1; }

  bool openTool(int row) {
    tool_ = row;
    return true;
  }

  bool openCycle(int row) {
    cycle_ = row;
    if (row < store_.NumCycles) return true;
    store_.NumCycles = row + 1;
    resizeCycles(store_, store_.NumCycles);
    return true;
  }

  bool enterRow(std::span<const RowSetting> settings, int row, const Entry& entry) {
    const RowSetting* setting = findRowSetting(settings, entry.key);
    if (setting != nullptr) readRowSetting(store_, *setting, row, entry.value);
    return setting != nullptr;
  }

  DrawingStore& store_;
  int tool_ = 0;
  int cycle_ = 0;
};

// The chest and the cycles are those of the file, and none of an earlier setup's.
void clearRows(DrawingStore& store) {
  store.toolname.fill({});
  store.toolinside.fill(0);
  store.NumCycles = 0;
  resizeCycles(store, 0);
  for (const RowSetting& setting : cycleSettings()) readRowSetting(store, setting, 0, {});
}

void showUnknownEntry(Session& session, const std::string& line, const std::string& place) {
  session.host.prompts.showMessage({.text = "Unknown setup file entry: \n" + line +
                                            "\n\nPress OK to continue loading.\n" + place,
                                    .title = {},
                                    .icon = MessageIcon::Warning});
}

void readEntries(Session& session, FieldReader& fields) {
  SetupReading reading(session.store);
  while (!fields.atEnd()) {
    const std::string place = fields.place();
    const std::string line = fields.readText();
    const auto entry = entryIn(line);
    if (!entry) continue;
    try {
      if (!reading.enter(*entry)) showUnknownEntry(session, line, place);
    } catch (const RuntimeFailure& failure) {
      throw RuntimeFailure(failure.number(), place);
    }
    session.host.surroundings.serveEvents();
  }
}

// A chest whose selected tool has no radius is no reason to go without the rest of the setup.
void settleCutWidthOrReport(Session& session) {
  try {
    settleCutWidth(session.store);
  } catch (const RuntimeFailure& failure) {
    session.host.failures.report(failure);
  }
}

void putSetupInForce(Session& session) {
  DrawingStore& store = session.store;
  settleCutWidthOrReport(session);
  // Fixed: a tolerance of 0 counts as 0.0001; setups with 0 would join no ends.
  if (store.cfg_tolerance <= 0) store.cfg_tolerance = kSmallestTolerance;
  store.colorsinuse = store.colortable;
  session.listener.load_xsetup();
  set_num_formats(session);
  session.listener.UpdateGridButtons();
  session.listener.Update_menu_checks();
}

void appendRow(std::string& out, const DrawingStore& store, const char* rowKey,
               std::span<const RowSetting> settings, int row) {
  appendSetupEntry(out, rowKey, signBlankText(row + 1));
  for (const RowSetting& setting : settings) appendRowSetting(out, store, setting, row);
}

void loadSetupFile(Session& session) {
  FieldReader fields = FieldReader::open(setupFile(session), kLargestSettings);
  readSetup(session, fields);
}

void saveSetupFile(Session& session) {
  writeFile(session.host.guard, setupFile(session), FileKind::Setup, setupText(session));
  session.store.setupchanged = false;
}

}  // namespace

void SetupTESS(Session& session, std::string_view saveOrLoad) {
  const Procedure here("SetupTESS(SaveOrLoad$)");
  if (saveOrLoad == "L") loadSetupFile(session);
  if (saveOrLoad == "S") saveSetupFile(session);
}

void readSetup(Session& session, FieldReader& fields) {
  const Procedure here("readSetup(fields)");
  // Fixed: any setup that is read resets object snap; operators choose their features after it.
  session.listener.resetObjectSnap();
  session.store.setupchanged = false;
  clearRows(session.store);
  clearOptionalSettings(session.store);
  readEntries(session, fields);
  putSetupInForce(session);
}

// Fixed: live values are written where readers fill defaults; a setup carries the last job on.
std::string setupText(Session& session) {
  DrawingStore& store = session.store;
  store.partdimz = partHeightOr(store.partdimz);
  std::string out;
  for (const SettingRow& setting : settingRows()) appendSetting(out, store, setting);
  for (int row = 0; row < store.NumCycles; ++row) {
    appendRow(out, store, kCycleRow, cycleSettings(), row);
  }
  for (int row = 0; row <= kLastWrittenTool; ++row) {
    if (trimmed(store.toolname[row]).empty()) continue;
    appendRow(out, store, kToolRow, toolSettings(), row);
    session.host.surroundings.serveEvents();
  }
  return out;
}

void load_defaults(Session& session) {
  const Procedure here("load_defaults()");
  FieldReader fields = FieldReader::open(defaultsFile(session), kLargestSettings);
  fields.readText();  // the version, which nobody asks for
  session.setupplace = fields.place();
  session.setuppath = fields.readText();
  load_setup(session);
}

void load_setup(Session& session) {
  const Procedure here("load_setup()");
  nameSetup(session, session.setuppath);
  if (!fileExists(session.setuppath) && !fileExists(setupFile(session))) {
    const std::string text =
        "Could not find setup file: " + session.setuppath + "\n" + whereNamed(session);
    session.host.surroundings.printOnMainWindow(text);
    throw EndProgram(text);
  }
  SetupTESS(session, "L");
}

void changeSetup(Session& session, const std::string& path) {
  session.setuppath = path;
  session.setupplace.clear();
  load_setup(session);
  applydefaults(session);
}

bool saveBeforeSetup(Session& session) {
  if (!isUnsaved(session)) return true;
  int answer = 0;
  askUser(session, "Drawing not saved! Save now?", kAskYesNoCancel, answer);
  if (answer == kAnswerYes) smart_save(session);
  return !isUnsaved(session);
}

void save_defaults(Session& session) {
  const Procedure here("save_defaults()");
  nameSetupIfBlank(session);
  writeFile(session.host.guard, defaultsFile(session), FileKind::Setup,
            std::string(kDefaultsVersion) + "\r\n" + onOneLine(session.setupname) + "\r\n");
  SetupTESS(session, "S");
}

void save_setup_As(Session& session) {
  const Procedure here("save_setup_As()");
  const auto path = session.host.prompts.chooseFile({.title = "Save Setup As",
                                                     .pattern = "Setup Files (*.msu)|*.msu",
                                                     .folder = session.appfolder,
                                                     .name = session.setupname,
                                                     .forSaving = true});
  if (!path) return;
  std::string folder = session.appfolder;
  const std::string name = splitPath(folder, *path, "MSU");
  if (name.empty()) return;
  if (fileExists(folder + name)) {
    int answer = 0;
    askUser(session, "File already exists! Overwrite?", kAskYesNoCancel, answer);
    // Fixed: a No asks for the drawing's name next, not the setup's again; operators know it so.
    if (answer == kAnswerNo) save_file_As(session);
    if (answer != kAnswerYes) return;
  }
  // Fixed: the setup's folder becomes the drawing's; the next drawing is offered there.
  session.store.drawingpath = folder;
  nameSetup(session, folder + name);
  session.setupplace.clear();
  SetupTESS(session, "S");
}

void readcfg(Session& session) {
  const Procedure here("readcfg()");
  const bool branded = fileExists(brandingFile(session));
  FieldReader fields =
      branded ? FieldReader::open(brandingFile(session), kLargestSettings) : FieldReader({}, {});
  readBranding(session, fields);
  session.listener.brandingRead();
}

void readBranding(Session& session, FieldReader& fields) {
  session.productname.clear();
  session.companyname.clear();
  while (!fields.atEnd()) {
    const std::string line = fields.readLine();
    const auto entry = entryIn(line);
    if (!entry) continue;
    if (entry->key == "oem name") session.productname = entry->value;
    if (entry->key == "oem company") session.companyname = entry->value;
  }
  if (session.productname.empty()) session.productname = kProductName;
}

void mnuOptionLoadSetup_Click(Session& session) {
  const Procedure here("mnuOptionLoadSetup_Click()");
  if (!saveBeforeSetup(session)) return;
  const auto path = session.host.prompts.chooseFile({.title = "Setup File Selector",
                                                     .pattern = "*.MSU",
                                                     .folder = session.appfolder,
                                                     .name = {}});
  if (!path || path->empty()) return;
  changeSetup(session, *path);
  session.listener.setupChosen();
  updateStatusDisplay(session);
}

void mnuOptionsSaveSetup_Click(Session& session) {
  const Procedure here("mnuOptionsSaveSetup_Click()");
  nameSetupIfBlank(session);
  SetupTESS(session, "S");
}

void mnuOptionsSaveSetupAs_Click(Session& session) {
  save_setup_As(session);
}

void mnuOptionsSaveAsDefault_Click(Session& session) {
  const Procedure here("mnuOptionsSaveAsDefault_Click()");
  save_defaults(session);
  load_defaults(session);
}

void mnuOptionsRevertSaved_Click(Session& session) {
  const Procedure here("mnuOptionsRevertSaved_Click()");
  int answer = 0;
  askUser(session, "Changes will be lost! Load defaults from disk now?", kAskOkCancel, answer);
  if (answer != kAnswerOk) return;
  load_defaults(session);
  applydefaults(session);
  session.listener.recover();
}

// ---- Descriptors

constexpr SessionCommand kSaveAsDefaultCommand{
    .info = {.tool = "miSaveAsDefault",
             .caption = "Save as &Default",
             .menu = {"miOptions", 210},
             .touches = TouchedFiles::Setup},
    .run = mnuOptionsSaveAsDefault_Click,
};

constexpr SessionCommand kRevertToDefaultsCommand{
    .info = {.tool = "miReverttoSavedDefaults",
             .caption = "&Revert to Saved Defaults",
             .menu = {"miOptions", 220}},
    .run = mnuOptionsRevertSaved_Click,
};

constexpr SessionCommand kLoadSetupCommand{
    .info = {.tool = "miLoadSetup",
             .caption = "&Load Setup...",
             .menu = {"miOptions", 230},
             .touches = TouchedFiles::Drawing},
    .run = mnuOptionLoadSetup_Click,
};

constexpr SessionCommand kSaveSetupCommand{
    .info = {.tool = "miSaveSetup",
             .caption = "&Save Setup",
             .menu = {"miOptions", 240},
             .touches = TouchedFiles::Setup},
    .run = mnuOptionsSaveSetup_Click,
};

constexpr SessionCommand kSaveSetupAsCommand{
    .info = {.tool = "miSaveSetupAs", .caption = "Save Setup &As...", .menu = {"miOptions", 250}},
    .run = mnuOptionsSaveSetupAs_Click,
};

}  // namespace tess
