// `call` for the cutter, its material, and the texts of the property window.
#include "shell/automation/tool_chest_routines.h"

#include "core/conventions.h"
#include "core/drawing_store.h"
#include "shell/c_segment.h"
#include "tools/recommendation.h"

namespace tess {
namespace {

using std::optional;
using std::string;

// The database, opened as a dialog opens it.
SpeedsFeeds& openedFeeds(Application& application) {
  OpenSpeedsFeeds(application.feeds, LocateSpeedsFeeds(application.session));
  return application.feeds;
}

CSegment segmentOf(Application& application) {
  return CSegment(application.session, application.interaction.context.changes);
}

constexpr Routine kRoutines[] = {
    // The name of a row, and the row of a name: 0 for a text that is none.
    routine("SegmentName",
            [](Application& application, int sg) {
              CSegment segment = segmentOf(application);
              segment.setSegmentNumber(sg);
              return segment.SegmentName();
            }),
    routine("InitializeSegmentFromName",
            [](Application& application, const string& name) {
              CSegment segment = segmentOf(application);
              segment.InitializeSegmentFromName(name);
              return segment.SegmentNumber();
            }),
    routine("AngleAsString", [](float radians) { return AngleAsString(radians); }),
    routine("PointAsString",
            [](Session& session, float x, float y) { return PointAsString(session, x, y); }),
    routine("CoordinateAsString",
            [](Session& session, float value) { return CoordinateAsString(session, value); }),

    // A row of the tool table from 0; without a type it is the tool's own.
    routine("RecommendSpeeds",
            [](Application& application, int tool, int flutes, float diameter, optional<int> type) {
              const bool known = tool >= 0 && tool <= kLastTool;
              const int own = known ? static_cast<int>(application.store.toolmilltype[tool]) : 0;
              RecommendSpeeds(application.store, openedFeeds(application), tool, flutes, diameter,
                              millTypeOf(type.value_or(own)));
            }),
    routine("LookupConditionCode",
            [](Application& application, const string& description) {
              string code;
              LookupConditionCode(openedFeeds(application), description, code);
              return code;
            }),
    routine("LocateSpeedsFeeds", [](Session& session) { return LocateSpeedsFeeds(session); }),
};

}  // namespace

std::span<const Routine> toolChestRoutines() {
  return kRoutines;
}

}  // namespace tess
