// Rows that none can match, told from the others.
#include "drafting/twin_search.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

#include "gtest/gtest.h"

#include "drafting/change_log.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;
using Rows = std::vector<SegmentRow>;

constexpr float kTolerence = 0.001F;

bool canMatch(const SegmentRow& a, const SegmentRow& b, float tolerence) {
  clsSegment record;
  record.SetSegment(a, "D", /*start=*/false);
  return isSameRow(record, b, tolerence);
}

struct Found {
  std::vector<bool> matched, met;  // of the known rows and of the others
};

Found found(float tolerence, const Rows& known, const Rows& others) {
  const std::array<std::span<const SegmentRow>, 2> lists{known, others};
  const auto may = rowsThatMayMatch(tolerence, lists);
  return {may.at(0), may.at(1)};
}

void expectAllFound(const Rows& known, const Rows& others, float tolerence) {
  const auto [matched, met] = found(tolerence, known, others);
  ASSERT_EQ(met.size(), others.size());
  ASSERT_EQ(matched.size(), known.size());
  for (std::size_t a = 0; a < known.size(); ++a) {
    for (std::size_t b = 0; b < known.size(); ++b) {
      if (a == b || !canMatch(known[a], known[b], tolerence)) continue;
      EXPECT_TRUE(matched[a]) << a;
    }
    for (std::size_t b = 0; b < others.size(); ++b) {
      if (!canMatch(known[a], others[b], tolerence)) continue;
      EXPECT_TRUE(matched[a]) << a;
      EXPECT_TRUE(met[b]) << b;
    }
  }
}

// Pairs of rows that lie within the tolerance, at all distances from the edges of cells.
TEST(TwinSearch, MissesNoRowThatMatches) {
  Dice dice(2718);
  for (const float tolerence : {0.0F, kTolerence, 0.5F}) {
    for (const float far : {1.0F, 100.0F, 1e5F, 1e9F, 1e20F}) {
      Rows known, others;
      const auto coordinate = [&] { return far * static_cast<float>(2 * dice.unit() - 1); };
      const auto near = [&](float value) {
        return value + static_cast<float>(dice.below(3) - 1) * tolerence;
      };
      for (int n = 0; n < 400; ++n) {
        const SegmentRow row{.type = 1 + dice.below(3),
                             .x0 = coordinate(),
                             .y0 = coordinate(),
                             .x1 = coordinate(),
                             .y1 = coordinate()};
        known.push_back(row);
        const SegmentRow copy{.type = row.type,
                              .x0 = near(row.x0),
                              .y0 = near(row.y0),
                              .x1 = near(row.x1),
                              .y1 = near(row.y1)};
        if (dice.below(3) == 0) known.push_back(copy);
        if (dice.below(3) == 0) others.push_back(copy);
      }
      expectAllFound(known, others, tolerence);
    }
  }
}

TEST(TwinSearch, LeavesRowsAloneThatLieApart) {
  Rows known, others;
  for (int n = 0; n < 2000; ++n) {
    const auto x = static_cast<float>(n % 50), y = static_cast<float>(n / 50);
    known.push_back({.type = kLine, .x0 = x, .y0 = y, .x1 = x + 1, .y1 = y});
    known.push_back({.type = kClockwiseArc, .x0 = x, .y0 = y, .x1 = x + 1, .y1 = y, .xc = x});
    others.push_back({.type = kLine, .x0 = x + 1, .y0 = y, .x1 = x, .y1 = y});  // the other way
  }
  const auto [matched, met] = found(kTolerence, known, others);
  EXPECT_EQ(std::count(met.begin(), met.end(), true), 0);
  EXPECT_EQ(std::count(matched.begin(), matched.end(), true), 0);
}

TEST(TwinSearch, TakesAllForMatchedWhereOneIsNoNumberOrTooFarOut) {
  for (const float far :
       {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 3e38F}) {
    const Rows rows{{.type = kLine, .x1 = 1}, {.type = kLine, .x1 = 2}};
    const SegmentRow beyond{.type = kLine, .x0 = far};
    const Found metBeyond = found(kTolerence, rows, {beyond});
    EXPECT_EQ(metBeyond.met, std::vector<bool>{true});
    EXPECT_EQ(metBeyond.matched, (std::vector<bool>{true, true}));
    const Found knownBeyond = found(kTolerence, {rows[0], beyond}, rows);
    EXPECT_EQ(knownBeyond.met, (std::vector<bool>{true, true}));
    EXPECT_EQ(knownBeyond.matched, (std::vector<bool>{true, true}));
  }
}

}  // namespace
}  // namespace tess
