// Printing.
#include "shell/printing.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/text.h"
#include "display/svg_picture.h"
#include "shell/application.h"
#include "shell/frmPageSetup.h"
#include "shell/frmPrintPreview.h"
#include "shell/frmPrintScale.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

constexpr char kPageSetupFile[] = "print.cfg";
constexpr double kMarkPixel = 0.25;  // millimetres of paper for a pixel of the screen's marks

// False, and said, where the platform brings no paper.
bool canPrint(Application& application) {
  if (application.paper != nullptr) return true;
  application.session.host.prompts.showMessage(
      {.text = "There is nothing to print on.", .title = "Print", .icon = MessageIcon::Warning});
  return false;
}

std::string pdfName(const Session& session) {
  std::string folder;
  const std::string& drawing = session.store.drawingname;
  return splitPath(folder, drawing.empty() ? "drawing" : drawing, ".pdf");
}

void writePdf(Application& application, Paper& paper) {
  Session& session = application.session;
  const auto chosen = session.host.prompts.chooseFile({.title = "Print to File",
                                                       .pattern = "*.pdf",
                                                       .folder = session.store.drawingpath,
                                                       .name = pdfName(session),
                                                       .forSaving = true});
  if (!chosen) return;
  std::string folder = session.store.drawingpath;
  const std::string name = splitPath(folder, *chosen, ".pdf");
  writeFile(session.host.guard, folder + name, FileKind::Picture, paper.pdf());
}

void printDocument(Application& application, Paper& paper) {
  if (!paper.sendToPrinter()) writePdf(application, paper);
}

void showDocument(Application& application, Paper& paper) {
  if (paper.showPreview()) return;
  frmPrintPreview preview;
  application.session.host.prompts.showModal(preview);
  if (preview.accepted()) printDocument(application, paper);
}

// The page of the screen lies upright unless the operator wants it otherwise.
void printScreen(Application& application, PrintOutput output) {
  if (!canPrint(application)) return;
  Paper& paper = *application.paper;
  const PageSetup setup = pageSetupOf(application.session);
  paper.setPage(sidesOf(setup, PageOrientation::Portrait), setup.margin);
  application.interaction.printer.PrintDrawing(application.interaction.redraw, output);
}

void printSheets(Application& application, const ScaledPrint& print,
                 frmPrintScale::Purpose purpose) {
  Paper& paper = *application.paper;
  paper.compose(scaledDocument(application.session, print));
  switch (purpose) {
    case frmPrintScale::Purpose::Printer:
      return printDocument(application, paper);
    case frmPrintScale::Purpose::Preview:
      return showDocument(application, paper);
    case frmPrintScale::Purpose::File:
      return writePdf(application, paper);
  }
}

}  // namespace

PageSetup pageSetupOf(const Session& session) {
  const std::string path = session.appfolder + kPageSetupFile;
  return fileExists(path) ? readPageSetup(readFile(path)) : PageSetup{};
}

void deliverDocument(Application& application, PrintOutput output) {
  Paper& paper = *application.paper;
  if (output == PrintOutput::Preview) {
    showDocument(application, paper);
  } else {
    printDocument(application, paper);
  }
}

void mnuFilePrint_Click(Application& application) {
  const Procedure here("mnuFilePrint_Click()");
  printScreen(application, PrintOutput::Printer);
}

void mnuPrintPreview_Click(Application& application) {
  const Procedure here("mnuPrintPreview_Click()");
  printScreen(application, PrintOutput::Preview);
}

void mnuFilePrinterOptions_Click(Application& application) {
  const Procedure here("mnuFilePrinterOptions_Click()");
  Session& session = application.session;
  PageSetup setup = pageSetupOf(session);
  frmPageSetup form(setup, session.host.prompts);
  session.host.prompts.showModal(form);
  if (!form.accepted()) return;
  writeFile(session.host.guard, session.appfolder + kPageSetupFile, FileKind::Record,
            pageSetupText(setup));
}

SheetPrint scaledDocument(const Session& session, const ScaledPrint& print) {
  const double millimetres = print.scale * millimetresPerUnit(session.store);
  SheetPrint document;
  document.picture =
      vectorPicture(session.store, narrow(kMarkPixel / millimetres), session.host.prompts);
  document.plan = planSheets(session.store, document.picture.bounds, print);
  const std::string& name = session.store.drawingname;
  document.title = name.empty() ? "Untitled" : name;
  document.caption = document.title + "   " + scaleText(print.scale);
  return document;
}

void mnuFilePrintToScale_Click(Application& application) {
  const Procedure here("mnuFilePrintToScale_Click()");
  Session& session = application.session;
  if (!canPrint(application)) return;
  const VectorPicture picture = vectorPicture(
      session.store, narrow(kMarkPixel / millimetresPerUnit(session.store)), session.host.prompts);
  ScaledPrint print;
  print.page = pageSetupOf(session);
  frmPrintScale form(session, picture.bounds, print);
  form.onPrint = [&](frmPrintScale::Purpose purpose) { printSheets(application, print, purpose); };
  session.host.prompts.showModal(form);
}

bool isVectorPicture(std::string_view path) {
  return lowerCased(path).ends_with(".svg");
}

void writeVectorPicture(const Session& session, const std::string& path) {
  writeFile(session.host.guard, path, FileKind::Picture,
            svgPicture(session.store, session.host.prompts));
}

void mnuFileViewPic_Click(Application& application) {
  const Procedure here("mnuFileViewPic_Click()");
  Host& host = application.session.host;
  const auto chosen = host.prompts.chooseFile({.title = "PCX File Selector",
                                               .pattern = "*.PCX",
                                               .folder = application.store.drawingpath,
                                               .name = {},
                                               .forSaving = false});
  if (!chosen) return;
  host.surroundings.waitForKey();
  application.interaction.redraw.redrawscreen();
}

// ---- Descriptors

constexpr ShellCommand kPrintCommand{
    .info = {.tool = "miPrintPicture",
             .caption = "&Print Picture...",
             .menu = {"miFile", 310},
             .bar = {"barFile", 140}},
    .run = mnuFilePrint_Click,
};

constexpr ShellCommand kPrintPreviewCommand{
    .info = {.tool = "miPrintPreview", .caption = "Print Pre&view", .menu = {"miFile", 320}},
    .run = mnuPrintPreview_Click,
};

constexpr ShellCommand kPrintToScaleCommand{
    .info = {.tool = "miPrinttoScale", .caption = "Print &to Scale...", .menu = {"miFile", 330}},
    .run = mnuFilePrintToScale_Click,
};

constexpr ShellCommand kPrinterOptionsCommand{
    .info = {.tool = "miPrinterOptions",
             .caption = "&Printer Options...",
             .menu = {"miOptions", 140}},
    .run = mnuFilePrinterOptions_Click,
};

}  // namespace tess
