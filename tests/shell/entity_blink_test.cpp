// One entity that blinks on the screen.
#include "shell/entity_blink.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using Texts = std::vector<std::string>;

constexpr char kLit[] = "circle (1, 0) r 1 #FFFFFF";
constexpr char kPlain[] = "circle (1, 0) r 1 #008080";

struct BlinkContext : RecordedDrafting {
  BlinkContext() { add({.type = kCircle, .x0 = 2, .x1 = 2, .xc = 1}); }
  // The circles that were painted since the last call.
  Texts painted() {
    Texts circles;
    for (const std::string& line : log.lines) {
      if (line.starts_with("circle")) circles.push_back(line);
    }
    log.take();
    return circles;
  }
  EntityBlink blink{context};
};

TEST(EntityBlink, LightsUpAFewTimesAndEndsInItsOwnColor) {
  BlinkContext d;
  d.blink.start(1);
  EXPECT_EQ(d.painted(), Texts{kLit}) << "at once";
  d.pass(10000);
  EXPECT_EQ(d.painted(), (Texts{kPlain, kLit, kPlain, kLit, kPlain}));
  d.pass(10000);
  EXPECT_EQ(d.painted(), Texts{});
}

TEST(EntityBlink, ARowThatIsGoneEndsIt) {
  BlinkContext d;
  d.blink.start(1);
  d.painted();
  d.store.NumSegments = 0;
  d.pass(10000);
  EXPECT_EQ(d.painted(), Texts{});
}

TEST(EntityBlink, AnotherOneTakesItsPlace) {
  BlinkContext d;
  d.add({.type = kCircle, .x0 = 5, .x1 = 5, .xc = 4});
  d.blink.start(1);
  d.painted();
  d.blink.start(2);
  EXPECT_EQ(d.painted(), (Texts{kPlain, "circle (4, 0) r 1 #FFFFFF"}));
  d.pass(10000);
  EXPECT_EQ(d.painted().size(), 5U);
}

}  // namespace
}  // namespace tess
