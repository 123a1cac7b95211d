// The commands of the tool paths, from the list of all.
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

#define TESSIMO_ADDRESS(descriptor) &descriptor,
constexpr const CamCommand* kCommands[] = {TESSIMO_TOOLPATH_COMMANDS(TESSIMO_ADDRESS)};
#undef TESSIMO_ADDRESS

}  // namespace

std::span<const CamCommand* const> toolpathCommands() {
  return kCommands;
}

}  // namespace tess
