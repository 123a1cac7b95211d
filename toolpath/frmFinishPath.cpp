// Finishing Path Options.
#include "toolpath/frmFinishPath.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/pocketing_choices.h"
#include "core/rounding.h"

namespace tess {
namespace {

constexpr int kMaxPasses = 99;
constexpr int kPassesWithClearance = 2;  // from here on the clearance plays a part
constexpr int kPassesWithStepOver = 3;   // and from here on the step-over

// As a whole number; whatever lies outside the passes that are possible is 0.
int passesIn(const std::string& text) {
  const double read = std::clamp(Val(text), 0.0, kMaxPasses + 1.0);
  const int passes = roundHalfEven(read);
  return passes <= kMaxPasses ? passes : 0;
}

}  // namespace

frmFinishPath::frmFinishPath(CamContext& cam)
    : Form("frmFinishPath", "Finishing Path Options"), cam_(cam) {
  FraRoughCuts.setCaption(" Rough Cut Clearance ");
  FraStepOver.setCaption(" Step Over Amount ");
  chkGougeAvoidance.setCaption("Apply Gouge Avoidance");
  chkConnectPocketPaths.setCaption("Connect Pocket Paths");
  chkWhatIsLeft.setCaption("Only What Is Left");
  chkHoldingTabs.setCaption("Holding Tabs round a Part");
  chkCornerOvercut.setCaption("Overcut Inside Corners");
  cmdOK.setCaption("&OK");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdOK);
  setCancelButton(cmdCancel);
  onLoad = [this] { fill(); };
  txtNumPasses.onChange = [this] { passesChanged(); };
  cmdOK.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
  onAccept = [this] { takeOver(); };
  // Fixed: however it is left, the command goes on to its clicks; Cancel is how one pass is placed.
  onClose = [this] {
    if (!accepted()) cam_.numFinishPasses = 1;
  };
}

void frmFinishPath::fill() {
  const DrawingStore& store = cam_.store;
  txtminroughclear.setText(plainText(store.cfg_min_rough_clearance));
  stepOver_.load();
  chkGougeAvoidance.setChecked(store.cfg_gouge_avoidance);
  chkConnectPocketPaths.setChecked(store.cfg_connect_pocketing_paths);
  chkWhatIsLeft.setChecked(store.cfg_finish_what_is_left);
  chkHoldingTabs.setChecked(store.cfg_holding_tabs);
  chkCornerOvercut.setChecked(cornerOvercut(store) != CornerOvercut::None);
  // Only the true rules know on which side of a wall a path runs.
  const bool knowsWalls = store.cfg_true_paths && cam_.PlaceChain != 0;
  chkWhatIsLeft.setEnabled(knowsWalls);
  chkHoldingTabs.setEnabled(knowsWalls);
  chkCornerOvercut.setEnabled(knowsWalls);
  entry_.load();
  entry_.setEnabled(store.cfg_true_paths);
  txtNumPasses.setText("1");
}

void frmFinishPath::passesChanged() {
  const int passes = passesIn(txtNumPasses.text());
  if (passes < 1) {
    txtNumPasses.setText("1");
    return;
  }
  passes_ = passes;
  FraRoughCuts.setEnabled(passes >= kPassesWithClearance);
  FraStepOver.setEnabled(passes >= kPassesWithStepOver);
}

// A text of the entry that is no number leaves all settings as they were.
void frmFinishPath::takeOver() {
  DrawingStore& store = cam_.store;
  const float clearance = parseFloat(txtminroughclear.text());
  entry_.takeOver();
  stepOver_.takeOver();
  cam_.numFinishPasses = passes_;
  store.cfg_min_rough_clearance = clearance;
  store.cfg_gouge_avoidance = chkGougeAvoidance.isChecked();
  store.cfg_connect_pocketing_paths = chkConnectPocketPaths.isChecked();
  store.cfg_finish_what_is_left = chkWhatIsLeft.isChecked();
  store.cfg_holding_tabs = chkHoldingTabs.isChecked();
  const bool overcuts = cornerOvercut(store) != CornerOvercut::None;
  if (overcuts != chkCornerOvercut.isChecked()) {
    const auto corners = overcuts ? CornerOvercut::None : CornerOvercut::AllCorners;
    store.cfg_corner_overcut = static_cast<std::int16_t>(choiceNumber(corners));
  }
}

}  // namespace tess
