// The import form's memory.
#include "import/remembered_options.h"

#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/runtime_failure.h"
#include "core/settings.h"

namespace tess {
namespace {

constexpr char kKey[] = "exact geometry";
constexpr char kOn[] = "True";
constexpr char kOff[] = "False";

std::string optionsFile(const Session& session) {
  return session.appfolder + "frmDXF.cfg";
}

std::string entry(bool exact) {
  std::string text;
  appendSetupEntry(text, kKey, exact ? kOn : kOff);
  return text;
}

}  // namespace

bool exactGeometryRemembered(const Session& session) {
  const std::string file = optionsFile(session);
  return fileExists(file) && readFile(file, kLargestSettings).starts_with(entry(/*exact=*/true));
}

void rememberExactGeometry(Session& session, bool exact) {
  try {
    writeFile(session.host.guard, optionsFile(session), FileKind::Record, entry(exact));
  } catch (const RuntimeFailure& failure) {
    session.host.failures.report(failure);
  }
}

}  // namespace tess
