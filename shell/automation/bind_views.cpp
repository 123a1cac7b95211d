// The view of scripts: `view` shows a rectangle, `plot` writes what is shown as a picture.
#include <array>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/automation/bindings.h"
#include "shell/automation/lua_routines.h"
#include "shell/printing.h"

namespace tess {
namespace {

constexpr char kPictureExtension[] = "png";

int showRectangle(Script& script, lua_State* L) {
  if (!lua_istable(L, 1)) raise(L, "a view is a table of two corners, as {x0, y0, x1, y1}");
  std::array<double, 4> corners{};
  lua_Integer place = 0;
  for (double& corner : corners) {
    lua_geti(L, 1, ++place);
    try {
      corner = static_cast<double>(valueAt<float>(L, -1));
    } catch (const RuntimeFailure& failure) {
      throw RuntimeFailure(failure.number(), "number " + std::to_string(place) + " of the corners");
    }
  }
  Application& application = script.application;
  script.hand.act([&] {
    application.guarded("frmMain.zoomwindow()", [&] {
      application.interaction.viewCommands.zoomwindow(corners[0], corners[1], corners[2],
                                                      corners[3], /*force=*/true);
    });
  });
  return 0;
}

void requireUsable(const PixelSize& size) {
  if (isUsable(size)) return;
  throw ScriptMisuse("a picture has sides of 1 to " + std::to_string(kLongestSide) +
                     " pixels, not " + std::to_string(size.width) + " by " +
                     std::to_string(size.height));
}

// A side that is left out is that of the surface.
void plot(Script& script, const std::string& file, std::optional<int> width,
          std::optional<int> height) {
  Application& application = script.application;
  requireSensiblePath(file);
  std::string folder = application.store.drawingpath;
  const std::string name = splitPath(folder, file, kPictureExtension);
  requireWritable(script, folder + name, FileKind::Picture);
  const SurfaceArea area = application.interaction.ScreenProxy.surface().area();
  const PixelSize size{width.value_or(static_cast<int>(area.width)),
                       height.value_or(static_cast<int>(area.height))};
  requireUsable(size);
  if (isVectorPicture(name)) {
    script.hand.settle();
    return writeVectorPicture(application.session, folder + name);
  }
  if (!script.writePicture) throw ScriptMisuse("this program writes no pictures");
  script.hand.settle();
  script.writePicture(application, folder + name, size);
}

}  // namespace

void bindViews(lua_State* L) {
  setGlobal(L, {"view", guarded<showRectangle>});
  setGlobal(L,
            routine("plot", [](Script& script, const std::string& file, std::optional<int> width,
                               std::optional<int> height) { plot(script, file, width, height); }));
}

}  // namespace tess
