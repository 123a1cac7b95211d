// The post-processor definitions that ship beside the program: every key is set, in silence, and
// the notes in them never reach a program.
#include <filesystem>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/source_folder.h"

namespace tess::testing {
namespace {

struct Shipped {
  const char* file;
  const char* header;
  const char* trailer;
};

void PrintTo(const Shipped& shipped, std::ostream* out) {
  *out << shipped.file;
}

class ShippedDefinitions : public CncFixture, public ::testing::WithParamInterface<Shipped> {
 protected:
  void load() {
    session.startupdone = true;
    define(readFile(std::string(TESSIMO_SOURCE_DIR "/data/") + GetParam().file));
  }
};

TEST_P(ShippedDefinitions, ReplaceEveryValueOfTheDefinitionBefore) {
  define(
      "LISTSTART,HEADERTEXT,old,LISTEND\r\nLISTSTART,TRAILERTEXT,old,LISTEND\r\nCOMMENTCHR,(\r\n"
      "ABSCENTER,Y\r\nFORCEXYZ,Y\r\nFORCEIJK,Y\r\nMAP,ABCIJK\r\nINFORMAT,0\r\nMMFORMAT,0\r\n");
  load();
  EXPECT_EQ(definition.cncheadertext, GetParam().header);
  EXPECT_EQ(definition.cnctrailertext, GetParam().trailer);
  EXPECT_EQ(definition.cnccomment, ";");
  EXPECT_FALSE(definition.absCenter);
  EXPECT_FALSE(definition.forceXYZ);
  EXPECT_FALSE(definition.forceIJK);
  EXPECT_EQ(definition.cncletters, "XYZIJK");
  EXPECT_EQ(session.formats.cncfmtinch, "##0.0####");
  EXPECT_EQ(session.formats.cncfmtmm, "####0.0###");
}

TEST_P(ShippedDefinitions, LoadWithoutAMessage) {
  load();
  EXPECT_TRUE(host.prompts.messages.empty());
  EXPECT_TRUE(host.surroundings.printed.empty());
}

TEST_P(ShippedDefinitions, LeaveTheirNotesOutOfPrograms) {
  load();
  place(lineRow({0, 0}, {1, 0}, -0.1F, 10));
  EXPECT_EQ(program().find("note to the reader"), std::string::npos);
}

// ---- All of them, those of the controls too

class EveryDefinition : public CncFixture, public ::testing::WithParamInterface<std::string> {
 protected:
  void load() {
    session.startupdone = true;
    define(readFile(std::string(TESSIMO_SOURCE_DIR "/data/") + GetParam()));
  }

  bool isForLathes() const { return GetParam().find("lathe") != std::string::npos; }
};

TEST_P(EveryDefinition, LoadsWithoutAMessage) {
  load();
  EXPECT_TRUE(host.prompts.messages.empty()) << host.prompts.messages.front().text;
  EXPECT_EQ(definition.damage, "");
}

TEST_P(EveryDefinition, TravelsSafely) {
  load();
  const Dialect& dialect = definition.dialect;
  EXPECT_TRUE(dialect.safeChange);
  EXPECT_TRUE(dialect.cycleWords);
  EXPECT_TRUE(dialect.endLift);
  EXPECT_TRUE(dialect.changePos);
  EXPECT_TRUE(dialect.spindleDue);
  EXPECT_EQ(dialect.plungeFrom.has_value(), !isForLathes());
  EXPECT_EQ(dialect.latheClear.has_value(), isForLathes());
  EXPECT_EQ(dialect.diameter, GetParam().find("diameter") != std::string::npos);
}

TEST_P(EveryDefinition, ReplacesTheOldKeysOfTheOneBefore) {
  define(
      "LISTSTART,HEADERTEXT,old,LISTEND\r\nLISTSTART,TRAILERTEXT,old,LISTEND\r\nCOMMENTCHR,old\r\n"
      "ABSCENTER,Y\r\nFORCEXYZ,Y\r\nFORCEIJK,Y\r\nMAP,ABCIJK\r\nINFORMAT,0\r\nMMFORMAT,0\r\n");
  load();
  EXPECT_EQ(definition.cncheadertext.find("old"), std::string::npos);
  EXPECT_EQ(definition.cnctrailertext.find("old"), std::string::npos);
  EXPECT_NE(definition.cnccomment, "old");
  EXPECT_FALSE(definition.absCenter || definition.forceXYZ || definition.forceIJK);
  EXPECT_EQ(definition.cncletters, "XYZIJK");
  EXPECT_GT(session.formats.cncfmtinch.size(), 5U);
  EXPECT_GT(session.formats.cncfmtmm.size(), 5U);
}

std::vector<std::string> shippedDefinitions() {
  std::vector<std::string> names;
  for (const std::string& name : listFolder(TESSIMO_SOURCE_DIR "/data/").files) {
    if (name.ends_with(".msx")) names.push_back(name);
  }
  EXPECT_EQ(names.size(), 17U);
  return names;
}

std::string caseName(const ::testing::TestParamInfo<std::string>& info) {
  return std::filesystem::path(info.param).stem().string();
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryDefinition, ::testing::ValuesIn(shippedDefinitions()),
                         caseName);

INSTANTIATE_TEST_SUITE_P(
    All, ShippedDefinitions,
    ::testing::Values(
        Shipped{"standard.msx", "%", "M05\r\nM30\r\n%"},
        Shipped{"mill_inch.msx", "%\r\nG17 G40 G80", "G80\r\nG00 Z1.0\r\nM05\r\nM30\r\n%"},
        Shipped{"mill_mm.msx", "%\r\nG17 G40 G80", "G80\r\nG00 Z25.0\r\nM05\r\nM30\r\n%"},
        Shipped{"lathe_mm.msx", "%\r\nG18 G40 G80", "G80\r\nM05\r\nM30\r\n%"},
        Shipped{"lathe.msx", "%\r\nG18 G40 G80", "G80\r\nM05\r\nM30\r\n%"}),
    [](const auto& instance) {
      return std::filesystem::path(instance.param.file).stem().string();
    });

}  // namespace
}  // namespace tess::testing
