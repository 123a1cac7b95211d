// What a CNC program may take the place of.
#include "cnc/program_target.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "tests/support/foreign_locale.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

TEST(IsCncProgram, ProgramsOfAllKinds) {
  const char* const programs[] = {
      "",
      "\r\n \r\n",
      "%\nO1000\nG21 G90\nG0 X0 Y0\nM30\n%\n",
      "%MPF100\nN10 G71\nN20 g1 x-.5 y+2. f100\nN30 M02\n",
      "O0001 (BRACKET)\n(TOOL 1)\nG00G90G54X1.5Y2.\n/G28Z0\nM30",
      "; a comment\n  G1 X 1.0 Y - 2\t(to the corner) F10 ; and back\n",
      ":1234\nM06T1\n",
      "'****\n'*        RS 274-D CNC CODE\nWHATEVER A MACHINE WANTS\n",
  };
  for (const char* const program : programs) EXPECT_TRUE(isCncProgram(program)) << program;
}

TEST(IsCncProgram, OneInSmallLettersWhereAnIHasADot) {
  const testing::ForeignLocale turkish("tr_TR");
  EXPECT_TRUE(isCncProgram("g2 x1 y0 i.5 j0\nm30\n"));
}

TEST(IsCncProgram, AProgramThatIsLongerThanALook) {
  std::string program;
  while (program.size() < 100000) program += "G1 X1.25 Y-3.5 F100 (on to the next)\n";
  EXPECT_TRUE(isCncProgram(program));
  EXPECT_TRUE(isCncProgram(program.substr(0, 1 << 16)));
}

TEST(IsCncProgram, EverythingElseIsNone) {
  const char* const others[] = {
      "1.0\r\nPROFILE\r\n1\r\n1\r\n-1\r\nI\r\n",       // a drawing
      "1,102,0,0,2,0,0,0,-.5,8\r\n",                   // its paths
      "  0\nSECTION\n  2\nHEADER\n",                   // a DXF file
      "x origin = 1\r\ny origin = 1\r\n",              // a setup
      "LISTSTART,HEADERTEXT\r\n\"%\"\r\nLISTEND\r\n",  // a definition
      "-- A script\nsave('part.cdm')\n",               // a script
      "Dear customer,\nG1 is what you asked for.\n",   // a letter
      "X1 Y2\nX3 Y4\n",                                // numbers without a command
      "12\n13\n14\n",                                  //
      "(only a remark)\n",                             //
      "G1 X(open\n",                                   //
      "\x89PNG\r\n\x1a\n",                             // a picture
      "%PDF-1.4\n1 0 obj\n",                           // a document
      "G\n",                                           //
  };
  for (const char* const other : others) EXPECT_FALSE(isCncProgram(other)) << other;
  EXPECT_FALSE(isCncProgram(std::string_view("G1 X1\0\n", 7)));
}

TEST(IsCncProgram, WhatThisProgramWrites) {
  for (const auto& entry : fs::directory_iterator(TESSIMO_SOURCE_DIR "/tests/cnc/golden")) {
    const bool program = entry.path().extension() == ".cnc";
    EXPECT_EQ(isCncProgram(readFile(entry.path().string())), program) << entry.path();
  }
}

TEST(KindOfProgram, IsToldByTheHeading) {
  EXPECT_EQ(kindOfProgram("(*  Created for GantrixPro (tm) 2012)\nG00 X1 Z2\n"), CncMode::Mill);
  EXPECT_EQ(kindOfProgram("(*  Created for Lathrix Pro (tm) 2012)\nG00 X1 Y2\n"), CncMode::Lathe);
}

TEST(KindOfProgram, WithoutOneTheAxesTell) {
  EXPECT_EQ(kindOfProgram("%\nG90\nG00 X1 Z2\nG01 Y3\n"), CncMode::Mill);
  EXPECT_EQ(kindOfProgram("%\nG90\nG00 X1\nG01 Z3 (Y is none)\n"), CncMode::Lathe);
  EXPECT_EQ(kindOfProgram("g1 x1\r\n/z2\r\n; y\r\n"), CncMode::Lathe);
}

TEST(KindOfProgram, OfOtherTextsIsUnknown) {
  EXPECT_EQ(kindOfProgram(""), std::nullopt);
  EXPECT_EQ(kindOfProgram("G90\nM30\n"), std::nullopt);
  EXPECT_EQ(kindOfProgram("Dear reader,\nX is not Y.\n"), std::nullopt);
}

TEST(KindOfProgram, OfAFileThatIsNotThereIsUnknown) {
  testing::TempFolder folder;
  EXPECT_EQ(kindOfProgramAt(folder("NONE.CNC")), std::nullopt);
  EXPECT_EQ(kindOfProgramAt(folder()), std::nullopt);
  folder.write("PART.CNC", "G00 X1 Y2\n");
  EXPECT_EQ(kindOfProgramAt(folder("PART.CNC")), CncMode::Mill);
}

class KeptAt : public ::testing::Test {
 protected:
  KeptAt() {
    store.drawingpath = folder();
    store.drawingname = "part.cdm";
    folder.write("part.cdm", "1.0\r\nPROFILE\r\n");
    folder.write("PART.TPM", "1,102,0,0,2,0,0,0,-.5,8\r\n");
  }
  std::string kept(const std::string& name) const {
    return keptAt(store, folder(name)).value_or("");
  }

  testing::TempFolder folder;
  DrawingStore store;
};

TEST_F(KeptAt, TheDrawingUnderAnyName) {
  fs::create_symlink("part.cdm", folder("link.cnc"));
  fs::create_hard_link(folder("part.cdm"), folder("name.cnc"));
  for (const char* name : {"part.cdm", "PART.CDM", "link.cnc", "name.cnc", "./part.cdm"}) {
    EXPECT_EQ(kept(name), "is a file of the drawing itself") << name;
  }
}

TEST_F(KeptAt, ThePathFileUnderAnyName) {
  fs::create_symlink("PART.TPM", folder("link.cnc"));
  fs::create_hard_link(folder("PART.TPM"), folder("name.cnc"));
  for (const char* name : {"PART.TPM", "part.tpm", "link.cnc", "name.cnc"}) {
    EXPECT_EQ(kept(name), "is a file of the drawing itself") << name;
  }
}

TEST_F(KeptAt, FilesThatAreNoPrograms) {
  folder.write("part.lua", "print('x')\n");
  folder.write("part.cdm~", "1.0\r\nPROFILE\r\n");
  EXPECT_EQ(kept("part.lua"), "is no CNC program");
  EXPECT_EQ(kept("part.cdm~"), "is no CNC program");
}

TEST_F(KeptAt, ProgramsAndNothingGiveWay) {
  folder.write("part.cnc", "G90\nM30\n");
  folder.write("empty.nc", "");
  fs::create_symlink("nowhere", folder("dangling.cnc"));
  for (const char* name : {"part.cnc", "empty.nc", "new.nc", "dangling.cnc"}) {
    EXPECT_EQ(kept(name), "") << name;
  }
}

}  // namespace
}  // namespace tess
