// The worked examples of docs/post_definitions.md: each program there is what the generator makes.
#include <ostream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/source_folder.h"

namespace tess::testing {
namespace {

struct Example {
  const char* name;
  const char* definition;
  bool radiusWords = false;
  int arcType = kCounterClockwiseArc;
  std::vector<std::string> moves;
};

void PrintTo(const Example& example, std::ostream* out) {
  *out << example.name;
}

class DocumentedDefinitions : public CncFixture, public ::testing::WithParamInterface<Example> {};

TEST_P(DocumentedDefinitions, GiveTheProgramOnThePage) {
  const Example& example = GetParam();
  define(example.definition);
  store.userparamforarcs = example.radiusWords;
  place(lineRow({3, 0}, {3, 1}, -0.1F, 10));
  place(arcRow(example.arcType, {3, 1}, {2, 2}, {2, 1}, -0.1F, 10));

  EXPECT_EQ(moves(), example.moves);
  std::string block;
  for (const std::string& line : example.moves) block += "    " + line + "\n";
  const std::string page = readFile(TESSIMO_SOURCE_DIR "/docs/post_definitions.md");
  EXPECT_NE(page.find(block), std::string::npos) << block;
}

INSTANTIATE_TEST_SUITE_P(
    All, DocumentedDefinitions,
    ::testing::Values(Example{.name = "plain",
                              .definition = "",
                              .moves = {"G00 Z0.5", "G00 X3.0 Y0.0", "G01 Z-0.1 F30",
                                        "G01 Y1.0 F100", "G03 X2.0 Y2.0 I-1.0"}},
                      Example{.name = "absoluteCentres",
                              .definition = "ABSCENTER,Y\r\n",
                              .moves = {"G00 Z0.5", "G00 X3.0 Y0.0", "G01 Z-0.1 F30",
                                        "G01 Y1.0 F100", "G03 X2.0 Y2.0 I2.0"}},
                      Example{.name = "radiusWords",
                              .definition = "",
                              .radiusWords = true,
                              .moves = {"G00 Z0.5", "G00 X3.0 Y0.0", "G01 Z-0.1 F30",
                                        "G01 Y1.0 F100", "G03 X2.0 Y2.0 R1.0"}},
                      Example{.name = "longArc",
                              .definition = "",
                              .radiusWords = true,
                              .arcType = kClockwiseArc,
                              .moves = {"G00 Z0.5", "G00 X3.0 Y0.0", "G01 Z-0.1 F30",
                                        "G01 Y1.0 F100", "G02 X2.0 Y2.0 R-1.0"}},
                      Example{.name = "allWords",
                              .definition = "FORCEXYZ,Y\r\nFORCEIJK,Y\r\nINFORMAT,##0.0000\r\n",
                              .moves = {"G00 Z0.5000", "G00 X3.0000 Y0.0000 Z0.5000",
                                        "G01 X3.0000 Y0.0000 Z-0.1000 F30",
                                        "G01 X3.0000 Y1.0000 Z-0.1000 F100",
                                        "G03 X2.0000 Y2.0000 Z-0.1000 I-1.0000 J0.0000"}},
                      Example{.name = "letters",
                              .definition = "MAP,UVWIJK\r\n",
                              .moves = {"G00 W0.5", "G00 U3.0 V0.0", "G01 W-0.1 F30",
                                        "G01 V1.0 F100", "G03 U2.0 V2.0 I-1.0"}}),
    [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace tess::testing
