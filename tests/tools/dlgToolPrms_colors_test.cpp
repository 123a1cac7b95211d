// Tool Select & Definition: the colour of a tool, and the form that a colour is chosen in.
#include "gtest/gtest.h"

#include "tests/support/tool_chest_fixture.h"
#include "tools/dlgToolPrms.h"

namespace tess {
namespace {

using testing::Chest;
using testing::TestSession;
using Texts = std::vector<std::string>;

// ---- Colours

TEST_F(Chest, TheSliderHoldsTheIndexOfThePalette) {
  store.toolcolor[0] = 12;
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.Slider1.minimum(), 0);
    EXPECT_EQ(chest.Slider1.maximum(), 15);
    EXPECT_EQ(chest.Slider1.value(), 12);
    EXPECT_EQ(chest.picColor.color(), paletteColor(12));
    EXPECT_FALSE(store.setupchanged);
    chest.Slider1.slide(3);
    EXPECT_EQ(store.toolcolor[0], 3);
    EXPECT_EQ(chest.picColor.color(), paletteColor(3));
    EXPECT_TRUE(store.setupchanged);
    chest.Slider1.setValue(4.4);
    EXPECT_EQ(store.toolcolor[0], 4);
  });
}

TEST_F(Chest, ADirectColorLeavesTheSliderWhereItWas) {
  store.toolcolor[0] = 9;
  store.toolcolor[2] = 0x123456;
  store.toolcolor[40] = -1;
  work([&](dlgToolPrms& chest) {
    choose(chest, 1);
    EXPECT_EQ(chest.Slider1.value(), 9);
    EXPECT_EQ(chest.picColor.color(), 0x123456);
    choose(chest, 2);
    EXPECT_EQ(chest.Slider1.value(), 9);
    EXPECT_EQ(chest.picColor.color(), 0) << "black";
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.toolcolor[2], 0x123456);
  EXPECT_EQ(store.toolcolor[40], -1);
}

TEST_F(Chest, ThePaletteButtonTakesADirectColor) {
  store.toolcolor[0] = 2;
  work([&](dlgToolPrms& chest) {
    chest.cmdColorPalette.press();
    EXPECT_EQ(store.toolcolor[0], 2) << "cancelled";
    EXPECT_FALSE(store.setupchanged);
    colors.answer = 0x0000FF;
    chest.cmdColorPalette.press();
    EXPECT_EQ(store.toolcolor[0], 0x0000FF);
    EXPECT_EQ(chest.picColor.color(), 0x0000FF);
    EXPECT_EQ(chest.Slider1.value(), 2);
    EXPECT_TRUE(store.setupchanged);
  });
  EXPECT_EQ(colors.asked, (std::vector<Rgb>{paletteColor(2), paletteColor(2)}));
}

TEST_F(Chest, TheDarkestRedsStayDirectColors) {
  for (const auto& [chosen, stored] : {std::pair{0, 0}, {1, 16}, {12, 16}, {16, 16}}) {
    colors.answer = chosen;
    work([&](dlgToolPrms& chest) { chest.cmdColorPalette.press(); });
    EXPECT_EQ(store.toolcolor[0], stored);
  }
}

// ---- The choice of a colour

TEST(ColorForm, ShowsAndGivesBackAColor) {
  TestSession test;
  FormColorDialog dialog(test.recording.prompts);
  test.recording.prompts.onForm = [](Form& form) {
    auto& color = dynamic_cast<dlgColor&>(form);
    EXPECT_EQ(color.caption(), "Color");
    EXPECT_EQ(color.txtRed.text(), "86");
    EXPECT_EQ(color.txtGreen.text(), "52");
    EXPECT_EQ(color.txtBlue.text(), "18");
    EXPECT_EQ(color.picColor.color(), 0x123456);
    color.txtBlue.type("255");
    EXPECT_EQ(color.picColor.color(), 0xFF3456);
    color.cmdAccept.press();
  };
  EXPECT_EQ(dialog.chooseColor(0x123456), 0xFF3456);
  EXPECT_EQ(test.recording.prompts.formNames, Texts{"dlgColor"});
}

TEST(ColorForm, CancelGivesNone) {
  TestSession test;
  FormColorDialog dialog(test.recording.prompts);
  test.recording.prompts.onForm = [](Form& form) {
    dynamic_cast<dlgColor&>(form).cmdCancel.press();
  };
  EXPECT_EQ(dialog.chooseColor(0), std::nullopt);
}

TEST(ColorForm, ValuesOutsideTheRangeAreTheNearestInside) {
  TestSession test;
  FormColorDialog dialog(test.recording.prompts);
  test.recording.prompts.onForm = [](Form& form) {
    auto& color = dynamic_cast<dlgColor&>(form);
    color.txtRed.setText("300");
    color.txtGreen.setText("-4");
    color.txtBlue.setText("blue");
    color.cmdAccept.press();
  };
  EXPECT_EQ(dialog.chooseColor(0x123456), 0x0000FF);
}

}  // namespace
}  // namespace tess
