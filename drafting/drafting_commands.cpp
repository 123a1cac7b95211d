// The commands of the desk, from the list of all.
#include "drafting/drafting_commands.h"

namespace tess {
namespace {

#define TESSIMO_ADDRESS(descriptor) &descriptor,
constexpr const DeskCommand* kCommands[] = {TESSIMO_DRAFTING_COMMANDS(TESSIMO_ADDRESS)};
#undef TESSIMO_ADDRESS

}  // namespace

std::span<const DeskCommand* const> draftingCommands() {
  return kCommands;
}

}  // namespace tess
