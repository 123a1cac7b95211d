// The tool chest over three tools and a small database.
// Owns: kWarningRed, kTwentyBlanks, FixedColor, Chest.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/units.h"
#include "tests/support/feeds_samples.h"
#include "tests/support/recording_session.h"
#include "tools/dlgToolPrms.h"

namespace tess::testing {

inline constexpr int kWarningRed = 255;
inline constexpr char kTwentyBlanks[] = "                    ";  // the name of a blank row

// Gives the same colour each time and keeps what it was asked about.
class FixedColor : public ColorDialog {
 public:
  std::optional<Rgb> chooseColor(Rgb present) override {
    asked.push_back(present);
    return answer;
  }
  std::optional<Rgb> answer;
  std::vector<Rgb> asked;
};

// Three tools: 1/4 end mill in use, a 1/64 slot mill, and a face mill with a long name.
class Chest : public ::testing::Test {
 protected:
  Chest() {
    set_num_formats(test.session);
    smallFeeds(test.home);
    store.materialcategory = "Steels";
    store.partmaterial = "1018, cold";
    store.parthardness = "125-175";
    store.materialcondition = "Annealed";
    put(0, "1/4 end mill", 0.125F, "HSS", 2, 2000);
    put(2, "slot", 1.0F / 128, "HSS", 2, 0);
    store.toolmilltype[2] = 2;
    put(40, "a face mill of a name that is long", 0.75F, "Carbide", 4, 300);
    store.toolmilltype[40] = 1;
    store.selectedtool = 0;
    store.cfg_tool_spacing = 40;
  }

  void put(int tool, const char* name, float radius, const char* material, int flutes,
           float speed) {
    store.toolname[tool] = name;
    store.toolradius[tool] = radius;
    store.toolmaterial[tool] = material;
    store.toolflutes[tool] = flutes;
    store.toolspindlespeed[tool] = speed;
  }

  // Shows the chest and lets the operator work it.
  void work(const std::function<void(dlgToolPrms&)>& operate) {
    test.recording.prompts.onForm = [&](Form& form) { operate(dynamic_cast<dlgToolPrms&>(form)); };
    mnuCAMSelectTool_Click({test.session, database, colors});
  }
  static void choose(dlgToolPrms& chest, int line) { EXPECT_TRUE(chest.List1.pick(line)); }

  TestSession test;
  DrawingStore& store = test.store;
  SpeedsFeeds database;
  FixedColor colors;
};

}  // namespace tess::testing
