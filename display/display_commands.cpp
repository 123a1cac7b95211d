// The commands of the view, from the list of all.
#include "display/display_commands.h"

namespace tess {
namespace {

#define TESSIMO_ADDRESS(descriptor) &descriptor,
constexpr const ViewCommand* kCommands[] = {TESSIMO_DISPLAY_COMMANDS(TESSIMO_ADDRESS)};
#undef TESSIMO_ADDRESS

}  // namespace

std::span<const ViewCommand* const> displayCommands() {
  return kCommands;
}

}  // namespace tess
