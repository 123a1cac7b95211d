// Pocketing & Profiling Parameters.
#include "toolpath/dlgPocketingPrm.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/settings.h"
#include "core/text.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

constexpr const char* kSmallestTolerance = "0.0001";

// A choice that was never made, or that there is none of, is the first one.
void choose(Int16& setting, const ControlArray<Option>& options) {
  if (setting < 1 || setting > options.count()) setting = 1;
  options[setting].setValue(true);
}

std::string textOr(const std::string& text, const char* replaced, const char* by) {
  return text == replaced ? by : text;
}

// As the setup reads a number from a script: a text that is none is a failure, not a 0.
void storeStrictly(DrawingStore& store, std::string_view key, const std::string& text) {
  setSettingText(store, *findSetting(key), text);
}

}  // namespace

dlgPocketingPrm::dlgPocketingPrm(DrawingStore& store)
    : Form("dlgPocketingPrm", "Pocketing & Profiling Parameters"),
      store_(store),
      stepOver_(store, {OptCutWidth, txtToolSpacingPercent, txtToolSpacingDistance}),
      entry_(store, {fraEntry, optEntry, lblEntryAngle, txtEntryAngle, lblEntryRadius,
                     txtEntryRadius, lblEntryFeed, txtEntryFeed}),
      numbers_{{txtstartdepth, &DrawingSettings::cfg_start_depth},
               {txtfinaldepth, &DrawingSettings::cfg_final_depth},
               {txtzcutperpass, &DrawingSettings::cfg_z_cut_per_pass},
               {txtminzfinish, &DrawingSettings::cfg_min_z_finish},
               {txtminroughclear, &DrawingSettings::cfg_min_rough_clearance},
               {txtTolerance, &DrawingSettings::cfg_tolerance},
               {txtroughfeedrate, &DrawingSettings::cfg_rough_feedrate},
               {txtfinishfeedrate, &DrawingSettings::cfg_finish_feedrate},
               {txtDistFrCenter, &DrawingSettings::cfg_pocket_dist_from_center}} {
  nameFrames();
  nameFields();
  nameChoices();
  wire();
}

Option& dlgPocketingPrm::styleOption(PocketingStyle style) {
  return optPocketingStyle[choiceNumber(style)];
}

void dlgPocketingPrm::nameFrames() {
  fraCuttingDepths.setCaption("Cutting Depths :");
  Frame1.setCaption(" Milling Direction ");
  Frame2.setCaption(" Pocketing Style ");
  Frame3.setCaption(" Step Over Amount ");
  Frame4.setCaption(" Feed Rates ");
  Frame5.setCaption(" Lead In/Out Paths ");
}

// Two fields are captioned by their axis alone, under the caption of what they have in common.
void dlgPocketingPrm::nameFields() {
  Label1.setCaption("Start Depth :");
  Label2.setCaption("Final Depth :");
  Label3.setCaption("Depth Per Pass :");
  Label4.setCaption("Z :");
  Label5.setCaption("Rough Cut Clearance :");
  Label7.setCaption("Z :");
  Label9.setCaption("X && Y :");
  Label10.setCaption("Aperture (tolerance) :");
  lblDistFrCenter.setCaption("Spiral Start Distance from Pocket Center :");
  lblEngagementLimit.setCaption("Engagement Limit :");
  Label11.setCaption("Rough Cut :");
  Label12.setCaption("Finishing Cut :");
  Label13.setCaption("Z-Axis Plunge :");
  Label6.setCaption("Entry/Exit Length :");
  Label8.setCaption("Entry/Exit Angle :");
  txtTolerance.setText(kSmallestTolerance);
}

void dlgPocketingPrm::nameChoices() {
  optCutMode[choiceNumber(CuttingMode::Conventional)].setCaption("Conventional Milling only");
  optCutMode[choiceNumber(CuttingMode::Climb)].setCaption("Climb Milling only");
  optCutMode[choiceNumber(CuttingMode::Bidirectional)].setCaption("Bidirectional");
  styleOption(PocketingStyle::Horizontal).setCaption("Horizontal Only");
  styleOption(PocketingStyle::Vertical).setCaption("Vertical Only");
  styleOption(PocketingStyle::ParallelSpiral).setCaption("Parallel Spiral");
  chkLeadIn.setCaption("Lead In/Out Paths");
  optLines.setCaption("Lines");
  optArcs.setCaption("Arcs");
  chkConnectPocketPaths.setCaption("Connect Pocket Paths");
  chkGougeAvoidance.setCaption("Apply Gouge Avoidance");
  chkPlaceFinishPath.setCaption("Auto Place Finish Path");
  chkLathePocketing.setCaption("Lathe Style Pocketing");
  chkTruePaths.setCaption("True Paths");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
}

void dlgPocketingPrm::wire() {
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] { fill(); };
  onAccept = [this] { takeOver(); };
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
  optCutMode.onClick = [this](int index) { cuttingMode_ = static_cast<CuttingMode>(index); };
  optPocketingStyle.onClick = [this](int index) {
    styleChosen(static_cast<PocketingStyle>(index));
  };
  chkLathePocketing.onClick = [this] { latheChosen(); };
  chkPlaceFinishPath.onClick = [this] { placeFinishPath_ = chkPlaceFinishPath.isChecked(); };
  chkLeadIn.onClick = [this] { leadChosen(); };
  chkTruePaths.onClick = [this] {
    entry_.setEnabled(chkTruePaths.isChecked());
    enableLimit();
  };
}

// ---- Loading

void dlgPocketingPrm::fill() {
  const Procedure here("dlgPocketingPrm.Form_Load()");
  fillChoices();
  for (const NumberField& field : numbers_) field.box.setText(plainText(store_.*field.setting));
  fillStepOver();
  const float plunge = store_.cfg_z_plunge_rate;
  txtZPlungeRate.setText(plunge <= 0 ? "1" : plainText(plunge));
  fillLeads();
  entry_.load();
  txtEngagementLimit.setText(plainText(store_.cfg_engagement_limit));
  enableLimit();
  fillToolNotes();
}

void dlgPocketingPrm::fillChoices() {
  choose(store_.cfg_cutting_mode, optCutMode);
  choose(store_.cfg_pocketing_style, optPocketingStyle);
  chkLathePocketing.setChecked(store_.cfg_lathe_style_pocketing);
  chkPlaceFinishPath.setChecked(store_.cfg_auto_place_finish_path);
  chkGougeAvoidance.setChecked(store_.cfg_gouge_avoidance);
  chkTruePaths.setChecked(store_.cfg_true_paths);
  entry_.setEnabled(store_.cfg_true_paths);
  chkConnectPocketPaths.setChecked(store_.cfg_connect_pocketing_paths);
}

// The style, not the kind of step-over, says which setting counts; the other box follows it.
void dlgPocketingPrm::fillStepOver() {
  stepOver_.load();
  if (pocketingStyle(store_) != PocketingStyle::Horizontal) {
    stepOver_.distanceChanged();
  } else {
    stepOver_.percentChanged();
  }
}

void dlgPocketingPrm::fillLeads() {
  chkLeadIn.setChecked(store_.cfg_lead_in_arc || store_.cfg_lead_in_path);
  if (store_.cfg_lead_in_arc) {
    optArcs.setValue(true);
  } else if (store_.cfg_lead_in_path) {
    optLines.setValue(true);
  }
  const auto angle = static_cast<float>(store_.cfg_lead_in_angle);
  txtLeadInLength.setText(textOr(plainText(store_.cfg_lead_in_length), "0", "0.1"));
  txtLeadInAngle.setText(textOr(plainText(angle), "0", "30"));
}

void dlgPocketingPrm::fillToolNotes() {
  const int tool = store_.selectedtool;
  const std::string feed = tool < 0 ? "" : std::string(trimmed(store_.toolfeedrate[tool]));
  lblRecommendedFeedRate.setCaption(feed.empty() ? "<No Recommended Feed Rate>"
                                                 : "Recommended : " + feed);
  lblUsingTool.setCaption(tool < 0 ? "<No Tool Selected>"
                                   : "using Tool # " + std::to_string(tool + 1));
  lblMaterial.setCaption(store_.partmaterial);
}

// ---- What enables what

void dlgPocketingPrm::styleChosen(PocketingStyle style) {
  pocketingStyle_ = style;
  lblDistFrCenter.setEnabled(style == PocketingStyle::ParallelSpiral);
  txtDistFrCenter.setEnabled(style == PocketingStyle::ParallelSpiral);
  chkLathePocketing.setEnabled(style == PocketingStyle::Horizontal);
  if (style != PocketingStyle::Horizontal) chkLathePocketing.setChecked(false);
  enableLimit();
}

// Rings of true paths alone have one.
void dlgPocketingPrm::enableLimit() {
  const bool rings = pocketingStyle_ == PocketingStyle::ParallelSpiral;
  lblEngagementLimit.setEnabled(rings && chkTruePaths.isChecked());
  txtEngagementLimit.setEnabled(rings && chkTruePaths.isChecked());
}

// Turning knows no depths per pass, no feeds of their own and no leads.
void dlgPocketingPrm::latheChosen() {
  lathePocketing_ = chkLathePocketing.isChecked();
  Control* const millingOnly[] = {&styleOption(PocketingStyle::ParallelSpiral),
                                  &styleOption(PocketingStyle::Vertical),
                                  &chkPlaceFinishPath,
                                  &Frame4,
                                  &Label4,
                                  &Label7,
                                  &txtzcutperpass,
                                  &txtminzfinish,
                                  &Frame5,
                                  &chkLeadIn,
                                  &optLines,
                                  &optArcs,
                                  &txtLeadInAngle,
                                  &txtLeadInLength,
                                  &Label6,
                                  &Label8};
  for (Control* const control : millingOnly) control->setEnabled(!lathePocketing_);
  if (lathePocketing_) chkLeadIn.setChecked(false);
}

void dlgPocketingPrm::leadChosen() {
  const bool undecided = !optLines.value() && !optArcs.value();
  if (chkLeadIn.isChecked() && undecided) optLines.setValue(true);
}

// ---- Accepting

// A text that is refused leaves all settings as they were.
void dlgPocketingPrm::takeOver() {
  const Procedure here("dlgPocketingPrm.cmdAccept_Click()");
  const DrawingSettings before = store_;
  try {
    takeOverNumbers();
    takeOverLeads();
    storeStrictly(store_, "engagement limit", txtEngagementLimit.text());
    entry_.takeOver();
  } catch (...) {
    static_cast<DrawingSettings&>(store_) = before;
    throw;
  }
  takeOverChoices();
  store_.setupchanged = true;
}

void dlgPocketingPrm::takeOverLeads() {
  storeStrictly(store_, "lead in length", txtLeadInLength.text());
  storeStrictly(store_, "lead in angle", txtLeadInAngle.text());
  store_.cfg_lead_in_path = chkLeadIn.isChecked() && optLines.value();
  store_.cfg_lead_in_arc = chkLeadIn.isChecked() && optArcs.value();
}

void dlgPocketingPrm::takeOverNumbers() {
  for (const NumberField& field : numbers_) store_.*field.setting = parseFloat(field.box.text());
  store_.cfg_z_plunge_rate = parseFloat(txtZPlungeRate.text());
  stepOver_.takeOver();
}

void dlgPocketingPrm::takeOverChoices() {
  store_.cfg_cutting_mode = choiceNumber(cuttingMode_);
  store_.cfg_pocketing_style = choiceNumber(pocketingStyle_);
  store_.cfg_lathe_style_pocketing = lathePocketing_;
  store_.cfg_auto_place_finish_path = placeFinishPath_;
  store_.cfg_gouge_avoidance = chkGougeAvoidance.isChecked();
  store_.cfg_true_paths = chkTruePaths.isChecked();
  store_.cfg_connect_pocketing_paths = chkConnectPocketPaths.isChecked();
}

void mnuCAMPocketSpecs_Click(CamContext& cam) {
  const Procedure here("mnuCAMPocketSpecs_Click()");
  dlgPocketingPrm dialog(cam.store);
  cam.context.session.host.prompts.showModal(dialog);
}

// ---- Descriptors

constexpr CamCommand kPocketingSpecsCommand{
    .info = {.tool = "miPocketingSpecs",
             .caption = "Pocketing &Specifications...",
             .menu = {"miCAM", 120},
             .bar = {"barCAM", 120}},
    .run = mnuCAMPocketSpecs_Click,
};

}  // namespace tess
