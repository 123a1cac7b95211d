// `call`: the cutter, its material and the texts of the property window; and their forms in
// scripts.
#include <filesystem>

#include "gtest/gtest.h"

#include "tests/support/script_run.h"
#include "tests/support/source_folder.h"

namespace tess {
namespace {

using testing::ScriptRun;

class ToolChestRoutines : public ::testing::Test, protected ScriptRun {
 protected:
  ToolChestRoutines() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data/SpeedsFeeds.MDB", home("SpeedsFeeds.MDB"));
  }
};

TEST_F(ToolChestRoutines, RowsAndTheirNames) {
  EXPECT_EQ(outputOf("add_segment{type=1, x1=1} add_segment{type=5, x0=1, x1=1} "
                     "print(call.SegmentName(1), call.SegmentName(2), call.SegmentName(0)) "
                     "print(call.InitializeSegmentFromName('ENTITY 2-whatever'), "
                     "call.InitializeSegmentFromName('Row 2'))"),
            "Entity 1-Line\tEntity 2-Circle\tEntity 0-\n2\t0\n");
  EXPECT_EQ(errorOf("call.SegmentName(1)"), "Subscript out of range");
  EXPECT_EQ(errorOf("call.InitializeSegmentFromName('Entity 7')"), "Subscript out of range");
}

TEST_F(ToolChestRoutines, TextsOfValues) {
  EXPECT_EQ(valueOf("call.AngleAsString(math.pi / 4), call.AngleAsString(0), "
                    "'[' .. call.AngleAsString(-1) .. ']'"),
            "45.\t0\t[]");
  EXPECT_EQ(valueOf("call.CoordinateAsString(1.5), call.PointAsString(1, -2.25)"),
            "1.5000\t(1.0000, -2.2500)");
}

TEST_F(ToolChestRoutines, ARecommendationFillsTheRow) {
  const std::string material =
      "setting['material category'] = 'Alluminum Alloys' "
      "setting['part material'] = 'Wrought Aluminum Alloys 5000 6000 7000 Series' "
      "setting['part hardness'] = '' setting['material condition'] = '' "
      "store.toolmaterial[3] = 'HSS' store.toolspindlespeed[3] = 0 ";
  EXPECT_EQ(outputOf(material +
                     "call.RecommendSpeeds(3, 2, 0.25) print(store.toolcuttingspeed[3], "
                     "store.toolrecspindle[3], store.toolfeedrate[3], store.toolspindlespeed[3]) "
                     "call.RecommendSpeeds(3, 2, 0.25, 1) print(store.toolcuttingspeed[3] > 0)"),
            "300.0\t4584.0\t9.2 to 33.9 ipm\t4584.0\ntrue\n");
  EXPECT_EQ(outputOf(material + "setting['part material'] = 'Cheese' "
                                "call.RecommendSpeeds(3, 2, 0.25) print(store.toolfeedrate[3]) "
                                "call.RecommendSpeeds(100, 2, 0.25) "
                                "call.RecommendSpeeds(-1, 2, 0.25)"),
            "Unable to compute.\n");
}

TEST_F(ToolChestRoutines, ConditionsHaveCodes) {
  EXPECT_EQ(valueOf("call.LookupConditionCode('Cold Drawn'), "
                    "call.LookupConditionCode('no such thing')"),
            "CD\tno such thing");
  EXPECT_EQ(valueOf("call.LocateSpeedsFeeds()"), home("SpeedsFeeds.MDB"));
}

TEST_F(ToolChestRoutines, FormsAreWorkedByTheirNames) {
  EXPECT_EQ(outputOf("on_form('dlgToolPrms', function(chest) "
                     "  chest.cmdAdd:click() "
                     "  chest.txttool.text = 'Long Drill' chest.txtdiameter.text = '0.5' "
                     "  on_form('dlgColor', function(color) "
                     "    color.txtGreen.text = '200' color.cmdAccept:click() end) "
                     "  chest.cmdColorPalette:click() "
                     "  chest.cmdAccept:click() end) "
                     "tool('miToolChest') local t = store.selectedtool "
                     "print(store.toolname[t], store.toolradius[t], store.toolcolor[t])"),
            "long drill\t0.25\t51200\n");
  EXPECT_EQ(outputOf("on_form('dlgTitleBlock', function(block) "
                     "  block.cmbMaterialCategory.text = 'Carbon Steels' "
                     "  print(block.cmbMaterial.count > 0) "
                     "  block.optMM.value = true block.cmdAccept:click() end) "
                     "tool('miDrawingTitleBlock') print(store.units)"),
            "true\nM\n");
  EXPECT_EQ(outputOf("add_segment{type=1, x1=4} tool('miSelectAll') tool('miShowProperties') "
                     "local p = form('frmProperties') print(p.cboObject.text, p.TabStrip.index) "
                     "p.TabStrip.index = 1 print(table.concat(p.PropList1.items, '|')) "
                     "p.PropList1.text = 'Length' p.txtValue:change('6') p.txtValue:leave() "
                     "print(store.x1[1], p.txtValue.text, p.lblDescription.caption)"),
            "Entity 1-Line\t0\nGeometry|Start X|Start Y|End X|End Y|Bearing|Length\n6.0\t6\t\n");
}

}  // namespace
}  // namespace tess
