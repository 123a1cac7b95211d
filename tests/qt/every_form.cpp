// Making each form.
#include "tests/qt/every_form.h"

#include <filesystem>
#include <fstream>

#include "cnc/dlgGcodeGen.h"
#include "cnc/dlgMenuHelper.h"
#include "cnc/dlgSendProgram.h"
#include "core/drawing_store.h"
#include "core/file_dialog.h"
#include "display/page_setup.h"
#include "drafting/dlgEditRadius.h"
#include "drafting/dlgInputReal.h"
#include "drafting/dlgPositionCursor.h"
#include "drafting/dlgSetGrids.h"
#include "drafting/frmCleanupDrawing.h"
#include "drafting/frmMirror.h"
#include "drafting/frmRotate.h"
#include "import/frmDXF.h"
#include "import/frmText.h"
#include "shell/controls_list.h"
#include "shell/frmAbout.h"
#include "shell/frmBackplot.h"
#include "shell/frmControl.h"
#include "shell/frmExamples.h"
#include "shell/frmPDFHelp.h"
#include "shell/frmPageSetup.h"
#include "shell/frmPathProof.h"
#include "shell/frmPrintPreview.h"
#include "shell/frmPrintScale.h"
#include "shell/frmProperties.h"
#include "shell/frmRestore.h"
#include "shell/frmShowError.h"
#include "shell/frmStatistics.h"
#include "tests/support/source_folder.h"
#include "toolpath/BoltCircle.h"
#include "toolpath/dlgEditPath.h"
#include "toolpath/dlgPocketingPrm.h"
#include "toolpath/dlgSelectCycle.h"
#include "toolpath/frmCornerOvercut.h"
#include "toolpath/frmFinishPath.h"
#include "toolpath/frmHoldingTabs.h"
#include "toolpath/frmPathMap.h"
#include "tools/dlgColor.h"
#include "tools/dlgTitleBlock.h"
#include "tools/dlgToolPrms.h"

namespace tess::testing {

namespace {

// `folder` takes a file for a moment.
std::vector<UnsavedWork> unsavedWork(const std::string& folder) {
  const std::string record = folder + "1.record";
  std::ofstream{record};
  std::vector<UnsavedWork> work;
  work.push_back({*AbandonedFile::claim(record), "/home/ada/parts/gear housing.cdm",
                  "03/09/2026 14:05:09", 412, 1730});
  std::filesystem::remove(record);
  return work;
}

std::unique_ptr<Form> importForm(DraftingContext& context) {
  auto form = std::make_unique<frmDXF>(context);
  form->OpenDXFFile(TESSIMO_SOURCE_DIR "/tests/import/files/", "plate_r12.dxf");
  return form;
}

std::unique_ptr<Form> viewerForm(const HandOver& handOver) {
  auto form = std::make_unique<dlgMenuHelper>(handOver);
  form->showFile(TESSIMO_SOURCE_DIR "/tests/shell/automation/golden/plate.CNC");
  return form;
}

std::unique_ptr<Form> errorForm(Prompts& prompts) {
  auto form = std::make_unique<frmShowError>(prompts);
  form->txtError.setText("Overflow\r\n  Method: do_pending()\r\n");
  return form;
}

std::vector<TabPass> passRoundASquare() {
  const PlanePoint corners[] = {{1, 1}, {4, 1}, {4, 4}, {1, 4}, {1, 1}};
  TabPass pass;
  for (int side = 0; side < 4; ++side) {
    pass.way.push_back(lineCurve(corners[side], corners[side + 1]));
  }
  pass.distance = pass.toolRadius = 0.125;
  return {pass};
}

template <class Shown, class... Arguments>
NamedForm plain(Arguments&... arguments) {
  return {"", [&arguments...] { return std::make_unique<Shown>(arguments...); }};
}

std::vector<NamedForm> draftingForms(Application& application) {
  DraftingContext& context = application.interaction.context;
  Prompts& prompts = application.session.host.prompts;
  return {plain<dlgSetGrids>(context),
          plain<dlgPositionCursor>(context),
          plain<frmCleanupDrawing>(context),
          plain<frmMirror>(context),
          plain<frmRotate>(context),
          plain<frmProperties>(context),
          {"", [&] { return std::make_unique<dlgEditRadius>(context, 0.5F, 0.0F); }},
          {"", [&] { return std::make_unique<dlgInputReal>(prompts, "Scale", 1.0F, true); }},
          {"", [&] { return importForm(context); }},
          {"", [&] { return std::make_unique<frmText>(context, application.interaction.fonts); }}};
}

InsideCorners cornersWithOneBlocked() {
  return {.drops = {{.corner = {0, 0}, .place = {0.25, 0.25}, .bottom = {0.18, 0.18}}},
          .blocked = 1};
}

std::vector<NamedForm> pathForms(Application& application) {
  CamContext& cam = application.interaction.cam;
  Session& session = application.session;
  return {plain<dlgPocketingPrm>(application.store),
          plain<BoltCircle>(cam),
          plain<dlgEditPath>(cam),
          plain<dlgSelectCycle>(cam),
          plain<frmFinishPath>(cam),
          {"", [&] { return std::make_unique<frmCornerOvercut>(cam, cornersWithOneBlocked()); }},
          {"", [&] { return std::make_unique<frmHoldingTabs>(cam, passRoundASquare(), -0.375F); }},
          plain<frmPathMap>(cam),
          {"",
           [&] {
             return std::make_unique<dlgToolPrms>(
                 ToolChest{session, application.feeds, application.colors}, 0);
           }},
          {"",
           [&] {
             return std::make_unique<dlgTitleBlock>(
                 TitleBlock{session, application.feeds, application.interaction.viewCommands,
                            application.interaction.context.changes});
           }},
          {"", [] { return std::make_unique<dlgColor>(Rgb{}); }},
          plain<dlgGcodeGen>(application.handOver),
          {"", [&] { return viewerForm(application.handOver); }},
          plain<dlgSendProgram>(application.handOver)};
}

std::vector<NamedForm> shellForms(Application& application) {
  Session& session = application.session;
  Prompts& prompts = session.host.prompts;
  auto work = std::make_shared<std::vector<UnsavedWork>>(unsavedWork(session.appfolder));
  auto examples =
      std::make_shared<std::vector<Example>>(availableExamples(TESSIMO_SOURCE_DIR "/examples/"));
  auto page = std::make_shared<PageSetup>();
  auto print = std::make_shared<ScaledPrint>();
  auto controls =
      std::make_shared<std::vector<ControlChoice>>(availableControls(session.appfolder));
  return {{"", [&session] { return std::make_unique<frmAbout>(session, "Qt 6, a desk"); }},
          plain<frmSplash>(session),
          {"", [&session] { return std::make_unique<frmPDFHelp>(session, ""); }},
          {"", [examples] { return std::make_unique<frmExamples>(*examples); }},
          plain<frmStatistics>(),
          plain<frmPathProof>(),
          plain<frmBackplot>(),
          plain<frmPrintPreview>(),
          {"", [work] { return std::make_unique<frmRestore>(*work); }},
          {"", [page, &prompts] { return std::make_unique<frmPageSetup>(*page, prompts); }},
          {"",
           [print, &session] {
             return std::make_unique<frmPrintScale>(session, Box{0, 0, 4, 3}, *print);
           }},
          {"", [controls,
                &session] { return std::make_unique<frmControl>(*controls, session.setupname); }},
          {"", [&] { return errorForm(prompts); }},
          {"",
           [&session] {
             return fileDialogFor({.title = "Open Drawing File",
                                   .pattern = "Drawing Files (*.CDM)|*.cdm|All Files (*.*)|*.*",
                                   .folder = session.store.drawingpath,
                                   .name = ""});
           }},
          {"", [&session] {
             return fileDialogFor({.title = "Save Drawing File",
                                   .pattern = "Drawing Files (*.CDM)|*.cdm",
                                   .folder = session.store.drawingpath,
                                   .name = "part.cdm",
                                   .forSaving = true});
           }}};
}

}  // namespace

std::vector<NamedForm> everyForm(DesktopProgram& program) {
  Application& application = program.application();
  std::vector<NamedForm> all;
  for (auto* forms : {draftingForms, pathForms, shellForms}) {
    for (NamedForm& form : forms(application)) {
      form.name = form.make()->name();
      all.push_back(std::move(form));
    }
  }
  return all;
}

}  // namespace tess::testing
