// The commands of importing, from the list of all.
#include "import/import_commands.h"

namespace tess {
namespace {

#define TESSIMO_ADDRESS(descriptor) &descriptor,
constexpr const DeskCommand* kCommands[] = {TESSIMO_IMPORT_COMMANDS(TESSIMO_ADDRESS)};
#undef TESSIMO_ADDRESS

}  // namespace

std::span<const DeskCommand* const> importCommands() {
  return kCommands;
}

}  // namespace tess
