// A redraw with parts of its own.
#include "shell/picture.h"

#include "core/timers.h"
#include "display/pointer.h"
#include "display/redraw_sequence.h"

namespace tess {
namespace {

// What a redraw tells the main window, which is not concerned here.
class NoWindow : public RedrawListener, public Pointer, public Surroundings {
 public:
  void showDrawingName() override {}
  void updateStatusDisplay() override {}
  void PrintPreviewScreenShotWorkAround(DrawingTarget& /*target*/) override {}
  int MousePointer() const override { return kDefaultShape; }
  void setMousePointer(int /*shape*/) override {}
  void setMouseIcon(const std::string& /*path*/) override {}
  void warp(int /*pixelX*/, int /*pixelY*/) override {}
  bool isOverSurface() const override { return false; }
  void releaseCapture() override {}
  void focusSurface() override {}
  void serveEvents() override {}
  void beep() override {}
  void printOnMainWindow(const std::string& /*text*/) override {}
};

// The view that shows all of `shown` on a surface of any proportions.
View viewFor(const View& shown, const SurfaceArea& area) {
  const double across = static_cast<double>(shown.viewspan) * shown.aspectx;
  const double up = static_cast<double>(shown.viewspan) * shown.aspecty;
  const double proportion = static_cast<double>(area.width) / area.height;
  View view = shown;
  setPicSize(view, area);
  const bool widthRules = across >= up * proportion;
  view.viewspan = narrow(widthRules ? across : up);
  view.aspectx = narrow(widthRules ? 1 : proportion);
  view.aspecty = narrow(widthRules ? 1 / proportion : 1);
  return view;
}

}  // namespace

void paintPicture(Application& application, DrawingSurface& surface, bool onPaper) {
  const Procedure here("paintPicture(application,surface)");
  NoWindow window;
  VirtualTimers timers;
  View view = viewFor(application.interaction.view, surface.area());
  PictureBoxProxy target(surface);
  Renderer renderer(application.store, application.session.host.prompts, window);
  renderer.look.onPaper = onPaper;
  RedrawSequence redraw(
      {application.store, view, renderer, target, window, window, timers, window});
  redraw.paintOver = application.interaction.redraw.paintOver;
  redraw.redrawscreen();
}

}  // namespace tess
