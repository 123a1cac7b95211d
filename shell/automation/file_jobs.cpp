// The jobs that turn a drawing into a CNC program or a picture.
#include "shell/automation/file_jobs.h"

#include <ostream>
#include <stdexcept>

#include "cnc/machine_kind.h"
#include "cnc/program_target.h"
#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/form.h"
#include "core/setup_file.h"
#include "core/text.h"
#include "display/drawing_extents.h"
#include "shell/application.h"
#include "shell/automation/message_buttons.h"
#include "shell/automation/reports.h"
#include "shell/automation/script_host.h"
#include "shell/printing.h"
#include "shell/virtual_screen.h"
#include "tools/tool_library.h"

namespace tess {
namespace {

constexpr char kSetupExtension[] = ".MSU";
constexpr int kRedrawTime = 1000;  // milliseconds: more than the stages of a redraw take

struct ProgramJob {
  std::string file;
  std::string appfolder;
  PixelSize size;
  std::optional<DateTime> date;
  std::string setup{};  // empty: the one in force
};

// A reason why the job cannot be done.
class JobFailure : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Nobody is there to answer: messages get their first button and are kept.
class JobPrompts : public Prompts {
 public:
  Answer showMessage(const Message& message) override {
    texts.push_back(message.text);
    return firstButton(message.buttons);
  }
  std::optional<std::string> chooseFile(const FileRequest& /*request*/) override { return {}; }
  void showModal(Form& form) override { form.pressCancel(); }

  std::vector<std::string> texts;
};

// What a routine survives, it reports here: worth a line, but no end of the job.
class JobFailures : public FailureSink {
 public:
  JobFailures(HuntERR& reporting, std::vector<std::string>& texts)
      : reporting_(reporting), texts_(texts) {}
  void report(const RuntimeFailure& failure) override {
    reporting_.report(failure);
    texts_.push_back(describe(failure));
  }

 private:
  HuntERR& reporting_;
  std::vector<std::string>& texts_;
};

// Reports go to the log; the job tells of its failures itself.
ErrorReporting quietReporting() {
  ErrorReporting reporting;
  reporting.display = ReportDisplay::None;
  reporting.offersRetry = false;
  return reporting;
}

struct JobHost {
  JobHost(const VirtualTimers& timers, std::optional<DateTime> date) : clock(timers, date) {}

  JobPrompts prompts;
  VirtualClock clock;
  QuietSurroundings surroundings;
  HuntERR reporting{prompts, clock, quietReporting()};
  JobFailures failures{reporting, prompts.texts};
  NoGuard guard;
  Host host{prompts, clock, surroundings, failures, guard};
};

std::string lastOf(const std::vector<std::string>& texts) {
  return texts.empty() ? std::string() : texts.back();
}

void load(Application& application, const JobPrompts& prompts, const std::string& drawing) {
  Session& session = application.session;
  session.opensToRead = true;
  const std::string path = fullPath(drawing);
  if (folderExists(path)) throw JobFailure("it is a folder");
  session.selectedname = splitPath(session.selectedfolder, path, "CDM");
  load_Drawing(session);
  // A drawing that does not open leaves the untitled one and a message.
  if (application.store.drawingname.empty()) throw JobFailure(lastOf(prompts.texts));
}

std::string setupsOf(const std::string& folder) {
  std::string names;
  for (const std::string& file : listFolder(folder).files) {
    if (!upperCased(file).ends_with(kSetupExtension)) continue;
    names += (names.empty() ? "" : ", ") + file;
  }
  return names.empty() ? "none" : names;
}

// Setups are looked for in the program's folder alone, as everywhere.
void useSetup(Session& session, const std::string& setup) {
  std::string folder;
  const std::string name = splitPath(folder, setup, kSetupExtension);
  if (!folder.empty() || name.empty() || !fileExists(session.appfolder + name)) {
    throw JobFailure("the program's folder has no setup " + setup + " (there are " +
                     setupsOf(session.appfolder) + ")");
  }
  changeSetup(session, session.appfolder + name);
}

constexpr char kForced[] = " (--force writes over it)";

void requireSound(const PostDefinition& definition) {
  if (definition.damage.empty()) return;
  throw JobFailure("the definition is damaged: " + definition.damage +
                   " (--force makes the program all the same)");
}

void requireReplaceable(const DrawingStore& store, const std::string& file) {
  if (const auto kept = keptAt(store, file)) throw JobFailure(file + " " + *kept + kForced);
}

void requireMachine(const DrawingStore& store, CncMode mode) {
  if (mode != CncMode::Mill || !hasLatheRapids(store)) return;
  throw JobFailure(otherMachine(store, mode) + " (--force makes the program all the same)");
}

std::string make(Application& application, const CncJob& job) {
  const DrawingStore& store = application.store;
  if (store.NumPathSegments == 0) throw JobFailure("No Path Segments Placed!");
  const std::string file = job.output.empty() ? programFile(store) : job.output;
  if (!job.force) {
    requireSound(application.definition);
    requireMachine(store, job.mode);
    requireReplaceable(store, file);
  }
  make_cnc(application.session, application.definition, application.cnc, job.mode,
           {.path = file, .overDrawing = job.force});
  return file;
}

// The whole drawing is to be seen, however far it reaches beyond the stock.
void showAll(Application& application) {
  const auto extents = GetDrawingExtents(application.store);
  if (!extents) return;
  const View& view = application.interaction.view;
  const WorldRect seen = visibleRectangle(view, view.viewspan);
  const bool all = extents->minx >= seen.left && extents->maxx <= seen.right &&
                   extents->miny >= seen.bottom && extents->maxy <= seen.top;
  if (!all) application.interaction.viewCommands.ZoomExtents();
}

// The full path of a picture or print; an extension is added to a name without one.
std::string pathBeside(const Application& application, const std::string& file, bool force,
                       const char* extension) {
  std::string folder;
  const std::string name = splitPath(folder, file, extension);
  std::string path = folder + name;
  if (!force && isOfDrawing(application.store, path)) {
    throw JobFailure(file + " is a file of the drawing itself" + kForced);
  }
  return path;
}

void plot(Application& application, const PlotJob& job, const PictureWriter& writePicture) {
  const std::string path = pathBeside(application, job.picture, job.force, "PNG");
  application.store.showpaths = 1;
  if (isVectorPicture(path)) return writeVectorPicture(application.session, path);
  if (!writePicture) throw JobFailure("this program writes no pictures");
  showAll(application);
  writePicture(application, path, job.size);
}

void print(Application& application, const PrintJob& job) {
  if (job.paper == nullptr) throw JobFailure("this program prints nothing");
  const Session& session = application.session;
  const std::string path = pathBeside(application, job.file, job.force, "PDF");
  application.store.showpaths = 1;
  ScaledPrint print;
  print.scale = job.scale;
  print.page = pageSetupOf(session);
  if (job.sheet) print.page.paper = paperNamed(*job.sheet)->name;
  job.paper->compose(scaledDocument(session, print));
  writeFile(session.host.guard, path, FileKind::Picture, job.paper->pdf());
}

// A program that has been brought up for a job.
struct JobRun {
  Application& application;
  const JobPrompts& prompts;
  VirtualTimers& timers;
};

// Brings the program up on a screen that nobody sees, does something with it, and tells what went
// wrong with the file that the job is about.
ExitStatus withProgram(const ProgramJob& job, std::ostream& err,
                       const std::function<void(const JobRun&)>& work) {
  VirtualScreen screen(job.size);
  JobHost host(screen.timers, job.date);
  host.reporting.setFolder(job.appfolder);
  Application application({host.host, host.reporting, screen.ports});
  std::string subject;  // what a failure is about
  const auto fail = [&](const std::string& reason) {
    say(err, subject + reason);
    return ExitStatus::JobFailed;
  };
  try {
    application.start(/*drawing=*/"", job.appfolder);
    subject = job.file + ": ";
    work({application, host.prompts, screen.timers});
  } catch (const RuntimeFailure& failure) {
    host.reporting.report(failure);
    return fail(describe(failure));
  } catch (const std::runtime_error& failure) {  // JobFailure, EndProgram
    return fail(failure.what());
  }
  for (const std::string& text : host.surroundings.printed) say(err, text);
  for (const std::string& text : host.prompts.texts) say(err, text);
  return ExitStatus::Done;
}

ExitStatus withDrawing(const ProgramJob& job, std::ostream& err,
                       const std::function<void(Application&)>& work) {
  return withProgram(job, err, [&](const JobRun& run) {
    if (!job.setup.empty()) useSetup(run.application.session, job.setup);
    load(run.application, run.prompts, job.file);
    run.timers.advance(kRedrawTime);
    work(run.application);
  });
}

// ---- The tool chest

void requireLibrary(const std::string& file) {
  if (toolLibraryFormat(file)) return;
  throw JobFailure("a tool library is a .csv file or a tool table, .tbl");
}

// A table keeps what it holds besides; of a CSV file nothing would be left.
void requireReplaceableLibrary(const std::string& file) {
  const bool other = toolLibraryFormat(file) == ToolLibraryFormat::Csv && fileExists(file) &&
                     !isToolCsv(readFile(file));
  if (other) throw JobFailure(std::string("it holds no tools") + kForced);
}

void exportToolChest(Application& application, const ToolsJob& job) {
  requireLibrary(job.file);
  if (!job.force) requireReplaceableLibrary(job.file);
  writeFile(application.session.host.guard, job.file, FileKind::ToolLibrary,
            exportedTools(application.store, job.file));
}

// The setup in force takes over what can be taken.
ToolImport importToolChest(Application& application, const ToolsJob& job) {
  requireLibrary(job.file);
  ToolImport result = importTools(application.store, job.file);
  if (result.tools > 0) SetupTESS(application.session, "S");
  return result;
}

}  // namespace

ExitStatus makeCncFile(const CncJob& job, std::ostream& out, std::ostream& err) {
  return withDrawing({job.drawing, job.appfolder, {}, job.date, job.setup}, err,
                     [&](Application& application) {
                       const std::string file = make(application, job);
                       if (job.output.empty()) out << file << '\n';
                     });
}

ExitStatus exchangeTools(const ToolsJob& job, std::ostream& out, std::ostream& err) {
  ToolImport result;
  std::string setup;
  const ExitStatus status =
      withProgram({job.file, job.appfolder, {}, {}}, err, [&](const JobRun& run) {
        setup = run.application.session.appfolder + run.application.session.setupname;
        if (job.imports) {
          result = importToolChest(run.application, job);
        } else {
          exportToolChest(run.application, job);
        }
      });
  for (const std::string& problem : result.problems) say(err, problem);
  if (result.tools > 0) out << setup << '\n';
  return result.problems.empty() ? status : ExitStatus::JobFailed;
}

ExitStatus writePrint(const PrintJob& job, std::ostream& err) {
  return withDrawing({job.drawing, job.appfolder, {}, {}}, err,
                     [&](Application& application) { print(application, job); });
}

ExitStatus writePlot(const PlotJob& job, const PictureWriter& writePicture, std::ostream& err) {
  return withDrawing({job.drawing, job.appfolder, job.size, job.date}, err,
                     [&](Application& application) { plot(application, job, writePicture); });
}

ExitStatus checkPaths(const CheckJob& job, std::ostream& out, std::ostream& err) {
  bool passed = true;
  const ExitStatus status =
      withDrawing({job.drawing, job.appfolder, {}, {}}, err, [&](Application& application) {
        const PathProof proof = application.proofWatch.prove();
        out << proofText(proof);
        passed = !proof.isBeyondLimits();
      });
  return passed ? status : ExitStatus::JobFailed;
}

}  // namespace tess
