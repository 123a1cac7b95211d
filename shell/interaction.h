// The interactive half of the program without its window: view, renderer, tools, status bar and
// drafting context, wired to each other and to the session. The desktop and the script runner bring
// the ports.
// Owns: ScreenPorts, Interaction.
#pragma once

#include <string>

#include "core/form_host.h"
#include "core/session.h"
#include "core/status_bar.h"
#include "core/tool_host.h"
#include "display/print_drawing.h"
#include "display/redraw_sequence.h"
#include "display/view_navigation.h"
#include "drafting/drafting_context.h"
#include "import/frmText.h"
#include "import/installed_fonts.h"
#include "shell/frmBackplot.h"
#include "shell/frmPathProof.h"
#include "shell/frmProperties.h"
#include "shell/frmStatistics.h"
#include "toolpath/cam_context.h"

namespace tess {

// What the platform gives beyond the host.
struct ScreenPorts {
  DrawingSurface& picDrawing;
  Pointer& pointer;
  Timers& timers;
  Bounds clientArea{};                           // of the surface to begin with, in pixels
  PrintPreviewControl* PrintPreview1 = nullptr;  // null where there is no paper
};

class Interaction : public ViewHost, public RedrawListener, public DraftingListener {
 public:
  Interaction(Session& session, const ScreenPorts& ports);
  ~Interaction() override;

  // The pressed state of the grid, snap and editing tools becomes that of their flags, as after a
  // layout was loaded.
  void readPressedTools();
  // The view's four toggles, each on its tool, and whether there is something to paste.
  void Update_menu_checks() override;
  // Captions and visibility of the recent-file tools.
  void showRecentFiles();
  // The marker moves with its cross.
  void moveMarker(float x, float y);
  // No action, no drawing mode, the arrow.
  void resetPendingAction();
  // A drawing came or went: the full view, anew.
  void showWholeDrawing() { viewCommands.fitview(/*keepview=*/false); }

  // ViewHost
  SurfaceArea clientArea() const override;
  bool toolChecked(const std::string& tool) const override { return tools.isChecked(tool); }
  void setToolChecked(const std::string& tool, bool checked) override {
    tools.setChecked(tool, checked);
  }
  std::string appfolder() const override { return session_.appfolder; }

  // RedrawListener
  void showDrawingName() override;
  void updateStatusDisplay() override;
  void PrintPreviewScreenShotWorkAround(DrawingTarget& target) override;

  // DraftingListener
  void showStatistics(int segments, int paths, const std::string& zoom) override;
  void UpdatePropertyWindow() override;
  void selectEntity(int sg) override;
  void textPointerMoved(int button, int shift, float x, float y) override;
  void textPointerReleased(int button, int shift, float x, float y) override;
  void textDragReset() override;
  void textWheel(int steps, int shift) override;
  void textPlacementEnded() override;

 private:
  Session& session_;

 public:
  // Each works on those above it, and each may tell this as a listener as long as it lives: what
  // listening needs stands above them all.
  ToolHost tools;
  StatusBar statusBar;
  FormHost forms;
  class frmStatistics frmStatistics;
  class frmPathProof frmPathProof;
  class frmBackplot frmBackplot;
  PictureBoxProxy ScreenProxy;
  View view;
  Renderer renderer;
  RedrawSequence redraw;
  DrawingPrinter printer;
  PictureDisk pictures;
  CState state;
  ViewCommands viewCommands;
  ViewNavigation navigation;
  DraftingContext context;
  CamContext cam;
  frmProperties properties;
  InstalledFonts fonts;
  class frmText text;
};

}  // namespace tess
