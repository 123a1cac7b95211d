// `import_dxf` of scripts, and the import command worked through its dialogs.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/script_run.h"
#include "tests/support/source_folder.h"

namespace tess {
namespace {

using testing::ScriptRun;

constexpr char kFiles[] = TESSIMO_SOURCE_DIR "/tests/import/files/";

class ImportDxf : public ::testing::Test, protected ScriptRun {
 protected:
  ImportDxf() {
    for (const char* const name : {"plate_r12.dxf", "points.dxf", "only_curves.dxf"}) {
      std::filesystem::copy_file(std::string(kFiles) + name, folder(name));
    }
  }
};

TEST_F(ImportDxf, AFileBesideTheScriptIsAppendedAndItsRowsAreCounted) {
  EXPECT_EQ(outputOf("add_segment{type=1, x1=9, y1=9} "
                     "print(import_dxf('plate_r12.dxf'), import_dxf('plate_r12'), "
                     "store.NumSegments, store.x1[1], store.segattr[2], store.drawingname)"),
            "6\t6\t13\t9.0\t8\tplate_r12\n");
}

TEST_F(ImportDxf, OptionsAreOffUnlessTheyAreGiven) {
  EXPECT_EQ(outputOf("print(import_dxf('points.dxf'), "
                     "import_dxf('points.dxf', {connect_points = true}), "
                     "import_dxf('points.dxf', {connect_points = false, auto_align = true}))"),
            "0\t2\t0\n");
}

TEST_F(ImportDxf, AutoAlignMovesTheNewRowsToTheOrigin) {
  folder.write("far.dxf",
               "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n5\n20\n6\n11\n7\n21\n9\n0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(outputOf("import_dxf('far.dxf', {auto_align = true}) "
                     "print(store.x0[1], store.y0[1], store.x1[1], store.y1[1])"),
            "0.0\t0.0\t2.0\t3.0\n");
}

TEST_F(ImportDxf, WhatCannotBeConvertedIsAMessage) {
  EXPECT_EQ(outputOf("import_dxf('only_curves.dxf') "
                     "print(#messages, messages[1].title, messages[1].icon)"),
            "1\tDXF Conversion Error\twarning\n");
}

TEST_F(ImportDxf, ADamagedFileIsAMessageWithItsLine) {
  folder.write("bad.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\nx\n0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(outputOf("print(import_dxf('bad.dxf'), messages[1].text)"),
            "0\tbad.dxf line 7: \"x\" is no number\n");
}

TEST_F(ImportDxf, AMissingFileIsAMessageAndTheScriptGoesOn) {
  EXPECT_EQ(outputOf("print(import_dxf('none.dxf'), messages[1].text)"),
            "0\t" + home("CNC/none.dxf") + ": File not found\n");
}

TEST_F(ImportDxf, AMisspeltOptionAndAnotherKindOfFileAreScriptErrors) {
  EXPECT_EQ(errorOf("import_dxf('points.dxf', {autoalign = true})"),
            "import_dxf has no option 'autoalign'");
  EXPECT_EQ(errorOf("import_dxf('points.dxf', {true})"), "import_dxf has no option '1'");
  EXPECT_EQ(errorOf("import_dxf('part.cdm')"), "import_dxf reads files named .DXF, not 'part.cdm'");
}

TEST_F(ImportDxf, AFileOutsideTheScriptsFoldersIsRefused) {
  const testing::TempFolder outside;
  EXPECT_NE(errorOf("import_dxf([[" + outside("a.dxf") + "]])").find("is outside the folders"),
            std::string::npos);
}

TEST_F(ImportDxf, TheCommandWorksThroughItsFileDialogAndItsForm) {
  EXPECT_EQ(outputOf("on_file(function(title, pattern, initial) print(title, pattern, initial) "
                     "return [[" +
                     folder("plate_r12.dxf") +
                     "]] end) "
                     "on_form('frmDXF', function(form) print(form.lblFile.caption) "
                     "form.chkAutoAlign.value = 1 form.cmdImport2TESS:click() end) "
                     "tool('miImportDXFfile') print(store.NumSegments)"),
            "Open DXF File\tDXF Files (*.DXF)|*.dxf|All Files (*.*)|*.*\t" + home("DXF/*.DXF") +
                "\nplate_r12.dxf: 6 entities\n6\n");
}

TEST_F(ImportDxf, ScriptsNeitherReadNorWriteWhatTheFormRemembers) {
  outputOf("import_dxf('plate_r12.dxf', {exact_geometry = true})");
  EXPECT_FALSE(home.has("frmDXF.cfg"));
  outputOf(
      "on_form('frmDXF', function(form) form.chkExactGeometry.value = 1 end) "
      "tool('miImportDXFfile')");
  EXPECT_TRUE(home.has("frmDXF.cfg"));
  EXPECT_EQ(outputOf("on_form('frmDXF', function(form) print(form.chkExactGeometry.value) end) "
                     "tool('miImportDXFfile')"),
            "1\n");
}

}  // namespace
}  // namespace tess
