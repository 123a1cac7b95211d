// Surfaces and surroundings that keep what they were asked to do.
#include "tests/support/recording_target.h"

namespace tess::testing {

RecordingSurface::~RecordingSurface() = default;
RecordingPaper::~RecordingPaper() = default;
RecordingPointer::~RecordingPointer() = default;
LoggingSurroundings::~LoggingSurroundings() = default;
LoggingPrompts::~LoggingPrompts() = default;

}  // namespace tess::testing
