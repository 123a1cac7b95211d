// Drawing Title Block.
#include "tools/dlgTitleBlock.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>

#include "core/conventions.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/text.h"
#include "core/units.h"

namespace tess {
namespace {

constexpr char kInchFormat[] = "##0.00000";
constexpr char kMetricFormat[] = "####0.0000";

constexpr char kPathsStay[] =
    "The drawing was converted. The tool paths were not: they keep their numbers, which now stand "
    "for the new units. Clear them and place them anew.";

float narrowed(double value) {
  const auto narrow = static_cast<float>(value);
  if (!std::isfinite(narrow)) throw overflow();
  return narrow;
}

// What a length is multiplied by on the way from one unit to the other.
double unitFactor(bool fromMetric, bool toMetric) {
  if (fromMetric == toMetric) return 1;
  return toMetric ? kMillimetresPerInch : 1 / kMillimetresPerInch;
}

int indexOf(const ComboBox& list, std::string_view text) {
  const auto found =
      std::find_if(list.items().begin(), list.items().end(),
                   [text](const std::string& item) { return sameFeedsText(item, text); });
  return found == list.items().end() ? -1 : static_cast<int>(found - list.items().begin());
}

// Selects the text where the list has it. True when it does, and for a blank one, which asks for
// nothing.
bool select(ComboBox& list, std::string_view text) {
  const int index = indexOf(list, text);
  if (index >= 0) list.setIndex(index);
  return index >= 0 || trimmed(text).empty();
}

bool hasColumn(const std::vector<std::string>& columns, std::string_view name) {
  return std::any_of(columns.begin(), columns.end(),
                     [name](const std::string& column) { return equalIgnoringCase(column, name); });
}

// A list of one column with its label; both are out of sight when the column has nothing to offer.
void offer(ComboBox& list, Label& label, std::vector<std::string> texts, bool visible) {
  list.setItems(std::move(texts));
  list.setVisible(visible);
  label.setVisible(visible);
}

// What the file of a drawing holds of the title block.
auto drawingFields(const DrawingStore& store) {
  return std::tuple(isMetric(store), store.partdimx, store.partdimy, store.partdimz,
                    store.drawingtitle, store.designername, store.drawingrevision,
                    store.creationdate, store.partmaterial);
}

// ---- The change of units

struct Stock {
  bool metric;
  float length, width, height;
  bool operator==(const Stock&) const = default;
};

Stock stockOf(const DrawingStore& store) {
  return {isMetric(store), store.partdimx, store.partdimy, store.partdimz};
}

void putBack(Session& session, const DrawingSettings& settings, const Stock& stock) {
  DrawingStore& store = session.store;
  static_cast<DrawingSettings&>(store) = settings;
  store.units = std::string(1, stock.metric ? 'M' : 'I');
  store.partdimx = stock.length;
  store.partdimy = stock.width;
  store.partdimz = stock.height;
  set_num_formats(session);
}

// Coordinates that do not fit into the other unit leave the drawing and its stock in this one.
void convertDrawing(Session& session, const Stock& before) {
  DrawingStore& store = session.store;
  const DrawingSettings settings = store;
  set_num_formats(session);
  store.unitfactor = static_cast<float>(unitFactor(before.metric, isMetric(store)));
  try {
    convert(session);
  } catch (const RuntimeFailure&) {
    putBack(session, settings, before);
    throw;
  }
  if (store.NumPathSegments == 0) return;
  session.host.prompts.showMessage(
      {.text = kPathsStay, .title = "Drawing Title Block", .icon = MessageIcon::Warning});
}

}  // namespace

// ---- Sizes

void LengthField::show(double value, bool metric) {
  const std::string text = formatNumber(narrowed(value), metric ? kMetricFormat : kInchFormat);
  value_ = value;
  shown_ = text;
  box_.setText(text);
}

float LengthField::value() const {
  return narrowed(exact());
}

double LengthField::exact() const {
  if (box_.text() == shown_) return value_;
  const double typed = Val(box_.text());
  narrowed(typed);
  return typed;
}

// ---- The form

dlgTitleBlock::dlgTitleBlock(const TitleBlock& block)
    : Form("dlgTitleBlock", "Drawing Title Block"),
      block_(block),
      store_(block.session.store),
      sizes_{LengthField(txtPartLength), LengthField(txtPartWidth), LengthField(txtPartHeight)},
      texts_{TextField{txtDrawingTitle, &DrawingStore::drawingtitle},
             TextField{txtDesignerName, &DrawingStore::designername},
             TextField{txtRevision, &DrawingStore::drawingrevision},
             TextField{txtDate, &DrawingStore::creationdate}} {
  nameControls();
  wire();
}

void dlgTitleBlock::nameControls() {
  lblDrawingTitle.setCaption("Drawing &Title:");
  lblDesignerName.setCaption("&Designer:");
  lblRevision.setCaption("&Revision:");
  lblDate.setCaption("Dat&e:");
  fraUnits.setCaption("Units");
  optInch.setCaption("&Inch");
  optMM.setCaption("&Millimeter");
  fraStock.setCaption("Stock");
  optRectangular.setCaption("Rectan&gular");
  optRoundStock.setCaption("R&ound");
  lblPartLength.setCaption("Length");
  lblPartWidth.setCaption("Width");
  lblPartHeight.setCaption("Height");
  fraMaterial.setCaption("Material");
  optStockMaterial.setCaption("&Stock Material");
  lblMaterialCategory.setCaption("Category");
  lblMaterialName.setCaption("Material");
  lblHardness.setCaption("Hardness");
  lblMaterialCondition.setCaption("Condition");
  optUserDefinedMaterial.setCaption("&User Defined Material");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
}

void dlgTitleBlock::wire() {
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] { fill(); };
  onAccept = [this] { takeOver(); };
  optInch.onClick = [this] { changeUnits(/*metric=*/false); };
  optMM.onClick = [this] { changeUnits(/*metric=*/true); };
  optRectangular.onClick = [this] { chooseStock(); };
  optRoundStock.onClick = [this] { chooseStock(); };
  optStockMaterial.onClick = [this] { chooseKindOfMaterial(); };
  optUserDefinedMaterial.onClick = [this] { chooseKindOfMaterial(); };
  cmbMaterialCategory.onClick = [this] { chooseCategory(); };
  cmbMaterial.onClick = [this] { chooseMaterial(); };
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
}

// ---- Loading

void dlgTitleBlock::fill() {
  const Procedure here("dlgTitleBlock.Form_Load()");
  for (const TextField& field : texts_) field.box.setText(store_.*field.text);
  fillStock();
  fillMaterial();
}

void dlgTitleBlock::fillStock() {
  metric_ = isMetric(store_);
  const float sizes[] = {store_.partdimx, store_.partdimy, store_.partdimz};
  for (std::size_t i = 0; i < sizes_.size(); ++i) sizes_[i].show(sizes[i], metric_);
  (metric_ ? optMM : optInch).setValue(true);
  (store_.roundstock ? optRoundStock : optRectangular).setValue(true);
}

void dlgTitleBlock::fillMaterial() {
  OpenSpeedsFeeds(block_.database, LocateSpeedsFeeds(block_.session));
  cmbMaterialCategory.setItems(materialCategories(block_.database));
  const bool known = selectStoredMaterial();
  txtMaterial.setText(store_.partmaterial);
  (known ? optStockMaterial : optUserDefinedMaterial).setValue(true);
}

// True when the lists have all that the drawing says of its material.
bool dlgTitleBlock::selectStoredMaterial() {
  if (!select(cmbMaterialCategory, store_.materialcategory)) return false;
  if (!select(cmbMaterial, store_.partmaterial) || cmbMaterial.index() < 0) return false;
  const bool hardness = select(cmbHardness, store_.parthardness);
  const bool condition = select(cmbMaterialCondition, store_.materialcondition);
  return hardness && condition;
}

// ---- What the operator does

// Sizes that do not fit into the other unit leave the dialog in this one.
void dlgTitleBlock::changeUnits(bool metric) {
  if (metric == metric_) return;
  try {
    convertSizes(unitFactor(metric_, metric), metric);
  } catch (const RuntimeFailure&) {
    (metric_ ? optMM : optInch).setValue(true);
    throw;
  }
  metric_ = metric;
}

void dlgTitleBlock::convertSizes(double factor, bool metric) {
  std::array<double, 3> converted{};
  std::transform(sizes_.begin(), sizes_.end(), converted.begin(),
                 [factor](const LengthField& size) { return size.exact() * factor; });
  for (const double size : converted) narrowed(size);  // all of them, or none
  for (std::size_t i = 0; i < sizes_.size(); ++i) sizes_[i].show(converted[i], metric);
}

// Round stock has a diameter and no width; the width it had as a rectangle is kept.
void dlgTitleBlock::chooseStock() {
  const bool round = optRoundStock.value();
  lblPartLength.setCaption(round ? "Diameter" : "Length");
  lblPartWidth.setVisible(!round);
  txtPartWidth.setVisible(!round);
}

void dlgTitleBlock::chooseCategory() {
  table_ = tableOfCategory(block_.database, cmbMaterialCategory.text());
  FeedsTexts materials;
  block_.database.query(materialsStatement(table_), [&](const FeedsRow& row) {
    materials.add(row.text("Material").value_or(""));
    return true;
  });
  cmbMaterial.setItems(materials.take());
  offer(cmbHardness, lblHardness, {}, /*visible=*/true);
  offer(cmbMaterialCondition, lblMaterialCondition, {}, /*visible=*/true);
}

// A column counts as one that the table lacks when its first value is empty.
void dlgTitleBlock::chooseMaterial() {
  if (cmbMaterial.index() < 0) return;
  txtMaterial.setText(cmbMaterial.text());
  const SpeedsFeeds& database = block_.database;
  const bool byHardness = hasColumn(database.columnsOf(materialsStatement(table_)), "Hardness");
  FeedsTexts hardnesses;
  FeedsTexts codes;
  std::optional<bool> showHardness;
  std::optional<bool> showCondition;
  database.query(materialStatement(table_, cmbMaterial.text(), byHardness),
                 [&](const FeedsRow& row) {
                   const std::string hardness = row.text("Hardness").value_or("");
                   const std::string code = row.text("Material Condition").value_or("");
                   if (!showHardness) showHardness = !trimmed(hardness).empty();
                   if (!showCondition) showCondition = !trimmed(code).empty();
                   hardnesses.add(hardness);
                   codes.add(code);
                   return true;
                 });
  FeedsTexts conditions;
  for (const std::string& code : codes.take()) conditions.add(conditionDescription(database, code));
  offer(cmbHardness, lblHardness, hardnesses.take(), showHardness.value_or(false));
  offer(cmbMaterialCondition, lblMaterialCondition, conditions.take(),
        showCondition.value_or(false));
}

void dlgTitleBlock::chooseKindOfMaterial() {
  const bool listed = optStockMaterial.value();
  for (Control* const control : std::initializer_list<Control*>{
           &cmbMaterialCategory, &cmbMaterial, &cmbHardness, &cmbMaterialCondition}) {
    control->setEnabled(listed);
  }
  txtMaterial.setEnabled(!listed);
}

// ---- Accepting

void dlgTitleBlock::takeOver() {
  const Procedure here("dlgTitleBlock.cmdAccept_Click()");
  const auto before = drawingFields(store_);
  const float length = sizes_[0].value();
  const float width = sizes_[1].value();
  const float height = sizes_[2].value();
  store_.partdimx = length;
  store_.partdimy = width;
  store_.partdimz = partHeightOr(height);
  store_.roundstock = optRoundStock.value();
  store_.units = std::string(1, metric_ ? 'M' : 'I');
  for (const TextField& field : texts_) store_.*field.text = field.box.text();
  takeOverMaterial();
  store_.setupchanged = true;
  if (drawingFields(store_) != before) markUnsaved();
  block_.view.fitview(/*keepview=*/false);
}

void dlgTitleBlock::markUnsaved() {
  Change change(block_.changes);
  change.marksUnsaved();
  change.keep({.redraws = false});
}

// What the tables have of a listed material holds for no other one.
void dlgTitleBlock::takeOverMaterial() {
  store_.partmaterial = txtMaterial.text();
  store_.parthardness.clear();
  store_.materialcondition.clear();
  if (!optStockMaterial.value()) return;
  if (cmbMaterialCategory.index() >= 0) store_.materialcategory = cmbMaterialCategory.text();
  if (cmbHardness.isVisible()) store_.parthardness = cmbHardness.text();
  if (cmbMaterialCondition.isVisible()) store_.materialcondition = cmbMaterialCondition.text();
}

// ---- The command

void mnuOptionsDrawTitleBlock_Click(const TitleBlock& block) {
  const Procedure here("mnuOptionsDrawTitleBlock_Click()");
  Session& session = block.session;
  const Stock before = stockOf(session.store);
  dlgTitleBlock dialog(block);
  session.host.prompts.showModal(dialog);
  const Stock after = stockOf(session.store);
  if (after == before) return;
  if (after.metric != before.metric) convertDrawing(session, before);
  session.listener.moveMarker(0, 0);
  block.view.fitview(/*keepview=*/false);
}

}  // namespace tess
