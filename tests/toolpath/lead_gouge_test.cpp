// Leads that cut into their path: the recommended length, and shortening to it.
#include "toolpath/lead_gouge.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/geometry/rows.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/plain_edits.h"

namespace tess {
namespace {

using testing::addPath;
using testing::pathText;

struct GougeCase {
  const char* name;
  std::vector<Entity> path;  // from the lead-in to the lead-out
  bool gouge;
  float length;
};

Entity line(float x0, float y0, float x1, float y1) {
  return lineEntity({x0, y0}, {x1, y1});
}

Entity arc(int type, Point start, Point end, Point center) {
  return {type, start, end, center};
}

DrawingStore storeOf(const std::vector<Entity>& path) {
  DrawingStore store;
  store.cfg_tolerance = 0.001F;
  for (const Entity& row : path) addPath(store, row);
  return store;
}

TEST(CheckLeadGouge, FindsTheShortestDistanceToAHit) {
  const GougeCase kCases[] = {
      {"leads clear of the path",
       {line(-1, -1, 0, 0), line(0, 0, 4, 0), line(4, 0, 5, -1)},
       false,
       0},
      {"the lead-in crosses a row",
       {line(2, -2, 2, 1), line(2, 1, 4, 1), line(4, 1, 4, -1), line(4, -1, 0, -1),
        line(0, -1, -1, -1)},
       true,
       2},
      {"the lead-out crosses nearer",
       {line(2, -2, 2, 1), line(2, 1, 4, 1), line(4, 1, 4, -1), line(4, -1, 0, -1),
        line(0, -1, 5, -0.5F)},
       true,
       2},
      {"a third of an inch, at five places",
       {line(0, 3, 0, 1), line(0, 1, 2, 1), line(2, 1, 2, 1.333333F),
        line(2, 1.333333F, -2, 1.333333F), line(-2, 1.333333F, -3, 2)},
       true,
       0.33333F},
      {"both hits of an arc: the nearer one counts",
       {line(0, 3, 0, -3), line(0, -3, 3, -3), arc(3, {1, 0}, {1, 0}, {0, 0}), line(3, 3, 4, 4)},
       true,
       2},
      {"nothing between the leads", {line(0, 0, 1, 0), line(1, 0, 0, 0)}, false, 0},
  };
  for (const GougeCase& row : kCases) {
    const DrawingStore store = storeOf(row.path);
    const std::optional<float> length = checkLeadGouge(store, 1, store.NumPathSegments);
    EXPECT_EQ(length.has_value(), row.gouge) << row.name;
    EXPECT_FLOAT_EQ(length.value_or(row.length), row.length) << row.name;
  }
}

TEST(CheckLeadGouge, LooksOnlyAtRowsBetweenTheLeads) {
  const DrawingStore store = storeOf({line(0, -1, 0, 1), line(-1, 0, 1, 0), line(5, 5, 6, 5),
                                      line(6, 5, 7, 5), line(5.5F, 0, 5.5F, 9)});
  EXPECT_FALSE(checkLeadGouge(store, 2, 4));
  EXPECT_EQ(checkLeadGouge(store, 1, 4), 1);
}

// A level lead to (3, 0) through a round row of radius 1/3 at the origin: its first hit is the
// right one, its second the left one.
TEST(CheckLeadGouge, RoundsByWhichHitsThereAre) {
  const float r = 1.0F / 3;
  struct RoundingCase {
    const char* name;
    Point junction;
    Entity row;
    float length;
  };
  const RoundingCase kCases[] = {
      {"first hit alone: rounded", {3, 0}, arc(3, {0, -r}, {0, r}, {0, 0}), 2.66667F},
      {"second hit alone: as it is", {3, 0}, arc(3, {0, r}, {0, -r}, {0, 0}), 3 + r},
      {"both, the first nearer: as it is", {3, 0}, arc(3, {r, 0}, {r, 0}, {0, 0}), 3 - r},
      {"both, the second nearer: rounded", {-3, 0}, arc(3, {r, 0}, {r, 0}, {0, 0}), 2.66667F},
  };
  for (const RoundingCase& row : kCases) {
    const Entity leadIn = line(-row.junction.x, 0, row.junction.x, 0);
    const DrawingStore store = storeOf({leadIn, row.row, line(9, 9, 9, 8)});
    EXPECT_EQ(checkLeadGouge(store, 1, 3), row.length) << row.name;
  }
}

TEST(FitLeadLength, MovesTheFreeEndOfALine) {
  struct FitCase {
    const char* name;
    Entity lead;
    float length;
    LeadEnd moved;
    const char* after;
  };
  const FitCase kCases[] = {
      {"start", line(0, 0, 4, 0), 1, LeadEnd::Start, "1 (3, 0)-(4, 0) @100 z 0"},
      {"end", line(0, 0, 4, 0), 1, LeadEnd::End, "1 (0, 0)-(1, 0) @100 z 0"},
      {"slanted start", line(0, 0, 3, 4), 2.5F, LeadEnd::Start, "1 (1.5, 2)-(3, 4) @100 z 0"},
      {"slanted end", line(0, 0, 3, 4), 2.5F, LeadEnd::End, "1 (0, 0)-(1.5, 2) @100 z 0"},
      {"as long already", line(0, 0, 3, 4), 5, LeadEnd::End, "1 (0, 0)-(3, 4) @100 z 0"},
      {"shorter already", line(0, 0, 3, 4), 6, LeadEnd::Start, "1 (0, 0)-(3, 4) @100 z 0"},
      {"no length wanted", line(0, 0, 3, 4), 0, LeadEnd::Start, "1 (0, 0)-(3, 4) @100 z 0"},
      {"a negative length", line(0, 0, 3, 4), -1, LeadEnd::End, "1 (0, 0)-(3, 4) @100 z 0"},
      {"a lead of no length", line(2, 2, 2, 2), 1, LeadEnd::End, "1 (2, 2)-(2, 2) @100 z 0"},
      {"an arc", arc(2, {0, 1}, {1, 0}, {0, 0}), 0.5F, LeadEnd::Start,
       "2 (0, 1)-(1, 0) c (0, 0) @100 z 0"},
  };
  for (const FitCase& row : kCases) {
    DrawingStore store = storeOf({row.lead});
    testing::editing(store, [&](Changes& c) { fitLeadLength(c, 1, row.length, row.moved); });
    EXPECT_EQ(pathText(pathRow(store, 1)), row.after) << row.name;
  }
}

}  // namespace
}  // namespace tess
