// The proof and the checker of the tests, which shares no code with it, on generated pockets: paths
// as the commands place them, and the same with rows shifted, dropped and added.
#include <algorithm>
#include <random>

#include "gtest/gtest.h"

#include "tests/support/path_checker.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"
#include "tests/toolpath/region_checks.h"

namespace tess {
namespace {

using testing::JobSettings;
using testing::PocketJob;
using testing::TestPocket;

constexpr int kPockets = 60;
constexpr int kCells = 10;  // of the checker's raster, per tool radius

struct Judged {
  double depth, share;
};

// A part that is cleared with a tool, and what is placed in it as one group.
class AgreementPart {
 public:
  explicit AgreementPart(const TestPocket& pocket)
      : pocket_(pocket), job_(pocket, settings()), reach_(pocket.part, pocket.toolRadius, kCells) {
    job_.rough();
    job_.finish();
    store_.toolradius[0] = pocket.toolRadius;
    for (int ps = 1; ps <= job_.store.NumPathSegments; ++ps) {
      PathRow row = pathRow(job_.store, ps);
      row.code = pathCode(1, 0);
      rows_.push_back(row);
    }
    PathJob job{.group = 1,
                .kind = JobKind::Clearing,
                .toolRadius = pocket.toolRadius,
                .distance = pocket.toolRadius};
    const PocketRegion region = testing::regionOfPocket(pocket);
    for (const RegionLoop& loop : region.loops()) {
      JobLoop& noted = job.loops.emplace_back();
      for (const Curve& c : loop.curves) {
        noted.walls.push_back(
            {c.start.x, c.start.y, c.end.x, c.end.y, c.center.x, c.center.y, c.turn});
      }
    }
    jobs_.add(job);
  }

  std::vector<PathRow>& rows() { return rows_; }

  Judged byProof() {
    fill();
    const PathProof proof = testing::proofOf(store_, jobs_);
    return {proof.gouge.depth, proof.missed.at(0).atWall.share()};
  }
  Judged byChecker() {
    fill();
    const auto path = testing::toolPath(store_);
    const double depth =
        std::max(0.0, testing::deepestGouge(pocket_.part, path, pocket_.toolRadius).depth);
    return {depth, 1 - reach_.coverageOf(path).share};
  }

 private:
  static JobSettings settings() {
    JobSettings settings;
    settings.connects = true;
    return settings;
  }
  void fill() {
    store_.NumPathSegments = 0;
    for (const PathRow& row : rows_) addPathSegment(store_, row);
  }

  const TestPocket& pocket_;
  PocketJob job_;
  testing::ReachableArea reach_;
  DrawingStore store_;
  PathJobs jobs_;
  std::vector<PathRow> rows_;
};

// The checker's raster counts whole cells; its rim is as long as that of the area.
constexpr double kGrainOfShare = 0.01;
// Where the centre is in the part, the checker may be off by its step.
constexpr double kGrainOfDepth = testing::kSearchStep / 4;

void expectAgreement(AgreementPart& part, const char* how) {
  SCOPED_TRACE(how);
  const Judged proof = part.byProof();
  const Judged checker = part.byChecker();
  EXPECT_NEAR(proof.depth, checker.depth, checker.depth < 1e-9 ? 1e-6 : kGrainOfDepth);
  EXPECT_NEAR(proof.share, checker.share, kGrainOfShare);
}

class ProofAgrees : public ::testing::TestWithParam<int> {};

TEST_P(ProofAgrees, WithTheCheckerOnCleanAndDamagedPaths) {
  const TestPocket pocket = testing::pocketOf(GetParam());
  SCOPED_TRACE(pocket.name);
  AgreementPart part(pocket);
  if (part.rows().empty()) return;
  expectAgreement(part, "as placed");
  std::mt19937 random(static_cast<unsigned>(GetParam()));
  const auto pick = [&] { return random() % part.rows().size(); };
  const std::vector<PathRow> placed = part.rows();

  PathRow& shifted = part.rows()[pick()];
  for (float* const x : {&shifted.x0, &shifted.x1, &shifted.xc}) *x += 0.3F * pocket.toolRadius;
  expectAgreement(part, "a row shifted");

  part.rows() = placed;
  part.rows().erase(part.rows().begin() + static_cast<std::ptrdiff_t>(pick()));
  expectAgreement(part, "a row dropped");

  part.rows() = placed;
  const PathRow from = part.rows()[pick()];
  const PathRow to = part.rows()[pick()];
  part.rows().push_back({.type = kLine,
                         .x0 = from.x0,
                         .y0 = from.y0,
                         .x1 = to.x1,
                         .y1 = to.y1,
                         .z = from.z,
                         .code = from.code});
  expectAgreement(part, "a row added");
}

INSTANTIATE_TEST_SUITE_P(Pockets, ProofAgrees, ::testing::Range(0, kPockets));

}  // namespace
}  // namespace tess
