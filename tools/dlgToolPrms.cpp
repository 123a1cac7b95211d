// Tool Select & Definition.
#include "tools/dlgToolPrms.h"

#include <cmath>
#include <tuple>

#include "core/cut_width.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/text.h"
#include "core/tool_text.h"
#include "tools/tool_library.h"

namespace tess {
namespace {

constexpr int kRed = 255;  // of a label's text
constexpr int kMaxFlutes = 32767;
constexpr std::size_t kNumberWidth = 2;
constexpr char kDeletedName[] = "                    ";  // twenty blanks
constexpr char kFirstFlutes[] = "2";
constexpr std::size_t kProblemsShown = 15;
constexpr char kImportTitle[] = "Import Tools";
constexpr char kExportTitle[] = "Export Tools";
constexpr char kLibraryFilter[] = "Tool Libraries (*.csv;*.tbl)|*.csv;*.tbl|All Files (*.*)|*.*";

// A line of the list: the number from 1, in two places, and the name.
std::string lineOf(const DrawingStore& store, int tool) {
  const std::string number = "  " + std::to_string(tool + 1);
  return number.substr(number.size() - kNumberWidth) + ": " +
         std::string(trimmed(store.toolname[tool]));
}

// The index that a line of the list begins with.
int toolOf(const std::string& line) {
  return parseInteger(line) - 1;
}

// The name in as many characters as the chest shows, filled up with blanks.
std::string paddedName(const std::string& name) {
  const std::string shown(firstCharacters(name, kLongestToolName));
  return shown + std::string(kLongestToolName - characterCount(shown), ' ');
}

// The value of a text as a 32-bit float; nothing when it does not fit.
std::optional<float> fitting(const std::optional<double>& value) {
  if (!value || !std::isfinite(static_cast<float>(*value))) return std::nullopt;
  return static_cast<float>(*value);
}

// A whole number of flutes from 1; nothing for any other text.
std::optional<int> flutesIn(const std::string& text) {
  const std::optional<double> value = numericValue(text);
  if (!value || !(*value > 0) || *value > kMaxFlutes) return std::nullopt;
  return roundHalfEven(*value);
}

std::optional<float> diameterIn(const std::string& text) {
  const std::optional<float> value = fitting(numericValue(text));
  return value && *value > 0 ? value : std::nullopt;
}

std::string importReport(const ToolImport& result) {
  std::string text = std::to_string(result.tools) +
                     (result.tools == 1 ? " tool was" : " tools were") + " taken over.";
  std::size_t shown = 0;
  for (const std::string& problem : result.problems) {
    if (shown++ == kProblemsShown) break;
    text += "\n" + problem;
  }
  if (result.problems.size() > kProblemsShown) {
    text += "\nand " + std::to_string(result.problems.size() - kProblemsShown) + " more.";
  }
  return text;
}

// What storing a row may change.
using StoredTool = std::tuple<std::string, std::string, int, int, float>;

StoredTool storedTool(const DrawingStore& store, int tool) {
  return {store.toolname[tool], store.toolmaterial[tool], store.toolmilltype[tool],
          store.toolflutes[tool], store.toolspindlespeed[tool]};
}

// Raises a flag for as long as it lives.
class Loading {
 public:
  explicit Loading(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~Loading() { flag_ = before_; }
  Loading(const Loading&) = delete;
  Loading& operator=(const Loading&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

dlgToolPrms::dlgToolPrms(const ToolChest& chest, int tool)
    : Form("dlgToolPrms", "Tool Select & Definition"),
      chest_(chest),
      store_(chest.session.store),
      inUse_(tool < 0 || tool > kLastTool ? 0 : tool),
      current_(inUse_) {
  nameControls();
  wireList();
  wireTool();
  wireButtons();
}

void dlgToolPrms::nameControls() {
  cmdAdd.setCaption("A&dd");
  cmdDelete.setCaption("De&lete");
  cmdImport.setCaption("&Import...");
  cmdExport.setCaption("Ex&port...");
  fraType.setCaption("Type");
  optEndMill.setCaption("&End Mill");
  optFaceMill.setCaption("&Face Mill");
  optSlotMill.setCaption("&Slot Mill");
  chkInside.setCaption("&Works Inside");
  lblDiameter.setCaption("Dia&meter:");
  lblNumberFlutes.setCaption("&Number of Flutes:");
  lblToolMaterial.setCaption("&Tool Material:");
  lblColor.setCaption("&Color:");
  cmdColorPalette.setCaption("Palette...");
  fraRecommended.setCaption("Recommended");
  lblFeedRateCaption.setCaption("Feed Rate:");
  lblSpindleSpeedCaption.setCaption("Spindle Speed:");
  lblCuttingSpeedCaption.setCaption("Cutting Speed:");
  lblFeedDepthCaption.setCaption("Chip Load:");
  lblUse.setCaption("Spindle Speed in Pro&grams:");
  cmdUse.setCaption("&Use");
  fraAdvice.setCaption("In the Drawing's Units");
  cmdUseAdvice.setCaption("Use T&hese Feeds and Speed");
  cmdAccept.setCaption("&Accept");
  cmdExit.setCaption("E&xit");
  Slider1.setRange(0, kPaletteSize - 1);
  // An invalid diameter keeps nobody from throwing the tool away, or the changes.
  cmdDelete.causesValidation = false;
  cmdExit.causesValidation = false;
}

void dlgToolPrms::wireList() {
  setDefaultButton(cmdAccept);
  setCancelButton(cmdExit);
  onLoad = [this] { fill(); };
  onAccept = [this] { takeOver(); };
  List1.onClick = [this] { chooseLine(); };
  cmdAdd.onClick = [this] { addTool(); };
  cmdDelete.onClick = [this] { deleteTool(); };
  cmdImport.onClick = [this] { importLibrary(); };
  cmdExport.onClick = [this] { exportLibrary(); };
}

void dlgToolPrms::wireTool() {
  txtdiameter.onChange = [this] { diameterChanged(); };
  txtdiameter.onValidate = [this](Validation& validation) { validateDiameter(validation); };
  txtNumberFlutes.onChange = [this] { refresh(); };
  for (Option* const type : {&optEndMill, &optFaceMill, &optSlotMill}) {
    type->onClick = [this] { typeChosen(); };
  }
  cmbToolMaterial.onClick = [this] { materialChosen(); };
  Slider1.onChange = [this] {
    if (loading_) return;
    store_.toolcolor[current_] = static_cast<int>(std::lround(Slider1.value()));
    edited();
    showColor();
  };
  chkInside.onClick = [this] {
    if (loading_) return;
    store_.toolinside[current_] = chkInside.value() == 0 ? 0 : 1;
    edited();
  };
  txtSpindleSpeed.onLeave = [this] { takeTypedSpeed(); };
}

void dlgToolPrms::wireButtons() {
  cmdColorPalette.onClick = [this] { chooseColor(); };
  cmdUse.onClick = [this] { useSpeed(); };
  cmdUseAdvice.onClick = [this] { useAdvice(); };
  cmdAccept.onClick = [this] { accept(); };
  cmdExit.onClick = [this] { close(); };
}

// ---- Showing

void dlgToolPrms::edited() {
  store_.setupchanged = true;
}

void dlgToolPrms::fill() {
  const Procedure here("dlgToolPrms.Form_Load()");
  chkInside.setVisible(store_.lathesetup);
  OpenSpeedsFeeds(chest_.database, LocateSpeedsFeeds(chest_.session));
  showRow(inUse_);
  rebuildList();
}

void dlgToolPrms::showRow(int row) {
  current_ = row;
  followsSpeed_ = store_.toolspindlespeed[row] == 0;
  {
    const Loading loading(loading_);
    showTexts();
    showColor();
    Option* const options[] = {&optEndMill, &optFaceMill, &optSlotMill};
    options[static_cast<int>(millTypeOf(store_.toolmilltype[row]))]->setValue(true);
    FillToolMaterials();
  }
  refresh();
}

void dlgToolPrms::showTexts() {
  txtdiameter.setText(
      formatNumber(diameterShown(store_, current_), chest_.session.formats.coordfmt));
  txttool.setText(paddedName(store_.toolname[current_]));
  shownName_ = txttool.text();
  lbltool.setCaption("Tool #" + std::to_string(current_ + 1) + ":");
  const int flutes = store_.toolflutes[current_];
  txtNumberFlutes.setText(flutes < 1 ? kFirstFlutes : std::to_string(flutes));
  showSpindleSpeed(store_.toolspindlespeed[current_]);
  chkInside.setValue(store_.toolinside[current_] == 0 ? 0 : 1);
}

void dlgToolPrms::showSpindleSpeed(float speed) {
  txtSpindleSpeed.setText(plainText(speed));
  shownSpeed_ = txtSpindleSpeed.text();
}

// The slider knows the palette only; a direct colour leaves it where it was.
void dlgToolPrms::showColor() {
  const int color = store_.toolcolor[current_];
  const Loading loading(loading_);
  if (color >= 0 && color < kPaletteSize) Slider1.setValue(color);
  picColor.setColor(ColorOf(color));
}

void dlgToolPrms::FillToolMaterials() {
  const Loading loading(loading_);
  const std::string& own = store_.toolmaterial[current_];
  std::vector<std::string> materials =
      toolMaterials(chest_.database, store_.materialcategory, chosenType());
  if (materials.empty()) materials = {trimmed(own).empty() ? kUsualToolMaterial : own};
  int chosen = 0;
  for (std::size_t i = 0; i < materials.size(); ++i) {
    if (sameFeedsText(materials[i], own)) chosen = static_cast<int>(i);
  }
  cmbToolMaterial.setItems(std::move(materials));
  cmbToolMaterial.setIndex(chosen);
}

void dlgToolPrms::rebuildList() {
  const Loading loading(loading_);
  std::vector<std::string> lines;
  for (int tool = 0; tool <= kLastWrittenTool; ++tool) {
    if (!isFreeTool(store_, tool)) lines.push_back(lineOf(store_, tool));
  }
  List1.setItems(std::move(lines));
  const bool listed = current_ <= kLastWrittenTool && !isFreeTool(store_, current_);
  List1.setIndex(listed ? List1.indexOf(lineOf(store_, current_)) : -1);
}

// ---- The recommendation

MillType dlgToolPrms::chosenType() const {
  if (optFaceMill.value()) return MillType::Face;
  return optSlotMill.value() ? MillType::Slot : MillType::End;
}

void dlgToolPrms::refresh() {
  if (loading_) return;
  takeTypedSpeed();
  lblMaterial.setColor(std::nullopt);
  lblMaterial.setCaption("Material:   " + store_.partmaterial);
  const std::optional<int> flutes = flutesIn(txtNumberFlutes.text());
  const std::optional<float> diameter = diameterIn(txtdiameter.text());
  if (!flutes) return complain(" - Invalid # of Flutes");
  if (!diameter) return complain(" - Invalid Tool Diameter");
  recommend(*flutes, *diameter);
  advise(*flutes, *diameter);
}

void dlgToolPrms::recommend(int flutes, float diameter) {
  if (followsSpeed_) store_.toolspindlespeed[current_] = 0;
  RecommendSpeeds(store_, chest_.database, current_, flutes, diameter, chosenType());
  showStored();
  if (lblFeedRate.caption() == kUnableToCompute) {
    lblMaterial.setColor(kRed);
    lblMaterial.setCaption(lblMaterial.caption() + " - Unable to recommend Spindle Speed.");
  }
  const float own = store_.toolspindlespeed[current_];
  showSpindleSpeed(own > 0 ? own : store_.toolrecspindle[current_]);
}

void dlgToolPrms::complain(const char* what) {
  lblMaterial.setColor(kRed);
  lblMaterial.setCaption(store_.partmaterial + what);
  showStored();
  lblFeedDepth.setCaption("");
  lblAdvice.setCaption("");
  advice_.reset();
  cmdUseAdvice.setEnabled(false);
}

void dlgToolPrms::showStored() {
  lblFeedRate.setCaption(store_.toolfeedrate[current_]);
  lblSpindleSpeed.setCaption(plainText(store_.toolrecspindle[current_]));
  lblCuttingSpeed.setCaption(plainText(store_.toolcuttingspeed[current_]));
}

void dlgToolPrms::advise(int flutes, float diameter) {
  const PartMaterial part = partMaterial(store_);
  const std::string material = cmbToolMaterial.text();
  const CuttingFigures figures = cuttingFigures(chest_.database, part, chosenType(), material);
  const CuttingConditions conditions{.type = chosenType(),
                                     .diameter = diameter,
                                     .flutes = flutes,
                                     .metric = isMetric(store_),
                                     .stepOver = stepOverShare(store_, diameter),
                                     .highestSpindle = store_.highestspindle};
  advice_ = adviseCutting(figures, chipLoads(chest_.database, part, material), conditions);
  lblFeedDepth.setCaption(chipRangeText(figures));
  lblAdvice.setCaption(advice_ ? adviceText(*advice_, conditions) : "");
  cmdUseAdvice.setEnabled(advice_.has_value());
}

// ---- What the operator does

void dlgToolPrms::chooseLine() {
  if (loading_ || List1.index() < 0) return;
  const int chosen = toolOf(List1.text());
  storeRow();
  showRow(chosen);
  rebuildList();
}

// The list of tool materials is that of the type; what it shows is what the tool is made of.
void dlgToolPrms::typeChosen() {
  if (loading_) return;
  FillToolMaterials();
  materialChosen();
}

void dlgToolPrms::materialChosen() {
  if (loading_) return;
  store_.toolmaterial[current_] = cmbToolMaterial.text();
  edited();
  refresh();
}

void dlgToolPrms::diameterChanged() {
  if (loading_) return;
  const std::optional<float> diameter = fitting(Val(txtdiameter.text()));
  if (diameter && *diameter / 2 > 0) {
    store_.toolradius[current_] = *diameter / 2;
    edited();
  }
  refresh();
}

void dlgToolPrms::validateDiameter(Validation& validation) {
  if (Val(txtdiameter.text()) > 0) return;
  validation.refuse();
  chest_.session.host.prompts.showMessage(
      {.text = "Diameter must be greater than 0.", .title = "Tool Chest"});
}

// A speed that does not fit is not taken: what the tool has comes back.
void dlgToolPrms::takeTypedSpeed() {
  if (loading_ || txtSpindleSpeed.text() == shownSpeed_) return;
  useSpeed();
}

void dlgToolPrms::useSpeed() {
  const std::optional<float> speed = fitting(Val(txtSpindleSpeed.text()));
  if (speed) {
    store_.toolspindlespeed[current_] = *speed;
    followsSpeed_ = *speed == 0;
    edited();
  }
  showSpindleSpeed(store_.toolspindlespeed[current_]);
}

void dlgToolPrms::useAdvice() {
  if (!advice_) return;
  store_.cfg_rough_feedrate = advice_->roughingFeed;
  store_.cfg_finish_feedrate = advice_->finishingFeed;
  showSpindleSpeed(static_cast<float>(advice_->spindle));
  useSpeed();
}

// Black is in both kinds of values; the darkest reds would be taken for entries of the palette.
void dlgToolPrms::chooseColor() {
  const auto color = chest_.colors.chooseColor(ColorOf(store_.toolcolor[current_]));
  if (!color) return;
  store_.toolcolor[current_] = *color > 0 && *color < kPaletteSize ? kPaletteSize : *color;
  edited();
  showColor();
}

void dlgToolPrms::addTool() {
  const Procedure here("dlgToolPrms.cmdAdd_Click()");
  if (!trimmed(txttool.text()).empty()) storeRow();
  int tool = 0;
  while (tool <= kLastWrittenTool && !isFreeTool(store_, tool)) ++tool;
  if (tool > kLastWrittenTool) {
    rebuildList();
    chest_.session.host.prompts.showMessage(
        {.text = "All available tools are used.", .title = "Add Tool"});
    return;
  }
  store_.toolname[tool] = "tool #" + std::to_string(tool + 1);
  store_.toolradius[tool] = 0;
  store_.toolcolor[tool] = 0;
  store_.toolmaterial[tool].clear();
  store_.toolmilltype[tool] = 0;
  store_.toolflutes[tool] = 0;
  store_.toolfeedrate[tool] = "0";
  store_.toolspindlespeed[tool] = 0;
  store_.toolrecspindle[tool] = 0;
  store_.toolcuttingspeed[tool] = 0;
  store_.toolinside[tool] = 0;
  edited();
  showRow(tool);
  rebuildList();
}

void dlgToolPrms::deleteTool() {
  const Procedure here("dlgToolPrms.cmdDelete_Click()");
  if (List1.index() < 0) return;
  const int tool = toolOf(List1.text());
  store_.toolname[tool] = kDeletedName;
  store_.toolcolor[tool] = 0;
  store_.toolradius[tool] = 0;
  edited();
  showRow(inUse_);
  rebuildList();
}

// ---- The library

// The file that the operator chooses; nothing, after a word about it, when its ending tells no
// format.
std::optional<std::string> dlgToolPrms::chooseLibrary(const char* title, bool forSaving) {
  Prompts& prompts = chest_.session.host.prompts;
  auto path = prompts.chooseFile({.title = title,
                                  .pattern = kLibraryFilter,
                                  .folder = chest_.session.appfolder,
                                  .name = forSaving ? "tools.csv" : "",
                                  .forSaving = forSaving});
  if (!path || toolLibraryFormat(*path)) return path;
  prompts.showMessage({.text = std::string(fileNameOf(*path)) +
                               ": a tool library is a .csv file or a tool table, .tbl",
                       .title = title,
                       .icon = MessageIcon::Error});
  return std::nullopt;
}

void dlgToolPrms::importLibrary() {
  const Procedure here("dlgToolPrms.cmdImport_Click()");
  const auto path = chooseLibrary(kImportTitle, /*forSaving=*/false);
  if (!path) return;
  storeRow();
  const ToolImport result = importTools(store_, *path);
  showRow(current_);
  rebuildList();
  const bool clean = result.problems.empty();
  chest_.session.host.prompts.showMessage(
      {.text = importReport(result),
       .title = kImportTitle,
       .icon = clean ? MessageIcon::Information : MessageIcon::Warning});
}

void dlgToolPrms::exportLibrary() {
  const Procedure here("dlgToolPrms.cmdExport_Click()");
  const auto path = chooseLibrary(kExportTitle, /*forSaving=*/true);
  if (!path) return;
  storeRow();
  rebuildList();
  writeFile(chest_.session.host.guard, *path, FileKind::ToolLibrary, exportedTools(store_, *path));
}

// ---- Storing

// What was not typed is not touched: a name that is shown shorter than it is stays. A tool that was
// looked at without an edit may still get what it lacked.
void dlgToolPrms::storeRow() {
  const StoredTool before = storedTool(store_, current_);
  storeName();
  storeFlutes();
  if (txtSpindleSpeed.text() != shownSpeed_) {
    useSpeed();
  } else {
    store_.toolspindlespeed[current_] = parseFloat(shownSpeed_);
  }
  store_.toolmaterial[current_] = cmbToolMaterial.text();
  store_.toolmilltype[current_] = static_cast<int>(chosenType());
  if (storedTool(store_, current_) != before) edited();
  settleByToolInUse(store_);
}

void dlgToolPrms::storeName() {
  if (txttool.text() == shownName_) return;
  store_.toolname[current_] = lowerCased(trimmed(txttool.text()));
}

void dlgToolPrms::storeFlutes() {
  const double flutes = Val(txtNumberFlutes.text());
  if (std::abs(flutes) <= kMaxFlutes) store_.toolflutes[current_] = roundHalfEven(flutes);
}

void dlgToolPrms::takeOver() {
  const Procedure here("dlgToolPrms.cmdAccept_Click()");
  store_.selectedtool = current_;
  storeRow();
  edited();
}

void mnuCAMSelectTool_Click(const ToolChest& chest) {
  const Procedure here("mnuCAMSelectTool_Click()");
  dlgToolPrms dialog(chest, chest.session.store.selectedtool);
  chest.session.host.prompts.showModal(dialog);
}

}  // namespace tess
