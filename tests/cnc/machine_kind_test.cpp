// Programs for a machine that the path or the setup is not for.
#include "cnc/machine_kind.h"

#include <string>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {
namespace {

class MachineKind : public CncFixture {
 protected:
  MachineKind() {
    store.drawingpath = folder();
    store.cfg_true_paths = true;
  }

  void placeLathePath() {
    place(lineRow({0, 1}, {-2, 1}, 0, 5));
    place(lineRow({-2, 1}, {-2, 2}, kLatheRapidZ, 5));
  }
  void placeMillPath() { place(lineRow({0, 0}, {1, 0}, -0.25F, 10)); }

  // What was asked; it is written after the first Yes.
  std::string asked(CncMode mode) {
    host.prompts.answers.push_back(Answer::No);
    const bool written = make_cnc(session, definition, state, mode);
    const bool isThere = folder.has("part.CNC");
    EXPECT_EQ(written, isThere);
    if (host.prompts.messages.empty()) return {};
    EXPECT_FALSE(written);
    const std::string text = host.prompts.messages[0].text;
    host.prompts.answers.assign(1, Answer::Yes);
    EXPECT_TRUE(make_cnc(session, definition, state, mode));
    return text;
  }

  TempFolder folder;
};

constexpr char kAnyway[] = "\nDo you want to write the program anyway ?";

TEST_F(MachineKind, AMillProgramOfALathePathIsAskedAbout) {
  placeLathePath();
  EXPECT_EQ(asked(CncMode::Mill),
            std::string("The path was made for a lathe: its rapids would go down to Z -99 on a "
                        "mill.") +
                kAnyway);
}

TEST_F(MachineKind, AMillProgramUnderALatheSetupIsAskedAbout) {
  store.lathesetup = true;
  placeMillPath();
  EXPECT_EQ(asked(CncMode::Mill),
            std::string("The setup in force is one for a lathe, and this program is for a mill.") +
                kAnyway);
}

TEST_F(MachineKind, ALatheProgramUnderAMillSetupIsAskedAbout) {
  placeLathePath();
  EXPECT_EQ(asked(CncMode::Lathe),
            std::string("The setup in force is one for a mill, and this program is for a lathe.") +
                kAnyway);
}

TEST_F(MachineKind, TheRightOneIsNotAskedAbout) {
  placeMillPath();
  EXPECT_EQ(asked(CncMode::Mill), "");
}

TEST_F(MachineKind, ALatheUnderItsOwnSetupIsNotAskedAbout) {
  store.lathesetup = true;
  placeLathePath();
  EXPECT_EQ(asked(CncMode::Lathe), "");
}

TEST_F(MachineKind, ASetupFromBeforeTheKeyIsOneForALatheByItsStyle) {
  store.cfg_lathe_style_pocketing = true;
  placeLathePath();
  EXPECT_EQ(asked(CncMode::Lathe), "");
}

TEST_F(MachineKind, WithoutTheConsentOfTheSetupNothingIsAsked) {
  store.cfg_true_paths = false;
  placeLathePath();
  EXPECT_EQ(asked(CncMode::Mill), "");
}

TEST_F(MachineKind, TheMarkOnACycleIsNoRapid) {
  place(cycleRow(81, {1, 1}, 0, 0, kLatheRapidZ, 5));
  EXPECT_FALSE(hasLatheRapids(store));
}

}  // namespace
}  // namespace tess::testing
