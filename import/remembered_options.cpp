// The import form's memory.
#include "import/remembered_options.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/runtime_failure.h"
#include "core/settings.h"

namespace tess {
namespace {

constexpr char kOn[] = "True";
constexpr char kOff[] = "False";

struct BoxKey {
  const char* key;
  bool ImportBoxes::*box;
};

constexpr BoxKey kKeys[] = {{"exact geometry", &ImportBoxes::exactGeometry},
                            {"connect points", &ImportBoxes::connectPoints},
                            {"auto align", &ImportBoxes::autoAlign},
                            {"fit stock", &ImportBoxes::fitStock},
                            {"file units", &ImportBoxes::fileUnits}};

std::string optionsFile(const Session& session) {
  return session.appfolder + "frmDXF.cfg";
}

std::string entry(const BoxKey& key, bool on) {
  std::string text;
  appendSetupEntry(text, key.key, on ? kOn : kOff);
  return text;
}

}  // namespace

ImportBoxes rememberedBoxes(const Session& session) {
  ImportBoxes boxes;
  const std::string file = optionsFile(session);
  if (!fileExists(file)) {
    boxes.exactGeometry = session.store.exactgeometry;
    return boxes;
  }
  const std::string text = "\n" + readFile(file, kLargestSettings);
  for (const BoxKey& key : kKeys) {
    boxes.*key.box = text.find("\n" + entry(key, /*on=*/true)) != std::string::npos;
  }
  return boxes;
}

void rememberBoxes(Session& session, const ImportBoxes& boxes) {
  std::string text;
  for (const BoxKey& key : kKeys) text += entry(key, boxes.*key.box);
  try {
    writeFile(session.host.guard, optionsFile(session), FileKind::Record, text);
  } catch (const RuntimeFailure& failure) {
    session.host.failures.report(failure);
  }
}

}  // namespace tess
