// Import DXF.
#include "import/frmDXF.h"

#include "core/count_text.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/text.h"
#include "geometry/open_outlines.h"
#include "import/import_commands.h"
#include "import/remembered_options.h"

namespace tess {
namespace {

constexpr char kDxfExtension[] = ".DXF";
constexpr std::size_t kExtensionLength = 4;  // with its dot
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

}  // namespace

frmDXF::frmDXF(DraftingContext& context) : Form("frmDXF", "Import DXF File"), context_(context) {
  cmdOpenDXF.setCaption("&Open DXF File...");
  chkConnectPoints.setCaption("&Connect Points");
  chkAutoAlign.setCaption("&Auto Align");
  chkExactGeometry.setCaption("&Exact Geometry");
  cmdImport2TESS.setCaption("&Import");
  chkExactGeometry.setChecked(exactGeometryRemembered(context.session));
  wire();
}

void frmDXF::wire() {
  setDefaultButton(cmdImport2TESS);
  cmdOpenDXF.onClick = [this] { cmdOpenDXF_Click(); };
  cmdImport2TESS.onClick = [this] { cmdImport2TESS_Click(); };
  chkExactGeometry.onClick = [this] {
    rememberExactGeometry(context_.session, chkExactGeometry.isChecked());
  };
}

// ---- Opening

void frmDXF::cmdOpenDXF_Click() {
  const Procedure here("frmDXF.cmdOpenDXF_Click()");
  const auto chosen = context_.session.host.prompts.chooseFile(
      {.title = "Open DXF File",
       .pattern = "DXF Files (*.DXF)|*.dxf|All Files (*.*)|*.*",
       .folder = withSeparator(resolvePath(context_.session.appfolder + "DXF")),
       .name = "*.DXF"});
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

// ---- Converting

DxfImportOptions frmDXF::options() const {
  return {.connectPoints = chkConnectPoints.isChecked(),
          .autoAlign = chkAutoAlign.isChecked(),
          .exactGeometry = chkExactGeometry.isChecked()};
}

void frmDXF::cmdImport2TESS_Click() {
  const Procedure here("frmDXF.cmdImport2TESS_Click()");
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
  tellImported(rows.first());
  showDrawing();
  close();
}

void frmDXF::tellImported(int first) {
  const int last = context_.store.NumSegments;
  std::string text = countText(last - first + 1, "row") + " imported";
  if (const int open = openOutlines(context_.store, first, last); open > 0) {
    text += ", " + countText(open, "outline") + " open";
  }
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
