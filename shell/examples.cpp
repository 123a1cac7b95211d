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
#include "core/text.h"
#include "shell/application.h"
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

void openCopy(Application& application, const Example& example) {
  Session& session = application.session;
  const std::string folder = session.appfolder + "CNC" + kSeparator;
  const std::string name =
      copyExample(session.host.guard, example, application.helpFiles.examples, folder);
  session.selectedfolder = folder;
  session.selectedname = name;
  load_Drawing(session);
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
