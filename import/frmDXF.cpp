// Import DXF.
#include "import/frmDXF.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/count_text.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/number_text.h"
#include "core/text.h"
#include "core/units.h"
#include "import/exact_geometry.h"
#include "import/import_commands.h"
#include "import/remembered_options.h"

namespace tess {
namespace {

constexpr char kDxfExtension[] = ".DXF";
constexpr std::size_t kExtensionLength = 4;  // with its dot
constexpr std::size_t kNamedKinds = 12;
constexpr char kConversionError[] = "DXF Conversion Error";

bool isDxfName(const std::string& name) {
  return upperCased(name).ends_with(kDxfExtension);
}

std::string withoutExtension(const std::string& name) {
  const bool cut = name.size() >= kExtensionLength && name[name.size() - kExtensionLength] == '.';
  return cut ? name.substr(0, name.size() - kExtensionLength) : name;
}

std::string entities(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " entity" : " entities");
}

std::string lostRows(const DxfRows& rows) {
  if (rows.more()) return "More than " + std::to_string(rows.lost()) + " rows";
  return rows.lost() == 1 ? "The last row" : "The last " + std::to_string(rows.lost()) + " rows";
}

bool isEmptyDrawing(const DrawingStore& store) {
  return store.NumSegments == 0 && store.NumPathSegments == 0;
}

std::string counted(std::size_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string place(const OpenEnd& end) {
  return plainText(end.x) + ", " + plainText(end.y);
}

// What an operator has to know before he takes it.
std::string reportOf(const ImportPreview& preview) {
  std::string text = counted(preview.rows.size(), "row", "rows") + ".";
  if (preview.openOutlines.empty()) {
    text += preview.rows.empty() ? "" : " All outlines are closed.";
  } else {
    text += " " + counted(preview.openOutlines.size(), "outline is", "outlines are") +
            " open, at " + place(preview.openOutlines.front());
    text += preview.openOutlines.size() > 1 ? " and elsewhere." : ".";
  }
  if (preview.lost > 0) {
    text += "\n" + counted(static_cast<std::size_t>(preview.lost), "row has", "rows have") +
            " no room in the drawing.";
  }
  if (preview.unconverted.empty()) return text;
  text += "\nNot converted: ";
  for (std::size_t at = 0; at < preview.unconverted.size(); ++at) {
    if (at == kNamedKinds) return text + " and other kinds.";
    text += (at == 0 ? "" : ", ") + preview.unconverted[at];
  }
  return text + ".";
}

// On the side of zero where the drawing is; on both when it crosses zero.
void fitSide(float least, float most, float& size, Int16& origin) {
  origin = least >= 0 ? 1 : most <= 0 ? -1 : 0;
  const float reach = std::max(std::abs(least), std::abs(most));
  size = origin == 0 ? 2 * reach : reach;
}

// The stock covers the drawing; along with Auto Align, to the edge.
void fitStock(DrawingStore& store) {
  const auto box = GetDrawingExtents(store);
  if (!box) return;
  fitSide(box->minx, box->maxx, store.partdimx, store.xorigin);
  fitSide(box->miny, box->maxy, store.partdimy, store.yorigin);
}

}  // namespace

frmDXF::frmDXF(DraftingContext& context) : Form("frmDXF", "Import DXF File"), context_(context) {
  cmdOpenDXF.setCaption("&Open DXF File...");
  chkConnectPoints.setCaption("&Connect Points");
  chkAutoAlign.setCaption("&Auto Align");
  chkExactGeometry.setCaption("&Exact Geometry");
  cmdImport2TESS.setCaption("&Import");
  chkFileUnits.setCaption("Take the File's &Units");
  chkFitStock.setCaption("&Fit the Stock");
  const ImportBoxes boxes = rememberedBoxes(context.session);
  chkConnectPoints.setChecked(boxes.connectPoints);
  chkAutoAlign.setChecked(boxes.autoAlign);
  chkExactGeometry.setChecked(boxes.exactGeometry);
  chkFileUnits.setChecked(boxes.fileUnits);
  chkFitStock.setChecked(boxes.fitStock);
  wire();
}

void frmDXF::wire() {
  setDefaultButton(cmdImport2TESS);
  cmdOpenDXF.onClick = [this] { cmdOpenDXF_Click(); };
  cmdImport2TESS.onClick = [this] { cmdImport2TESS_Click(); };
  for (CheckBox* box :
       {&chkConnectPoints, &chkAutoAlign, &chkExactGeometry, &chkFileUnits, &chkFitStock}) {
    box->onClick = [this] { boxClicked(); };
  }
  onLoad = [this] {
    looksAhead_ = true;
    showPreview();
  };
}

void frmDXF::boxClicked() {
  if (isWorkedByHand) rememberBoxes(context_.session, boxes());
  showPreview();
}

ImportBoxes frmDXF::boxes() const {
  return {.exactGeometry = chkExactGeometry.isChecked(),
          .connectPoints = chkConnectPoints.isChecked(),
          .autoAlign = chkAutoAlign.isChecked(),
          .fitStock = chkFitStock.isChecked(),
          .fileUnits = chkFileUnits.isChecked()};
}

// ---- Opening

void frmDXF::cmdOpenDXF_Click() {
  const Procedure here("frmDXF.cmdOpenDXF_Click()");
  std::vector<std::string> places;
  if (!file_.empty()) places.push_back(file_.substr(0, file_.size() - fileNameOf(file_).size()));
  const auto chosen = context_.session.host.prompts.chooseFile(
      {.title = "Open DXF File",
       .pattern = "DXF Files (*.DXF)|*.dxf|All Files (*.*)|*.*",
       .folder = withSeparator(resolvePath(context_.session.appfolder + "DXF")),
       .name = "*.DXF",
       .okCaption = {},
       .places = std::move(places)});
  if (!chosen || chosen->empty() || chosen->find('*') != std::string::npos) return;
  std::string folder;
  const std::string name = splitPath(folder, *chosen, "dxf");
  OpenDXFFile(folder, name);
}

void frmDXF::OpenDXFFile_From_DragDrop(const std::string& file) {
  const Procedure here("frmDXF.OpenDXFFile_From_DragDrop(file)");
  const std::string name(fileNameOf(file));
  OpenDXFFile(file.substr(0, file.size() - name.size()), name);
}

void frmDXF::OpenDXFFile(const std::string& path, const std::string& name) {
  const Procedure here("frmDXF.OpenDXFFile(path,name)");
  if (!isDxfName(name)) return;
  file_ = path + name;
  name_ = withoutExtension(name);
  read(file_);
  lblFile.setCaption(name + ": " + entities(reader_.Entities.size()));
  showPreview();
}

void frmDXF::read(const std::string& file) {
  reader_ = DxfDocument();
  try {
    readDxfFile(reader_, file);
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    const bool namesItsPlace = failure.description().starts_with(reader_.file + " ");
    showFault(namesItsPlace && !reader_.file.empty() ? failure.description()
                                                     : file + ": " + failure.description());
  }
}

void frmDXF::showFault(const std::string& trouble) {
  std::string text = trouble;
  if (const std::size_t count = reader_.Entities.size(); count > 0) {
    text += "\n\n" + entities(count) + " before it can be imported.";
  }
  context_.session.host.prompts.showMessage({.text = text,
                                             .title = "DXF File Error",
                                             .icon = MessageIcon::Warning,
                                             .buttons = MessageButtons::Ok});
}

// ---- Looking ahead

void frmDXF::showPreview() {
  if (!looksAhead_ || file_.empty()) return;
  DxfImportOptions wanted = options();
  if (takesFileUnits()) wanted.metric = fileUnits(reader_.insunits)->metric;
  const ImportPreview preview = previewImport(reader_, context_.store, wanted);
  const bool metric = wanted.metric.value_or(isMetric(context_.store));
  const std::string size = preview.box ? sizeText(*preview.box, metric) : "";
  picPreview.show([rows = preview.rows, size] { return PreviewRows{rows, size}; });
  lblReport.setCaption(reportOf(preview));
  showUnits();
}

void frmDXF::showUnits() {
  const auto file = fileUnits(reader_.insunits);
  const char* const drawing = isMetric(context_.store) ? "millimetres" : "inches";
  const char* const one = isMetric(context_.store) ? "millimetre" : "inch";
  const std::string names = file ? "The file is in " + std::string(file->many) : "";
  chkFileUnits.setEnabled(file && isEmptyDrawing(context_.store));
  if (!file) {
    lblUnits.setCaption("The file names no units: its numbers count as " + std::string(drawing) +
                        ".");
  } else if (unitFactor(reader_.insunits, isMetric(context_.store)) == 1) {
    lblUnits.setCaption(names + ", as the drawing is.");
  } else if (takesFileUnits() && unitFactor(reader_.insunits, file->metric) == 1) {
    lblUnits.setCaption(names + ", and so will the drawing be.");
  } else if (chkExactGeometry.isChecked()) {
    lblUnits.setCaption(names + ": its lengths are converted.");
  } else {
    lblUnits.setCaption(names + ", the drawing in " + drawing +
                        ": numbers come in as they stand, so that 1 " + file->one + " becomes 1 " +
                        (takesFileUnits() ? (file->metric ? "millimetre" : "inch") : one) + ".");
  }
}

// ---- Converting

DxfImportOptions frmDXF::options() const {
  return {.connectPoints = chkConnectPoints.isChecked(),
          .autoAlign = chkAutoAlign.isChecked(),
          .exactGeometry = chkExactGeometry.isChecked()};
}

// A drawing that has rows keeps its units.
bool frmDXF::takesFileUnits() const {
  const auto file = fileUnits(reader_.insunits);
  return chkFileUnits.isChecked() && file && file->metric != isMetric(context_.store) &&
         isEmptyDrawing(context_.store);
}

void frmDXF::takeFileUnits() {
  DrawingStore& store = context_.store;
  store.units = isMetric(store) ? "I" : "M";
  const double factor = isMetric(store) ? kMillimetresPerInch : 1 / kMillimetresPerInch;
  store.unitfactor = static_cast<float>(factor);
  for (float DrawingStore::*side :
       {&DrawingStore::partdimx, &DrawingStore::partdimy, &DrawingStore::partdimz}) {
    store.*side *= store.unitfactor;
  }
  set_num_formats(context_.session);
  convert(context_.session);
}

void frmDXF::cmdImport2TESS_Click() {
  const Procedure here("frmDXF.cmdImport2TESS_Click()");
  if (takesFileUnits()) takeFileUnits();
  Change change(context_.changes);
  DxfRows rows(change, context_.session.host.prompts, reader_);
  importDxf(reader_, context_.store, rows, options());
  if (rows.stopped()) {
    change.keep({.redraws = false});
    context_.redraw.redrawscreen();
  } else {
    finish(rows, change);
  }
}

void frmDXF::finish(const DxfRows& rows, Change& change) {
  showLostRows(rows);
  showUnconverted(rows);
  if (chkAutoAlign.isChecked()) {
    alignRows(change, context_.store, rows.first(), context_.store.NumSegments);
  }
  change.keep({.redraws = false});
  if (chkFitStock.isChecked()) fitStock(context_.store);
  tellImported(rows.first());
  showDrawing();
  close();
}

void frmDXF::tellImported(int first) {
  const DrawingStore& store = context_.store;
  std::vector<SegmentRow> rows;
  for (int sg = first; sg <= store.NumSegments; ++sg) rows.push_back(segmentRow(store, sg));
  const std::size_t open = openOutlines(rows, store.cfg_tolerance).size();
  std::string text = countText(rows.size(), "row") + " imported";
  if (open > 0) text += ", " + countText(open, "outline") + " open";
  context_.session.results.tell(text);
}

void frmDXF::showDrawing() {
  context_.viewCommands.ZoomExtents();
  if (name_.empty()) return;
  context_.store.drawingname = name_;
  showDrawingName(context_.session);
}

void frmDXF::showLostRows(const DxfRows& rows) {
  if (rows.lost() == 0) return;
  context_.session.host.prompts.showMessage(
      {.text = "The drawing is full: it holds at most 32767 rows.  " + lostRows(rows) + " of " +
               file_ + " could not be added.",
       .title = kConversionError,
       .icon = MessageIcon::Warning,
       .buttons = MessageButtons::Ok});
}

void frmDXF::showUnconverted(const DxfRows& rows) {
  if (rows.unconverted().empty()) return;
  std::string list;
  for (const std::string& type : rows.unconverted()) list += type + "\n";
  context_.session.host.prompts.showMessage(
      {.text = "The following drawing entities were found in " + file_ +
               " but were not able to be converted.  The resulting .CNC file may not be complete."
               "\n\n" +
               list +
               "\nTo insure that all drawing entities are converted, convert your drawing to only "
               "lines and arcs before saving it as a .DXF file.",
       .title = kConversionError,
       .icon = MessageIcon::Warning,
       .buttons = MessageButtons::Ok});
}

// ---- The command

void mnuFileImport_Click(DraftingContext& context) {
  const Procedure here("frmMain.mnuFileImport_Click()");
  frmDXF form(context);
  form.cmdOpenDXF_Click();
  context.session.host.prompts.showModal(form);
}

void importDroppedDxf(DraftingContext& context, const std::string& file) {
  const Procedure here("importDroppedDxf(file)");
  frmDXF form(context);
  form.OpenDXFFile_From_DragDrop(file);
  context.session.host.prompts.showModal(form);
}

// ---- Descriptors

constexpr DraftingCommand kImportDxfCommand{
    .info = {.tool = "miImportDXFfile", .caption = "&Import DXF File...", .menu = {"miFile", 140}},
    .run = mnuFileImport_Click,
};

}  // namespace tess
