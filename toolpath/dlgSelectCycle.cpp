// Cycle Select & Definition.
#include "toolpath/dlgSelectCycle.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/tool_text.h"
#include "toolpath/cycles.h"

namespace tess {
namespace {

constexpr std::size_t kShortestNumberedText = 3;  // a letter and two digits

}  // namespace

dlgSelectCycle::dlgSelectCycle(CamContext& cam)
    : Form("dlgSelectCycle", "Cycle Select & Definition"),
      cam_(cam),
      fields_{{{txtcyclefinaldepth, &DrawingStore::cyclefinaldepth, true, "0"},
               {txtcycleincrdepth, &DrawingStore::cycleincrdepth, true, "0"},
               {txtcycledwell, &DrawingStore::cycledwell, false, ""},
               {txtcyclefeedrate, &DrawingStore::cyclefeedrate, false, "0"}}} {
  chkSelectedCircles.setCaption("At the centers of the selected circles");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] { load(); };
  List1.onClick = [this] { chooseTemplate(); };
  for (const Field& field : fields_) {
    field.box.onLeave = [this, &field] { keep(field); };
  }
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
  onAccept = [this] { takeOver(); };
}

bool dlgSelectCycle::hasTemplate() const {
  return template_ < cam_.store.NumCycles;
}

// A template that is chosen fills the fields by its click.
void dlgSelectCycle::load() {
  const DrawingStore& store = cam_.store;
  lblTool.setCaption("Cuts with " + toolInUseText(cam_.context.session));
  for (int cycle = 0; cycle < store.NumCycles; ++cycle) List1.addItem(store.cycletext[cycle]);
  if (cam_.selectedCycle && *cam_.selectedCycle < store.NumCycles) template_ = *cam_.selectedCycle;
  fill();
  if (hasTemplate()) List1.setIndex(template_);
}

void dlgSelectCycle::chooseTemplate() {
  if (List1.index() < 0) return;
  template_ = List1.index();
  fill();
  enableFields();
}

void dlgSelectCycle::fill() {
  for (const Field& field : fields_) show(field);
}

void dlgSelectCycle::show(const Field& field) {
  if (!hasTemplate()) {
    field.box.setText(field.withoutTemplate);
    return;
  }
  const float value = (cam_.store.*field.column)[template_];
  const std::string& format = cam_.context.session.formats.coordfmt;
  field.box.setText(field.isDepth ? formatNumber(value, format) : plainText(value));
}

// Fixed: a field that is left writes into the template; Cancel does not take it back.
void dlgSelectCycle::keep(const Field& field) {
  if (hasTemplate()) (cam_.store.*field.column)[template_] = parseFloat(field.box.text());
  show(field);
}

// What the cycle of the template has no use for is out of reach.
void dlgSelectCycle::enableFields() {
  const std::string& text = cam_.store.cycletext[template_];
  const int number = text.size() < kShortestNumberedText ? 0 : cycleNumber(text);
  txtcycleincrdepth.setEnabled(cycleHasIncrement(number));
  txtcycledwell.setEnabled(cycleHasDwell(number));
}

void dlgSelectCycle::takeOver() {
  result_ = hasTemplate() ? std::optional(template_) : std::nullopt;
  fill();
  if (!chkSelectedCircles.isChecked()) return;
  if (hasTemplate()) placeCyclesAtSelectedCircles(cam_, template_);
  chkSelectedCircles.setChecked(false);
  result_.reset();
}

std::optional<int> chooseCycle(CamContext& cam) {
  dlgSelectCycle dialog(cam);
  cam.context.session.host.prompts.showModal(dialog);
  return dialog.result();
}

}  // namespace tess
