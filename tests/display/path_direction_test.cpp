// Where the groups of a path begin, which way they go, and the ways between their rows.
#include "tests/display/display_bench.h"

namespace tess {
namespace {

using testing::DisplayBench;

class PathDirection : public DisplayBench {
 protected:
  PathDirection() { store.toolcolor[0] = 2; }

  int addMove(Point from, Point to, int code = 100) {
    return addPath({.type = 1, .x0 = from.x, .y0 = from.y, .x1 = to.x, .y1 = to.y, .code = code});
  }
  std::string shown() {
    log.take();
    renderer.drawPathDirection(screen);
    return log.take();
  }
  int rings() { return occurrences("circle"); }
  int occurrences(const std::string& word) {
    const std::string text = shown();
    int found = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
      ++found;
    }
    return found;
  }
};

TEST_F(PathDirection, WithoutAPathThereIsNothing) {
  EXPECT_EQ(occurrences("line"), 0);
  EXPECT_EQ(rings(), 0);
}

TEST_F(PathDirection, EachGroupBeginsWithARingAndTheWayToItIsShown) {
  addMove({0, 0}, {1, 0});
  addMove({1, 0}, {1, 1});
  addMove({2, 2}, {2.1F, 2}, 200);
  EXPECT_EQ(shown(),
            "DrawStyle 0\nDrawMode 13\n"
            "circle (0, 0) r 0.04 #008000\nevents\nevents\n"
            "line (1, 1)-(2, 2) #686868\n"
            "circle (2, 2) r 0.04 #008000\nevents\n");
}

TEST_F(PathDirection, ShortRowsGetAnArrowNowAndThen) {
  for (int row = 0; row < 30; ++row) {
    addMove({0.1F * static_cast<float>(row), 0}, {0.1F * static_cast<float>(row + 1), 0});
  }
  EXPECT_EQ(occurrences("line"), 2 * 3) << "of 300 pixels: at 50, 140 and 230, each of two barbs";
}

TEST_F(PathDirection, ArcsHaveTheirArrowsAlongTheTangent) {
  store.toolcolor[0] = 2;
  addPath({.type = 3, .x0 = 0.2F, .y0 = 0, .x1 = 0, .y1 = 0.2F, .xc = 0, .yc = 0, .code = 100});
  addPath({.type = 3, .x0 = 0, .y0 = 0.2F, .x1 = -0.2F, .y1 = 0, .xc = 0, .yc = 0, .code = 100});
  EXPECT_EQ(occurrences("line"), 0) << "they are long enough for arrows of their own";
}

TEST_F(PathDirection, RapidsOfALatheAreFaint) {
  addPath({.type = 1, .x0 = 0, .y0 = 0, .x1 = 1, .y1 = 1, .z = kLatheRapidZ, .code = 100});
  EXPECT_NE(shown().find("line (0, 0)-(1, 1) #686868"), std::string::npos) << shown();
}

TEST_F(PathDirection, HiddenRowsAndCyclesHaveNoArrows) {
  addMove({0, 0}, {1, 0});
  store.psvisible[1] = false;
  addPath({.type = 83, .x0 = 3, .y0 = 3, .x1 = 3, .y1 = 3, .code = 100});
  EXPECT_EQ(rings(), 1);
  EXPECT_EQ(occurrences("line"), 0);
}

TEST_F(PathDirection, ARedrawShowsItWhereTheSetupWantsIt) {
  addMove({0, 0}, {1, 0});
  store.showpaths = 1;
  for (const int wanted : {0, 1}) {
    store.pathdirection = wanted;
    log.take();
    redraw.redrawscreen();
    EXPECT_EQ(log.take().find("circle (0, 0) r 0.04") != std::string::npos, wanted == 1);
  }
}

}  // namespace
}  // namespace tess
