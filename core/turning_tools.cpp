// What lathe tools are like.
#include "core/turning_tools.h"

#include "core/drawing_rows.h"
#include "core/drawing_store.h"

namespace tess {

bool worksInside(const DrawingStore& store, int pscode) {
  const int tool = toolIndex(withoutSelection(pscode));
  return tool >= 0 && store.toolinside[tool] != 0;
}

}  // namespace tess
