// The setup of programs.
#include "cnc/dlgGcodeGen.h"

#include "cnc/control_location.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/number_text.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr int kMagneticChuck = 0;
constexpr int kClamps = 1;

bool isDrive(std::string_view text) {
  return text.size() == 1 && text[0] >= 'A' && text[0] <= 'E';
}

bool endsFolder(std::string_view text) {
  return text.ends_with('\\') || text.ends_with(kSeparator) || text.ends_with(':');
}

// A folder as it was typed, as the setting has it.
std::string outputFolder(const std::string& typed) {
  if (typed.starts_with(' ')) return {};
  std::string folder = upperCased(trimmed(typed));
  if (isDrive(folder)) folder.push_back(':');
  if (folder.size() >= 2 && !endsFolder(folder)) folder.push_back('\\');
  return folder;
}

float numberIn(const TextBox& box) {
  try {
    return parseFloat(box.text());
  } catch (const RuntimeFailure& failure) {
    throw RuntimeFailure(failure.number(), box.name() + ": " + box.text());
  }
}

}  // namespace

dlgGcodeGen::dlgGcodeGen(const HandOver& handOver)
    : Form("dlgGcodeGen", "G-code Control Setup"),
      handOver_(handOver),
      store_(handOver.session.store),
      positions_{{{txtxstart, store_.xstartpos},
                  {txtystart, store_.ystartpos},
                  {txtzstart, store_.zstartpos},
                  {txtxchange, store_.xchange},
                  {txtychange, store_.ychange},
                  {txtzchange, store_.zchange}}} {
  setCaptions();
  wire();
}

void dlgGcodeGen::setCaptions() {
  lblxstart.setCaption("Start Position>  &X:");
  lblystart.setCaption("Start Position>  &Y:");
  lblzstart.setCaption("Start Position>  &Z:");
  lblxchange.setCaption("Tool Change>  X:");
  lblychange.setCaption("Tool Change>  Y:");
  lblzchange.setCaption("Tool Change>  Z:");
  lblcncpath.setCaption("&Output CNC file to:");
  lblGTX_Path.setCaption("&Path to GantrixPro:");
  cmdBrowse.setCaption("&Browse");
  chkautocomment.setCaption("Automatic &Comments");
  chkBuildCNCWithRParam.setCaption("Use &R Words for Arcs");
  fraChuck.setCaption("Work-Hold Method");
  optChuck[kMagneticChuck].setCaption("&Magnetic Chuck");
  optChuck[kClamps].setCaption("&Hold-down Clamps");
  cmdAccept.setCaption("&Accept");
  setDefaultButton(cmdAccept);
}

// The boxes and the options write at once; what they show to begin with is what is there.
void dlgGcodeGen::wire() {
  onLoad = [this] { load(); };
  onAccept = [this] { take(); };
  chkautocomment.onClick = [this] { store_.autocomments = chkautocomment.isChecked() ? 1 : 0; };
  chkBuildCNCWithRParam.onClick = [this] {
    store_.userparamforarcs = chkBuildCNCWithRParam.isChecked();
  };
  optChuck.onClick = [this](int index) { store_.usingchuck = index == kMagneticChuck ? 1 : 0; };
  cmdBrowse.onClick = [this] { browse(); };
  cmdAccept.onClick = [this] { accept(); };
}

void dlgGcodeGen::load() {
  for (const Position& position : positions_) position.box.setText(plainText(position.value));
  txtcncpath.setText(store_.cncoutputpath);
  shownPath_ = controlPath(handOver_.session);
  txtGTX_Path.setText(shownPath_);
  chkautocomment.setChecked(store_.autocomments != 0);
  chkBuildCNCWithRParam.setChecked(store_.userparamforarcs);
  optChuck[store_.usingchuck != 0 ? kMagneticChuck : kClamps].setValue(true);
}

void dlgGcodeGen::browse() {
  const Procedure here("dlgGcodeGen.cmdBrowse_Click()");
  std::string folder = handOver_.session.appfolder;
  if (controlExists(txtGTX_Path.text())) splitPath(folder, txtGTX_Path.text(), "");
  const auto chosen =
      handOver_.session.host.prompts.chooseFile({.title = "Path to GantrixPro",
                                                 .pattern = "EXE Files (*.exe)|*.exe",
                                                 .folder = folder,
                                                 .name = "gtxfw.exe"});
  if (!chosen || chosen->empty()) return;
  txtGTX_Path.setText(*chosen);
  writeControlPath(handOver_.session, *chosen);
  shownPath_ = *chosen;
}

// Nothing is taken over while one of the numbers is none.
void dlgGcodeGen::take() {
  const Procedure here("dlgGcodeGen.cmdAccept_Click()");
  std::array<float, 6> values{};
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = numberIn(positions_[i].box);
  for (std::size_t i = 0; i < values.size(); ++i) positions_[i].value = values[i];
  store_.cncoutputpath = outputFolder(txtcncpath.text());
  store_.setupchanged = true;
  keepControlPath();
}

// A script that may not name a control can still set up the rest.
void dlgGcodeGen::keepControlPath() {
  const bool isAsShown = txtGTX_Path.text() == shownPath_;
  if (isAsShown && !handOver_.others.mayBeReached()) return;
  writeControlPath(handOver_.session, txtGTX_Path.text());
}

void mnuOptionsGcodeSetup_Click(const HandOver& handOver) {
  const Procedure here("mnuOptionsGcodeSetup_Click()");
  dlgGcodeGen form(handOver);
  handOver.session.host.prompts.showModal(form);
}

}  // namespace tess
