// Feeds any bytes to the readers of the two records of other programs: where the machine-control
// program lies, and which one files are sent to. A path never reaches over a line end, and a choice
// comes back from its own text as it was.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "cnc/control_location.h"
#include "cnc/send_program.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  const std::string path = tess::locationIn(content);
  if (path.find_first_of("\r\n") != std::string::npos || path == tess::kNoPath) std::abort();
  const tess::SendChoice choice = tess::sendChoiceIn(content);
  if (tess::sendChoiceIn(tess::sendChoiceText(choice)) != choice) std::abort();
  const std::string shown = tess::commandText({choice.program, path});
  for (const char letter : shown) {
    if (static_cast<unsigned char>(letter) < ' ') std::abort();
  }
  return 0;
}
