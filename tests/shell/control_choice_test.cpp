// The choice of control and units: the list, the form, and the setup that comes of it.
#include "shell/control_choice.h"

#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/frmControl.h"
#include "tests/support/running_program.h"
#include "tests/support/source_folder.h"

namespace tess::testing {
namespace {

std::vector<ControlChoice> controlsIn(const std::string& text) {
  FieldReader fields("controls.txt", text);
  return readControls(fields);
}

TEST(Controls, AreALineEach) {
  const std::vector<ControlChoice> controls =
      controlsIn("\"Mill, the old one\",mill_inch.msu,mill_mm.msu\r\n\r\nLathe, lathe.msu ,-\r\n");
  ASSERT_EQ(controls.size(), 2U);
  EXPECT_EQ(controls[0].name, "Mill, the old one");
  EXPECT_EQ(controls[0].setup(/*metric=*/false), "mill_inch.msu");
  EXPECT_EQ(controls[0].setup(/*metric=*/true), "mill_mm.msu");
  EXPECT_EQ(controls[1].inchSetup, "lathe.msu");
  EXPECT_EQ(controls[1].metricSetup, "");
  EXPECT_TRUE(controlsIn("").empty());
}

TEST(Controls, AListThatIsCutOffNamesItsLine) {
  try {
    controlsIn("Mill,mill_inch.msu,mill_mm.msu\r\nLathe,lathe.msu\r\n");
    FAIL() << "it was read";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd);
    EXPECT_NE(failure.source().find("controls.txt"), std::string::npos) << failure.source();
    EXPECT_NE(failure.source().find("line 3"), std::string::npos) << failure.source();
  }
}

TEST(Controls, AListWithoutEndIsRefused) {
  std::string text;
  for (int line = 0; line < 200; ++line) text += "Mill,mill_inch.msu,-\r\n";
  EXPECT_EQ(controlsIn(text).size(), 200U);
  EXPECT_THROW(controlsIn(text + "Mill,mill_inch.msu,-\r\n"), RuntimeFailure);
}

TEST(Controls, OnlyThoseWhoseSetupsAreThere) {
  const TempFolder folder;
  EXPECT_TRUE(availableControls(folder()).empty()) << "without a list";
  folder.write("controls.txt", "Mill,inch.msu,mm.msu\r\nLathe,lathe.msu,-\r\nOld,old.msu,-\r\n");
  folder.write("mm.msu", "");
  folder.write("lathe.msu", "");
  const std::vector<ControlChoice> controls = availableControls(folder());
  ASSERT_EQ(controls.size(), 2U);
  EXPECT_EQ(controls[0].inchSetup, "");
  EXPECT_EQ(controls[0].metricSetup, "mm.msu");
  EXPECT_EQ(controls[1].name, "Lathe");
}

TEST(Controls, TheShippedOnesAreAllThere) {
  const std::vector<ControlChoice> controls = availableControls(TESSIMO_SOURCE_DIR "/data/");
  EXPECT_EQ(controls.size(), 8U);
  int setups = 0;
  for (const ControlChoice& control : controls) {
    setups += (control.inchSetup.empty() ? 0 : 1) + (control.metricSetup.empty() ? 0 : 1);
  }
  EXPECT_EQ(setups, 16);
}

// ---- The form

const std::vector<ControlChoice> kControls{
    {"Mill", "inch.msu", "mm.msu"}, {"Lathe", "lathe.msu", ""}, {"Router", "", "router.msu"}};

TEST(FrmControl, BeginsWithWhatIsInForce) {
  frmControl form(kControls, "MM.MSU");
  form.open(Modality::Modal);
  EXPECT_EQ(form.caption(), "Control and Units");
  EXPECT_EQ(form.lstControl.items(), (std::vector<std::string>{"Mill", "Lathe", "Router"}));
  EXPECT_EQ(form.lstControl.index(), 0);
  EXPECT_TRUE(form.optUnits[1].value());
  EXPECT_EQ(form.setup(), "mm.msu");
  EXPECT_EQ(form.lblSetup.caption(), "Setup: mm.msu");
}

TEST(FrmControl, BeginsWithTheFirstWhenAnotherSetupIsInForce) {
  frmControl form(kControls, "own.msu");
  form.open(Modality::Modal);
  EXPECT_EQ(form.lstControl.index(), 0);
  EXPECT_EQ(form.setup(), "inch.msu");
}

TEST(FrmControl, TakesTheUnitsThatAControlHas) {
  frmControl form(kControls, "inch.msu");
  form.open(Modality::Modal);
  form.lstControl.setIndex(2);
  EXPECT_FALSE(form.optUnits[0].isEnabled());
  EXPECT_TRUE(form.optUnits[1].isEnabled());
  EXPECT_EQ(form.lblSetup.caption(), "Setup: router.msu");
  form.lstControl.setIndex(1);
  EXPECT_TRUE(form.optUnits[0].isEnabled());
  EXPECT_FALSE(form.optUnits[1].isEnabled());
  EXPECT_EQ(form.setup(), "lathe.msu");
  form.lstControl.setIndex(0);
  form.optUnits[1].setValue(true);
  EXPECT_EQ(form.lblSetup.caption(), "Setup: mm.msu");
}

// ---- The setup that comes of it

class ControlChoiceOf : public ::testing::Test, public RunningProgram {
 protected:
  ControlChoiceOf() {
    for (const auto& entry : std::filesystem::directory_iterator(TESSIMO_SOURCE_DIR "/data")) {
      std::filesystem::copy(entry, home(), std::filesystem::copy_options::overwrite_existing);
    }
  }

  void answer(const std::function<void(frmControl&)>& act) {
    platform.prompts.onForm = [act](Form& form) {
      auto* const dialog = dynamic_cast<frmControl*>(&form);
      ASSERT_NE(dialog, nullptr) << form.name();
      act(*dialog);
    };
  }

  void chooseGrblMetric() {
    answer([](frmControl& form) {
      form.lstControl.setText("GRBL 1.1 mill");
      form.optUnits[1].setValue(true);
      form.cmdAccept.click();
    });
  }

  void expectGrblMetric() {
    EXPECT_EQ(application.session.setupname, "grbl_mill_mm.msu");
    EXPECT_EQ(application.definition.dialect.cycles, CycleStyle::Expand);
    EXPECT_EQ(application.store.units, "M");
    EXPECT_EQ(home.read("tess.def"), "1.0\r\ngrbl_mill_mm.msu\r\n") << "at the next start too";
    EXPECT_EQ(home.read("grbl_mill_mm.msu"), readFile(TESSIMO_SOURCE_DIR "/data/grbl_mill_mm.msu"));
  }
};

TEST_F(ControlChoiceOf, TheFirstStart) {
  chooseGrblMetric();
  askForControl(application);
  expectGrblMetric();
  EXPECT_EQ(platform.prompts.modalForms, 1);
  EXPECT_TRUE(platform.prompts.messages.empty());
  EXPECT_EQ(application.store.partdimx, 100) << "the new drawing has the setup's stock";
}

TEST_F(ControlChoiceOf, AFirstStartThatIsCancelled) {
  const std::string before = home.read("tess.def");
  answer([](frmControl& form) { form.cmdCancel.click(); });
  askForControl(application);
  EXPECT_EQ(home.read("tess.def"), before);
  EXPECT_EQ(application.store.units, "I");
}

TEST_F(ControlChoiceOf, AFirstStartWithoutAList) {
  std::filesystem::remove(home("controls.txt"));
  askForControl(application);
  EXPECT_EQ(platform.prompts.modalForms, 0);
  EXPECT_TRUE(platform.prompts.messages.empty());
}

TEST_F(ControlChoiceOf, TheMenuAtAnyTime) {
  chooseGrblMetric();
  application.clickTool("miControl");
  expectGrblMetric();
}

TEST_F(ControlChoiceOf, AnOpenDrawingKeepsItsUnitsAndSettings) {
  DrawingStore& store = application.store;
  store.zstartpos = 0.75F;
  addPathSegment(store, {.type = kLine, .x1 = 1, .z = -0.1F, .feed = 10});
  store.drawingname = "part.CDM";
  store.drawingpath = home();
  save_Drawing(application.session);
  chooseGrblMetric();
  application.clickTool("miControl");
  EXPECT_EQ(application.session.setupname, "grbl_mill_mm.msu");
  EXPECT_EQ(store.drawingname, "part.CDM");
  EXPECT_EQ(store.NumPathSegments, 1);
  EXPECT_EQ(store.zstartpos, 0.75F);
  EXPECT_EQ(store.units, "I");
}

TEST_F(ControlChoiceOf, TheMenuAsksAboutUnsavedWork) {
  addPathSegment(application.store, {.type = kLine, .x1 = 1, .z = -0.1F, .feed = 10});
  application.store.drawingsaved = false;
  chooseGrblMetric();
  platform.prompts.answers = {Answer::Cancel};
  application.clickTool("miControl");
  ASSERT_EQ(platform.prompts.messages.size(), 1U);
  EXPECT_EQ(platform.prompts.messages[0].text, "Drawing not saved! Save now?");
  EXPECT_EQ(platform.prompts.modalForms, 0);
  EXPECT_NE(application.session.setupname, "grbl_mill_mm.msu");
}

TEST_F(ControlChoiceOf, TheMenuWithoutAList) {
  std::filesystem::remove(home("controls.txt"));
  application.clickTool("miControl");
  ASSERT_EQ(platform.prompts.messages.size(), 1U);
  EXPECT_EQ(platform.prompts.messages[0].text,
            "There are no controls to choose from: " + home() +
                "controls.txt is not there, or names no setup of that folder.");
}

TEST_F(ControlChoiceOf, ADamagedListChangesNothing) {
  home.write("controls.txt", "Mill,mill_inch.msu");
  const std::string before = home.read("tess.def");
  try {
    chooseControl(application);
    FAIL() << "no failure";
  } catch (const RuntimeFailure& failure) {
    EXPECT_NE(failure.source().find("controls.txt"), std::string::npos) << failure.source();
  }
  EXPECT_EQ(platform.prompts.modalForms, 0);
  EXPECT_EQ(home.read("tess.def"), before);
}

}  // namespace
}  // namespace tess::testing
