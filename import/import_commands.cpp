// The commands of importing, from the list of all.
#include "import/import_commands.h"

namespace tess {
namespace {

#define TESSIMO_ADDRESS(descriptor) &descriptor,
constexpr const DraftingCommand* kCommands[] = {TESSIMO_IMPORT_COMMANDS(TESSIMO_ADDRESS)};
#undef TESSIMO_ADDRESS

}  // namespace

std::span<const DraftingCommand* const> importCommands() {
  return kCommands;
}

}  // namespace tess
