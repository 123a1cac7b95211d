// The commands of the context, from the list of all.
#include "drafting/drafting_commands.h"

namespace tess {
namespace {

#define TESSIMO_ADDRESS(descriptor) &descriptor,
constexpr const DraftingCommand* kCommands[] = {TESSIMO_DRAFTING_COMMANDS(TESSIMO_ADDRESS)};
#undef TESSIMO_ADDRESS

}  // namespace

std::span<const DraftingCommand* const> draftingCommands() {
  return kCommands;
}

}  // namespace tess
