// Results: told, kept with their time, and forgotten in the end.
#include "core/results.h"

#include "gtest/gtest.h"

#include "tests/support/recording_host.h"

namespace tess {
namespace {

TEST(Results, AreToldAndKeptWithTheTimeOfDay) {
  testing::RecordingHost host;
  Results results(host.clock);
  int heard = 0;
  results.onTold = [&heard] { ++heard; };
  results.tell("Pocket verified, 4 rows");
  host.clock.time.second = 30;
  results.tell("Written: PART.CNC, 312 lines");
  EXPECT_EQ(heard, 2);
  EXPECT_EQ(results.told().back().text, "Written: PART.CNC, 312 lines");
  EXPECT_EQ(results.log(),
            "14:05:07  Pocket verified, 4 rows\n14:05:30  Written: PART.CNC, 312 lines\n");
}

TEST(Results, OldOnesAreForgotten) {
  testing::RecordingHost host;
  Results results(host.clock);
  for (std::size_t n = 0; n <= kMostResults; ++n) results.tell(std::to_string(n));
  EXPECT_EQ(results.told().size(), kMostResults);
  EXPECT_EQ(results.told().front().text, "1");
  EXPECT_EQ(results.count(), kMostResults + 1);
}

}  // namespace
}  // namespace tess
