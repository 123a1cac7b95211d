// The tool library: what goes out comes back, and what cannot be taken is named with its line.
#include "tools/tool_library.h"

#include <sstream>

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/settings.h"
#include "core/text.h"
#include "tests/support/failure_of.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::TempFolder;
using Texts = std::vector<std::string>;

// The rows of the chest that hold anything, as a setup would hold them.
std::string chestText(const DrawingStore& store) {
  const auto rowText = [](const DrawingStore& of, int tool) {
    std::string text;
    for (const RowSetting& setting : toolSettings()) appendRowSetting(text, of, setting, tool);
    return text;
  };
  const std::string empty = rowText(DrawingStore(), 0);
  std::string text;
  for (int tool = 0; tool <= kLastTool; ++tool) {
    const std::string row = rowText(store, tool);
    if (row != empty) text += std::to_string(tool) + "\n" + row;
  }
  return text;
}

DrawingStore smallChest() {
  DrawingStore store;
  store.toolname[0] = "1/4 end mill";
  store.toolradius[0] = 0.125F;
  store.toolcolor[0] = 12;
  store.toolmaterial[0] = "HSS";
  store.toolflutes[0] = 2;
  store.toolfeedrate[0] = "9.6 to 17.2 ipm";
  store.toolspindlespeed[0] = 3820;
  store.toolrecspindle[0] = 3820;
  store.toolcuttingspeed[0] = 250;
  store.toolname[40] = "3/8\" \"fly\" cutter";
  store.toolradius[40] = 1.0F / 64;
  store.toolcolor[40] = 0x123456;
  store.toolmaterial[40] = "Carbide";
  store.toolmilltype[40] = 1;
  store.toolflutes[40] = 1;
  store.toolname[98] = "slot drill";
  store.toolradius[98] = 0.3F;
  store.toolmilltype[98] = 2;
  store.toolname[99] = "kept out";
  return store;
}

constexpr char kSmallCsv[] =
    "number,name,type,material,flutes,diameter,units,color,feed rate,spindle speed,recommended "
    "spindle speed,cutting speed\r\n"
    "1,1/4 end mill,end,HSS,2,0.25,in,12,9.6 to 17.2 ipm,3820,3820,250\r\n"
    "41,\"3/8\"\" \"\"fly\"\" cutter\",face,Carbide,1,0.03125,in,1193046,,0,0,0\r\n"
    "99,slot drill,slot,,0,0.6,in,0,,0,0,0\r\n";

ToolImport importCsv(DrawingStore& store, const std::string& text) {
  return importToolCsv(store, text, "t.csv");
}
ToolImport importTable(DrawingStore& store, const std::string& text) {
  return importToolTable(store, text, "t.tbl");
}

// ---- CSV

TEST(ToolCsv, HasALineForEachToolOfTheSetup) {
  EXPECT_EQ(toolCsv(smallChest()), kSmallCsv);
}

TEST(ToolCsv, ComesBackIntoTheSameChestWithoutAChange) {
  DrawingStore store = smallChest();
  const std::string before = chestText(store);
  const ToolImport result = importCsv(store, toolCsv(store));
  EXPECT_EQ(result.tools, 3);
  EXPECT_EQ(result.problems, Texts{});
  EXPECT_EQ(chestText(store), before);
  EXPECT_TRUE(store.setupchanged);
}

TEST(ToolCsv, ComesBackIntoAnEmptyChestAsItWas) {
  DrawingStore wanted = smallChest();
  wanted.toolname[99].clear();
  DrawingStore store;
  importCsv(store, kSmallCsv);
  EXPECT_EQ(chestText(store), chestText(wanted));
  EXPECT_EQ(toolCsv(store), kSmallCsv);
}

TEST(ToolCsv, OfTheShippedSetupsComesBack) {
  for (const char* name : {"mill_inch", "mill_mm", "lathe", "lathe_mm"}) {
    SCOPED_TRACE(name);
    const std::string setup = readFile(std::string(TESSIMO_SOURCE_DIR "/data/") + name + ".msu");
    DrawingStore store;
    store.units = std::string(name).ends_with("_mm") ? "M" : "I";
    int tool = -1;
    std::istringstream lines(setup);
    for (std::string line; std::getline(lines, line);) {
      if (line.ends_with('\r')) line.pop_back();
      const std::string key = line.substr(0, line.find(" ="));
      if (key == "tool #") ++tool;
      const RowSetting* const field = findRowSetting(toolSettings(), key);
      if (field != nullptr) readRowSetting(store, *field, tool, line.substr(line.find('=') + 1));
    }
    DrawingStore again;
    again.units = store.units;
    EXPECT_EQ(importCsv(again, toolCsv(store)).problems, Texts{});
    EXPECT_EQ(chestText(again), chestText(store));
    EXPECT_GT(tool, 10);
  }
}

TEST(ToolCsv, ToolsOfALatheTellWhetherTheyWorkInside) {
  DrawingStore store = smallChest();
  store.toolinside[40] = 1;
  const std::string csv = toolCsv(store);
  EXPECT_NE(csv.find("cutting speed,inside\r\n"), std::string::npos);
  DrawingStore again;
  EXPECT_EQ(importCsv(again, csv).problems, Texts{});
  EXPECT_EQ(again.toolinside[40], 1);
  EXPECT_EQ(again.toolinside[0], 0);
  EXPECT_EQ(importCsv(again, "number,name,inside\n2,drill,2\n").problems,
            Texts{"t.csv:2: The inside \"2\" is not between 0 and 1"});
}

TEST(ToolCsv, ColumnsAndLinesMayBeWrittenOtherwise) {
  DrawingStore store;
  const ToolImport result = importCsv(store,
                                      "\xEF\xBB\xBF\n\n Diameter , NAME,Number\n"
                                      "0.5,\" Ball Mill \",7\r\r\n,Reamer,8");
  EXPECT_EQ(result.problems, Texts{});
  EXPECT_EQ(result.tools, 2);
  EXPECT_EQ(store.toolname[6], "ball mill");
  EXPECT_EQ(store.toolradius[6], 0.25F);
  EXPECT_EQ(store.toolname[7], "reamer");
}

TEST(ToolCsv, WhatALineDoesNotTellStays) {
  DrawingStore store = smallChest();
  importCsv(store, "number,name,diameter,flutes,material\n1,new name,,,\n");
  EXPECT_EQ(store.toolname[0], "new name");
  EXPECT_EQ(store.toolradius[0], 0.125F);
  EXPECT_EQ(store.toolflutes[0], 2);
  EXPECT_EQ(store.toolcolor[0], 12);
  EXPECT_EQ(store.toolmaterial[0], "") << "an empty text is a text";
  EXPECT_EQ(store.toolname[40], "3/8\" \"fly\" cutter") << "and so do tools that it lacks";
}

TEST(ToolCsv, DiametersOfTheOtherUnitAreConverted) {
  DrawingStore inch;
  importCsv(inch, "number,name,diameter,units\n1,a,25.4,mm\n2,b,1,in\n3,c,1,\n");
  EXPECT_EQ(inch.toolradius[0], 0.5F);
  EXPECT_EQ(inch.toolradius[1], 0.5F);
  EXPECT_EQ(inch.toolradius[2], 0.5F);
  DrawingStore metric;
  metric.units = "M";
  importCsv(metric, "number,name,diameter,units\n1,a,25.4,MM\n2,b,1,Inch\n3,c,1,\n");
  EXPECT_EQ(metric.toolradius[0], 12.7F);
  EXPECT_EQ(metric.toolradius[1], 12.7F);
  EXPECT_EQ(metric.toolradius[2], 0.5F);
}

struct BadLineCase {
  const char* line;
  const char* what;
};

const BadLineCase kBadCsvLines[] = {
    {"x,a,1", "The tool number \"x\" is not a number"},
    {",a,1", "The tool number \"\" is not a number"},
    {"0,a,1", "The tool number \"0\" is not between 1 and 99"},
    {"100,a,1", "The tool number \"100\" is not between 1 and 99"},
    {"1.5,a,1", "The tool number \"1.5\" is not a whole number"},
    {"1e9,a,1", "The tool number \"1e9\" is not between 1 and 99"},
    {"3,a,1", "Tool 3 stands in line 2 already"},
    {"4,,1", "There is no name"},
    {"4,\"a, b\",1", "The name \"a, b\" does not fit: it has a comma"},
    {"4,a name of 21 letters.,1",
     "The name \"a name of 21 letters.\" does not fit: it has more than 20 characters"},
    {"4,a,abc", "The diameter \"abc\" is not a number"},
    {"4,a,1e39", "The diameter \"1e39\" is not a number"},
    {"4,a,nan", "The diameter \"nan\" is not a number"},
    {"4,a,inf", "The diameter \"inf\" is not a number"},
    {"4,a,-1", "The diameter \"-1\" is below 0"},
    {"4,a", "2 cells stand under 3 columns"},
    {"4,a,1,2", "4 cells stand under 3 columns"},
    {"4,\"a,1", "A quote is not closed"},
};

TEST(ToolCsv, LinesThatCannotBeTakenAreNamed) {
  for (const BadLineCase& test : kBadCsvLines) {
    SCOPED_TRACE(test.line);
    DrawingStore store;
    const ToolImport result = importCsv(
        store, std::string("number,name,diameter\n3,good,1\n") + test.line + "\n5,good too,2\n");
    EXPECT_EQ(result.problems, Texts{std::string("t.csv:3: ") + test.what});
    EXPECT_EQ(result.tools, 2) << "and the others are taken";
    EXPECT_EQ(store.toolname[2], "good");
    EXPECT_EQ(store.toolname[3], "");
    EXPECT_EQ(store.toolname[4], "good too");
  }
}

struct BadCellCase {
  const char* column;
  const char* cell;
  const char* what;
};

const BadCellCase kBadCells[] = {
    {"type", "ball", "The type \"ball\" is none of \"end\", \"face\" and \"slot\""},
    {"type", "1.5", "The type \"1.5\" is not a whole number"},
    {"type", "40000", "The type \"40000\" is not between -32768 and 32767"},
    {"flutes", "-1", "The number of flutes \"-1\" is not between 0 and 32767"},
    {"flutes", "two", "The number of flutes \"two\" is not a number"},
    {"color", "red", "The color \"red\" is not a number"},
    {"color", "4294967296", "The color \"4294967296\" is not between -2147483648 and 2147483647"},
    {"units", "cm", "The units \"cm\" are neither \"in\" nor \"mm\""},
    {"material", "\"a,b\"", "The material \"a,b\" does not fit: it has a comma"},
    {"feed rate", "\"a,b\"", "The feed rate \"a,b\" does not fit: it has a comma"},
    {"spindle speed", "fast", "The spindle speed \"fast\" is not a number"},
    {"recommended spindle speed", "-5", "The recommended spindle speed \"-5\" is below 0"},
    {"cutting speed", "1e50", "The cutting speed \"1e50\" is not a number"},
};

TEST(ToolCsv, CellsThatCannotBeTakenAreNamed) {
  for (const BadCellCase& test : kBadCells) {
    SCOPED_TRACE(test.what);
    DrawingStore store = smallChest();
    const std::string before = chestText(store);
    const ToolImport result =
        importCsv(store, std::string("number,name,") + test.column + "\n1,a," + test.cell + "\n");
    EXPECT_EQ(result.problems, Texts{std::string("t.csv:2: ") + test.what});
    EXPECT_EQ(chestText(store), before) << "not a part of the line is taken";
    EXPECT_FALSE(store.setupchanged);
  }
}

TEST(ToolCsv, ADiameterThatOnlyTheConversionMakesTooLargeIsNamed) {
  DrawingStore store;
  store.units = "M";
  EXPECT_EQ(importCsv(store, "number,name,diameter,units\n1,a,3e38,in\n").problems,
            Texts{"t.csv:2: The diameter \"3e38\" is too large"});
}

TEST(ToolCsv, WithoutTheNeededColumnsNothingIsTaken) {
  DrawingStore store;
  EXPECT_EQ(importCsv(store, "").problems, Texts{"t.csv:1: There is no column \"number\""});
  EXPECT_EQ(importCsv(store, "\n\nnumber,size\n1,2\n").problems,
            (Texts{"t.csv:3: The column \"size\" is unknown and passed over",
                   "t.csv:3: There is no column \"name\""}));
  EXPECT_EQ(importCsv(store, "\"number\n").problems, Texts{"t.csv:1: A quote is not closed"});
}

TEST(ToolCsv, AColumnWithoutANameIsPassedOver) {
  DrawingStore store;
  EXPECT_EQ(importCsv(store, "number,name,\n1,a,\n").problems, Texts{});
  EXPECT_EQ(store.toolname[0], "a");
}

TEST(ToolCsv, UnknownColumnsArePassedOver) {
  DrawingStore store;
  const ToolImport result = importCsv(store, "number,length,name\n1,55,a\n");
  EXPECT_EQ(result.problems, Texts{"t.csv:1: The column \"length\" is unknown and passed over"});
  EXPECT_EQ(store.toolname[0], "a");
}

TEST(ToolCsv, ProblemsAreToldUpToAHundred) {
  DrawingStore store;
  std::string text = "number,name\n";
  for (int i = 0; i < 250; ++i) text += "x,a\n";
  const ToolImport result = importCsv(store, text);
  ASSERT_EQ(result.problems.size(), 101U);
  EXPECT_EQ(result.problems.back(), "t.csv: 150 more lines have problems");
}

TEST(ToolCsv, LongAndStrangeTextsStandInMessagesShort) {
  DrawingStore store;
  EXPECT_EQ(importCsv(store, "number,name\n1," + std::string(500, 'n') + "\n").problems,
            Texts{"t.csv:2: The name \"" + std::string(40, 'n') +
                  "...\" does not fit: it has more than 20 characters"});
  EXPECT_EQ(importCsv(store, "number,name\n\xff,a\n").problems,
            Texts{"t.csv:2: The tool number \"\xC3\xBF\" is not a number"});
}

TEST(ToolCsv, NamesAreCountedInCharacters) {
  DrawingStore store;
  std::string name;
  for (int i = 0; i < 20; ++i) name += "\xC3\xA4";
  EXPECT_EQ(importCsv(store, "number,name\n1," + name + "\n").problems, Texts{});
  EXPECT_EQ(importCsv(store, "number,name\n1," + name + "x\n").tools, 0);
}

RC_GTEST_PROP(ToolCsvProperty, AnyChestComesBack, ()) {
  DrawingStore store;
  const auto count = *rc::gen::inRange(0, 12);
  for (int i = 0; i < count; ++i) {
    const int tool = *rc::gen::inRange(0, 99);
    const auto letters = *rc::gen::container<std::string>(
        *rc::gen::inRange(1, 20), rc::gen::elementOf(std::string("abc 123/\"'=;|.-")));
    store.toolname[tool] = "t" + std::string(trimmed(letters.substr(0, 18)));
    store.toolradius[tool] = std::abs(*rc::gen::arbitrary<float>()) / 2;
    store.toolcolor[tool] = *rc::gen::arbitrary<int>();
    store.toolmilltype[tool] = *rc::gen::inRange(-3, 9);
    store.toolflutes[tool] = *rc::gen::inRange(0, 32767);
    store.toolspindlespeed[tool] = std::abs(*rc::gen::arbitrary<float>());
  }
  DrawingStore again;
  const ToolImport result = importCsv(again, toolCsv(store));
  RC_ASSERT(result.problems == Texts{});
  RC_ASSERT(toolCsv(again) == toolCsv(store));
  RC_ASSERT(chestText(again) == chestText(store));
}

// ---- Tool table

constexpr char kSmallTable[] =
    "T1 P1 D0.25 ;1/4 end mill\n"
    "T41 P41 D0.03125 ;3/8\" \"fly\" cutter\n"
    "T99 P99 D0.6 ;slot drill\n";

TEST(ToolTable, HasALineForEachToolOfTheSetup) {
  EXPECT_EQ(toolTable(smallChest()), kSmallTable);
}

TEST(ToolTable, ComesBackWithoutAChange) {
  DrawingStore store = smallChest();
  const std::string before = chestText(store);
  const ToolImport result = importTable(store, toolTable(store));
  EXPECT_EQ(result.tools, 3);
  EXPECT_EQ(result.problems, Texts{});
  EXPECT_EQ(chestText(store), before) << "with all that a tool table knows nothing of";
}

// What was measured at the machine must not be lost.
constexpr char kMachineTable[] =
    "; my machine\r\n"
    "T1 P5 X0.1 Z+2.511 D0.250000 ;1/4 End Mill\r\n"
    "\r\n"
    "t12  p2 D0.5 Z1 I10 J-10 Q2 ; boring bar\r\n"
    "not a line of a table\r\n"
    "T99 P41 Z0.5 D1 ;old name\r\n"
    "T500 P6 Z3 D2 ;of the changer\r\n";

TEST(ToolTable, KeepsWhatATableHoldsBesides) {
  EXPECT_EQ(toolTable(smallChest(), kMachineTable),
            "; my machine\r\n"
            "T1 P5 X0.1 Z+2.511 D0.250000 ;1/4 End Mill\r\n"
            "\r\n"
            "t12  p2 D0.5 Z1 I10 J-10 Q2 ; boring bar\r\n"
            "not a line of a table\r\n"
            "T99 P41 Z0.5 D0.6 ;slot drill\r\n"
            "T500 P6 Z3 D2 ;of the changer\r\n"
            "T41 P42 D0.03125 ;3/8\" \"fly\" cutter\r\n")
      << "pocket 41 is taken";
}

TEST(ToolTable, OfItsOwnToolsStaysByteForByte) {
  DrawingStore store;
  const std::string table =
      "T1 P1 Z+2.5 D.25 ;First Tool\nT2 P2 D0.50 ;  second tool \n;T3 P3 D1\nT4 P4 D0 Z1 ;fourth";
  importTable(store, table);
  EXPECT_EQ(toolTable(store, table), table + "\n");
}

TEST(ToolTable, ALineWithoutDiameterOrNameGetsThem) {
  EXPECT_EQ(toolTable(smallChest(), "T1 P1 Z2.5\nT99 P9 ;\nT99 P10 D3 ;twice\n"),
            "T1 P1 Z2.5 D0.25 ;1/4 end mill\n"
            "T99 P9 D0.6 ;slot drill\n"
            "T99 P10 D3 ;twice\n"
            "T41 P41 D0.03125 ;3/8\" \"fly\" cutter\n");
}

TEST(ToolTable, IsReadByItsWords) {
  DrawingStore store;
  const ToolImport result = importTable(store, kMachineTable);
  EXPECT_EQ(result.tools, 3);
  EXPECT_EQ(result.problems, (Texts{"t.tbl:5: \"not\" is no word of a tool table",
                                    "t.tbl:7: The tool number \"500\" is not between 1 and 99"}));
  EXPECT_EQ(store.toolname[0], "1/4 end mill");
  EXPECT_EQ(store.toolradius[0], 0.125F);
  EXPECT_EQ(store.toolname[11], "boring bar");
  EXPECT_EQ(store.toolradius[11], 0.25F);
  EXPECT_EQ(store.toolname[98], "old name");
}

TEST(ToolTable, AToolWithoutARemarkIsNamedByItsNumber) {
  DrawingStore store = smallChest();
  importTable(store, "T1 D1\nT5 P1 D2 ;\n");
  EXPECT_EQ(store.toolname[0], "1/4 end mill") << "a name that is there stays";
  EXPECT_EQ(store.toolradius[0], 0.5F);
  EXPECT_EQ(store.toolname[4], "tool #5");
}

const BadLineCase kBadTableLines[] = {
    {"P1 D1 ;no number", "There is no tool number"},
    {"T P1 D1", "\"T\" is no word of a tool table"},
    {"Tx P1 D1", "\"Tx\" is no word of a tool table"},
    {"T0 P1 D1", "The tool number \"0\" is not between 1 and 99"},
    {"T3 P7 D9 ;again", "Tool 3 stands in line 1 already"},
    {"T4 D-1 ;a", "The diameter \"-1\" is below 0"},
    {"T4 D1 ;a name, with a comma",
     "The name \"a name, with a comma\" does not fit: it has a comma"},
    {"T4 D1 ;a name of 21 letters.",
     "The name \"a name of 21 letters.\" does not fit: it has more than 20 characters"},
    {"T4 D1 5 ;a", "\"5\" is no word of a tool table"},
    {"T4 D1 \xC3\xA4", "\"\xC3\xA4\" is no word of a tool table"},
};

TEST(ToolTable, LinesThatCannotBeTakenAreNamed) {
  for (const BadLineCase& test : kBadTableLines) {
    SCOPED_TRACE(test.line);
    DrawingStore store;
    const ToolImport result =
        importTable(store, std::string("T3 D1 ;good\n") + test.line + "\nT5 D1 ;good too\n");
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems[0], std::string("t.tbl:2: ") + test.what);
    EXPECT_EQ(result.tools, 2);
    EXPECT_EQ(store.toolname[3], "");
  }
}

// ---- Files

TEST(ToolLibraryFiles, TheEndingTellsTheFormat) {
  EXPECT_EQ(toolLibraryFormat("a/b.CSV"), ToolLibraryFormat::Csv);
  EXPECT_EQ(toolLibraryFormat("Tool.Tbl"), ToolLibraryFormat::LinuxCnc);
  EXPECT_EQ(toolLibraryFormat("csv"), std::nullopt);
  EXPECT_EQ(toolLibraryFormat("tools.txt"), std::nullopt);
}

TEST(ToolLibraryFiles, AreReadByTheirEnding) {
  const TempFolder folder;
  DrawingStore store;
  EXPECT_EQ(importTools(store, folder.write("t.csv", kSmallCsv)).tools, 3);
  EXPECT_EQ(store.toolcolor[0], 12);
  EXPECT_EQ(importTools(store, folder.write("t.tbl", "T1 D2 ;new\nx\n")).problems,
            Texts{folder("t.tbl") + ":2: \"x\" is no word of a tool table"});
  EXPECT_EQ(store.toolname[0], "new");
}

TEST(ToolLibraryFiles, ExportingOverATableKeepsItsMeasures) {
  const TempFolder folder;
  const DrawingStore store = smallChest();
  EXPECT_EQ(exportedTools(store, folder("none.tbl")), kSmallTable);
  EXPECT_EQ(exportedTools(store, folder.write("t.tbl", kMachineTable)),
            toolTable(store, kMachineTable));
  EXPECT_EQ(exportedTools(store, folder.write("t.csv", "left over")), kSmallCsv);
}

TEST(ToolLibraryFiles, TheStepOverFollowsTheToolInUse) {
  testing::TempFolder folder;
  DrawingStore store;
  store.selectedtool = 0;
  store.cfg_cut_width_type = 1;
  store.cfg_tool_spacing = 40;
  importTools(store, folder.write("a.csv", "number,name,diameter\n1,end mill,0.5\n"));
  EXPECT_EQ(store.cfg_tool_spacing_distance, 0.2F);
}

TEST(ToolLibraryFiles, AnotherEndingIsAFailure) {
  DrawingStore store;
  const RuntimeFailure failure = testing::failureOf([&] { importTools(store, "tools.txt"); });
  EXPECT_EQ(failure.number(), FailureNumber::InvalidProcedureCall);
  EXPECT_EQ(failure.source(), "tools.txt");
  EXPECT_EQ(failure.description(), "A tool library is a .csv file or a tool table, .tbl");
  EXPECT_EQ(testing::numberOfFailure([&] { exportedTools(store, "tools"); }),
            FailureNumber::InvalidProcedureCall);
}

TEST(ToolLibraryFiles, AMissingFileIsAFailure) {
  const TempFolder folder;
  DrawingStore store;
  EXPECT_EQ(testing::numberOfFailure([&] { importTools(store, folder("none.csv")); }),
            FailureNumber::FileNotFound);
}

}  // namespace
}  // namespace tess
