// Control and Units.
#include "shell/frmControl.h"

#include <utility>

#include "core/text.h"

namespace tess {
namespace {

constexpr int kInch = 0;
constexpr int kMetric = 1;
constexpr char kExplanation[] =
    "Programs are written in the words of one control, and new drawings begin in these units. "
    "Options, Control and Units changes both at any time.";

}  // namespace

frmControl::frmControl(const std::vector<ControlChoice>& controls, std::string setup)
    : Form("frmControl", "Control and Units"), controls_(controls), before_(upperCased(setup)) {
  lblExplanation.setCaption(kExplanation);
  fraUnits.setCaption("Units");
  optUnits[kInch].setCaption("&Inch");
  optUnits[kMetric].setCaption("&Millimeter");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] { fill(); };
  lstControl.onClick = [this] { enableUnits(); };
  lstControl.onOpen = [this] { accept(); };
  for (const int units : {kInch, kMetric}) optUnits[units].onClick = [this] { showSetup(); };
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
}

const std::string& frmControl::setup() const {
  return control().setup(optUnits[kMetric].value());
}

const ControlChoice& frmControl::control() const {
  return controls_.at(static_cast<std::size_t>(lstControl.index()));
}

void frmControl::fill() {
  int chosen = 0;
  bool metric = false;
  for (const ControlChoice& each : controls_) {
    const bool hasMetric = upperCased(each.metricSetup) == before_;
    if (hasMetric || upperCased(each.inchSetup) == before_) {
      chosen = lstControl.count();
      metric = hasMetric;
    }
    lstControl.addItem(each.name);
  }
  optUnits[metric ? kMetric : kInch].setValue(true);
  lstControl.setIndex(chosen);
}

// A control with setups in one of the units takes that one along.
void frmControl::enableUnits() {
  if (lstControl.index() < 0) return;
  const bool inch = !control().inchSetup.empty();
  const bool metric = !control().metricSetup.empty();
  optUnits[kInch].setEnabled(inch);
  optUnits[kMetric].setEnabled(metric);
  if (!inch) optUnits[kMetric].setValue(true);
  if (!metric) optUnits[kInch].setValue(true);
  showSetup();
}

void frmControl::showSetup() {
  if (lstControl.index() >= 0) lblSetup.setCaption("Setup: " + setup());
}

}  // namespace tess
