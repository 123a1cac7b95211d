// The drafting context on a recorded screen.
#include "tests/support/drafting_test_context.h"

namespace tess::testing {

template class DraftingTest<RecordingSurface>;

}  // namespace tess::testing
