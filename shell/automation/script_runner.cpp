// The run of a script: bring the program up, bind the names, load the text, call it, and say what
// went wrong.
#include "shell/automation/script_runner.h"

#include <chrono>
#include <optional>
#include <ostream>
#include <sstream>
#include <utility>

#include "core/file_system.h"
#include "shell/automation/bindings.h"
#include "shell/automation/near_match.h"
#include "shell/automation/progress.h"
#include "shell/automation/reports.h"
#include "shell/virtual_screen.h"

namespace tess {
namespace {

// The names that an operator may have meant with an unknown global.
std::string globalMeant(lua_State* L, const std::string& name) {
  lua_pushglobaltable(L);
  const std::string hint = didYouMean(name, keysOf(L, lua_gettop(L)));
  lua_pop(L, 1);
  return hint;
}

// A hint behind Lua's message about a global that does not exist.
std::string globalHint(lua_State* L, const std::string& message) {
  constexpr std::string_view kMark = "a nil value (global '";
  const std::size_t at = message.find(kMark);
  if (at == std::string::npos) return {};
  const std::size_t begin = at + kMark.size();
  const std::string name = message.substr(begin, message.find('\'', begin) - begin);
  for (const std::string_view library : {"io", "os", "package", "require"}) {
    if (name == library) return " (it needs --allow-io in front of --run)";
  }
  return globalMeant(L, name);
}

// The line of the innermost function of the script, as Lua itself would put it; "" for none.
std::string placeOf(lua_State* L, const std::string& message) {
  lua_Debug level{};
  std::string place;
  for (int depth = 0; lua_getstack(L, depth, &level) != 0; ++depth) {
    lua_getinfo(L, "Sl", &level);
    if (level.currentline <= 0) continue;
    const std::string source = std::string(level.short_src) + ":";
    if (message.starts_with(source)) return {};  // it is there already
    if (place.empty()) place = source + std::to_string(level.currentline) + ": ";
  }
  return place;
}

// The message handler: any error value becomes a text that says where.
int describeError(Script& /*script*/, lua_State* L) {
  std::string message;
  if (lua_type(L, 1) == LUA_TSTRING || luaL_getmetafield(L, 1, "__tostring") != LUA_TNIL) {
    message = luaL_tolstring(L, 1, nullptr);
  } else {
    message = std::string("the error is a ") + luaL_typename(L, 1) + " value";
  }
  push(L, placeOf(L, message) + message + globalHint(L, message));
  return 1;
}

// The name of a script as Lua's messages have it: of a long one only the end.
std::string shortName(const std::string& path) {
  constexpr std::size_t kLongest = LUA_IDSIZE - 1;
  constexpr std::string_view kDots = "...";
  if (path.size() <= kLongest) return path;
  return std::string(kDots) + path.substr(path.size() - (kLongest - kDots.size()));
}

// What the operator reads of an error: always the script's whole name, with the line where Lua
// tells it. The end of the program and a failed start are not the script's affair.
std::string failureLine(const Script& script, const std::string& message, const std::string& path) {
  if (script.programEnd || !script.started) return script.programEnd.value_or(message);
  const std::string name = shortName(path);
  if (message.starts_with(name + ":")) return path + message.substr(name.size());
  return path + ": " + message;
}

void setArguments(lua_State* L, const ScriptJob& job) {
  lua_newtable(L);
  push(L, job.path);
  lua_rawseti(L, -2, 0);
  lua_Integer place = 0;
  for (const std::string& argument : job.arguments) {
    push(L, argument);
    lua_rawseti(L, -2, ++place);
  }
  lua_setglobal(L, "arg");
}

// The text without a byte-order mark, and without a first line that names an interpreter.
std::string_view luaText(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  if (!text.starts_with('#')) return text;
  const std::size_t end = text.find('\n');
  return end == std::string_view::npos ? std::string_view() : text.substr(end);
}

struct Run {
  const ScriptParts& parts;
  const ScriptJob& job;
  std::string_view text;
};

// A failure on the way up ends the script, but the log shall have it too.
void startProgram(Script& script, const std::function<void()>& start) {
  try {
    start();
  } catch (const RuntimeFailure& failure) {
    script.host.reporting.report(failure);
    throw;
  }
  script.hand.settle();
}

// Everything from the program's start to the script's end, inside Lua's protection.
int runAll(Script& script, lua_State* L) {
  const Run& run = *static_cast<const Run*>(lua_touserdata(L, 1));
  openScriptLibraries(L, run.job.fileAccess);
  bindPrompts(L);
  startProgram(script, run.parts.start);
  bindStore(L);
  bindRows(L);
  bindGeometry(L);
  bindRoutines(L);
  bindFileCommands(L);
  bindState(L);
  bindEvents(L);
  bindViews(L);
  bindReport(L);
  bindProof(L);
  setArguments(L, run.job);
  script.started = true;
  limitInstructions(L, run.job.limits.instructions);
  script.watchdog.start();
  const std::string_view text = luaText(run.text);
  const std::string name = "@" + run.job.path;
  if (luaL_loadbufferx(L, text.data(), text.size(), name.c_str(), "t") != LUA_OK) lua_error(L);
  lua_call(L, 0, 0);
  return 0;
}

// The error text of the run; nothing when it went through.
std::optional<std::string> protectedRun(lua_State* L, Run run) {
  lua_pushcfunction(L, guarded<describeError>);
  lua_pushcfunction(L, guarded<runAll>);
  lua_pushlightuserdata(L, &run);
  if (lua_pcall(L, 1, 0, 1) == LUA_OK) return std::nullopt;
  const char* const message = lua_tostring(L, -1);
  return message == nullptr ? "unknown error" : message;
}

std::string folderOf(const ScriptJob& job) {
  std::string folder;
  splitPath(folder, fullPath(job.path), "lua");
  return folder;
}

ExitStatus fail(std::ostream& err, std::string_view text) {
  say(err, text);
  return ExitStatus::JobFailed;
}

// Whatever tells the script of events holds its state, which does not outlive it.
class Attached {
 public:
  explicit Attached(const ScriptParts& parts) : parts_(parts) {}
  ~Attached() {
    parts_.application.interaction.statusBar.onText = nullptr;
    parts_.host.surroundings.onBeep = nullptr;
    parts_.host.surroundings.onServe = nullptr;
    parts_.host.prompts.detach();
    parts_.host.guard.detach();
    parts_.host.programs.detach();
    parts_.host.prompts.stage = nullptr;
  }
  Attached(const Attached&) = delete;
  Attached& operator=(const Attached&) = delete;

 private:
  const ScriptParts& parts_;
};

// With the finalisers of what it leaves behind.
std::optional<std::string> runToItsEnd(Script& script, const Run& run) {
  const LuaState state(run.job.limits);
  const Attached attached(run.parts);
  run.parts.host.prompts.stage = &run.parts.stage;
  run.parts.host.surroundings.onServe = [&] { requireTime(state.get()); };
  setScript(state.get(), script);
  return protectedRun(state.get(), run);
}

// The script's own clock stands still meanwhile.
double realMilliseconds() {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(since).count();
}

}  // namespace

AllowedFolders foldersOf(const ScriptJob& job) {
  AllowedFolders folders;
  folders.allow(folderOf(job));
  folders.allow(job.appfolder + "CNC");
  folders.setProgramFolder(job.appfolder);
  for (const std::string& folder : job.folders) folders.allow(folder);
  for (const std::string& argument : job.arguments) folders.allowNamedBy(argument);
  return folders;
}

std::optional<std::string> readScript(const ScriptJob& job, std::ostream& err) {
  try {
    return readFile(job.path, kLargestScript);
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    const bool folder = folderExists(job.path);
    say(err, job.path + ": " + (folder ? "it is a folder" : failure.description()));
    return std::nullopt;
  }
}

ExitStatus runScript(const ScriptJob& job, const PictureWriter& writePicture, std::ostream& out,
                     std::ostream& err) {
  const std::optional<std::string> text = readScript(job, err);
  return text ? runScriptText(job, *text, writePicture, out, err) : ExitStatus::JobFailed;
}

ExitStatus runScriptText(const ScriptJob& job, std::string_view text,
                         const PictureWriter& writePicture, std::ostream& out, std::ostream& err) {
  const AllowedFolders folders = foldersOf(job);
  VirtualScreen screen(job.size);
  VirtualClock clock(screen.timers, job.date);
  QuietSurroundings surroundings;
  ScriptHost host(folders, clock, surroundings);
  host.reporting.setFolder(job.appfolder);
  Application application({.host = host.host,
                           .reporting = host.reporting,
                           .screen = screen.ports,
                           .jetReader = job.jetReader,
                           .others = &host.programs,
                           .userfolder = job.userfolder,
                           .paper = job.paper});
  screen.pointer.onArrival = [&](int pixelX, int pixelY) {
    deliverArrival(application, pixelX, pixelY);
  };
  std::optional<Progress> progress;
  if (job.showProgress) {
    progress.emplace(err, realMilliseconds);
    surroundings.onServe = [&] { progress->show(application.interaction.statusBar.text()); };
  }
  VirtualTime time(screen.timers);
  ClosingStage stage(application);
  const ScriptParts parts{.application = application,
                          .host = host,
                          .time = time,
                          .stage = stage,
                          .writePicture = writePicture,
                          .folders = folders,
                          .start = [&] { application.start(/*drawing=*/"", job.appfolder); }};
  std::ostringstream said;  // what the script ends with stands on a line of its own
  const ExitStatus status = runScriptOn(parts, job, text, out, said);
  surroundings.onServe = nullptr;
  progress.reset();
  err << said.str();
  if (status != ExitStatus::Done) return status;
  for (const std::string& notice : surroundings.printed) say(err, notice);
  return status;
}

ExitStatus runScriptOn(const ScriptParts& parts, const ScriptJob& job, std::string_view text,
                       std::ostream& out, std::ostream& err) {
  Watchdog watchdog(job.timeout, [&] {
    exitAtOnce("tessimo: " + oneLine(job.path + ": " + watchdog.complaint()));
  });
  parts.host.allowOtherPrograms(job.fileAccess);
  ScriptHand hand(parts.application, parts.host, parts.time, parts.stage);
  Script script{.application = parts.application,
                .host = parts.host,
                .hand = hand,
                .writePicture = parts.writePicture,
                .folders = parts.folders,
                .out = out,
                .watchdog = watchdog,
                .path = job.path,
                .folder = folderOf(job)};
  const auto error = runToItsEnd(script, {parts, job, text});
  out.flush();
  if (error && !script.closed) return fail(err, failureLine(script, *error, job.path));
  if (!out) return fail(err, job.path + ": standard output cannot be written");
  return ExitStatus::Done;
}

}  // namespace tess
