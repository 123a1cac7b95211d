// `store` and `setting`: every name, the program's indices, and what does not fit.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/settings.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;

class StoreBinding : public ::testing::Test, protected ScriptRun {};

TEST_F(StoreBinding, EveryColumnIsThereWithItsStartBound) {
  const std::string names =
      "segtype segattr x0 y0 x1 y1 centerx centery pstype pscode psx0 psy0 psx1 psy1 psxc psyc "
      "psz psfeed psvisible pathgroupname toolname toolradius toolcolor toolmaterial "
      "toolmilltype toolflutes toolfeedrate toolspindlespeed toolrecspindle toolcuttingspeed "
      "toolinside "
      "cycletext cyclefinaldepth cycleincrdepth cycledwell cyclefeedrate colortable colorsinuse";
  EXPECT_EQ(outputOf("for name in ('" + names +
                     "'):gmatch('%S+') do local value = store[name][0] "
                     "assert(type(value) == 'number' or type(value) == 'string', name) end "
                     "print('all')"),
            "all\n");
}

TEST_F(StoreBinding, EveryVariableReadsAndTakesItsOwnValueBack) {
  const std::string names =
      "NumSegments NumPathSegments NumCycles currentpathgroup lastplacedgroup creationdate "
      "unitfactor markerx markery showpaths drawingsaved setupchanged drawingname drawingpath "
      "savedsegments savedpaths pathInsertMode pathInsertGroup units selectedtool cfg_final_depth "
      "cfg_tolerance roundstock";
  EXPECT_EQ(outputOf("for name in ('" + names +
                     "'):gmatch('%S+') do local value = store[name] "
                     "assert(value ~= nil, name) store[name] = value "
                     "assert(store[name] == value, name) end print('all')"),
            "all\n");
}

TEST_F(StoreBinding, SaysWhereTheNextPathGoes) {
  EXPECT_EQ(outputOf("store.pathInsertMode = 1 store.pathInsertGroup = 2 "
                     "print(store.pathInsertMode, state.pathInsertMode, store.pathInsertGroup)"),
            "1\t1\t2\n");
  EXPECT_EQ(outputOf("store.NumPathSegments = 3 store.pscode[1] = 100 store.pscode[2] = 200 "
                     "store.pscode[3] = 300 store.pathInsertMode = 2 store.pathInsertGroup = 1 "
                     "print(call.pathInsertIndex(store.pathInsertMode, store.pathInsertGroup))"),
            "2\n");
  EXPECT_EQ(outputOf("store.pathInsertMode = 2 "
                     "print(pcall(function() store.pathInsertMode = 40000 end), "
                     "store.pathInsertMode)"),
            "false\t2\n")
      << "it does not fit";
}

TEST_F(StoreBinding, RowsCountFromOneAndToolsAndCyclesFromZero) {
  EXPECT_EQ(valueOf("store.toolname[0], store.toolname[1], store.toolradius[0]"),
            "1/8 end mill\t1/4 end mill\t0.0625");
  EXPECT_EQ(valueOf("store.NumCycles, store.cycletext[0]"), "1\tG81 Drill");
}

TEST_F(StoreBinding, CountersAreWholeAndCoordinatesAreFloats) {
  EXPECT_EQ(valueOf("math.type(store.NumSegments), math.type(store.markerx)"), "integer\tfloat");
  EXPECT_EQ(outputOf("store.NumSegments = 2 store.x0[2] = 0.1 "
                     "print(store.x0[2] == 0.1, math.abs(store.x0[2] - 0.1) < 1e-8)"),
            "false\ttrue\n")
      << "32 bits";
}

TEST_F(StoreBinding, ACounterThatGrowsBringsItsRows) {
  EXPECT_EQ(outputOf("store.NumSegments = 500 store.NumPathSegments = 600 store.NumCycles = 3 "
                     "store.x0[500] = 1 store.psz[600] = 2 store.cycletext[2] = 'G83' "
                     "print(store.x0[500], store.psz[600], store.cycletext[2])"),
            "1.0\t2.0\tG83\n");
  EXPECT_EQ(outputOf("store.NumSegments = 32767 print(store.x0[32767])"), "0.0\n");
}

TEST_F(StoreBinding, FlagsReadAsTheStoreHoldsThemAndTakeBooleans) {
  EXPECT_EQ(outputOf("store.roundstock = true io = store.roundstock store.roundstock = false "
                     "print(io, store.roundstock)"),
            "-1\t0\n");
  EXPECT_EQ(outputOf("store.NumPathSegments = 1 store.psvisible[1] = 5 print(store.psvisible[1])"),
            "-1\n");
  EXPECT_EQ(outputOf("for _, name in ipairs{'endmarkers', 'parttemplate', 'tooloutline', "
                     "'visualgridf', 'cursorgridf', 'autocomments', 'usingchuck', 'showpaths'} do "
                     "store[name] = true assert(store[name] == 1, name) "
                     "store[name] = false assert(store[name] == 0, name) end print('all')"),
            "all\n");
  EXPECT_EQ(outputOf("store.roundstock = 'True' print(store.roundstock)"), "-1\n");
}

TEST_F(StoreBinding, TextsAndNumbersConvert) {
  EXPECT_EQ(outputOf("store.markerx = '1.5' store.units = 'M' store.drawingtitle = 12 "
                     "print(store.markerx, store.units, store.drawingtitle)"),
            "1.5\tM\t12\n");
  EXPECT_EQ(outputOf("store.drawingtitle = 0.25 print(store.drawingtitle)"), "0.25\n");
  EXPECT_EQ(outputOf("store.selectedtool = 2.5 a = store.selectedtool "
                     "store.selectedtool = 3.5 print(a, store.selectedtool)"),
            "2\t4\n")
      << "ties go to the even number";
}

TEST_F(StoreBinding, WhatDoesNotFitIsAnErrorOfTheLine) {
  struct Case {
    const char* statement;
    const char* error;
  };
  const Case cases[] = {
      {"print(store.x0[23])", "Subscript out of range"},
      {"store.x0[-1] = 0", "Subscript out of range"},
      {"store.toolname[100] = 'x'", "Subscript out of range"},
      {"store.colortable[8] = 1", "Subscript out of range"},
      {"print(store.x0[2^40])", "Subscript out of range"},
      {"store.NumSegments = -1", "Subscript out of range"},
      {"print(store.x0[1.5])", "Type mismatch"},
      {"print(store.x0['1'])", "Type mismatch"},
      {"print(store.x0[nil])", "Type mismatch"},
      {"store.NumSegments = 32768", "Overflow"},
      {"store.segattr[1] = 40000", "Overflow"},
      {"store.segtype[1] = 2^31", "Overflow"},
      {"store.x0[1] = 1e39", "Overflow"},
      {"store.x0[1] = math.huge", "Overflow"},
      {"store.x0[1] = 0/0", "Type mismatch"},
      {"store.x0[1] = 'wide'", "Type mismatch"},
      {"store.x0[1] = nil", "Type mismatch"},
      {"store.x0[1] = true", "Type mismatch"},
      {"store.selectedtool = true", "Type mismatch"},
      {"store.units = true", "Type mismatch"},
      {"store.units = {}", "Type mismatch"},
      {"store.roundstock = 'perhaps'", "Type mismatch"},
      {"store.x0 = 5", "a table is assigned to row by row"},
  };
  for (const Case& c : cases) EXPECT_EQ(errorOf(c.statement), c.error) << c.statement;
}

TEST_F(StoreBinding, AFailedAssignmentChangesNothing) {
  EXPECT_EQ(outputOf("store.selectedtool = 1 pcall(function() store.selectedtool = 70000 end) "
                     "pcall(function() store.NumSegments = 70000 end) "
                     "print(store.selectedtool, store.NumSegments)"),
            "1\t0\n");
}

TEST_F(StoreBinding, UnknownNamesAreErrorsWithTheNameThatWasMeant) {
  EXPECT_EQ(errorOf("print(store.NumSegmets)"),
            "store has no 'NumSegmets' (did you mean 'NumSegments'?)");
  EXPECT_EQ(errorOf("store.Unit = 'M'"), "store has no 'Unit' (did you mean 'units'?)");
  EXPECT_EQ(errorOf("print(store.surface)"), "store has no 'surface'");
  EXPECT_EQ(errorOf("print(store[1])"), "store has no '1'");
  EXPECT_EQ(errorOf("setting['fnal depth'] = 1"),
            "setting has no 'fnal depth' (did you mean 'final depth'?)");
}

TEST_F(StoreBinding, TheObjectsCannotBeTakenApart) {
  EXPECT_EQ(valueOf("getmetatable(store), getmetatable(store.x0), getmetatable(setting)"),
            "false\tfalse\tfalse");
  EXPECT_EQ(errorOf("setmetatable(geometry, nil)"), "cannot change a protected metatable");
}

TEST_F(StoreBinding, DefaultsAreAnObjectOfTheirOwn) {
  EXPECT_EQ(outputOf("store.defaults.partdimx = 7 print(store.defaults.partdimx, store.partdimx)"),
            "7.0\t4.0\n");
}

TEST_F(StoreBinding, EverySetupKeyIsASetting) {
  std::string keys;
  for (const SettingRow& row : settingRows()) keys += "[[" + std::string(row.key) + "]],";
  ASSERT_FALSE(keys.empty());
  EXPECT_EQ(outputOf("for _, key in ipairs{" + keys +
                     "} do local value = setting[key] assert(value ~= nil, key) "
                     "setting[key] = value assert(setting[key] == value, key) end print('all')"),
            "all\n");
}

TEST_F(StoreBinding, SettingsAreTheVariablesOfTheStore) {
  EXPECT_EQ(outputOf("setting['final depth'] = 0.5 setting['Units of Measure '] = 'M' "
                     "setting['draw color'] = 3 setting['gouge avoidance'] = true "
                     "print(store.cfg_final_depth, store.units, store.colortable[3], "
                     "store.cfg_gouge_avoidance)"),
            "0.5\tM\t3\t-1\n");
}

TEST_F(StoreBinding, SettingsKnowThePostDefinition) {
  EXPECT_EQ(valueOf("setting.cncheadertext, setting.cnccomment, setting.cncletters"),
            "%\t;\tXYZIJK");
  EXPECT_EQ(valueOf("setting.cnctrailertext"), "M30\r\n%");
  EXPECT_EQ(valueOf("setting.absCenter, setting.forceXYZ, setting.forceIJK"), "0\t0\t0");
  EXPECT_EQ(valueOf("setting.cncfmtinch, setting.cncfmtmm"), "##0.0####\t####0.0###");
  EXPECT_EQ(valueOf("setting.cncfmt, setting.coordfmt, setting.dimfmt"),
            "##0.0####\t##0.0000\t##0.00000");
  EXPECT_EQ(valueOf("#setting['creation date']"), "10");
  EXPECT_EQ(outputOf("setting.absCenter = true setting.cnccomment = '(' "
                     "print(setting.absCenter, setting.cnccomment)"),
            "-1\t(\n");
}

}  // namespace
}  // namespace tess
