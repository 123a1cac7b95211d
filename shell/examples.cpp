// The list of the examples, their copies, and the command that opens one.
#include "shell/examples.h"

#include <filesystem>

#include "core/drawing_file.h"
#include "core/drawing_format.h"
#include "core/drawing_store.h"
#include "core/field_reader.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/lifecycle.h"
#include "core/path_job_file.h"
#include "core/setup_file.h"
#include "core/text.h"
#include "shell/application.h"
#include "shell/controls_list.h"
#include "shell/frmExamples.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

constexpr char kListName[] = "examples.txt";
constexpr std::size_t kMostExamples = 200;

bool isTaken(const std::string& folder, const std::string& name) {
  return fileExists(folder + name) || fileExists(folder + pathFileName(name)) ||
         fileExists(folder + jobFileName(name));
}

std::string freeName(const std::string& folder, const std::string& name) {
  const std::filesystem::path path(name);
  std::string wanted = name;
  for (int number = 2; isTaken(folder, wanted); ++number) {
    wanted = path.stem().string() + "_" + std::to_string(number) + path.extension().string();
  }
  return wanted;
}

void copyFile(WriteGuard& guard, const std::string& from, const std::string& to, FileKind kind) {
  if (fileExists(from)) writeFile(guard, to, kind, readFile(from, kLargestDrawing));
}

void tellThatNoneAreThere(Session& session, const std::string& folder) {
  session.host.prompts.showMessage({.text = "There are no examples. They would be here:\n" + folder,
                                    .title = {},
                                    .icon = MessageIcon::Warning});
}

// For the units of the drawing, when the setup in use is that of the same control for the other
// ones; empty when it fits, or nobody knows.
std::string setupForDrawing(const Session& session) {
  const bool metric = isMetric(session.store);
  for (const ControlChoice& control : availableControls(session.appfolder)) {
    const std::string& other = control.setup(!metric);
    if (!other.empty() && upperCased(other) == upperCased(session.setupname)) {
      return control.setup(metric);
    }
  }
  return {};
}

// Cutters are those of the setup: of one in other units each would be 25 times too large or small.
bool takesSetup(Session& session, const std::string& setup) {
  const bool metric = isMetric(session.store);
  const std::string own = metric ? "millimetres" : "inches";
  const std::string others = metric ? "inches" : "millimetres";
  return session.host.prompts.showMessage(
             {.text = "This example is in " + own + ", and the cutters of " + session.setupname +
                      " are in " + others + ".\nShould " + setup + " be loaded for it?",
              .title = "Examples",
              .icon = MessageIcon::Question,
              .buttons = MessageButtons::YesNo}) == Answer::Yes;
}

void openCopy(Application& application, const Example& example) {
  Session& session = application.session;
  const std::string folder = session.appfolder + "CNC" + kSeparator;
  const std::string name =
      copyExample(session.host.guard, example, application.helpFiles.examples, folder);
  session.selectedfolder = folder;
  session.selectedname = name;
  load_Drawing(session);
  const std::string setup = setupForDrawing(session);
  if (!setup.empty() && takesSetup(session, setup)) {
    changeSetup(session, session.appfolder + setup);
    load_Drawing(session);
  }
  showDrawingName(session);
}

void mnuHelpExamples_Click(Application& application) {
  const Procedure here("mnuHelpExamples_Click()");
  Session& session = application.session;
  const std::string& folder = application.helpFiles.examples;
  const std::vector<Example> examples = availableExamples(folder);
  if (examples.empty()) return tellThatNoneAreThere(session, folder);
  frmExamples form(examples);
  session.host.prompts.showModal(form);
  if (form.accepted() && safe_EXIT(session, false)) openCopy(application, form.chosen());
}

}  // namespace

std::vector<Example> availableExamples(const std::string& folder) {
  if (folder.empty() || !fileExists(folder + kListName)) return {};
  FieldReader fields = FieldReader::open(folder + kListName, kLargestSettings);
  std::vector<Example> examples;
  while (!fields.atEnd()) {
    if (examples.size() == kMostExamples) fields.fail(FailureNumber::Overflow);
    Example example;
    example.file = trimmed(fields.readText());
    if (example.file.empty()) continue;
    example.title = trimmed(fields.readLine());
    if (fileExists(folder + example.file)) examples.push_back(std::move(example));
  }
  return examples;
}

std::string copyExample(WriteGuard& guard, const Example& example, const std::string& from,
                        const std::string& to) {
  const std::string name = freeName(to, example.file);
  copyFile(guard, from + pathFileName(example.file), to + pathFileName(name), FileKind::Companion);
  copyFile(guard, from + jobFileName(example.file), to + jobFileName(name), FileKind::Companion);
  copyFile(guard, from + example.file, to + name, FileKind::Drawing);
  return name;
}

// ---- Descriptors

constexpr ShellCommand kExamplesCommand{
    .info = {.tool = "miExamples", .caption = "&Examples...", .menu = {"miHelp", 140}},
    .run = mnuHelpExamples_Click,
};

}  // namespace tess
