// The list of controls.
#include "shell/controls_list.h"

#include "core/file_system.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr std::size_t kMostControls = 200;
constexpr char kNoSetup[] = "-";

std::string setupIn(FieldReader& fields) {
  std::string name(trimmed(fields.readQuotedText()));
  if (name == kNoSetup) name.clear();
  return name;
}

// A setup that somebody has removed is offered no more.
void keepExisting(std::string& setup, const std::string& folder) {
  if (!fileExists(folder + setup)) setup.clear();
}

}  // namespace

std::vector<ControlChoice> readControls(FieldReader& fields) {
  std::vector<ControlChoice> controls;
  while (!fields.atEnd()) {
    if (controls.size() == kMostControls) fields.fail(FailureNumber::Overflow);
    ControlChoice control;
    control.name = trimmed(fields.readQuotedText());
    if (control.name.empty()) continue;
    control.inchSetup = setupIn(fields);
    control.metricSetup = setupIn(fields);
    controls.push_back(std::move(control));
  }
  return controls;
}

std::vector<ControlChoice> availableControls(const std::string& folder) {
  if (!fileExists(folder + kControlsName)) return {};
  FieldReader fields = FieldReader::open(folder + kControlsName, kLargestSettings);
  std::vector<ControlChoice> controls = readControls(fields);
  for (ControlChoice& control : controls) {
    keepExisting(control.inchSetup, folder);
    keepExisting(control.metricSetup, folder);
  }
  std::erase_if(controls, [](const ControlChoice& control) {
    return control.inchSetup.empty() && control.metricSetup.empty();
  });
  return controls;
}

}  // namespace tess
