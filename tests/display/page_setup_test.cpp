// Sheets and their set-up.
#include "display/page_setup.h"

#include "gtest/gtest.h"

namespace tess {
namespace {

TEST(PageSetup, ComesBackAsItWasWritten) {
  const PageSetup setup{"Letter", PageOrientation::Landscape, 7.5};
  EXPECT_EQ(pageSetupText(setup), "paper=Letter\norientation=landscape\nmargin=7.5\n");
  EXPECT_EQ(readPageSetup(pageSetupText(setup)), setup);
}

TEST(PageSetup, TakesWhatIsRightAndLeavesTheRest) {
  const PageSetup setup =
      readPageSetup("paper=a3\r\norientation=sideways\nmargin=-4\nnonsense\n=\n");
  EXPECT_EQ(setup, (PageSetup{"A3", PageOrientation::Automatic, 12}));
}

TEST(PageSetup, OfAnyBytesIsUsable) {
  EXPECT_EQ(readPageSetup(std::string("\0\xff=\n==paper", 11)), PageSetup{});
  EXPECT_EQ(readPageSetup("margin=1e300").margin, 210.0 / 4);
}

TEST(PageSetup, KnowsPapersInAnyCase) {
  ASSERT_NE(paperNamed("LETTER"), nullptr);
  EXPECT_EQ(paperNamed("LETTER")->width, 215.9);
  EXPECT_EQ(paperNamed("A9"), nullptr);
  EXPECT_EQ(paperNamed(""), nullptr);
}

TEST(PageSetup, TurnsTheSheet) {
  const PageSetup open{"A4", PageOrientation::Automatic, 12};
  EXPECT_EQ(sidesOf(open, PageOrientation::Landscape).width, 297);
  EXPECT_EQ(sidesOf(open, PageOrientation::Portrait).width, 210);
  const PageSetup lying{"A4", PageOrientation::Landscape, 12};
  EXPECT_EQ(sidesOf(lying, PageOrientation::Portrait).height, 210);
}

}  // namespace
}  // namespace tess
