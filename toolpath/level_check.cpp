// The depth per pass against the way that it has to go.
#include "toolpath/level_check.h"

#include <cstdint>
#include <limits>

#include "core/drawing_store.h"
#include "core/number_text.h"

namespace tess {
namespace {

// Each level takes a row of the table at least.
constexpr double kMaxLevels = std::numeric_limits<std::int16_t>::max();

// A step that gets lost in the 32 bits of a depth is none.
bool stepsDown(float cut, float floor) {
  const float below = floor - cut;
  return cut > 0 && below < floor;
}

std::string fault(float cut, float z, float floor) {
  const std::string range = plainText(z) + " to " + plainText(floor);
  if (!(cut > 0)) return "It must be above 0 for the levels from " + range + ".";
  return "That is too small for the levels from " + range + ".";
}

}  // namespace

bool canGoDown(CamContext& cam, const std::string& command, float z, float floor) {
  if (!(z > floor)) return true;
  const float cut = cam.store.cfg_z_cut_per_pass;
  if (stepsDown(cut, floor) && (static_cast<double>(z) - floor) / cut < kMaxLevels) return true;
  cam.context.session.host.prompts.showMessage(
      {.text = "The Depth Per Pass, Z, is " + plainText(cut) + ".  " + fault(cut, z, floor) +
               "\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.",
       .title = command,
       .icon = MessageIcon::Warning});
  return false;
}

}  // namespace tess
