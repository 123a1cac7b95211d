// The drafting desk on a recorded screen.
#include "tests/support/drafting_desk.h"

namespace tess::testing {

template class DraftingDesk<RecordingSurface>;

}  // namespace tess::testing
